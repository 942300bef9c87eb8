#include "system_file.h"

#include "format_limits.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <algorithm>
#include <cmath>

namespace machine {
namespace {

/// Converts JSON values to C++ fields. The type of the field selects the conversion. `error`
/// describes the first value of a wrong type.
class Reader
{
public:
    QString error;

    void readFile(const QJsonObject &object, Machine &machine)
    {
        SystemAnswers &system = machine.system;
        read(object, system);
        QMap<int, Answer<Anything>> expansions;
        readMember(object, "ExpandEnvironmentStrings", expansions);
        for (int i = 0; i < int(std::size(numberedVariables)); ++i) {
            const auto failure = expansions.constFind(i);
            if (failure != expansions.constEnd() && !*failure)
                system.expansionErrors[QLatin1String(numberedVariables[i])] = failure->error;
        }
        Answer<std::vector<QString>> names;
        readMember(object, "WinSxS", names);
        if (const auto path = winSxSPath(system); path && names)
            system.folders[*path].directories = QStringList(names->begin(), names->end());
        readMember(object, "deniedKeys", machine.registry);
    }

private:
    /// A JSON value that is ignored.
    struct Anything
    {
    };

    template <typename T>
    void readMember(const QJsonObject &object, const char *name, T &field)
    {
        readMember(QLatin1String(name), object.value(QLatin1String(name)), field);
    }

    /// Leaves \a field unchanged if \a value is null or absent.
    template <typename T>
    void readMember(const QString &name, const QJsonValue &value, T &field)
    {
        if (value.isNull() || value.isUndefined())
            return;
        m_path.append(name);
        read(value, field);
        m_path.removeLast();
    }

    /// Reads an integer, truncated to the width of \a field, or the members of a record.
    template <typename T>
    void read(const QJsonValue &value, T &field)
    {
        if constexpr (std::is_integral_v<T>) {
            field = static_cast<T>(toNumber(value));
        } else {
            const QJsonObject object = toObject(value);
            T::fields([&](const char *name, auto member) { readMember(object, name, field.*member); });
        }
    }

    void read(const QJsonValue &, Anything &) { }

    void read(const QJsonValue &value, QString &field)
    {
        if (!value.isString())
            expected("a text");
        field = value.toString();
    }

    void read(const QJsonValue &value, CodePage &codePage)
    {
        read(value, codePage.number);
        const int known[] = {1252, 1250, 1251, 932, 65001};
        if (std::find(std::begin(known), std::end(known), codePage) == std::end(known))
            expected("1252, 1250, 1251, 932 or 65001");
    }

    void read(const QJsonValue &value, AddressRecord &record)
    {
        const QJsonArray pair = toList(value);
        if (pair.size() > 0)
            read(pair.at(0), record.address);
        if (pair.size() > 1)
            read(pair.at(1), record.mask);
    }

    void read(const QJsonValue &value, Registry &registry)
    {
        std::vector<QString> deniedKeys;
        read(value, deniedKeys);
        for (const QString &name : deniedKeys) {
            if (const auto key = createKey(registry, name))
                key->setDenied(true);
            else
                expected("a list of whole key names");
        }
    }

    template <typename T>
    void read(const QJsonValue &value, Answer<T> &answer)
    {
        if (!isFailure(value, answer.error))
            read(value, answer.value.emplace());
    }

    template <typename T>
    void read(const QJsonValue &value, std::optional<T> &field)
    {
        if (!value.isNull()) // an array element can be null
            read(value, field.emplace());
    }

    /// An empty array leaves \a list unchanged, so the record keeps its default elements.
    template <typename T>
    void read(const QJsonValue &value, std::vector<T> &list)
    {
        const QJsonArray array = toList(value);
        if (!array.isEmpty())
            list.clear();
        for (const QJsonValue &element : array)
            read(element, list.emplace_back());
    }

    /// Reads an object whose member names are integers, decimal or "0x...". Ignores other members.
    template <typename T>
    void read(const QJsonValue &value, QMap<int, T> &map)
    {
        readEntries(value, map, [](const QString &name) {
            bool valid = false;
            const int number = name.startsWith(QLatin1String("0x")) ? name.toInt(&valid, 16) : name.toInt(&valid);
            return valid ? std::make_optional(number) : std::nullopt;
        });
    }

    void read(const QJsonValue &value, NumberedAnswers &answers)
    {
        if (!isFailure(value, answers.error))
            read(value, static_cast<QMap<int, Answer<QString>> &>(answers));
    }

    void read(const QJsonValue &value, QMap<QString, DriveRecord> &drives)
    {
        readEntries(value, drives, [](const QString &root) { return std::make_optional(upperCased(root)); });
    }

    void read(const QJsonValue &value, QMap<QString, LibraryRecord> &libraries)
    {
        readEntries(value, libraries, [](const QString &name) { return std::make_optional(name.toLower()); });
    }

