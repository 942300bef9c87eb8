// someEnvironmentVariables()

#include "section_rows.h"
#include "wide_text.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "unterminated_texts.h"
#endif

#include <QtCore/QMap>

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

using Variables = QMap<QString, QString>;

const char heading[] = "Some environment variables:\n";
const SectionRows rows(someEnvironmentVariables, heading);

const Variables allVariables {{"OS", "Windows_NT"},
                              {"PATH", "C:\\Windows;C:\\Tools"},
                              {"HOMEPATH", "\\Users\\anna"},
                              {"TEMP", "C:\\Temp"},
                              {"PROCESSOR_IDENTIFIER", "Intel64 Family 6"}};

const QStringList allLines {"OS       = Windows_NT\n", "PATH     = C:\\Windows;C:\\Tools\n", "HOMEPATH = \\Users\\anna\n",
                            "TEMP     = C:\\Temp\n", "PROCESSOR_IDENTIFIER = Intel64 Family 6\n"};

/// All lines, one of them replaced.
QString linesWith(int index, const QString &line)
{
    QStringList lines = allLines;
    lines[index] = line;
    return lines.join(QString());
}

Variables with(const char *name, const QString &value)
{
    Variables variables = allVariables;
    variables[name] = value;
    return variables;
}

Variables without(const char *name)
{
    Variables variables = allVariables;
    variables.remove(name);
    return variables;
}

#ifdef SIMULATED_WINDOWS

Described machineOf(const Variables &variables)
{
    machine::Machine machine;
    machine.system.environment = variables;
    return machine;
}

void addText(const char *name, const Variables &variables, const QString &lines)
{
    rows.text(name, machineOf(variables), lines);
}

#else

/// The text when exactly these variables are set.
QString textOf(const Variables &variables)
{
    Variables before;
    for (const QString &name : allVariables.keys()) {
        if (qEnvironmentVariableIsSet(name.toLatin1().constData()))
            before[name] = qEnvironmentVariable(name.toLatin1().constData());
        SetEnvironmentVariableW(wide(name), variables.contains(name) ? wide(variables[name]) : nullptr);
    }
    const QString text = someEnvironmentVariables();
    for (const QString &name : allVariables.keys())
        SetEnvironmentVariableW(wide(name), before.contains(name) ? wide(before[name]) : nullptr);
    return text;
}

void addText(const char *name, const Variables &variables, const QString &lines)
{
    addTestRow(name, [=] { COMPARE_TEXT(textOf(variables), heading + lines); });
}

#endif

void textRows()
{
    addText("all", allVariables, allLines.join(QString()));
    addText("no variable: the templates are unchanged", {},
            "OS       = %OS%\nPATH     = %PATH%\nHOMEPATH = %HOMEPATH%\nTEMP     = %TEMP%\n"
            "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%\n");
    addText("OS is not set", without("OS"), linesWith(0, "OS       = %OS%\n"));
    addText("PATH is not set", without("PATH"), linesWith(1, "PATH     = %PATH%\n"));
    addText("HOMEPATH is not set", without("HOMEPATH"), linesWith(2, "HOMEPATH = %HOMEPATH%\n"));
    addText("TEMP is not set", without("TEMP"), linesWith(3, "TEMP     = %TEMP%\n"));
    addText("PROCESSOR_IDENTIFIER is not set", without("PROCESSOR_IDENTIFIER"),
            linesWith(4, "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%\n"));
    addText("a value is not expanded again", with("PATH", "%TEMP%;x"), linesWith(1, "PATH     = %TEMP%;x\n"));
    addText("placeholders are not replaced", with("TEMP", "%1 %2 %99 %L1"), linesWith(3, "TEMP     = %1 %2 %99 %L1\n"));
    addText("characters outside the code page", with("TEMP", QString(QChar(0x4e00))),
            linesWith(3, QString("TEMP     = ") + QChar(0x4e00) + '\n'));
    // The buffer holds 32768 units, the terminator among them.
    addText("32766 characters", with("PATH", QString(32755, 'p')), linesWith(1, "PATH     = " + QString(32755, 'p') + '\n'));
    if (windowsIsSimulated) // Wine drops the last character
        addText("32767 characters fit", with("PATH", QString(32756, 'p')),
                linesWith(1, "PATH     = " + QString(32756, 'p') + '\n'));
}

#ifdef SIMULATED_WINDOWS

void simulatedRows()
{
    const Described all = machineOf(allVariables);
    const QStringList names = {"OS", "PATH", "HOMEPATH", "TEMP", "PROCESSOR_IDENTIFIER"};
    QStringList failed;
    for (int i = 0; i < 5; ++i)
        failed += QString("Expand env var %1 failed!\n").arg(i);
    rows.withoutMachine(failed.join(QString()));
    rows.text("value names are case-insensitive",
              {"", R"({"environment": {"os": "a", "Path": "b", "homePath": "c", "Temp": "d", "Processor_Identifier": "e",
                                       "OTHER": "f"}})"},
              "OS       = a\nPATH     = b\nHOMEPATH = c\nTEMP     = d\nPROCESSOR_IDENTIFIER = e\n");
    for (int i = 0; i < 5; ++i) {
        machine::Machine machine = all.machine;
        machine.system.expansionErrors[names.at(i)] = ERROR_NOT_ENOUGH_MEMORY;
        rows.text(QString("template %1 fails: the line has only its number").arg(i), machine, linesWith(i, failed.at(i)));
        rows.failure(QString("call %1 fails").arg(i), all, "ExpandEnvironmentStringsW", i, linesWith(i, failed.at(i)));
    }
    addText("32768 characters do not fit", with("PATH", QString(32757, 'x')),
            linesWith(1, "Expand env var 1, buffer too small, would need 32769\n"));
    addText("a far longer value", with("PROCESSOR_IDENTIFIER", QString(99977, 'x')),
            linesWith(4, "Expand env var 4, buffer too small, would need 100001\n"));
    // The section removes the last unit only if it is U+0000.
    addTestRow("without a terminators", [] {
        const DescribedWindows windows(machineOf(allVariables).machine);
        const simulated::UnterminatedTexts unterminated;
        COMPARE_TEXT(someEnvironmentVariables(), heading + allLines.join(QString()));
    });
    rows.calls("calls", all, R"(HeapAlloc 65536
ExpandEnvironmentStringsW "OS       = %OS%" 32768
ExpandEnvironmentStringsW "PATH     = %PATH%" 32768
ExpandEnvironmentStringsW "HOMEPATH = %HOMEPATH%" 32768
ExpandEnvironmentStringsW "TEMP     = %TEMP%" 32768
ExpandEnvironmentStringsW "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%" 32768
HeapFree
)");
    const SectionRows withoutTitle(someEnvironmentVariables, "");
    withoutTitle.failure("no memory: an empty text", all, "HeapAlloc", 0, "");
}

#endif

void addRows()
{
    textRows();
#ifdef SIMULATED_WINDOWS
    simulatedRows();
#endif
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
