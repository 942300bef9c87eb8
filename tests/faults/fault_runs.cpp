#include "fault_runs.h"

#include "described_windows.h"
#include "expected_texts.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/adapter_details.h"
#include "win/windows_sections.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <algorithm>
#include <cerrno>
#include <windows.h>

namespace {

// Those that the sections' own calls do not need a name for.
constexpr quint32 errorNotSupported = 50;
constexpr quint32 errorKeyDeleted = 1018;

QStringList collectedWarnings;

void collectWarning(QtMsgType, const QMessageLogContext &, const QString &message)
{
    collectedWarnings += message;
}

/// Takes Qt's messages for as long as it lives.
class WarningCollector
{
public:
    WarningCollector()
    {
        collectedWarnings.clear();
        m_previous = qInstallMessageHandler(collectWarning);
    }
    ~WarningCollector() { qInstallMessageHandler(m_previous); }
    WarningCollector(const WarningCollector &) = delete;
    WarningCollector &operator=(const WarningCollector &) = delete;

private:
    QtMessageHandler m_previous;
};

constexpr quint32 noAdapter = 0xfffffff0;

std::vector<quint32> adaptersOf(const machine::Machine &machine)
{
    std::vector<quint32> result;
    if (machine.system.GetAdaptersInfo) {
        for (const machine::AdapterRecord &adapter : *machine.system.GetAdaptersInfo)
            result.push_back(adapter.Index);
    }
    result.push_back(noAdapter);
    return result;
}

QString about(const simulated::Call &call)
{
    QString text = QString::fromLatin1(call.name) + QLatin1Char(' ') + call.key;
    return call.value.isEmpty() ? text : text + QLatin1Char(' ') + call.value;
}

QString handleAndMemoryProblems()
{
    QStringList problems = simulated::handleMisuses();
    int blocks = 0;
    for (const simulated::Call &call : simulated::journal()) {
        if (call.name == "HeapAlloc")
            blocks += int(call.result);
        else if (call.name == "HeapFree")
            --blocks;
    }
    if (blocks != 0)
        problems += QStringLiteral("%1 memory blocks are not given back").arg(blocks);
    return problems.join(QLatin1Char('\n'));
}

} // namespace

Outcome libraryRun(machine::Machine &machine, const Disturbance &disturbance)
{
    const std::vector<quint32> adapters = adaptersOf(machine);
    const WarningCollector warnings;
    DescribedWindows windows(std::move(machine));
    std::vector<simulated::Fault> faults;
    const auto before = disturbance.failuresWriteResults ? simulated::BeforeFailing::WritesResults
                                                         : simulated::BeforeFailing::Nothing;
    for (const auto &failure : disturbance.failures)
        faults.push_back(simulated::Fault::nthOfAll(failure.first, failure.second, before));
    if (disturbance.beforeCall) {
        simulated::setBeforeCall([&](std::size_t number, const QByteArray &) {
            disturbance.beforeCall(number, simulated::machineInUse());
        });
    }
    Outcome outcome;
    outcome.text = velkor::SystemInfo::WinSysInfo::allWinInfos();
    for (const quint32 index : adapters)
        outcome.text += velkor::SystemInfo::WinSysInfo::adapterDetails(index);
    velkor::SystemInfo::ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(outcome.text);
    for (const simulated::Call &call : simulated::journal())
        outcome.calls += about(call);
    outcome.openHandles = simulated::openHandles();
    outcome.problem = handleAndMemoryProblems();
    for (const simulated::Fault &fault : faults) {
        if (fault.hits() != 1)
            outcome.problem += QStringLiteral("\na call that was to fail was not made");
    }
    outcome.warnings = collectedWarnings;
    simulated::setBeforeCall(nullptr);
    machine = std::move(simulated::machineInUse());
    return outcome;
}

Outcome expectedRun(machine::Machine &machine, const Disturbance &disturbance)
{
    const std::vector<quint32> adapters = adaptersOf(machine);
    expected::DescribedCalls calls(machine);
    calls.failures = disturbance.failures;
    calls.failuresWriteResults = disturbance.failuresWriteResults;
    if (disturbance.beforeCall)
        calls.beforeCall = [&](std::size_t number) { disturbance.beforeCall(number, machine); };
    Outcome outcome;
    outcome.text = expected::windowsHalf(calls);
    for (const quint32 index : adapters)
        outcome.text += expected::adapterDetails(calls, index);
    outcome.text += expected::openGLDrivers(calls);
    for (const expected::Call &call : calls.calls)
        outcome.calls += QString::fromLatin1(call.name) + QLatin1Char(' ') + call.about;
    outcome.openHandles = calls.openHandles;
    outcome.warnings = calls.warnings;
    return outcome;
}

QString difference(const Outcome &actual, const Outcome &expected)
{
    const QString newline = QStringLiteral("\n");
    if (actual.text != expected.text)
        return textDifference(actual.text, expected.text);
    if (actual.calls != expected.calls)
        return QStringLiteral("calls: ") + textDifference(actual.calls.join(newline), expected.calls.join(newline));
    if (actual.openHandles != expected.openHandles)
        return QStringLiteral("open: ") + textDifference(actual.openHandles.join(newline), expected.openHandles.join(newline));
    if (actual.warnings != expected.warnings)
        return QStringLiteral("warnings: ") + textDifference(actual.warnings.join(newline), expected.warnings.join(newline));
    return actual.problem;
}