    /// The environment is not a call, so {"error": N} is not a failure: "error" is the name of a variable.
    void read(const QJsonValue &value, QMap<QString, QString> &environment)
    {
        const QJsonObject object = toObject(value);
        for (auto it = object.begin(); it != object.end(); ++it) {
            if (!it.value().isNull())
                readMember(it.key(), it.value(), environment[upperCased(it.key())]);
        }
    }

    template <typename Map, typename KeyOf>
    void readEntries(const QJsonValue &value, Map &map, KeyOf keyOf)
    {
        quint32 ignored = 0;
        if (isFailure(value, ignored))
            return;
        const QJsonObject object = toObject(value);
        for (auto it = object.begin(); it != object.end(); ++it) {
            const auto key = keyOf(it.key());
            if (key && !it.value().isNull())
                readMember(it.key(), it.value(), map[*key] = {});
        }
    }

    QJsonObject toObject(const QJsonValue &value)
    {
        if (!value.isObject() && !value.isNull())
            expected("an object");
        return value.toObject();
    }

    QJsonArray toList(const QJsonValue &value)
    {
        if (!value.isArray())
            expected("a list");
        return value.toArray();
    }

    /// Returns an integer, or the integer in a string such as "0x8000000000000000", modulo 2^64.
    quint64 toNumber(const QJsonValue &value)
    {
        quint64 number = 0;
        if (value.isString() && parseNumber(value.toString(), number))
            return number;
        if (value.isDouble()) {
            const double real = value.toDouble();
            if (std::floor(real) == real) {
                const quint64 cut = quint64(std::fmod(std::fabs(real), 18446744073709551616.0));
                return real < 0 ? 0 - cut : cut;
            }
        }
        expected("an integer or a text \"0x...\"");
        return 0;
    }

    /// Returns true if \a value has a member "error" that is a number or a string with an integer.
    /// Stores it in \a number.
    bool isFailure(const QJsonValue &value, quint32 &number)
    {
        const QJsonValue member = value.toObject().value(QLatin1String("error"));
        quint64 ignored = 0;
        if (!member.isDouble() && !(member.isString() && parseNumber(member.toString(), ignored)))
            return false;
        number = quint32(toNumber(member));
        return true;
    }

    /// Parses "0x..." or decimal digits, with an optional '-', modulo 2^64.
    static bool parseNumber(const QString &text, quint64 &number)
    {
        const bool negative = text.startsWith(QLatin1Char('-'));
        QString digits = text.mid(negative ? 1 : 0);
        const bool hexadecimal = digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
        if (hexadecimal)
            digits.remove(0, 2);
        number = 0;
        for (const QChar digit : qAsConst(digits)) {
            const int value = QByteArray("0123456789abcdef").indexOf(char(digit.toLower().toLatin1()));
            if (digit.unicode() > 0x7f || value < 0 || (value > 9 && !hexadecimal))
                return false;
            number = number * (hexadecimal ? 16 : 10) + quint64(value);
        }
        number = negative ? 0 - number : number;
        return !digits.isEmpty();
    }

    void expected(const char *what)
    {
        if (error.isEmpty())
            error = QStringLiteral("'%1' is not %2").arg(m_path.join(QLatin1Char('.')), QLatin1String(what));
    }

    QStringList m_path; // the member names from the root of the file to the current value
};

/// Puts integers of 16 or more digits in quotation marks: QJsonValue stores doubles and would round
/// them. The expression skips strings, and numbers with a fraction or an exponent.
QByteArray withLongIntegersAsStrings(const QByteArray &json)
{
    static const QRegularExpression longInteger(
        QStringLiteral(R"("(?:[^"\\]++|\\.)*+"(*SKIP)(*FAIL)|(?<![\d.eE+-])(-?[1-9]\d{15,}+)(?![.eE]))"));
    QString text = QString::fromLatin1(json.constData(), json.size()); // the size keeps null bytes
    return text.replace(longInteger, QStringLiteral("\"\\1\"")).toLatin1();
}

} // namespace

bool readSystemFile(const QByteArray &contents, Machine &machine, QString &error, int &errorLine)
{
    QByteArray text = contents;
    if (text.startsWith("\xef\xbb\xbf"))
        text.remove(0, 3);
    // Escapes other U+FEFF characters, because Qt removes U+FEFF from the start of a string.
    text.replace("\xef\xbb\xbf", "\\ufeff");
    text = withLongIntegersAsStrings(text);
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (document.isNull()) {
        error = parseError.errorString();
        errorLine = text.left(parseError.offset).count('\n') + 1;
        return false;
    }
    if (!document.isObject()) {
        error = QStringLiteral("not a JSON object");
        errorLine = 1;
        return false;
    }
    Reader reader;
    reader.readFile(document.object(), machine);
    error = reader.error;
    errorLine = 0;
    return error.isEmpty();
}

} // namespace machine
