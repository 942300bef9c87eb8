// RegOpenKeyEx, both forms, and RegCloseKey: which paths lead where.

#include "contract.h"
#include "test_main.h"

class ContractRegistryKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paths_data();
    void paths();
    void lettersOfEitherCase_data();
    void lettersOfEitherCase();
    void belowAnOpenKey_data();
    void belowAnOpenKey();
    void narrowPathIsReadInTheCodePage_data();
    void narrowPathIsReadInTheCodePage();
    void access_data();
    void access();
    void roots_data();
    void roots();
    void noPathOpensTheKeyItself();
    void deniedKeys_data();
    void deniedKeys();
    void deniedKeysAreEnumerated();
    void invalidCalls();
    void closing();
};

namespace {

// Each key says where it is.
QByteArray registry()
{
    return "[HKEY_LOCAL_MACHINE]\n\"Where\"=\"root\"\n"
           "[HKEY_LOCAL_MACHINE\\Alpha]\n\"Where\"=\"Alpha\"\n"
           "[HKEY_LOCAL_MACHINE\\Alpha\\Beta]\n\"Where\"=\"Alpha, Beta\"\n"
           "[HKEY_LOCAL_MACHINE\\Alpha\\Beta Gamma]\n\"Where\"=\"Alpha, Beta Gamma\"\n"
           "[HKEY_LOCAL_MACHINE\\Gr\u00f6\u00dfe]\n\"Where\"=\"size\"\n"
           "[HKEY_LOCAL_MACHINE\\\u0416]\n\"Where\"=\"zhe\"\n"
           "[HKEY_CURRENT_USER\\Alpha]\n\"Where\"=\"user\"\n"
           "[HKEY_CLASSES_ROOT\\vkSystemInfoContract]\n\"Where\"=\"classes\"\n";
}

HKEY poisonedKey()
{
    return reinterpret_cast<HKEY>(quintptr(poison));
}

/// What the key says, closed afterwards; or how opening it failed.
QString whereIs(LSTATUS status, HKEY key)
{
    if (status != LSTATUS(ERROR_SUCCESS))
        return QStringLiteral("%1%2").arg(status).arg(key ? QStringLiteral(", handle set") : QString());
    WCHAR text[40] = {};
    DWORD size = sizeof text;
    RegQueryValueExW(key, L"Where", nullptr, nullptr, reinterpret_cast<LPBYTE>(text), &size);
    const LSTATUS closed = RegCloseKey(key);
    return closed == LSTATUS(ERROR_SUCCESS) ? QString::fromWCharArray(text) : QStringLiteral("not closed");
}

QString openNarrow(HKEY root, const QByteArray &path, REGSAM mask = KEY_READ)
{
    HKEY key = poisonedKey();
    const LSTATUS status = RegOpenKeyExA(root, path.constData(), 0, mask, &key);
    return whereIs(status, key);
}

QString openWide(HKEY root, const QString &path, REGSAM mask = KEY_READ)
{
    HKEY key = poisonedKey();
    const LSTATUS status = RegOpenKeyExW(root, wide(path), 0, mask, &key);
    return whereIs(status, key);
}

} // namespace

void ContractRegistryKeysTest::paths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *path, const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(path) << QString::fromLatin1(expected);
    };
    row("one name", "Alpha", "Alpha");
    row("two names", "Alpha\\Beta", "Alpha, Beta");
    row("letters of either case", "aLPHA\\BETA gamma", "Alpha, Beta Gamma");
    row("empty: the key itself", "", "root");
    row("a trailing backslash", "Alpha\\", "Alpha");
    row("several trailing backslashes", "Alpha\\Beta\\\\\\", "Alpha, Beta");
    row("a doubled backslash", "Alpha\\\\Beta", "Alpha, Beta");
    row("a tripled backslash", "Alpha\\\\\\Beta", "Alpha, Beta");
    row("a leading backslash", "\\Alpha", "161");
    row("two leading backslashes", "\\\\Alpha", "161");
    row("a backslash alone", "\\", "161");
    row("a leading backslash before a missing key", "\\Missing", "161");
    row("a missing key: no handle", "Missing", "2");
    row("a missing sub-key: no handle", "Alpha\\Missing", "2");
    row("below a missing key: no handle", "Missing\\Beta", "2");
    row("a part of a name", "Alph", "2");
    row("a name and more", "Alphas", "2");
    row("a forward slash is a letter", "Alpha/Beta", "2");
    row("a value is no key", "Alpha\\Where", "2");
}

void ContractRegistryKeysTest::paths()
{
    QFETCH(QString, path);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry());
    QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, path.toLatin1()), expected);
    QCOMPARE(openWide(HKEY_LOCAL_MACHINE, path), expected);
}

