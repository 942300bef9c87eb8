// DescribedWindows on a real Windows: replaces the root keys and changes nothing else in the
// registry.

#include "described_windows.h"
#include "open_key.h"
#include "test_main.h"

#include <QtTest/QtTest>
#include <windows.h>

class DescribedWindowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rootsAreReplaced_data();
    void rootsAreReplaced();
    void realRegistryIsUnchanged();
    void keysAreVolatile_data();
    void keysAreVolatile();
    void treeOfACrashedProcessIsRemoved();
};

namespace {

/// A handle of the user's root key that RegOverridePredefKey() does not affect.
HKEY currentUser()
{
    HKEY key = nullptr;
    RegOpenCurrentUser(KEY_READ, &key);
    return key;
}

QStringList subKeys(HKEY key)
{
    QStringList names;
    wchar_t name[256];
    for (DWORD index = 0; RegEnumKeyW(key, index, name, 256) == ERROR_SUCCESS; ++index)
        names += QString::fromWCharArray(name);
    return names;
}

QStringList subKeys(HKEY root, const QString &path)
{
    const RegistryKey key = openKeyWide(root, path);
    return key.get() ? subKeys(key.get()) : QStringList();
}

QStringList difference(QStringList from, const QStringList &names)
{
    for (const QString &name : names)
        from.removeAll(name);
    return from;
}

QByteArray description()
{
    return "[HKEY_LOCAL_MACHINE\\MachineKey]\n"
           "[HKEY_LOCAL_MACHINE\\Software\\MachineKey]\n"
           "[HKEY_CURRENT_USER\\UserKey]\n"
           "[HKEY_CLASSES_ROOT\\ClassesKey]\n"
           "[HKEY_CLASSES_ROOT\\Installer\\Products\\A1]\n\"ProductName\"=\"Described\"\n";
}

} // namespace

void DescribedWindowsTest::rootsAreReplaced_data()
{
    QTest::addColumn<quintptr>("root");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, HKEY root, const QStringList &expected) {
        QTest::newRow(name) << quintptr(root) << expected;
    };
    row("HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE, {"MachineKey", "Software"});
    row("HKEY_CURRENT_USER", HKEY_CURRENT_USER, {"UserKey"});
    row("HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT, {"ClassesKey", "Installer"});
}

void DescribedWindowsTest::rootsAreReplaced()
{
    QFETCH(quintptr, root);
    QFETCH(QStringList, expected);
    const auto key = reinterpret_cast<HKEY>(root);
    const QStringList before = subKeys(key);
    {
        const DescribedWindows windows(description());
        QCOMPARE(subKeys(key), expected);
    }
    QCOMPARE(subKeys(key), before);
    QVERIFY(before != expected);
}

// Keys that are opened before the roots are replaced belong to the real registry.
void DescribedWindowsTest::realRegistryIsUnchanged()
{
    const RegistryKey machine = openKeyWide(HKEY_LOCAL_MACHINE, "Software");
    const RegistryKey machineClasses = openKeyWide(HKEY_LOCAL_MACHINE, "Software\\Classes");
    const RegistryKey user(currentUser());
    const RegistryKey software = openKeyWide(HKEY_CURRENT_USER, "Software");
    const QStringList machineBefore = subKeys(machine.get());
    const QStringList machineClassesBefore = subKeys(machineClasses.get());
    const QStringList userBefore = subKeys(user.get());
    const QStringList softwareBefore = subKeys(software.get());
    const QStringList userClassesBefore = subKeys(software.get(), "Classes");
    QVERIFY(!machineBefore.isEmpty() && !machineClassesBefore.isEmpty() && !userBefore.isEmpty()
            && !softwareBefore.isEmpty());
    {
        const DescribedWindows windows(description());
        QCOMPARE(subKeys(machine.get()), machineBefore);
        QCOMPARE(subKeys(machineClasses.get()), machineClassesBefore);
        QCOMPARE(subKeys(user.get()), userBefore);
        QCOMPARE(subKeys(software.get(), "Classes"), userClassesBefore);
        QCOMPARE(difference(subKeys(software.get()), softwareBefore),
                 QStringList(QStringLiteral("vkSystemInfo test %1").arg(GetCurrentProcessId())));
    }
    QCOMPARE(subKeys(machine.get()), machineBefore);
    QCOMPARE(subKeys(machineClasses.get()), machineClassesBefore);
    QCOMPARE(subKeys(user.get()), userBefore);
    QCOMPARE(subKeys(software.get(), "Classes"), userClassesBefore);
    QCOMPARE(subKeys(software.get()), softwareBefore);
}

void DescribedWindowsTest::keysAreVolatile_data()
{
    QTest::addColumn<quintptr>("root");
    QTest::addColumn<QString>("path");
    const auto row = [](const char *name, HKEY root, const char *path) {
        QTest::newRow(name) << quintptr(root) << QString(path);
    };
    row("HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE, "Added");
    row("HKEY_CURRENT_USER", HKEY_CURRENT_USER, "Added");
    row("HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT, "Added");
    row("a described key", HKEY_LOCAL_MACHINE, "MachineKey\\Added");
    row("a described key below HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT, "Installer\\Products\\A1\\Added");
}

// Windows refuses to create a permanent key below a volatile one.
void DescribedWindowsTest::keysAreVolatile()
{
    QFETCH(quintptr, root);
    QFETCH(QString, path);
    const DescribedWindows windows(description());
    HKEY key = nullptr;
    QCOMPARE(RegCreateKeyExW(reinterpret_cast<HKEY>(root), wide(path), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr,
                             &key, nullptr),
             LSTATUS(ERROR_CHILD_MUST_BE_VOLATILE));
}

void DescribedWindowsTest::treeOfACrashedProcessIsRemoved()
{
    const RegistryKey software = openKeyWide(HKEY_CURRENT_USER, "Software", KEY_READ | KEY_WRITE);
    QString own;
    QStringList roots;
    {
        const QStringList before = subKeys(software.get());
        const DescribedWindows windows(description());
        own = difference(subKeys(software.get()), before).join('\n');
        roots = subKeys(software.get(), own);
    }
    QCOMPARE(roots.size(), 3);
    for (const QString &root : qAsConst(roots)) {
        HKEY stale = nullptr;
        QCOMPARE(RegCreateKeyExW(software.get(), wide(own + '\\' + root + "\\Stale"), 0, nullptr, REG_OPTION_VOLATILE,
                                 KEY_WRITE, nullptr, &stale, nullptr),
                 ERROR_SUCCESS);
        RegCloseKey(stale);
    }
    const DescribedWindows windows("");
    QCOMPARE(subKeys(HKEY_LOCAL_MACHINE), QStringList());
    QCOMPARE(subKeys(HKEY_CURRENT_USER), QStringList());
    QCOMPARE(subKeys(HKEY_CLASSES_ROOT), QStringList());
}

TEST_WITH_CORE_APPLICATION(DescribedWindowsTest);
#include "tst_described_windows.moc"
