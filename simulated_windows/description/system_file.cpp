#include "system_file.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <cmath>
#include <cstring>
#include <functional>

namespace machine {
namespace {

/// Reads members of one JSON object; remembers the first one that has another form.
class Reader
{
public:
    Reader(const QJsonObject &object, const QString &where, QString &error)
        : m_object(object), m_where(where), m_error(error)
    { }

    QJsonValue value(const char *name) const { return m_object.value(QLatin1String(name)); }
    bool has(const char *name) const { return !value(name).isNull() && !value(name).isUndefined(); }
    const QJsonObject &object() const { return m_object; }
    QString path(const QString &name) const { return m_where.isEmpty() ? name : m_where + QLatin1Char('.') + name; }

    Reader inner(const char *name) const
    {
        if (has(name) && !value(name).isObject())
            expected(QLatin1String(name), "an object");
        return Reader(value(name).toObject(), path(QLatin1String(name)), m_error);
    }
    Reader inner(const QString &name, const QJsonValue &value) const
    {
        if (!value.isObject() && !value.isNull())
            expected(name, "an object");
        return Reader(value.toObject(), path(name), m_error);
    }

    /// An integer, or a text such as "0x8000000000000000"; cut to the field.
    template <typename T>
    void number(const char *name, T &field) const
    {
        if (has(name))
            field = static_cast<T>(toNumber(QLatin1String(name), value(name)));
    }

    void text(const char *name, QString &field) const
    {
        if (has(name))
            field = toText(QLatin1String(name), value(name));
    }

    quint64 toNumber(const QString &name, const QJsonValue &value) const
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
        expected(name, "an integer or a text \"0x...\"");
        return 0;
    }

    QString toText(const QString &name, const QJsonValue &value) const
    {
        if (!value.isString())
            expected(name, "a text");
        return value.toString();
    }

    QJsonArray toList(const QString &name, const QJsonValue &value) const
    {
        if (!value.isArray())
            expected(name, "a list");
        return value.toArray();
    }

    /// The error of {"error": N}.
    bool failure(const QString &name, const QJsonValue &value, quint32 &error) const
    {
        const QJsonValue member = value.toObject().value(QLatin1String("error"));
        quint64 ignored = 0;
        if (!member.isDouble() && !(member.isString() && parseNumber(member.toString(), ignored)))
            return false;
        error = quint32(toNumber(path(name), value.toObject().value(QLatin1String("error"))));
        return true;
    }

    /// Sets \a answer from \a value by \a read, unless it is null or a failure.
    template <typename T, typename Read>
    void answer(const QString &name, const QJsonValue &value, Answer<T> &answer, Read read) const
    {
        if (value.isNull() || value.isUndefined() || failure(name, value, answer.error))
            return;
        answer.value = read(value);
    }
    template <typename T, typename Read>
    void answer(const char *name, Answer<T> &field, Read read) const
    {
        answer(QLatin1String(name), value(name), field, read);
    }

    void expected(const QString &name, const char *what) const
    {
        if (m_error.isEmpty())
            m_error = QStringLiteral("'%1' is not %2").arg(path(name), QLatin1String(what));
    }

private:
    /// "0x..." or decimal digits, with a sign; cut to 64 bits.
    static bool parseNumber(const QString &text, quint64 &number)
    {
        const bool negative = text.startsWith(QLatin1Char('-'));
        QString digits = text.mid(negative ? 1 : 0);
        const bool hexadecimal = digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
        if (hexadecimal)
            digits.remove(0, 2);
        number = 0;
        for (const QChar digit : qAsConst(digits)) {
            const int worth = QByteArray("0123456789abcdef").indexOf(char(digit.toLower().toLatin1()));
            if (digit.unicode() > 0x7f || worth < 0 || (worth > 9 && !hexadecimal))
                return false;
            number = number * (hexadecimal ? 16 : 10) + quint64(worth);
        }
        number = negative ? 0 - number : number;
        return !digits.isEmpty();
    }

