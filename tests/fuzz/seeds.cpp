#include "seeds.h"

#include "byte_stream.h"
#include "hostile_machine.h"
#include "known_names.h"

#include <QtCore/QtEndian>
#include <algorithm>

namespace {

using machine::RegistryKey;
using machine::RegistryValue;

constexpr int longestPiece = 2048;

class StepWriter : public ByteWriter
{
public:
    void step(Step step) { byte(quint8(step)); }
    void asked(Asked asked)
    {
        step(Step::Answer);
        byte(quint8(asked));
    }
    void form(TextForm form) { byte(quint8(form)); }
    void form(DataForm form) { byte(quint8(form)); }

    void text(const QString &text)
    {
        const int known = knownTexts().indexOf(text);
        const bool isLatin1 = std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 256; });
        if (known >= 0) {
            form(TextForm::Known);
            byte(quint8(known));
        } else if (isLatin1 && text.size() < 256) {
            form(TextForm::Latin1);
            byte(quint8(text.size()));
            append(text.toLatin1());
        } else if (isLatin1) {
            form(TextForm::LongLatin1);
            word(quint16(text.size()));
            append(text.toLatin1());
        } else if (text.size() < 256) {
            form(TextForm::Utf16);
            byte(quint8(text.size()));
            units(text);
        } else {
            form(TextForm::Pair);
            this->text(text.left(text.size() / 2));
            this->text(text.mid(text.size() / 2));
        }
    }

    void value(const RegistryValue &value)
    {
        const int known = knownValues().indexOf(value.name);
        step(known >= 0 ? Step::SetKnownValue : Step::SetValue);
        if (known >= 0)
            byte(quint8(known));
        else
            text(value.name);
        if (value.type < 254) {
            byte(quint8(value.type + 1));
            data(value);
        } else {
            byte(255);
            data(value);
            number32(value.type);
        }
    }

    template <typename T, typename Write>
    void answer(const machine::Answer<T> &answer, Write write)
    {
        byte(answer ? 1 : 0);
        if (answer)
            write(*answer);
        else
            byte(quint8(answer.error < 250 ? answer.error : 0));
    }

    void answerText(const machine::Answer<QString> &field)
    {
        answer(field, [&](const QString &value) { text(value); });
    }

private:
    void units(const QString &text)
    {
        for (const QChar unit : text)
            word(unit.unicode());
    }

    void data(const RegistryValue &value)
    {
        const QByteArray &bytes = value.data;
        QString text;
        for (int i = 0; i + 1 < bytes.size(); i += 2)
            text += QChar(qFromLittleEndian<quint16>(bytes.constData() + i));
        const bool isText = bytes.size() % 2 == 0 && (value.type == 1 || value.type == 2)
            && text.endsWith(QChar(QChar::Null));
        if (value.type == 4 && bytes.size() == 4) {
            form(DataForm::Number);
            number32(qFromLittleEndian<quint32>(bytes.constData()));
        } else if (isText) {
            form(DataForm::Text);
            text.chop(1);
            this->text(text);
        } else if (bytes.size() % 2 == 0 && value.type == 7 && isList(text)) {
            list(text);
        } else {
            form(bytes.size() < 256 ? DataForm::Bytes : DataForm::LongBytes);
            if (bytes.size() < 256)
                byte(quint8(bytes.size()));
            else
                word(quint16(bytes.size()));
            append(bytes);
        }
    }

    /// Of strings with a terminator each, and one behind them all.
    static bool isList(const QString &text)
    {
        const int count = text.count(QChar(QChar::Null));
        return text.endsWith(QString(2, QChar(QChar::Null))) && count > 1 && count <= 32;
    }

    void list(const QString &text)
    {
        QStringList strings = text.split(QChar(QChar::Null));
        strings.erase(strings.end() - 2, strings.end()); // behind the two terminators at the end
        form(DataForm::List);
        byte(quint8(strings.size()));
        for (const QString &string : qAsConst(strings))
            this->text(string);
    }
};

