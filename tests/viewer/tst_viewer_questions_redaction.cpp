// Questions about what is hidden: redaction.tsv, through the page of a report.

#include "question_table.h"
#include "redaction/redaction_panel.h"
#include "redaction/redaction_session.h"
#include "report/fact_model.h"
#include "report/fact_table.h"
#include "report/outline_model.h"
#include "report/summary_page.h"
#include "test_main.h"
#include "text/text_view.h"
#include "window/report_page.h"

#include <QtWidgets/QTableView>
#include <QtWidgets/QTreeView>
#include <map>

using namespace velkor::Reports;

class ViewerQuestionsRedactionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leaving_data();
    void leaving();
};

namespace {

class Steps
{
public:
    Steps() { open(); }

    /// False for a step that nobody knows.
    bool run(const QString &step)
    {
        const QString takeBack = QStringLiteral("take back the alias of ");
        if (step == QLatin1String("switch on") || step == QLatin1String("switch off"))
            m_page->setRedacted(step.endsWith(QLatin1String("on")));
        else if (step.startsWith(takeBack))
            session()->takeBack(aliasOf(step.mid(takeBack.size())));
        else if (step == QLatin1String("take back its alias"))
            session()->takeBack(aliasOf(QString::fromUtf8(m_selected)));
        else if (step == QLatin1String("undo"))
            session()->undo();
        else if (step.startsWith(QLatin1String("select ")))
            return select(step);
        else if (step == QLatin1String("hide the selection"))
            m_page->redactionPanel()->hideSelection();
        else if (step == QLatin1String("open the report"))
            open();
        else if (step == QLatin1String("close the window"))
            m_page.reset();
        else
            return step == QLatin1String("none");
        return !m_page || QTest::qWaitFor([this] { return !session()->isBusy() && m_page->output(); }, 60000);
    }

    /// All that is seen of the report, apart from the list of what was replaced, and all that leaves the window.
    QString everything() const
    {
        const TextView *text = m_page->textView();
        QStringList texts {QString::fromUtf8(text->lines().text())};
        addModel(*m_page->outline()->model(), {}, texts);
        addModel(*m_page->summaryPage()->table()->model(), {}, texts);
        FactModel facts;
        facts.setDocument(m_page->output()->document);
        facts.setScope(0, int(m_page->output()->document.facts().size()));
        addModel(facts, {}, texts);
        for (const OutputFormat format : {OutputFormat::Text, OutputFormat::Html, OutputFormat::Markdown, OutputFormat::Json})
            texts << QString::fromUtf8(outputBytes(*m_page->output(), format));
        texts << QString::fromUtf8(summaryText(*m_page->output()));
        return texts.join(QLatin1Char('\n'));
    }
    QString text() const { return QString::fromUtf8(m_page->textView()->lines().text()); }

private:
    RedactionSession *session() const { return m_page->findChild<RedactionSession *>(); }

    void open()
    {
        QString error;
        const auto report = LoadedReport::fromFile(questionFile(QStringLiteral("texts/leaving.txt")), error);
        if (!report)
            qFatal("%s", qPrintable(error));
        m_page = std::make_unique<ReportPage>(PreparedReport::of(*report));
    }

    int aliasOf(const QString &original) const
    {
        for (int i = 0; i < int(session()->report().redaction().aliases.size()); ++i) {
            if (session()->report().originalsOf(i).contains(original))
                return i;
        }
        qFatal("nothing stands for %s", qPrintable(original));
        return -1; // MSVC does not know that qFatal() does not return
    }

    bool select(const QString &step)
    {
        static const std::map<QString, QByteArray> texts {
            {QStringLiteral("select Tannenried in \"USB Serial Converter Tannenried\""), "Tannenried"},
            {QStringLiteral("select [Erlenhof 3] with its brackets"), "[Erlenhof 3]"},
            {QStringLiteral("select *PNP0501"), "*PNP0501"},
        };
        const auto found = texts.find(step);
        if (found == texts.end())
            return false;
        m_selected = found->second;
        const int begin = m_page->textView()->lines().text().indexOf(m_selected);
        m_page->textView()->setSelection({begin, begin + m_selected.size()});
        return begin >= 0;
    }

    static void addModel(const QAbstractItemModel &model, const QModelIndex &parent, QStringList &texts)
    {
        for (int row = 0; row < model.rowCount(parent); ++row) {
            for (int column = 0; column < model.columnCount(parent); ++column) {
                const QModelIndex index = model.index(row, column, parent);
                for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole), int(Qt::AccessibleTextRole), int(FactModel::copyRole)})
                    texts << index.data(role).toString();
            }
            addModel(model, model.index(row, 0, parent), texts);
        }
    }

    std::unique_ptr<ReportPage> m_page;
    QByteArray m_selected;
};

} // namespace

void ViewerQuestionsRedactionTest::leaving_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QList<QStringList>>("rows");
    std::map<QString, QList<QStringList>> answers;
    for (const QStringList &row : questionRows("redaction.tsv"))
        answers[row.at(2)] << row;
    for (const auto &[steps, rows] : answers)
        QTest::newRow(qPrintable(steps)) << steps << rows;
}

void ViewerQuestionsRedactionTest::leaving()
{
    QFETCH(const QString, steps);
    QFETCH(const QList<QStringList>, rows);
    Steps page;
    for (const QString &step : steps.split(QStringLiteral("; ")))
        QVERIFY2(page.run(step), qPrintable(step));
    const QString everything = page.everything();
    QStringList wrong;
    for (const QStringList &row : rows) {
        const bool mustStay = row.at(1) == QLatin1String("must stay");
        QVERIFY(mustStay || row.at(1) == QLatin1String("must be gone"));
        const bool isWrong = mustStay ? !page.text().contains(row.at(0)) : everything.contains(row.at(0), Qt::CaseInsensitive);
        if (isWrong)
            wrong << row.at(0) + QLatin1Char(' ') + row.at(1);
    }
    QCOMPARE(wrong.join(QStringLiteral(", ")), QString());
}

TEST_WITH_APPLICATION(ViewerQuestionsRedactionTest);
#include "tst_viewer_questions_redaction.moc"
