// computerNames()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(computerNames, "Computer name\n");

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

Described names(const QByteArray &byFormat)
{
    return {"", "{\"GetComputerNameEx\": {" + byFormat + "}}"};
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
    rows.text("an empty machine: only the heading", "", "");
    rows.text("the calls fail: only the heading", names("\"error\": 1747"), "");
    rows.text("every name", names(eightNames), eightLines.join(QString()));
    for (const Label &label : labels) {
        const QByteArray format = QByteArray::number(int(label.format));
        rows.text("only format " + format, names('"' + format + "\": \"name\""), QString(label.text) + "name\n");
        rows.text("format " + format + " empty: its label and blanks", names('"' + format + "\": \"\""),
                  QString(label.text) + "\n");
    }
    rows.text("format 8 is not queried", names("\"8\": \"name\""), "");
    rows.text("a fully qualified name that does not fit: the short names are shown",
              names(R"("0": "PC07", "2": "", "3": "pc07.example-domain.test", "7": "pc07.example-domain.test", "1": "pc07")"),
              "NetBios name:                 PC07\n"
              "DNS domain:           \n"
              "hostname                      pc07\n");
}

/// A row about one name, which is the DNS fully qualified one.
void addRow(const char *name, const QString &computer, bool shown)
{
    rows.text(name, names("\"3\": \"" + computer.toUtf8() + '"'),
              shown ? "DNS fully qualified:          " + computer + "\n" : QString());
}

void nameRows()
{
    addRow("15 characters fit", "pc07.example.de", true);
    addRow("16 characters do not fit", "pc007.example.de", false);
    addRow("17 characters do not fit", "pc0007.example.de", false);
    addRow("one character", "x", true);
    const QString pair = QString(QChar(0xd83d)) + QChar(0xde00); // a surrogate pair
    addRow("15 units fit", pair.repeated(7) + "x", true);
    addRow("16 units do not fit", pair.repeated(8), false);
    addRow("placeholders are not replaced", "%1 %2 %99 %L1", true);
    addRow("outside ASCII", QString("b") + QChar(0xfc) + "ro-" + QChar(0x20ac), true);
    addRow("a leading U+FEFF is a character", QString(QChar(0xfeff)) + "pc", true);
    addRow("a leading U+FFFE is a character", QString(QChar(0xfffe)) + "pc", true);
    addRow("blanks are not removed", " pc ", true);
    rows.text("the length is that of the call, U+0000 included", names(R"("3": "a\u0000b")"),
              QString("DNS fully qualified:          a") + QChar() + "b\n");
}

void callRows()
{
    rows.calls("one call for each name", names(R"("0": "a name far beyond the buffer", "4": "PC07")"),
               "GetComputerNameExW \"0\" 16\n"
               "GetComputerNameExW \"4\" 16\n"
               "GetComputerNameExW \"2\" 16\n"
               "GetComputerNameExW \"6\" 16\n"
               "GetComputerNameExW \"3\" 16\n"
               "GetComputerNameExW \"7\" 16\n"
               "GetComputerNameExW \"1\" 16\n"
               "GetComputerNameExW \"5\" 16\n");
    rows.failures(names(eightNames), "GetComputerNameExW", 0, eightLines);
}

void sameAsWindows()
{
    QString expected;
    for (const Label &label : labels) {
        WCHAR name[16] = {};
        DWORD size = 16;
        if (GetComputerNameExW(label.format, name, &size))
            expected += label.text + QString::fromWCharArray(name, int(size)) + "\n";
    }
    COMPARE_TEXT(computerNames(), "Computer name\n" + expected);
}

void addRows()
{
    if (!windowsIsSimulated)
        return addTestRow("same as Windows", sameAsWindows);
    rows.withoutMachine("");
    formatRows();
    nameRows();
    callRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
