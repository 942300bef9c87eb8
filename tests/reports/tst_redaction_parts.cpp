// Patterns, environment variables, aliases, plans and printers.

#include "redaction/alias_text.h"
#include "redaction/environment.h"
#include "redaction/fact_names.h"
#include "redaction/plan.h"
#include "redaction/word_pattern.h"
#include "test_main.h"

#include <QtCore/QRegularExpression>
#include <cstring>

using namespace velkor::Reports;

class RedactionPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void patterns_data();
    void patterns();
    void allShortPatterns();
    void longPatterns();
    void variables_data();
    void variables();
    void lengths();
    void aliases_data();
    void aliases();
    void inAlias_data();
    void inAlias();
    void onlyAliases_data();
    void onlyAliases();
    void numberedAliases();
    void reservedAliases();
    void keyedAliases();
    void madeAliasesAreAliases();
    void normalised_data();
    void normalised();
    void mergedPlans_data();
    void mergedPlans();
    void allMergedPlans();
    void printers_data();
    void printers();
};

namespace {

std::string_view viewOf(const QByteArray &text) { return {text.constData(), std::size_t(text.size())}; }

const AliasKind allKinds[]
    = {AliasKind::User, AliasKind::Host, AliasKind::Domain, AliasKind::Organisation, AliasKind::Product,
       AliasKind::Serial, AliasKind::Mac, AliasKind::Ip, AliasKind::Printer, AliasKind::Label,
       AliasKind::Share, AliasKind::Folder, AliasKind::Secret, AliasKind::Word};
const char *const allPrefixes[] = {"user", "host", "domain", "org", "product", "serial", "mac",
                                   "ip", "printer", "label", "share", "folder", "secret", "word"};

/// "begin-end=what ...", as plan().
QByteArray described(const Plan &plan)
{
    QByteArrayList list;
    for (const Planned &place : plan) {
        list.append(QByteArray::number(place.begin) + '-' + QByteArray::number(place.end) + '='
                    + QByteArray::number(place.what));
    }
    return list.join(' ');
}

Plan plan(const QByteArray &description)
{
    Plan places;
    for (const QByteArray &part : description.isEmpty() ? QByteArrayList() : description.split(' ')) {
        Planned place;
        place.begin = part.left(part.indexOf('-')).toInt();
        const int equal = part.indexOf('=');
        place.end = part.mid(part.indexOf('-') + 1, equal - part.indexOf('-') - 1).toInt();
        place.what = part.mid(equal + 1).toInt();
        places.push_back(place);
    }
    return places;
}

/// What of each of \a size bytes; -9 for none.
std::vector<int> byteByByte(const Plan &places, int size)
{
    std::vector<int> bytes(std::size_t(size), -9);
    for (const Planned &place : places) {
        for (int at = place.begin; at < place.end; ++at)
            bytes[std::size_t(at)] = place.what;
    }
    return bytes;
}

bool isInOrder(const Plan &places)
{
    int at = 0;
    for (const Planned &place : places) {
        if (place.begin < at || place.end <= place.begin)
            return false;
        at = place.end;
    }
    return true;
}

} // namespace

