// The registry in memory: names, order, and what changes while it is read.

#include "registry_tree.h"
#include "test_main.h"

#include <QtTest/QtTest>

using namespace machine;

class RegistryTreeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void upperCase_data();
    void upperCase();
    void subKeysKeepTheirOrderWhenTheyChange();
    void valuesKeepTheirPlaceWhenTheyChange();
    void removedKeyLivesOnForItsHolder();
    void paths_data();
    void paths();
    void rootsHaveTheirNames();
    void wholePaths_data();
    void wholePaths();
    void deniedKeys_data();
    void deniedKeys();
};

namespace {

QStringList subKeys(const RegistryKey &key)
{
    QStringList result;
    for (std::size_t i = 0; key.subKeyAt(i); ++i)
        result += key.subKeyAt(i)->name();
    return result;
}

QStringList values(const RegistryKey &key)
{
    QStringList result;
    for (const RegistryValue &value : key.values())
        result += value.name + QLatin1Char('=') + QLatin1String(value.data);
    return result;
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

void RegistryTreeTest::upperCase_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *text, const char *expected) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(expected);
    };
    row("Latin letters", "az_AZ09", "AZ_AZ09");
    row("letters with marks", "\u00e4\u00e9\u00ff", "\u00c4\u00c9\u0178");
    row("Greek and Cyrillic letters", "\u03b1\u0436", "\u0391\u0416");
    row("sharp s stays", "\u00df", "\u00df");
    row("i without a dot stays", "\u0131", "\u0131");
    row("I with a dot stays", "\u0130", "\u0130");
    row("the long s stays", "\u017f", "\u017f");
    row("the micro sign stays", "\u00b5", "\u00b5");
    row("the final sigma stays", "\u03c2", "\u03c2");
    row("a ligature stays", "\ufb01", "\ufb01");
    row("letters beyond 16 bits stay", "\U00010428", "\U00010428");
    QTest::newRow("a lone surrogate stays") << QString(QChar(0xd801)) << QString(QChar(0xd801));
}

void RegistryTreeTest::upperCase()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    QCOMPARE(upperCased(name), expected);
}

void RegistryTreeTest::subKeysKeepTheirOrderWhenTheyChange()
{
    RegistryKey key(QStringLiteral("K"));
    for (const QString &name : words("c A b"))
        key.createSubKey(name);
    QCOMPARE(subKeys(key), words("A b c"));
    key.createSubKey(QStringLiteral("AB"));
    QCOMPARE(subKeys(key), words("A AB b c"));
    QVERIFY(key.removeSubKey(QStringLiteral("a")));
    QVERIFY(!key.removeSubKey(QStringLiteral("a")));
    QCOMPARE(subKeys(key), words("AB b c"));
    QVERIFY(key.removeSubKey(QStringLiteral("b")));
    key.createSubKey(QStringLiteral("d"));
    QCOMPARE(subKeys(key), words("AB c d"));
    QCOMPARE(key.subKeyCount(), std::size_t(3));
    QVERIFY(!key.subKeyAt(3));
}

void RegistryTreeTest::valuesKeepTheirPlaceWhenTheyChange()
{
    RegistryKey key(QStringLiteral("K"));
    key.setValue({QStringLiteral("b"), 1, "1"});
    key.setValue({QStringLiteral("a"), 1, "2"});
    key.setValue({QStringLiteral("c"), 1, "3"});
    key.setValue({QStringLiteral("B"), 3, "4"});
    QCOMPARE(values(key), words("b=4 a=2 c=3"));
    QCOMPARE(key.findValue(QStringLiteral("b"))->type, 3u);
    QVERIFY(key.removeValue(QStringLiteral("A")));
    QVERIFY(!key.removeValue(QStringLiteral("A")));
    QCOMPARE(values(key), words("b=4 c=3"));
    QVERIFY(!key.findValue(QStringLiteral("a")));
}

void RegistryTreeTest::removedKeyLivesOnForItsHolder()
{
    RegistryKey key(QStringLiteral("K"));
    const auto held = key.createSubKey(QStringLiteral("a"));
    key.removeSubKey(QStringLiteral("a"));
    QCOMPARE(held->name(), QStringLiteral("a"));
    QVERIFY(!key.findSubKey(QStringLiteral("a")));
    QVERIFY(!key.subKeyAt(0));
}

