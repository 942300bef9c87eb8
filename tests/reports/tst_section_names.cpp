// Sections by what people type.

#include "section_names.h"
#include "test_main.h"
#include "vkReports.h"

using namespace velkor::Reports;

class SectionNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyNameAndHeading();
    void found_data();
    void found();
    void nearest_data();
    void nearest();
    void messages();
    void several();
};

namespace {

QStringList namesOf(const std::vector<int> &sections)
{
    QStringList names;
    for (const int section : sections)
        names += QString::fromUtf8(sectionRows()[std::size_t(section)].name);
    return names;
}

} // namespace

void SectionNamesTest::everyNameAndHeading()
{
    for (int section = 0; section < int(sectionRows().size()); ++section) {
        const SectionRow &row = sectionRows()[std::size_t(section)];
        QCOMPARE(resolveSection(QString::fromUtf8(row.name)), std::vector<int> {section});
        QCOMPARE(resolveSection(QString::fromUtf8(row.name).toUpper()), std::vector<int> {section});
        QCOMPARE(resolveSection(sectionTitle(section)), std::vector<int> {section});
        if (*row.heading != '\0')
            QCOMPARE(resolveSection(QString::fromUtf8(row.heading)), std::vector<int> {section});
        QVERIFY(!sectionTitle(section).isEmpty());
    }
}

void SectionNamesTest::found_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("names");
    const auto row = [](const char *name, const char *text, const QStringList &names) {
        QTest::newRow(name) << QString::fromUtf8(text) << names;
    };
    row("a heading without its signs", "Info about video from registry", {"videoInfoFromRegistry"});
    row("a heading with them", ">>> Info about video from registry:", {"videoInfoFromRegistry"});
    row("blanks around and in it", "  Memory   Information: ", {"memoryInfo"});
    row("a name without its argument", "portsFromRegistry", {"portsFromRegistry:PARALLEL PORTS", "portsFromRegistry:SERIALCOMM"});
    row("a name with its argument", "portsfromregistry:serialcomm", {"portsFromRegistry:SERIALCOMM"});
    row("a part of a name", "memory", {});
    row("nothing", "", {});
    row("blanks", "  ", {});
    row("an argument only", ":SERIALCOMM", {});
}

void SectionNamesTest::found()
{
    QFETCH(QString, text);
    QFETCH(QStringList, names);
    QCOMPARE(namesOf(resolveSection(text)), names);
}

void SectionNamesTest::nearest_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *name, const QString &text, const char *nearestName) {
        QTest::newRow(name) << text << QString::fromUtf8(nearestName);
    };
    row("two letters swapped", "memoryInof", "memoryInfo");
    row("a letter less", "qtScrens", "qtScreens");
    row("a letter more", "qtScreeens", "qtScreens");
    row("another letter", "qtScraens", "qtScreens");
    row("a part of a name", "memory", "memoryInfo");
    row("a part with an error", "memry", "memoryInfo");
    row("the shorter of two names with the part", "windowsVersio", "windowsVersion");
    row("a heading with an error", "Loaded moduls", "loadedModules");
    row("an argument with an error", "portsFromRegistry:SERIALCOM", "portsFromRegistry:SERIALCOMM");
    row("another word", "xyzzyplugh", "");
    row("two letters", "qt", "");
    row("nothing", "", "");
    row("too long", QString(1000000, QLatin1Char('m')), "");
}

void SectionNamesTest::nearest()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    QCOMPARE(nearestSection(text), name);
}

void SectionNamesTest::messages()
{
    QCOMPARE(noSuchSection("memry"), QStringLiteral("there is no section 'memry'; the nearest name is 'memoryInfo'"));
    QCOMPARE(noSuchSection("xyzzyplugh"), QStringLiteral("there is no section 'xyzzyplugh'"));
    QVERIFY(noSuchSection(QString(1000000, QLatin1Char('m'))).size() < 200);
}

void SectionNamesTest::several()
{
    QString error;
    QCOMPARE(namesOf(resolveSections({"qtScreens", "memoryInfo", "Memory Information", "qtscreens"}, error)), QStringList({"memoryInfo", "qtScreens"}));
    QCOMPARE(error, QString());
    QVERIFY(resolveSections({}, error).empty());
    QCOMPARE(error, QString());
    QVERIFY(resolveSections({"memoryInfo", "memry", "xyzzyplugh"}, error).empty());
    QCOMPARE(error, noSuchSection("memry"));
}

TEST_WITHOUT_APPLICATION(SectionNamesTest);

#include "tst_section_names.moc"
