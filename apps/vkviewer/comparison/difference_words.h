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

    /// Whether a list has the same entries in another order. Takes long for long lists.
    static bool isOtherOrder(const velkor::Reports::Change &change);
    /// A sign that needs no colour, and a word: "+ added", "↑ newer". \a isOtherOrder is what the function returns.
    static QString kind(const velkor::Reports::Change &change, bool isOtherOrder);
    /// The same without the sign, which a spreadsheet would take for the beginning of a formula.
    static QString word(const velkor::Reports::Change &change, bool isOtherOrder);
    /// The value, or at most so many of the entries that differ, or of the facts of the item.
    static QString olderValue(const velkor::Reports::Change &change, int mostEntries);
    static QString newerValue(const velkor::Reports::Change &change, int mostEntries);
};
