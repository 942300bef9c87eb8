#include "capture_file.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

QByteArray captureJson(const CaptureNotes &notes)
{
    QJsonObject object {{QStringLiteral("version"), notes.version},
                        {QStringLiteral("redacted"), notes.isRedacted},
                        {QStringLiteral("exitCode"), notes.exitCode},
                        {QStringLiteral("missing"), QJsonArray::fromStringList(notes.missing)}};
    if (notes.aliases) {
        QJsonObject aliases;
        for (auto kind = notes.aliases->begin(); kind != notes.aliases->end(); ++kind)
            aliases.insert(kind.key(), *kind);
        object.insert(QStringLiteral("aliases"), aliases);
    }
    return QJsonDocument(object).toJson();
}

std::optional<CaptureNotes> readCaptureJson(const QByteArray &json, QString &error)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (!document.isObject()) {
        error = document.isNull() ? parseError.errorString() : QStringLiteral("not a JSON object");
        return std::nullopt;
    }
    const QJsonObject object = document.object();
    const QJsonValue redacted = object.value(QLatin1String("redacted"));
    const QJsonValue missing = object.value(QLatin1String("missing"));
    if (!redacted.isBool() || !missing.isArray()) {
        error = QStringLiteral("\"redacted\" is not true or false, or \"missing\" is not a list");
        return std::nullopt;
    }
    CaptureNotes notes;
    notes.version = object.value(QLatin1String("version")).toString();
    notes.isRedacted = redacted.toBool();
    notes.exitCode = object.value(QLatin1String("exitCode")).toInt();
    const QJsonArray lines = missing.toArray();
    for (const QJsonValue &line : lines)
        notes.missing += line.toString();
    return notes;
}
