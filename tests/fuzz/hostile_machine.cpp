#include "hostile_machine.h"

#include "byte_stream.h"
#include "known_names.h"

#include <QtCore/QtEndian>
#include <algorithm>

namespace {

using machine::Machine;
using machine::RegistryKey;
using machine::RegistryValue;
using KeyPointer = std::shared_ptr<RegistryKey>;

// What keeps one input cheap. Windows itself ends names of keys at 255 units.
constexpr int longestKeyName = 255;
constexpr int longestValueName = 4096;
constexpr int longestText = 40000;
constexpr int longestAdapterText = 300; // the fields have 16 to 260 bytes
constexpr int largestData = 8192;
constexpr int deepestKey = 8;
constexpr std::size_t mostFaults = 8;
constexpr std::size_t mostChanges = 8;

// Of the buffers that the report has, in units and in bytes, and one less and more.
constexpr int edges[] = {0, 1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 39, 40, 41,
                         126, 127, 128, 129, 131, 132, 133, 254, 255, 256, 257, 258, 259, 260, 261,
                         511, 512, 513, 1022, 1023, 1024, 1025, 1026, 1027, 1028, 2046, 2047, 2048, 2049, 2050,
                         4095, 4096, 4097, 4098, 4100, 32754, 32755, 32756, 32757, 32758, 32759, 32760, 32766,
                         32767, 32768};
constexpr int edgeCount = int(sizeof edges / sizeof *edges);

class Steps
{
public:
    Steps(const QByteArray &bytes, Machine &machine, HostileMachine *hostile)
        : m_stream(bytes), m_machine(machine), m_hostile(hostile)
    {
        enter(m_machine.registry.root(machine::RegistryRoot::LocalMachine));
    }

    void takeAll()
    {
        while (!m_stream.atEnd())
            take(step());
    }

private:
    Step step()
    {
        const quint8 number = m_stream.byte();
        return Step(number) == Step::DenyKey ? Step::DenyKey : Step(number % quint8(Step::Count));
    }

    void enter(const KeyPointer &key) { m_path = {key}; }
    RegistryKey &key() { return *m_path.back(); }

    void take(Step step)
    {
        switch (step) {
        case Step::EnterKey: {
            const KnownKey &known = knownKeys()[std::size_t(m_stream.index(int(knownKeys().size())))];
            enter(machine::createKey(m_machine.registry.root(known.root), known.path));
            m_known = &known;
            break;
        }
        case Step::EnterSubKey:
            enterSubKey(keyName());
            break;
        case Step::Leave:
            if (m_path.size() > 1)
                m_path.pop_back();
            break;
        case Step::SetKnownValue:
            setValue(knownValue());
            break;
        case Step::SetValue:
            setValue(text().left(longestValueName));
            break;
        case Step::AddSubKeys:
            addSubKeys();
            break;
        case Step::RemoveSubKey:
            key().removeSubKey(keyName());
            break;
        case Step::RemoveValue:
            key().removeValue(knownValue());
            break;
        case Step::Answer:
            answer(Asked(m_stream.index(int(Asked::Count))));
            break;
        case Step::Fail:
            fail();
            break;
        case Step::Change:
            change();
            break;
        case Step::RunTwice:
            if (m_hostile)
                m_hostile->runTwice = true;
            break;
        case Step::SetItsValue: {
            const std::vector<int> &numbers = m_known->values;
            setValue(knownValues().at(numbers[std::size_t(m_stream.index(int(numbers.size())))]));
            break;
        }
        case Step::DenyKey:
            key().setDenied(true);
            break;
        case Step::Count:
            break;
        }
    }

    QString knownValue() { return knownValues().at(m_stream.index(knownValues().size())); }

    /// As a key can be named: of something, but not of backslashes.
    QString keyName()
    {
        QString name = text().left(longestKeyName);
        return name.isEmpty() ? QStringLiteral("A") : name.replace(QLatin1Char('\\'), QLatin1Char('_'));
    }