void ContractRegistryKeysTest::lettersOfEitherCase_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *key, const char *asked, bool same) {
        QTest::newRow(name) << QString::fromUtf8(key) << QString::fromUtf8(asked)
                            << (same ? QStringLiteral("here") : QStringLiteral("2"));
    };
    row("Latin letters with marks", "\u00e9\u0159", "\u00c9\u0158", true);
    row("Greek letters", "\u03b1\u03c9", "\u0391\u03a9", true);
    row("Cyrillic letters", "\u0436\u0451", "\u0416\u0401", true);
    row("y with two dots, whose capital is far away", "\u00ff", "\u0178", true);
    row("wide letters", "\uff41", "\uff21", true);
    row("sharp s has no capital", "\u00df", "SS", false);
    row("i without a dot is not the small letter of I", "\u0131", "I", false);
    row("the long s is not the small letter of S", "\u017f", "S", false);
    row("the micro sign is not the small letter of Greek My", "\u00b5", "\u039c", false);
    row("the final sigma is not the small letter of Sigma", "\u03c2", "\u03a3", false);
    row("letters beyond 16 bits have no case", "\U00010428", "\U00010400", false);
}

void ContractRegistryKeysTest::lettersOfEitherCase()
{
    QFETCH(QString, name);
    QFETCH(QString, asked);
    QFETCH(QString, expected);
    const DescribedWindows windows("[HKEY_LOCAL_MACHINE\\" + name.toUtf8() + "]\n\"Where\"=\"here\"\n");
    QCOMPARE(openWide(HKEY_LOCAL_MACHINE, asked), expected);
    QCOMPARE(openWide(HKEY_LOCAL_MACHINE, name), QStringLiteral("here"));
}

void ContractRegistryKeysTest::belowAnOpenKey_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a sub-key") << QStringLiteral("Beta") << QStringLiteral("Alpha, Beta");
    QTest::newRow("empty: the key itself") << QString() << QStringLiteral("Alpha");
    QTest::newRow("a trailing backslash") << QStringLiteral("Beta\\") << QStringLiteral("Alpha, Beta");
    QTest::newRow("a missing key: no handle") << QStringLiteral("Alpha") << QStringLiteral("2");
    QTest::newRow("a leading backslash") << QStringLiteral("\\Beta") << QStringLiteral("161");
}

void ContractRegistryKeysTest::belowAnOpenKey()
{
    QFETCH(QString, path);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry());
    const OpenKey alpha(HKEY_LOCAL_MACHINE, "Alpha");
    QCOMPARE(openNarrow(alpha.handle(), path.toLatin1()), expected);
    QCOMPARE(openWide(alpha.handle(), path), expected);
}

void ContractRegistryKeysTest::narrowPathIsReadInTheCodePage_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("expected");
    QTest::newRow("letters of the code page") << QByteArray("Gr\xf6\xdf"
                                                            "e")
                                              << QStringLiteral("size");
    QTest::newRow("letters in upper case; sharp s has none") << QByteArray("GR\xd6\xdf"
                                                                           "E")
                                                             << QStringLiteral("size");
    QTest::newRow("the same in UTF-8 is another name") << QByteArray("Gr\u00f6\u00dfe") << QStringLiteral("2");
    QTest::newRow("a letter that the code page lacks cannot be named") << QByteArray("?") << QStringLiteral("2");
}

void ContractRegistryKeysTest::narrowPathIsReadInTheCodePage()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry());
    QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, path), expected);
    QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("\u0416")), QStringLiteral("zhe"));
    QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("\u0436")), QStringLiteral("zhe"));
}

void ContractRegistryKeysTest::access_data()
{
    QTest::addColumn<REGSAM>("mask");
    QTest::newRow("read") << REGSAM(0x20019);
    QTest::newRow("read, 64-bit view: the same key") << REGSAM(0x20119);
}

void ContractRegistryKeysTest::access()
{
    QFETCH(REGSAM, mask);
    const DescribedWindows windows(registry());
    QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, "Alpha\\Beta", mask), QStringLiteral("Alpha, Beta"));
    QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("Alpha\\Beta"), mask), QStringLiteral("Alpha, Beta"));
    QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, "Missing", mask), QStringLiteral("2"));
}

void ContractRegistryKeysTest::roots_data()
{
    QTest::addColumn<quintptr>("root");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    const auto number = [](HKEY root) { return reinterpret_cast<quintptr>(root); };
    QTest::newRow("the machine") << number(HKEY_LOCAL_MACHINE) << QStringLiteral("Alpha") << QStringLiteral("Alpha");
    QTest::newRow("the user") << number(HKEY_CURRENT_USER) << QStringLiteral("Alpha") << QStringLiteral("user");
    QTest::newRow("the classes") << number(HKEY_CLASSES_ROOT) << QStringLiteral("vkSystemInfoContract")
                                 << QStringLiteral("classes");
    QTest::newRow("all users: not the current one")
        << number(HKEY_USERS) << QStringLiteral("Alpha") << QStringLiteral("2");
}

