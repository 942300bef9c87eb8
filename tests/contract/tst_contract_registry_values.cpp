// RegQueryValueEx(), both forms: sizes, terminators, and memory that it leaves unchanged.

#include "contract.h"
#include "rows.h"

namespace {

enum Form {
    Ansi,
    Wide,
};

LSTATUS query(Form form, HKEY key, const QString &name, LPDWORD type, LPBYTE data, LPDWORD size)
{
    if (form == Ansi)
        return RegQueryValueExA(key, name.toLatin1().constData(), nullptr, type, data, size);
    return RegQueryValueExW(key, wide(name), nullptr, type, data, size);
}

/// "status, size: written bytes".
QString answer(Form form, const QByteArray &definition, DWORD capacity)
{
    const DescribedWindows windows(contractKey() + "\"Value\"=" + definition + '\n');
    const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
    PoisonedBuffer buffer(capacity);
    DWORD size = capacity;
    const LSTATUS status = query(form, key.get(), QStringLiteral("Value"), nullptr, buffer.bytes(), &size);
    return QStringLiteral("%1, size %2: %3").arg(status).arg(size).arg(buffer.written());
}

void data()
{
    const auto row = [](const char *name, Form form, const QByteArray &definition, DWORD capacity, const QString &expected) {
        addTestRow(name, [=] {
            QCOMPARE(answer(form, definition, capacity), expected);
        });
    };

    // REG_SZ "AB" with and without a terminator
    const char terminated[] = "hex(1):41,00,42,00,00,00";
    const char unterminated[] = "hex(1):41,00,42,00";
    row("A: terminated text fits exactly", Ansi, terminated, 3, "0, size 3: 414200");
    row("A: nothing is written after a terminator", Ansi, terminated, 16, "0, size 3: 414200");
    row("A: one byte short gives the size needed, nothing written", Ansi, terminated, 2, "234, size 3: ");
    row("A: a buffer of 0 bytes gives the size needed", Ansi, terminated, 0, "234, size 3: ");
    row("A: a missing terminator is stored and not counted", Ansi, unterminated, 3, "0, size 2: 414200");
    row("A: a buffer for one terminator gets one", Ansi, unterminated, 16, "0, size 2: 414200");
    row("A: no room for a terminator", Ansi, unterminated, 2, "0, size 2: 4142");
    row("A: unterminated text does not fit", Ansi, unterminated, 1, "234, size 2: ");
    row("A: an odd last byte is dropped", Ansi, "hex(1):41,00,42,00,43", 16, "0, size 2: 414200");
    row("A: an odd last byte of 0 is dropped", Ansi, "hex(1):41,00,00", 16, "0, size 1: 4100");
    row("A: a single byte is an empty text", Ansi, "hex(1):41", 16, "0, size 0: ");
    row("A: empty data leaves the buffer unchanged", Ansi, "hex(1):", 16, "0, size 0: ");
    row("A: empty data fits a buffer of 0 bytes", Ansi, "hex(1):", 0, "0, size 0: ");
    row("A: only a terminator", Ansi, "hex(1):00,00", 16, "0, size 1: 00");
    row("A: text after a null is converted too", Ansi, "hex(1):41,00,00,00,42,00,00,00", 16, "0, size 4: 41004200");
    row("A: text after a null without a terminator", Ansi, "hex(1):41,00,00,00,42,00", 16, "0, size 3: 41004200");
    row("A: REG_EXPAND_SZ is converted and terminated", Ansi, "hex(2):25,00,41,00,25,00", 16, "0, size 3: 25412500");
    row("A: REG_MULTI_SZ is converted", Ansi, "hex(7):41,00,00,00,42,00,00,00,00,00", 16, "0, size 5: 4100420000");
    row("A: REG_MULTI_SZ that ends with one null gets no second", Ansi, "hex(7):41,00,00,00", 16, "0, size 2: 4100");
    row("A: unterminated REG_MULTI_SZ gets one null", Ansi, "hex(7):41,00,00,00,42,00", 16, "0, size 3: 41004200");
    row("A: a character of the code page", Ansi, "hex(1):e4,00,00,00", 16, "0, size 2: e400");
    row("A: a character that the code page lacks", Ansi, "hex(1):16,04,00,00", 16, "0, size 2: 3f00");
    row("A: a surrogate pair counts twice", Ansi, "hex(1):3d,d8,00,de,00,00", 16, "0, size 3: 3f3f00");
    row("A: a character that the code page lacks becomes a similar one", Ansi, "hex(1):00,01,00,00", 16, "0, size 2: 4100");
    row("A: a lone surrogate", Ansi, "hex(1):3d,d8,00,00", 16, "0, size 2: 3f00");
    row("A: undefined bytes of the code page are control characters", Ansi, "hex(1):81,00,8d,00,8f,00,90,00,9d,00,00,00", 16,
        "0, size 6: 818d8f909d00");
    row("A: a control character whose byte is another character", Ansi, "hex(1):80,00,00,00", 16, "0, size 2: 3f00");

    row("W: terminated text fits exactly", Wide, terminated, 6, "0, size 6: 410042000000");
    row("W: nothing is written after a terminator", Wide, terminated, 16, "0, size 6: 410042000000");
    row("W: one byte short gives the size needed, nothing written", Wide, terminated, 5, "234, size 6: ");
    row("W: a buffer of 0 bytes gives the size needed", Wide, terminated, 0, "234, size 6: ");
    row("W: a missing terminator is stored and not counted", Wide, unterminated, 6, "0, size 4: 410042000000");
    row("W: a buffer for one terminator gets one", Wide, unterminated, 16, "0, size 4: 410042000000");
    row("W: no room for a terminator", Wide, unterminated, 4, "0, size 4: 41004200");
    row("W: room for half a terminator", Wide, unterminated, 5, "0, size 4: 41004200");
    row("W: an odd last byte is kept and two zeros follow", Wide, "hex(1):41,00,42,00,43", 16,
        "0, size 5: 41004200430000");
    row("W: an odd last byte, the buffer exactly fits two zeros", Wide, "hex(1):41,00,42", 5, "0, size 3: 4100420000");
    row("W: an odd last byte, the buffer fits one zero", Wide, "hex(1):41,00,42", 4, "0, size 3: 410042");
    row("W: a single byte is kept and terminated", Wide, "hex(1):41", 16, "0, size 1: 410000");
    row("W: empty data leaves the buffer unchanged", Wide, "hex(1):", 16, "0, size 0: ");
    row("W: empty data fits a buffer of 0 bytes", Wide, "hex(1):", 0, "0, size 0: ");
    row("W: REG_EXPAND_SZ is terminated", Wide, "hex(2):25,00,41,00", 16, "0, size 4: 250041000000");
    row("W: REG_MULTI_SZ that ends with one null gets no second", Wide, "hex(7):41,00,00,00", 16,
        "0, size 4: 41000000");
    row("W: unterminated REG_MULTI_SZ gets one null", Wide, "hex(7):41,00", 16, "0, size 2: 41000000");
    row("W: every code unit is kept", Wide, "hex(1):16,04,3d,d8,00,00", 16, "0, size 6: 16043dd80000");

    for (const Form form : {Ansi, Wide}) {
        const char *letter = form == Ansi ? "A" : "W";
        const auto both = [&](const char *name, const char *definition, DWORD capacity, const char *expected) {
            row(qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(letter), QLatin1String(name))), form, definition,
                capacity, expected);
        };
        both("binary data is copied unchanged", "hex:41,00,42", 16, "0, size 3: 410042");
        both("binary data fits exactly", "hex:41,00,42", 3, "0, size 3: 410042");
        both("binary data does not fit", "hex:41,00,42", 2, "234, size 3: ");
        both("empty binary data", "hex:", 16, "0, size 0: ");
        both("a number", "dword:0000002a", 4, "0, size 4: 2a000000");
        both("a number into a larger buffer", "dword:0000002a", 8, "0, size 4: 2a000000");
        both("a number does not fit", "dword:0000002a", 3, "234, size 4: ");
        both("a number of three bytes", "hex(4):01,02,03", 4, "0, size 3: 010203");
        both("a number of five bytes does not fit into four", "hex(4):01,02,03,04,05", 4, "234, size 5: ");
        both("a 64-bit number", "hex(b):01,02,03,04,05,06,07,08", 8, "0, size 8: 0102030405060708");
        both("REG_NONE is not converted", "hex(0):41,00", 16, "0, size 2: 4100");
        both("REG_LINK is not converted", "hex(6):41,00", 16, "0, size 2: 4100");
        both("a big-endian number", "hex(5):00,00,00,2a", 16, "0, size 4: 0000002a");
        both("REG_RESOURCE_LIST is not converted", "hex(8):41,00,42,00", 16, "0, size 4: 41004200");
        both("an undefined type is not converted", "hex(1234):41,00", 16, "0, size 2: 4100");
    }
}

