#include "system_file.h"

#include "format_limits.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace machine {
namespace {

/// Converts fields to JSON values by their type. Null stands for an absent answer.
class Json
{
public:
    /// A number, which becomes a text if a double would round it, or a record.
    template <typename T>
    static QJsonValue of(const T &field)
    {
        if constexpr (std::is_integral_v<T>) {
            constexpr double firstInexact = 9007199254740992.0;
            if (double(field) > -firstInexact && double(field) < firstInexact)
                return qint64(field);
            return QStringLiteral("0x%1").arg(quint64(field), 0, 16);
        } else {
            QJsonObject object;
            T::fields([&](const char *name, auto member) { add(object, QLatin1String(name), of(field.*member)); });
            return object;
        }
    }

    static QJsonValue of(const QString &text) { return text; }
    static QJsonValue of(const CodePage &codePage) { return codePage.number; }
    static QJsonValue of(const AddressRecord &record) { return QJsonArray {record.address, record.mask}; }
    static QJsonValue of(const QStringList &texts) { return QJsonArray::fromStringList(texts); }

    template <typename T>
    static QJsonValue of(const Answer<T> &answer)
    {
        return answer ? of(*answer) : failure(answer.error);
    }

    template <typename T>
    static QJsonValue of(const std::optional<T> &field)
    {
        return field ? of(*field) : QJsonValue();
    }

    template <typename T>
    static QJsonValue of(const std::vector<T> &list)
    {
        QJsonArray array;
        for (const T &element : list)
            array.append(of(element));
        return array;
    }

    template <typename Key, typename T>
    static QJsonValue of(const QMap<Key, T> &map)
    {
        QJsonObject object;
        for (auto it = map.begin(); it != map.end(); ++it)
            add(object, name(it.key()), of(*it));
        return object;
    }

    static QJsonValue of(const NumberedAnswers &answers)
    {
        if (answers.isEmpty() && answers.error)
            return failure(answers.error);
        return of(static_cast<const QMap<int, Answer<QString>> &>(answers));
    }

    static QJsonValue failure(quint32 error) { return QJsonObject {{QStringLiteral("error"), qint64(error)}}; }

    static void add(QJsonObject &object, const QString &name, const QJsonValue &value)
    {
        if (!value.isNull())
            object.insert(name, value);
    }

private:
    static QString name(int number) { return QString::number(number); }
    static QString name(const QString &name) { return name; }
};

void addDeniedKeys(QStringList &names, const RegistryKey &key, const QString &path)
{
    if (key.isDenied())
        names.append(path);
    for (std::size_t i = 0; i < key.subKeyCount(); ++i) {
        const auto subKey = key.subKeyAt(i);
        addDeniedKeys(names, *subKey, path + QLatin1Char('\\') + subKey->name());
    }
}

QStringList deniedKeys(const Registry &registry)
{
    QStringList names;
    for (const auto &root : registry.roots())
        addDeniedKeys(names, *root, root->name());
    return names;
}

} // namespace

QByteArray writeSystemFile(const Machine &machine)
{
    const SystemAnswers &system = machine.system;
    QJsonObject object = Json::of(system).toObject();
    QMap<int, Answer<QString>> expansions;
    for (int i = 0; i < int(std::size(numberedVariables)); ++i) {
        const auto error = system.expansionErrors.constFind(QLatin1String(numberedVariables[i]));
        if (error != system.expansionErrors.constEnd())
            expansions[i].error = *error;
    }
    if (!expansions.isEmpty())
        object.insert(QStringLiteral("ExpandEnvironmentStrings"), Json::of(expansions));
    if (const auto path = winSxSPath(system); path && system.folders.contains(*path))
        object.insert(QStringLiteral("WinSxS"), Json::of(system.folders.value(*path).directories));
    const QStringList denied = deniedKeys(machine.registry);
    if (!denied.isEmpty())
        object.insert(QStringLiteral("deniedKeys"), Json::of(denied));
    return QJsonDocument(object).toJson();
}

} // namespace machine
