#include "json_handler.h"

#include <QtCore/QCryptographicHash>

namespace velkor {
namespace Reports {

namespace {

/// The bytes that \a json holds. If it is no JSON of a report, sets \a error.
std::optional<QByteArray> bytesFromJson(const QByteArray &json, QString &error)
{
    JsonHandler handler;
    if (!nlohmann::json::sax_parse(json.constData(), json.constData() + json.size(), &handler)) {
        error = handler.error();
        return std::nullopt;
    }
    const StoredText stored = handler.stored();
    const std::optional<QByteArray> bytes = restoredBytes(stored, restoredLimit(json.size()));
    if (!bytes) {
        error = QStringLiteral("layout: it does not fit the reports, or the text is too long");
        return std::nullopt;
    }
    if (!handler.sha256().isEmpty() && QCryptographicHash::hash(*bytes, QCryptographicHash::Sha256) != handler.sha256()) {
        error = QStringLiteral("sha256: the JSON was changed, or another version wrote it: the text is not the same");
        return std::nullopt;
    }
    return bytes;
}

} // namespace

std::optional<Document> fromJson(const QByteArray &json, QString *error)
{
    QString message;
    const std::optional<QByteArray> bytes = bytesFromJson(json, message);
    if (error)
        *error = message;
    return bytes ? std::make_optional(read(*bytes)) : std::nullopt;
}

} // namespace Reports
} // namespace velkor
