// Names in the paths of files.
#pragma once

#include "finding.h"

#include <string>
#include <unordered_set>

namespace velkor {
namespace Reports {

/// Where a path stands, which decides where it ends.
enum class PathContext {
    Whole,    ///< the text is a path, or several with semicolons between them
    Personal, ///< the same, and all of it belongs to a user
    Command,  ///< a command line or another value
    Free,     ///< text for people
};

/// Appends the users, hosts, shares and folders that paths in \a text name: what follows "\Users\",
/// "\Documents and Settings\" and "/home/", and what follows "\\". Folders that all users have, such as "AppData", and
/// files of programs are none. Adds the folders below "Program Files", as symbols, to \a programs.
void findPathNames(std::string_view text, PathContext context, Findings &findings, std::unordered_set<std::u16string> &programs);

} // namespace Reports
} // namespace velkor
