// RegEnumKeyEx(), RegEnumKey() and RegEnumValue(), both forms: order, buffer sizes, the end.

#include "contract.h"
#include "rows.h"

namespace {

enum Form {
    Ansi,
    Wide,
};

DWORD unitSize(Form form)
{
    return form == Ansi ? 1 : 2;
}

LSTATUS enumKeyEx(Form form, HKEY key, DWORD index, PoisonedBuffer &name, DWORD *size)
{
    return form == Ansi ? RegEnumKeyExA(key, index, name.narrow(), size, nullptr, nullptr, nullptr, nullptr)
                        : RegEnumKeyExW(key, index, name.wide(), size, nullptr, nullptr, nullptr, nullptr);
}

LSTATUS enumKey(Form form, HKEY key, DWORD index, PoisonedBuffer &name, DWORD size)
{
    return form == Ansi ? RegEnumKeyA(key, index, name.narrow(), size) : RegEnumKeyW(key, index, name.wide(), size);
}

LSTATUS enumValue(Form form, HKEY key, DWORD index, PoisonedBuffer &name, LPDWORD nameSize, LPDWORD type, LPBYTE data,
                  LPDWORD size)
{
    return form == Ansi ? RegEnumValueA(key, index, name.narrow(), nameSize, nullptr, type, data, size)
                        : RegEnumValueW(key, index, name.wide(), nameSize, nullptr, type, data, size);
}

QByteArray subKeys(const QStringList &names)
{
    QByteArray result = contractKey();
    for (const QString &name : names)
        result += "[HKEY_LOCAL_MACHINE\\Software\\Contract\\" + name.toUtf8() + "]\n";
    return result;
}

// The sub-keys and the values of most rows.
QByteArray threeKeys()
{
    return subKeys({QStringLiteral("Beta"), QStringLiteral("Alpha"), QStringLiteral("\u00c4\u0416")});
}

QByteArray threeValues()
{
    return contractKey() + "@=\"AB\"\n\"Name\"=hex(1):41,00,42,00\n\"\u00d6\u0416\"=hex:01,02,03\n";
}

/// The names of all sub-keys or values, in their order.
template <typename Enumerate>
QStringList names(Enumerate enumerate)
{
    QStringList result;
    for (DWORD index = 0;; ++index) {
        PoisonedBuffer name(128);
        if (enumerate(index, name) != ERROR_SUCCESS)
            return result;
        result += name.wideText();
    }
}

void subKeyNames()
{
    const auto row = [](const char *rowName, Form form, DWORD index, DWORD capacity, const QString &expected) {
        addTestRow(rowName, [=] {
            const DescribedWindows windows(threeKeys());
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            PoisonedBuffer name(capacity * unitSize(form));
            DWORD size = capacity;
            const LSTATUS status = enumKeyEx(form, key.get(), index, name, &size);
            QCOMPARE(QStringLiteral("%1, size %2: %3").arg(status).arg(size).arg(name.written()), expected);
        });
    };
    row("A: the first", Ansi, 0, 32, "0, size 5: 416c70686100");
    row("A: the second", Ansi, 1, 32, "0, size 4: 4265746100");
    row("A: letters in and outside the code page", Ansi, 2, 32, "0, size 2: c43f00");
    row("A: fits exactly, with its terminator", Ansi, 0, 6, "0, size 5: 416c70686100");
    row("A: no room for the terminator", Ansi, 0, 5, "234, size 5: ");
    row("A: no room for the name", Ansi, 0, 2, "234, size 2: ");
    row("A: a buffer of 0 units", Ansi, 0, 0, "234, size 0: ");
    row("A: past the end", Ansi, 3, 32, "259, size 32: ");
    row("A: far past the end", Ansi, 0xffff, 32, "259, size 32: ");
    row("A: past the end with a buffer of 0 units", Ansi, 3, 0, "259, size 0: ");
    row("W: the first", Wide, 0, 32, "0, size 5: 41006c0070006800610000"
                                     "00");
    row("W: the second", Wide, 1, 32, "0, size 4: 42006500740061000000");
    row("W: every code unit is kept", Wide, 2, 32, "0, size 2: c40016040000");
    row("W: fits exactly, with its terminator", Wide, 1, 5, "0, size 4: 42006500740061000000");
    row("W: no room for the terminator", Wide, 1, 4, "234, size 4: ");
    row("W: a buffer of 0 units", Wide, 0, 0, "234, size 0: ");
    row("W: past the end", Wide, 3, 32, "259, size 32: ");
}

void subKeyNamesWithoutSize()
{
    const auto row = [](const char *rowName, Form form, DWORD index, DWORD capacity, const QString &expected) {
        addTestRow(rowName, [=] {
            const DescribedWindows windows(threeKeys());
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            PoisonedBuffer name(capacity * unitSize(form));
            const LSTATUS status = enumKey(form, key.get(), index, name, capacity);
            QCOMPARE(QStringLiteral("%1: %2").arg(status).arg(name.written()), expected);
        });
    };
    row("A: the first", Ansi, 0, 32, "0: 416c70686100");
    row("A: fits exactly, with its terminator", Ansi, 1, 5, "0: 4265746100");
    row("A: no room for the terminator", Ansi, 1, 4, "234: ");
    row("A: a buffer of 0 units", Ansi, 1, 0, "234: ");
    row("A: past the end", Ansi, 3, 32, "259: ");
    row("W: the second", Wide, 1, 32, "0: 42006500740061000000");
    row("W: fits exactly, with its terminator", Wide, 1, 5, "0: 42006500740061000000");
    row("W: no room for the terminator", Wide, 1, 4, "234: ");
    row("W: past the end", Wide, 3, 32, "259: ");
}

void orderOfSubKeys()
{
    const auto row = [](const char *rowName, const char *given, const char *expected, const QByteArray &wineDeviation = "") {
        const auto list = [](const char *text) { return QString::fromUtf8(text).split('|'); };
        addTestRow(rowName, [=, given = list(given), expected = list(expected)] {
            const DescribedWindows windows(subKeys(given));
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            const QStringList actual
                = names([&](DWORD index, PoisonedBuffer &name) { return enumKey(Wide, key.get(), index, name, 64); });
            WINE_DEVIATES(wineDeviation);
            QCOMPARE(actual, expected);
        });
    };
    row("by name, not in the order of creation", "c|a|b", "a|b|c");
    row("case-insensitive", "b|A|a1|B1|C", "A|a1|b|B1|C");
    row("numbers are compared as text", "10|9|1|0", "0|1|10|9");
    row("a shorter name precedes", "0001|000|00011", "000|0001|00011");
    row("blanks and full stops before letters", "ab|a b|a.b|a", "a|a b|a.b|ab");
    row("an underscore follows the capital letters", "a_|az|aB", "aB|az|a_",
        "orders the characters between Z and a before the letters");
    row("a bracket follows the capital letters", "[|m", "m|[", "orders the characters between Z and a before the letters");
    row("by code unit: a surrogate before U+FF21", "\uff21|\U0001f600", "\U0001f600|\uff21");
    row("umlauts follow the ASCII letters", "\u00e4|z|\u00d6", "z|\u00e4|\u00d6");
    row("names in another case are the same key", "Abc|abd|ABC", "Abc|abd");
}

void values()
{
    const auto row = [](const char *rowName, Form form, DWORD index, DWORD nameCapacity, DWORD capacity, const QString &expected,
                        const QByteArray &wineDeviation = "") {
        addTestRow(rowName, [=] {
            const DescribedWindows windows(threeValues());
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            PoisonedBuffer name(nameCapacity * unitSize(form));
            PoisonedBuffer data(capacity);
            DWORD nameSize = nameCapacity;
            DWORD size = capacity;
            DWORD type = poison;
            const LSTATUS status = enumValue(form, key.get(), index, name, &nameSize, &type, data.bytes(), &size);
            const QString actual = status == ERROR_SUCCESS
                ? QStringLiteral("0, name %1: %2, type %3, data %4: %5")
                      .arg(nameSize)
                      .arg(name.written())
                      .arg(type)
                      .arg(size)
                      .arg(data.written())
                : QStringLiteral("%1: %2%3").arg(status).arg(name.written(), data.written());
            WINE_DEVIATES(wineDeviation);
            QCOMPARE(actual, expected);
        });
    };
    row("A: the default value has an empty name", Ansi, 0, 32, 16, "0, name 0: 00, type 1, data 3: 414200");
    row("A: unterminated text is terminated", Ansi, 1, 32, 16, "0, name 4: 4e616d6500, type 1, data 2: 414200");
    row("A: unterminated text fits exactly", Ansi, 1, 32, 2, "0, name 4: 4e616d6500, type 1, data 2: 4142");
    row("A: a name in and outside the code page", Ansi, 2, 32, 16, "0, name 2: d63f00, type 3, data 3: 010203");
    row("A: the name fits exactly, with its terminator", Ansi, 1, 5, 16, "0, name 4: 4e616d6500, type 1, data 2: 414200");
    row("A: an empty name needs room for its terminator", Ansi, 0, 1, 16, "0, name 0: 00, type 1, data 3: 414200");
    row("W: the default value has an empty name", Wide, 0, 32, 16, "0, name 0: 0000, type 1, data 6: 410042000000");
    row("W: unterminated text is terminated", Wide, 1, 32, 16,
        "0, name 4: 4e0061006d0065000000, type 1, data 4: 410042000000");
    row("W: unterminated text fits exactly", Wide, 1, 5, 4, "0, name 4: 4e0061006d0065000000, type 1, data 4: 41004200");
    row("W: every code unit of a name is kept", Wide, 2, 3, 3, "0, name 2: d60016040000, type 3, data 3: 010203");
    // The numbers that a failing call stores differ between systems.
    row("A: no room for the name's terminator: both buffers untouched", Ansi, 1, 4, 16, "234: ",
        "writes the data and what fits of the name");
    row("A: no room for an empty name: both buffers untouched", Ansi, 0, 0, 16, "234: ", "writes the data");
    row("A: no room for the data: both buffers untouched", Ansi, 1, 32, 1, "234: ");
    row("A: no room for name and data: both buffers untouched", Ansi, 1, 1, 1, "234: ");
    row("A: past the end: both buffers untouched", Ansi, 3, 32, 16, "259: ");
    row("W: no room for the name's terminator: both buffers untouched", Wide, 1, 4, 16, "234: ");
    row("W: no room for the data: both buffers untouched", Wide, 1, 32, 3, "234: ", "writes the name");
    row("W: past the end: both buffers untouched", Wide, 3, 32, 16, "259: ");
}

void valuesWithoutData()
{
    const auto row = [](const QString &rowName, Form form, DWORD size) {
        addTestRow(rowName, [=] {
            const DescribedWindows windows(threeValues());
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            PoisonedBuffer name(64);
            DWORD nameSize = 32;
            DWORD actual = poison;
            QCOMPARE(enumValue(form, key.get(), 1, name, &nameSize, nullptr, nullptr, &actual), ERROR_SUCCESS);
            QCOMPARE(nameSize, DWORD(4));
            QCOMPARE(actual, size);
            nameSize = 32;
            QCOMPARE(enumValue(form, key.get(), 1, name, &nameSize, nullptr, nullptr, nullptr), ERROR_SUCCESS);
            QCOMPARE(nameSize, DWORD(4));
        });
    };
    row("A: the size of the converted text", Ansi, DWORD(2));
    row("W: the stored size", Wide, DWORD(4));
}

void orderOfValues()
{
    const auto row = [](const QString &rowName, const QByteArray &given, const QStringList &expected, const QByteArray &wineDeviation) {
        addTestRow(rowName, [=] {
            const DescribedWindows windows(contractKey() + given);
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            const QStringList actual = names([&](DWORD index, PoisonedBuffer &name) {
                DWORD size = 64;
                return enumValue(Wide, key.get(), index, name, &size, nullptr, nullptr, nullptr);
            });
            WINE_DEVIATES(wineDeviation);
            QCOMPARE(actual, expected);
        });
    };
    row("in the order of creation: names in alphabetical order", QByteArray("\"a\"=\"1\"\n\"b\"=\"2\"\n"), QStringList({QStringLiteral("a"), QStringLiteral("b")}), QByteArray());
    row("in the order of creation: names in another order", QByteArray("\"b\"=\"1\"\n\"c\"=\"2\"\n\"a\"=\"3\"\n"), QStringList({QStringLiteral("b"), "c", QStringLiteral("a")}), QByteArray("enumerates values by name"));
    row("a value that is set twice keeps its place", QByteArray("\"b\"=\"1\"\n\"a\"=\"2\"\n\"B\"=\"3\"\n"), QStringList({QStringLiteral("b"), QStringLiteral("a")}), QByteArray("enumerates values by name"));
    row("the default value in the order of creation", QByteArray("\"a\"=\"1\"\n@=\"2\"\n"), QStringList({QStringLiteral("a"), QString()}), QByteArray("enumerates values by name"));
}

void invalidCalls()
{
    const auto row = [](const QString &rowName, Form form) {
        addTestRow(rowName, [=] {
            const DescribedWindows windows(threeValues());
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            PoisonedBuffer name(64);
            PoisonedBuffer data(16);
            DWORD nameSize = 32;
            DWORD size = 16;
            QCOMPARE(enumKeyEx(form, nullptr, 0, name, &nameSize), LSTATUS(ERROR_INVALID_HANDLE));
            QCOMPARE(enumKey(form, nullptr, 0, name, 32), LSTATUS(ERROR_INVALID_HANDLE));
            QCOMPARE(enumValue(form, nullptr, 0, name, &nameSize, nullptr, data.bytes(), &size), LSTATUS(ERROR_INVALID_HANDLE));
            QCOMPARE(enumValue(form, key.get(), 0, name, nullptr, nullptr, data.bytes(), &size),
                     LSTATUS(ERROR_INVALID_PARAMETER));
            QCOMPARE(enumValue(form, key.get(), 0, name, &nameSize, nullptr, data.bytes(), nullptr),
                     LSTATUS(ERROR_INVALID_PARAMETER));
            QVERIFY(name.isUntouched());
            QVERIFY(data.isUntouched());
            QCOMPARE(nameSize, DWORD(32));
            QCOMPARE(size, DWORD(16));
        });
    };
    row("A", Ansi);
    row("W", Wide);
}

void addTests()
{
    addTestRows("subKeyNames", subKeyNames);
    addTestRows("subKeyNamesWithoutSize", subKeyNamesWithoutSize);
    addTestRows("orderOfSubKeys", orderOfSubKeys);
    addTestRows("values", values);
    addTestRows("valuesWithoutData", valuesWithoutData);
    addTestRows("orderOfValues", orderOfValues);
    addTestRows("invalidCalls", invalidCalls);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