void RedactionPartsTest::patterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char *name, const QString &pattern, const QString &word, bool matches) {
        QTest::newRow(name) << pattern << word << matches;
    };
    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    row("nothing", text(""), text(""), true);
    row("empty pattern", text(""), text("a"), false);
    row("empty word", text("a"), text(""), false);
    row("same", text("abc"), text("abc"), true);
    row("one more in the word", text("abc"), text("abcd"), false);
    row("one more in the pattern", text("abcd"), text("abc"), false);
    row("inside the word", text("b"), text("abc"), false);
    row("star and nothing", text("*"), text(""), true);
    row("star", text("*"), text("abc"), true);
    row("two stars", text("**"), text("a"), true);
    row("two stars and nothing", text("**"), text(""), true);
    row("star first", text("*c"), text("abc"), true);
    row("star first, another end", text("*b"), text("abc"), false);
    row("star last", text("a*"), text("abc"), true);
    row("star last and nothing", text("abc*"), text("abc"), true);
    row("star last, another beginning", text("b*"), text("abc"), false);
    row("star in the middle", text("a*c"), text("abbc"), true);
    row("star in the middle and nothing", text("a*c"), text("ac"), true);
    row("beginning and end do not overlap", text("aba*ba"), text("aba"), false);
    row("star takes a second try", text("*ab"), text("aab"), true);
    row("star takes several tries", text("a*ab*c"), text("axabxabyc"), true);
    row("first star takes part of the second", text("*a*b"), text("acab"), true);
    row("question mark", text("a?c"), text("abc"), true);
    row("question mark and nothing", text("a?c"), text("ac"), false);
    row("question mark and two", text("a?c"), text("abbc"), false);
    row("question mark and the empty word", text("?"), text(""), false);
    row("question mark after a star", text("*?"), text(""), false);
    row("question mark after a star and one", text("*?"), text("a"), true);
    row("question mark before a letter beyond ASCII", text("?"), text("\xC3\xB6"), true);
    row("set", text("[abc]"), text("b"), true);
    row("set, first", text("[abc]"), text("a"), true);
    row("set, last", text("[abc]"), text("c"), true);
    row("set, other", text("[abc]"), text("d"), false);
    row("set and nothing", text("[abc]"), text(""), false);
    row("set and two", text("[abc]"), text("ab"), false);
    row("range, first", text("[b-d]"), text("b"), true);
    row("range, middle", text("[b-d]"), text("c"), true);
    row("range, last", text("[b-d]"), text("d"), true);
    row("range, before", text("[b-d]"), text("a"), false);
    row("range, behind", text("[b-d]"), text("e"), false);
    row("range of one", text("[b-b]"), text("b"), true);
    row("two ranges", text("[a-b0-1]"), text("1"), true);
    row("two ranges, other", text("[a-b0-1]"), text("2"), false);
    row("range and letter", text("[a-bx]"), text("x"), true);
    row("letter and range", text("[xa-b]"), text("b"), true);
    row("hyphen is no member of a range", text("[a-c]"), text("-"), false);
    row("none of these", text("[!abc]"), text("d"), true);
    row("none of these, one of them", text("[!abc]"), text("b"), false);
    row("none of these and nothing", text("[!a]"), text(""), false);
    row("none of a range", text("[!a-c]"), text("b"), false);
    row("none of a range, other", text("[!a-c]"), text("d"), true);
    row("exclamation mark alone", text("!a"), text("!a"), true);
    row("exclamation mark later in a set", text("[a!]"), text("!"), true);
    row("set after a star", text("*[0-9]"), text("a12"), true);
    row("set after a star, other", text("*[0-9]"), text("a1b"), false);
    row("star behind a set", text("[ab]*"), text("bxyz"), true);
    row("set between letters", text("a[0-9]c"), text("a5c"), true);
    row("set beyond ASCII", text("[\xD0\xB0-\xD1\x8F]"), text("\xD0\xB6"), true);
    row("star in a set", text("[*]"), text("a"), false);
    row("star in a set and a star", text("[*]"), text("*"), true);
    row("question mark in a set", text("[?]"), text("a"), false);
    row("characters of expressions", text("a.b+(c)^$|{}\\"), text("a.b+(c)^$|{}\\"), true);
    row("point is no joker", text("a.c"), text("abc"), false);
    row("NUL", QString(QChar(0)), QString(QChar(0)), true);
    row("NUL and nothing", QString(QChar(0)), QString(), false);
    row("star and NUL", text("a*b"), QLatin1Char('a') + QString(QChar(0)) + QLatin1Char('b'), true);
}

void RedactionPartsTest::patterns()
{
    QFETCH(QString, pattern);
    QFETCH(QString, word);
    QFETCH(bool, matches);
    QCOMPARE(matchesWordPattern(pattern.toStdU16String(), word.toStdU16String()), matches);
}

