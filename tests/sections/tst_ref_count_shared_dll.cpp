// refCountSharedDll() and its line: results, texts, warnings and calls.

#include "described_windows.h"
#include "registry_values.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

class SharedDllRefCountTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registered_data();
    void registered();
    void line_data();
    void line();
#ifdef SIMULATED_WINDOWS
    void windowsDirectories_data();
    void windowsDirectories();
    void warnings_data();
    void warnings();
    void calls();
    void failingCalls_data();
    void failingCalls();
#endif
};

namespace {

constexpr unsigned int untouched = 0xdeadbeef;

/// What goes through Qt's warning channel while it lives.
class Messages
{
public:
    Messages()
    {
        texts().clear();
        m_previous = qInstallMessageHandler(keep);
    }
    ~Messages() { qInstallMessageHandler(m_previous); }

    /// Each with its kind and with what it says of its place in the source.
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

struct Result
{
    bool known;
    unsigned int count;
    QStringList messages;
};

Result ask(const QString &dllName)
{
    const Messages messages;
    Result result {false, untouched, {}};
    result.known = refCountSharedDll(dllName, result.count);
    result.messages = messages.texts();
    return result;
}

QByteArray sharedDlls(const QByteArray &values = QByteArray())
{
    return machineKey("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs") + values;
}

/// Counts are registered under the path of Windows: C:\Windows on every system here.
const QByteArray systemFile(R"({"GetSystemWindowsDirectory": "C:\\Windows"})");
const QByteArray valueName(R"(C:\\Windows\\system32\\vkdnssd.dll)");

} // namespace

void SharedDllRefCountTest::registered_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<bool>("known");
    QTest::addColumn<uint>("count");
    const auto row = [](const char *what, const QByteArray &registry, bool known, uint count) {
        QTest::newRow(what) << registry << known << count;
    };
    row("a count", sharedDlls(numberValue(valueName, 3)), true, 3);
    row("a count of 0 is one", sharedDlls(numberValue(valueName, 0)), true, 0);
    row("the highest count", sharedDlls(numberValue(valueName, 0xffffffff)), true, 0xffffffff);
    row("Windows and System32 written otherwise", sharedDlls(numberValue(R"(c:\\WINDOWS\\System32\\VKDNSSD.DLL)", 4)), true, 4);
    row("no list of shared DLLs: silent", "", false, untouched);
    row("a DLL that no installer registered: silent", sharedDlls(), false, untouched);
    row("another DLL", sharedDlls(numberValue(R"(C:\\Windows\\system32\\dnssd.dll)", 3)), false, untouched);
    row("the DLL elsewhere", sharedDlls(numberValue(R"(C:\\Windows\\SysWOW64\\vkdnssd.dll)", 3)), false, untouched);
    row("the bare name", sharedDlls(numberValue("vkdnssd.dll", 3)), false, untouched);
    row("any type: binary data", sharedDlls(binaryValue(valueName, QByteArray("\2\0\0\0", 4))), true, 2);
    row("two bytes: the low ones, the others 0", sharedDlls(binaryValue(valueName, "\x01\x02")), true, 513);
    row("no bytes: 0", sharedDlls(binaryValue(valueName, "")), true, 0);
    row("five bytes are no count", sharedDlls(binaryValue(valueName, QByteArray(5, '\1'))), false, untouched);
    row("a text of one character: its bytes", sharedDlls(textValue(valueName, "1")), true, 0x31);
    row("a longer text is no count", sharedDlls(textValue(valueName, "1234")), false, untouched);
}

void SharedDllRefCountTest::registered()
{
    QFETCH(QByteArray, registry);
    QFETCH(bool, known);
    QFETCH(uint, count);
    const DescribedWindows windows(registry, systemFile);
    const Result result = ask("vkdnssd.dll");
    QCOMPARE(result.known, known);
    QCOMPARE(result.count, count);
    QCOMPARE(result.messages, QStringList());
}

void SharedDllRefCountTest::line_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a count") << sharedDlls(numberValue(valueName, 3)) << "RefCount for vkdnssd.dll: 3\n";
    QTest::newRow("the count is unsigned")
        << sharedDlls(numberValue(valueName, 0xffffffff)) << "RefCount for vkdnssd.dll: 4294967295\n";
    QTest::newRow("none") << QByteArray() << "RefCount for vkdnssd.dll: failed to get refCount!\n";
}

void SharedDllRefCountTest::line()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry, systemFile);
    const Messages messages;
    COMPARE_TEXT(refCountSharedDllText(), expected);
    QCOMPARE(messages.texts(), QStringList());
}

#ifdef SIMULATED_WINDOWS

