// Detection of the DNS-SD client libraries.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// checkStandardBonjour() for the library \a libraryFileName, which LoadLibrary finds.
bool checkDnssdLibrary(const wchar_t *libraryFileName, int &errorCode, QString &version);

/// The lines of a check, after \a label.
QString formatDnssdStatus(QString label, bool installed, int errorCode, const QString &version);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
