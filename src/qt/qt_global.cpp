#include "report/text.h"
#include "vkSystemInfo.h"

namespace velkor {
namespace SystemInfo {

// "Endianess" is the report's spelling and must stay.
QString qtGlobal()
{
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the report has a text for little endian only");
    return QStringLiteral("Qt Global") + newline
        + QStringLiteral("Qt version this object was linked against: ") + QStringLiteral(QT_VERSION_STR) + newline
        + QStringLiteral("Qt version currently used for execution:   ") + QString::fromLatin1(qVersion()) + newline
        + QStringLiteral("Endianess detected by Qt:                  ") + QStringLiteral("Little Endian") + newline
        + QStringLiteral("Pointer size QSysInfo::Wordsize   %1bits").arg(int(QSysInfo::WordSize)) + newline
        + QStringLiteral("Pointer size QT_POINTER_SIZE      %1bytes").arg(QT_POINTER_SIZE) + newline;
}

} // namespace SystemInfo
} // namespace velkor
