// someEnvironmentVariables(): texts and calls.

#include "described_windows.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "unterminated_texts.h"
#endif

#include <QtCore/QMap>
#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

using Variables = QMap<QString, QString>;

class EnvironmentVariablesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
#ifdef SIMULATED_WINDOWS
    void nothingKnown();
    void namesWithoutRegardToCase();
    void describedFailures_data();
    void describedFailures();
    void withoutTerminators();
    void calls();
    void failingCalls_data();
    void failingCalls();
    void noMemory();
#endif
};

namespace {

const char title[] = "Some environment variables:\n";

const Variables allVariables {{"OS", "Windows_NT"},
                              {"PATH", "C:\\Windows;C:\\Tools"},
                              {"HOMEPATH", "\\Users\\anna"},
                              {"TEMP", "C:\\Temp"},
                              {"PROCESSOR_IDENTIFIER", "Intel64 Family 6"}};

const QStringList allLines {"OS       = Windows_NT\n", "PATH     = C:\\Windows;C:\\Tools\n", "HOMEPATH = \\Users\\anna\n",
                            "TEMP     = C:\\Temp\n", "PROCESSOR_IDENTIFIER = Intel64 Family 6\n"};

/// All lines, one of them another.
QString linesWith(int index, const QString &line)
{
    QStringList lines = allLines;
    lines[index] = line;
    return lines.join(QString());
}

#ifdef SIMULATED_WINDOWS

machine::Machine machineOf(const Variables &variables)
{
    machine::Machine machine;
    machine.system.environment = variables;
    return machine;
}

QString textOf(const Variables &variables)
{
    const DescribedWindows windows(machineOf(variables));
    return someEnvironmentVariables();
}

#else

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

/// The section in an environment of which these are the variables that it shows.
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

#endif

} // namespace

void EnvironmentVariablesTest::text_data()
{
    QTest::addColumn<Variables>("variables");
    QTest::addColumn<QString>("lines");
    const auto row = [](const char *what, const Variables &variables, const QString &lines) {
        QTest::newRow(what) << variables << lines;
    };
    const auto with = [](const char *name, const QString &value) {
        Variables variables = allVariables;
        variables[name] = value;
        return variables;
    };
    const auto without = [](const char *name) {
        Variables variables = allVariables;
        variables.remove(name);
        return variables;
    };
    row("all", allVariables, allLines.join(QString()));
    row("none: the templates as they stand", {},
        "OS       = %OS%\nPATH     = %PATH%\nHOMEPATH = %HOMEPATH%\nTEMP     = %TEMP%\n"
        "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%\n");
    row("OS is not set", without("OS"), linesWith(0, "OS       = %OS%\n"));
    row("PATH is not set", without("PATH"), linesWith(1, "PATH     = %PATH%\n"));
    row("HOMEPATH is not set", without("HOMEPATH"), linesWith(2, "HOMEPATH = %HOMEPATH%\n"));
    row("TEMP is not set", without("TEMP"), linesWith(3, "TEMP     = %TEMP%\n"));
    row("PROCESSOR_IDENTIFIER is not set", without("PROCESSOR_IDENTIFIER"),
        linesWith(4, "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%\n"));
    row("a value is not expanded again", with("PATH", "%TEMP%;x"), linesWith(1, "PATH     = %TEMP%;x\n"));
    row("placeholders stay", with("TEMP", "%1 %2 %99 %L1"), linesWith(3, "TEMP     = %1 %2 %99 %L1\n"));
    row("characters beyond the code page", with("TEMP", QString(QChar(0x4e00))),
        linesWith(3, QString("TEMP     = ") + QChar(0x4e00) + '\n'));
    // The buffer holds 32768 units, the terminator among them.
    row("32766 characters", with("PATH", QString(32755, 'p')), linesWith(1, "PATH     = " + QString(32755, 'p') + '\n'));
#ifdef SIMULATED_WINDOWS // Wine drops the last one
    row("32767 characters fit", with("PATH", QString(32756, 'p')),
        linesWith(1, "PATH     = " + QString(32756, 'p') + '\n'));
#endif
}

void EnvironmentVariablesTest::text()
{
    QFETCH(Variables, variables);
    QFETCH(QString, lines);
    COMPARE_TEXT(textOf(variables), title + lines);
}

#ifdef SIMULATED_WINDOWS

