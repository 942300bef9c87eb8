// RegOpenKeyEx(), both forms, and RegCloseKey(): the key that a path opens.

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

/// The value "Where" of \a key, which the function closes, or the error \a status.
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

void paths()
{
    const auto row = [](const char *name, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, path.toLatin1()), expected);
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, path), expected);
        });
    };
    row("one name", "Alpha", "Alpha");
    row("two names", "Alpha\\Beta", "Alpha, Beta");
    row("names are case-insensitive", "aLPHA\\BETA gamma", "Alpha, Beta Gamma");
    row("an empty path: the key itself", "", "root");
    row("a trailing backslash", "Alpha\\", "Alpha");
    row("several trailing backslashes", "Alpha\\Beta\\\\\\", "Alpha, Beta");
    row("a doubled backslash", "Alpha\\\\Beta", "Alpha, Beta");
    row("a tripled backslash", "Alpha\\\\\\Beta", "Alpha, Beta");
    row("a leading backslash", "\\Alpha", "161");
    row("two leading backslashes", "\\\\Alpha", "161");
    row("only a backslash", "\\", "161");
    row("a leading backslash before a missing key", "\\Missing", "161");
    row("a missing key: no handle", "Missing", "2");
    row("a missing sub-key: no handle", "Alpha\\Missing", "2");
    row("below a missing key: no handle", "Missing\\Beta", "2");
    row("the start of a name", "Alph", "2");
    row("a name followed by more characters", "Alphas", "2");
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
    row("sharp s has no capital", "\u00df", "SS", false);
    row("dotless i is not the small letter of I", "\u0131", "I", false);
    row("the long s is not the small letter of S", "\u017f", "S", false);
    row("the micro sign is not the small letter of Greek Mu", "\u00b5", "\u039c", false);
    row("the final sigma is not the small letter of Sigma", "\u03c2", "\u03a3", false);
    row("letters outside the BMP have no case", "\U00010428", "\U00010400", false);
}

void belowAnOpenKey()
{
    const auto row = [](const QString &name, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            const RegistryKey alpha = openKeyWide(HKEY_LOCAL_MACHINE, "Alpha");
            QCOMPARE(openNarrow(alpha.get(), path.toLatin1()), expected);
            QCOMPARE(openWide(alpha.get(), path), expected);
        });
    };
    row("a sub-key", "Beta", "Alpha, Beta");
    row("an empty path: the key itself", QString(), "Alpha");
    row("a trailing backslash", "Beta\\", "Alpha, Beta");
    row("a missing key: no handle", "Alpha", "2");
    row("a leading backslash", "\\Beta", "161");
}

void narrowPathIsInTheAnsiCodePage()
{
    const auto row = [](const QString &name, const QByteArray &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, path), expected);
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("\u0416")), QStringLiteral("zhe"));
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("\u0436")), QStringLiteral("zhe"));
        });
    };
    row("letters of the code page", QByteArray("Gr\xf6\xdf"
                                               "e"),
        QStringLiteral("size"));
    row("letters in upper case; sharp s has no upper case", QByteArray("GR\xd6\xdf"
                                                                       "E"),
        QStringLiteral("size"));
    row("the same name in UTF-8 is another name", QByteArray("Gr\u00f6\u00dfe"), "2");
    row("a letter outside the code page becomes a question mark", QByteArray("?"), "2");
}

void access()
{
    const auto row = [](const QString &name, const REGSAM &mask) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, "Alpha\\Beta", mask), QStringLiteral("Alpha, Beta"));
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, QStringLiteral("Alpha\\Beta"), mask), QStringLiteral("Alpha, Beta"));
            QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, "Missing", mask), QStringLiteral("2"));
        });
    };
    row("read", REGSAM(0x20019));
    row("read, 64-bit view: the same key", REGSAM(0x20119));
}