/// All patterns of up to four of "a", "b", "*", "?", "[ab]" and "[!a]" with all words of up to four letters.
void RedactionPartsTest::allShortPatterns()
{
    const QString parts[] = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("*"),
                             QStringLiteral("?"), QStringLiteral("[ab]"), QStringLiteral("[!a]")};
    const QString expressions[] = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral(".*"),
                                   QStringLiteral("."), QStringLiteral("[ab]"), QStringLiteral("[^a]")};
    QStringList words = {QString()};
    for (int i = 0; words[i].size() < 4; ++i) {
        for (const char letter : {'a', 'b', 'c'})
            words.append(words[i] + QLatin1Char(letter));
    }
    for (int length = 0, combinations = 1; length <= 4; ++length, combinations *= 6) {
        for (int combination = 0; combination < combinations; ++combination) {
            QString pattern;
            QString expression;
            for (int i = 0, rest = combination; i < length; ++i, rest /= 6) {
                pattern += parts[rest % 6];
                expression += expressions[rest % 6];
            }
            const QRegularExpression reference(QStringLiteral("\\A(?:%1)\\z").arg(expression));
            for (const QString &word : qAsConst(words)) {
                if (matchesWordPattern(pattern.toStdU16String(), word.toStdU16String())
                    != reference.match(word).hasMatch())
                    QFAIL(qPrintable(pattern + QLatin1Char(' ') + word));
            }
        }
    }
}

void RedactionPartsTest::longPatterns()
{
    for (const std::size_t length : {std::size_t(250), std::size_t(251), std::size_t(256), std::size_t(4096)}) {
        const std::u16string word(length, u'a');
        QVERIFY(matchesWordPattern(word, word));
        QVERIFY(!matchesWordPattern(word, word + u'a'));
        QVERIFY(!matchesWordPattern(word + u'a', word));
        QVERIFY(matchesWordPattern(u"*a", word));
        QVERIFY(matchesWordPattern(std::u16string(length, u'?'), word));
        QVERIFY(!matchesWordPattern(std::u16string(length + 1, u'?'), word));
    }
    std::u16string stars;
    for (int i = 0; i < 60; ++i)
        stars += u"a*";
    QVERIFY(matchesWordPattern(stars + u'b', std::u16string(4095, u'a') + u'b'));
    QVERIFY(!matchesWordPattern(stars + u'b', std::u16string(4096, u'a')));
}

void RedactionPartsTest::variables_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto rows = [](const char *expected, std::initializer_list<const char *> names) {
        for (const char *name : names)
            QTest::newRow(*name == '\0' ? "nothing" : name) << QString::fromUtf8(name) << QString::fromLatin1(expected);
    };
    rows("harmless",
         {"OS",
          "NUMBER_OF_PROCESSORS",
          "PROCESSOR_ARCHITECTURE",
          "PROCESSOR_IDENTIFIER",
          "PROCESSOR_LEVEL",
          "PROCESSOR_REVISION",
          "PROCESSOR_ARCHITEW6432",
          "PATHEXT",
          "SystemDrive",
          "HOMEDRIVE",
          "SESSIONNAME",
          "PROMPT",
          "LANG",
          "LC_ALL",
          "LC_CTYPE",
          "TZ",
          "TERM",
          "QT_SCALE_FACTOR",
          "os",
          "Os",
          "lang",
          "systemdrive",
          "SYSTEMDRIVE"});
    rows("paths",
         {"PATH", "Path", "path", "ComSpec", "COMSPEC", "windir", "SystemRoot", "ProgramFiles", "ProgramFiles(x86)",
          "PROGRAMFILES", "CommonProgramFiles", "CommonProgramFiles(x86)", "ProgramData", "ALLUSERSPROFILE", "PUBLIC",
          "PSModulePath", "DriverData", "QT_PLUGIN_PATH"});
    rows("personal", {"USERPROFILE", "HOME", "HOMEPATH", "OneDrive", "OneDriveCommercial", "OneDriveConsumer", "home"});
    rows("paths or personal", {"TEMP", "TMP", "APPDATA", "LOCALAPPDATA", "HOMESHARE", "temp"});
    rows("user", {"USERNAME", "USER", "LOGNAME", "UserName"});
    rows("host", {"COMPUTERNAME", "HOSTNAME", "CLIENTNAME", "LOGONSERVER", "ComputerName"});
    rows("domain", {"USERDOMAIN", "USERDOMAIN_ROAMINGPROFILE", "USERDNSDOMAIN", "userdomain"});
    rows("other",
         {"",
          "X",
          "OSX",
          "AOS",
          "EISVOGEL_TOKEN",
          "PATHX",
          "PAT",
          "XPATH",
          "PROCESSOR",
          "LC",
          "XLC_ALL",
          "XPROCESSOR_LEVEL",
          "XOneDrive",
          "USERNAMES",
          "USERNAME2",
          "USERS",
          "HOSTNAMES",
          "USERDNSDOMAIN2",
          "XUSERDOMAIN",
          "HOME2",
          "TEMP2",
          "LANGUAGES",
          "QT_EISVOGEL",
          "MYPROGRAMFILES",
          "XQT_SCALE_FACTOR",
          " OS",
          "OS ",
          "P\xC3\xA4TH"});
    QTest::newRow("NUL behind the name") << QString(QStringLiteral("PATH") + QChar(0)) << QStringLiteral("other");
    QTest::newRow("251 symbols") << QString(251, QLatin1Char('P')) << QStringLiteral("other");
}