void EnvironmentVariablesTest::nothingKnown()
{
    simulated::installNothing();
    COMPARE_TEXT(someEnvironmentVariables(),
                 title + QStringLiteral("Expand env var 0 failed!\nExpand env var 1 failed!\nExpand env var 2 failed!\n"
                                        "Expand env var 3 failed!\nExpand env var 4 failed!\n"));
}

void EnvironmentVariablesTest::namesWithoutRegardToCase()
{
    const DescribedWindows windows("", R"({"environment": {"os": "a", "Path": "b", "homePath": "c", "Temp": "d",
                                          "Processor_Identifier": "e", "OTHER": "f"}})");
    COMPARE_TEXT(someEnvironmentVariables(),
                 title + QStringLiteral("OS       = a\nPATH     = b\nHOMEPATH = c\nTEMP     = d\nPROCESSOR_IDENTIFIER = e\n"));
}

void EnvironmentVariablesTest::describedFailures_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("lines");
    const QByteArray start(R"({"environment": {"OS": "a", "PATH": "b", "HOMEPATH": "c", "TEMP": "d", "PROCESSOR_IDENTIFIER": "e")");
    const QStringList lines {"OS       = a\n", "PATH     = b\n", "HOMEPATH = c\n", "TEMP     = d\n",
                             "PROCESSOR_IDENTIFIER = e\n"};
    for (int i = 0; i < 5; ++i) {
        QStringList expected = lines;
        expected[i] = QStringLiteral("Expand env var %1 failed!\n").arg(i);
        QTest::newRow(qPrintable(QStringLiteral("template %1 fails: its number alone names it").arg(i)))
            << start + R"(}, "ExpandEnvironmentStrings": {")" + QByteArray::number(i) + R"(": {"error": 8}}})"
            << expected.join(QString());
    }
    const auto longValue = [&](const char *what, const QByteArray &name, int index, int length, const QString &line) {
        QStringList expected = lines;
        expected[index] = line;
        QTest::newRow(what) << QByteArray(start).replace("\"" + name + "\": \"" + QByteArray(1, char('a' + index)),
                                                         "\"" + name + "\": \"" + QByteArray(length, 'x'))
                + "}}"
                            << expected.join(QString());
    };
    longValue("32768 characters do not fit", "PATH", 1, 32757,
              "Expand env var 1, buffer too small, would need 32769\n");
    longValue("a far longer one", "PROCESSOR_IDENTIFIER", 4, 99977,
              "Expand env var 4, buffer too small, would need 100001\n");
}

void EnvironmentVariablesTest::describedFailures()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, lines);
    const DescribedWindows windows("", system);
    COMPARE_TEXT(someEnvironmentVariables(), title + lines);
}

// The last unit goes only where it is a null.
void EnvironmentVariablesTest::withoutTerminators()
{
    const DescribedWindows windows(machineOf(allVariables));
    const simulated::UnterminatedTexts unterminated;
    COMPARE_TEXT(someEnvironmentVariables(), title + allLines.join(QString()));
}

void EnvironmentVariablesTest::calls()
{
    const DescribedWindows windows(machineOf(allVariables));
    someEnvironmentVariables();
    COMPARE_TEXT(journalText(), R"(HeapAlloc 65536
ExpandEnvironmentStringsW "OS       = %OS%" 32768
ExpandEnvironmentStringsW "PATH     = %PATH%" 32768
ExpandEnvironmentStringsW "HOMEPATH = %HOMEPATH%" 32768
ExpandEnvironmentStringsW "TEMP     = %TEMP%" 32768
ExpandEnvironmentStringsW "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%" 32768
HeapFree
)");
}

void EnvironmentVariablesTest::failingCalls_data()
{
    QTest::addColumn<int>("number");
    for (int i = 0; i < 5; ++i)
        QTest::newRow(qPrintable(QStringLiteral("call %1 fails").arg(i))) << i;
}

void EnvironmentVariablesTest::failingCalls()
{
    QFETCH(int, number);
    COMPARE_TEXT(textWithFailingCall(machineOf(allVariables), "ExpandEnvironmentStringsW", number,
                                     someEnvironmentVariables),
                 title + linesWith(number, QStringLiteral("Expand env var %1 failed!\n").arg(number)));
}

void EnvironmentVariablesTest::noMemory()
{
    // Not even the heading.
    COMPARE_TEXT(textWithFailingCall(machineOf(allVariables), "HeapAlloc", 0, someEnvironmentVariables), QString());
}

#endif

TEST_WITH_CORE_APPLICATION(EnvironmentVariablesTest);
#include "tst_environment_variables.moc"
