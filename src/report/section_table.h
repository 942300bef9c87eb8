// The sections of the report, in its order.
#pragma once

#include "win/registry_reads.h"

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {

enum class Part {
    Windows, ///< the Windows half
    Qt,      ///< the Qt half
    OpenGL,  ///< left out if the host requests no OpenGL
};

enum class Followed {
    ByNextSection,
    BySeparator,
};

/// A section of the report. The report, vkreplay, vkcapture, the benchmark and the tests walk
/// the table of sections.
struct Section
{
    /// Base name of its source file and of its test.
    const char *file;
    /// Distinguishes the sections of one file; null if it has one section only. The golden text
    /// is FILE.txt or FILE_VARIANT.txt.
    const char *variant;
    /// Name on the command line: that of its function. An argument of the function follows
    /// after a colon: "portsFromRegistry:SERIALCOMM".
    const char *name;
    QString (*text)();
    /// The start of the text, which no failing query removes. Quirk: someEnvironmentVariables()
    /// returns an empty text if it cannot allocate memory.
    const char *heading;
    Part part;
    Followed followed;
    /// What the section reads from the registry; null if it reads nothing.
    RegistryReads (*reads)() = nullptr;
};

/// Every section, in the order of the report.
class SectionTable
{
public:
    const Section *begin() const;
    const Section *end() const;
};

/// Appends the sections of \a part, with their separator lines.
void appendSections(QString &text, Part part);

} // namespace SystemInfo
} // namespace velkor
