// RegistryKey and its functions: names, order, and changes during an enumeration.

#include "registry_tree.h"
#include "rows.h"

#include <QtTest/QtTest>

using namespace machine;

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

void upperCase()
{
    const auto add = [](const QString &title, const QString &name, const QString &expected) {
        addTestRow(title, [=] {
            QCOMPARE(upperCased(name), expected);
        });
    };
    const auto row = [&](const char *name, const char *text, const char *expected) {
        add(name, QString::fromUtf8(text), QString::fromUtf8(expected));
    };
    row("Latin letters", "az_AZ09", "AZ_AZ09");
    row("letters with diacritics", "\u00e4\u00e9\u00ff", "\u00c4\u00c9\u0178");
    row("Greek and Cyrillic letters", "\u03b1\u0436", "\u0391\u0416");
    row("sharp s is unchanged", "\u00df", "\u00df");
    row("dotless i is unchanged", "\u0131", "\u0131");
    row("I with a dot is unchanged", "\u0130", "\u0130");
    row("the long s is unchanged", "\u017f", "\u017f");
    row("the micro sign is unchanged", "\u00b5", "\u00b5");
    row("the final sigma is unchanged", "\u03c2", "\u03c2");
    row("a ligature is unchanged", "\ufb01", "\ufb01");
    row("letters outside the BMP are unchanged", "\U00010428", "\U00010428");
    add("a lone surrogate is unchanged", QString(QChar(0xd801)), QString(QChar(0xd801)));
}

void subKeysKeepTheirOrderWhenTheyChange()
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

void valuesKeepTheirPlaceWhenTheyChange()
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

void removedKeyStaysValidForItsOwner()
{
    RegistryKey key(QStringLiteral("K"));
    const auto held = key.createSubKey(QStringLiteral("a"));
    key.removeSubKey(QStringLiteral("a"));
    QCOMPARE(held->name(), QStringLiteral("a"));
    QVERIFY(!key.findSubKey(QStringLiteral("a")));
    QVERIFY(!key.subKeyAt(0));
}

void paths()
{
    const auto row = [](const QString &title, const QString &path, const QString &name) {
        addTestRow(title, [=] {
            const Registry registry;
            const auto root = registry.root(RegistryRoot::LocalMachine);
            createKey(root, QStringLiteral("A\\B"));
            const auto found = findKey(root, path);
            QCOMPARE(found ? found->name() : QString(), name);
            QVERIFY2(root->subKeyCount() == 1, "findKey() does not create keys");
        });
    };
    row("one name", "A", "A");
    row("names are case-insensitive", "a\\b", "B");
    row("an empty path: the key itself", QString(), "HKEY_LOCAL_MACHINE");
    row("doubled and trailing backslashes", "A\\\\B\\\\", "B");
    row("missing", "A\\C", QString());
    row("below a missing one", "C\\B", QString());
}

void rootsHaveTheirNames()
{
    const Registry registry;
    QCOMPARE(registry.root(RegistryRoot::ClassesRoot)->name(), QStringLiteral("HKEY_CLASSES_ROOT"));
    QCOMPARE(registry.root(RegistryRoot::CurrentUser)->name(), QStringLiteral("HKEY_CURRENT_USER"));
    QCOMPARE(registry.root(RegistryRoot::LocalMachine)->name(), QStringLiteral("HKEY_LOCAL_MACHINE"));
    QCOMPARE(registry.root(RegistryRoot::Users)->name(), QStringLiteral("HKEY_USERS"));
}

void wholePaths()
{
    const auto row = [](const QString &title, const QString &path, const QString &name) {
        addTestRow(title, [=] {
            const Registry registry;
            const auto key = createKey(registry, path);
            QCOMPARE(key ? key->name() : QString(), name);
        });
    };
    row("a key of a root", "HKEY_USERS\\A\\B", "B");
    row("a root in another case", "hkey_Users\\A", "A");
    row("a root", "HKEY_CURRENT_USER", "HKEY_CURRENT_USER");
    row("the short name of a root", "HKLM\\A", QString());
    row("empty", QString(), QString());
}

void deniedKeys()
{
    const auto row = [](const QString &name, const QString &path, bool denied) {
        addTestRow(name, [=] {
            const Registry registry;
            const auto root = registry.root(RegistryRoot::LocalMachine);
            createKey(root, QStringLiteral("A\\B\\C"));
            createKey(root, QStringLiteral("A\\BB"));
            findKey(root, QStringLiteral("A\\B"))->setDenied(true);
            QCOMPARE(isDenied(root, path), denied);
            QVERIFY2(isDenied(findKey(root, QStringLiteral("A\\B")), QStringLiteral("C")), "a path that starts at the denied key");
            QVERIFY2(!isDenied(findKey(root, QStringLiteral("A\\B\\C")), QString()), "a denied key above the start is ignored");
        });
    };
    row("the denied key", "A\\B", true);
    row("the denied key in another case", "a\\b\\", true);
    row("a key below it", "A\\B\\C", true);
    row("a missing key below it", "A\\B\\None", true);
    row("its parent", "A", false);
    row("its sibling", "A\\BB", false);
    row("missing", "A\\None", false);
    row("an empty path", QString(), false);
}

void addTests()
{
    addTestRows("upperCase", upperCase);
    addTestRow("subKeysKeepTheirOrderWhenTheyChange", subKeysKeepTheirOrderWhenTheyChange);
    addTestRow("valuesKeepTheirPlaceWhenTheyChange", valuesKeepTheirPlaceWhenTheyChange);
    addTestRow("removedKeyStaysValidForItsOwner", removedKeyStaysValidForItsOwner);
    addTestRows("paths", paths);
    addTestRow("rootsHaveTheirNames", rootsHaveTheirNames);
    addTestRows("wholePaths", wholePaths);
    addTestRows("deniedKeys", deniedKeys);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
