// The facts of the catalogue for people and programs.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// A fact as the list shows it. A fact that stands on several lines of the format has one entry.
struct FactEntry
{
    QString section;
    QString item; ///< kinds of the items around it, outermost first: "deviceClass > driver"; or empty
    QString key;
    QString label;
    QString type; ///< "text", "bytes", "version"
    QString unit;
    QString changes;     ///< "rarely", "slowly", "every moment"
    QStringList reveals; ///< "user", "path"
    QString meaning;     ///< as FactRow::meaning()
};

/// The facts of these sections, which are indexes in sectionRows(); of all if there are none.
std::vector<FactEntry> factList(const std::vector<int> &sections = {});

/// A table without the meanings.
QByteArray factListText(const std::vector<FactEntry> &facts);
QByteArray factListJson(const std::vector<FactEntry> &facts);
/// The rows of a table in Markdown, without the meanings.
QByteArray factListMarkdown(const std::vector<FactEntry> &facts);
/// What all sections, kinds of items and facts mean: a list in Markdown below a heading for each section.
QByteArray meaningsMarkdown();

} // namespace Reports
} // namespace velkor
