// What the benchmark measures: the report, its Windows half and each section.
#pragma once

#include "report/section_table.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <vector>

namespace bench {

struct Subject
{
    QByteArray name;
    QString (*text)();
    std::vector<velkor::SystemInfo::Section> sections; // that the text consists of
};

/// All subjects, or those in \a names. Without \a withOpenGL, those without OpenGL.
std::vector<Subject> subjects(bool withOpenGL, const QStringList &names = {});

} // namespace bench