void RedactionPartsTest::variables()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    const auto nameOf = [](VariableKind kind) {
        switch (kind) {
        case VariableKind::Harmless:
            return "harmless";
        case VariableKind::Paths:
            return "paths";
        case VariableKind::Personal:
            return "personal";
        case VariableKind::User:
            return "user";
        case VariableKind::Host:
            return "host";
        case VariableKind::Domain:
            return "domain";
        case VariableKind::Other:
            break;
        }
        return "other";
    };
    const QString actual = QString::fromLatin1(nameOf(variableKind(name)));
    if (expected.contains(QLatin1String(" or ")))
        QVERIFY2(expected.split(QStringLiteral(" or ")).contains(actual), qPrintable(actual));
    else
        QCOMPARE(actual, expected);
}

void RedactionPartsTest::lengths()
{
    QCOMPARE(lengthAlias(0), QByteArray("length-0"));
    QCOMPARE(lengthAlias(1), QByteArray("length-1"));
    QCOMPARE(lengthAlias(12), QByteArray("length-12"));
    QCOMPARE(lengthAlias(32767), QByteArray("length-32767"));
    QCOMPARE(int(aliasLength("length-32767")), 12);
}

void RedactionPartsTest::aliases_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("length");
    const auto row
        = [](const char *name, const QByteArray &text, int length) { QTest::newRow(name) << text << length; };
    for (const char *prefix : allPrefixes) {
        row(prefix, QByteArray(prefix) + "-1", int(std::strlen(prefix)) + 2);
        QTest::addRow("%s with a key", prefix) << QByteArray(prefix) + "-482193756012" << int(std::strlen(prefix)) + 13;
        QTest::addRow("%s without a number", prefix) << QByteArray(prefix) + '-' << 0;
        QTest::addRow("%s alone", prefix) << QByteArray(prefix) << 0;
    }
    row("length", "length-12", 9);
    row("length of nothing", "length-0", 8);
    row("length without a number", "length-", 0);
    row("nothing", "", 0);
    row("hyphen", "-", 0);
    row("number", "1", 0);
    row("hyphen and number", "-1", 0);
    row("not at the beginning", "xuser-1", 0);
    row("behind a blank", " user-1", 0);
    row("before a blank", "user-12 x", 7);
    row("before a point", "user-12.", 7);
    row("before NUL", QByteArray("user-12\0", 8), 7);
    row("NUL instead of a number", QByteArray("user-\0", 6), 0);
    row("before a damaged letter", "user-12\xC3", 7);
    row("letter instead of a number", "user-x", 0);
    row("two hyphens", "user--1", 0);
    row("no hyphen", "user1", 0);
    row("underscore", "user_1", 0);
    row("another word", "name-1", 0);
    row("plural", "users-1", 0);
    row("beginning of the word", "use-1", 0);
}