// The registry.

QByteArray subKeySteps(const RegistryKey &key)
{
    StepWriter writer;
    writer.step(Step::EnterSubKey);
    writer.text(key.name());
    if (key.isDenied())
        writer.step(Step::DenyKey);
    for (const RegistryValue &value : key.values())
        writer.value(value);
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        writer.append(subKeySteps(*key.subKeyAt(i)));
    writer.step(Step::Leave);
    return writer.bytes();
}

bool isBelow(const KnownKey &key, const KnownKey &other)
{
    return key.root == other.root && key.path.startsWith(other.path + QLatin1Char('\\'), Qt::CaseInsensitive);
}

/// Those that no other known key has below it.
std::vector<int> topKeys()
{
    std::vector<int> numbers;
    const std::vector<KnownKey> &keys = knownKeys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const bool isTop = std::none_of(keys.begin(), keys.end(),
                                        [&](const KnownKey &other) { return isBelow(keys[i], other); });
        if (isTop)
            numbers.push_back(int(i));
    }
    return numbers;
}

void addKey(const RegistryKey &key, int number, const QString &name, QMap<QString, QByteArray> &seeds)
{
    StepWriter start;
    start.step(Step::EnterKey);
    start.byte(quint8(number));
    QByteArray steps = start.bytes();
    StepWriter itself;
    if (key.isDenied())
        itself.step(Step::DenyKey);
    for (const RegistryValue &value : key.values())
        itself.value(value);
    steps += itself.bytes();
    int piece = 0;
    const auto end = [&] {
        seeds[QStringLiteral("%1-%2").arg(name).arg(piece++, 2, 10, QLatin1Char('0'))] = steps;
        steps = start.bytes();
    };
    for (std::size_t i = 0; i < key.subKeyCount(); ++i) {
        const QByteArray subKey = subKeySteps(*key.subKeyAt(i));
        if (steps.size() + subKey.size() > longestPiece && steps.size() > start.bytes().size())
            end();
        steps += subKey;
    }
    end();
}

QString seedName(const QString &path)
{
    QString name = path.toLower();
    for (QChar &unit : name) {
        if (!unit.isLetterOrNumber())
            unit = QLatin1Char('_');
    }
    return name;
}

void addRegistry(const machine::Registry &registry, QMap<QString, QByteArray> &seeds)
{
    for (const int number : topKeys()) {
        const KnownKey &known = knownKeys()[std::size_t(number)];
        if (const auto key = machine::findKey(registry.root(known.root), known.path))
            addKey(*key, number, QStringLiteral("key%1-").arg(number, 2, 10, QLatin1Char('0')) + seedName(known.path), seeds);
    }
}

// The other answers.

quint8 small(quint32 number)
{
    return quint8(std::min(number, 255u));
}

void writeVersions(StepWriter &writer, const machine::SystemAnswers &system)
{
    writer.asked(Asked::CodePage);
    writer.byte(quint8(std::find(std::begin(codePages), std::end(codePages), system.ansiCodePage) - std::begin(codePages)));
    writer.asked(Asked::Version);
    writer.answer(system.GetVersionEx, [&](const machine::VersionRecord &record) {
        writer.byte(small(record.dwMajorVersion));
        writer.byte(small(record.dwMinorVersion));
        writer.number32(record.dwBuildNumber);
        writer.byte(small(record.dwPlatformId));
        writer.text(record.szCSDVersion);
        writer.byte(small(record.wServicePackMajor));
        writer.byte(small(record.wServicePackMinor));
        writer.word(record.wSuiteMask);
        writer.byte(record.wProductType);
    });
    writer.asked(Asked::ProductInfo);
    writer.byte(system.exportsGetProductInfo ? 1 : 0);
    writer.answer(system.GetProductInfo, [&](quint32 type) { writer.number32(type); });
    for (auto it = system.GetSystemMetrics.begin(); it != system.GetSystemMetrics.end(); ++it) {
        writer.asked(Asked::Metric);
        writer.byte(quint8(it.key()));
        writer.number32(quint32(it.value()));
    }
}

