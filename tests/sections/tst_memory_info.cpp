// memoryInfo()

#include "section_rows.h"
#include "win/format_byte_size.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const QString heading = "Memory Information:\n";
const SectionRows rows(memoryInfo, heading);

Described memory(const char *fields)
{
    return {"", QByteArray("{\"GlobalMemoryStatusEx\": {") + fields + "}}"};
}

void simulatedRows()
{
    rows.text("an empty machine: only the heading", "", "");
    rows.text("the call fails: only the heading", memory("\"error\": 87"), "");
    rows.text("every number is 0", memory("\"dwMemoryLoad\": 0"),
              "MemoryLoad:            0%\n"
              "TotalPhys:             0 Byte = 0 Byte\n"
              "AvailPhys:             0 Byte = 0 Byte\n"
              "TotalPageFile:         0 Byte = 0 Byte\n"
              "AvailPageFile:         0 Byte = 0 Byte\n"
              "TotalVirtual:          0 Byte = 0 Byte\n"
              "AvailVirtual:          0 Byte = 0 Byte\n");
    rows.text("each field, in each unit",
              memory(R"("dwMemoryLoad": 100, "ullTotalPhys": 17179869184, "ullAvailPhys": 1610612735,
                        "ullTotalPageFile": 1048576, "ullAvailPageFile": 1048575,
                        "ullTotalVirtual": 1536, "ullAvailVirtual": 1023)"),
              "MemoryLoad:            100%\n"
              "TotalPhys:             17179869184 Byte = 16.0 GByte\n"
              "AvailPhys:             1610612735 Byte = 1.4 GByte\n"
              "TotalPageFile:         1048576 Byte = 1.0 MByte\n"
              "AvailPageFile:         1048575 Byte = 1023.9 KByte\n"
              "TotalVirtual:          1536 Byte = 1.5 KByte\n"
              "AvailVirtual:          1023 Byte = 1023 Byte\n");
    rows.text("the largest numbers are unsigned",
              memory(R"("dwMemoryLoad": 4294967295, "ullTotalPhys": "0xffffffffffffffff",
                        "ullAvailVirtual": "0x8000000000000000")"),
              "MemoryLoad:            4294967295%\n"
              "TotalPhys:             18446744073709551615 Byte = 17179869183.9 GByte\n"
              "AvailPhys:             0 Byte = 0 Byte\n"
              "TotalPageFile:         0 Byte = 0 Byte\n"
              "AvailPageFile:         0 Byte = 0 Byte\n"
              "TotalVirtual:          0 Byte = 0 Byte\n"
              "AvailVirtual:          9223372036854775808 Byte = 8589934592.0 GByte\n");
    rows.calls("calls", memory("\"dwMemoryLoad\": 1"), "GlobalMemoryStatusEx 64\n");
    rows.failure("the call fails", memory("\"dwMemoryLoad\": 1"), "GlobalMemoryStatusEx", 0, "");
}

// Compares the numbers that do not change between two calls, and the labels of the others.
void sameAsWindows()
{
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof status;
    QVERIFY(GlobalMemoryStatusEx(&status));
    const auto line = [](const char *label, quint64 bytes) {
        return QString(label) + QString::number(bytes) + " Byte = " + formatByteSize(bytes);
    };
    const QStringList lines = memoryInfo().split('\n');
    QCOMPARE(lines.size(), 9);
    QCOMPARE(lines.first() + '\n', heading);
    QVERIFY(lines.at(1).startsWith("MemoryLoad:            ") && lines.at(1).endsWith('%'));
    QCOMPARE(lines.at(2), line("TotalPhys:             ", status.ullTotalPhys));
    QVERIFY(lines.at(3).startsWith("AvailPhys:             "));
    QCOMPARE(lines.at(6), line("TotalVirtual:          ", status.ullTotalVirtual));
    QVERIFY(lines.at(7).startsWith("AvailVirtual:          "));
    QCOMPARE(lines.at(8), QString());
}

void addRows()
{
    if (windowsIsSimulated)
        simulatedRows();
    else
        addTestRow("same as Windows", sameAsWindows);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
