// AnsiCodePage: characters that a code page has or lacks, and undefined bytes.

#include "ansi_code_page.h"
#include "described_windows.h"
#include "rows.h"

#include <QtTest/QtTest>
#include <windows.h>

using simulated::AnsiCodePage;

namespace {

void roundTrip()
{
    const auto row = [](const char *name, int codePage, const QString &text, const QByteArray &bytes) {
        addTestRow(QString::asprintf("%d: %s", codePage, name), [=] {
            QCOMPARE(AnsiCodePage(codePage).fromUtf16(text), bytes);
            QCOMPARE(AnsiCodePage(codePage).toUtf16(bytes), text);
        });
    };
    for (const int codePage : {1252, 1250, 1251, 932, 65001}) {
        row("ASCII", codePage, "AZaz09\\~\x7f\n", "AZaz09\\~\x7f\n");
        row("U+0000", codePage, QString(QChar(0)), QByteArray(1, '\0'));
        row("empty", codePage, QString(), QByteArray());
    }
    row("the euro sign", 1252, "\u20ac", "\x80");
    row("letters with diacritics", 1252, "\u00e4\u00df\u00ff", "\xe4\xdf\xff");
    row("undefined bytes are control characters", 1252, "\u0081\u008d\u008f\u0090\u009d", "\x81\x8d\x8f\x90\x9d");
    row("the no-break space", 1252, "\u00a0", "\xa0");
    row("letters with diacritics", 1250, "\u0159\u0151\u0141", "\xf8\xf5\xa3");
    row("undefined bytes are control characters", 1250, "\u0081\u0083\u0088\u0090\u0098", "\x81\x83\x88\x90\x98");
    row("Cyrillic letters", 1251, "\u0416\u044f\u0402", "\xc6\xff\x80");
    row("the undefined byte is a control character", 1251, "\u0098", "\x98");
    row("a pair whose second byte is a backslash", 932, "\u8868", "\x95\x5c");
    row("pairs between letters", 932, "A\u65e5\u672c\\", "A\x93\xfa\x96\x7b\\");
    row("half-width letters have one byte", 932, "\uff71\uff9f", "\xb1\xdf");
    row("the wave dash is decoded as the full-width tilde", 932, "\uff5e", "\x81\x60");
    row("the minus sign is decoded as the full-width minus", 932, "\uff0d", "\x81\x7c");
    row("of two byte pairs, the JIS one is encoded", 932, "\u2252\uffe2\u2235", "\x81\xe0\x81\xca\x81\xe6");
    row("of two byte pairs, the one of the NEC row is encoded", 932, "\u2160\u3231", "\x87\x54\x87\x8a");
    row("of two byte pairs, the IBM one at the end is encoded", 932, "\u2170\u7e8a", "\xfa\x40\xfa\x5c");
    row("private use characters", 932, "\ue000\ue757", "\xf0\x40\xf9\xfc");
    row("undefined bytes", 932, "\u0080\uf8f0\uf8f1\uf8f2\uf8f3", "\x80\xa0\xfd\xfe\xff");
    row("two, three and four bytes", 65001, "\u00e9\u20ac\U0001f600",
        "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80");
    row("U+FEFF is a character", 65001, QStringLiteral("\ufeffA"), "\xef\xbb\xbf"
                                                                   "A");
}

void addEncoded(const char *name, int codePage, const QString &text, const QByteArray &bytes)
{
    addTestRow(QString::asprintf("%d: %s", codePage, name), [=] {
        QCOMPARE(AnsiCodePage(codePage).fromUtf16(text), bytes);
    });
}

void missingCharacters()
{
    addEncoded("another alphabet", 1252, "A\u0416B", "A?B");
    addEncoded("a control character whose byte is another character", 1252, "\u0080", "?");
    addEncoded("a surrogate pair: a question mark for each unit", 1252, "\U0001f600", "??");
    addEncoded("a letter of another alphabet", 1250, "\u0416\u05d0", "??");
    addEncoded("a letter of another alphabet", 1251, "\u05d0\uff71", "??");
    addEncoded("the no-break space", 932, "\u00a0", "?");
    addEncoded("the wave dash", 932, "\u301c", "?");
    addEncoded("a surrogate pair: a question mark for each unit", 932, "\U0002000b", "??");
    addEncoded("a lone surrogate", 65001, QString(QChar(0xd83d)) + QLatin1Char('A'), "\xef\xbf\xbd"
                                                                                     "A");
    addEncoded("a lone second surrogate", 65001, QString(QChar(0xde00)), "\xef\xbf\xbd");
    addEncoded("surrogates in the wrong order", 65001, QString(QChar(0xde00)) + QChar(0xd83d), "\xef\xbf\xbd\xef\xbf\xbd");
    addEncoded("a lone surrogate before a pair", 65001, QString(QChar(0xd83d)) + QStringLiteral("\U0001f600"),
               "\xef\xbf\xbd\xf0\x9f\x98\x80");
    addEncoded("a lone surrogate", 1252, QString(QChar(0xd83d)), "?");
}

void bestFit()
{
    addEncoded("letters lose their diacritics", 1252, "\u0100\u0101\u0141\u017a", "AaLz");
    addEncoded("full-width letters", 1252, "\uff21\uff5e", "A~");
    addEncoded("a byte above 0x7f", 1252, "\u0192\u0191\u0110", "\x83\x83\xd0");
    addEncoded("a character of the code page is unchanged", 1252, "\u017d\u20ac\u00c4", "\x8e\x80\xc4");
    addEncoded("letters lose their diacritics", 1250, "\u00f1\u00e3\u0100", "naA");
    addEncoded("letters lose their diacritics", 1251, "\u00e4\u00c9\u0159", "aEr");
    addEncoded("letters lose their diacritics", 932, "\u00e4\u00fd", "ay");
    addEncoded("the yen sign becomes a backslash", 932, "\u00a5", "\\");
}

void decodedOnly()
{
    const auto row = [](const QString &name, int codePage, const QByteArray &bytes, const QString &text) {
        addTestRow(name, [=] {
            QCOMPARE(AnsiCodePage(codePage).toUtf16(bytes), text);
        });
    };
    row("932: the NEC copy of an IBM character", 932, QByteArray("\xee\xef"), "\u2170");
    row("932: the IBM copy of a character of the NEC row", 932, QByteArray("\xfa\x4a"), "\u2160");
    row("932: an undefined byte pair", 932, QByteArray("\x81\xad"
                                                       "A"),
        QStringLiteral("\u30fbA"));
    row("932: the first byte of a pair at the end", 932, QByteArray("A\x95"), "A\u30fb");
    row("65001: an invalid byte", 65001, QByteArray("A\xff"
                                                    "B"),
        QStringLiteral("A\ufffdB"));
}

void everySingleByteRoundTrips()
{
    const auto row = [](const QString &name, int codePage) {
        addTestRow(name, [=] {
            for (int byte = 0; byte < 256; ++byte) {
                const QByteArray bytes(1, char(byte));
                const QString text = AnsiCodePage(codePage).toUtf16(bytes);
                QCOMPARE(text.size(), 1);
                QCOMPARE(AnsiCodePage(codePage).fromUtf16(text), bytes);
            }
        });
    };
    for (const int codePage : {1252, 1250, 1251})
        row(QString::asprintf("%d", codePage), codePage);
}

void valueInTheCodePageOfTheMachine()
{
    const auto row = [](const QString &name, const QByteArray &system, const QByteArray &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows("[HKEY_LOCAL_MACHINE]\n\"V\"=\"\u00e4\u8868\u0416\"\n", system);
            char buffer[32] = {};
            DWORD size = sizeof buffer;
            QCOMPARE(RegQueryValueExA(HKEY_LOCAL_MACHINE, "V", nullptr, nullptr, reinterpret_cast<LPBYTE>(buffer), &size),
                     ERROR_SUCCESS);
            QCOMPARE(QByteArray(buffer), expected);
            QCOMPARE(size, DWORD(expected.size() + 1));
        });
    };
    row("no code page is described: 1252", QByteArray("{}"), QByteArray("\xe4??"));
    row("1250", QByteArray("{\"ansiCodePage\": 1250}"), QByteArray("\xe4??"));
    row("1251", QByteArray("{\"ansiCodePage\": 1251}"), QByteArray("a?\xc6"));
    row("932: a byte pair counts as two bytes", QByteArray("{\"ansiCodePage\": 932}"), QByteArray("a\x95\x5c\x84\x47"));
    row("65001", QByteArray("{\"ansiCodePage\": 65001}"), QByteArray("\xc3\xa4\xe8\xa1\xa8\xd0\x96"));
}

