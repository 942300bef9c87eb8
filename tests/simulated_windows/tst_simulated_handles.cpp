// openHandles() and handleMisuses() of the simulated Windows.

#include "described_windows.h"
#include "simulated_windows.h"
#include "test_main.h"

#include <QtTest/QtTest>
#include <windows.h>

class SimulatedHandlesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void openHandlesAreListed();
    void rootsAreNotListed();
    void handlesAreNeverReused();
    void handlesAreNotPointers();
    void misuses_data();
    void misuses();
    void failingCloseInvalidatesTheHandle();
    void resetClearsHandlesAndMisuses();
    void openKeyOutlivesItsRemoval();

private:
    std::unique_ptr<DescribedWindows> m_windows;
};

namespace {

HKEY openKey(const char *path = "A")
{
    HKEY key = nullptr;
    RegOpenKeyExA(HKEY_LOCAL_MACHINE, path, 0, KEY_READ, &key);
    return key;
}

/// A use of a handle, and its name in the text of handleMisuses().
struct Misuse
{
    QString name;
    std::function<void(HANDLE)> use;
};

QString misuseText(const QString &use, HANDLE handle)
{
    return QStringLiteral("%1 of handle 0x%2").arg(use).arg(reinterpret_cast<quintptr>(handle), 0, 16);
}

template <typename Handle>
Handle as(HANDLE handle)
{
    return static_cast<Handle>(handle);
}

} // namespace

Q_DECLARE_METATYPE(Misuse)

void SimulatedHandlesTest::init()
{
    m_windows = std::make_unique<DescribedWindows>(
        "[HKEY_LOCAL_MACHINE\\A\\B]\n@=\"b\"\n", "{\"libraries\": {\"dnssd.dll\": {\"DNSServiceGetProperty\": {}}}}");
}

void SimulatedHandlesTest::cleanup()
{
    m_windows.reset();
}