void writeHardware(StepWriter &writer, const machine::SystemAnswers &system)
{
    const machine::SystemInfoRecord &info = system.GetSystemInfo;
    writer.asked(Asked::SystemInfo);
    writer.byte(small(info.wProcessorArchitecture));
    writer.number32(info.dwPageSize);
    writer.number64(info.lpMinimumApplicationAddress);
    writer.number64(info.lpMaximumApplicationAddress);
    writer.number64(info.dwActiveProcessorMask);
    writer.number32(info.dwNumberOfProcessors);
    writer.number32(info.dwProcessorType);
    writer.number32(info.dwAllocationGranularity);
    writer.word(info.wProcessorLevel);
    writer.word(info.wProcessorRevision);
    writer.asked(Asked::Memory);
    writer.answer(system.GlobalMemoryStatusEx, [&](const machine::MemoryRecord &record) {
        writer.number32(record.dwMemoryLoad);
        for (const quint64 number : {record.ullTotalPhys, record.ullAvailPhys, record.ullTotalPageFile,
                                     record.ullAvailPageFile, record.ullTotalVirtual, record.ullAvailVirtual})
            writer.number64(number);
    });
    writer.asked(Asked::RegistryQuota);
    writer.answer(system.GetSystemRegistryQuota, [&](const machine::QuotaRecord &record) {
        writer.number32(record.allowed);
        writer.number32(record.used);
    });
}

void writeNames(StepWriter &writer, const machine::SystemAnswers &system)
{
    for (auto it = system.GetComputerNameEx.begin(); it != system.GetComputerNameEx.end(); ++it) {
        writer.asked(Asked::ComputerName);
        writer.byte(quint8(it.key()));
        writer.answerText(it.value());
    }
    writer.asked(Asked::UserName);
    writer.answerText(system.GetUserName);
}

void writeDrives(StepWriter &writer, const machine::SystemAnswers &system)
{
    writer.asked(Asked::LogicalDrives);
    writer.answer(system.GetLogicalDrives, [&](quint32 mask) { writer.number32(mask); });
    for (auto it = system.drives.begin(); it != system.drives.end(); ++it) {
        writer.asked(Asked::Drive);
        writer.byte(quint8(it.key().at(0).unicode() - 'A'));
        writer.byte(small(it->GetDriveType));
        writer.answer(it->GetVolumeInformation, [&](const machine::VolumeRecord &volume) {
            writer.text(volume.volumeName);
            writer.text(volume.fileSystemName);
        });
        writer.answer(it->GetDiskFreeSpaceEx, [&](const machine::FreeSpaceRecord &space) {
            writer.number64(space.freeBytesAvailableToCaller);
            writer.number64(space.totalNumberOfBytes);
        });
    }
}

void writeDirectories(StepWriter &writer, const machine::SystemAnswers &system)
{
    writer.asked(Asked::WindowsDirectory);
    writer.answerText(system.GetSystemWindowsDirectory);
    writer.asked(Asked::Wow64Directory);
    writer.answerText(system.GetSystemWow64Directory);
    for (int i = 0; i < 5; ++i) {
        writer.asked(Asked::SpecialFolder);
        writer.byte(quint8(i));
        writer.answerText(system.SHGetSpecialFolderPath.value(specialFolderNumbers[i]));
    }
    for (int i = 0; i < 5; ++i) {
        const auto variable = system.environment.constFind(QString::fromLatin1(environmentNames[i]));
        if (variable == system.environment.constEnd())
            continue;
        writer.asked(Asked::Environment);
        writer.byte(quint8(i));
        writer.text(*variable);
    }
    for (auto it = system.ExpandEnvironmentStrings.begin(); it != system.ExpandEnvironmentStrings.end(); ++it) {
        writer.asked(Asked::ExpansionError);
        writer.byte(quint8(it.key()));
        writer.byte(quint8(std::min(*it, 249u)));
    }
}

