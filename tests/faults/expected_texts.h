// What the report's format says for answers as the described calls give them: the
// Windows half, the details of a network adapter and the registered OpenGL drivers,
// written a second time, from the format alone.
#pragma once

#include "described_calls.h"

namespace expected {

QString windowsHalf(DescribedCalls &calls);
QString adapterDetails(DescribedCalls &calls, quint32 index);
QString openGLDrivers(DescribedCalls &calls);

// Of the Windows half: what is read from the registry by a walk or a table.
QString windowsVersionFromRegistry(DescribedCalls &calls);
QString internetExplorer(DescribedCalls &calls);
QString processorsFromRegistry(DescribedCalls &calls);
QString oemInformation(DescribedCalls &calls);
QString systemInformation(DescribedCalls &calls);
QString biosInformation(DescribedCalls &calls);
QString timeZone(DescribedCalls &calls);
QString installedApplications(DescribedCalls &calls);
QString visualBasicApplications(DescribedCalls &calls);
QString diskDevices(DescribedCalls &calls, const QString &enumerator);
QString ports(DescribedCalls &calls, const QString &deviceMap);
QString videoAdapters(DescribedCalls &calls);
QString drivers(DescribedCalls &calls);

/// \a format with %1 replaced, and a line end.
QString line(const char *format, const QString &value);
/// A byte count in binary units with one digit, rounded down.
QString byteSize(quint64 bytes);

} // namespace expected
