// Leaves out the least important parts of a text until it is short enough.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>
#include <vector>

namespace velkor {
namespace Reports {

/// A part of the text that can be shown as a count, or left out.
struct Part
{
    QString name;       ///< what the note calls it
    int importance = 0; ///< the smallest is left out first; of equal ones the longest
    QString full;
    QString counts; ///< shorter form; empty if there is none
};

/// What became of the parts. The lists are empty if a note with them would be too long.
struct LeftOut
{
    QStringList counted; ///< names of the parts that are shown as counts, each once
    QStringList dropped;
    int counts = 0; ///< how many parts there are
    int drops = 0;
};

/// \a title, a note and the parts, at most \a maxLength UTF-16 code units. \a note gives the text of
/// the note; it is empty if nothing was left out. If title and note are too long, the result is the note,
/// or the beginning of \a title, which must have no effect wherever it is cut. No limit if \a maxLength
/// is 0. Fast if there are few different names.
QString shortened(const QString &title, const std::vector<Part> &parts, int maxLength,
                  const std::function<QString(const LeftOut &)> &note);

/// How important the section with this name is; see Part::importance.
int importanceOf(const char *section);

} // namespace Reports
} // namespace velkor