void SimulatedHandlesTest::openHandlesAreListed()
{
    const HKEY a = openKey();
    HKEY b = nullptr;
    RegOpenKeyExW(a, L"b", 0, KEY_READ, &b);
    const HMODULE library = LoadLibraryW(L"DNSSD.dll");
    QCOMPARE(simulated::openHandles(),
             QStringList({QStringLiteral("HKEY_LOCAL_MACHINE\\A"), QStringLiteral("HKEY_LOCAL_MACHINE\\A\\b"),
                          QStringLiteral("DNSSD.dll")}));
    RegCloseKey(a);
    QCOMPARE(simulated::openHandles(), QStringList({QStringLiteral("HKEY_LOCAL_MACHINE\\A\\b"), QStringLiteral("DNSSD.dll")}));
    FreeLibrary(library);
    RegCloseKey(b);
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void SimulatedHandlesTest::rootsAreNotListed()
{
    DWORD size = 0;
    RegQueryValueExA(HKEY_LOCAL_MACHINE, "", nullptr, nullptr, nullptr, &size);
    QCOMPARE(RegCloseKey(HKEY_LOCAL_MACHINE), ERROR_SUCCESS);
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void SimulatedHandlesTest::handlesAreNeverReused()
{
    const HKEY first = openKey();
    RegCloseKey(first);
    const HKEY second = openKey();
    QVERIFY(first != second);
    simulated::reset();
    QVERIFY(openKey() != second);
}

void SimulatedHandlesTest::handlesAreNotPointers()
{
    QVERIFY(reinterpret_cast<quintptr>(openKey()) < 0x100000);
}

void SimulatedHandlesTest::misuses_data()
{
    QTest::addColumn<Misuse>("misuse");
    const auto row = [](const char *name, std::function<void(HANDLE)> use) {
        QTest::newRow(name) << Misuse {QString::fromLatin1(name), std::move(use)};
    };
    static char buffer[64];
    static WCHAR wide[64];
    static DWORD size;
    static HKEY opened;
    row("RegOpenKeyExA", [](HANDLE h) { RegOpenKeyExA(as<HKEY>(h), "B", 0, KEY_READ, &opened); });
    row("RegOpenKeyExW", [](HANDLE h) { RegOpenKeyExW(as<HKEY>(h), L"B", 0, KEY_READ, &opened); });
    row("RegQueryValueExA", [](HANDLE h) { RegQueryValueExA(as<HKEY>(h), "", nullptr, nullptr, nullptr, &size); });
    row("RegQueryValueExW", [](HANDLE h) { RegQueryValueExW(as<HKEY>(h), L"", nullptr, nullptr, nullptr, &size); });
    row("RegEnumKeyExA", [](HANDLE h) { RegEnumKeyExA(as<HKEY>(h), 0, buffer, &size, nullptr, nullptr, nullptr, nullptr); });
    row("RegEnumKeyExW", [](HANDLE h) { RegEnumKeyExW(as<HKEY>(h), 0, wide, &size, nullptr, nullptr, nullptr, nullptr); });
    row("RegEnumKeyA", [](HANDLE h) { RegEnumKeyA(as<HKEY>(h), 0, buffer, 64); });
    row("RegEnumKeyW", [](HANDLE h) { RegEnumKeyW(as<HKEY>(h), 0, wide, 64); });
    row("RegEnumValueA", [](HANDLE h) { RegEnumValueA(as<HKEY>(h), 0, buffer, &size, nullptr, nullptr, nullptr, nullptr); });
    row("RegEnumValueW", [](HANDLE h) { RegEnumValueW(as<HKEY>(h), 0, wide, &size, nullptr, nullptr, nullptr, nullptr); });
    row("RegCloseKey", [](HANDLE h) { RegCloseKey(as<HKEY>(h)); });
    row("GetProcAddress", [](HANDLE h) { GetProcAddress(as<HMODULE>(h), "DNSServiceGetProperty"); });
    row("FreeLibrary", [](HANDLE h) { FreeLibrary(as<HMODULE>(h)); });
}

void SimulatedHandlesTest::misuses()
{
    QFETCH(Misuse, misuse);
    const bool wantsLibrary = misuse.name == QLatin1String("GetProcAddress") || misuse.name == QLatin1String("FreeLibrary");
    const HANDLE unknown = reinterpret_cast<HANDLE>(quintptr(0x12345678));
    const HKEY closedKey = openKey();
    RegCloseKey(closedKey);
    const HMODULE freedLibrary = LoadLibraryW(L"dnssd.dll");
    FreeLibrary(freedLibrary);
    const HANDLE ofAnotherKind = wantsLibrary ? static_cast<HANDLE>(openKey()) : LoadLibraryW(L"dnssd.dll");
    QStringList expected;
    const HANDLE wrong[] = {unknown, nullptr, closedKey, freedLibrary, ofAnotherKind};
    for (const HANDLE handle : wrong) {
        misuse.use(handle);
        expected += misuseText(misuse.name, handle);
    }
    QCOMPARE(simulated::handleMisuses(), expected);
    QCOMPARE(simulated::openHandles().size(), 1); // a handle of another type
}

void SimulatedHandlesTest::failingCloseInvalidatesTheHandle()
{
    const HKEY key = openKey();
    const HMODULE library = LoadLibraryW(L"dnssd.dll");
    {
        const auto closeFails = simulated::Fault::everyCall("RegCloseKey", ERROR_ACCESS_DENIED);
        const auto freeFails = simulated::Fault::everyCall("FreeLibrary", ERROR_ACCESS_DENIED);
        QCOMPARE(RegCloseKey(key), LSTATUS(ERROR_ACCESS_DENIED));
        QCOMPARE(FreeLibrary(library), FALSE);
    }
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(RegCloseKey(key), LSTATUS(ERROR_INVALID_HANDLE));
    QCOMPARE(simulated::handleMisuses(), QStringList(misuseText(QStringLiteral("RegCloseKey"), key)));
}

void SimulatedHandlesTest::resetClearsHandlesAndMisuses()
{
    const HKEY key = openKey();
    RegCloseKey(nullptr);
    simulated::reset();
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
    QCOMPARE(RegCloseKey(key), LSTATUS(ERROR_INVALID_HANDLE));
}

void SimulatedHandlesTest::openKeyOutlivesItsRemoval()
{
    const HKEY key = openKey("A\\B");
    simulated::machineInUse().registry.root(machine::RegistryRoot::LocalMachine)->removeSubKey(QStringLiteral("A"));
    DWORD size = 0;
    QCOMPARE(RegQueryValueExW(key, L"", nullptr, nullptr, nullptr, &size), ERROR_SUCCESS);
    QCOMPARE(size, DWORD(4));
    HKEY again = key;
    QCOMPARE(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "A\\B", 0, KEY_READ, &again), LSTATUS(ERROR_FILE_NOT_FOUND));
    QVERIFY(!again);
}

TEST_WITHOUT_APPLICATION(SimulatedHandlesTest);
#include "tst_simulated_handles.moc"
