// What differs between two reports. The answers of the five pairs in pairs/ were written by hand,
// by somebody who had not seen the comparison.

#include "test_main.h"
#include "vkReports.h"

#include <QtCore/QFile>
#include <algorithm>

using namespace velkor::Reports;

class ComparisonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pairs_data();
    void pairs();
    void bothDirections_data();
    void bothDirections();
    void nothingDiffers_data();
    void nothingDiffers();
    void values_data();
    void values();
    void freeSpace_data();
    void freeSpace();
    void lists_data();
    void lists();
    void items_data();
    void items();
    void factsOfAnAddedItem();
    void reportsOfWhichOneHasASection();
    void onlyTheFirstReportCounts();
    void severalReports();
    void severalReportsWithoutDifference();
};

namespace {

QByteArray contents(const QString &fileName)
{
    QFile file(QStringLiteral(PROJECT_DIR "/tests/reports/pairs/") + fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

/// The lines of a table after its heading, in columns.
QList<QStringList> rows(const QString &fileName)
{
    QList<QStringList> result;
    const QStringList lines = QString::fromUtf8(contents(fileName)).split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(1);
    for (const QString &line : lines)
        result += line.split(QLatin1Char('\t'));
    return result;
}

QString difference(const Change &change)
{
    switch (change.difference) {
    case Difference::Added:
        return QStringLiteral("added");
    case Difference::Removed:
        return QStringLiteral("removed");
    case Difference::Changed:
        break;
    }
    return QStringLiteral("changed");
}

/// The tables spell keys with other capitals: openGLDriverName for openGlDriverName.
QString keyOf(const Change &change)
{
    return change.row < 0 ? QString() : QString::fromUtf8(factRows()[std::size_t(change.row)].key).toLower();
}

/// The tables have the text up to the end of the line: "-60 min (offset to UTC)".
QString toEndOfLine(const Change &change, const QString &value)
{
    if (change.row < 0 || value.isEmpty())
        return value;
    const QString format = QString::fromUtf8(factRows()[std::size_t(change.row)].line);
    const bool hasOneValue = !format.contains(QLatin1String("%2"));
    return hasOneValue ? (value + format.mid(format.indexOf(QLatin1String("%1")) + 2)).trimmed() : value;
}

/// A change as a line of the tables.
QString line(const Change &change)
{
    return QStringList({difference(change), change.section, change.items.join(QStringLiteral(" > ")), keyOf(change),
                        toEndOfLine(change, change.oldValue), toEndOfLine(change, change.newValue)})
        .join(QLatin1Char('\t'));
}

QString line(QStringList row)
{
    row[3] = row[3].toLower();
    return row.join(QLatin1Char('\t'));
}

/// All changes but those of every moment.
QStringList lines(const Comparison &comparison)
{
    QStringList result;
    for (const Change &change : comparison.changes) {
        if (!change.everyMoment)
            result += line(change);
    }
    return result;
}

/// A short form: "changed key: old -> new", and the items before it.
QString brief(const Change &change)
{
    QString text = difference(change) + QLatin1Char(' ') + change.items.join(QStringLiteral(" > "));
    if (change.row >= 0)
        text += QStringLiteral(" %1: %2 -> %3").arg(keyOf(change), change.oldValue, change.newValue);
    if (change.sameIdentity)
        text += QStringLiteral(" (same identity)");
    return text;
}

QStringList briefs(const Comparison &comparison)
{
    QStringList result;
    for (const Change &change : comparison.changes)
        result += brief(change);
    return result;
}

const char *name(Order order)
{
    return order == Order::Unknown ? "unknown" : order == Order::NewIsNewer ? "new"
                                                                            : "old";
}

QByteArray separator()
{
    return separatorLine() + '\n';
}

QByteArray environment(const QByteArray &variables)
{
    return "System environemnt (QProcess::systemEnvironment()):\n" + variables + separator();
}

QByteArray disks(const QByteArray &lines)
{
    return "Disk information: \n" + lines + separator();
}

QByteArray modules(const QByteArray &paths)
{
    return "Loaded modules/DLLs:\n" + paths + separator();
}

QByteArray driver(const QByteArray &description, const QByteArray &version, const QByteArray &id)
{
    return "   Driver Description: " + description + "\n   Driver Version:     " + version + "\n   Matching Device ID: " + id + '\n';
}

const QByteArray classRule(28, '-');

QByteArray drivers(const QList<QByteArray> &blocks)
{
    return ">>> Info about drivers from registry:\n\n" + classRule + "\nUSB:\n" + blocks.join('\n') + classRule + '\n' + separator();
}

void pairRows()
{
    QTest::addColumn<QString>("pair");
    for (const char *pair : {"driver-update", "full-disk", "missing-runtime", "minute-apart", "other-machine"})
        QTest::newRow(pair) << QString::fromLatin1(pair);
}

Document older(const QString &pair)
{
    return read(contents(pair + QStringLiteral("/OLD.txt")));
}

Document newer(const QString &pair)
{
    return read(contents(pair + QStringLiteral("/NEW.txt")));
}

} // namespace

void ComparisonTest::pairs_data()
{
    pairRows();
}

void ComparisonTest::pairs()
{
    QFETCH(QString, pair);
    const Comparison comparison = compare(older(pair), newer(pair));
    QStringList found = lines(comparison);
    QStringList expected;
    for (const QStringList &row : rows(pair + QStringLiteral("/expected.tsv")))
        expected += line(row);
    if (pair == QLatin1String("other-machine")) { // its table has some of the differences only
        QVERIFY(expected.size() >= 60);
        QStringList missing;
        for (const QString &row : expected) {
            if (!found.contains(row))
                missing += row;
        }
        QCOMPARE(missing.join(QLatin1Char('\n')), QString());
    } else {
        found.sort();
        expected.sort();
        QCOMPARE(found, expected);
    }
    for (const QStringList &row : rows(QStringLiteral("not-expected.tsv"))) {
        if (row.at(0) != pair)
            continue;
        for (const Change &change : comparison.changes) {
            const bool isMeant = change.section == row.at(1) && change.items.join(QStringLiteral(" > ")) == row.at(2)
                && (row.at(3).isEmpty() || keyOf(change) == row.at(3).toLower());
            QVERIFY2(!isMeant || change.everyMoment, qPrintable(row.join(QLatin1Char(' '))));
        }
    }
    QCOMPARE(comparison.same(), pair == QLatin1String("minute-apart"));
}

void ComparisonTest::bothDirections_data()
{
    pairRows();
}

void ComparisonTest::bothDirections()
{
    QFETCH(QString, pair);
    const Comparison forwards = compare(older(pair), newer(pair));
    Comparison backwards = compare(newer(pair), older(pair));
    for (Change &change : backwards.changes) {
        if (change.difference != Difference::Changed)
            change.difference = change.difference == Difference::Added ? Difference::Removed : Difference::Added;
        std::swap(change.oldValue, change.newValue);
        if (change.order != Order::Unknown)
            change.order = change.order == Order::NewIsNewer ? Order::OldIsNewer : Order::NewIsNewer;
    }
    const auto sorted = [](const Comparison &comparison) {
        QStringList all;
        for (const Change &change : comparison.changes)
            all += line(change).toLower() + QLatin1String(name(change.order)); // the case is that of the older report
        all.sort();
        return all;
    };
    QCOMPARE(sorted(backwards), sorted(forwards));
}

void ComparisonTest::nothingDiffers_data()
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray text = contents(QStringLiteral("full-disk/OLD.txt"));
    QTest::newRow("the same report") << text;
    QTest::newRow("other line ends") << QByteArray(text).replace('\n', "\r\n");
    QTest::newRow("quoted in a mail") << "> " + QByteArray(text).replace('\n', "\n> ");
    QTest::newRow("a byte-order mark") << "\xef\xbb\xbf" + text;
    QTest::newRow("a greeting before it") << "Hello,\n\nhere is the report.\n\n" + text;
    const QString utf16 = QString::fromUtf8(text);
    QTest::newRow("UTF-16") << "\xff\xfe" + QByteArray(reinterpret_cast<const char *>(utf16.utf16()), utf16.size() * 2);
    QTest::newRow("no-break spaces") << QByteArray(text).replace(' ', "\xc2\xa0");
    QByteArray stripped;
    for (const QByteArray &one : text.split('\n')) {
        QByteArray rest = one;
        while (rest.endsWith(' '))
            rest.chop(1);
        stripped += rest + '\n';
    }
    stripped.chop(1);
    QTest::newRow("without blanks at the ends of lines") << stripped;
}

void ComparisonTest::nothingDiffers()
{
    QFETCH(QByteArray, text);
    const Document document = read(contents(QStringLiteral("full-disk/OLD.txt")));
    const Comparison comparison = compare(document, read(text));
    QCOMPARE(briefs(comparison), QStringList());
    QVERIFY(comparison.same());
}

void ComparisonTest::values_data()
{
    QTest::addColumn<QByteArray>("text"); // with %1 for the value
    QTest::addColumn<QByteArray>("oldValue");
    QTest::addColumn<QByteArray>("newValue");
    QTest::addColumn<QString>("order"); // empty for no difference
    const QByteArray version = "Qt Global\nQt version currently used for execution:   %1\n";
    const QByteArray number = "Processor information: \nNumber of processors:       %1\n";
    const QByteArray bytes = "Memory Information:\nTotalPhys:             %1\n";
    const QByteArray date = "SystemInformation from Registry\nBIOSReleaseDate:     %1\n";
    const QByteArray text = "OEM Information from Registry\nManufacturer:     %1\n";
    const auto row = [](const char *rowName, const QByteArray &report, const char *a, const char *b, const char *order) {
        QTest::newRow(rowName) << report << QByteArray(a) << QByteArray(b) << QString::fromLatin1(order);
    };
    row("a newer version", version, "5.9.1", "5.15.2", "new");
    row("an older version", version, "5.15.10", "5.15.9", "old");
    row("a longer version", version, "10.0.19045", "10.0.19045.1", "new");
    row("zeros before a number of a version", version, "5.015.2", "5.15.02", "");
    row("a zero at the end of a version", version, "5.15", "5.15.0", "");
    row("a version and a text", version, "5.15.2", "none", "unknown");
    row("more processors", number, "8", "12", "new");
    row("fewer processors", number, "10", "9", "old");
    row("the same number, spelled with zeros", number, "8", "008", "");
    row("the same number, also in hexadecimal digits", number, "8 = 0x8", "8", "");
    row("the same number, and other words after it", number, "8", "8 (broken)", "unknown");
    row("the same number, and another one after it", number, "40457 = 0x9e09", "40457 = 0xffff", "unknown");
    row("a number of 32 digits", number, "99999999999999999999999999999999", "100000000000000000000000000000000", "new");
    row("the same number of 32 digits", number, "00099999999999999999999999999999999", "99999999999999999999999999999999", "");
    row("a number and a text", number, "8", "many", "unknown");
    row("more bytes", bytes, "17055318016 Byte = 15.8 GByte", "34005590016 Byte = 31.6 GByte", "new");
    row("one byte less, in the same unit", bytes, "17055318016 Byte = 15.8 GByte", "17055318015 Byte = 15.8 GByte", "old");
    row("fewer bytes in a smaller unit", bytes, "100.9 GByte", "300.4 MByte", "old");
    row("a later day of an earlier month", date, "07/19/2021", "11/02/2020", "old");
    row("a later year", date, "12/31/2021", "01/01/2022", "new");
    row("a date and a text", date, "07/19/2021", "unknown", "unknown");
    row("texts have no order", text, "1.0", "2.0", "unknown");
    row("upper and lower case of a text", text, "FUJITSU", "Fujitsu", "unknown");
    row("a text that became empty", text, "Fujitsu", "", "unknown");
}

void ComparisonTest::values()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, oldValue);
    QFETCH(QByteArray, newValue);
    QFETCH(QString, order);
    const auto document = [&](const QByteArray &value) { return read(QByteArray(text).replace("%1", value) + separator()); };
    const Comparison comparison = compare(document(oldValue), document(newValue));
    QCOMPARE(comparison.changes.size(), order.isEmpty() ? std::size_t(0) : std::size_t(1));
    if (order.isEmpty())
        return;
    const Change &change = comparison.changes.front();
    QCOMPARE(name(change.order), order.toLatin1().constData());
    QCOMPARE(change.difference, Difference::Changed);
    QCOMPARE(change.oldValue, QString::fromUtf8(oldValue));
    QCOMPARE(change.newValue, QString::fromUtf8(newValue));
    QVERIFY(!comparison.same());
}

