// RegOpenKeyExA(), RegOpenKeyExW() and RegCloseKey(): which key a path opens.

#include "contract.h"
#include "rows.h"

namespace {

// The value "Where" of each key names the key.
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

/// Closes \a key and returns its value "Where", or "not closed" if RegCloseKey() fails. If \a status is
/// an error, returns only its number, and ", handle set" if \a key is not null.
QString whereIs(LSTATUS status, HKEY key)
{
    if (status != ERROR_SUCCESS)
        return QStringLiteral("%1%2").arg(status).arg(key ? QStringLiteral(", handle set") : QString());
    WCHAR text[40] = {};
    DWORD size = sizeof text;
    RegQueryValueExW(key, L"Where", nullptr, nullptr, reinterpret_cast<LPBYTE>(text), &size);
    const LSTATUS closed = RegCloseKey(key);
    return closed == ERROR_SUCCESS ? QString::fromWCharArray(text) : QStringLiteral("not closed");
}

QString openAnsi(HKEY root, const QByteArray &path, REGSAM mask = KEY_READ)
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

void paths()
{
    const auto row = [](const char *name, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            QCOMPARE(openAnsi(HKEY_LOCAL_MACHINE, path.toLatin1()), expected);
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, path), expected);
        });
    };
    row("one name", "Alpha", "Alpha");
    row("two names", "Alpha\\Beta", "Alpha, Beta");
    row("names are case-insensitive", "aLPHA\\BETA gamma", "Alpha, Beta Gamma");
    row("an empty path: the root", "", "root");
    row("a trailing backslash is ignored", "Alpha\\", "Alpha");
    row("several trailing backslashes are ignored", "Alpha\\Beta\\\\\\", "Alpha, Beta");
    row("a doubled backslash separates like one", "Alpha\\\\Beta", "Alpha, Beta");
    row("a tripled backslash separates like one", "Alpha\\\\\\Beta", "Alpha, Beta");
    row("a leading backslash: ERROR_BAD_PATHNAME", "\\Alpha", "161");
    row("two leading backslashes: ERROR_BAD_PATHNAME", "\\\\Alpha", "161");
    row("only a backslash: ERROR_BAD_PATHNAME", "\\", "161");
    row("a leading backslash before a missing key: ERROR_BAD_PATHNAME", "\\Missing", "161");
    row("a missing key: ERROR_FILE_NOT_FOUND, no handle", "Missing", "2");
    row("a missing sub-key: ERROR_FILE_NOT_FOUND, no handle", "Alpha\\Missing", "2");
    row("a sub-key of a missing key: ERROR_FILE_NOT_FOUND, no handle", "Missing\\Beta", "2");
    row("a prefix of a key name does not match", "Alph", "2");
    row("a key name with an extra character does not match", "Alphas", "2");
    row("a forward slash does not separate keys", "Alpha/Beta", "2");
    row("a value is not a key", "Alpha\\Where", "2");
}

void caseOfNonAsciiLetters()
{
    const auto row = [](const QString &title, const QString &name, const QString &asked, bool same) {
        addTestRow(title, [=] {
            const DescribedWindows windows("[HKEY_LOCAL_MACHINE\\" + name.toUtf8() + "]\n\"Where\"=\"here\"\n");
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, asked), QString(same ? "here" : "2"));
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, name), QString("here"));
        });
    };
    row("Latin letters with diacritics", "\u00e9\u0159", "\u00c9\u0158", true);
    row("Greek letters", "\u03b1\u03c9", "\u0391\u03a9", true);
    row("Cyrillic letters", "\u0436\u0451", "\u0416\u0401", true);
    row("y with diaeresis, whose capital is outside Latin-1", "\u00ff", "\u0178", true);
    row("full-width letters", "\uff41", "\uff21", true);
    row("sharp s does not match SS", "\u00df", "SS", false);
    row("dotless i does not match I", "\u0131", "I", false);
    row("long s does not match S", "\u017f", "S", false);
    row("the micro sign does not match capital Mu", "\u00b5", "\u039c", false);
    row("final sigma does not match capital Sigma", "\u03c2", "\u03a3", false);
    row("letters outside the BMP are case-sensitive", "\U00010428", "\U00010400", false);
}