void RedactionPartsTest::aliases()
{
    QFETCH(QByteArray, text);
    QFETCH(int, length);
    QCOMPARE(int(aliasLength(viewOf(text))), length);
    if (length > 0)
        QVERIFY(hasAlias(viewOf(text)));
}

void RedactionPartsTest::inAlias_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("begin"); // of the alias
    QTest::addColumn<int>("end");
    const auto row = [](const char *name, const QByteArray &text, int begin, int end) {
        QTest::newRow(name) << text << begin << end;
    };
    row("the whole text", "user-1", 0, 6);
    row("first", "user-1 abc", 0, 6);
    row("last", "abc user-1", 4, 10);
    row("in the middle", "abc user-12 def", 4, 11);
    row("in a path", "C:\\Users\\user-1\\a", 9, 15);
    row("with a key", "at host-482193756012.", 3, 20);
    row("length", "A=length-12", 2, 11);
    row("behind a letter beyond ASCII", "\xE5\xB1\xB1 user-1", 4, 10);
    row("between NUL", QByteArray("\0user-1\0", 8), 1, 7);
    row("none", "abc user- def", 0, 0);
    row("nothing", "", 0, 0);
}

/// Each place that lies in the alias, and no other.
void RedactionPartsTest::inAlias()
{
    QFETCH(QByteArray, text);
    QFETCH(int, begin);
    QFETCH(int, end);
    for (int from = 0; from < text.size(); ++from) {
        for (int to = from + 1; to <= text.size(); ++to) {
            if (isInAlias(viewOf(text), std::size_t(from), std::size_t(to)) != (from >= begin && to <= end))
                QFAIL(QByteArray::number(from) + ' ' + QByteArray::number(to));
        }
    }
    QCOMPARE(hasAlias(viewOf(text)), begin < end);
}

void RedactionPartsTest::onlyAliases_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("expected");
    const auto row
        = [](const char *name, const QByteArray &text, bool expected) { QTest::newRow(name) << text << expected; };
    row("one", "user-1", true);
    row("two", "user-1 host-2", true);
    row("length", "length-12", true);
    row("three", "user-1 user-2 user-482193756012", true);
    row("word first", "x user-1", false);
    row("word last", "user-1 x", false);
    row("word between", "user-1 x user-2", false);
    row("letter beyond ASCII last", "user-1 \xC3\xB6", false);
    row("letter before it", "xuser-1", false);
    row("word", "x", false);
    row("number", "7", false);
    row("beginning of an alias", "user-", false);
}

void RedactionPartsTest::onlyAliases()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, expected);
    QCOMPARE(hasOnlyAliases(viewOf(text)), expected);
}

void RedactionPartsTest::numberedAliases()
{
    AliasMaker maker {QByteArray()};
    for (std::size_t i = 0; i < std::size(allKinds); ++i) {
        const QString prefix = QString::fromLatin1(allPrefixes[i]);
        QCOMPARE(maker.make(allKinds[i], "a"), prefix + QLatin1String("-1"));
        QCOMPARE(maker.make(allKinds[i], "b"), prefix + QLatin1String("-2"));
    }
    for (int number = 3; number <= 300; ++number)
        QCOMPARE(maker.make(AliasKind::User, QByteArray::number(number)), QStringLiteral("user-%1").arg(number));
}

void RedactionPartsTest::reservedAliases()
{
    AliasMaker maker {QByteArray()};
    maker.reserve("user-1 host-2, C:\\Users\\user-3\\a");
    maker.reserve("");
    maker.reserve("user-5");
    QCOMPARE(maker.make(AliasKind::User, "a"), QStringLiteral("user-2"));
    QCOMPARE(maker.make(AliasKind::User, "b"), QStringLiteral("user-4"));
    QCOMPARE(maker.make(AliasKind::User, "c"), QStringLiteral("user-6"));
    QCOMPARE(maker.make(AliasKind::Host, "a"), QStringLiteral("host-1"));
    QCOMPARE(maker.make(AliasKind::Host, "b"), QStringLiteral("host-3"));
    QCOMPARE(maker.make(AliasKind::Domain, "a"), QStringLiteral("domain-1"));
}