void ComparisonTest::freeSpace_data()
{
    QTest::addColumn<QByteArray>("oldSpace");
    QTest::addColumn<QByteArray>("newSpace");
    QTest::addColumn<bool>("same");
    const auto row = [](const char *rowName, const char *a, const char *b, bool same) {
        QTest::newRow(rowName) << QByteArray(a) << QByteArray(b) << same;
    };
    row("a little less", "Free: 100.0 GByte Total: 200.0 GByte", "Free: 99.0 GByte Total: 200.0 GByte", true);
    row("a tenth less", "Free: 100.0 GByte Total: 200.0 GByte", "Free: 81.0 GByte Total: 200.0 GByte", true);
    row("more than a tenth less", "Free: 100.0 GByte Total: 200.0 GByte", "Free: 79.0 GByte Total: 200.0 GByte", false);
    row("more than a tenth more", "Free: 100.0 GByte Total: 200.0 GByte", "Free: 121.0 GByte Total: 200.0 GByte", false);
    row("becomes nearly full: below 5 %", "Free: 10.5 GByte Total: 200.0 GByte", "Free: 9.5 GByte Total: 200.0 GByte", false);
    row("is nearly full no more", "Free: 9.5 GByte Total: 200.0 GByte", "Free: 10.5 GByte Total: 200.0 GByte", false);
    row("stays nearly full", "Free: 9.5 GByte Total: 200.0 GByte", "Free: 8.5 GByte Total: 200.0 GByte", true);
    row("becomes nearly full: below 1 GByte", "Free: 1.1 GByte Total: 12.0 GByte", "Free: 900.0 MByte Total: 12.0 GByte", false);
    row("stays below 1 GByte", "Free: 1000.0 MByte Total: 12.0 GByte", "Free: 900.0 MByte Total: 12.0 GByte", true);
}

