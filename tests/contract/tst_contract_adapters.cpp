// GetAdaptersInfo(): sizes and the layout of the list.

#include "answering_windows.h"
#include "rows.h"

#include <iphlpapi.h>

namespace {

ULONG neededSize()
{
    ULONG size = 0;
    GetAdaptersInfo(nullptr, &size);
    return size;
}

/// True if the machine has no adapter, and the call says so. A real machine may have none.
bool reportsNoAdapters()
{
    ULONG size = poison;
    return GetAdaptersInfo(nullptr, &size) == ERROR_NO_DATA;
}

/// Whether \a entry lies wholly within \a size bytes from \a start.
bool isWithin(const void *start, ULONG size, const void *entry, std::size_t length)
{
    const auto offset = static_cast<const BYTE *>(entry) - static_cast<const BYTE *>(start);
    return offset >= 0 && std::size_t(offset) + length <= size;
}

void sizeNeeded()
{
    const auto row = [](const QString &name, int missing) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const ULONG needed = neededSize();
            if (needed == 0) {
                QVERIFY(reportsNoAdapters());
                return;
            }
            QVERIFY(needed >= 704);
            ULONG size = missing < 0 ? 0 : needed - ULONG(missing);
            PoisonedBuffer buffer(needed);
            QCOMPARE(GetAdaptersInfo(reinterpret_cast<PIP_ADAPTER_INFO>(buffer.bytes()), &size), DWORD(ERROR_BUFFER_OVERFLOW));
            QCOMPARE(size, needed);
            QVERIFY(buffer.isUntouched());
        });
    };
    row("a buffer of 0 bytes", -1);
    row("a buffer that is one byte too small", 1);
    row("a buffer that is one record too small", 704);
}

void listIsWithinItsSize()
{
    const AnsweringWindows windows;
    const ULONG needed = neededSize();
    if (needed == 0) {
        QVERIFY(reportsNoAdapters());
        return;
    }
    PoisonedBuffer buffer(needed);
    ULONG size = needed;
    auto *first = reinterpret_cast<PIP_ADAPTER_INFO>(buffer.bytes());
    QCOMPARE(GetAdaptersInfo(first, &size), DWORD(ERROR_SUCCESS));
    QVERIFY(buffer.isUntouchedFrom(int(needed)));
    int count = 0;
    for (const IP_ADAPTER_INFO *adapter = first; adapter; adapter = adapter->Next, ++count) {
        QVERIFY(isWithin(first, needed, adapter, sizeof *adapter));
        QVERIFY(adapter->AdapterName[0] != 0);
        for (const IP_ADDR_STRING *gateway = &adapter->GatewayList; gateway; gateway = gateway->Next)
            QVERIFY(isWithin(first, needed, gateway, sizeof *gateway));
    }
    QVERIFY(count >= 1);
    QVERIFY(ULONG(count) * 704 <= needed);
}

void addTests()
{
    addTestRows("sizeNeeded", sizeNeeded);
    addTestRow("listIsWithinItsSize", listIsWithinItsSize);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