void RedactionPartsTest::keyedAliases()
{
    const QRegularExpression form(QStringLiteral("\\A[a-z]+-[0-9]{12}\\z"));
    QStringList made;
    for (const QByteArray &key : {QByteArray("key"), QByteArray("kez"), QByteArray("k\0y", 3), QByteArray("k\0z", 3),
                                  QByteArray(100, 'k'), QByteArray(101, 'k')}) {
        for (const QByteArray &canonical : {QByteArray("a"), QByteArray("b"), QByteArray(), QByteArray("a\0b", 3),
                                            QByteArray("a\0c", 3), QByteArray("\xC3\xB6")}) {
            for (std::size_t i = 0; i < std::size(allKinds); ++i) {
                AliasMaker maker(key);
                const QString alias = maker.make(allKinds[i], canonical);
                QVERIFY2(form.match(alias).hasMatch(), qPrintable(alias));
                QVERIFY(alias.startsWith(QLatin1String(allPrefixes[i])));
                QVERIFY2(!made.contains(alias), qPrintable(alias));
                made.append(alias);
                AliasMaker again(key);
                again.make(allKinds[i], canonical + 'x'); // the order does not matter
                again.reserve("user-1 host-1");
                QCOMPARE(again.make(allKinds[i], canonical), alias);
            }
        }
    }
}

void RedactionPartsTest::madeAliasesAreAliases()
{
    for (const QByteArray &key : {QByteArray(), QByteArray("key")}) {
        AliasMaker maker(key);
        for (const AliasKind kind : allKinds) {
            const QByteArray alias = maker.make(kind, "a").toUtf8();
            QCOMPARE(int(aliasLength(viewOf(alias))), alias.size());
            QVERIFY(hasOnlyAliases(viewOf(alias)));
        }
    }
}

/// Nothing of a place remains: an overlapping one makes the first longer.
void RedactionPartsTest::normalised_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char *name, const QByteArray &before, const QByteArray &after) {
        QTest::newRow(name) << before << after;
    };
    row("nothing", "", "");
    row("one", "3-5=1", "3-5=1");
    row("at the beginning", "0-1=0", "0-1=0");
    row("wrong order", "3-5=1 0-2=2", "0-2=2 3-5=1");
    row("three in wrong order", "6-7=3 3-5=1 0-2=2", "0-2=2 3-5=1 6-7=3");
    row("side by side", "2-4=1 0-2=2", "0-2=2 2-4=1");
    row("one overlaps the next", "0-3=1 2-5=2", "0-5=1");
    row("wrong order and overlap", "2-5=2 0-3=1", "0-5=1");
    row("inside another", "0-9=1 2-5=2", "0-9=1");
    row("at the end of another", "0-9=1 8-9=2", "0-9=1");
    row("same beginning", "0-3=1 0-5=2", "0-5=2");
    row("same beginning, the longest first", "0-5=2 0-3=1", "0-5=2");
    row("chain", "0-3=1 2-5=2 4-7=3", "0-7=1");
    row("empty place", "2-2=1 3-4=2", "3-4=2");
    row("long one over two", "0-9=1 2-3=2 9-10=3", "0-9=1 9-10=3");
    row("kept places count", "0-3=-2 2-5=2", "0-5=-2");
}

void RedactionPartsTest::normalised()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    Plan places = plan(before);
    normalise(places);
    QCOMPARE(described(places), after);
    normalise(places);
    QCOMPARE(described(places), after);
}

