// How the reader recognises the lines of the catalogue.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

enum FactForm : unsigned {
    Plain = 0,
    Opens = 0x1,      ///< the line begins an item
    Fixed = 0x2,      ///< a line without a value
    Failure = 0x4,    ///< says that a call failed
    NoLineEnd = 0x8,  ///< Quirk: the format writes no line end after it; a separator may follow on the same line
    Anything = 0x10,  ///< no literal text identifies the line; where it may stand depends on the item
    Indented = 0x20,  ///< list: further entries stand on lines of their own, indented by the label's length
    Spaced = 0x40,    ///< list: entries are separated by spaces
    Ends = 0x80,      ///< list: each entry is followed by a space
    NextLine = 0x100, ///< the value is the line after this one
    NotEmpty = 0x200, ///< the first value of the line has at least one character
};

} // namespace Reports
} // namespace velkor
