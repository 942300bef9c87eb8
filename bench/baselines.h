// What is measured: the report, its halves and its sections, each beside its baseline,
// which makes the same calls of Windows and asks Qt the same in the same order, and
// builds no text.
#pragma once

#include "call_list.h"
#include "keep.h"

namespace bench {

struct Subject
{
    QByteArray name;
    std::function<QString()> library;
    std::function<void()> baseline;
    std::size_t calls = 0; // of Windows
};

/// Runs every section once to see what it calls.
Recordings recordSections(bool withOpenGL);

/// The whole report (with OpenGL, too, when asked), the Windows half, each section.
std::vector<Subject> makeSubjects(const Recordings &recordings, bool withOpenGL);

} // namespace bench