void ComparisonTest::freeSpace()
{
    QFETCH(QByteArray, oldSpace);
    QFETCH(QByteArray, newSpace);
    QFETCH(bool, same);
    const auto document = [](const QByteArray &space) { return read(disks("C:\\ fixed drive          NTFS  OS  " + space + " \n")); };
    const Comparison comparison = compare(document(oldSpace), document(newSpace));
    QCOMPARE(comparison.changes.size(), std::size_t(1));
    QCOMPARE(keyOf(comparison.changes.front()), QStringLiteral("free"));
    QCOMPARE(comparison.changes.front().everyMoment, same);
    QCOMPARE(comparison.same(), same);
}

void ComparisonTest::lists_data()
{
    QTest::addColumn<QByteArray>("oldText");
    QTest::addColumn<QByteArray>("newText");
    QTest::addColumn<bool>("differs");
    QTest::addColumn<QStringList>("added");
    QTest::addColumn<QStringList>("removed");
    const QByteArray extensions = "#### QGLFormat #### \nglGetString(GL_EXTENSIONS) = ";
    QTest::newRow("extensions in another order") << extensions + "GL_a GL_b \n"
                                                 << extensions + "GL_b GL_a \n"
                                                 << false << QStringList() << QStringList();
    QTest::newRow("one extension more, one less") << extensions + "GL_a GL_b \n"
                                                  << extensions + "GL_c GL_a \n"
                                                  << true << QStringList("GL_c") << QStringList("GL_b");
    QTest::newRow("one of two equal extensions less") << extensions + "GL_a GL_a \n"
                                                      << extensions + "GL_a \n"
                                                      << true << QStringList() << QStringList("GL_a");
    const QByteArray paths = "QCoreApplication:\nLibrary Paths:        ";
    const QByteArray next = "\n                      ";
    QTest::newRow("library paths in another order")
        << paths + "C:/a" + next + "C:/b\n"
        << paths + "C:/b" + next + "C:/a\n"
        << true << QStringList() << QStringList();
    QTest::newRow("one library path more")
        << paths + "C:/a\n"
        << paths + "C:/b" + next + "C:/a\n"
        << true << QStringList("C:/b") << QStringList();
    const QByteArray bios = "BIOS information from Registry\nSystemBiosVersion:     ";
    const QByteArray nextBios = "\n                       ";
    QTest::newRow("BIOS strings in another order")
        << bios + "A  1" + nextBios + "B\n"
        << bios + "B" + nextBios + "A  1\n"
        << true << QStringList() << QStringList();
    QTest::newRow("other BIOS strings keep their blanks")
        << bios + "A  1" + nextBios + "B\n"
        << bios + "A  2" + nextBios + "B\n"
        << true << QStringList("A  2") << QStringList("A  1");
    QTest::newRow("a search path")
        << environment("  Path=C:\\a;C:\\b;\n") << environment("  Path=C:\\b;C:\\c;\n") << true << QStringList("C:\\c") << QStringList("C:\\a");
    QTest::newRow("a search path in another order")
        << environment("  Path=C:\\a;C:\\b\n") << environment("  Path=C:\\b;C:\\a\n") << true << QStringList() << QStringList();
    QTest::newRow("a variable without semicolons")
        << environment("  A=1\n") << environment("  A=2\n") << true << QStringList() << QStringList();
}

