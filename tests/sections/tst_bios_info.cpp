// biosInfoFromRegistry(): texts and calls.

#include "described_windows.h"
#include "texts.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#  include <windows.h>
#endif

using namespace velkor::SystemInfo::WinSysInfo;

class BiosInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
#ifdef SIMULATED_WINDOWS
    void callsOfAFullMachine();
    void failingCalls_data();
    void failingCalls();
#endif
};

namespace {

const char title[] = "BIOS information from Registry\n";
const char key[] = "[HKEY_LOCAL_MACHINE\\Hardware\\Description\\System]\n";

// A, B and C as REG_MULTI_SZ
const char threeStrings[] = "\"SystemBiosVersion\"=hex(7):41,00,00,00,42,00,00,00,43,00,00,00,00,00\n";

} // namespace

void BiosInfoTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");

    const QByteArray start(key);
    const QString heading(title);
    QTest::newRow("no key: the title alone") << QByteArray() << heading;
    QTest::newRow("an empty key: the title alone") << start << heading;
    QTest::newRow("three strings: continuation lines start with 23 blanks")
        << start + threeStrings
        << heading + "SystemBiosVersion:     A\n                       B\n                       C\n";
    QTest::newRow("first string empty: the label and a line break")
        << start + "\"SystemBiosVersion\"=hex(7):00,00,41,00,00,00,00,00\n"
        << heading + "SystemBiosVersion:     \n";
    QTest::newRow("an empty string inside cuts the list short")
        << start + "\"SystemBiosVersion\"=hex(7):41,00,00,00,00,00,43,00,00,00,00,00\n"
        << heading + "SystemBiosVersion:     A\n";
}

void BiosInfoTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(biosInfoFromRegistry(), expected);
}

#ifdef SIMULATED_WINDOWS

void BiosInfoTest::callsOfAFullMachine()
{
    const DescribedWindows windows(QByteArray(key) + threeStrings);
    biosInfoFromRegistry();
    QStringList calls;
    for (const simulated::Call &call : simulated::journal())
        calls += QStringLiteral("%1 %2 %3").arg(QLatin1String(call.name), call.value).arg(call.sizeIn);
    QCOMPARE(calls, QStringList({"RegOpenKeyExA  0", "RegQueryValueExA SystemBiosVersion 2048",
                                 "RegQueryValueExA SystemBIOSDate 2048", "RegQueryValueExA VideoBiosVersion 2048",
                                 "RegQueryValueExA VideoBIOSDate 2048", "RegCloseKey  0"}));
    QCOMPARE(simulated::journal().front().access, quint32(KEY_READ));
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void BiosInfoTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    const QString heading(title);
    QTest::newRow("the key does not open") << QByteArray("RegOpenKeyExA") << 0 << heading;
    QTest::newRow("the version cannot be read") << QByteArray("RegQueryValueExA") << 0 << heading;
    QTest::newRow("the key does not close: nothing shows")
        << QByteArray("RegCloseKey") << 0
        << heading + "SystemBiosVersion:     A\n                       B\n                       C\n";
}

void BiosInfoTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, expected);
    const DescribedWindows windows(QByteArray(key) + threeStrings);
    const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), ERROR_ACCESS_DENIED);
    COMPARE_TEXT(biosInfoFromRegistry(), expected);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(simulated::openHandles(), QStringList());
}

#endif

QTEST_GUILESS_MAIN(BiosInfoTest)
#include "tst_bios_info.moc"
