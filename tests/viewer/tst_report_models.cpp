// The outline, the facts, the summary and the choice of a section.

#include "report/fact_meaning.h"
#include "report/fact_model.h"
#include "report/fact_table.h"
#include "report/outline_model.h"
#include "report/section_dialog.h"
#include "report/section_titles.h"
#include "report/shown_text.h"
#include "report/state_sentences.h"
#include "report/summary_model.h"
#include "test_main.h"

#include <QtCore/QFile>
#include <QtGui/QClipboard>
#include <QtTest/QAbstractItemModelTester>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QTableView>

using namespace velkor::Reports;

class ReportModelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outlineOfAReport();
    void shortTitles();
    void outlineOfNoReport();
    void outlineOfTwoReports();
    void itemsAreNested();
    void whereAnOffsetIs();
    void factsOfASection();
    void numbersSortByTheirValue();
    void versionsSortByTheirNumbers();
    void filteredFacts();
    void factAtALine();
    void meaningOfALine();
    void rowsAreCopiedWithTabs();
    void emptyColumnsAreHidden();
    void enterAndDoubleClickChooseAFact();
    void lettersOfASection_data();
    void lettersOfASection();
    void sectionByKeyboard();
    void sectionByHeading();
    void textsOfStrangers();
    void sentencesForStates();
};

namespace {

Document workstation()
{
    QFile file(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return read(file.readAll());
}

const Section &sectionNamed(const Document &document, const char *name)
{
    return document.sections()[std::size_t(document.findSection(name))];
}

QStringList column(const QAbstractItemModel &model, int number)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, number).data().toString();
    return texts;
}

void showFacts(FactModel &model, const Document &document, const char *section)
{
    model.setDocument(document);
    model.setScope(sectionNamed(document, section).firstFact, sectionNamed(document, section).lastFact);
}

} // namespace

void ReportModelsTest::outlineOfAReport()
{
    OutlineModel model;
    QAbstractItemModelTester tester(&model);
    model.setDocument(workstation());
    QCOMPARE(column(model, 0), QStringList({"Summary", "Windows", "Qt", "OpenGL"}));
    const QModelIndex windows = model.index(1, 0);
    QCOMPARE(model.index(0, 0, windows).data().toString(), QStringLiteral("Windows version"));
    QCOMPARE(model.index(2, 0, windows).data().toString(), QStringLiteral("Word size")); // it has no heading
    QVERIFY(model.index(0, 0, windows).data(Qt::ToolTipRole).toString().contains(QLatin1String("windowsVersion")));
}

/// The tooltip has the heading as in the text.
void ReportModelsTest::shortTitles()
{
    struct Row
    {
        const char *section;
        const char *title;
        const char *heading;
    };
    const Document document = workstation();
    OutlineModel model;
    model.setDocument(document);
    for (const Row &row : {Row {"driverInfoFromRegistry", "Drivers", "Info about drivers from registry"},
                           Row {"videoInfoFromRegistry", "Video", "Info about video from registry"},
                           Row {"diskDevicesFromRegistry:FDC", "FDC disk devices", "Info about &#39;FDC&#39; disk devices from registry"},
                           Row {"processorRegistryInfo", "Central Processor information", "Central Processor information from Registry"},
                           Row {"memoryInfo", "Memory Information", "Memory Information"}}) {
        const QModelIndex index = model.sectionIndex(document.findSection(row.section));
        QCOMPARE(index.data().toString(), QLatin1String(row.title));
        const QString toolTip = index.data(Qt::ToolTipRole).toString();
        QVERIFY2(toolTip.startsWith(QStringLiteral("<p>%1<br>%2<br>").arg(QLatin1String(row.heading), QLatin1String(row.section))), qPrintable(toolTip));
    }
}

void ReportModelsTest::outlineOfNoReport()
{
    OutlineModel model;
    QAbstractItemModelTester tester(&model);
    model.setDocument(read("Dear support,\nnothing works.\n"));
    QCOMPARE(column(model, 0), QStringList({"Summary"}));
    QVERIFY(!model.indexAt(3).isValid());
}

void ReportModelsTest::outlineOfTwoReports()
{
    OutlineModel model;
    const QByteArray text = workstation().text();
    model.setDocument(read(text + '\n' + text));
    QCOMPARE(column(model, 0), QStringList({"Summary", "Windows", "Qt", "OpenGL", "Windows (report 2)", "Qt (report 2)", "OpenGL (report 2)"}));
}

