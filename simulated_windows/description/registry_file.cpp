#include "registry_file.h"

#include <QtCore/QStringList>
#include <QtCore/QTextCodec>
#include <QtCore/QtEndian>
#include <algorithm>

namespace machine {
namespace {

const QLatin1String firstLine("Windows Registry Editor Version 5.00");

/// Decodes UTF-16LE with a byte-order mark, or UTF-8 with or without one.
bool decode(const QByteArray &contents, QString &text)
{
    if (contents.startsWith("\xff\xfe")) {
        text.clear();
        for (int i = 2; i + 1 < contents.size(); i += 2)
            text += QChar(qFromLittleEndian<quint16>(contents.constData() + i));
        return contents.size() % 2 == 0;
    }
    QTextCodec::ConverterState state;
    text = QTextCodec::codecForName("UTF-8")->toUnicode(contents.constData(), contents.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

QByteArray asUtf16(const QString &text)
{
    QByteArray data;
    data.reserve(2 * text.size() + 2);
    for (const QChar unit : text) {
        data += char(unit.cell());
        data += char(unit.row());
    }
    return data + QByteArray(2, '\0');
}

QString trimmed(const QString &text)
{
    const auto isBlank = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); };
    int from = 0;
    int to = text.size();
    while (from < to && isBlank(text.at(from)))
        ++from;
    while (to > from && isBlank(text.at(to - 1)))
        --to;
    return text.mid(from, to - from);
}

class Parser
{
public:
    Parser(const QString &text, Registry &registry) : m_text(text), m_registry(registry) { }

    bool parse()
    {
        QString raw;
        if (!nextLine(raw) || trimmed(raw) != firstLine)
            return fail(QStringLiteral("the first line is not \"%1\"").arg(firstLine));
        while (nextLine(raw)) {
            if (!parseLine(raw))
                return false;
        }
        return true;
    }

    QString error;
    int line = 0;

private:
    bool fail(const QString &message)
    {
        error = message;
        return false;
    }

    bool nextLine(QString &result)
    {
        if (m_position >= m_text.size())
            return false;
        int end = m_text.indexOf(QLatin1Char('\n'), m_position);
        if (end < 0)
            end = m_text.size();
        result = m_text.mid(m_position, end - m_position);
        if (result.endsWith(QLatin1Char('\r')))
            result.chop(1);
        m_position = end + 1;
        ++line;
        return true;
    }

    bool parseLine(const QString &raw)
    {
        const QString text = trimmed(raw);
        if (text.isEmpty() || text.startsWith(QLatin1Char(';')))
            return true;
        if (text.startsWith(QLatin1Char('[')))
            return parseKey(text);
        return parseValue(text);
    }

    bool parseKey(const QString &text)
    {
        const int close = text.lastIndexOf(QLatin1Char(']')); // a name may contain brackets
        if (close < 0)
            return fail(QStringLiteral("a key without its closing bracket"));
        if (!isRest(text.mid(close + 1)))
            return fail(QStringLiteral("something follows the key"));
        const QString path = text.mid(1, close - 1);
        m_key = createKey(m_registry, path);
        if (!m_key)
            return fail(QStringLiteral("unknown root key '%1'").arg(path.section(QLatin1Char('\\'), 0, 0)));
        return true;
    }

    bool parseValue(const QString &text)
    {
        RegistryValue value;
        int position = 0;
        if (text.startsWith(QLatin1Char('@'))) {
            position = 1;
        } else if (!parseQuoted(text, position, value.name)) {
            return fail(QStringLiteral("neither a key, a value nor a comment"));
        }
        while (position < text.size() && text.at(position).isSpace())
            ++position;
        if (position >= text.size() || text.at(position) != QLatin1Char('='))
            return fail(QStringLiteral("a value without '='"));
        if (!m_key)
            return fail(QStringLiteral("a value before the first key"));
        if (!parseData(trimmed(text.mid(position + 1)), value))
            return false;
        m_key->setValue(value);
        return true;
    }

    bool parseQuoted(const QString &text, int &position, QString &result)
    {
        if (position >= text.size() || text.at(position) != QLatin1Char('"'))
            return false;
        result.clear();
        for (++position; position < text.size(); ++position) {
            const QChar c = text.at(position);
            if (c == QLatin1Char('"')) {
                ++position;
                return true;
            }
            if (c == QLatin1Char('\\')) {
                if (++position >= text.size())
                    return false;
            }
            result += text.at(position);
        }
        return false;
    }

    bool parseData(const QString &text, RegistryValue &value)
    {
        if (text.startsWith(QLatin1Char('"')))
            return parseTextData(text, value);
        if (text.startsWith(QLatin1String("dword:"), Qt::CaseInsensitive))
            return parseDword(trimmed(text.mid(6)), value);
        if (text.startsWith(QLatin1String("hex"), Qt::CaseInsensitive))
            return parseHexData(text, value);
        return fail(QStringLiteral("data that is neither a text, dword: nor hex:"));
    }

