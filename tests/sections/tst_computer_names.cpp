// computerNames(): texts and calls.

#include "described_windows.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "journal_lines.h"
#endif
#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

class ComputerNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef SIMULATED_WINDOWS
    void text_data();
    void text();
    void workstation();
    void withoutAMachine();
    void calls();
    void failingCalls_data();
    void failingCalls();
#else
    void whatWindowsAnswers();
#endif
};

namespace {

const QString title = "Computer name\n";

struct Label
{
    COMPUTER_NAME_FORMAT format;
    const char *text;
};

// In the order of the lines.
const Label labels[] = {
    {ComputerNameNetBIOS, "NetBios name:                 "},
    {ComputerNamePhysicalNetBIOS, "Physical NetBios name:        "},
    {ComputerNameDnsDomain, "DNS domain:           "},
    {ComputerNamePhysicalDnsDomain, "Physical DNS domain:   "},
    {ComputerNameDnsFullyQualified, "DNS fully qualified:          "},
    {ComputerNamePhysicalDnsFullyQualified, "Physical DNS fully qualified: "},
    {ComputerNameDnsHostname, "hostname                      "},
    {ComputerNamePhysicalDnsHostname, "Physical hostname             "},
};

#ifdef SIMULATED_WINDOWS

QByteArray names(const QByteArray &byFormat)
{
    return "{\"GetComputerNameEx\": {" + byFormat + "}}";
}

/// One name, as the fully qualified one.
void addRow(const char *name, const QString &computer, bool shown)
{
    QTest::newRow(name) << names("\"3\": \"" + computer.toUtf8() + '"')
                        << title + (shown ? "DNS fully qualified:          " + computer + "\n" : QString());
}

const char eightNames[] = R"("0": "NB", "1": "host", "2": "domain", "3": "host.domain",
                             "4": "PNB", "5": "phost", "6": "pdomain", "7": "phost.pdomain")";

const QStringList eightLines = {
    "NetBios name:                 NB\n",
    "Physical NetBios name:        PNB\n",
    "DNS domain:           domain\n",
    "Physical DNS domain:   pdomain\n",
    "DNS fully qualified:          host.domain\n",
    "Physical DNS fully qualified: phost.pdomain\n",
    "hostname                      host\n",
    "Physical hostname             phost\n",
};

void formatRows()
{
    QTest::newRow("every name") << names(eightNames) << title + eightLines.join(QString());
    for (const Label &label : labels) {
        QTest::addRow("format %d alone", int(label.format))
            << names('"' + QByteArray::number(int(label.format)) + "\": \"name\"") << title + label.text + "name\n";
        QTest::addRow("format %d empty: its label and blanks", int(label.format))
            << names('"' + QByteArray::number(int(label.format)) + "\": \"\"") << title + label.text + "\n";
    }
    QTest::newRow("format 8 is not asked for") << names("\"8\": \"name\"") << title;
    QTest::newRow("no domain, a long name in it: the short names stay")
        << names(R"("0": "PC07", "2": "", "3": "pc07.example-domain.test", "7": "pc07.example-domain.test", "1": "pc07")")
        << title + "NetBios name:                 PC07\n"
                   "DNS domain:           \n"
                   "hostname                      pc07\n";
}

void lengthRows()
{
    addRow("15 characters fit", "pc07.example.de", true);
    addRow("16 characters do not", "pc007.example.de", false);
    addRow("17 characters do not", "pc0007.example.de", false);
    addRow("one character", "x", true);
    const QString pair = QString(QChar(0xd83d)) + QChar(0xde00); // one character, two units
    addRow("15 units fit", pair.repeated(7) + "x", true);
    addRow("16 units do not", pair.repeated(8), false);
}

void characterRows()
{
    addRow("placeholders stay", "%1 %2 %99 %L1", true);
    addRow("beyond ASCII", QString("b") + QChar(0xfc) + "ro-" + QChar(0x20ac), true);
    addRow("a leading U+FEFF is a character", QString(QChar(0xfeff)) + "pc", true);
    addRow("a leading U+FFFE is a character", QString(QChar(0xfffe)) + "pc", true);
    addRow("blanks stay", " pc ", true);
    QTest::newRow("as many units as the call reports, nulls too")
        << names(R"("3": "a\u0000b")") << title + "DNS fully qualified:          a" + QChar() + "b\n";
}

#endif

} // namespace

#ifdef SIMULATED_WINDOWS

void ComputerNamesTest::text_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected");
    QTest::newRow("an empty machine: the title alone") << QByteArray("{}") << title;
    QTest::newRow("the calls fail: the title alone") << names("\"error\": 1747") << title;
    formatRows();
    lengthRows();
    characterRows();
}

void ComputerNamesTest::text()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    const DescribedWindows windows("", system);
    COMPARE_TEXT(computerNames(), expected);
}

void ComputerNamesTest::workstation()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    COMPARE_TEXT(computerNames(), title + "NetBios name:                 BIRKENTAL-PC07\n"
                                          "Physical NetBios name:        BIRKENTAL-PC07\n"
                                          "DNS domain:           \n"
                                          "Physical DNS domain:   \n"
                                          "DNS fully qualified:          Birkental-PC07\n"
                                          "Physical DNS fully qualified: Birkental-PC07\n"
                                          "hostname                      Birkental-PC07\n"
                                          "Physical hostname             Birkental-PC07\n");
}

void ComputerNamesTest::withoutAMachine()
{
    simulated::installNothing();
    COMPARE_TEXT(computerNames(), title);
}

// One call for each name, with 16 units, no second try for a name that is too long.
void ComputerNamesTest::calls()
{
    const DescribedWindows windows("", names(R"("0": "a name far beyond the buffer", "4": "PC07")"));
    computerNames();
    QCOMPARE(journalLines(),
             QStringList({"GetComputerNameExW 0 16", "GetComputerNameExW 4 16", "GetComputerNameExW 2 16",
                          "GetComputerNameExW 6 16", "GetComputerNameExW 3 16", "GetComputerNameExW 7 16",
                          "GetComputerNameExW 1 16", "GetComputerNameExW 5 16"}));
}

void ComputerNamesTest::failingCalls_data()
{
    QTest::addColumn<int>("number");
    for (int i = 0; i < eightLines.size(); ++i)
        QTest::addRow("call %d fails: its line alone is missing", i) << i;
}

void ComputerNamesTest::failingCalls()
{
    QFETCH(int, number);
    const DescribedWindows windows("", names(eightNames));
    const simulated::Fault fault = simulated::Fault::nthCall("GetComputerNameExW", std::size_t(number), ERROR_ACCESS_DENIED);
    QStringList lines = eightLines;
    lines.removeAt(number);
    COMPARE_TEXT(computerNames(), title + lines.join(QString()));
    QCOMPARE(fault.hits(), std::size_t(1));
}

#else

void ComputerNamesTest::whatWindowsAnswers()
{
    QString expected = title;
    for (const Label &label : labels) {
        wchar_t name[16] = {};
        DWORD size = 16;
        if (GetComputerNameExW(label.format, name, &size))
            expected += label.text + QString::fromWCharArray(name, int(size)) + "\n";
    }
    COMPARE_TEXT(computerNames(), expected);
}

#endif

TEST_WITH_CORE_APPLICATION(ComputerNamesTest);
#include "tst_computer_names.moc"