void ReportModelsTest::itemsAreNested()
{
    OutlineModel model;
    QAbstractItemModelTester tester(&model);
    const Document document = workstation();
    model.setDocument(document);
    const QModelIndex drives = model.sectionIndex(document.findSection("diskInformation"));
    QCOMPARE(drives.data().toString(), QStringLiteral("Disk information"));
    QCOMPARE(model.rowCount(drives), 4);
    QCOMPARE(model.index(0, 0, drives).data().toString(), QStringLiteral("drive C"));
    QCOMPARE(model.index(3, 0, drives).data().toString(), QStringLiteral("drive Z"));
    for (int item = 0; item < int(document.items().size()); ++item) {
        const QModelIndex index = model.indexAt(document.items()[std::size_t(item)].begin);
        QVERIFY(index.isValid());
        const int parent = document.items()[std::size_t(item)].parent;
        if (parent >= 0 && model.kind(index) == OutlineModel::Kind::Item && model.number(index) == item)
            QCOMPARE(model.number(index.parent()), parent);
    }
}

void ReportModelsTest::whereAnOffsetIs()
{
    OutlineModel model;
    const Document document = workstation();
    model.setDocument(document);
    const QModelIndex removable = model.indexAt(document.text().indexOf("MESSDATEN"));
    QCOMPARE(removable.data().toString(), QStringLiteral("drive E"));
    QCOMPARE(document.text().mid(model.range(removable)->begin, 3), QByteArray("E:\\"));
    const QModelIndex memory = model.indexAt(document.text().indexOf("AvailPhys"));
    QCOMPARE(memory.data().toString(), QStringLiteral("Memory Information"));
    QCOMPARE(model.kind(memory), OutlineModel::Kind::Section);
    QVERIFY(!model.indexAt(document.text().size()).isValid());
    QVERIFY(!model.range(model.summaryIndex()));
}

void ReportModelsTest::factsOfASection()
{
    FactModel model;
    QAbstractItemModelTester tester(&model);
    showFacts(model, workstation(), "memoryInfo");
    const QStringList names = column(model, FactModel::Name);
    QCOMPARE(names.count(QStringLiteral("MemoryLoad")), 1);
    const int load = names.indexOf(QStringLiteral("MemoryLoad"));
    QCOMPARE(model.index(load, FactModel::Value).data().toString(), QStringLiteral("45%"));
    QCOMPARE(model.index(load, FactModel::Unit).data().toString(), QString()); // it stands in the value
    const int total = names.indexOf(QStringLiteral("TotalPhys"));
    QCOMPARE(model.index(total, FactModel::Value).data().toString(), QStringLiteral("17055318016 Byte = 15.8 GByte"));
    QCOMPARE(model.index(total, FactModel::Unit).data().toString(), QString());
    QCOMPARE(model.index(load, FactModel::Item).data().toString(), QString());
    showFacts(model, workstation(), "diskInformation");
    QCOMPARE(model.index(0, FactModel::Item).data().toString(), QStringLiteral("drive C"));
}

void ReportModelsTest::numbersSortByTheirValue()
{
    FactModel model;
    showFacts(model, workstation(), "memoryInfo");
    model.sort(FactModel::Value, Qt::AscendingOrder);
    const QStringList values = column(model, FactModel::Value);
    // As texts, 138533931294720 would precede 17055318016.
    const int physical = values.indexOf(QRegularExpression(QStringLiteral("17055318016 .*")));
    const int available = values.indexOf(QRegularExpression(QStringLiteral("138533931294720 .*")));
    QVERIFY(physical >= 0 && physical < available);
    model.sort(FactModel::Value, Qt::DescendingOrder);
    QVERIFY(model.index(0, FactModel::Value).data().toString().startsWith(QLatin1String("140737488224256 ")));
    model.sort(-1);
    QCOMPARE(model.index(0, FactModel::Name).data().toString(), QStringLiteral("MemoryLoad"));
}

void ReportModelsTest::versionsSortByTheirNumbers()
{
    FactModel model;
    showFacts(model, read("############ Windows specific section ###########\nWindows version: \nVersion (major.minor.build): \n"
                          "From GetVersionEx: 10.0.9\nFrom registry:     6.2.18362\n"),
              "windowsVersion");
    model.sort(FactModel::Value, Qt::AscendingOrder);
    QCOMPARE(column(model, FactModel::Value), QStringList({"6.2.18362", "10.0.9"}));
}

