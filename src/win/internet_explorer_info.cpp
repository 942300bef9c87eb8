#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

#include <cstring>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr TextValue serviceValues[] = {
    {"svcUpdateVersion", "Update Version:    %1"},
    {"svcKBNumber", "KBNumber:          %1"},
    {"W2kVersion", "W2kVersion:        %1"},
};

struct KnownBuild
{
    const char *build;
    const char *format; // %1 is the build
};

constexpr KnownBuild buildsOf103[] = {
    {"1155", "0 (Build: %1)"},
    {"1158", "0 (Build: %1), Windows 95 OSR2"},
    {"1215", "01 (Build: %1)"},
    {"1300", "02 (Build: %1)"},
};

QString release103(const TextBuffer &build)
{
    const char *format = "<no official released build> (Build: %1)";
    for (const KnownBuild &known : buildsOf103) {
        if (std::strcmp(build.data(), known.build) == 0)
            format = known.format;
    }
    return QString::fromLatin1(format).arg(build.text());
}

QString release102(const TextBuffer &build)
{
    const bool known = std::strcmp(build.data(), "520") == 0;
    return QStringLiteral(" (Build %1)").arg(build.text())
        + (known ? QStringLiteral(" Windows 95") : QStringLiteral(" <no official known build number>"));
}

/// The release that "IVer" and "Build" stand for; \a build is null when "Build" could
/// not be read. Missing blanks, "unknwon" and the %1 that nothing replaces are the
/// report's format.
QString releaseOf(const TextBuffer &iver, const TextBuffer *build)
{
    const QString unreadable = QStringLiteral("<could not read build number>");
    const auto isVersion = [&](const char *version) { return std::strcmp(iver.data(), version) == 0; };
    if (isVersion("103"))
        return QStringLiteral("3.") + (build ? release103(*build) : unreadable);
    if (isVersion("102"))
        return QStringLiteral("2.0") + (build ? release102(*build) : unreadable);
    if (isVersion("101"))
        return QStringLiteral("IVer = %1 Windows NT").arg(iver.text());
    if (isVersion("100"))
        return QStringLiteral("1.0 (Plus! for Windows 95)");
    return QStringLiteral("IVer = %1 unknwon").arg(iver.text()) + (build ? QStringLiteral(" Build = %1") : QString());
}

/// The text of the "Version:" line where there is no value "Version". \a size is what
/// the query of that one left: it carries over to "IVer", and from there to "Build",
/// so that a "Build" longer than "IVer" cannot be read. The report's format.
QString oldVersion(HKEY key, TextBuffer &buffer, DWORD &size)
{
    if (!buffer.query(key, "IVer", size))
        return QStringLiteral("<could neither read 'Version' nor 'IVer' for Explorer>");
    TextBuffer build;
    const bool known = build.query(key, "Build", size);
    return releaseOf(buffer, known ? &build : nullptr);
}

} // namespace

QString internetExplorerInfo()
{
    QString text = QStringLiteral("Internet Explorer information from Registry") + newline;
    const RegistryKey key(HKEY_LOCAL_MACHINE, QStringLiteral("Software\\Microsoft\\Internet Explorer"));
    if (!key) // neither filled, closed nor ended: the report's format
        return text + QStringLiteral("<failed to open registry key '%1'");

    QString version;
    bool hasServiceVersion = false;
    TextBuffer buffer;
    DWORD size = valueBufferSize;
    if (buffer.query(key.get(), "Version", size)) {
        version = buffer.text();
        hasServiceVersion = buffer.query(key.get(), "svcVersion");
        if (hasServiceVersion)
            version = buffer.text();
    } else {
        version = oldVersion(key.get(), buffer, size);
    }
    text += QStringLiteral("Version:           %1").arg(version) + newline;
    if (hasServiceVersion)
        appendTextLines(text, key.get(), serviceValues, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