std::vector<quint32> errorsOf(const QByteArray &call)
{
    if (call == "RegOpenKeyExA") // without an error: no handle all the same
        return {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY, errorKeyDeleted, ERROR_SUCCESS};
    if (call.startsWith("RegQueryValueEx"))
        return {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_MORE_DATA, ERROR_NOT_ENOUGH_MEMORY, errorKeyDeleted};
    if (call.startsWith("RegEnum"))
        return {ERROR_NO_MORE_ITEMS, ERROR_ACCESS_DENIED, ERROR_MORE_DATA, ERROR_NOT_ENOUGH_MEMORY, errorKeyDeleted};
    if (call == "RegCloseKey" || call == "FreeLibrary" || call == "HeapFree")
        return {ERROR_INVALID_HANDLE};
    if (call == "GetAdaptersInfo")
        return {ERROR_BUFFER_OVERFLOW, ERROR_NO_DATA, errorNotSupported, ERROR_INVALID_PARAMETER, ERROR_NOT_ENOUGH_MEMORY};
    if (call == "DNSServiceGetProperty")
        return {quint32(-65563), quint32(-65537), quint32(-65540)};
    if (call == "GetLogicalDrives")
        return {ERROR_SUCCESS, ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY};
    if (call == "LoadLibraryW")
        return {ERROR_MOD_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY};
    if (call == "_localtime32_s" || call == "asctime_s")
        return {EINVAL};
    return {ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY, ERROR_INVALID_PARAMETER};
}

namespace {

/// What no failure takes away, in its order.
QStringList frame()
{
    const QString separator = QString(72, QLatin1Char('-')) + QLatin1Char('\n');
    const char *const groups[] = {
        "############ Windows specific section ###########\nWindows version: \n|Windows version information from Registry\n",
        "This is a 64bit application.\n",
        "Internet Explorer information from Registry\n",
        "Processor information: \n|Central Processor information from Registry\n",
        "Memory Information:\n",
        "Computer name\n",
        "OEM Information from Registry\n",
        "SystemInformation from Registry\n",
        "BIOS information from Registry\n",
        ">>> Info about video from registry:\n\n",
        ">>> Info about drivers from registry:\n\n",
        "Time Zone information from Registry\n",
        ">>> Info about installed Velkor applications from registry:\n\n|"
        ">>> Info about installed Velkor Visual Basic applications from registry:\n\n",
        "WinSxS directory entries\n",
        "",
        "Disk information: \n",
        ">>> Info about 'FDC' disk devices from registry:\n|>>> Info about 'IDE' disk devices from registry:\n|"
        ">>> Info about 'SCSI' disk devices from registry:\n|>>> Info about 'USBSTOR' disk devices from registry:\n",
        ">> Info about 'PARALLEL PORTS' ports from registry:\n|>> Info about 'SERIALCOMM' ports from registry:\n",
        "Registry quota:\n",
        "Windows system directories\n|Special Folders: \n",
        "Standard Bonjour: ",
        "velkor DNS-SD: |RefCount for vkdnssd.dll: ",
        "Loaded modules/DLLs:\n",
    };
    QStringList result;
    for (const char *group : groups)
        result += QString::fromLatin1(group).split(QLatin1Char('|')) << separator;
    return result << QStringLiteral("#### Info about the OpenGL driver DLL's from registry ###\n");
}

/// Lines that are there because something failed, or that lost a part.
const char *const linesOfFailures[] = {
    "GetVersionExA\\(&osver\\) failed!",
    "From registry:     [0-9.]+",
    " {19}Windows .*",
    "<failed to open registry key '%1'-{72}",
    "Version:           .*",
    "   Video Memory: .*",
    "Expand env var [0-4] failed!",
    "Failed GetLogicalDrives\\(\\), error = [0-9]+-{72}",
    "[A-Z]:\\\\ .*",
    "CSIDL_[A-Z_]+    .*",
    "(Standard Bonjour|velkor DNS-SD): not installed\\.",
    "DNS-SD version: .*",
    "RefCount for vkdnssd\\.dll: failed to get refCount!",
    "(SystemBIOSDate|SystemManufacturer|DaylightBias|   Friendly Name|   Device Characteristics): .*", // not ended: shows what was there
    "Lease (obtained:|expires: ) 0x[0-9a-f]+",
    "[A-Za-z0-9]+   ",
    "",
};

bool isLineOfFailure(const QString &line)
{
    static const std::vector<QRegularExpression> patterns = [] {
        std::vector<QRegularExpression> result;
        for (const char *pattern : linesOfFailures)
            result.emplace_back(QRegularExpression::anchoredPattern(QString::fromLatin1(pattern)));
        return result;
    }();
    return std::any_of(patterns.begin(), patterns.end(), [&](const auto &pattern) { return pattern.match(line).hasMatch(); });
}

} // namespace

QString unexplained(const QString &text, const QString &faultless)
{
    static const QStringList parts = frame();
    int position = 0;
    for (const QString &part : parts) {
        const int found = text.indexOf(part, position);
        if (found < 0 || (position == 0 && found != 0))
            return QStringLiteral("missing or out of place: ") + part;
        position = found + part.size();
    }
    const QString separator = QString(72, QLatin1Char('-')) + QLatin1Char('\n');
    if (text.count(separator) != 23)
        return QStringLiteral("%1 separators").arg(text.count(separator));
    const QStringList faultlessLines = faultless.split(QLatin1Char('\n'));
    const QSet<QString> known(faultlessLines.begin(), faultlessLines.end());
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!known.contains(line) && !isLineOfFailure(line))
            return QStringLiteral("no failure gives this line: ") + line;
    }
    return QString();
}