void belowAnOpenKey()
{
    const auto row = [](const QString &name, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            const RegistryKey alpha = openKeyWide(HKEY_LOCAL_MACHINE, "Alpha");
            QCOMPARE(openAnsi(alpha.get(), path.toLatin1()), expected);
            QCOMPARE(openWide(alpha.get(), path), expected);
        });
    };
    row("a sub-key", "Beta", "Alpha, Beta");
    row("an empty path: the key itself", QString(), "Alpha");
    row("a trailing backslash is ignored", "Beta\\", "Alpha, Beta");
    row("a missing key: ERROR_FILE_NOT_FOUND, no handle", "Alpha", "2");
    row("a leading backslash: ERROR_BAD_PATHNAME", "\\Beta", "161");
}

void pathOfAnsiFunctionIsInTheCodePage()
{
    const auto row = [](const QString &name, const QByteArray &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            QCOMPARE(openAnsi(HKEY_LOCAL_MACHINE, path), expected);
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("\u0416")), QStringLiteral("zhe"));
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("\u0436")), QStringLiteral("zhe"));
        });
    };
    row("letters of the code page", QByteArray("Gr\xf6\xdf"
                                               "e"),
        QStringLiteral("size"));
    row("upper-case letters of the code page match", QByteArray("GR\xd6\xdf"
                                                                "E"),
        QStringLiteral("size"));
    row("the UTF-8 bytes of the name do not match: ERROR_FILE_NOT_FOUND", QByteArray("Gr\u00f6\u00dfe"), "2");
    row("a question mark does not match a letter outside the code page: ERROR_FILE_NOT_FOUND", QByteArray("?"), "2");
}

void access()
{
    const auto row = [](const QString &name, const REGSAM &mask) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            QCOMPARE(openAnsi(HKEY_LOCAL_MACHINE, "Alpha\\Beta", mask), QStringLiteral("Alpha, Beta"));
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("Alpha\\Beta"), mask), QStringLiteral("Alpha, Beta"));
            QCOMPARE(openAnsi(HKEY_LOCAL_MACHINE, "Missing", mask), QStringLiteral("2"));
        });
    };
    row("KEY_READ", REGSAM(0x20019));
    row("KEY_READ with KEY_WOW64_64KEY opens the same key", REGSAM(0x20119));
}

void roots()
{
    const auto row = [](const QString &name, const quintptr &root, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            QCOMPARE(openAnsi(reinterpret_cast<HKEY>(root), path.toLatin1()), expected);
            QCOMPARE(openWide(reinterpret_cast<HKEY>(root), path), expected);
        });
    };
    const auto number = [](HKEY root) { return reinterpret_cast<quintptr>(root); };
    row("HKEY_LOCAL_MACHINE", number(HKEY_LOCAL_MACHINE), "Alpha", "Alpha");
    row("HKEY_CURRENT_USER", number(HKEY_CURRENT_USER), "Alpha", "user");
    row("HKEY_CLASSES_ROOT", number(HKEY_CLASSES_ROOT), "vkSystemInfoContract", "classes");
    row("HKEY_USERS does not contain the keys of HKEY_CURRENT_USER: ERROR_FILE_NOT_FOUND", number(HKEY_USERS), "Alpha", "2");
}

void nullPathOpensTheKeyItself()
{
    const DescribedWindows windows(registry());
    const RegistryKey alpha = openKeyWide(HKEY_LOCAL_MACHINE, "Alpha");
    HKEY key = poisonedKey();
    LSTATUS status = RegOpenKeyExA(alpha.get(), nullptr, 0, KEY_READ, &key);
    QCOMPARE(whereIs(status, key), QStringLiteral("Alpha"));
    status = RegOpenKeyExW(alpha.get(), nullptr, 0, KEY_READ, &key);
    QCOMPARE(whereIs(status, key), QStringLiteral("Alpha"));
}

void deniedKeys()
{
    const auto row = [](const char *name, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry() + "[HKEY_LOCAL_MACHINE\\Alpha\\Beta\\Delta]\n\"Where\"=\"below\"\n",
                                           R"({"deniedKeys": ["HKEY_LOCAL_MACHINE\\Alpha\\Beta", "HKEY_LOCAL_MACHINE\\New\\Denied"]})");
            QCOMPARE(openAnsi(HKEY_LOCAL_MACHINE, path.toLatin1()), expected);
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, path), expected);
            if (path.startsWith(QLatin1String("Alpha\\"))) {
                const RegistryKey alpha = openKeyWide(HKEY_LOCAL_MACHINE, "Alpha");
                QCOMPARE(openAnsi(alpha.get(), path.mid(6).toLatin1()), expected);
            }
        });
    };
    row("the denied key: ERROR_ACCESS_DENIED, no handle", "Alpha\\Beta", "5");
    row("the denied key in upper and lower case: ERROR_ACCESS_DENIED", "ALPHA\\beta", "5");
    row("a sub-key of the denied key: ERROR_ACCESS_DENIED, no handle", "Alpha\\Beta\\Delta", "5");
    row("a missing sub-key of the denied key: ERROR_FILE_NOT_FOUND", "Alpha\\Beta\\Missing", "2");
    row("the parent of the denied key opens", "Alpha", "Alpha");
    row("a sibling of the denied key opens", "Alpha\\Beta Gamma", "Alpha, Beta Gamma");
    row("a denied key that registry.reg does not contain: ERROR_ACCESS_DENIED", "New\\Denied", "5");
    row("the parent of a denied key that registry.reg does not contain exists", "New", "");
}