void typesAreReturned()
{
    const auto row = [](const QString &name, const QByteArray &definition, DWORD capacity, DWORD expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(contractKey() + "\"Value\"=" + definition + '\n');
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            for (const Form form : {Ansi, Wide}) {
                PoisonedBuffer buffer(capacity);
                DWORD size = capacity;
                DWORD type = poison;
                query(form, key.get(), QStringLiteral("Value"), &type, buffer.bytes(), &size);
                QCOMPARE(type, expected);
            }
        });
    };
    const struct
    {
        const char *name;
        const char *definition;
        DWORD type;
    } types[] = {
        {"REG_NONE", "hex(0):01,00", 0},
        {"REG_SZ", "\"A\"", 1},
        {"REG_EXPAND_SZ", "hex(2):41,00", 2},
        {"REG_BINARY", "hex:01", 3},
        {"REG_DWORD", "dword:00000001", 4},
        {"REG_DWORD_BIG_ENDIAN", "hex(5):00,00,00,01", 5},
        {"REG_LINK", "hex(6):41,00", 6},
        {"REG_MULTI_SZ", "hex(7):41,00", 7},
        {"REG_RESOURCE_LIST", "hex(8):01", 8},
        {"REG_FULL_RESOURCE_DESCRIPTOR", "hex(9):01", 9},
        {"REG_RESOURCE_REQUIREMENTS_LIST", "hex(a):01", 10},
        {"REG_QWORD", "hex(b):01,02,03,04,05,06,07,08", 11},
        {"the largest type", "hex(ffffffff):01", 0xffffffff},
        {"the type of empty data", "hex(7):", 7},
    };
    for (const auto &type : types) {
        row(type.name, QByteArray(type.definition), DWORD(16), type.type);
        row(QString::asprintf("%s, buffer too small", type.name), QByteArray(type.definition), DWORD(0), type.type);
    }
}