void ComparisonTest::lists()
{
    QFETCH(QByteArray, oldText);
    QFETCH(QByteArray, newText);
    QFETCH(bool, differs);
    QFETCH(QStringList, added);
    QFETCH(QStringList, removed);
    const auto document = [](const QByteArray &text) { return read(text.endsWith(separator()) ? text : text + separator()); };
    const Comparison comparison = compare(document(oldText), document(newText));
    QCOMPARE(comparison.same(), !differs);
    QCOMPARE(comparison.changes.size(), std::size_t(differs ? 1 : 0));
    if (differs) {
        QCOMPARE(comparison.changes.front().addedEntries, added);
        QCOMPARE(comparison.changes.front().removedEntries, removed);
    }
}

void ComparisonTest::items_data()
{
    QTest::addColumn<QByteArray>("oldText");
    QTest::addColumn<QByteArray>("newText");
    QTest::addColumn<QStringList>("changes");
    const QString usb = QStringLiteral("deviceClass USB > driver ");
    const QByteArray a = driver("A", "1.0", "usb\\a");
    const QByteArray b = driver("B", "1.0", "usb\\b");
    const QByteArray a2 = driver("A", "2.0", "usb\\a");
    const QByteArray a3 = driver("A", "3.0", "usb\\a");
    QTest::newRow("a moved driver") << drivers({a, b}) << drivers({b, a}) << QStringList();
    QTest::newRow("a driver with another version") << drivers({a, b}) << drivers({b, a2})
                                                   << QStringList({"changed " + usb + "usb\\a driverversion: 1.0 -> 2.0"});
    QTest::newRow("another device") << drivers({a}) << drivers({b}) << QStringList({"removed " + usb + "usb\\a", "added " + usb + "usb\\b"});
    QTest::newRow("equal identities in another order") << drivers({a, a2}) << drivers({a2, a}) << QStringList();
    QTest::newRow("the first of two equal identities is gone")
        << drivers({a, a2}) << drivers({a2}) << QStringList({"removed " + usb + "usb\\a (same identity)"});
    QTest::newRow("a second driver with an equal identity")
        << drivers({a}) << drivers({a2, a}) << QStringList({"added " + usb + "usb\\a #2 (same identity)"});
    QTest::newRow("equal identities pair in order if their facts differ")
        << drivers({a, a2}) << drivers({a2, a3}) << QStringList({"changed " + usb + "usb\\a driverversion: 1.0 -> 3.0 (same identity)"});
    QTest::newRow("both of two equal identities change")
        << drivers({a, a}) << drivers({a2, a3})
        << QStringList({"changed " + usb + "usb\\a driverversion: 1.0 -> 2.0 (same identity)",
                        "changed " + usb + "usb\\a #2 driverversion: 1.0 -> 3.0 (same identity)"});
    QTest::newRow("a driver without an identity")
        << drivers({"   Driver Version:     1.0\n"}) << drivers({"   Driver Version:     2.0\n"})
        << QStringList({"changed deviceClass USB > driver driverversion: 1.0 -> 2.0"});
    QTest::newRow("a module in another folder")
        << modules("C:\\a\\x.dll\nC:\\a\\y.dll\n") << modules("C:\\a\\y.dll\nC:\\b\\X.DLL\n")
        << QStringList({"changed module x.dll path: C:\\a\\x.dll -> C:\\b\\X.DLL"});
    QTest::newRow("a module in another case") << modules("C:\\a\\x.dll\n") << modules("C:\\A\\X.DLL\n") << QStringList();
    QTest::newRow("a variable in another case")
        << environment("  PATH=1\n  A=1\n") << environment("  A=1\n  Path=2\n") << QStringList({"changed variable PATH value: 1 -> 2"});
    QTest::newRow("only the case of a variable's name") << environment("  PATH=1\n") << environment("  Path=1\n") << QStringList();
    QTest::newRow("the case of a variable's value")
        << environment("  A=x\n") << environment("  A=X\n") << QStringList({"changed variable A value: x -> X"});
    QTest::newRow("added and removed variables")
        << environment("  A=1\n  B=2\n") << environment("  B=2\n  C=3\n") << QStringList({"removed variable A", "added variable C"});
    QTest::newRow("a drive with another letter")
        << disks("C:\\ fixed drive          NTFS  OS  Free: 5.0 GByte Total: 9.0 GByte \n")
        << disks("D:\\ fixed drive          NTFS  OS  Free: 5.0 GByte Total: 9.0 GByte \n") << QStringList({"removed drive C", "added drive D"});
}

