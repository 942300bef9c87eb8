// Detection of the DNS-SD client libraries.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// As checkStandardBonjour(), for the library of that file name. The library is
/// loaded by Windows' own search and freed again.
bool checkDnssdLibrary(const wchar_t *libraryFileName, int &errorCode, QString &version);

/// The lines of a check with their \a label; ends with a line feed.
QString formatDnssdStatus(QString label, bool installed, int errorCode, const QString &version);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
