#include "report/text.h"
#include "vkSystemInfo.h"

namespace velkor {
namespace SystemInfo {

// Quirk: "Endianess" is misspelt.
QString qtGlobal()
{
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the report has a text for little endian only");
    QString text;
    appendLine(text, QStringLiteral("Qt Global"));
    appendLine(text, QStringLiteral("Qt version this object was linked against: " QT_VERSION_STR));
    appendLine(text, "Qt version currently used for execution:   %1", QString::fromLatin1(qVersion()));
    appendLine(text, QStringLiteral("Endianess detected by Qt:                  Little Endian"));
    appendLine(text, QStringLiteral("Pointer size QSysInfo::Wordsize   %1bits").arg(int(QSysInfo::WordSize)));
    appendLine(text, QStringLiteral("Pointer size QT_POINTER_SIZE      %1bytes").arg(QT_POINTER_SIZE));
    return text;
}

} // namespace SystemInfo
} // namespace velkor