    bool parseTextData(const QString &text, RegistryValue &value)
    {
        int position = 0;
        QString data;
        if (!parseQuoted(text, position, data))
            return fail(QStringLiteral("a text without its closing quotation mark"));
        if (!isRest(text.mid(position)))
            return fail(QStringLiteral("something follows the text"));
        value.type = 1;
        value.data = asUtf16(data);
        return true;
    }

    // Only blanks and a comment may follow complete data.
    static bool isRest(const QString &text)
    {
        const QString rest = trimmed(text);
        return rest.isEmpty() || rest.startsWith(QLatin1Char(';'));
    }

    bool parseDword(const QString &text, RegistryValue &value)
    {
        const int end = text.indexOf(QLatin1Char(';'));
        const QString digits = trimmed(text.left(end));
        quint32 number = 0;
        if (digits.isEmpty() || digits.size() > 8)
            return fail(QStringLiteral("dword: takes one to eight hexadecimal digits"));
        for (const QChar digit : digits) {
            const int worth = hexDigit(digit);
            if (worth < 0)
                return fail(QStringLiteral("dword: takes one to eight hexadecimal digits"));
            number = number << 4 | quint32(worth);
        }
        value.type = 4;
        value.data.resize(4);
        qToLittleEndian(number, value.data.data());
        return true;
    }

    static int hexDigit(QChar c)
    {
        const ushort unit = c.unicode();
        if (unit >= '0' && unit <= '9')
            return unit - '0';
        if (unit >= 'a' && unit <= 'f')
            return unit - 'a' + 10;
        return unit >= 'A' && unit <= 'F' ? unit - 'A' + 10 : -1;
    }

    bool parseHexData(const QString &text, RegistryValue &value)
    {
        const int colon = text.indexOf(QLatin1Char(':'));
        const QString kind = text.left(colon);
        if (colon < 0 || !parseHexType(kind, value.type))
            return fail(QStringLiteral("data that is neither a text, dword: nor hex:"));
        QString bytes = text.mid(colon + 1);
        for (;;) {
            const int comment = bytes.indexOf(QLatin1Char(';'));
            bytes = trimmed(bytes.left(comment));
            const bool continues = bytes.endsWith(QLatin1Char('\\'));
            if (continues)
                bytes.chop(1);
            if (!appendBytes(trimmed(bytes), continues, value.data))
                return fail(QStringLiteral("hex: takes bytes of two hexadecimal digits with commas between them"));
            if (!continues)
                return true;
            if (!nextLine(bytes))
                return fail(QStringLiteral("the file ends where a list of bytes continues"));
            bytes = trimmed(bytes);
            // A comment or an empty line inside a list does not end it.
            while (bytes.startsWith(QLatin1Char(';'))) {
                if (!nextLine(bytes))
                    return fail(QStringLiteral("the file ends where a list of bytes continues"));
                bytes = trimmed(bytes);
            }
        }
    }

    static bool parseHexType(const QString &kind, quint32 &type)
    {
        if (kind.compare(QLatin1String("hex"), Qt::CaseInsensitive) == 0) {
            type = 3;
            return true;
        }
        if (kind.size() < 6 || kind.at(3) != QLatin1Char('(') || !kind.endsWith(QLatin1Char(')')))
            return false;
        bool valid = false;
        type = kind.mid(4, kind.size() - 5).toUInt(&valid, 16);
        return valid;
    }

    static bool appendBytes(const QString &text, bool continues, QByteArray &data)
    {
        if (text.isEmpty())
            return true;
        QStringList parts = text.split(QLatin1Char(','));
        if (trimmed(parts.constLast()).isEmpty()) // a list that continues ends with a comma; hand-written files may have a trailing one
            parts.removeLast();
        else if (continues)
            return false;
        for (const QString &part : qAsConst(parts)) {
            const QString digits = trimmed(part);
            if (digits.isEmpty() || digits.size() > 2)
                return false;
            int number = 0;
            for (const QChar digit : digits) {
                if (hexDigit(digit) < 0)
                    return false;
                number = number << 4 | hexDigit(digit);
            }
            data += char(number);
        }
        return true;
    }

    const QString m_text;
    Registry &m_registry;
    std::shared_ptr<RegistryKey> m_key;
    int m_position = 0;
};

} // namespace

bool readRegistryFile(const QByteArray &contents, Registry &registry, QString &error, int &errorLine)
{
    QString text;
    if (!decode(contents, text)) {
        error = QStringLiteral("neither UTF-16LE with a byte-order mark nor UTF-8");
        errorLine = 1;
        return false;
    }
    Parser parser(text, registry);
    const bool parsed = parser.parse();
    error = parser.error;
    errorLine = std::max(parser.line, 1);
    return parsed;
}

} // namespace machine
