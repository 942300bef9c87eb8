// Questions about searching and lines: find.tsv, find-ranges.tsv and lines.tsv.

#include "question_table.h"
#include "test_main.h"
#include "text/text_lines.h"
#include "text/text_search.h"

#include <map>

class ViewerQuestionsTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hits_data();
    void hits();
    void ranges_data();
    void ranges();
    void lines_data();
    void lines();
};

namespace {

std::vector<TextRange> search(const QString &file, const QString &needle, const QString &matchCase)
{
    TextSearch search;
    search.start(TextLines(questionText(file)), withoutEscapes(needle), matchCase == QLatin1String("yes"));
    if (!QTest::qWaitFor([&search] { return search.isFinished(); }, 60000))
        qFatal("the search does not end");
    const auto hits = search.hits();
    std::vector<TextRange> found;
    for (auto hit = hits->firstFrom(0); hit; hit = hits->firstFrom(hit->end))
        found.push_back(*hit);
    if (int(found.size()) != hits->count())
        qFatal("%d hits are counted, %d are found", hits->count(), int(found.size()));
    return found;
}

} // namespace

void ViewerQuestionsTextTest::hits_data()
{
    QTest::addColumn<QStringList>("row");
    for (const QStringList &row : questionRows("find.tsv"))
        QTest::newRow(qPrintable(row.mid(0, 3).join(QLatin1Char(' ')))) << row;
}

void ViewerQuestionsTextTest::hits()
{
    QFETCH(const QStringList, row);
    const std::vector<TextRange> found = search(row.at(0), row.at(1), row.at(2));
    QCOMPARE(QString::number(found.size()), row.at(3));
    QCOMPARE(QString::number(found.empty() ? -1 : found.front().begin), row.at(4));
    QCOMPARE(QString::number(found.empty() ? -1 : found.back().begin), row.at(5));
}

void ViewerQuestionsTextTest::ranges_data()
{
    QTest::addColumn<QStringList>("question");
    QTest::addColumn<QString>("expected");
    std::map<QStringList, QString> answers;
    for (const QStringList &row : questionRows("find-ranges.tsv"))
        answers[row.mid(0, 3)] += QStringLiteral("%1-%2 ").arg(row.at(3), row.at(4));
    for (const auto &[question, expected] : answers)
        QTest::newRow(qPrintable(question.join(QLatin1Char(' ')))) << question << expected;
}

void ViewerQuestionsTextTest::ranges()
{
    QFETCH(const QStringList, question);
    QFETCH(const QString, expected);
    QString found;
    for (const TextRange range : search(question.at(0), question.at(1), question.at(2)))
        found += QStringLiteral("%1-%2 ").arg(range.begin).arg(range.end);
    QCOMPARE(found, expected);
}

void ViewerQuestionsTextTest::lines_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QList<QStringList>>("rows");
    std::map<QString, QList<QStringList>> files;
    for (const QStringList &row : questionRows("lines.tsv"))
        files[row.at(0)] << row;
    for (const auto &[file, rows] : files)
        QTest::newRow(qPrintable(file)) << file << rows;
}

void ViewerQuestionsTextTest::lines()
{
    QFETCH(const QString, file);
    QFETCH(const QList<QStringList>, rows);
    const TextLines lines(questionText(file));
    QCOMPARE(lines.count(), rows.constLast().at(1).toInt() + 1); // the last line of each text is in the table
    for (const QStringList &row : rows) {
        const int line = row.at(1).toInt();
        const TextRange range = lines.line(line);
        const QString found = QStringLiteral("%1: %2-%3").arg(line).arg(range.begin).arg(range.end);
        QCOMPARE(found, QStringLiteral("%1: %2-%3").arg(row.at(1), row.at(2), row.at(3)));
        QCOMPARE(lines.lineAt(range.begin), line);
        QCOMPARE(lines.lineAt(range.end), line);
    }
}

TEST_WITH_CORE_APPLICATION(ViewerQuestionsTextTest);
#include "tst_viewer_questions_text.moc"
