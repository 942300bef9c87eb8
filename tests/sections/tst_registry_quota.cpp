// registryQuota()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(registryQuota, "Registry quota:\n");

Described quota(const QByteArray &answer)
{
    return {"", "{\"GetSystemRegistryQuota\": {" + answer + "}}"};
}

void sameAsWindows()
{
    DWORD allowed = 0;
    DWORD used = 0;
    QVERIFY(GetSystemRegistryQuota(&allowed, &used));
    const QStringList lines = registryQuota().split('\n');
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), QString("Registry quota:"));
    QVERIFY(lines.at(1).startsWith("Used [bytes]:           ")); // changes from call to call
    QCOMPARE(lines.at(2), "Allowed [bytes]:        " + QString::number(allowed));
}

void addRows()
{
    if (!windowsIsSimulated)
        return addTestRow("same as Windows", sameAsWindows);
    const Described full = quota("\"allowed\": 200, \"used\": 100");
    rows.text("used comes first", full, "Used [bytes]:           100\nAllowed [bytes]:        200\n");
    rows.text("more used than allowed", quota("\"allowed\": 1, \"used\": 1234567890"),
              "Used [bytes]:           1234567890\nAllowed [bytes]:        1\n");
    rows.text("nothing used, nothing allowed", quota("\"allowed\": 0, \"used\": 0"),
              "Used [bytes]:           0\nAllowed [bytes]:        0\n");
    rows.text("unsigned 32-bit numbers", quota("\"allowed\": 4294967295, \"used\": 2147483648"),
              "Used [bytes]:           2147483648\nAllowed [bytes]:        4294967295\n");
    rows.text("a failing call: only the heading", quota("\"error\": 5"), "");
    rows.text("an empty machine: only the heading", "", "");
    rows.withoutMachine("");
    rows.calls("calls", full, "GetSystemRegistryQuota\n");
    rows.failure("the call fails: only the heading", full, "GetSystemRegistryQuota", 0, "");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