/// The folder is told by the name of another one.
void writeWinSxS(StepWriter &writer, const machine::SystemAnswers &system)
{
    writer.asked(Asked::WindowsDirectory);
    writer.answerText(system.GetSystemWindowsDirectory);
    if (!system.WinSxS)
        return;
    writer.asked(Asked::WinSxS);
    writer.byte(quint8(system.WinSxS->size()));
    for (const QString &name : *system.WinSxS)
        writer.text(name);
}

void writeModules(StepWriter &writer, const machine::SystemAnswers &system)
{
    writer.asked(Asked::Modules);
    writer.answer(system.EnumProcessModules, [&](const std::vector<std::optional<QString>> &names) {
        writer.byte(quint8(names.size()));
        for (const auto &name : names) {
            writer.byte(name ? 1 : 0);
            if (name)
                writer.text(*name);
        }
        writer.byte(0); // no more of the last
    });
    for (int i = 0; i < 2; ++i) {
        const auto library = system.libraries.constFind(QString::fromLatin1(libraryNames[i]));
        if (library == system.libraries.constEnd())
            continue;
        writer.asked(Asked::Library);
        writer.byte(quint8(i));
        writer.byte(library->DNSServiceGetProperty ? 1 : 0);
        if (library->DNSServiceGetProperty) {
            writer.number32(quint32(library->DNSServiceGetProperty->error));
            writer.number32(library->DNSServiceGetProperty->DaemonVersion);
        }
    }
}

void writeAddresses(StepWriter &writer, const std::vector<machine::AddressRecord> &list)
{
    writer.byte(quint8(list.size()));
    for (const machine::AddressRecord &record : list) {
        writer.text(record.address);
        writer.text(record.mask);
    }
}

void writeAdapters(StepWriter &writer, const machine::SystemAnswers &system)
{
    writer.asked(Asked::TimeZone);
    writer.number32(quint32(system.timeZone));
    writer.asked(Asked::Adapters);
    writer.answer(system.GetAdaptersInfo, [&](const std::vector<machine::AdapterRecord> &adapters) {
        writer.byte(quint8(adapters.size()));
        for (const machine::AdapterRecord &record : adapters) {
            writer.byte(small(record.Index));
            writer.text(record.AdapterName);
            writer.text(record.Description);
            writer.byte(small(record.DhcpEnabled));
            writeAddresses(writer, record.GatewayList);
            writeAddresses(writer, record.DhcpServer);
            writer.byte(quint8(record.HaveWins));
            for (const machine::AddressRecord &address : {record.PrimaryWinsServer, record.SecondaryWinsServer}) {
                writer.text(address.address);
                writer.text(address.mask);
            }
            writer.number64(quint64(record.LeaseObtained));
            writer.number64(quint64(record.LeaseExpires));
        }
    });
}

struct Piece
{
    const char *name;
    void (*write)(StepWriter &, const machine::SystemAnswers &);
};

constexpr Piece pieces[] = {
    {"system-versions", writeVersions},
    {"system-hardware", writeHardware},
    {"system-names", writeNames},
    {"system-drives", writeDrives},
    {"system-directories", writeDirectories},
    {"system-winsxs", writeWinSxS},
    {"system-modules", writeModules},
    {"system-adapters", writeAdapters},
};

} // namespace

QMap<QString, QByteArray> seedsOf(const machine::Machine &machine)
{
    QMap<QString, QByteArray> seeds;
    addRegistry(machine.registry, seeds);
    for (const Piece &piece : pieces) {
        StepWriter writer;
        piece.write(writer, machine.system);
        seeds[QString::fromLatin1(piece.name)] = writer.bytes();
    }
    return seeds;
}