    void enterSubKey(const QString &name)
    {
        if (m_path.size() < deepestKey && m_keysLeft-- > 0)
            m_path.push_back(key().createSubKey(name));
    }

    void setValue(const QString &name)
    {
        const RegistryValue newValue = value(name);
        if (m_valuesLeft-- > 0)
            key().setValue(newValue);
    }

    /// Mostly few, for they are dear.
    int bulk()
    {
        const int count = m_stream.byte();
        if (count < 224)
            return count % 48;
        return count < 240 ? 1016 + count - 224 : (count - 240) << 8 | m_stream.byte(); // next to a limit, or any
    }

    void addSubKeys()
    {
        const int wanted = bulk();
        const int form = m_stream.index(4);
        const RegistryValue common = value(knownValue());
        const int count = std::min(wanted, m_bulkLeft);
        m_bulkLeft -= count;
        for (int i = 0; i < count; ++i) {
            QString name = form == 3 ? QString::number(i) : QStringLiteral("%1").arg(i, 4, 10, QLatin1Char('0'));
            if (form == 1)
                name = name.leftJustified(longestKeyName, QLatin1Char('x'));
            if (form == 2)
                name.prepend(QChar(0x8868));
            key().createSubKey(name)->setValue(common);
        }
    }

    QString text(int depth = 0)
    {
        switch (TextForm(m_stream.index(int(TextForm::Count)))) {
        case TextForm::Latin1:
            return latin1(m_stream.bytes(m_stream.byte()));
        case TextForm::Utf16:
            return utf16(m_stream.bytes(2 * m_stream.byte()));
        case TextForm::Known:
            return knownTexts().at(m_stream.index(knownTexts().size()));
        case TextForm::Repeated: {
            const int length = m_stream.word() % longestText;
            return QString(length, QChar(m_stream.word()));
        }
        case TextForm::Utf8: {
            const QByteArray bytes = m_stream.bytes(m_stream.byte());
            return QString::fromUtf8(bytes.constData(), bytes.size());
        }
        case TextForm::Pair: {
            if (depth > 3)
                return QString();
            const QString first = text(depth + 1);
            return first + text(depth + 1);
        }
        case TextForm::LongLatin1:
            return latin1(m_stream.bytes(m_stream.word()));
        case TextForm::Filled: {
            const int length = m_stream.word() % longestText;
            const QString part = depth > 3 ? QString() : text(depth + 1);
            return part.isEmpty() ? part : part.repeated(length / part.size() + 1).left(length);
        }
        case TextForm::Edge: {
            const int length = edges[m_stream.index(edgeCount)];
            return QString(length, QChar(m_stream.byte()));
        }
        case TextForm::Count:
            break;
        }
        return QString();
    }

    // Nulls included, which Qt ends a QByteArray at.
    static QString latin1(const QByteArray &bytes) { return QString::fromLatin1(bytes.constData(), bytes.size()); }

    static QString utf16(const QByteArray &bytes)
    {
        QString text;
        for (int i = 0; i + 1 < bytes.size(); i += 2)
            text += QChar(qFromLittleEndian<quint16>(bytes.constData() + i));
        return text;
    }

    static QByteArray bytesOf(const QString &text)
    {
        QByteArray bytes;
        bytes.reserve(2 * text.size());
        for (const QChar unit : text) {
            bytes += char(unit.cell());
            bytes += char(unit.row());
        }
        return bytes;
    }

    RegistryValue value(const QString &name)
    {
        RegistryValue result;
        result.name = name;
        const quint8 type = m_stream.byte(); // 0: what is usual for the form of the data
        const auto form = DataForm(m_stream.index(int(DataForm::Count)));
        result.data = data(form).left(largestData);
        result.type = type > 0 && type < 255 ? type - 1u : usualType(form);
        if (type == 255)
            result.type = m_stream.number32();
        return result;
    }

    static quint32 usualType(DataForm form)
    {
        switch (form) {
        case DataForm::List:
        case DataForm::BrokenList:
            return 7;
        case DataForm::Number:
            return 4;
        case DataForm::Bytes:
        case DataForm::LongBytes:
        case DataForm::Repeated:
        case DataForm::Edge:
            return 3;
        default:
            return 1;
        }
    }