void sizeAlone()
{
    const auto row = [](const QString &name, const QByteArray &definition, DWORD narrow, DWORD wide) {
        addTestRow(name, [=] {
            const DescribedWindows windows(contractKey() + "\"Value\"=" + definition + '\n');
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            for (const Form form : {Ansi, Wide}) {
                DWORD size = poison;
                QCOMPARE(query(form, key.get(), QStringLiteral("Value"), nullptr, nullptr, &size), ERROR_SUCCESS);
                QCOMPARE(size, form == Ansi ? narrow : wide);
            }
        });
    };
    row("terminated text", QByteArray("\"ABC\""), DWORD(4), DWORD(8));
    row("unterminated text: the stored size", QByteArray("hex(1):41,00,42,00"), DWORD(2), DWORD(4));
    row("text of an odd size", QByteArray("hex(1):41,00,42"), DWORD(1), DWORD(3));
    row("empty text", QByteArray("hex(1):"), DWORD(0), DWORD(0));
    row("binary data", QByteArray("hex:01,02,03"), DWORD(3), DWORD(3));
}

void names()
{
    const auto row = [](const QString &title, const QString &name, LSTATUS status, DWORD number) {
        addTestRow(title, [=] {
            const DescribedWindows windows(contractKey()
                                           + "\"Value\"=dword:1\n@=dword:2\n\"a\\\\b\"=dword:3\n\"Gr\u00f6\u00dfe\"=dword:4\n"
                                             "[HKEY_LOCAL_MACHINE\\Software\\Contract\\Sub]\n");
            const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
            for (const Form form : {Ansi, Wide}) {
                DWORD actual = poison;
                DWORD size = sizeof actual;
                QCOMPARE(query(form, key.get(), name, nullptr, reinterpret_cast<LPBYTE>(&actual), &size), status);
                QCOMPARE(actual, number);
            }
        });
    };
    row("in the same case", QStringLiteral("Value"), ERROR_SUCCESS, DWORD(1));
    row("in another case", QStringLiteral("vALUE"), ERROR_SUCCESS, DWORD(1));
    row("an empty name: the default value", QString(), ERROR_SUCCESS, DWORD(2));
    row("with a backslash", QStringLiteral("a\\b"), ERROR_SUCCESS, DWORD(3));
    row("a letter of the code page", QStringLiteral("Gr\u00f6\u00dfe"), ERROR_SUCCESS, DWORD(4));
    row("that letter in upper case", QStringLiteral("GR\u00d6\u00dfE"), ERROR_SUCCESS, DWORD(4));
    row("a longer name", QStringLiteral("Values"), LSTATUS(ERROR_FILE_NOT_FOUND), poison);
    row("a shorter name", QStringLiteral("Valu"), LSTATUS(ERROR_FILE_NOT_FOUND), poison);
    row("a trailing blank", QStringLiteral("Value "), LSTATUS(ERROR_FILE_NOT_FOUND), poison);
    row("the name of a sub-key", QStringLiteral("Sub"), LSTATUS(ERROR_FILE_NOT_FOUND), poison);
}

