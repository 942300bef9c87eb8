// Decodes the flags of QGLFormat::openGLVersionFlags().
#pragma once

#include "vkSystemInfo.h"

namespace velkor {
namespace SystemInfo {

/// The highest desktop version in \a flags, or else the highest ES version.
COpenGLVersionInfo openGLVersionFromFlags(qint32 flags);

} // namespace SystemInfo
} // namespace velkor