    QByteArray data(DataForm form)
    {
        switch (form) {
        case DataForm::Text:
            return bytesOf(text()) + QByteArray(2, '\0');
        case DataForm::Unterminated:
            return bytesOf(text());
        case DataForm::List:
            return list() + QByteArray(2, '\0');
        case DataForm::BrokenList:
            return list();
        case DataForm::Bytes:
            return m_stream.bytes(m_stream.byte());
        case DataForm::LongBytes:
            return m_stream.bytes(m_stream.word());
        case DataForm::Number: {
            QByteArray bytes(4, '\0');
            qToLittleEndian(m_stream.number32(), bytes.data());
            return bytes;
        }
        case DataForm::Repeated: {
            const int size = m_stream.word() % largestData;
            return QByteArray(size, char(m_stream.byte()));
        }
        case DataForm::Odd: {
            QByteArray bytes = bytesOf(text());
            bytes.chop(1);
            return bytes;
        }
        case DataForm::Filled: {
            const int size = m_stream.word() % largestData;
            const QByteArray part = bytesOf(text());
            return part.isEmpty() ? part : part.repeated(size / part.size() + 1).left(size);
        }
        case DataForm::Edge: {
            const int size = edges[m_stream.index(edgeCount)];
            return QByteArray(size, char(m_stream.byte()));
        }
        case DataForm::EdgeText: {
            const int size = edges[m_stream.index(edgeCount)];
            const QByteArray part = bytesOf(text());
            return part.isEmpty() ? part : part.repeated(size / part.size() + 1).left(size);
        }
        case DataForm::Count:
            break;
        }
        return QByteArray();
    }

    QByteArray list()
    {
        QByteArray bytes;
        for (int count = m_stream.index(32); count > 0; --count)
            bytes += bytesOf(text()) + QByteArray(2, '\0');
        return bytes;
    }

    quint32 error()
    {
        static const quint32 large[] = {259, 997, 1223, 0x80004005, 0x80000000, 0xffffffff};
        const quint8 number = m_stream.byte();
        return number < 250 ? number : large[number - 250];
    }

    std::size_t callNumber()
    {
        const std::size_t number = m_stream.byte();
        return number < 192 ? number : (number - 192) << 8 | m_stream.byte();
    }

    /// A failure for every fourth first byte.
    template <typename T, typename Read>
    void answer(machine::Answer<T> &answer, Read read)
    {
        answer = {};
        if (m_stream.byte() % 4 == 0)
            answer.error = error();
        else
            answer.value = read();
    }

    void answerText(machine::Answer<QString> &field)
    {
        answer(field, [&] { return text(); });
    }