void eachForm(const std::function<void(Form)> &check)
{
    addTestRow("A", [=] { check(Ansi); });
    addTestRow("W", [=] { check(Wide); });
}

void missingValue()
{
    eachForm([](Form form) {
        const DescribedWindows windows(contractKey());
        const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
        PoisonedBuffer buffer(16);
        DWORD size = 16;
        QCOMPARE(query(form, key.get(), QStringLiteral("Missing"), nullptr, buffer.bytes(), &size),
                 LSTATUS(ERROR_FILE_NOT_FOUND));
        QVERIFY(buffer.isUntouched());
        QCOMPARE(size, DWORD(16));
    });
}

void missingValueWithoutBuffer()
{
    eachForm([](Form form) {
        const DescribedWindows windows(contractKey());
        const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
        DWORD size = poison;
        QCOMPARE(query(form, key.get(), QStringLiteral("Missing"), nullptr, nullptr, &size),
                 LSTATUS(ERROR_FILE_NOT_FOUND));
        QCOMPARE(size, DWORD(0));
    });
}

void invalidCalls()
{
    eachForm([](Form form) {
        const DescribedWindows windows(contractKey() + "\"Value\"=\"A\"\n");
        const RegistryKey key = openKeyWide(HKEY_LOCAL_MACHINE, contractPath);
        const QString name = QStringLiteral("Value");
        PoisonedBuffer buffer(16);
        DWORD size = 16;
        DWORD type = poison;

        QCOMPARE(query(form, nullptr, name, nullptr, buffer.bytes(), &size), LSTATUS(ERROR_INVALID_HANDLE));
        QVERIFY2(buffer.isUntouched(), "no handle");
        QCOMPARE(size, DWORD(16));
        QCOMPARE(query(form, key.get(), name, nullptr, buffer.bytes(), nullptr), LSTATUS(ERROR_INVALID_PARAMETER));
        QVERIFY2(buffer.isUntouched(), "a buffer without a size");
        QCOMPARE(query(form, key.get(), name, &type, nullptr, nullptr), ERROR_SUCCESS);
        QCOMPARE(type, DWORD(REG_SZ));
    });
}

void addTests()
{
    addTestRows("data", data);
    addTestRows("typesAreReturned", typesAreReturned);
    addTestRows("sizeAlone", sizeAlone);
    addTestRows("names", names);
    addTestRows("missingValue", missingValue);
    addTestRows("missingValueWithoutBuffer", missingValueWithoutBuffer);
    addTestRows("invalidCalls", invalidCalls);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
