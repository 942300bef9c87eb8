// A machine, and what happens to it while it is asked, made of bytes.
//
// The bytes are a list of steps, each a Step and its operands: a known key is entered,
// a value set, an answer given. Any bytes mean something, and what the report asks for
// takes few of them. Numbers are in the committed inputs: steps are added at the end only.
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
    AddSubKeys,    // how many, byte: kind of name, number of a known value, data
    RemoveSubKey,  // text
    RemoveValue,   // number of a known value
    Answer,        // number of an answer, what it is
    Fail,          // byte: which calls, their number, an error
    Change,        // number of a call, byte: a size, so many bytes of steps taken before it
    RunTwice,
    SetItsValue, // number of a value that is read from the known key last entered, data
    Count,
    DenyKey = 255 // no operand; a byte of its own, so that the committed inputs stay what they are
};

// What Step::Answer sets, by number: these, and then the fields of SystemAnswers in their
// order, so a new one of these stands last.
constexpr quint8 expansionErrorAnswer = 0;
constexpr quint8 winSxSAnswer = 1;
constexpr quint8 firstFieldAnswer = 2;

/// The keys of NumberedAnswers: the formats of computer names and the special folders.
const std::vector<int> &numberedKeys();

enum class TextForm : quint8 {
    Latin1,     // byte: length, characters
    Utf16,      // byte: length, units
    Known,      // number of a known text
    Repeated,   // word: length, unit
    Utf8,       // byte: length, bytes
    Pair,       // two texts
    LongLatin1, // word: length, characters
    Filled,     // word: length, a text that is repeated until then
    Edge,       // number of a length next to a buffer's, character
    Count
};

enum class DataForm : quint8 {
    Text,         // text
    Unterminated, // text
    List,         // byte: how many, texts; both levels terminated
    BrokenList,   // the same without the terminator of the list
    Bytes,        // byte: size, bytes
    LongBytes,    // word: size, bytes
    Number,       // number of 32 bits
    Repeated,     // word: size, byte
    Odd,          // text, without its last byte
    Filled,       // word: size, text that is repeated until then
    Edge,         // number of a size next to a buffer's, byte
    EdgeText,     // number of a size next to a buffer's, text that is repeated until then
    Count
};

struct CallFault
{
    QByteArray call; // empty: any
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

/// Takes the steps on \a hostile, on top of what it is already. What asks for faults and
/// changes is added to it as well.
void takeSteps(const QByteArray &bytes, HostileMachine &hostile);

/// The steps of a change on a machine in use.
void takeSteps(const QByteArray &bytes, machine::Machine &machine);