    void answer(Asked asked)
    {
        machine::SystemAnswers &system = m_machine.system;
        switch (asked) {
        case Asked::CodePage:
            system.ansiCodePage = codePages[m_stream.index(5)];
            break;
        case Asked::Version:
            answer(system.GetVersionEx, [&] { return version(); });
            break;
        case Asked::ProductInfo:
            system.exportsGetProductInfo = m_stream.byte() % 4 != 0;
            answer(system.GetProductInfo, [&] { return m_stream.number32(); });
            break;
        case Asked::Metric: {
            const int index = m_stream.byte();
            system.GetSystemMetrics[index] = qint32(m_stream.number32());
            break;
        }
        case Asked::SystemInfo:
            system.GetSystemInfo = systemInfo();
            break;
        case Asked::Memory:
            answer(system.GlobalMemoryStatusEx, [&] { return memory(); });
            break;
        case Asked::ComputerName:
            answerText(system.GetComputerNameEx[m_stream.index(8)]);
            break;
        case Asked::UserName:
            answerText(system.GetUserName);
            break;
        case Asked::RegistryQuota:
            answer(system.GetSystemRegistryQuota, [&] {
                machine::QuotaRecord record;
                record.allowed = m_stream.number32();
                record.used = m_stream.number32();
                return record;
            });
            break;
        case Asked::LogicalDrives:
            answer(system.GetLogicalDrives, [&] { return m_stream.number32(); });
            break;
        case Asked::Drive: {
            const QString root = QString(QChar('A' + m_stream.index(32))) + QStringLiteral(":\\");
            system.drives[machine::upperCased(root)] = drive();
            break;
        }
        case Asked::WindowsDirectory:
            answerText(system.GetSystemWindowsDirectory);
            break;
        case Asked::Wow64Directory:
            answerText(system.GetSystemWow64Directory);
            break;
        case Asked::Environment: {
            const QString name = QString::fromLatin1(environmentNames[m_stream.index(5)]);
            system.environment[name] = text();
            break;
        }
        case Asked::ExpansionError: {
            const int index = m_stream.index(5);
            system.ExpandEnvironmentStrings[index] = error();
            break;
        }
        case Asked::SpecialFolder:
            answerText(system.SHGetSpecialFolderPath[specialFolderNumbers[m_stream.index(5)]]);
            break;
        case Asked::Modules:
            answer(system.EnumProcessModules, [&] { return modules(); });
            break;
        case Asked::WinSxS:
            system.WinSxS = QStringList();
            for (int count = m_stream.byte(); count > 0 && !m_stream.atEnd(); --count)
                *system.WinSxS += text().left(longestKeyName);
            break;
        case Asked::Library: {
            const QString name = QString::fromLatin1(libraryNames[m_stream.index(2)]);
            system.libraries[name] = library();
            break;
        }
        case Asked::Adapters:
            answer(system.GetAdaptersInfo, [&] { return adapters(); });
            break;
        case Asked::TimeZone:
            system.timeZone = qint32(m_stream.number32());
            break;
        case Asked::ComputerNamesError:
            system.computerNamesError = error();
            break;
        case Asked::Count:
            break;
        }
    }

    machine::VersionRecord version()
    {
        machine::VersionRecord record;
        record.dwMajorVersion = small(m_stream.byte());
        record.dwMinorVersion = small(m_stream.byte());
        record.dwBuildNumber = m_stream.number32();
        record.dwPlatformId = small(m_stream.byte());
        record.szCSDVersion = text();
        record.wServicePackMajor = m_stream.byte();
        record.wServicePackMinor = m_stream.byte();
        record.wSuiteMask = m_stream.word();
        record.wProductType = m_stream.byte();
        return record;
    }

    /// Large numbers where a small one would not do.
    static quint32 small(quint8 byte) { return byte < 255 ? byte : 0xffffffff; }

    machine::SystemInfoRecord systemInfo()
    {
        machine::SystemInfoRecord record;
        record.wProcessorArchitecture = m_stream.byte();
        record.dwPageSize = m_stream.number32();
        record.lpMinimumApplicationAddress = m_stream.number64();
        record.lpMaximumApplicationAddress = m_stream.number64();
        record.dwActiveProcessorMask = m_stream.number64();
        record.dwNumberOfProcessors = m_stream.number32();
        record.dwProcessorType = m_stream.number32();
        record.dwAllocationGranularity = m_stream.number32();
        record.wProcessorLevel = m_stream.word();
        record.wProcessorRevision = m_stream.word();
        return record;
    }

    machine::MemoryRecord memory()
    {
        machine::MemoryRecord record;
        record.dwMemoryLoad = m_stream.number32();
        for (auto field : {&machine::MemoryRecord::ullTotalPhys, &machine::MemoryRecord::ullAvailPhys,
                           &machine::MemoryRecord::ullTotalPageFile, &machine::MemoryRecord::ullAvailPageFile,
                           &machine::MemoryRecord::ullTotalVirtual, &machine::MemoryRecord::ullAvailVirtual})
            record.*field = m_stream.number64();
        return record;
    }

