// memoryInfo(): texts and calls.

#include "described_windows.h"
#include "test_main.h"
#include "texts.h"
#include "win/format_byte_size.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "journal_lines.h"
#endif
#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

class MemoryInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef SIMULATED_WINDOWS
    void text_data();
    void text();
    void workstation();
    void calls();
    void failingCall();
#else
    void whatWindowsAnswers();
#endif
};

namespace {

const QString title = "Memory Information:\n";

#ifdef SIMULATED_WINDOWS

QByteArray memory(const char *fields)
{
    return QByteArray("{\"GlobalMemoryStatusEx\": {") + fields + "}}";
}

#endif

} // namespace

#ifdef SIMULATED_WINDOWS

void MemoryInfoTest::text_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected");
    QTest::newRow("an empty machine: the title alone") << QByteArray("{}") << title;
    QTest::newRow("the call fails: the title alone") << memory("\"error\": 87") << title;
    QTest::newRow("every number is 0") << memory("\"dwMemoryLoad\": 0")
                                       << title + "MemoryLoad:            0%\n"
                                                  "TotalPhys:             0 Byte = 0 Byte\n"
                                                  "AvailPhys:             0 Byte = 0 Byte\n"
                                                  "TotalPageFile:         0 Byte = 0 Byte\n"
                                                  "AvailPageFile:         0 Byte = 0 Byte\n"
                                                  "TotalVirtual:          0 Byte = 0 Byte\n"
                                                  "AvailVirtual:          0 Byte = 0 Byte\n";
    QTest::newRow("each field on its own line, each unit")
        << memory("\"dwMemoryLoad\": 100, \"ullTotalPhys\": 17179869184, \"ullAvailPhys\": 1610612735,"
                  "\"ullTotalPageFile\": 1048576, \"ullAvailPageFile\": 1048575,"
                  "\"ullTotalVirtual\": 1536, \"ullAvailVirtual\": 1023")
        << title + "MemoryLoad:            100%\n"
                   "TotalPhys:             17179869184 Byte = 16.0 GByte\n"
                   "AvailPhys:             1610612735 Byte = 1.4 GByte\n"
                   "TotalPageFile:         1048576 Byte = 1.0 MByte\n"
                   "AvailPageFile:         1048575 Byte = 1023.9 KByte\n"
                   "TotalVirtual:          1536 Byte = 1.5 KByte\n"
                   "AvailVirtual:          1023 Byte = 1023 Byte\n";
    QTest::newRow("the largest numbers are unsigned")
        << memory("\"dwMemoryLoad\": 4294967295, \"ullTotalPhys\": \"0xffffffffffffffff\","
                  "\"ullAvailVirtual\": \"0x8000000000000000\"")
        << title + "MemoryLoad:            4294967295%\n"
                   "TotalPhys:             18446744073709551615 Byte = 17179869183.9 GByte\n"
                   "AvailPhys:             0 Byte = 0 Byte\n"
                   "TotalPageFile:         0 Byte = 0 Byte\n"
                   "AvailPageFile:         0 Byte = 0 Byte\n"
                   "TotalVirtual:          0 Byte = 0 Byte\n"
                   "AvailVirtual:          9223372036854775808 Byte = 8589934592.0 GByte\n";
}

void MemoryInfoTest::text()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    const DescribedWindows windows("", system);
    COMPARE_TEXT(memoryInfo(), expected);
}

void MemoryInfoTest::workstation()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    COMPARE_TEXT(memoryInfo(), title + "MemoryLoad:            45%\n"
                                       "TotalPhys:             17055318016 Byte = 15.8 GByte\n"
                                       "AvailPhys:             9216737280 Byte = 8.5 GByte\n"
                                       "TotalPageFile:         19605454848 Byte = 18.2 GByte\n"
                                       "AvailPageFile:         10527457280 Byte = 9.8 GByte\n"
                                       "TotalVirtual:          140737488224256 Byte = 131071.9 GByte\n"
                                       "AvailVirtual:          138533931294720 Byte = 129019.7 GByte\n");
}

void MemoryInfoTest::calls()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    memoryInfo();
    QCOMPARE(journalLines(), QStringList("GlobalMemoryStatusEx 64"));
}

void MemoryInfoTest::failingCall()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    const simulated::Fault fault = simulated::Fault::nthCall("GlobalMemoryStatusEx", 0, ERROR_INVALID_PARAMETER);
    COMPARE_TEXT(memoryInfo(), title);
    QCOMPARE(fault.hits(), std::size_t(1));
}

#else

// The lines whose numbers do not change from call to call.
void MemoryInfoTest::whatWindowsAnswers()
{
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof status;
    QVERIFY(GlobalMemoryStatusEx(&status));
    const auto line = [](const char *label, quint64 bytes) {
        return QString(label) + QString::number(bytes) + " Byte = " + formatByteSize(bytes);
    };
    const QStringList lines = memoryInfo().split('\n');
    QCOMPARE(lines.size(), 9);
    QCOMPARE(lines.first() + '\n', title);
    QVERIFY(lines.at(1).startsWith("MemoryLoad:            ") && lines.at(1).endsWith('%'));
    QCOMPARE(lines.at(2), line("TotalPhys:             ", status.ullTotalPhys));
    QVERIFY(lines.at(3).startsWith("AvailPhys:             "));
    QCOMPARE(lines.at(6), line("TotalVirtual:          ", status.ullTotalVirtual));
    QVERIFY(lines.at(7).startsWith("AvailVirtual:          "));
    QCOMPARE(lines.at(8), QString());
}

#endif

TEST_WITH_CORE_APPLICATION(MemoryInfoTest);
#include "tst_memory_info.moc"