void deniedKeysAreEnumerated()
{
    const DescribedWindows windows(registry(), R"({"deniedKeys": ["HKEY_LOCAL_MACHINE\\Alpha\\Beta"]})");
    const RegistryKey alpha = openKeyWide(HKEY_LOCAL_MACHINE, "Alpha");
    CHAR name[40];
    QCOMPARE(RegEnumKeyA(alpha.get(), 0, name, sizeof name), ERROR_SUCCESS);
    QCOMPARE(QByteArray(name), QByteArray("Beta"));
    QCOMPARE(RegEnumKeyA(alpha.get(), 1, name, sizeof name), ERROR_SUCCESS);
    QCOMPARE(QByteArray(name), QByteArray("Beta Gamma"));
}

void nullRootIsAnInvalidHandle()
{
    const DescribedWindows windows(registry());
    HKEY key = nullptr;
    QCOMPARE(RegOpenKeyExA(nullptr, "Alpha", 0, KEY_READ, &key), LSTATUS(ERROR_INVALID_HANDLE));
    QCOMPARE(RegOpenKeyExW(nullptr, L"Alpha", 0, KEY_READ, &key), LSTATUS(ERROR_INVALID_HANDLE));
}

HKEY openedAlpha()
{
    HKEY key = nullptr;
    RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Alpha", 0, KEY_READ, &key);
    return key;
}

void closing()
{
    addTestRow("each open returns a new handle, which stays open if the other is closed", [] {
        const DescribedWindows windows(registry());
        const HKEY first = openedAlpha();
        const HKEY second = openedAlpha();
        QVERIFY(first && second);
        QVERIFY(first != second);
        QCOMPARE(RegCloseKey(first), ERROR_SUCCESS);
        QCOMPARE(whereIs(ERROR_SUCCESS, second), QStringLiteral("Alpha"));
    });
    addTestRow("closing twice fails: ERROR_INVALID_HANDLE", [] {
        const DescribedWindows windows(registry());
        const HKEY key = openedAlpha();
        QVERIFY(key);
        QCOMPARE(RegCloseKey(key), ERROR_SUCCESS);
        QCOMPARE(RegCloseKey(key), LSTATUS(ERROR_INVALID_HANDLE));
    });
    addTestRow("closing null fails: ERROR_INVALID_HANDLE", [] {
        const DescribedWindows windows(registry());
        QCOMPARE(RegCloseKey(nullptr), LSTATUS(ERROR_INVALID_HANDLE));
    });
    addTestRow("closing a predefined key succeeds, and the key stays usable", [] {
        const DescribedWindows windows(registry());
        QCOMPARE(RegCloseKey(HKEY_CLASSES_ROOT), ERROR_SUCCESS);
        QCOMPARE(openAnsi(HKEY_CLASSES_ROOT, "vkSystemInfoContract"), QStringLiteral("classes"));
    });
}

void addTests()
{
    addTestRows("paths", paths);
    addTestRows("caseOfNonAsciiLetters", caseOfNonAsciiLetters);
    addTestRows("belowAnOpenKey", belowAnOpenKey);
    addTestRows("pathOfAnsiFunctionIsInTheCodePage", pathOfAnsiFunctionIsInTheCodePage);
    addTestRows("access", access);
    addTestRows("roots", roots);
    addTestRow("nullPathOpensTheKeyItself", nullPathOpensTheKeyItself);
    addTestRows("deniedKeys", deniedKeys);
    addTestRow("deniedKeysAreEnumerated", deniedKeysAreEnumerated);
    addTestRow("nullRootIsAnInvalidHandle", nullRootIsAnInvalidHandle);
    addTestRows("closing", closing);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