    machine::DriveRecord drive()
    {
        machine::DriveRecord record;
        record.GetDriveType = small(m_stream.byte());
        answer(record.GetVolumeInformation, [&] {
            machine::VolumeRecord volume;
            volume.volumeName = text();
            volume.fileSystemName = text();
            return volume;
        });
        answer(record.GetDiskFreeSpaceEx, [&] {
            machine::FreeSpaceRecord space;
            space.freeBytesAvailableToCaller = m_stream.number64();
            space.totalNumberOfBytes = m_stream.number64();
            return space;
        });
        return record;
    }

    /// Some names, and as many more of the last as make up a long list.
    std::vector<std::optional<QString>> modules()
    {
        std::vector<std::optional<QString>> names;
        for (int count = m_stream.byte(); count > 0 && !m_stream.atEnd(); --count) {
            if (m_stream.byte() % 8 == 0)
                names.emplace_back(std::nullopt);
            else
                names.emplace_back(text());
        }
        const auto more = std::size_t(bulk());
        if (!names.empty()) {
            const std::optional<QString> last = names.back();
            names.insert(names.end(), more, last);
        }
        return names;
    }

    machine::LibraryRecord library()
    {
        machine::LibraryRecord record;
        if (m_stream.byte() % 4 == 0)
            return record;
        machine::DnsServiceRecord service;
        service.error = qint32(m_stream.number32());
        service.DaemonVersion = m_stream.number32();
        record.DNSServiceGetProperty = service;
        return record;
    }

    machine::AddressRecord address()
    {
        machine::AddressRecord record;
        record.address = text().left(longestAdapterText);
        record.mask = text().left(longestAdapterText);
        return record;
    }

    std::vector<machine::AddressRecord> addresses()
    {
        std::vector<machine::AddressRecord> list;
        for (int count = m_stream.index(64); count > 0; --count)
            list.push_back(address());
        return list;
    }

    machine::AdapterRecord adapter()
    {
        machine::AdapterRecord record;
        record.Index = small(m_stream.byte());
        record.AdapterName = text().left(longestAdapterText);
        record.Description = text().left(longestAdapterText);
        record.DhcpEnabled = m_stream.byte();
        record.GatewayList = addresses();
        record.DhcpServer = addresses();
        record.HaveWins = qint8(m_stream.byte());
        record.PrimaryWinsServer = address();
        record.SecondaryWinsServer = address();
        record.LeaseObtained = qint64(m_stream.number64());
        record.LeaseExpires = qint64(m_stream.number64());
        return record;
    }

    std::vector<machine::AdapterRecord> adapters()
    {
        std::vector<machine::AdapterRecord> list;
        for (int count = m_stream.index(64); count > 0 && !m_stream.atEnd(); --count)
            list.push_back(adapter());
        return list;
    }

    void fail()
    {
        CallFault fault;
        const int form = m_stream.index(3);
        if (form > 0)
            fault.call = knownCalls()[std::size_t(m_stream.index(int(knownCalls().size())))];
        fault.every = form == 1;
        if (!fault.every)
            fault.number = callNumber();
        fault.error = std::max(error(), 1u); // no call is a success that does nothing
        if (m_hostile && m_hostile->faults.size() < mostFaults)
            m_hostile->faults.push_back(fault);
    }

    void change()
    {
        Change change;
        change.beforeCall = callNumber();
        change.steps = m_stream.bytes(m_stream.byte());
        if (m_hostile && m_hostile->changes.size() < mostChanges)
            m_hostile->changes.push_back(change);
    }

    ByteStream m_stream;
    Machine &m_machine;
    HostileMachine *m_hostile; // null within a change
    std::vector<KeyPointer> m_path;
    const KnownKey *m_known = &knownKeys().front();
    int m_keysLeft = 512;
    int m_valuesLeft = 2048;
    int m_bulkLeft = 3000;
};

} // namespace

HostileMachine hostileMachine(const QByteArray &bytes)
{
    HostileMachine hostile;
    takeSteps(bytes, hostile);
    return hostile;
}

void takeSteps(const QByteArray &bytes, HostileMachine &hostile)
{
    Steps(bytes, hostile.machine, &hostile).takeAll();
}

void takeSteps(const QByteArray &bytes, Machine &machine)
{
    Steps(bytes, machine, nullptr).takeAll();
}
