// Decodes bytes into a machine, faults of its calls, and changes between calls.
//
// The bytes are a list of steps. Each is a Step and its operands, for example: enter a known key,
// set a value, set an answer. All bytes are valid input. The keys and values of the report have
// numbers, so that an input is short. The committed inputs contain the numbers of this file, so
// new steps and forms are added only at the end.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <vector>

enum class Step : quint8 {
    EnterKey,      // number of a known key
    EnterSubKey,   // text
    Leave,         // to the parent
    SetKnownValue, // number of a known value, data
    SetValue,      // text, data
    AddSubKeys,    // count, byte: kind of name, number of a known value, data
    RemoveSubKey,  // text
    RemoveValue,   // number of a known value
    Answer,        // number of an answer, its value
    Fail,          // byte: name of the calls, their number, an error
    Change,        // number of a call, byte: size, steps of that size, which run before the call
    RunTwice,
    SetItsValue, // number of a value of the last entered known key, data
    Count,
    DenyKey = 255 // no operand; not below Count, so that the committed inputs keep their meaning
};

// The numbers of Step::Answer: these, then the fields of SystemAnswers in their order. A new field
// is added at the end of SystemAnswers.
constexpr quint8 expansionErrorAnswer = 0;
constexpr quint8 winSxSAnswer = 1;
constexpr quint8 firstFieldAnswer = 2;

/// The keys of NumberedAnswers: formats of computer names, and special folders.
const std::vector<int> &numberedKeys();

enum class TextForm : quint8 {
    Latin1,     // byte: length, characters
    Utf16,      // byte: length, units
    Known,      // number of a known text
    Repeated,   // word: length, unit
    Utf8,       // byte: length, bytes
    Pair,       // two texts
    LongLatin1, // word: length, characters
    Filled,     // word: length, a text that is repeated up to it
    Edge,       // number of a length close to that of a buffer, character
    Count
};

enum class DataForm : quint8 {
    Text,         // text
    Unterminated, // text
    List,         // byte: count, texts; both levels terminated
    BrokenList,   // as List, without the terminator of the list
    Bytes,        // byte: size, bytes
    LongBytes,    // word: size, bytes
    Number,       // number of 32 bits
    Repeated,     // word: size, byte
    Odd,          // text, without its last byte
    Filled,       // word: size, text that is repeated up to it
    Edge,         // number of a size close to that of a buffer, byte
    EdgeText,     // number of a size close to that of a buffer, text that is repeated up to it
    Count
};

struct CallFault
{
    QByteArray call; // empty: calls of any name
    bool every = false;
    std::size_t number = 0;
    quint32 error = 0;
};

struct Change
{
    std::size_t beforeCall = 0;
    QByteArray steps;
};

struct HostileMachine
{
    machine::Machine machine;
    std::vector<CallFault> faults;
    std::vector<Change> changes;
    bool runTwice = false;
};

HostileMachine hostileMachine(const QByteArray &bytes);

/// Applies the steps to \a hostile. Faults and changes are appended.
void takeSteps(const QByteArray &bytes, HostileMachine &hostile);

/// Applies the steps of a change to the installed machine.
void takeSteps(const QByteArray &bytes, machine::Machine &machine);
