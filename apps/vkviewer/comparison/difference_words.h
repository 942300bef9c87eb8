// How a difference is said to people.
#pragma once

#include "vkReports.h"

#include <QtCore/QCoreApplication>

class DifferenceWords
{
    Q_DECLARE_TR_FUNCTIONS(DifferenceWords)

public:
    /// "Memory Information"; with the argument if other sections have the same heading.
    static QString section(const QString &name);
    /// "adapter igfx › configuration 0000": names of Change::items with the kinds of items in words.
    static QString items(const QStringList &items);
    /// The item and the fact. \a row is an index in factRows(), or -1 for a whole item or section.
    static QString subject(const QStringList &items, int row);

    /// A sign that needs no colour, and a word: "+ added", "↑ newer".
    static QString kind(const velkor::Reports::Change &change);
    /// The same without the sign, which a spreadsheet would take for the beginning of a formula.
    static QString word(const velkor::Reports::Change &change);
    /// The value, the entries that differ, or the facts of the item.
    static QString olderValue(const velkor::Reports::Change &change);
    static QString newerValue(const velkor::Reports::Change &change);
};
