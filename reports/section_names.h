// Finds sections by what people type: names of functions and headings.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <vector>

namespace velkor {
namespace Reports {

/// How a section is called for people: its heading without the decoration around it, "Memory
/// Information"; for a section without a heading its name. \a section is an index in sectionRows().
QString sectionTitle(int section);

/// The indexes in sectionRows() of the sections that \a text denotes, in the order of the report;
/// empty if there is none. Upper and lower case are equal. It is one of
/// - the name, "memoryInfo" or "portsFromRegistry:SERIALCOMM";
/// - a name without its argument, "portsFromRegistry", for all sections of that function;
/// - the heading as it stands in the report, or as sectionTitle() gives it.
std::vector<int> resolveSection(const QString &text);

/// The name of the section that \a text most probably means; empty if none is similar.
QString nearestSection(const QString &text);

/// What to say about a \a text that denotes no section: one line, without the program's name.
QString noSuchSection(const QString &text);

/// The sections of several texts, each once, in the order of the report. If one of them denotes
/// none, returns nothing and sets \a error to noSuchSection() of it.
std::vector<int> resolveSections(const QStringList &texts, QString &error);

} // namespace Reports
} // namespace velkor