void ReportModelsTest::filteredFacts()
{
    FactModel model;
    QAbstractItemModelTester tester(&model);
    showFacts(model, workstation(), "diskInformation");
    const int all = model.rowCount();
    model.setFilter(QStringLiteral("messdaten"));
    QCOMPARE(column(model, FactModel::Value), QStringList({"MESSDATEN"}));
    QCOMPARE(column(model, FactModel::Item), QStringList({"drive E"}));
    model.setFilter(QStringLiteral("drive z")); // by item
    QVERIFY(model.rowCount() > 1 && model.rowCount() < all);
    model.setFilter(QStringLiteral("no such text"));
    QCOMPARE(model.rowCount(), 0);
    model.setFilter(QString());
    QCOMPARE(model.rowCount(), all);
}

void ReportModelsTest::factAtALine()
{
    const Document document = workstation();
    const auto value = [&](const char *text, int further) {
        const int fact = factAt(document, document.text().indexOf(text) + further);
        return fact < 0 ? QString() : document.display(document.facts()[std::size_t(fact)]);
    };
    QCOMPARE(value("MemoryLoad:", 0), QStringLiteral("45%")); // the label
    QCOMPARE(value("MemoryLoad:", 24), QStringLiteral("45%"));
    QCOMPARE(value("NTFS  Windows", 0), QStringLiteral("NTFS")); // several facts in a line
    QCOMPARE(value("NTFS  Windows", 7), QStringLiteral("Windows"));
    QCOMPARE(value("Memory Information:", 0), QString());
    QCOMPARE(factAt(document, -1), -1);
    QCOMPARE(factAt(document, document.text().size() + 1), -1);
}

void ReportModelsTest::meaningOfALine()
{
    const Document document = workstation();
    const QString load = meaningAt(document, document.text().indexOf("MemoryLoad"));
    QVERIFY2(load.contains(QLatin1String("It changes every moment.")), qPrintable(load));
    const QString host = meaningAt(document, document.text().indexOf("NetBios name"));
    QVERIFY2(host.contains(QLatin1String("the name of a computer")), qPrintable(host));
    const QString section = meaningAt(document, document.text().indexOf("Memory Information"));
    QVERIFY(!section.isEmpty() && section != load);
}

void ReportModelsTest::rowsAreCopiedWithTabs()
{
    FactTable table;
    const Document document = workstation();
    const Section &section = sectionNamed(document, "memoryInfo");
    table.setDocument(document);
    table.setScope(section.firstFact, section.lastFact, QStringLiteral("Memory"));
    table.table()->selectRow(0);
    table.copy();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("MemoryLoad\t45%\n"));
}

void ReportModelsTest::emptyColumnsAreHidden()
{
    struct Row
    {
        const char *section;
        bool hasUnits;
        bool hasItems;
    };
    FactTable table;
    const Document document = workstation();
    table.setDocument(document);
    for (const Row &row : {Row {"memoryInfo", false, false}, Row {"diskInformation", false, true}, Row {"qtScreens", true, true}, Row {"memoryInfo", false, false}}) {
        const Section &section = sectionNamed(document, row.section);
        table.setScope(section.firstFact, section.lastFact, QLatin1String(row.section));
        QVERIFY2(table.table()->isColumnHidden(FactModel::Unit) != row.hasUnits, row.section);
        QVERIFY2(table.table()->isColumnHidden(FactModel::Item) != row.hasItems, row.section);
        QVERIFY(!table.table()->isColumnHidden(FactModel::Name) && !table.table()->isColumnHidden(FactModel::Value));
    }
}

void ReportModelsTest::enterAndDoubleClickChooseAFact()
{
    FactTable table;
    const Document document = workstation();
    const Section &section = sectionNamed(document, "memoryInfo");
    table.resize(600, 400);
    table.setDocument(document);
    table.setScope(section.firstFact, section.lastFact, QStringLiteral("Memory"));
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    QSignalSpy chosen(&table, &FactTable::factChosen);
    table.table()->selectRow(1);
    QTest::keyClick(table.table(), Qt::Key_Return);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.at(0).at(0).toInt(), section.firstFact + 1);
    const QPoint place = table.table()->visualRect(table.model()->index(0, FactModel::Value)).center();
    QTest::mouseClick(table.table()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table.table()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(chosen.at(1).at(0).toInt(), section.firstFact);
    QTest::keyClicks(table.filter(), QStringLiteral("avail"));
    QTRY_VERIFY(table.model()->rowCount() < section.lastFact - section.firstFact);
    QVERIFY(table.model()->rowCount() > 0);
}

