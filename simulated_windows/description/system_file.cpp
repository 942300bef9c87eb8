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

/// Reads JSON values into fields by the type of the field. Keeps the error of the first value of a
/// wrong type.
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
    /// Ignores a member.
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

    /// A number, which is truncated to the field, or a record.
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
        if (!value.isNull()) // null is an entry of a list
            read(value, field.emplace());
    }

    /// An empty list leaves the default of a record.
    template <typename T>
    void read(const QJsonValue &value, std::vector<T> &list)
    {
        const QJsonArray array = toList(value);
        if (!array.isEmpty())
            list.clear();
        for (const QJsonValue &element : array)
            read(element, list.emplace_back());
    }

    /// Members whose names are numbers; others are ignored.
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

    /// Not a call, so "error" is a variable like any other.
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

    /// An integer, or a text such as "0x8000000000000000", truncated to 64 bits.
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

    /// Whether \a value is {"error": N}. Sets \a number.
    bool isFailure(const QJsonValue &value, quint32 &number)
    {
        const QJsonValue member = value.toObject().value(QLatin1String("error"));
        quint64 ignored = 0;
        if (!member.isDouble() && !(member.isString() && parseNumber(member.toString(), ignored)))
            return false;
        number = quint32(toNumber(member));
        return true;
    }

    /// "0x..." or decimal digits with an optional sign, truncated to 64 bits.
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

    QStringList m_path; // the names of the nested members of the current value
};

/// Converts long integers to texts, because QJsonValue stores doubles and would round them. The
/// expression skips texts and fractions.
QByteArray withLongIntegersAsTexts(const QByteArray &json)
{
    static const QRegularExpression longInteger(
        QStringLiteral(R"("(?:[^"\\]++|\\.)*+"(*SKIP)(*FAIL)|(?<![\d.eE+-])(-?[1-9]\d{15,}+)(?![.eE]))"));
    QString text = QString::fromLatin1(json.constData(), json.size()); // the size, because of nulls
    return text.replace(longInteger, QStringLiteral("\"\\1\"")).toLatin1();
}

} // namespace

bool readSystemFile(const QByteArray &contents, Machine &machine, QString &error, int &errorLine)
{
    QByteArray text = contents;
    if (text.startsWith("\xef\xbb\xbf"))
        text.remove(0, 3);
    // A byte-order mark is valid only at the start of the file. Elsewhere U+FEFF is a character.
    text.replace("\xef\xbb\xbf", "\\ufeff");
    text = withLongIntegersAsTexts(text);
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
