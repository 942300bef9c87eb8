#include "redacted_outputs.h"

#include "planted_reports.h"

#include <QtCore/QMap>
#include <nlohmann/json.hpp>

using namespace velkor::Reports;

namespace {

/// Appends all strings of the JSON, each on a line. Objects with base64 become what they hold.
void addStrings(const nlohmann::json &json, QByteArray &strings)
{
    if (json.is_string()) {
        strings += QByteArray::fromStdString(json.get<std::string>()) + '\n';
    } else if (json.is_object() && json.contains("base64")) {
        strings += QByteArray::fromBase64(QByteArray::fromStdString(json["base64"].get<std::string>())) + '\n';
    } else if (json.is_structured()) {
        for (const nlohmann::json &value : json)
            addStrings(value, strings);
    }
}

QString stringsOf(const QByteArray &json)
{
    QByteArray strings;
    addStrings(nlohmann::json::parse(json.constData(), json.constData() + json.size()), strings);
    return QString::fromUtf8(strings);
}

/// The character of a reference such as "amp", "#39" or "#x27"; a null character if it is none.
QChar referenced(const QString &name)
{
    static const QMap<QString, QChar> names = {{QStringLiteral("amp"), QLatin1Char('&')},
                                               {QStringLiteral("lt"), QLatin1Char('<')},
                                               {QStringLiteral("gt"), QLatin1Char('>')},
                                               {QStringLiteral("quot"), QLatin1Char('"')},
                                               {QStringLiteral("apos"), QLatin1Char('\'')}};
    if (name.startsWith(QLatin1String("#x")))
        return QChar(name.mid(2).toUShort(nullptr, 16));
    return name.startsWith(QLatin1Char('#')) ? QChar(name.mid(1).toUShort()) : names.value(name);
}

/// What a browser shows: HTML without tags, and characters instead of references.
QString shownText(const QString &html)
{
    QString text;
    for (int i = 0; i < html.size(); ++i) {
        const QChar next = html.at(i);
        if (next == QLatin1Char('<')) {
            i = std::max(i, html.indexOf(QLatin1Char('>'), i));
        } else if (next == QLatin1Char('&')) {
            const int end = html.indexOf(QLatin1Char(';'), i);
            const QChar character = end > i && end - i < 9 ? referenced(html.mid(i + 1, end - i - 1)) : QChar();
            text += character.isNull() ? next : character;
            i = character.isNull() ? i : end;
        } else {
            text += next;
        }
    }
    return text;
}

QString summaryOf(const Document &document)
{
    QString text;
    for (const SummaryLine &line : summary(document))
        text += line.label + QStringLiteral(": ") + line.value + QLatin1Char('\n');
    return text;
}

} // namespace

QString searchable(QString text)
{
    constexpr ushort dottedCapitalI = 0x130;
    constexpr ushort dotlessI = 0x131;
    text.remove(QLatin1Char('\r'));
    text.replace(QChar(dottedCapitalI), QLatin1Char('i'));
    text.replace(QChar(dotlessI), QLatin1Char('i'));
    return text.toCaseFolded();
}

std::vector<Output> outputsOf(const Document &document, const Redaction &redaction)
{
    const QByteArray json = toJson(document, redaction);
    const QString html = QString::fromUtf8(toHtml(document));
    std::vector<Output> outputs = {
        {"text", decodedBytes(document.bytes())},
        {"JSON", QString::fromUtf8(json)},
        {"JSON, strings decoded", stringsOf(json)},
        {"Markdown", QString::fromUtf8(toMarkdown(document))},
        {"HTML", html},
        {"HTML as shown", shownText(html)},
        {"summary", summaryOf(document)},
        {"text of what was replaced", QString::fromUtf8(redactionText(redaction))},
        {"JSON of what was replaced", stringsOf(redactionJson(redaction))},
    };
    for (Output &output : outputs)
        output.text = searchable(output.text);
    return outputs;
}