void SharedDllRefCountTest::windowsDirectories_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("dllName");
    QTest::addColumn<QString>("asked"); // the value
    const QString longest(1023, 'w');
    QTest::newRow("another drive") << "D:\\WinNT"
                                   << "a.dll"
                                   << "D:\\WinNT\\system32\\a.dll";
    QTest::newRow("a drive's root") << "C:\\"
                                    << "a.dll"
                                    << "C:\\\\system32\\a.dll";
    QTest::newRow("1023 units") << longest << "a.dll" << longest + "\\system32\\a.dll";
    QTest::newRow("a first placeholder takes the DLL instead") << "C:\\%1"
                                                               << "a.dll"
                                                               << "C:\\a.dll\\system32\\%2";
    QTest::newRow("a second placeholder takes the DLL too") << "C:\\%2"
                                                            << "a.dll"
                                                            << "C:\\a.dll\\system32\\a.dll";
    QTest::newRow("a placeholder in the DLL's name stays") << "C:\\Windows"
                                                           << "%1%2.dll"
                                                           << "C:\\Windows\\system32\\%1%2.dll";
    QTest::newRow("a character beyond Latin-1 becomes a question mark")
        << "C:\\" + QString(QChar(0x4e00)) << "a.dll"
        << "C:\\?\\system32\\a.dll";
}

void SharedDllRefCountTest::windowsDirectories()
{
    QFETCH(QString, directory);
    QFETCH(QString, dllName);
    QFETCH(QString, asked);
    machine::Machine machine = DescribedWindows::parse(
        sharedDlls(numberValue(QString(asked).replace('\\', "\\\\").toLatin1(), 7)), "{}");
    machine.system.GetSystemWindowsDirectory.value = directory;
    const DescribedWindows windows(machine);
    const Result result = ask(dllName);
    QCOMPARE(simulated::journal().at(2).value, asked);
    QVERIFY(result.known);
    QCOMPARE(result.count, 7u);
    QCOMPARE(result.messages, QStringList());
}

void SharedDllRefCountTest::warnings_data()
{
    QTest::addColumn<QByteArray>("systemFile");
    QTest::addColumn<QString>("message");
    const QString function("velkor::SystemInfo::WinSysInfo::refCountSharedDll");
    QTest::newRow("a Windows directory that is too long")
        << R"({"GetSystemWindowsDirectory": ")" + QByteArray(1024, 'w') + "\"}"
        << function + " buffer for sysDir too small, need 1025\n";
    QTest::newRow("one that is far too long")
        << R"({"GetSystemWindowsDirectory": ")" + QByteArray(70000, 'w') + "\"}"
        << function + " buffer for sysDir too small, need 70001\n";
    QTest::newRow("no Windows directory")
        << QByteArray("{}") << function + " GetSystemWindowsDirectory returned a 0 len string\n";
    QTest::newRow("an empty Windows directory")
        << QByteArray(R"({"GetSystemWindowsDirectory": ""})")
        << function + " GetSystemWindowsDirectory returned a 0 len string\n";
}

void SharedDllRefCountTest::warnings()
{
    QFETCH(QByteArray, systemFile);
    QFETCH(QString, message);
    const DescribedWindows windows(sharedDlls(numberValue(valueName, 3)), systemFile);
    const Result result = ask("vkdnssd.dll");
    QCOMPARE(result.known, false);
    QCOMPARE(result.count, untouched);
    QCOMPARE(result.messages, QStringList("warning: " + message));
    QCOMPARE(simulated::journal().size(), std::size_t(1)); // the registry is not asked
    const Messages messages;
    COMPARE_TEXT(refCountSharedDllText(), QStringLiteral("RefCount for vkdnssd.dll: failed to get refCount!\n"));
    QCOMPARE(messages.texts(), QStringList("warning: " + message));
}

void SharedDllRefCountTest::calls()
{
    const DescribedWindows windows(sharedDlls(numberValue(valueName, 3)), systemFile);
    ask("vkdnssd.dll");
    COMPARE_TEXT(journalText(), R"(GetSystemWindowsDirectoryW 1024
RegOpenKeyExA HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\SharedDLLs 0x20019
RegQueryValueExA HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\SharedDLLs "C:\Windows\system32\vkdnssd.dll" 4
RegCloseKey HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\SharedDLLs
)");
    QCOMPARE(handleProblems(), QString());
}

void SharedDllRefCountTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QStringList>("messages");
    const QString failed("RefCount for vkdnssd.dll: failed to get refCount!\n");
    QTest::newRow("the Windows directory: a warning")
        << QByteArray("GetSystemWindowsDirectoryW") << failed
        << QStringList("warning: velkor::SystemInfo::WinSysInfo::refCountSharedDll "
                       "GetSystemWindowsDirectory returned a 0 len string\n");
    QTest::newRow("the list does not open: silent") << QByteArray("RegOpenKeyExA") << failed << QStringList();
    QTest::newRow("the count cannot be read: silent") << QByteArray("RegQueryValueExA") << failed << QStringList();
    QTest::newRow("the list does not close: nothing shows")
        << QByteArray("RegCloseKey") << "RefCount for vkdnssd.dll: 3\n"
        << QStringList();
}

void SharedDllRefCountTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(QString, expected);
    QFETCH(QStringList, messages);
    const machine::Machine machine = DescribedWindows::parse(sharedDlls(numberValue(valueName, 3)), systemFile);
    QStringList seen;
    const auto section = [&] {
        const Messages kept;
        const QString text = refCountSharedDllText();
        seen = kept.texts();
        return text;
    };
    COMPARE_TEXT(textWithFailingCall(machine, call, 0, section), expected);
    QCOMPARE(seen, messages);
}

#endif

TEST_WITH_CORE_APPLICATION(SharedDllRefCountTest);
#include "tst_ref_count_shared_dll.moc"
