// Fuzzes the Windows half of the report, adapterDetails() and GetOpenGLDriverInfo() on a hostile
// machine.
//
// Apart from the errors that sanitizers detect, these rules hold for every machine, whichever
// calls fail and whatever changes between two calls. Every section has its first line and its
// separator, in order. All handles are closed except the key of the OEM section. No call gets a
// size that is larger than its buffer. The number of calls and the length of the text are
// proportional to the machine.

#include "fuzz_target.h"
#include "hostile_machine.h"
#include "installed_machine.h"
#include "known_names.h"

#include "report/section_table.h"
#include "simulated_windows.h"
#include "vkSystemInfo.h"
#include "win/adapter_details.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <algorithm>
#include <cstring>

using namespace velkor::SystemInfo;
using machine::RegistryRoot;

namespace {

/// The texts of a run.
struct Run
{
    QString windowsHalf;
    QString others;
};

/// Counts that bound the cost of a report.
struct Size
{
    std::size_t keys = 0;
    std::size_t values = 0;
    std::size_t placeholders = 0; // in names of values; the ports section replaces them with data
    bool plainNames = true;       // every key can be opened by its enumerated name
};

bool isPlain(const QString &name)
{
    return std::all_of(name.begin(), name.end(), [](QChar unit) {
        return unit >= QLatin1Char(' ') && unit <= QLatin1Char('~') && unit != QLatin1Char('?');
    });
}

void measure(const machine::RegistryKey &key, Size &size)
{
    ++size.keys;
    size.plainNames = size.plainNames && isPlain(key.name());
    size.values += key.values().size();
    for (const machine::RegistryValue &value : key.values())
        size.placeholders += std::size_t(value.name.count(QLatin1Char('%')));
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        measure(*key.subKeyAt(i), size);
}

Size sizeOf(const machine::Machine &machine)
{
    Size size;
    for (const RegistryRoot root : {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser, RegistryRoot::LocalMachine})
        measure(*machine.registry.root(root), size);
    return size;
}

/// Fills the stack with \a byte, so that two runs differ if they read uninitialised memory.
void scribble(unsigned char byte)
{
    unsigned char area[64 * 1024];
    std::memset(area, byte, sizeof area);
    asm volatile(""
                 :
                 : "r"(area)
                 : "memory"); // keeps the optimiser from removing the stores
}

void prepare()
{
    silenceMessages();
    simulated::installNothing();
    // Static tables are created before the leak sanitizer counts allocations.
    for (const int codePage : codePages) {
        HostileMachine hostile;
        hostile.machine.system.ansiCodePage = codePage;
        machine::createKey(hostile.machine.registry.root(RegistryRoot::LocalMachine),
                           QStringLiteral("SYSTEM\\CurrentControlSet\\Enum\\FDC\\A"));
        simulated::reset();
        simulated::install(std::move(hostile.machine));
        WinSysInfo::allWinInfos();
    }
}

QString driverText()
{
    QString text;
    const QString returned = ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(text);
    require(text.startsWith(QStringLiteral("#### Info about the OpenGL driver DLL's from registry ###\n")),
            "the OpenGL drivers begin with their heading", text.toUtf8());
    require(text.endsWith(QLatin1Char('\n')), "the OpenGL drivers end a line");
    require(returned.isEmpty() || returned == QStringLiteral("\n"), "the OpenGL drivers return an empty line or nothing");
    return text;
}

QString adapterText(quint32 index)
{
    const QString text = WinSysInfo::adapterDetails(index);
    require(text.isEmpty() || (text.startsWith(QStringLiteral("Gateway")) && text.endsWith(QLatin1Char('\n'))),
            "an adapter begins with its gateways and ends a line", text.toUtf8());
    return text;
}

/// The details of every adapter, and of two indexes that rarely or never exist.
QString adapterTexts()
{
    std::vector<quint32> indexes = {0, 0x12345678};
    if (const auto &adapters = simulated::machineInUse().system.GetAdaptersInfo) {
        for (const machine::AdapterRecord &adapter : *adapters)
            indexes.push_back(adapter.Index);
    }
    QString text;
    for (const quint32 index : indexes)
        text += adapterText(index);
    return text;
}

void checkOrder(const QString &text, bool hasMemory)
{
    const QString heading = QStringLiteral("############ Windows specific section ###########\n");
    require(text.startsWith(heading), "the Windows half begins with its heading", text.left(200).toUtf8());
    require(text.endsWith(separator()), "the Windows half ends with a separator", text.right(200).toUtf8());
    int position = heading.size();
    int separators = 0;
    for (const Section &section : SectionTable()) {
        if (section.part != Part::Windows)
            continue;
        separators += section.followed == Followed::BySeparator;
        if (!hasMemory && std::strcmp(section.name, "someEnvironmentVariables") == 0)
            continue; // without memory the section is empty
        const int found = text.indexOf(QString::fromLatin1(section.heading), position);
        require(found >= 0, "every section is there, in order", QByteArray(section.name) + text.mid(position).toUtf8());
        position = found + int(std::strlen(section.heading));
    }
    require(text.count(separator()) >= separators, "separators follow the sections", text.toUtf8());
}

void checkHandles()
{
    const QString kept = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation");
    QStringList open = simulated::openHandles();
    open.removeOne(kept);
    require(open.isEmpty(), "every handle is closed", open.join(QLatin1Char('\n')).toUtf8());
    require(simulated::handleMisuses().isEmpty(), "no handle is misused",
            simulated::handleMisuses().join(QLatin1Char('\n')).toUtf8());
}

void checkCalls()
{
    QString errorMode = QStringLiteral("0");
    for (const simulated::Call &call : simulated::journal()) {
        if (call.name.startsWith("RegQueryValue"))
            require(call.sizeIn <= WinSysInfo::valueBufferSize, "the size of a query is not larger than its buffer", call.name);
        if (call.name == "SetErrorMode")
            errorMode = call.value;
    }
    require(errorMode == QStringLiteral("0"), "the error mode is the default");
}

std::size_t lengthOfNames(const machine::SystemAnswers &system)
{
    std::size_t length = 0;
    for (const machine::FolderRecord &folder : system.folders) {
        for (const QString &name : folder.directories)
            length += std::size_t(name.size()) + 1;
    }
    return length;
}

void checkCost(const Size &size, std::size_t names, std::size_t calls, const Run &run)
{
    // A key of a driver takes 11 calls. A key of an adapter takes 24, and the last one twice as
    // many. Calls that do not depend on the machine are fewer than 4000.
    if (size.plainNames)
        require(calls <= 4000 + 60 * size.keys + 2 * size.values, "the number of calls is proportional to the machine",
                QByteArray::number(qulonglong(calls)));
    const std::size_t length = std::size_t(run.windowsHalf.size() + run.others.size());
    const std::size_t most = 300000 + 4400 * calls + 2048 * size.placeholders + names;
    require(length <= most, "the length of the text is proportional to the machine", QByteArray::number(qulonglong(length)));
}

Run run(const QByteArray &bytes)
{
    HostileMachine hostile = hostileMachine(bytes);
    const Size size = sizeOf(hostile.machine);
    const std::size_t names = lengthOfNames(hostile.machine.system);
    const bool isConstant = hostile.changes.empty();
    const bool hasMemory = std::none_of(hostile.faults.begin(), hostile.faults.end(), [](const CallFault &fault) {
        return fault.call.isEmpty() || fault.call == "HeapAlloc";
    });
    const InstalledMachine installed(std::move(hostile));

    Run run;
    run.windowsHalf = WinSysInfo::allWinInfos();
    checkOrder(run.windowsHalf, hasMemory);
    checkHandles();
    run.others = driverText() + adapterTexts() + WinSysInfo::windowsVersion(false);
    checkHandles();
    checkCalls();
    if (installed.limitedAt() > 0)
        require(simulated::callCount() < installed.limitedAt() + 20000, "every enumeration ends");
    else if (isConstant)
        checkCost(size, names, simulated::callCount(), run);
    return run;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool prepared = (prepare(), true);
    Q_UNUSED(prepared)
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    scribble(0xaa);
    const Run first = run(bytes);
    if (hostileMachine(bytes).runTwice) {
        scribble(0x55);
        const Run second = run(bytes);
        require(first.windowsHalf == second.windowsHalf && first.others == second.others,
                "two reports of the same machine are equal");
    }
    return 0;
}
