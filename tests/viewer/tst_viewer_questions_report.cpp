// Questions about the tree and the facts of the example report: outline.tsv and facts.tsv.

#include "question_table.h"
#include "report/fact_model.h"
#include "report/outline_model.h"
#include "report/shown_text.h"
#include "test_main.h"

#include <map>

using namespace velkor::Reports;

class ViewerQuestionsReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outline();
    void titles();
    void facts_data();
    void facts();
};

namespace {

Document exampleReport()
{
    return read(questionText(QStringLiteral("docs/example-report.txt")));
}

/// "driver PCI\\CC_0403", of an item whose siblings of before are in \a before.
QString itemName(const Document &document, int item, std::map<QString, int> &before)
{
    const ItemRow &row = itemRows()[std::size_t(document.items()[std::size_t(item)].kind)];
    const QString identity = document.identity(item);
    const QString name = QString::fromLatin1(row.kind) + (identity.isEmpty() ? QString() : QLatin1Char(' ') + identity);
    const int count = ++before[name];
    return count == 1 ? name : QStringLiteral("%1 #%2").arg(name).arg(count);
}

QString sectionName(const Document &document, const QModelIndex &index)
{
    const auto *model = static_cast<const OutlineModel *>(index.model());
    return QString::fromLatin1(sectionRows()[std::size_t(document.sections()[std::size_t(model->number(index))].row)].name);
}

/// Level and name of \a index and what is below it, as the table has them.
QStringList branch(const Document &document, const QModelIndex &index, int level, const QString &name)
{
    static const QStringList sectionsWithItems {
        QStringLiteral("processorRegistryInfo"), QStringLiteral("driverInfoFromRegistry"), QStringLiteral("winSxSDirectoryEntries"),
        QStringLiteral("diskInformation"), QStringLiteral("loadedModules"), QStringLiteral("qtSystemEnvironment")};
    const auto *model = static_cast<const OutlineModel *>(index.model());
    QStringList lines {QStringLiteral("%1 %2").arg(level).arg(name)};
    if (model->kind(index) == OutlineModel::Kind::Section && !sectionsWithItems.contains(name))
        return lines;
    std::map<QString, int> before;
    for (int row = 0; row < model->rowCount(index); ++row) {
        const QModelIndex child = model->index(row, 0, index);
        const bool isItem = model->kind(child) == OutlineModel::Kind::Item;
        const QString childName = isItem ? itemName(document, model->number(child), before) : sectionName(document, child);
        lines += branch(document, child, level + 1, childName);
    }
    return lines;
}

QString firstDifference(const QStringList &found, const QStringList &expected)
{
    for (int i = 0; i < qMax(found.size(), expected.size()); ++i) {
        if (found.value(i) != expected.value(i))
            return QStringLiteral("row %1: \"%2\" instead of \"%3\"").arg(i + 2).arg(found.value(i), expected.value(i));
    }
    return {};
}

} // namespace

void ViewerQuestionsReportTest::outline()
{
    OutlineModel model;
    const Document document = exampleReport();
    model.setDocument(document);
    QStringList found;
    for (int row = 1; row < model.rowCount(); ++row) // the first one is the summary
        found += branch(document, model.index(row, 0), 1, model.index(row, 0).data().toString());
    QStringList expected;
    for (const QStringList &row : questionRows("outline.tsv"))
        expected << row.at(0) + QLatin1Char(' ') + row.at(1);
    QCOMPARE(firstDifference(found, expected), QString());
}

/// What people see of the same tree: sections differ in their titles, and an item shows what identifies it.
void ViewerQuestionsReportTest::titles()
{
    OutlineModel model;
    const Document document = exampleReport();
    model.setDocument(document);
    QStringList titles;
    for (int section = 0; section < int(document.sections().size()); ++section)
        titles << model.sectionIndex(section).data().toString();
    QVERIFY(!titles.contains(QString()));
    QCOMPARE(titles.removeDuplicates(), 0);
    for (const Item &item : document.items()) {
        const int number = int(&item - document.items().data());
        const QModelIndex index = model.indexAt(item.begin);
        const QString identity = document.identity(number);
        if (model.kind(index) == OutlineModel::Kind::Item && model.number(index) == number)
            QVERIFY2(index.data().toString().contains(lineText(identity)), qPrintable(identity));
    }
}

void ViewerQuestionsReportTest::facts_data()
{
    QTest::addColumn<QStringList>("row");
    for (const QStringList &row : questionRows("facts.tsv"))
        QTest::newRow(qPrintable(row.mid(0, 2).join(QLatin1Char(' ')))) << row;
}

void ViewerQuestionsReportTest::facts()
{
    QFETCH(const QStringList, row);
    const Document document = exampleReport();
    const int number = document.findSection(row.at(0).toLatin1().constData());
    QVERIFY(number >= 0);
    const Section &section = document.sections()[std::size_t(number)];
    FactModel model;
    model.setDocument(document);
    model.setScope(section.firstFact, section.lastFact);
    QStringList copied;
    QStringList shown;
    for (int i = 0; i < model.rowCount(); ++i) {
        const Fact &fact = document.facts()[std::size_t(model.fact(i))];
        if (fact.item >= 0 || QLatin1String(document.row(fact).key) != row.at(1))
            continue;
        copied << model.index(i, FactModel::Value).data(FactModel::copyRole).toString();
        shown << model.index(i, FactModel::Value).data().toString();
    }
    const QString expected = QString(row.at(2)).replace(QLatin1String("\\u{a}"), QLatin1String("\n"));
    QCOMPARE(copied, QStringList(expected));
    QCOMPARE(shown, QStringList(QString(expected).replace(QLatin1Char('\n'), QStringLiteral(" \u21b5 "))));
}

TEST_WITH_CORE_APPLICATION(ViewerQuestionsReportTest);
#include "tst_viewer_questions_report.moc"
