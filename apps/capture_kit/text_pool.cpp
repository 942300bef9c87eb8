#include "text_pool.h"

#include "text_encoding.h"

#include <algorithm>

using namespace velkor;

namespace {

// Unlike QString::toUtf8() and fromUtf8(), these keep lone surrogates and byte-order marks.

QByteArray encoded(const QString &text)
{
    const QByteArray units(reinterpret_cast<const char *>(text.utf16()), text.size() * int(sizeof(QChar)));
    return Reports::fromUtf16(units, Reports::Encoding::Utf16LittleEndian);
}

QString decoded(const QByteArray &utf8)
{
    const QByteArray units = Reports::toUtf16(utf8, Reports::Encoding::Utf16LittleEndian);
    QString text(units.size() / int(sizeof(QChar)), QChar::Null);
    std::copy(units.begin(), units.end(), reinterpret_cast<char *>(text.data()));
    return text;
}

} // namespace

int TextPool::append(int row, const QString &text)
{
    m_texts.push_back({row, encoded(text)});
    return int(m_texts.size()) - 1;
}

void TextPool::add(int row, const QString &text)
{
    if (text.isEmpty())
        return;
    const QPair<int, QString> place(row, text);
    if (!m_places.contains(place))
        m_places.insert(place, append(row, text));
}

void TextPool::addVariable(const QString &name, const QString &value)
{
    const QPair<QString, QString> variable(name, value);
    if (value.isEmpty() || m_variables.contains(variable))
        return;
    append(Reports::factRow("qtSystemEnvironment", "variable", "name"), name);
    m_variables.insert(variable, append(Reports::factRow("qtSystemEnvironment", "variable", "value"), value));
}

Reports::Document TextPool::document() const
{
    return Reports::looseDocument(m_texts);
}

void TextPool::take(const Reports::Document &redacted)
{
    m_redacted = Reports::looseTexts(redacted);
}

QString TextPool::redacted(int row, const QString &text) const
{
    return redactedAt(m_places.value({row, text}, -1), text);
}

QString TextPool::redactedVariable(const QString &name, const QString &value) const
{
    return redactedAt(m_variables.value({name, value}, -1), value);
}

QString TextPool::redactedAt(int index, const QString &text) const
{
    if (index < 0 || std::size_t(index) >= m_redacted.size() || m_redacted[std::size_t(index)] == m_texts[std::size_t(index)].text)
        return text;
    return decoded(m_redacted[std::size_t(index)]);
}
