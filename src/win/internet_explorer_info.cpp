#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

#include <cstring>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr Value serviceValues[] = {
    {"svcUpdateVersion", "Update Version:    %1"},
    {"svcKBNumber", "KBNumber:          %1"},
    {"W2kVersion", "W2kVersion:        %1"},
};

constexpr const char *versionValue = "Version";
constexpr const char *serviceVersionValue = "svcVersion";
constexpr const char *iverValue = "IVer";
constexpr const char *buildValue = "Build";

QString keyPath()
{
    return QStringLiteral("Software\\Microsoft\\Internet Explorer");
}

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

/// Returns the release name for the values "IVer" and "Build"; \a build is null if "Build" cannot be
/// read. Quirk: no space precedes "<could not read"; "unknwon" is misspelt; the last %1 is not
/// replaced.
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

/// The text of the "Version:" line if "Version" cannot be read. Quirk: the query of "IVer" sets
/// \a size to the size of "IVer", and the query of "Build" uses this size. A longer "Build" cannot
/// be read.
QString oldVersion(HKEY key, TextBuffer &buffer, DWORD &size)
{
    if (!buffer.query(key, iverValue, size))
        return QStringLiteral("<could neither read 'Version' nor 'IVer' for Explorer>");
    TextBuffer build;
    const bool known = build.query(key, buildValue, size);
    return releaseOf(buffer, known ? &build : nullptr);
}

} // namespace

RegistryReads internetExplorerReads()
{
    QStringList names = valueNames(serviceValues);
    for (const char *name : {versionValue, serviceVersionValue, iverValue, buildValue})
        names += QString::fromLatin1(name);
    return {{HKEY_LOCAL_MACHINE, keyPath(), names}};
}

QString internetExplorerInfo()
{
    QString text;
    appendLine(text, QStringLiteral("Internet Explorer information from Registry"));
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, keyPath());
    if (!key) {
        // Quirk: the %1 is not replaced; the closing '>' and the line feed are missing.
        append(text, QStringLiteral("<failed to open registry key '%1'"));
        return text;
    }
    QString version;
    bool hasServiceVersion = false;
    TextBuffer buffer;
    DWORD size = valueBufferSize;
    if (buffer.query(key.get(), versionValue, size)) {
        version = buffer.text();
        hasServiceVersion = buffer.query(key.get(), serviceVersionValue);
        if (hasServiceVersion)
            version = buffer.text();
    } else {
        version = oldVersion(key.get(), buffer, size);
    }
    appendLine(text, "Version:           %1", version);
    if (hasServiceVersion)
        appendTextLines(text, key.get(), serviceValues, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
