#include "report/text.h"
#include "win/installer_products.h"
#include "win/windows_sections.h"

#include <QtCore/QStringList>
#include <algorithm>
#include <cstring>
#include <iterator>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

// Product names are compared as bytes, case-sensitively.

bool contains(const char *name, const char *part)
{
    return std::strstr(name, part) != nullptr;
}

template <const char *whole>
bool equals(const char *name)
{
    return std::strcmp(name, whole) == 0;
}

template <const char *start>
bool startsWith(const char *name)
{
    return std::strncmp(name, start, std::strlen(start)) == 0;
}

bool isLinemodel(const char *name)
{
    return contains(name, "Linemodel");
}

bool isLinemodelSinceV10(const char *name)
{
    return isLinemodel(name) && (contains(name, "V10") || contains(name, "V11"));
}

constexpr char q9[] = "Q9";
constexpr char q9Beta[] = "Q9 Beta";
constexpr char q9V2[] = "Q9 V2";
constexpr char q9V3[] = "Q9 V3";
constexpr char q90[] = "Q90";

struct KnownApplication
{
    bool (*matches)(const char *productName);
    const char *extensions[3];
    const char *projectType; // also the name of its key in HKEY_CLASSES_ROOT
};

/// The first matching row applies. Quirk: the beta has an extension that the other row of its
/// project type lacks, and only one row matches the start of a name.
constexpr KnownApplication knownApplications[] = {
    {isLinemodelSinceV10, {".lmdl", ".lmdl2", ".vkpj"}, "Linemodel since V10"},
    {isLinemodel, {".lmdl", ".lmdl2"}, "Linemodel"},
    {equals<q9>, {".wvp"}, "Q9 Project"},
    {equals<q9Beta>, {".q9p", ".q90", ".vkpj"}, "Q9 V2 Project"},
    {equals<q9V2>, {".q9p", ".q90"}, "Q9 V2 Project"},
    {startsWith<q9V3>, {".q9p", ".q90", ".vkpj"}, "Q9 V3 Project"},
    {equals<q90>, {".q90"}, "Q90 Project"},
};

const KnownApplication *knownApplication(const char *productName)
{
    for (const KnownApplication &application : knownApplications) {
        if (application.matches(productName))
            return &application;
    }
    return nullptr;
}

QString machineProductsPath()
{
    return QStringLiteral("Installer\\Products");
}

QString userProductsPath()
{
    return QStringLiteral("Software\\Microsoft\\Installer\\Products");
}

QString openCommandPath(const QString &projectType)
{
    return projectType + QStringLiteral("\\shell\\open\\command");
}

/// The default value of a key of HKEY_CLASSES_ROOT; empty if there is none.
QString classDefault(const QString &path)
{
    const RegistryKey key = openKey(HKEY_CLASSES_ROOT, path);
    TextBuffer buffer;
    return key && buffer.query(key.get(), nullptr) ? buffer.text() : QString();
}

void appendExtensionLine(QString &text, const char *extension)
{
    const QString name = QString::fromLatin1(extension);
    const QString registered = classDefault(name);
    const QString line = QStringLiteral("File extension '%1' registered with application project type '%2'");
    if (!registered.isEmpty())
        appendLine(text, line.arg(name).arg(registered));
}

void appendOpenCommandLines(QString &text, const QString &projectType)
{
    const QString command = classDefault(openCommandPath(projectType));
    if (command.isEmpty())
        return;
    appendLine(text, "Open command for '%1':", projectType);
    appendLine(text, command);
}

void appendApplicationBlock(QString &text, HKEY productKey, const KnownApplication &application)
{
    installerProductValues(productKey, text);
    for (const char *extension : application.extensions) {
        if (extension)
            appendExtensionLine(text, extension);
    }
    appendOpenCommandLines(text, QString::fromLatin1(application.projectType));
    appendLine(text, QString());
}

constexpr const char *tools[] = {"M4-M8-vkUpdate", "Device Flasher", "T-BOX-vkUpdate"};

bool isTool(const char *productName)
{
    return std::any_of(std::begin(tools), std::end(tools),
                       [=](const char *tool) { return std::strcmp(productName, tool) == 0; });
}

} // namespace

RegistryReads applicationReads()
{
    const QStringList defaultValue(QStringLiteral(""));
    RegistryReads reads = productReads(HKEY_CLASSES_ROOT, machineProductsPath());
    for (const KnownApplication &application : knownApplications) {
        for (const char *extension : application.extensions) {
            if (extension)
                reads.push_back({HKEY_CLASSES_ROOT, QString::fromLatin1(extension), defaultValue});
        }
        reads.push_back({HKEY_CLASSES_ROOT, openCommandPath(QString::fromLatin1(application.projectType)), defaultValue});
    }
    return reads;
}

QString installedApplicationsFromRegistry()
{
    QString text;
    appendLine(text, QStringLiteral(">>> Info about installed Velkor applications from registry:"));
    appendLine(text, QString());
    forEachProduct(HKEY_CLASSES_ROOT, machineProductsPath(), [&](HKEY key, const TextBuffer &name) {
        if (const KnownApplication *application = knownApplication(name.data()))
            appendApplicationBlock(text, key, *application);
    });
    return text;
}

RegistryReads visualBasicApplicationReads()
{
    return productReads(HKEY_CURRENT_USER, userProductsPath());
}

QString installedVisualBasicApplications()
{
    QString text;
    appendLine(text, QStringLiteral(">>> Info about installed Velkor Visual Basic applications from registry:"));
    appendLine(text, QString());
    forEachProduct(HKEY_CURRENT_USER, userProductsPath(), [&](HKEY key, const TextBuffer &name) {
        if (!isTool(name.data()))
            return;
        installerProductValues(key, text);
        appendLine(text, QString());
    });
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
