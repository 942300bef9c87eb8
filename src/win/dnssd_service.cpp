#include "win/dnssd_service.h"

#include "report/text.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

#include <utility>
#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr int serviceNotRunning = -65563; // kDNSServiceErr_ServiceNotRunning of dns_sd.h

using GetPropertyFunction = qint32(WINAPI *)(const char *property, void *result, DWORD *size);

constexpr const wchar_t *standardLibrary = L"dnssd.dll";
constexpr const wchar_t *velkorLibrary = L"vkdnssd.dll";

/// Owns a library that is loaded at run time.
class Library
{
public:
    explicit Library(const wchar_t *fileName) : m_module(LoadLibraryW(fileName)) { }
    ~Library()
    {
        if (m_module)
            FreeLibrary(m_module);
    }
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

    explicit operator bool() const { return m_module != nullptr; }
    void *function(const char *name) const { return reinterpret_cast<void *>(GetProcAddress(m_module, name)); }

private:
    HMODULE m_module;
};

/// The daemon's version is major * 10000 + minor * 100 + patch.
QString versionText(quint32 version)
{
    return QStringLiteral("%1.%2.%3").arg(version / 10000).arg(version / 100 % 100).arg(version % 100);
}

QString status(const char *label, const wchar_t *libraryFileName)
{
    int errorCode = 0;
    QString version;
    const bool installed = checkDnssdLibrary(libraryFileName, errorCode, version);
    return formatDnssdStatus(QString::fromLatin1(label), installed, errorCode, version);
}

} // namespace

bool checkDnssdLibrary(const wchar_t *libraryFileName, int &errorCode, QString &version)
{
    errorCode = 0;
    const Library library(libraryFileName);
    if (!library)
        return false;
    const auto getProperty = reinterpret_cast<GetPropertyFunction>(library.function("DNSServiceGetProperty"));
    if (!getProperty)
        return true;
    DWORD daemonVersion = 0;
    DWORD size = sizeof daemonVersion;
    errorCode = getProperty("DaemonVersion", &daemonVersion, &size);
    if (errorCode == 0)
        version = versionText(daemonVersion);
    return true;
}

QString formatDnssdStatus(QString label, bool installed, int errorCode, const QString &version)
{
    QString text = std::move(label);
    if (!installed) {
        appendLine(text, QStringLiteral("not installed."));
        return text;
    }
    appendLine(text, QStringLiteral("installed."));
    append(text, QStringLiteral("DNS-SD version: "));
    if (errorCode == 0) {
        appendLine(text, version);
        return text;
    }
    append(text, QStringLiteral(" failed to get version, error = %1").arg(errorCode)); // Quirk: two blanks
    if (errorCode == serviceNotRunning)
        append(text, QStringLiteral(" (kDNSServiceErr_ServiceNotRunning)"));
    appendLine(text, QString());
    return text;
}

bool checkStandardBonjour(int &errorCode, QString &version)
{
    return checkDnssdLibrary(standardLibrary, errorCode, version);
}

bool checkVelkorBonjour(int &errorCode, QString &version)
{
    return checkDnssdLibrary(velkorLibrary, errorCode, version);
}

QString checkStandardBonjourText()
{
    return status("Standard Bonjour: ", standardLibrary);
}

QString checkVelkorBonjourText()
{
    return status("velkor DNS-SD: ", velkorLibrary);
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
