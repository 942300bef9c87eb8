// What vkreport does and what is missing, in words.
#pragma once

#include <QtCore/QString>

/// For the first field of vkreport's lines of progress, such as "allInfos" or "diskInformation".
QString workText(const QString &work);

/// A sentence about a section that is missing. \a reason is vkreport's text, such as "did not end within 12.0 s".
QString missingText(const QString &section, const QString &reason);
