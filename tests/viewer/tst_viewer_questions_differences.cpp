// Questions about two reports: differences.tsv and difference-steps.tsv.

#include "comparison/comparison_view.h"
#include "comparison/difference_model.h"
#include "question_table.h"
#include "test_main.h"

#include <QtWidgets/QTableView>

using namespace velkor::Reports;

class ViewerQuestionsDifferencesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differences_data();
    void differences();
    void steps_data();
    void steps();
};

namespace {

LoadedReport load(const QString &name)
{
    QString error;
    const auto report = LoadedReport::fromFile(questionFile(name), error);
    if (!report)
        qFatal("%s", qPrintable(error));
    return *report;
}

class ComparedView
{
public:
    ComparedView(const QString &older, const QString &newer, bool showsEveryMoment) : view(load(older), load(newer))
    {
        if (!QTest::qWaitFor([this] { return !view.isComparing(); }, 60000))
            qFatal("the comparison does not end");
        view.setShowsEveryMoment(showsEveryMoment);
    }

    const DifferenceModel &model() const { return *view.findChild<DifferenceModel *>(); }

    /// The row that nextDifference() goes to.
    int next()
    {
        view.nextDifference();
        return view.findChild<QTableView *>(QStringLiteral("differences"))->currentIndex().row();
    }

    ComparisonView view;
};

/// "adapter igfx > driverVersion": the items and the fact.
QString subject(const Change &change)
{
    QStringList parts = change.items;
    if (change.row >= 0)
        parts << QString::fromLatin1(factRows()[std::size_t(change.row)].key);
    return parts.join(QStringLiteral(" > "));
}

QStringList asQuestion(const Change &change)
{
    const bool isChanged = change.difference == Difference::Changed;
    const bool isAdded = change.difference == Difference::Added;
    if (isChanged)
        return {change.section, subject(change), change.oldValue, change.newValue};
    return {change.section, subject(change), isAdded ? QString() : QStringLiteral("(removed)"), isAdded ? QStringLiteral("(added)") : QString()};
}

} // namespace

void ViewerQuestionsDifferencesTest::differences_data()
{
    QTest::addColumn<bool>("everyMoment");
    QTest::newRow("without what changes every moment") << false;
    QTest::newRow("with what changes every moment") << true;
}

void ViewerQuestionsDifferencesTest::differences()
{
    QFETCH(const bool, everyMoment);
    ComparedView compared(QStringLiteral("texts/before.txt"), QStringLiteral("texts/after.txt"), everyMoment);
    QStringList expected;
    for (const QStringList &row : questionRows("differences.tsv")) {
        if (row.at(4) == QLatin1String("always") || (everyMoment && row.at(4) == QLatin1String("only with the switch")))
            expected << row.mid(0, 4).join(QStringLiteral(" | "));
    }
    QStringList found;
    for (int step = 0; step < compared.view.differenceCount(); ++step) {
        const int row = compared.next();
        const Change &change = compared.model().change(row);
        found << asQuestion(change).join(QStringLiteral(" | "));
        if (change.difference != Difference::Changed || factRows()[std::size_t(change.row)].type == Type::List || !change.addedEntries.isEmpty())
            continue;
        QCOMPARE(compared.model().index(row, DifferenceModel::Older).data().toString(), change.oldValue);
        QCOMPARE(compared.model().index(row, DifferenceModel::Newer).data().toString(), change.newValue);
    }
    QCOMPARE(found.join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
}

void ViewerQuestionsDifferencesTest::steps_data()
{
    QTest::addColumn<QStringList>("row");
    for (const QStringList &row : questionRows("difference-steps.tsv"))
        QTest::newRow(qPrintable(row.mid(0, 3).join(QLatin1Char(' ')))) << row;
}

void ViewerQuestionsDifferencesTest::steps()
{
    QFETCH(const QStringList, row);
    ComparedView compared(row.at(0), row.at(1), row.at(2) == QLatin1String("on"));
    const int count = compared.view.differenceCount();
    QCOMPARE(QString::number(count), row.at(3));
    const auto name = [&compared] {
        const Change &change = compared.model().change(compared.next());
        return change.section + QLatin1Char(' ') + subject(change);
    };
    QStringList names;
    for (int step = 0; step < count; ++step)
        names << name();
    QCOMPARE(QStringList(names).removeDuplicates(), 0);
    QCOMPARE(names.value(0), row.at(4));
    QCOMPARE(names.value(count - 1), row.at(5));
    if (count == 0)
        compared.view.nextDifference();
    QCOMPARE(count == 0 ? QString() : name(), row.at(4)); // after the last one the first
}

TEST_WITH_APPLICATION(ViewerQuestionsDifferencesTest);
#include "tst_viewer_questions_differences.moc"
