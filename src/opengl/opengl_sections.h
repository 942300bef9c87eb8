// The OpenGL section of the report.
#pragma once

#include "win/registry_reads.h"

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {

/// The text of ScanOpenGLInfo::GetOpenGLInfo(). Needs a QApplication.
QString openGLSection();

/// What ScanOpenGLInfo::GetOpenGLDriverInfo() reads from the registry.
RegistryReads openGLDriverReads();

} // namespace SystemInfo
} // namespace velkor