void ContractRegistryKeysTest::roots()
{
    QFETCH(quintptr, root);
    QFETCH(QString, path);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry());
    QCOMPARE(openNarrow(reinterpret_cast<HKEY>(root), path.toLatin1()), expected);
    QCOMPARE(openWide(reinterpret_cast<HKEY>(root), path), expected);
}

void ContractRegistryKeysTest::noPathOpensTheKeyItself()
{
    const DescribedWindows windows(registry());
    const OpenKey alpha(HKEY_LOCAL_MACHINE, "Alpha");
    HKEY key = poisonedKey();
    LSTATUS status = RegOpenKeyExA(alpha.handle(), nullptr, 0, KEY_READ, &key);
    QCOMPARE(whereIs(status, key), QStringLiteral("Alpha"));
    status = RegOpenKeyExW(alpha.handle(), nullptr, 0, KEY_READ, &key);
    QCOMPARE(whereIs(status, key), QStringLiteral("Alpha"));
}

void ContractRegistryKeysTest::deniedKeys_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *path, const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(path) << QString::fromLatin1(expected);
    };
    row("the key itself: no handle", "Alpha\\Beta", "5");
    row("in other letters", "ALPHA\\beta", "5");
    row("a key below it: no handle", "Alpha\\Beta\\Delta", "5");
    row("a missing key below it", "Alpha\\Beta\\Missing", "2");
    row("its parent", "Alpha", "Alpha");
    row("its neighbour", "Alpha\\Beta Gamma", "Alpha, Beta Gamma");
    row("one that is described nowhere else", "New\\Denied", "5");
    row("the parent of that one has no value", "New", "");
}

void ContractRegistryKeysTest::deniedKeys()
{
    QFETCH(QString, path);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry() + "[HKEY_LOCAL_MACHINE\\Alpha\\Beta\\Delta]\n\"Where\"=\"below\"\n",
                                   R"({"deniedKeys": ["HKEY_LOCAL_MACHINE\\Alpha\\Beta", "HKEY_LOCAL_MACHINE\\New\\Denied"]})");
    QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, path.toLatin1()), expected);
    QCOMPARE(openWide(HKEY_LOCAL_MACHINE, path), expected);
    if (path.startsWith(QLatin1String("Alpha\\"))) {
        const OpenKey alpha(HKEY_LOCAL_MACHINE, "Alpha");
        QCOMPARE(openNarrow(alpha.handle(), path.mid(6).toLatin1()), expected);
    }
}

void ContractRegistryKeysTest::deniedKeysAreEnumerated()
{
    const DescribedWindows windows(registry(), R"({"deniedKeys": ["HKEY_LOCAL_MACHINE\\Alpha\\Beta"]})");
    const OpenKey alpha(HKEY_LOCAL_MACHINE, "Alpha");
    CHAR name[40];
    QCOMPARE(RegEnumKeyA(alpha.handle(), 0, name, sizeof name), LSTATUS(ERROR_SUCCESS));
    QCOMPARE(QByteArray(name), QByteArray("Beta"));
    QCOMPARE(RegEnumKeyA(alpha.handle(), 1, name, sizeof name), LSTATUS(ERROR_SUCCESS));
    QCOMPARE(QByteArray(name), QByteArray("Beta Gamma"));
}

void ContractRegistryKeysTest::invalidCalls()
{
    const DescribedWindows windows(registry());
    HKEY key = nullptr;
    QCOMPARE(RegOpenKeyExA(nullptr, "Alpha", 0, KEY_READ, &key), LSTATUS(ERROR_INVALID_HANDLE));
    QCOMPARE(RegOpenKeyExW(nullptr, L"Alpha", 0, KEY_READ, &key), LSTATUS(ERROR_INVALID_HANDLE));
}

void ContractRegistryKeysTest::closing()
{
    const DescribedWindows windows(registry());
    HKEY first = nullptr;
    HKEY second = nullptr;
    QCOMPARE(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Alpha", 0, KEY_READ, &first), LSTATUS(ERROR_SUCCESS));
    QCOMPARE(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Alpha", 0, KEY_READ, &second), LSTATUS(ERROR_SUCCESS));
    QVERIFY2(first != second, "each opening has its own handle");
    QCOMPARE(RegCloseKey(first), LSTATUS(ERROR_SUCCESS));
    QCOMPARE(RegCloseKey(first), LSTATUS(ERROR_INVALID_HANDLE));
    QCOMPARE(whereIs(ERROR_SUCCESS, second), QStringLiteral("Alpha"));
    QCOMPARE(RegCloseKey(nullptr), LSTATUS(ERROR_INVALID_HANDLE));
    QCOMPARE(RegCloseKey(HKEY_CLASSES_ROOT), LSTATUS(ERROR_SUCCESS));
    QCOMPARE(openNarrow(HKEY_CLASSES_ROOT, "vkSystemInfoContract"), QStringLiteral("classes"));
}

TEST_WITH_CORE_APPLICATION(ContractRegistryKeysTest);
#include "tst_contract_registry_keys.moc"