void RegistryTreeTest::paths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name"); // empty: there is no such key
    QTest::newRow("one name") << QStringLiteral("A") << QStringLiteral("A");
    QTest::newRow("letters of either case") << QStringLiteral("a\\b") << QStringLiteral("B");
    QTest::newRow("empty: the key itself") << QString() << QStringLiteral("HKEY_LOCAL_MACHINE");
    QTest::newRow("doubled and trailing backslashes") << QStringLiteral("A\\\\B\\\\") << QStringLiteral("B");
    QTest::newRow("missing") << QStringLiteral("A\\C") << QString();
    QTest::newRow("below a missing one") << QStringLiteral("C\\B") << QString();
}

void RegistryTreeTest::paths()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    const Registry registry;
    const auto root = registry.root(RegistryRoot::LocalMachine);
    createKey(root, QStringLiteral("A\\B"));
    const auto found = findKey(root, path);
    QCOMPARE(found ? found->name() : QString(), name);
    QVERIFY2(root->subKeyCount() == 1, "looking makes no keys");
}

void RegistryTreeTest::rootsHaveTheirNames()
{
    const Registry registry;
    QCOMPARE(registry.root(RegistryRoot::ClassesRoot)->name(), QStringLiteral("HKEY_CLASSES_ROOT"));
    QCOMPARE(registry.root(RegistryRoot::CurrentUser)->name(), QStringLiteral("HKEY_CURRENT_USER"));
    QCOMPARE(registry.root(RegistryRoot::LocalMachine)->name(), QStringLiteral("HKEY_LOCAL_MACHINE"));
    QCOMPARE(registry.root(RegistryRoot::Users)->name(), QStringLiteral("HKEY_USERS"));
}

void RegistryTreeTest::wholePaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name"); // empty: there is no such root
    QTest::newRow("a key of a root") << QStringLiteral("HKEY_USERS\\A\\B") << QStringLiteral("B");
    QTest::newRow("a root in other letters") << QStringLiteral("hkey_Users\\A") << QStringLiteral("A");
    QTest::newRow("a root") << QStringLiteral("HKEY_CURRENT_USER") << QStringLiteral("HKEY_CURRENT_USER");
    QTest::newRow("a root's short name") << QStringLiteral("HKLM\\A") << QString();
    QTest::newRow("empty") << QString() << QString();
}

void RegistryTreeTest::wholePaths()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    const Registry registry;
    const auto key = createKey(registry, path);
    QCOMPARE(key ? key->name() : QString(), name);
}

void RegistryTreeTest::deniedKeys_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("denied");
    QTest::newRow("the key") << QStringLiteral("A\\B") << true;
    QTest::newRow("in other letters") << QStringLiteral("a\\b\\") << true;
    QTest::newRow("below it") << QStringLiteral("A\\B\\C") << true;
    QTest::newRow("missing below it") << QStringLiteral("A\\B\\None") << true;
    QTest::newRow("above it") << QStringLiteral("A") << false;
    QTest::newRow("beside it") << QStringLiteral("A\\BB") << false;
    QTest::newRow("missing") << QStringLiteral("A\\None") << false;
    QTest::newRow("the start itself") << QString() << false;
}

void RegistryTreeTest::deniedKeys()
{
    QFETCH(QString, path);
    QFETCH(bool, denied);
    const Registry registry;
    const auto root = registry.root(RegistryRoot::LocalMachine);
    createKey(root, QStringLiteral("A\\B\\C"));
    createKey(root, QStringLiteral("A\\BB"));
    findKey(root, QStringLiteral("A\\B"))->setDenied(true);
    QCOMPARE(isDenied(root, path), denied);
    QVERIFY2(isDenied(findKey(root, QStringLiteral("A\\B")), QStringLiteral("C")), "from the key on");
    QVERIFY2(!isDenied(findKey(root, QStringLiteral("A\\B\\C")), QString()), "what is above the start does not count");
}

TEST_WITHOUT_APPLICATION(RegistryTreeTest);
#include "tst_registry_tree.moc"
