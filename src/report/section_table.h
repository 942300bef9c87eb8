// The sections of the report, in its order.
#pragma once

#include "win/registry_reads.h"

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {

enum class Part {
    Windows, ///< the Windows half
    Qt,      ///< the Qt half
    OpenGL,  ///< left out when the host asks for no OpenGL
};

enum class Followed {
    ByNextSection,
    BySeparator,
};

/// A section of the report. Whatever handles sections one by one walks this table: the
/// report, vkreplay, vkcapture, the benchmark, and the tests.
struct Section
{
    /// Base name of its source file and of its test.
    const char *file;
    /// Tells sections of one file apart; null for a file with one section. The golden text of
    /// a section is FILE.txt or FILE_VARIANT.txt.
    const char *variant;
    /// Name of its function, as the user of a program writes it. Where the function takes
    /// an argument it follows after a colon: "portsFromRegistry:SERIALCOMM".
    const char *name;
    QString (*text)();
    /// The text begins with it, whichever query fails. Quirk: someEnvironmentVariables()
    /// has no text at all when it gets no memory.
    const char *heading;
    Part part;
    Followed followed;
    /// What the section reads from the registry; null for nothing.
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