void ComparisonTest::items()
{
    QFETCH(QByteArray, oldText);
    QFETCH(QByteArray, newText);
    QFETCH(QStringList, changes);
    QCOMPARE(briefs(compare(read(oldText), read(newText))), changes);
}

void ComparisonTest::factsOfAnAddedItem()
{
    const Comparison comparison = compare(read(environment("  A=1\n")), read(environment("  A=1\n  B=x=y\n")));
    QCOMPARE(comparison.changes.size(), std::size_t(1));
    const Change &change = comparison.changes.front();
    QCOMPARE(change.row, -1);
    QCOMPARE(change.facts.size(), std::size_t(2));
    QCOMPARE(QString::fromUtf8(factRows()[std::size_t(change.facts[0].row)].key), QStringLiteral("name"));
    QCOMPARE(change.facts[0].value, QStringLiteral("B"));
    QCOMPARE(QString::fromUtf8(factRows()[std::size_t(change.facts[1].row)].key), QStringLiteral("value"));
    QCOMPARE(change.facts[1].value, QStringLiteral("x=y"));
}

void ComparisonTest::reportsOfWhichOneHasASection()
{
    const QByteArray module = modules("C:\\a\\x.dll\n");
    const Comparison comparison = compare(read(module), read(module + environment("  A=1\n  B=2\n")));
    QCOMPARE(comparison.changes.size(), std::size_t(1));
    const Change &change = comparison.changes.front();
    QCOMPARE(change.difference, Difference::Added);
    QCOMPARE(change.section, QStringLiteral("qtSystemEnvironment"));
    QCOMPARE(change.items, QStringList());
    QCOMPARE(change.row, -1);
    QVERIFY(!comparison.same());
}