void ReportModelsTest::lettersOfASection_data()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<QString>("better");
    QTest::addColumn<QString>("worse");
    QTest::newRow("begin of the name") << QStringLiteral("mem") << QStringLiteral("Memory Information") << QStringLiteral("System memory");
    QTest::newRow("begin of a word") << QStringLiteral("info") << QStringLiteral("Disk information") << QStringLiteral("Reinforced");
    QTest::newRow("letters with gaps") << QStringLiteral("dsk") << QStringLiteral("Disk information") << QStringLiteral("Drivers and services, kernel");
    QTest::newRow("no match") << QStringLiteral("xyz") << QString() << QStringLiteral("Memory Information");
}

void ReportModelsTest::lettersOfASection()
{
    QFETCH(QString, letters);
    QFETCH(QString, better);
    QFETCH(QString, worse);
    const int distanceOfWorse = SectionDialog::distance(letters, worse);
    if (better.isEmpty()) {
        QCOMPARE(distanceOfWorse, -1);
        return;
    }
    QVERIFY(SectionDialog::distance(letters, better) >= 0);
    QVERIFY(distanceOfWorse < 0 || SectionDialog::distance(letters, better) < distanceOfWorse);
}

void ReportModelsTest::sectionByKeyboard()
{
    const Document document = workstation();
    SectionDialog dialog(document);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *edit = dialog.findChild<QLineEdit *>();
    auto *list = dialog.findChild<QListWidget *>();
    QCOMPARE(list->count(), int(document.sections().size()));
    QTest::keyClicks(edit, QStringLiteral("memi"));
    QCOMPARE(dialog.section(), document.findSection("memoryInfo"));
    QTest::keyClicks(edit, QStringLiteral("~"));
    QCOMPARE(dialog.section(), -1);
    edit->clear();
    QTest::keyClick(edit, Qt::Key_Down);
    QCOMPARE(dialog.section(), 1);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

/// The heading is found also if the list shows another title.
void ReportModelsTest::sectionByHeading()
{
    const Document document = workstation();
    SectionDialog dialog(document);
    auto *edit = dialog.findChild<QLineEdit *>();
    const auto *list = dialog.findChild<QListWidget *>();
    edit->setText(QStringLiteral("info about video"));
    QCOMPARE(dialog.section(), document.findSection("videoInfoFromRegistry"));
    QCOMPARE(list->currentItem()->text(), QStringLiteral("Video"));
    edit->setText(QStringLiteral("Info about drivers from registry"));
    QCOMPARE(dialog.section(), document.findSection("driverInfoFromRegistry"));
    edit->setText(QStringLiteral("driverInfoFrom")); // the function
    QCOMPARE(dialog.section(), document.findSection("driverInfoFromRegistry"));
}

void ReportModelsTest::textsOfStrangers()
{
    QCOMPARE(plainToolTip(QStringLiteral("<img src='http://x'>")), QStringLiteral("<p>&lt;img src=&#39;http://x&#39;&gt;</p>"));
    QVERIFY(!lineText(QStringLiteral("a\nb")).contains(QLatin1Char('\n')));
    QVERIFY(lineText(QString(1000000, QLatin1Char('x'))).size() < 1000);
    QVERIFY(!lineText(QString(QChar(0x202e))).contains(QChar(0x202e)));
}

void ReportModelsTest::sentencesForStates()
{
    const States states = State::CrLf | State::EndMissing;
    QCOMPARE(stateSentences(states, StateWeight::Important), QStringList({"The end of the report is missing."}));
    QCOMPARE(stateSentences(states, StateWeight::Any), QStringList({"The end of the report is missing.", "Lines end with carriage returns."}));
    for (unsigned bit = 0x1; bit <= unsigned(State::NotUtf8); bit <<= 1)
        QCOMPARE(stateSentences(States(QFlag(int(bit))), StateWeight::Any).size(), 1);
}

TEST_WITH_APPLICATION(ReportModelsTest);
#include "tst_report_models.moc"
