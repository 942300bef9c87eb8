// Compares two values of a fact by what they mean.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// Negative, 0 or positive, like strcmp().
using Sign = int;

/// Compares two texts of decimal digits as numbers of any length.
Sign compareDigits(const QString &a, const QString &b);

/// Compares two texts that begin with a version, "11.2.1305 (raw value 0xb020519)". A missing
/// number at the end counts as 0: "10.0" equals "10.0.0". Nothing if one does not begin with a
/// version, or if the versions are equal and the texts after them are not.
std::optional<Sign> compareVersions(const QString &a, const QString &b);

/// Compares two dates in ISO 8601. Nothing if they are the same day and only one has a time.
std::optional<Sign> compareDates(const QString &a, const QString &b);

struct ValueComparison
{
    bool equal = false;
    Order order = Order::Unknown; ///< Unknown if the values are equal
};

/// Compares a value of one document with one of another; the facts have the same key.
/// \a ignoreCase compares texts without regard to upper and lower case.
ValueComparison compareValues(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact,
                              bool ignoreCase = false);

/// Whether the order of the entries of this list has a meaning.
bool orderMatters(const FactRow &row);

/// The entries of \a list without those of \a other. Each of equal entries counts.
QStringList entriesWithout(const QStringList &list, const QStringList &other);

struct EntryChange
{
    QStringList added;
    QStringList removed;
};

/// What differs in two lists, or in two environment variables with semicolons. Nothing for other values.
std::optional<EntryChange> entryChange(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact);

/// Free space that differs by more than this share of the drive's size is a difference.
constexpr double largeChangeShare = 0.1;

/// Whether a change of the free space is one to report.
bool isLargeChange(quint64 oldFree, quint64 oldTotal, quint64 newFree, quint64 newTotal);

} // namespace Reports
} // namespace velkor
