// refCountSharedDll() and refCountSharedDllText()

#include "poisoned_buffer.h"
#include "section_rows.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#endif

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

/// Collects Qt's messages while the object exists.
class Messages
{
public:
    Messages()
    {
        texts().clear();
        m_previous = qInstallMessageHandler(keep);
    }
    ~Messages() { qInstallMessageHandler(m_previous); }

    /// Messages that are not warnings, or that name a source file, start with "something else: ".
    static QStringList &texts()
    {
        static QStringList theTexts;
        return theTexts;
    }

private:
    static void keep(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        const bool isPlain = type == QtWarningMsg && !context.file && !context.function && context.line == 0;
        texts() += (isPlain ? "warning: " : "something else: ") + text;
    }

    QtMessageHandler m_previous;
};

/// The result of refCountSharedDll(), the count, and the messages.
QString resultFor(const QString &dllName)
{
    const Messages messages;
    unsigned int count = poison;
    const bool known = refCountSharedDll(dllName, count);
    return (known ? "known: " : "unknown: ") + QString::number(count) + '\n' + messages.texts().join(QString());
}

const QString unknown = "unknown: " + QString::number(poison) + '\n';

QString lineWithMessages()
{
    const Messages messages;
    const QString line = refCountSharedDllText();
    return line + messages.texts().join(QString());
}

const SectionRows results([] { return resultFor("vkdnssd.dll"); }, "");
const SectionRows lines(lineWithMessages, "RefCount for vkdnssd.dll: ");
const char failed[] = "failed to get refCount!\n";

QByteArray sharedDlls(const QByteArray &values = QByteArray())
{
    return machineKey("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs") + values;
}

/// Counts are registered under the path of Windows, which is C:\Windows on all tested systems.
const QByteArray systemFile(R"({"GetSystemWindowsDirectory": "C:\\Windows"})");
const QByteArray valueName(R"(C:\\Windows\\system32\\vkdnssd.dll)");

void countRows()
{
    const auto row = [](const char *name, const QByteArray &registry, bool known, uint count) {
        results.text(name, {registry, systemFile}, known ? "known: " + QString::number(count) + '\n' : unknown);
    };
    row("a count", sharedDlls(numberValue(valueName, 3)), true, 3);
    row("a count of 0 is one", sharedDlls(numberValue(valueName, 0)), true, 0);
    row("the highest count", sharedDlls(numberValue(valueName, 0xffffffff)), true, 0xffffffff);
    row("Windows and System32 in another case", sharedDlls(numberValue(R"(c:\\WINDOWS\\System32\\VKDNSSD.DLL)", 4)), true, 4);
    row("no list of shared DLLs: no warning", "", false, poison);
    row("a DLL without a count: no warning", sharedDlls(), false, poison);
    row("another DLL", sharedDlls(numberValue(R"(C:\\Windows\\system32\\dnssd.dll)", 3)), false, poison);
    row("the DLL in another folder", sharedDlls(numberValue(R"(C:\\Windows\\SysWOW64\\vkdnssd.dll)", 3)), false, poison);
    row("the DLL without a folder", sharedDlls(numberValue("vkdnssd.dll", 3)), false, poison);
    row("a count of type REG_BINARY", sharedDlls(binaryValue(valueName, QByteArray("\2\0\0\0", 4))), true, 2);
    row("two bytes: the low bytes, the others are 0", sharedDlls(binaryValue(valueName, "\x01\x02")), true, 513);
    row("no bytes: 0", sharedDlls(binaryValue(valueName, "")), true, 0);
    row("five bytes are not a count", sharedDlls(binaryValue(valueName, QByteArray(5, '\1'))), false, poison);
    row("a REG_SZ of one character: its bytes are the count", sharedDlls(textValue(valueName, "1")), true, 0x31);
    row("a longer REG_SZ is not a count", sharedDlls(textValue(valueName, "1234")), false, poison);
    const auto line = [](const QString &name, const QByteArray &registry, const QString &text) {
        lines.text("line: " + name, {registry, systemFile}, text);
    };
    line("a count", sharedDlls(numberValue(valueName, 3)), "3\n");
    line("the count is unsigned", sharedDlls(numberValue(valueName, 0xffffffff)), "4294967295\n");
    line("none", "", failed);
}

