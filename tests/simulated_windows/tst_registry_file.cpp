// readRegistryFile(): keys, values byte for byte, and error messages.

#include "registry_file.h"
#include "rows.h"

#include <QtCore/QtEndian>
#include <QtTest/QtTest>

using namespace machine;

namespace {

const char firstLine[] = "Windows Registry Editor Version 5.00\n";

void list(const RegistryKey &key, const QString &path, QStringList &lines)
{
    for (const RegistryValue &value : key.values())
        lines += QStringLiteral("%1 \"%2\" %3:%4").arg(path, value.name).arg(value.type).arg(QLatin1String(value.data.toHex()));
    if (key.values().empty() && key.subKeyCount() == 0)
        lines += path;
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        list(*key.subKeyAt(i), path + QLatin1Char('\\') + key.subKeyAt(i)->name(), lines);
}

/// Every value as 'PATH "NAME" TYPE:BYTES', and the path of every empty key.
QStringList contents(const Registry &registry)
{
    QStringList lines;
    const struct
    {
        RegistryRoot root;
        const char *name;
    } roots[] = {
        {RegistryRoot::ClassesRoot, "HKCR"},
        {RegistryRoot::CurrentUser, "HKCU"},
        {RegistryRoot::LocalMachine, "HKLM"},
        {RegistryRoot::Users, "HKU"},
    };
    for (const auto &root : roots) {
        const RegistryKey &key = *registry.root(root.root);
        if (!key.values().empty() || key.subKeyCount() > 0)
            list(key, QLatin1String(root.name), lines);
    }
    return lines;
}

/// The contents of \a file, or "LINE: MESSAGE".
QStringList read(const QByteArray &file)
{
    Registry registry;
    QString error;
    int line = -1;
    if (!readRegistryFile(file, registry, error, line))
        return {QStringLiteral("%1: %2").arg(line).arg(error)};
    return contents(registry);
}

QByteArray asUtf16(const QString &text)
{
    QByteArray result("\xff\xfe");
    for (const QChar unit : text) {
        result += char(unit.unicode() & 0xff);
        result += char(unit.unicode() >> 8);
    }
    return result;
}

void encodings()
{
    const auto row = [](const QString &name, const QByteArray &file) {
        addTestRow(name, [=] {
            QCOMPARE(read(file), QStringList(QStringLiteral("HKLM\\\u00c4\u0416\U0001f600 \"\u00f6\" 1:fc000000")));
        });
    };
    const QString text = QLatin1String(firstLine) + QStringLiteral("\n[HKEY_LOCAL_MACHINE\\\u00c4\u0416\U0001f600]\n\"\u00f6\"=\"\u00fc\"\n");
    QString windowsLines = text;
    windowsLines.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    row("UTF-8, line feeds", text.toUtf8());
    row("UTF-8, carriage returns", windowsLines.toUtf8());
    row("UTF-8 with a byte-order mark, line feeds", "\xef\xbb\xbf" + text.toUtf8());
    row("UTF-8 with a byte-order mark, carriage returns", "\xef\xbb\xbf" + windowsLines.toUtf8());
    row("UTF-16, line feeds", asUtf16(text));
    row("UTF-16, carriage returns", asUtf16(windowsLines));
    row("no line end at the end", text.toUtf8().trimmed());
}

void data()
{
    const auto row = [](const char *name, const QByteArray &line, const QString &expected) {
        addTestRow(name, [=] {
            QCOMPARE(read(QByteArray(firstLine) + "[HKEY_LOCAL_MACHINE\\K]\n" + line),
                     QStringList(QStringLiteral("HKLM\\K ") + expected));
        });
    };
    row("a text gets a terminator", "\"n\"=\"AB\"", "\"n\" 1:410042000000");
    row("an empty text is only a terminator", "\"n\"=\"\"", "\"n\" 1:0000");
    row("a backslash in a text", "\"n\"=\"C:\\\\\"", "\"n\" 1:43003a005c000000");
    row("a quotation mark in a text", "\"n\"=\"\\\"A\\\"\"", "\"n\" 1:2200410022000000");
    row("a backslash before the closing quotation mark", "\"n\"=\"\\\\\\\"\"", "\"n\" 1:5c0022000000");
    row("a semicolon in a text does not start a comment", "\"n\"=\";A\"", "\"n\" 1:3b0041000000");
    row("an equals sign in a text", "\"n\"=\"=\"", "\"n\" 1:3d000000");
    row("U+FEFF in a text is a character", "\"n\"=\"\xef\xbb\xbf"
                                           "A\"",
        "\"n\" 1:fffe41000000");
    row("a surrogate pair", "\"n\"=\"\xf0\x9f\x98\x80\"", "\"n\" 1:3dd800de0000");
    row("the default value", "@=\"A\"", "\"\" 1:41000000");
    row("an empty name is the default value", "\"\"=\"A\"", "\"\" 1:41000000");
    row("a quotation mark in a name", "\"\\\"\"=dword:0", "\"\"\" 4:00000000");
    row("a backslash in a name", "\"a\\\\b\"=dword:0", "\"a\\b\" 4:00000000");
    row("brackets in the name of a value", "\"[n]\"=dword:0", "\"[n]\" 4:00000000");
    row("a name with an equals sign", "\"a=b\"=dword:0", "\"a=b\" 4:00000000");
    row("a name that starts with a semicolon", "\";n\"=dword:0", "\";n\" 4:00000000");
    row("a number", "\"n\"=dword:0000002a", "\"n\" 4:2a000000");
    row("a number with capital digits", "\"n\"=dword:DEADBEEF", "\"n\" 4:efbeadde");
    row("a number of one digit", "\"n\"=dword:7", "\"n\" 4:07000000");
    row("bytes", "\"n\"=hex:00,ff,2A", "\"n\" 3:00ff2a");
    row("one byte", "\"n\"=hex:01", "\"n\" 3:01");
    row("no bytes", "\"n\"=hex:", "\"n\" 3:");
    row("REG_NONE", "\"n\"=hex(0):01,02", "\"n\" 0:0102");
    row("text as bytes: no terminator is added", "\"n\"=hex(1):41,00", "\"n\" 1:4100");
    row("text of an odd size", "\"n\"=hex(1):41,00,42", "\"n\" 1:410042");
    row("text of 0 bytes", "\"n\"=hex(1):", "\"n\" 1:");
    row("text with variables", "\"n\"=hex(2):25,00,00,00", "\"n\" 2:25000000");
    row("a number of three bytes", "\"n\"=hex(4):01,02,03", "\"n\" 4:010203");
    row("several texts", "\"n\"=hex(7):41,00,00,00,00,00", "\"n\" 7:410000000000");
    row("a 64-bit number", "\"n\"=hex(b):01,02,03,04,05,06,07,08", "\"n\" 11:0102030405060708");
    row("a type in capital letters", "\"n\"=hex(B):01", "\"n\" 11:01");
    row("a type of several digits", "\"n\"=hex(10):01", "\"n\" 16:01");
    row("the largest type", "\"n\"=hex(ffffffff):01", "\"n\" 4294967295:01");
    row("a continued list", "\"n\"=hex:01,02,\\\n  03,\\\n  04", "\"n\" 3:01020304");
    row("a continued list with carriage returns", "\"n\"=hex:01,\\\r\n  02\r", "\"n\" 3:0102");
    row("a list that starts on the next line", "\"n\"=hex(7):\\\n  41,00", "\"n\" 7:4100");
    row("a comment inside a continued list", "\"n\"=hex:01,\\\n; 02,\\\n  03", "\"n\" 3:0103");
    row("a list that ends with a comma", "\"n\"=hex:01,02,", "\"n\" 3:0102");
    row("blanks around the equals sign", "\"n\" = dword:1", "\"n\" 4:01000000");
    row("blanks and a tab around the line", " \t\"n\"=\"A\"\t ", "\"n\" 1:41000000");
    row("a comment after a text", "\"n\"=\"A\" ; said so", "\"n\" 1:41000000");
    row("a comment after a number", "\"n\"=dword:1 ; said so", "\"n\" 4:01000000");
    row("a comment after bytes", "\"n\"=hex:01 ; said so", "\"n\" 3:01");
    row("comments and empty lines around", "; first\n\n\"n\"=hex:01\n\n  ; last\n", "\"n\" 3:01");
}

void keys()
{
    const auto row = [](const char *name, const QByteArray &lines, const QStringList &expected) {
        addTestRow(name, [=] {
            QCOMPARE(read(firstLine + lines), expected);
        });
    };
    row("only the first line", "", {});
    row("a key without values", "[HKEY_LOCAL_MACHINE\\A]\n", {QStringLiteral("HKLM\\A")});
    row("a key is created with its parents", "[HKEY_LOCAL_MACHINE\\A\\B\\C]\n", {QStringLiteral("HKLM\\A\\B\\C")});
    row("the four roots", "[HKEY_LOCAL_MACHINE\\M]\n[HKEY_CURRENT_USER\\U]\n[HKEY_CLASSES_ROOT\\C]\n[HKEY_USERS\\S]\n",
        {QStringLiteral("HKCR\\C"), QStringLiteral("HKCU\\U"), QStringLiteral("HKLM\\M"), QStringLiteral("HKU\\S")});
    row("a root in lower case", "[hkey_local_machine\\A]\n", {QStringLiteral("HKLM\\A")});
    row("values of a root", "[HKEY_LOCAL_MACHINE]\n@=dword:1\n", {QStringLiteral("HKLM \"\" 4:01000000")});
    row("HKEY_CLASSES_ROOT does not mirror the classes of HKEY_LOCAL_MACHINE", "[HKEY_LOCAL_MACHINE\\Software\\Classes\\A]\n[HKEY_CLASSES_ROOT\\B]\n",
        {QStringLiteral("HKCR\\B"), QStringLiteral("HKLM\\Software\\Classes\\A")});
    row("a key that occurs twice has the values of both",
        "[HKEY_LOCAL_MACHINE\\A]\n\"a\"=hex:01\n[HKEY_LOCAL_MACHINE\\B]\n[HKEY_LOCAL_MACHINE\\A]\n\"b\"=hex:02\n",
        {QStringLiteral("HKLM\\A \"a\" 3:01"), QStringLiteral("HKLM\\A \"b\" 3:02"), QStringLiteral("HKLM\\B")});
    row("keys that differ in case are one key with the first spelling",
        "[HKEY_LOCAL_MACHINE\\Key]\n\"a\"=hex:01\n[HKEY_LOCAL_MACHINE\\KEY\\sub]\n[HKEY_LOCAL_MACHINE\\key\\SUB]\n\"b\"=hex:02\n",
        {QStringLiteral("HKLM\\Key \"a\" 3:01"), QStringLiteral("HKLM\\Key\\sub \"b\" 3:02")});
    row("doubled and trailing backslashes", "[HKEY_LOCAL_MACHINE\\A\\\\B\\]\n", {QStringLiteral("HKLM\\A\\B")});
    row("brackets in the name of a key", "[HKEY_LOCAL_MACHINE\\[A]\\]B]\n", {QStringLiteral("HKLM\\[A]\\]B")});
    row("blanks in a name", "[HKEY_LOCAL_MACHINE\\A B]\n", {QStringLiteral("HKLM\\A B")});
    row("a comment after a key", "[HKEY_LOCAL_MACHINE\\A] ; so\n", {QStringLiteral("HKLM\\A")});
    row("sub-keys in the order of their upper-cased names",
        "[HKEY_LOCAL_MACHINE\\b]\n[HKEY_LOCAL_MACHINE\\_]\n[HKEY_LOCAL_MACHINE\\C]\n[HKEY_LOCAL_MACHINE\\a]\n",
        {QStringLiteral("HKLM\\a"), QStringLiteral("HKLM\\b"), QStringLiteral("HKLM\\C"), QStringLiteral("HKLM\\_")});
    row("values in the order of the file", "[HKEY_LOCAL_MACHINE\\A]\n\"c\"=hex:01\n@=hex:02\n\"a\"=hex:03\n",
        {QStringLiteral("HKLM\\A \"c\" 3:01"), QStringLiteral("HKLM\\A \"\" 3:02"), QStringLiteral("HKLM\\A \"a\" 3:03")});
    row("a value that occurs twice has the first place and the last data", "[HKEY_LOCAL_MACHINE\\A]\n\"x\"=\"A\"\n\"y\"=hex:01\n\"X\"=dword:2\n",
        {QStringLiteral("HKLM\\A \"x\" 4:02000000"), QStringLiteral("HKLM\\A \"y\" 3:01")});
}

void malformed()
{
    const auto row = [](const char *name, const QByteArray &lines, const QString &expected) {
        addTestRow(name, [=] {
            QCOMPARE(read(QByteArray(firstLine) + "[HKEY_LOCAL_MACHINE\\K]\n" + lines), QStringList(expected));
        });
    };
    const char noData[] = "3: data that is neither a text, dword: nor hex:";
    const char badBytes[] = "3: hex: takes bytes of two hexadecimal digits with commas between them";
    const char badNumber[] = "3: dword: takes one to eight hexadecimal digits";
    const char noLine[] = "3: neither a key, a value nor a comment";
    row("words", "hello", noLine);
    row("a name without quotation marks", "n=\"A\"", noLine);
    row("a name that does not end", "\"n=dword:1", noLine);
    row("a name that ends with an escape", "\"n\\", noLine);
    row("only a name", "\"n\"", "3: a value without '='");
    row("two names", "\"n\" \"m\"=dword:1", "3: a value without '='");
    row("no data", "\"n\"=", noData);
    row("data of another kind", "\"n\"=qword:1", noData);
    row("a value to delete", "\"n\"=-", noData);
    row("a text that does not end", "\"n\"=\"A", "3: a text without its closing quotation mark");
    row("a text that ends with an escape", "\"n\"=\"A\\\"", "3: a text without its closing quotation mark");
    row("characters after a text", "\"n\"=\"A\" B", "3: something follows the text");
    row("a number without digits", "\"n\"=dword:", badNumber);
    row("a number of nine digits", "\"n\"=dword:000000001", badNumber);
    row("a number with a sign", "\"n\"=dword:-1", badNumber);
    row("a number with another letter", "\"n\"=dword:1g", badNumber);
    row("characters after a number", "\"n\"=dword:1 2", badNumber);
    row("bytes without commas", "\"n\"=hex:01 02", badBytes);
    row("a byte of three digits", "\"n\"=hex:001", badBytes);
    row("a byte with a letter that is not hexadecimal", "\"n\"=hex:0g", badBytes);
    row("a byte that is missing", "\"n\"=hex:01,,02", badBytes);
    row("a list that continues without its comma", "\"n\"=hex:01\\\n02", badBytes);
    row("bytes without a colon", "\"n\"=hex", noData);
    row("a type that is not closed", "\"n\"=hex(7:00", noData);
    row("no type between brackets", "\"n\"=hex():00", noData);
    row("a type with a letter that is not hexadecimal", "\"n\"=hex(g):00", noData);
    row("a type beyond 32 bits", "\"n\"=hex(100000000):00", noData);
    row("the file ends inside a list", "\"n\"=hex:01,\\", "3: the file ends where a list of bytes continues");
    row("the file ends inside a list, after a comment", "\"n\"=hex:01,\\\n; more\n",
        "4: the file ends where a list of bytes continues");
    row("a malformed byte on a later line of a list", "\"n\"=hex:01,\\\n02,\\\nxx",
        "5: hex: takes bytes of two hexadecimal digits with commas between them");
    row("a key that is not closed", "[HKEY_LOCAL_MACHINE\\B", "3: a key without its closing bracket");
    row("characters after a key", "[HKEY_LOCAL_MACHINE\\B] C", "3: something follows the key");
    row("an unknown root", "[HKEY_CURRENT_CONFIG\\B]", "3: unknown root key 'HKEY_CURRENT_CONFIG'");
    row("the short name of a root", "[HKLM\\B]", "3: unknown root key 'HKLM'");
    row("a key to delete", "[-HKEY_LOCAL_MACHINE\\B]", "3: unknown root key '-HKEY_LOCAL_MACHINE'");
    row("an empty key", "[]", "3: unknown root key ''");
    row("carriage returns and empty lines count once", "\r\n\"n\"=hex:01,\\\r\n02\r\n\r\nhello\r\n",
        "7: neither a key, a value nor a comment");
}

void malformedEncodings()
{
    const auto row = [](const QString &name, const QByteArray &file, const QString &expected) {
        addTestRow(name, [=] {
            QCOMPARE(read(file), QStringList(expected));
        });
    };
    const QString noFirstLine = QStringLiteral("1: the first line is not \"Windows Registry Editor Version 5.00\"");
    const QString noEncoding = QStringLiteral("1: neither UTF-16LE with a byte-order mark nor UTF-8");
    const QByteArray utf16 = asUtf16(QLatin1String(firstLine));
    row("an empty file", QByteArray(), noFirstLine);
    row("the first line of an older format", QByteArray("REGEDIT4\n"), noFirstLine);
    row("an empty line first", "\n" + QByteArray(firstLine), noFirstLine);
    row("a value before the first key", firstLine + QByteArray("\n\"n\"=dword:1\n"), "3: a value before the first key");
    row("UTF-16 without a byte-order mark", utf16.mid(2), noFirstLine);
    row("UTF-16 of an odd size", utf16 + "\n", noEncoding);
    row("UTF-16 in the other byte order", QByteArray("\xfe\xff\0W", 4), noEncoding);
    row("non-ASCII letters of an 8-bit code page", firstLine + QByteArray("; Gr\xf6\xdf"
                                                                          "e\n"),
        noEncoding);
    row("truncated UTF-8", firstLine + QByteArray("; \xc3"), noEncoding);
}

void addTests()
{
    addTestRows("encodings", encodings);
    addTestRows("data", data);
    addTestRows("keys", keys);
    addTestRows("malformed", malformed);
    addTestRows("malformedEncodings", malformedEncodings);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
