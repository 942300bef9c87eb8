// What the flags of QGLFormat::openGLVersionFlags() say, as a record.
#pragma once

#include "vkSystemInfo.h"

namespace velkor {
namespace SystemInfo {

/// The highest desktop version that \a flags hold, else the first known ES version.
COpenGLVersionInfo openGLVersionFromFlags(qint32 flags);

} // namespace SystemInfo
} // namespace velkor