    const QJsonObject m_object;
    const QString m_where;
    QString &m_error;
};

VersionRecord readVersion(const Reader &reader)
{
    VersionRecord record;
    reader.number("dwMajorVersion", record.dwMajorVersion);
    reader.number("dwMinorVersion", record.dwMinorVersion);
    reader.number("dwBuildNumber", record.dwBuildNumber);
    reader.number("dwPlatformId", record.dwPlatformId);
    reader.text("szCSDVersion", record.szCSDVersion);
    reader.number("wServicePackMajor", record.wServicePackMajor);
    reader.number("wServicePackMinor", record.wServicePackMinor);
    reader.number("wSuiteMask", record.wSuiteMask);
    reader.number("wProductType", record.wProductType);
    return record;
}

void readSystemInfo(const Reader &reader, SystemInfoRecord &record)
{
    reader.number("wProcessorArchitecture", record.wProcessorArchitecture);
    reader.number("dwPageSize", record.dwPageSize);
    reader.number("lpMinimumApplicationAddress", record.lpMinimumApplicationAddress);
    reader.number("lpMaximumApplicationAddress", record.lpMaximumApplicationAddress);
    reader.number("dwActiveProcessorMask", record.dwActiveProcessorMask);
    reader.number("dwNumberOfProcessors", record.dwNumberOfProcessors);
    reader.number("dwProcessorType", record.dwProcessorType);
    reader.number("dwAllocationGranularity", record.dwAllocationGranularity);
    reader.number("wProcessorLevel", record.wProcessorLevel);
    reader.number("wProcessorRevision", record.wProcessorRevision);
}

MemoryRecord readMemory(const Reader &reader)
{
    MemoryRecord record;
    reader.number("dwMemoryLoad", record.dwMemoryLoad);
    reader.number("ullTotalPhys", record.ullTotalPhys);
    reader.number("ullAvailPhys", record.ullAvailPhys);
    reader.number("ullTotalPageFile", record.ullTotalPageFile);
    reader.number("ullAvailPageFile", record.ullAvailPageFile);
    reader.number("ullTotalVirtual", record.ullTotalVirtual);
    reader.number("ullAvailVirtual", record.ullAvailVirtual);
    return record;
}

QuotaRecord readQuota(const Reader &reader)
{
    QuotaRecord record;
    reader.number("allowed", record.allowed);
    reader.number("used", record.used);
    return record;
}

DriveRecord readDrive(const Reader &reader)
{
    DriveRecord record;
    quint32 error = 0;
    if (!reader.failure(QStringLiteral("GetDriveType"), reader.value("GetDriveType"), error))
        reader.number("GetDriveType", record.GetDriveType);
    reader.answer("GetVolumeInformation", record.GetVolumeInformation, [&](const QJsonValue &) {
        const Reader inner = reader.inner("GetVolumeInformation");
        VolumeRecord volume;
        inner.text("volumeName", volume.volumeName);
        inner.text("fileSystemName", volume.fileSystemName);
        return volume;
    });
    reader.answer("GetDiskFreeSpaceEx", record.GetDiskFreeSpaceEx, [&](const QJsonValue &) {
        const Reader inner = reader.inner("GetDiskFreeSpaceEx");
        FreeSpaceRecord space;
        inner.number("freeBytesAvailableToCaller", space.freeBytesAvailableToCaller);
        inner.number("totalNumberOfBytes", space.totalNumberOfBytes);
        return space;
    });
    return record;
}

LibraryRecord readLibrary(const Reader &reader)
{
    LibraryRecord record;
    if (!reader.has("DNSServiceGetProperty"))
        return record;
    const Reader inner = reader.inner("DNSServiceGetProperty");
    DnsServiceRecord service;
    inner.number("error", service.error);
    inner.number("DaemonVersion", service.DaemonVersion);
    record.DNSServiceGetProperty = service;
    return record;
}

AddressRecord readAddress(const Reader &reader, const QString &name, const QJsonValue &value)
{
    const QJsonArray pair = reader.toList(name, value);
    AddressRecord record;
    if (pair.size() > 0)
        record.address = reader.toText(name, pair.at(0));
    if (pair.size() > 1)
        record.mask = reader.toText(name, pair.at(1));
    return record;
}

void readAddresses(const Reader &reader, const char *name, std::vector<AddressRecord> &addresses)
{
    if (reader.has(name)) {
        const QJsonArray list = reader.toList(QLatin1String(name), reader.value(name));
        for (const QJsonValue &value : list)
            addresses.push_back(readAddress(reader, QLatin1String(name), value));
    }
    if (addresses.empty())
        addresses.emplace_back();
}

AdapterRecord readAdapter(const Reader &reader)
{
    AdapterRecord record;
    reader.number("Index", record.Index);
    reader.text("AdapterName", record.AdapterName);
    reader.text("Description", record.Description);
    reader.number("DhcpEnabled", record.DhcpEnabled);
    readAddresses(reader, "GatewayList", record.GatewayList);
    readAddresses(reader, "DhcpServer", record.DhcpServer);
    reader.number("HaveWins", record.HaveWins);
    for (auto member : {&AdapterRecord::PrimaryWinsServer, &AdapterRecord::SecondaryWinsServer}) {
        const char *name = member == &AdapterRecord::PrimaryWinsServer ? "PrimaryWinsServer" : "SecondaryWinsServer";
        if (reader.has(name))
            record.*member = readAddress(reader, QLatin1String(name), reader.value(name));
    }
    reader.number("LeaseObtained", record.LeaseObtained);
    reader.number("LeaseExpires", record.LeaseExpires);
    return record;
}

/// Calls \a each with every member of the object \a name, unless the whole of it is
/// a failure, whose error it returns.
quint32 eachMember(const Reader &reader, const char *name,
                   const std::function<void(const Reader &, const QString &, const QJsonValue &)> &each)
{
    quint32 error = 0;
    if (!reader.has(name) || reader.failure(QLatin1String(name), reader.value(name), error))
        return error;
    const Reader inner = reader.inner(name);
    for (auto it = inner.object().begin(); it != inner.object().end(); ++it)
        each(inner, it.key(), it.value());
    return error;
}

/// The same for an object whose members are named by numbers; others are ignored.
quint32 eachIndex(const Reader &reader, const char *name,
                  const std::function<void(const Reader &, int, const QString &, const QJsonValue &)> &each)
{
    return eachMember(reader, name, [&](const Reader &inner, const QString &member, const QJsonValue &value) {
        bool valid = false;
        const int index = member.startsWith(QLatin1String("0x")) ? member.toInt(&valid, 16) : member.toInt(&valid);
        if (valid)
            each(inner, index, member, value);
    });
}

void readNames(const Reader &reader, SystemAnswers &system)
{
    system.computerNamesError = eachIndex(reader, "GetComputerNameEx",
                                          [&](const Reader &inner, int index, const QString &name, const QJsonValue &value) {
        inner.answer(name, value, system.GetComputerNameEx[index],
                     [&](const QJsonValue &text) { return inner.toText(name, text); });
    });
    reader.answer("GetUserName", system.GetUserName,
                  [&](const QJsonValue &value) { return reader.toText(QStringLiteral("GetUserName"), value); });
}

/// No call of its own, so that "error" is a variable like any other.
void readEnvironment(const Reader &reader, QMap<QString, QString> &environment)
{
    for (auto it = reader.object().begin(); it != reader.object().end(); ++it) {
        if (!it.value().isNull())
            environment[upperCased(it.key())] = reader.toText(it.key(), it.value());
    }
}

void readDirectories(const Reader &reader, SystemAnswers &system)
{
    reader.answer("GetSystemWindowsDirectory", system.GetSystemWindowsDirectory, [&](const QJsonValue &value) {
        return reader.toText(QStringLiteral("GetSystemWindowsDirectory"), value);
    });
    reader.answer("GetSystemWow64Directory", system.GetSystemWow64Directory, [&](const QJsonValue &value) {
        return reader.toText(QStringLiteral("GetSystemWow64Directory"), value);
    });
    readEnvironment(reader.inner("environment"), system.environment);
    eachIndex(reader, "ExpandEnvironmentStrings",
              [&](const Reader &inner, int index, const QString &name, const QJsonValue &value) {
        quint32 error = 0;
        if (inner.failure(name, value, error))
            system.ExpandEnvironmentStrings[index] = error;
    });
    eachIndex(reader, "SHGetSpecialFolderPath",
              [&](const Reader &inner, int index, const QString &name, const QJsonValue &value) {
        inner.answer(name, value, system.SHGetSpecialFolderPath[index],
                     [&](const QJsonValue &text) { return inner.toText(name, text); });
    });
    if (reader.value("WinSxS").isArray()) {
        system.WinSxS = QStringList();
        const QJsonArray names = reader.value("WinSxS").toArray();
        for (const QJsonValue &name : names)
            system.WinSxS->append(reader.toText(QStringLiteral("WinSxS"), name));
    } else if (quint32 ignored = 0;
               reader.has("WinSxS") && !reader.failure(QStringLiteral("WinSxS"), reader.value("WinSxS"), ignored)) {
        reader.expected(QStringLiteral("WinSxS"), "a list");
    }
}

void readDrives(const Reader &reader, SystemAnswers &system)
{
    reader.answer("GetLogicalDrives", system.GetLogicalDrives, [&](const QJsonValue &value) {
        return quint32(reader.toNumber(QStringLiteral("GetLogicalDrives"), value));
    });
    eachMember(reader, "drives", [&](const Reader &inner, const QString &name, const QJsonValue &value) {
        if (!value.isNull())
            system.drives[upperCased(name)] = readDrive(inner.inner(name, value));
    });
}

void readModules(const Reader &reader, SystemAnswers &system)
{
    reader.answer("EnumProcessModules", system.EnumProcessModules, [&](const QJsonValue &value) {
        std::vector<std::optional<QString>> names;
        const QJsonArray list = reader.toList(QStringLiteral("EnumProcessModules"), value);
        for (const QJsonValue &name : list) {
            names.push_back(name.isNull() ? std::nullopt
                                          : std::make_optional(reader.toText(QStringLiteral("EnumProcessModules"), name)));
        }
        return names;
    });
    eachMember(reader, "libraries", [&](const Reader &inner, const QString &name, const QJsonValue &value) {
        if (!value.isNull())
            system.libraries[name.toLower()] = readLibrary(inner.inner(name, value));
    });
}

void readVersions(const Reader &reader, SystemAnswers &system)
{
    reader.number("ansiCodePage", system.ansiCodePage);
    const int known[] = {1252, 1250, 1251, 932, 65001};
    if (std::find(std::begin(known), std::end(known), system.ansiCodePage) == std::end(known))
        reader.expected(QStringLiteral("ansiCodePage"), "1252, 1250, 1251, 932 or 65001");
    reader.answer("GetVersionEx", system.GetVersionEx,
                  [&](const QJsonValue &) { return readVersion(reader.inner("GetVersionEx")); });
    system.exportsGetProductInfo = reader.has("GetProductInfo");
    reader.answer("GetProductInfo", system.GetProductInfo, [&](const QJsonValue &) {
        quint32 type = 0;
        reader.inner("GetProductInfo").number("dwReturnedProductType", type);
        return type;
    });
    eachIndex(reader, "GetSystemMetrics",
              [&](const Reader &inner, int index, const QString &name, const QJsonValue &value) {
        if (!value.isNull())
            system.GetSystemMetrics[index] = qint32(inner.toNumber(name, value));
    });
    readSystemInfo(reader.inner("GetSystemInfo"), system.GetSystemInfo);
    reader.answer("GlobalMemoryStatusEx", system.GlobalMemoryStatusEx,
                  [&](const QJsonValue &) { return readMemory(reader.inner("GlobalMemoryStatusEx")); });
    reader.answer("GetSystemRegistryQuota", system.GetSystemRegistryQuota,
                  [&](const QJsonValue &) { return readQuota(reader.inner("GetSystemRegistryQuota")); });
}

void readAdapters(const Reader &reader, SystemAnswers &system)
{
    reader.answer("GetAdaptersInfo", system.GetAdaptersInfo, [&](const QJsonValue &value) {
        std::vector<AdapterRecord> adapters;
        const QJsonArray list = reader.toList(QStringLiteral("GetAdaptersInfo"), value);
        for (const QJsonValue &adapter : list)
            adapters.push_back(readAdapter(reader.inner(QStringLiteral("GetAdaptersInfo"), adapter)));
        return adapters;
    });
    reader.number("timeZone", system.timeZone);
}

void readDeniedKeys(const Reader &reader, const Registry &registry)
{
    const QString member = QStringLiteral("deniedKeys");
    if (!reader.has("deniedKeys"))
        return;
    const QJsonArray list = reader.toList(member, reader.value("deniedKeys"));
    for (const QJsonValue &value : list) {
        if (const auto key = createKey(registry, reader.toText(member, value)))
            key->setDenied(true);
        else
            reader.expected(member, "a list of whole key names");
    }
}

bool isIn(const char *characters, char c)
{
    return c != 0 && std::strchr(characters, c);
}

/// The end of the JSON text in quotation marks that begins at \a position.
int endOfText(const QByteArray &json, int position)
{
    for (++position; position < json.size() && json.at(position) != '"'; ++position) {
        if (json.at(position) == '\\')
            ++position;
    }
    return position + 1;
}

/// Integers that a double may not hold, which is all that QJsonValue knows, as texts.
QByteArray withLongIntegersAsTexts(const QByteArray &json)
{
    constexpr int exactDigits = 15;
    QByteArray result;
    for (int from = 0, to = 0; from < json.size(); from = to) {
        to = json.at(from) == '"' ? endOfText(json, from) : from + 1;
        const bool isNumber = isIn("-123456789", json.at(from));
        while (isNumber && to < json.size() && isIn("0123456789.eE+-", json.at(to)))
            ++to;
        const QByteArray token = json.mid(from, to - from);
        const bool isLong = isNumber && token.size() > exactDigits && token.count('.') == 0
            && token.toLower().count('e') == 0;
        result += isLong ? '"' + token + '"' : token;
    }
    return result;
}

} // namespace

bool readSystemFile(const QByteArray &contents, Machine &machine, QString &error, int &errorLine)
{
    QByteArray text = contents;
    if (text.startsWith("\xef\xbb\xbf"))
        text.remove(0, 3);
    // Elsewhere it is a character, which Qt would take from the start of a text.
    text.replace("\xef\xbb\xbf", "\\ufeff");
    text = withLongIntegersAsTexts(text);
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (document.isNull()) {
        error = parseError.errorString();
        errorLine = text.left(parseError.offset).count('\n') + 1;
        return false;
    }
    errorLine = 0;
    if (!document.isObject()) {
        error = QStringLiteral("not a JSON object");
        errorLine = 1;
        return false;
    }
    error.clear();
    const Reader reader(document.object(), QString(), error);
    readVersions(reader, machine.system);
    readNames(reader, machine.system);
    readDirectories(reader, machine.system);
    readDrives(reader, machine.system);
    readModules(reader, machine.system);
    readAdapters(reader, machine.system);
    readDeniedKeys(reader, machine.registry);
    return error.isEmpty();
}

} // namespace machine
