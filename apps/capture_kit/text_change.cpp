#include "text_change.h"

#include "ansi_text.h"
#include "decoded_text.h"
#include "text_encoding.h"

using namespace velkor;

namespace {

/// The bytes of "00:1A:7D:77:9F:3C", with any separators or none; empty if it is something else.
QByteArray addressBytes(const QString &spelling)
{
    constexpr int addressSize = 6;
    QByteArray digits;
    for (const QChar character : spelling) {
        if (character.unicode() < 0x80 && (character.isDigit() || QStringLiteral("abcdef").contains(character.toLower())))
            digits += char(character.toLatin1());
    }
    const QByteArray bytes = QByteArray::fromHex(digits);
    return digits.size() == 2 * addressSize ? bytes : QByteArray();
}

} // namespace

Reports::Redaction TextChange::redact(const std::vector<Reports::Document> &reports, const Reports::RedactionOptions &options)
{
    std::vector<Reports::Document> documents = reports;
    documents.push_back(m_pool.document());
    Reports::Redaction redaction = Reports::redact(documents, options);
    m_pool.take(redaction.documents.back());
    redaction.documents.pop_back();
    takeAddresses(redaction.aliases);
    m_isCollecting = false;
    return redaction;
}

QString TextChange::text(int row, const QString &text)
{
    if (!m_isCollecting)
        return m_pool.redacted(row, text);
    m_pool.add(row, text);
    return text;
}

/// Both texts are redacted. If they differ then, that decides which the redacted report shows.
QString TextChange::ansiText(int row, const QString &text)
{
    const QString seen = shown(text);
    if (m_isCollecting) {
        m_pool.add(row, text);
        m_pool.add(row, seen);
        return text;
    }
    const QString redacted = m_pool.redacted(row, text);
    const QString redactedSeen = m_pool.redacted(row, seen);
    const bool isRight = shown(redacted) == redactedSeen || shown(redactedSeen) != redactedSeen;
    return isRight ? redacted : redactedSeen;
}

QByteArray TextChange::bytes(int row, const QByteArray &text)
{
    if (Reports::isUtf8(text)) {
        const QString before = Reports::decodedText(text);
        const QString after = this->text(row, before);
        return after == before ? text : after.toUtf8();
    }
    const QString before = fromAnsi(text, m_codePage);
    const QString after = ansiText(row, before);
    return after == before ? text : toAnsi(after, m_codePage);
}

QString TextChange::variable(const QString &name, const QString &value)
{
    if (!m_isCollecting)
        return m_pool.redactedVariable(name, value);
    m_pool.addVariable(name, value);
    return value;
}

QByteArray TextChange::withoutAddresses(QByteArray data) const
{
    for (const QByteArray &address : m_addresses)
        data.replace(address, QByteArray(address.size(), '\0'));
    return data;
}

QString TextChange::shown(const QString &text) const
{
    return Reports::decodedText(toAnsi(text, m_codePage));
}

void TextChange::takeAddresses(const std::vector<Reports::Alias> &aliases)
{
    for (const Reports::Alias &alias : aliases) {
        if (alias.kind != Reports::AliasKind::Mac)
            continue;
        for (const QString &spelling : alias.spellings) {
            const QByteArray address = addressBytes(spelling);
            if (!address.isEmpty() && std::find(m_addresses.begin(), m_addresses.end(), address) == m_addresses.end())
                m_addresses.push_back(address);
        }
    }
}
