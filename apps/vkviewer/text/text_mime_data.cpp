#include "text_mime_data.h"

#include "utf8_character.h"

namespace {

QString plainText() { return QStringLiteral("text/plain"); }
QString plainUtf8() { return QStringLiteral("text/plain;charset=utf-8"); }

} // namespace

TextMimeData::TextMimeData(const QByteArray &text, TextRange range)
    : m_text(text), m_range(range)
{
}

QStringList TextMimeData::formats() const
{
    return {plainText(), plainUtf8()};
}

bool TextMimeData::hasFormat(const QString &format) const
{
    return formats().contains(format);
}

QVariant TextMimeData::retrieveData(const QString &format, QVariant::Type type) const
{
    if (format == plainUtf8())
        return m_text.mid(m_range.begin, m_range.end - m_range.begin);
    if (format != plainText())
        return {};
    const QString text = decodedText(m_text, m_range.begin, m_range.end);
    return type == QVariant::ByteArray ? QVariant(text.toUtf8()) : QVariant(text);
}