void keyPathInTheCodePageOfTheMachine()
{
    const auto row = [](const QString &name, int codePage, const QByteArray &path, const LSTATUS &status) {
        addTestRow(name, [=] {
            const DescribedWindows windows("[HKEY_LOCAL_MACHINE\\\u8868\\A]\n[HKEY_LOCAL_MACHINE\\\u00c4]\n",
                                           "{\"ansiCodePage\": " + QByteArray::number(codePage) + '}');
            HKEY key = nullptr;
            QCOMPARE(RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.constData(), 0, KEY_READ, &key), status);
            QCOMPARE(key != nullptr, status == ERROR_SUCCESS);
        });
    };
    const LSTATUS found = ERROR_SUCCESS;
    const LSTATUS notFound = ERROR_FILE_NOT_FOUND;
    row("932: a backslash inside a byte pair does not separate keys", 932, QByteArray("\x95\x5c\\A"), found);
    row("1252: a backslash separates keys", 1252, QByteArray("\x95\x5c\\A"), notFound);
    row("65001: the same key", 65001, QByteArray("\xe8\xa1\xa8\\A"), found);
    row("1252: a question mark does not match another character", 1252, QByteArray("?\\A"), notFound);
    row("1252: a letter of the code page", 1252, QByteArray("\xe4"), found);
    row("1251: the same byte is another letter", 1251, QByteArray("\xe4"), notFound);
}

void addTests()
{
    addTestRows("roundTrip", roundTrip);
    addTestRows("missingCharacters", missingCharacters);
    addTestRows("bestFit", bestFit);
    addTestRows("decodedOnly", decodedOnly);
    addTestRows("everySingleByteRoundTrips", everySingleByteRoundTrips);
    addTestRows("valueInTheCodePageOfTheMachine", valueInTheCodePageOfTheMachine);
    addTestRows("keyPathInTheCodePageOfTheMachine", keyPathInTheCodePageOfTheMachine);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
