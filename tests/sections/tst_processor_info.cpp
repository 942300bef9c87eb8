// processorInfo(): texts and calls.

#include "described_windows.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "journal_lines.h"
#endif
#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

class ProcessorInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef SIMULATED_WINDOWS
    void text_data();
    void text();
    void workstation();
    void withoutAMachine();
    void calls();
#else
    void whatWindowsAnswers();
#endif
};

namespace {

/// What stands behind each label.
struct Answers
{
    QString architecture;
    QString number;
    QString active; // with the ends of its lines
    QString type;
    QString revision;
    QString level;
    QString pageSize;
    QString minimum;
    QString maximum;
    QString granularity;
};

QString section(const Answers &answers)
{
    return "Processor information: \n"
           "Processor architecture:       "
        + answers.architecture + "\n"
                                 "Number of processors:       "
        + answers.number + "\n"
                           "Active processors:          "
        + answers.active
        + "Processor type:             " + answers.type + "\n"
                                                          "Processor revision:         "
        + answers.revision + "\n"
                             "Processor level:            "
        + answers.level + "\n"
                          "Page size:                  "
        + answers.pageSize + "\n"
                             "Minimum Application Address 0x"
        + answers.minimum + "\n"
                            "Maximum Application Address 0x"
        + answers.maximum + "\n"
                            "Allocation Granularity:     "
        + answers.granularity + "\n";
}

QString continuation(int processor)
{
    return "                            Processor #" + QString::number(processor) + "\n";
}

#ifdef SIMULATED_WINDOWS

/// Where GetSystemInfo() gives zeros.
Answers zeros()
{
    return {"x86 (32/64bit)", "0", "\n", "unknown", "0 = 0x0000", "0", "0",
            "0000000000000000", "0000000000000000", "0 = 0x00000000"};
}

void addRow(const char *name, const QByteArray &fields, const Answers &answers)
{
    QTest::newRow(name) << "{\"GetSystemInfo\": {" + fields + "}}" << section(answers);
}

/// A row about one field, the others being zero.
void addRow(const char *name, const char *field, const char *value, QString Answers::*answer, const QString &expected)
{
    Answers answers = zeros();
    answers.*answer = expected;
    addRow(name, QByteArray("\"") + field + "\": " + value, answers);
}

void nameRows()
{
    const auto architecture = [](const char *name, const char *value, const QString &expected) {
        addRow(name, "wProcessorArchitecture", value, &Answers::architecture, expected);
    };
    architecture("architecture 0", "0", "x86 (32/64bit)");
    architecture("architecture 6", "6", "IA64 (64bit)");
    architecture("architecture 9", "9", "x64 (64bit)");
    architecture("architecture 5 has no name", "5", "unknown");
    architecture("architecture 12 has no name", "12", "unknown");
    architecture("architecture 65535 has no name", "65535", "unknown");

    const auto type = [](const char *name, const char *value, const QString &expected) {
        addRow(name, "dwProcessorType", value, &Answers::type, expected);
    };
    type("type 386", "386", "386");
    type("type 486", "486", "486");
    type("type 586", "586", "Pentium");
    type("type 2200", "2200", "IA64");
    type("type 8664", "8664", "AMD64");
    type("type 686 has no name", "686", "unknown");
    type("type 4294967295 has no name", "4294967295", "unknown");
}

void maskRows()
{
    const auto mask = [](const char *name, const char *value, const QString &expected) {
        addRow(name, "dwActiveProcessorMask", value, &Answers::active, expected);
    };
    mask("processors 0 to 3: the label directly before the first, then 28 blanks", "15",
         "Processor #0\n"
         "                            Processor #1\n"
         "                            Processor #2\n"
         "                            Processor #3\n");
    mask("processor 0 alone", "1", "Processor #0\n");
    mask("the first active one is not number 0", "\"0x28\"",
         "Processor #3\n                            Processor #5\n");
    mask("processor 31 is the last that is looked at", "\"0x80000000\"", "Processor #31\n");
    mask("processor 32 is not", "\"0x100000000\"", "\n");
    mask("processor 63 is not", "\"0x8000000000000000\"", "\n");
    mask("processors 0 and 32 to 63", "\"0xffffffff00000001\"", "Processor #0\n");
    QString all = "Processor #0\n";
    for (int processor = 1; processor < 32; ++processor)
        all += continuation(processor);
    mask("64 processors: 32 lines", "\"0xffffffffffffffff\"", all);
    mask("no processor: a line end", "0", "\n");
}

void numberRows()
{
    addRow("8 processors", "dwNumberOfProcessors", "8", &Answers::number, "8");
    addRow("the number of processors is unsigned", "dwNumberOfProcessors", "4294967295", &Answers::number, "4294967295");
    addRow("revision with four hexadecimal digits", "wProcessorRevision", "40457", &Answers::revision, "40457 = 0x9e09");
    addRow("revision filled with zeros", "wProcessorRevision", "10", &Answers::revision, "10 = 0x000a");
    addRow("largest revision", "wProcessorRevision", "65535", &Answers::revision, "65535 = 0xffff");
    addRow("largest level", "wProcessorLevel", "65535", &Answers::level, "65535");
    addRow("page size", "dwPageSize", "4096", &Answers::pageSize, "4096");
    addRow("the page size is unsigned", "dwPageSize", "4294967295", &Answers::pageSize, "4294967295");
    addRow("minimum address filled with zeros", "lpMinimumApplicationAddress", "65536", &Answers::minimum,
           "0000000000010000");
    addRow("largest minimum address", "lpMinimumApplicationAddress", "\"0xfedcba9876543210\"", &Answers::minimum,
           "fedcba9876543210");
    addRow("maximum address filled with zeros", "lpMaximumApplicationAddress", "\"0x7ffffffeffff\"", &Answers::maximum,
           "00007ffffffeffff");
    addRow("largest maximum address", "lpMaximumApplicationAddress", "\"0xffffffffffffffff\"", &Answers::maximum,
           "ffffffffffffffff");
    addRow("granularity filled with zeros", "dwAllocationGranularity", "65536", &Answers::granularity,
           "65536 = 0x00010000");
    addRow("the granularity is unsigned", "dwAllocationGranularity", "4294967295", &Answers::granularity,
           "4294967295 = 0xffffffff");
}

#else

QString hex(quint64 number, int digits)
{
    return QString::number(number, 16).rightJustified(digits, '0');
}

#endif

} // namespace