#ifdef SIMULATED_WINDOWS

// The name of the queried value, for Windows directories and DLLs.
void valueNameRows()
{
    const auto row = [](const char *name, const QString &directory, const QString &dllName, const QString &queried) {
        machine::Machine machine
            = DescribedWindows::parse(sharedDlls(numberValue(QString(queried).replace('\\', "\\\\").toLatin1(), 7)), "{}");
        machine.system.GetSystemWindowsDirectory.value = directory;
        const auto resultAndValue = [=] {
            const QString result = resultFor(dllName);
            return result + simulated::journal().at(2).value;
        };
        SectionRows(resultAndValue, "").text(name, machine, "known: 7\n" + queried);
    };
    const QString longest(1023, 'w');
    row("another drive", "D:\\WinNT", "a.dll", "D:\\WinNT\\system32\\a.dll");
    row("a drive's root", "C:\\", "a.dll", "C:\\\\system32\\a.dll");
    row("1023 units", longest, "a.dll", longest + "\\system32\\a.dll");
    row("Quirk: a first placeholder in the directory is replaced with the DLL", "C:\\%1", "a.dll", "C:\\a.dll\\system32\\%2");
    row("Quirk: a second placeholder in the directory is replaced with the DLL too", "C:\\%2", "a.dll", "C:\\a.dll\\system32\\a.dll");
    row("a placeholder in the DLL's name is not replaced", "C:\\Windows", "%1%2.dll", "C:\\Windows\\system32\\%1%2.dll");
    row("a character beyond Latin-1 becomes a question mark", "C:\\" + QString(QChar(0x4e00)), "a.dll",
        "C:\\?\\system32\\a.dll");
}

const QString warning = "warning: velkor::SystemInfo::WinSysInfo::refCountSharedDll ";

// The registry is not queried.
void warningRows()
{
    const auto row = [](const char *name, const QByteArray &system, const QString &message) {
        const Described machine(sharedDlls(numberValue(valueName, 3)), system);
        results.text(name, machine, unknown + warning + message);
        results.calls(QString("calls: ") + name, machine, "GetSystemWindowsDirectoryW 1024\n");
        lines.text(QString("line: ") + name, machine, failed + warning + message);
    };
    row("a Windows directory that is too long", R"({"GetSystemWindowsDirectory": ")" + QByteArray(1024, 'w') + "\"}",
        "buffer for sysDir too small, need 1025\n");
    row("a Windows directory that is far too long", R"({"GetSystemWindowsDirectory": ")" + QByteArray(70000, 'w') + "\"}",
        "buffer for sysDir too small, need 70001\n");
    row("no Windows directory", "{}", "GetSystemWindowsDirectory returned a 0 len string\n");
    row("an empty Windows directory", R"({"GetSystemWindowsDirectory": ""})",
        "GetSystemWindowsDirectory returned a 0 len string\n");
}

void callRows()
{
    const Described three(sharedDlls(numberValue(valueName, 3)), systemFile);
    results.calls("calls", three,
                  "GetSystemWindowsDirectoryW 1024\n"
                      + keyCalls("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs",
                                 {"C:\\Windows\\system32\\vkdnssd.dll 4"}));
    lines.failure("GetSystemWindowsDirectory() fails: a warning", three, "GetSystemWindowsDirectoryW", 0,
                  failed + warning + "GetSystemWindowsDirectory returned a 0 len string\n");
    lines.failure("the list cannot be opened: no warning", three, "RegOpenKeyExA", 0, failed);
    lines.failure("the count cannot be read: no warning", three, "RegQueryValueExA", 0, failed);
    lines.failure("the list cannot be closed: the text is unchanged", three, "RegCloseKey", 0, "3\n");
}

#endif

void addRows()
{
    countRows();
#ifdef SIMULATED_WINDOWS
    valueNameRows();
    warningRows();
    callRows();
#endif
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
