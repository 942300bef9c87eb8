// capture.json: what is known of a capture besides its report and its description.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QStringList>
#include <optional>

struct CaptureNotes
{
    QString version; ///< of vkSystemInfo
    bool isRedacted = false;
    int exitCode = 0;                          ///< of vkreport
    QStringList missing;                       ///< the lines of vkreport about what is missing
    std::optional<QMap<QString, int>> aliases; ///< number of aliases of each kind
};

QByteArray captureJson(const CaptureNotes &notes);

/// Nothing, and a message for the user in \a error, if \a json is something else.
std::optional<CaptureNotes> readCaptureJson(const QByteArray &json, QString &error);