#ifdef SIMULATED_WINDOWS

void ProcessorInfoTest::text_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected");
    QTest::newRow("an empty machine") << QByteArray("{}") << section(zeros());
    nameRows();
    maskRows();
    numberRows();
}

void ProcessorInfoTest::text()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    const DescribedWindows windows("", system);
    COMPARE_TEXT(processorInfo(), expected);
}

void ProcessorInfoTest::workstation()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    QString active = "Processor #0\n";
    for (int processor = 1; processor < 8; ++processor)
        active += continuation(processor);
    COMPARE_TEXT(processorInfo(),
                 section({"x64 (64bit)", "8", active, "AMD64", "40457 = 0x9e09", "6", "4096", "0000000000010000",
                          "00007ffffffeffff", "65536 = 0x00010000"}));
}

void ProcessorInfoTest::withoutAMachine()
{
    simulated::installNothing();
    COMPARE_TEXT(processorInfo(), section(zeros()));
}

void ProcessorInfoTest::calls()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    processorInfo();
    QCOMPARE(journalLines(), QStringList("GetSystemInfo"));
}

#else

// Windows for this processor, whatever it runs on.
void ProcessorInfoTest::whatWindowsAnswers()
{
    SYSTEM_INFO info = {};
    GetSystemInfo(&info);
    QString active = "Processor #0\n";
    for (int processor = 1; processor < 32; ++processor) {
        if (info.dwActiveProcessorMask & (DWORD_PTR(1) << processor))
            active += continuation(processor);
    }
    const QString revision = QString::number(info.wProcessorRevision);
    COMPARE_TEXT(processorInfo(),
                 section({"x64 (64bit)", QString::number(info.dwNumberOfProcessors), active, "AMD64",
                          revision + " = 0x" + hex(info.wProcessorRevision, 4), QString::number(info.wProcessorLevel),
                          "4096", hex(quintptr(info.lpMinimumApplicationAddress), 16),
                          hex(quintptr(info.lpMaximumApplicationAddress), 16), "65536 = 0x00010000"}));
}

#endif

TEST_WITH_CORE_APPLICATION(ProcessorInfoTest);
#include "tst_processor_info.moc"
