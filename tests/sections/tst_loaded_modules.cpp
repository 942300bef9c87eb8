// loadedModules() and its lines: texts and calls.

#include "described_windows.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

using namespace velkor::SystemInfo::WinSysInfo;

class LoadedModulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef SIMULATED_WINDOWS
    void names_data();
    void names();
    void noList();
    void manyModules_data();
    void manyModules();
    void unreadableAmongMany();
    void calls();
    void callsForMany_data();
    void callsForMany();
    void failingCalls_data();
    void failingCalls();
#else
    void modulesOfThisProcess();
#endif
};

namespace {

const char title[] = "Loaded modules/DLLs:\n";

} // namespace

#ifdef SIMULATED_WINDOWS

namespace {

using Modules = std::vector<std::optional<QString>>;

machine::Machine machineOf(const Modules &modules)
{
    machine::Machine machine;
    machine.system.EnumProcessModules.value = modules;
    return machine;
}

const QStringList fiveNames {"C:\\Host\\host.exe", "C:\\Windows\\ntdll.dll", "C:\\Windows\\kernel32.dll",
                             "C:\\Host\\a.dll",
                             "C:\\Host\\B.dll"};

Modules fiveModules()
{
    return Modules(fiveNames.begin(), fiveNames.end());
}

/// "0", "1" and so on.
QStringList numbered(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names += QString::number(i);
    return names;
}

} // namespace

void LoadedModulesTest::names_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *what, const QByteArray &list, const QStringList &expected) {
        QTest::newRow(what) << list << expected;
    };
    row("five modules, the program's own file first", R"(["h.exe", "ntdll.dll", "kernel32.dll", "a.dll", "B.dll"])",
        {"h.exe", "ntdll.dll", "kernel32.dll", "a.dll", "B.dll"});
    row("no module", "[]", {});
    row("neither sorted nor made unique", R"(["z", "a", "Z", "a"])", {"z", "a", "Z", "a"});
    row("an unreadable name is left out", R"(["a", null, "c"])", {"a", "c"});
    row("an unreadable name first", R"([null, "b"])", {"b"});
    row("unreadable names only", "[null, null]", {});
    row("placeholders stay", R"(["%1 %2 %99"])", {"%1 %2 %99"});
    row("characters beyond the code page", R"(["\u4e00"])", {QString(QChar(0x4e00))});
    row("a byte-order mark is a character", R"(["\ufeffa"])", {QChar(0xfeff) + QString("a")});
    row("259 characters", "[\"" + QByteArray(259, 'm') + "\"]", {QString(259, 'm')});
    row("260 characters: as many as the buffer holds", "[\"" + QByteArray(260, 'm') + "\", \"b\"]",
        {QString(259, 'm'), "b"});
}

void LoadedModulesTest::names()
{
    QFETCH(QByteArray, list);
    QFETCH(QStringList, expected);
    const DescribedWindows windows("", "{\"EnumProcessModules\": " + list + "}");
    QCOMPARE(loadedModules(), expected);
    COMPARE_TEXT(loadedModulesText(), title + expected.join('\n') + (expected.isEmpty() ? "" : "\n"));
}

void LoadedModulesTest::noList()
{
    const DescribedWindows windows("", "{}");
    QCOMPARE(loadedModules(), QStringList());
    COMPARE_TEXT(loadedModulesText(), QString(title));
}

void LoadedModulesTest::manyModules_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("expected");
    QTest::newRow("1023: all") << 1023 << 1023;
    QTest::newRow("1024: all") << 1024 << 1024;
    QTest::newRow("1025: the first 1024") << 1025 << 1024;
    QTest::newRow("5000: the first 1024") << 5000 << 1024;
}

void LoadedModulesTest::manyModules()
{
    QFETCH(int, count);
    QFETCH(int, expected);
    const QStringList names = numbered(count);
    const DescribedWindows windows(machineOf(Modules(names.begin(), names.end())));
    QCOMPARE(loadedModules(), numbered(expected));
}

void LoadedModulesTest::unreadableAmongMany()
{
    // A module that cannot be named makes no room for one beyond the array.
    const QStringList names = numbered(1030);
    Modules modules(names.begin(), names.end());
    modules[0].reset();
    const DescribedWindows windows(machineOf(modules));
    QCOMPARE(loadedModules(), numbered(1024).mid(1));
}

void LoadedModulesTest::calls()
{
    const DescribedWindows windows("", R"({"EnumProcessModules": ["a", null, "c"]})");
    loadedModules();
    COMPARE_TEXT(journalText(), R"(EnumProcessModules 8192
GetModuleFileNameExW "0" 260
GetModuleFileNameExW "1" 260
GetModuleFileNameExW "2" 260
)");
}

// One for each module that Windows lists and none more: no module is the program itself.
void LoadedModulesTest::callsForMany_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("named");
    for (const int count : {1, 2, 7, 8, 9, 100, 1023, 1024})
        QTest::addRow("%d", count) << count << count;
    QTest::newRow("1025") << 1025 << 1024;
}

void LoadedModulesTest::callsForMany()
{
    QFETCH(int, count);
    QFETCH(int, named);
    const DescribedWindows windows(machineOf(Modules(std::size_t(count), QString("m"))));
    loadedModules();
    QCOMPARE(simulated::journal().size(), std::size_t(1 + named));
    QCOMPARE(simulated::journal().back().value, QString::number(named - 1));
}

void LoadedModulesTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("expected");
    const auto without = [](int index) {
        QStringList names = fiveNames;
        names.removeAt(index);
        return names;
    };
    QTest::newRow("the list") << QByteArray("EnumProcessModules") << 0 << QStringList();
    QTest::newRow("the first name") << QByteArray("GetModuleFileNameExW") << 0 << without(0);
    QTest::newRow("a name between") << QByteArray("GetModuleFileNameExW") << 2 << without(2);
    QTest::newRow("the last name") << QByteArray("GetModuleFileNameExW") << 4 << without(4);
}

void LoadedModulesTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QStringList, expected);
    const auto section = [] { return loadedModules().join('\n'); };
    COMPARE_TEXT(textWithFailingCall(machineOf(fiveModules()), call, number, section), expected.join('\n'));
}

#else

void LoadedModulesTest::modulesOfThisProcess()
{
    const QStringList modules = loadedModules();
    QVERIFY(modules.size() > 5);
    QCOMPARE(modules.first().toLower(), QDir::toNativeSeparators(QCoreApplication::applicationFilePath()).toLower());
    QCOMPARE(modules.filter(QRegularExpression("\\\\Qt5Core\\.dll$",
                                               QRegularExpression::CaseInsensitiveOption))
                 .size(),
             1);
    QCOMPARE(modules.filter(QRegularExpression("\\\\kernel32\\.dll$",
                                               QRegularExpression::CaseInsensitiveOption))
                 .size(),
             1);
    COMPARE_TEXT(loadedModulesText(), title + modules.join('\n') + '\n');
}

#endif

TEST_WITH_CORE_APPLICATION(LoadedModulesTest);
#include "tst_loaded_modules.moc"