void ComparisonTest::onlyTheFirstReportCounts()
{
    const QByteArray first = contents(QStringLiteral("full-disk/OLD.txt"));
    const QByteArray second = contents(QStringLiteral("full-disk/NEW.txt"));
    QCOMPARE(briefs(compare(read(first), read(first + second))), QStringList());
    QCOMPARE(briefs(compare(read(first), read(second + first))), briefs(compare(read(first), read(second))));
}

void ComparisonTest::severalReports()
{
    const auto document = [](const QByteArray &variables) { return read(environment(variables)); };
    const ComparisonTable table = compareSeveral({document("  A=1\n  B=1\n"), document("  B=1\n  A=2\n  C=7\n"), document("  a=1\n  C=8\n")});
    QStringList found;
    for (const ComparisonRow &row : table.rows) {
        QStringList values;
        for (const auto &value : row.values)
            values += value ? QLatin1Char('[') + *value + QLatin1Char(']') : QStringLiteral("-");
        const QString key = row.row < 0 ? QString() : QString::fromUtf8(factRows()[std::size_t(row.row)].key);
        found += row.items.join(QStringLiteral(" > ")) + QLatin1Char(' ') + key + QLatin1Char(' ') + values.join(QLatin1Char(' '));
    }
    QCOMPARE(found, QStringList({"variable A value [1] [2] [1]", "variable B  [] [] -", "variable C  - [] []", "variable C value - [7] [8]"}));
    QCOMPARE(table.reports, std::size_t(3));
    QVERIFY(!table.same());
}

void ComparisonTest::severalReportsWithoutDifference()
{
    const Document first = older(QStringLiteral("minute-apart"));
    const Document later = newer(QStringLiteral("minute-apart"));
    const ComparisonTable table = compareSeveral({first, later, first, later});
    QVERIFY(table.same());
    QCOMPARE(table.rows.size(), compare(first, later).changes.size());
    QVERIFY(compareSeveral({}).same());
    QVERIFY(compareSeveral({first}).rows.empty());
}

TEST_WITHOUT_APPLICATION(ComparisonTest);

#include "tst_comparison.moc"
