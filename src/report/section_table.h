// The sections of the report, in its order.
#pragma once

#include "win/registry_reads.h"

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {

enum class Part {
    Windows, ///< the Windows half
    Qt,      ///< the Qt half
    OpenGL,  ///< left out if noOpenGL is true
};

enum class Followed {
    ByNextSection,
    BySeparator,
};

/// A section of the report. The report, vkreplay, vkcapture, the benchmark and the tests iterate
/// over the table of sections.
struct Section
{
    /// The source is FILE.cpp, the test tst_FILE.cpp.
    const char *file;
    /// Distinguishes the sections of one file; null if the file has one section. The golden text
    /// is FILE.txt or FILE_VARIANT.txt.
    const char *variant;
    /// Name for --section. If the function has an argument, it follows after a colon:
    /// "portsFromRegistry:SERIALCOMM".
    const char *name;
    QString (*text)();
    /// The first characters of the text. They do not depend on any call. Quirk:
    /// someEnvironmentVariables() returns an empty text if it cannot allocate memory.
    const char *heading;
    Part part;
    Followed followed;
    /// What the section reads from the registry; null if the section does not read the registry.
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