void roots()
{
    const auto row = [](const QString &name, const quintptr &root, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry());
            QCOMPARE(openNarrow(reinterpret_cast<HKEY>(root), path.toLatin1()), expected);
            QCOMPARE(openWide(reinterpret_cast<HKEY>(root), path), expected);
        });
    };
    const auto number = [](HKEY root) { return reinterpret_cast<quintptr>(root); };
    row("HKEY_LOCAL_MACHINE", number(HKEY_LOCAL_MACHINE), "Alpha", "Alpha");
    row("HKEY_CURRENT_USER", number(HKEY_CURRENT_USER), "Alpha", "user");
    row("HKEY_CLASSES_ROOT", number(HKEY_CLASSES_ROOT), "vkSystemInfoContract", "classes");
    row("HKEY_USERS differs from HKEY_CURRENT_USER", number(HKEY_USERS), "Alpha", "2");
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
            QCOMPARE(openNarrow(HKEY_LOCAL_MACHINE, path.toLatin1()), expected);
            QCOMPARE(openWide(HKEY_LOCAL_MACHINE, path), expected);
            if (path.startsWith(QLatin1String("Alpha\\"))) {
                const RegistryKey alpha = openKeyWide(HKEY_LOCAL_MACHINE, "Alpha");
                QCOMPARE(openNarrow(alpha.get(), path.mid(6).toLatin1()), expected);
            }
        });
    };
    row("the key itself: no handle", "Alpha\\Beta", "5");
    row("in another case", "ALPHA\\beta", "5");
    row("a key below it: no handle", "Alpha\\Beta\\Delta", "5");
    row("a missing key below it", "Alpha\\Beta\\Missing", "2");
    row("its parent", "Alpha", "Alpha");
    row("its sibling", "Alpha\\Beta Gamma", "Alpha, Beta Gamma");
    row("a denied key that registry.reg does not contain", "New\\Denied", "5");
    row("the parent of that key exists without values", "New", "");
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

void invalidCalls()
{
    const DescribedWindows windows(registry());
    HKEY key = nullptr;
    QCOMPARE(RegOpenKeyExA(nullptr, "Alpha", 0, KEY_READ, &key), LSTATUS(ERROR_INVALID_HANDLE));
    QCOMPARE(RegOpenKeyExW(nullptr, L"Alpha", 0, KEY_READ, &key), LSTATUS(ERROR_INVALID_HANDLE));
}

void closing()
{
    const DescribedWindows windows(registry());
    HKEY first = nullptr;
    HKEY second = nullptr;
    QCOMPARE(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Alpha", 0, KEY_READ, &first), ERROR_SUCCESS);
    QCOMPARE(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Alpha", 0, KEY_READ, &second), ERROR_SUCCESS);
    QVERIFY2(first != second, "each opening has its own handle");
    QCOMPARE(RegCloseKey(first), ERROR_SUCCESS);
    QCOMPARE(RegCloseKey(first), LSTATUS(ERROR_INVALID_HANDLE));
    QCOMPARE(whereIs(ERROR_SUCCESS, second), QStringLiteral("Alpha"));
    QCOMPARE(RegCloseKey(nullptr), LSTATUS(ERROR_INVALID_HANDLE));
    QCOMPARE(RegCloseKey(HKEY_CLASSES_ROOT), ERROR_SUCCESS);
    QCOMPARE(openNarrow(HKEY_CLASSES_ROOT, "vkSystemInfoContract"), QStringLiteral("classes"));
}

void addTests()
{
    addTestRows("paths", paths);
    addTestRows("caseOfNonAsciiLetters", caseOfNonAsciiLetters);
    addTestRows("belowAnOpenKey", belowAnOpenKey);
    addTestRows("narrowPathIsInTheAnsiCodePage", narrowPathIsInTheAnsiCodePage);
    addTestRows("access", access);
    addTestRows("roots", roots);
    addTestRow("nullPathOpensTheKeyItself", nullPathOpensTheKeyItself);
    addTestRows("deniedKeys", deniedKeys);
    addTestRow("deniedKeysAreEnumerated", deniedKeysAreEnumerated);
    addTestRow("invalidCalls", invalidCalls);
    addTestRow("closing", closing);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
