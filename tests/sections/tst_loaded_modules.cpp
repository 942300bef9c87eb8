// loadedModules() and loadedModulesText()

#include "section_rows.h"
#include "win/windows_sections.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QRegularExpression>

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const char heading[] = "Loaded modules/DLLs:\n";

/// A line for each module.
QString lines(const QStringList &modules)
{
    return modules.join('\n') + (modules.isEmpty() ? "" : "\n");
}

const SectionRows section(loadedModulesText, heading);
const SectionRows list([] { return lines(loadedModules()); }, "");

Described machineOf(const QStringList &names)
{
    machine::Machine machine;
    machine.system.EnumProcessModules.value.emplace(names.begin(), names.end());
    return machine;
}

/// The names "0", "1" and so on.
QStringList numbered(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names += QString::number(i);
    return names;
}
void nameRows()
{
    const auto row = [](const char *name, const QByteArray &modules, const QStringList &expected) {
        const Described machine("", "{\"EnumProcessModules\": " + modules + "}");
        list.text(name, machine, lines(expected));
        section.text(QString("lines: ") + name, machine, lines(expected));
    };
    row("five modules, the program first", R"(["h.exe", "ntdll.dll", "kernel32.dll", "a.dll", "B.dll"])",
        {"h.exe", "ntdll.dll", "kernel32.dll", "a.dll", "B.dll"});
    row("no module", "[]", {});
    row("names are neither sorted nor deduplicated", R"(["z", "a", "Z", "a"])", {"z", "a", "Z", "a"});
    row("an unreadable name is left out", R"(["a", null, "c"])", {"a", "c"});
    row("an unreadable name first", R"([null, "b"])", {"b"});
    row("unreadable names only", "[null, null]", {});
    row("placeholders are not replaced", R"(["%1 %2 %99"])", {"%1 %2 %99"});
    row("characters outside the code page", R"(["\u4e00"])", {QString(QChar(0x4e00))});
    row("a byte-order mark is a character", R"(["\ufeffa"])", {QChar(0xfeff) + QString("a")});
    row("259 characters", "[\"" + QByteArray(259, 'm') + "\"]", {QString(259, 'm')});
    row("260 characters are truncated to the buffer", "[\"" + QByteArray(260, 'm') + "\", \"b\"]",
        {QString(259, 'm'), "b"});
    list.text("no list", "", "");
    section.text("lines: no list", "", "");
    list.text("1023 modules: all", machineOf(numbered(1023)), lines(numbered(1023)));
    list.text("1024 modules: all", machineOf(numbered(1024)), lines(numbered(1024)));
    list.text("1025 modules: the first 1024", machineOf(numbered(1025)), lines(numbered(1024)));
    list.text("5000 modules: the first 1024", machineOf(numbered(5000)), lines(numbered(1024)));
    Described unreadable = machineOf(numbered(1030));
    unreadable.machine.system.EnumProcessModules.value->front().reset();
    list.text("1025 modules, one of which has no name: the first 1024 without it", unreadable, lines(numbered(1024).mid(1)));
}

/// The calls for a process of that many modules.
QString callsFor(int modules)
{
    QString calls = "EnumProcessModules 8192\n";
    for (int i = 0; i < modules; ++i)
        calls += QString("GetModuleFileNameExW \"%1\" 260\n").arg(i);
    return calls;
}

void callRows()
{
    list.calls("calls", {"", R"({"EnumProcessModules": ["a", null, "c"]})"}, callsFor(3));
    for (const int count : {1, 2, 7, 8, 9, 100, 1023, 1024, 1025})
        list.calls(QString("calls for %1").arg(count), machineOf(numbered(count)), callsFor(std::min(count, 1024)));
    const QStringList names {"C:\\Host\\host.exe", "C:\\Windows\\ntdll.dll", "C:\\Windows\\kernel32.dll", "C:\\Host\\a.dll",
                             "C:\\Host\\B.dll"};
    const auto withoutName = [&](const char *name, int index) {
        QStringList others = names;
        others.removeAt(index);
        list.failure(name, machineOf(names), "GetModuleFileNameExW", index, lines(others));
    };
    list.failure("EnumProcessModules() fails", machineOf(names), "EnumProcessModules", 0, "");
    withoutName("GetModuleFileNameEx() of the first module fails", 0);
    withoutName("GetModuleFileNameEx() of a module in the middle fails", 2);
    withoutName("GetModuleFileNameEx() of the last module fails", 4);
}

void modulesOfThisProcess()
{
    const QStringList modules = loadedModules();
    const auto named = [&](const char *pattern) {
        return modules.filter(QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption)).size();
    };
    QVERIFY(modules.size() > 5);
    QCOMPARE(modules.first().toLower(), QDir::toNativeSeparators(QCoreApplication::applicationFilePath()).toLower());
    QCOMPARE(named("\\\\Qt5Core\\.dll$"), 1);
    QCOMPARE(named("\\\\kernel32\\.dll$"), 1);
    COMPARE_TEXT(loadedModulesText(), heading + lines(modules));
}

void addRows()
{
    if (!windowsIsSimulated)
        return addTestRow("modules of this process", modulesOfThisProcess);
    nameRows();
    callRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
