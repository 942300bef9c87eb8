// processorInfo()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

/// The text after each label.
struct Answers
{
    QString architecture;
    QString number;
    QString active; // with line ends
    QString type;
    QString revision;
    QString level;
    QString pageSize;
    QString minimum;
    QString maximum;
    QString granularity;
};

/// The text after the heading.
QString section(const Answers &answers)
{
    return "Processor architecture:       " + answers.architecture
        + "\nNumber of processors:       " + answers.number
        + "\nActive processors:          " + answers.active
        + "Processor type:             " + answers.type
        + "\nProcessor revision:         " + answers.revision
        + "\nProcessor level:            " + answers.level
        + "\nPage size:                  " + answers.pageSize
        + "\nMinimum Application Address 0x" + answers.minimum
        + "\nMaximum Application Address 0x" + answers.maximum
        + "\nAllocation Granularity:     " + answers.granularity + "\n";
}

const SectionRows rows(processorInfo, "Processor information: \n");

QString continuation(int processor)
{
    return "                            Processor #" + QString::number(processor) + "\n";
}

/// The processors 0 to \a count - 1.
QString processors(int count)
{
    QString text = "Processor #0\n";
    for (int processor = 1; processor < count; ++processor)
        text += continuation(processor);
    return text;
}

/// The answers if all fields of GetSystemInfo() are 0.
Answers zeros()
{
    return {"x86 (32/64bit)", "0", "\n", "unknown", "0 = 0x0000", "0", "0",
            "0000000000000000", "0000000000000000", "0 = 0x00000000"};
}

/// A row about one field; the others are 0.
void addRow(const char *name, const char *field, const QByteArray &value, QString Answers::*answer, const QString &expected)
{
    Answers answers = zeros();
    answers.*answer = expected;
    rows.text(name, {"", QByteArray("{\"GetSystemInfo\": {\"") + field + "\": " + value + "}}"}, section(answers));
}

void nameRows()
{
    const auto architecture = [](const char *name, int value, const QString &expected) {
        addRow(name, "wProcessorArchitecture", QByteArray::number(value), &Answers::architecture, expected);
    };
    architecture("architecture 0", PROCESSOR_ARCHITECTURE_INTEL, "x86 (32/64bit)");
    architecture("architecture 6", PROCESSOR_ARCHITECTURE_IA64, "IA64 (64bit)");
    architecture("architecture 9", PROCESSOR_ARCHITECTURE_AMD64, "x64 (64bit)");
    architecture("architecture 5 has no name", PROCESSOR_ARCHITECTURE_ARM, "unknown");
    architecture("architecture 12 has no name", PROCESSOR_ARCHITECTURE_ARM64, "unknown");
    architecture("architecture 65535 has no name", PROCESSOR_ARCHITECTURE_UNKNOWN, "unknown");

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
    mask("processors 0 to 3: the label, then lines with 28 blanks", "15",
         "Processor #0\n"
         "                            Processor #1\n"
         "                            Processor #2\n"
         "                            Processor #3\n");
    mask("only processor 0", "1", "Processor #0\n");
    mask("the first active processor is not number 0", "\"0x28\"",
         "Processor #3\n                            Processor #5\n");
    mask("processor 31 is listed", "\"0x80000000\"", "Processor #31\n");
    mask("processor 32 is not listed", "\"0x100000000\"", "\n");
    mask("processor 63 is not listed", "\"0x8000000000000000\"", "\n");
    mask("processors 0 and 32 to 63", "\"0xffffffff00000001\"", "Processor #0\n");
    mask("64 processors: 32 lines", "\"0xffffffffffffffff\"", processors(32));
    mask("no active processor: only the label", "0", "\n");
}

void numberRows()
{
    addRow("8 processors", "dwNumberOfProcessors", "8", &Answers::number, "8");
    addRow("the number of processors is unsigned", "dwNumberOfProcessors", "4294967295", &Answers::number, "4294967295");
    addRow("revision with four hexadecimal digits", "wProcessorRevision", "40457", &Answers::revision, "40457 = 0x9e09");
    addRow("revision padded with zeros", "wProcessorRevision", "10", &Answers::revision, "10 = 0x000a");
    addRow("largest revision", "wProcessorRevision", "65535", &Answers::revision, "65535 = 0xffff");
    addRow("largest level", "wProcessorLevel", "65535", &Answers::level, "65535");
    addRow("page size", "dwPageSize", "4096", &Answers::pageSize, "4096");
    addRow("the page size is unsigned", "dwPageSize", "4294967295", &Answers::pageSize, "4294967295");
    addRow("minimum address padded with zeros", "lpMinimumApplicationAddress", "65536", &Answers::minimum,
           "0000000000010000");
    addRow("largest minimum address", "lpMinimumApplicationAddress", "\"0xfedcba9876543210\"", &Answers::minimum,
           "fedcba9876543210");
    addRow("maximum address padded with zeros", "lpMaximumApplicationAddress", "\"0x7ffffffeffff\"", &Answers::maximum,
           "00007ffffffeffff");
    addRow("largest maximum address", "lpMaximumApplicationAddress", "\"0xffffffffffffffff\"", &Answers::maximum,
           "ffffffffffffffff");
    addRow("granularity padded with zeros", "dwAllocationGranularity", "65536", &Answers::granularity,
           "65536 = 0x00010000");
    addRow("the granularity is unsigned", "dwAllocationGranularity", "4294967295", &Answers::granularity,
           "4294967295 = 0xffffffff");
}

void sameAsWindows()
{
    const auto hex = [](quint64 number, int digits) { return QString::number(number, 16).rightJustified(digits, '0'); };
    SYSTEM_INFO info = {};
    GetSystemInfo(&info);
    QString active = "Processor #0\n";
    for (int processor = 1; processor < 32; ++processor) {
        if (info.dwActiveProcessorMask & (DWORD_PTR(1) << processor))
            active += continuation(processor);
    }
    const QString revision = QString::number(info.wProcessorRevision);
    COMPARE_TEXT(processorInfo(),
                 "Processor information: \n"
                     + section({"x64 (64bit)", QString::number(info.dwNumberOfProcessors), active, "AMD64",
                                revision + " = 0x" + hex(info.wProcessorRevision, 4), QString::number(info.wProcessorLevel),
                                "4096", hex(quintptr(info.lpMinimumApplicationAddress), 16),
                                hex(quintptr(info.lpMaximumApplicationAddress), 16), "65536 = 0x00010000"}));
}

void addRows()
{
    if (!windowsIsSimulated)
        return addTestRow("same as Windows", sameAsWindows);
    rows.text("an empty machine", "", section(zeros()));
    rows.withoutMachine(section(zeros()));
    nameRows();
    maskRows();
    numberRows();
    rows.calls("calls", "", "GetSystemInfo\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