void RedactionPartsTest::mergedPlans_data()
{
    QTest::addColumn<QByteArray>("high");
    QTest::addColumn<QByteArray>("low");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const QByteArray &high, const QByteArray &low, const QByteArray &expected) {
        QTest::newRow(name) << high << low << expected;
    };
    row("nothing", "", "", "");
    row("high only", "0-2=1 3-4=2", "", "0-2=1 3-4=2");
    row("low only", "", "0-2=1 3-4=2", "0-2=1 3-4=2");
    row("apart, high first", "0-2=1", "4-6=2", "0-2=1 4-6=2");
    row("apart, low first", "4-6=1", "0-2=2", "0-2=2 4-6=1");
    row("side by side", "2-4=1", "0-2=2 4-6=3", "0-2=2 2-4=1 4-6=3");
    row("alternating", "0-1=1 4-5=2 8-9=3", "2-3=4 6-7=5", "0-1=1 2-3=4 4-5=2 6-7=5 8-9=3");
    row("same place", "2-4=1", "2-4=2", "2-4=1");
    row("low inside", "2-8=1", "3-4=2 5-6=3", "2-8=1");
    row("low inside, same beginning", "2-8=1", "2-4=2", "2-8=1");
    row("low inside, same end", "2-8=1", "6-8=2", "2-8=1");
}

void RedactionPartsTest::mergedPlans()
{
    QFETCH(QByteArray, high);
    QFETCH(QByteArray, low);
    QFETCH(QByteArray, expected);
    QCOMPARE(described(merged(plan(high), plan(low), "abcdefghij")), expected);
}

/// All plans of up to two places in six letters: each byte of high is as in high, each other byte as in low.
void RedactionPartsTest::allMergedPlans()
{
    const int size = 6;
    std::vector<Plan> plans(1);
    for (int begin = 0; begin < size; ++begin) {
        for (int end = begin + 1; end <= size; ++end) {
            Planned first;
            first.begin = begin;
            first.end = end;
            plans.push_back({first});
            for (int nextBegin = end; nextBegin < size; ++nextBegin) {
                for (int nextEnd = nextBegin + 1; nextEnd <= size; ++nextEnd) {
                    Planned second;
                    second.begin = nextBegin;
                    second.end = nextEnd;
                    plans.push_back({first, second});
                }
            }
        }
    }
    for (Plan high : plans) {
        for (std::size_t i = 0; i < high.size(); ++i)
            high[i].what = int(i) + 1;
        for (Plan low : plans) {
            for (std::size_t i = 0; i < low.size(); ++i)
                low[i].what = int(i) + 11;
            const Plan both = merged(high, low, "abcdef");
            const QByteArray title = described(high) + " / " + described(low) + " -> " + described(both);
            QVERIFY2(isInOrder(both), title);
            std::vector<int> expected = byteByByte(low, size);
            const std::vector<int> ofHigh = byteByByte(high, size);
            for (std::size_t at = 0; at < expected.size(); ++at) {
                if (ofHigh[at] != -9)
                    expected[at] = ofHigh[at];
            }
            QVERIFY2(byteByByte(both, size) == expected, title);
        }
    }
}

void RedactionPartsTest::printers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isCommon");
    const auto row = [](const char *name, bool isCommon) {
        QTest::newRow(*name == '\0' ? "nothing" : name) << QString::fromUtf8(name) << isCommon;
    };
    row("Microsoft Print to PDF", true);
    row("Microsoft XPS Document Writer", true);
    row("Fax", true);
    row("", false);
    row("F", false);
    row("Faxraum 7", false);
    row("Eisvogel Nordheim", false);
    row("B\xC3\xBCro Lindmoor", false);
    row("Jorns Microsoft Print to PDF", false);
    row("Microsoft Print to PDFx", false);
    row("Microsoft Print", false);
    row("\\\\enzian\\Eisvogel", false);
}

void RedactionPartsTest::printers()
{
    QFETCH(QString, name);
    QFETCH(bool, isCommon);
    QCOMPARE(isCommonPrinter(name), isCommon);
    if (!isCommon)
        QVERIFY(!isCommonPrinter(QString(251, QLatin1Char('x')) + name));
}

TEST_WITHOUT_APPLICATION(RedactionPartsTest);
#include "tst_redaction_parts.moc"
