// Personal data in comparisons: what is hidden is in nothing that is seen, read aloud, copied or saved.

#include "comparison/aligned_text_view.h"
#include "comparison/cell_text.h"
#include "comparison/comparison_table_model.h"
#include "comparison/comparison_table_view.h"
#include "comparison/comparison_view.h"
#include "comparison/difference_model.h"
#include "question_table.h"
#include "redaction/redaction_session.h"
#include "redaction_texts.h"
#include "test_main.h"
#include "text/text_view.h"
#include "window/main_window.h"
#include "window/message_bar.h"
#include "window/report_page.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>

using namespace velkor::Reports;

class ComparisonPrivacyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsPlantedIsSeenWithoutHiding();
    void nothingOfAPairIsLeft();
    void nothingOfATableIsLeft();
    void nothingIsLeftWhileRedactionRuns_data();
    void nothingIsLeftWhileRedactionRuns();
    void itSaysWhetherPersonalDataAreHidden();
    void namesOfFiles();
    void aTextWithoutReport();
    void differencesAreTheSame();
    void reportsThatDifferInIdentities();
    void theSamePersonHasOneAlias();
    void aliasesOfOneComparison();
    void theSectionAndTheDifferenceStay();
    void theTextsScrollTogetherAfterwards();
    void theFocusStays();
    void theRowOfTheTableStays();
    void whatWasHiddenByHand();
    void theSwitchOfTheWindow();
    void whatWasHiddenAndTakenBackInReports();
};

namespace {

LoadedReport report(const QByteArray &text, const QString &name)
{
    LoadedReport report;
    report.name = name;
    report.path = QStringLiteral("/home/qmoehlenkamp/Zwirbelbach Feinwerk/") + name;
    report.document = read(text);
    return report;
}

LoadedReport fromPair(const char *fileName)
{
    QFile file(QStringLiteral(PAIRS_DIR "/") + QLatin1String(fileName));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return report(file.readAll(), QString::fromLatin1(fileName));
}

QByteArray leaving()
{
    return questionText(QStringLiteral("texts/leaving.txt"));
}

/// The report of the questions, one of another person on another computer, and one with other times. Their files are called
/// after what they are about.
std::vector<LoadedReport> plantedReports()
{
    QByteArray other = leaving();
    other.replace("KRANICHNEST", "EULENHORST").replace("kranichnest", "eulenhorst");
    other.replace("Quirina M\xc3\xb6hlenkamp", "Theda Wolkenstein").replace("qmoehlenkamp", "twolkenstein");
    other.replace("192.0.2.86", "192.0.2.87").replace("Kopierstube Ost", "Kopierstube West").replace("MemoryLoad:            15%", "MemoryLoad:            16%");
    QByteArray third = leaving();
    third.replace("Hummelflug77", "Bienenstich88").replace("ANGEBOTE-2031", "ANGEBOTE-2032").replace("10.0.18362", "10.0.19045").replace("Converter Tannenried", "Converter Ahornhain");
    return {report(leaving(), QString::fromUtf8("M\xc3\xb6hlenkamp of KRANICHNEST.txt")),
            report(other, QStringLiteral("eulenhorst_twolkenstein.txt")), report(third, QStringLiteral("qmoehlenkamp2.txt"))};
}

/// What must be gone from all that is made of plantedReports().
QStringList secrets()
{
    QStringList all {QStringLiteral("EULENHORST"), QStringLiteral("Wolkenstein"), QStringLiteral("192.0.2.87"), QStringLiteral("Kopierstube West"),
                     QStringLiteral("Bienenstich88"), QStringLiteral("ANGEBOTE-2032")};
    for (const QStringList &row : questionRows("redaction.tsv")) {
        if (row.at(1) == QLatin1String("must be gone") && row.at(2) == QLatin1String("switch on"))
            all << row.at(0);
    }
    if (all.size() < 20)
        qFatal("the questions have no secrets");
    return all;
}

void addModel(const QAbstractItemModel &model, QStringList &texts)
{
    for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole)}) {
        for (int column = 0; column < model.columnCount(); ++column)
            texts << model.headerData(column, Qt::Horizontal, role).toString();
    }
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex index = model.index(row, column);
            for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole), int(Qt::AccessibleTextRole), int(Qt::AccessibleDescriptionRole), int(Qt::StatusTipRole), CopyRole})
                texts << index.data(role).toString();
        }
    }
}

void addWidget(QWidget *widget, QStringList &texts)
{
    texts << widget->toolTip() << widget->statusTip() << widget->whatsThis() << widget->accessibleName() << widget->accessibleDescription() << widget->windowTitle();
    if (const auto *label = qobject_cast<QLabel *>(widget))
        texts << label->text();
    if (const auto *edit = qobject_cast<QLineEdit *>(widget))
        texts << edit->text() << edit->placeholderText();
    if (const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget)) {
        for (const QAccessible::Text text : {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help})
            texts << accessible->text(text);
    }
}

/// What Ctrl+C copies of each table with all of its rows.
void addCopies(QWidget &view, QStringList &texts)
{
    for (QTableView *table : view.findChildren<QTableView *>()) {
        table->selectAll();
        for (QAction *action : table->actions()) {
            QApplication::clipboard()->clear();
            action->trigger();
            texts << QApplication::clipboard()->text();
        }
    }
}

template <class View>
QString everything(View &view, bool copies = true)
{
    QStringList texts = view.names();
    addWidget(&view, texts);
    for (QWidget *widget : view.template findChildren<QWidget *>())
        addWidget(widget, texts);
    for (const QAbstractItemView *table : view.template findChildren<QAbstractItemView *>()) {
        if (table->model())
            addModel(*table->model(), texts);
    }
    if (copies)
        addCopies(view, texts);
    for (const ComparisonForm form : {ComparisonForm::Text, ComparisonForm::Json, ComparisonForm::Markdown, ComparisonForm::Html})
        texts << QString::fromUtf8(view.exported(form));
    return texts.join(QLatin1Char('\n'));
}

/// Those that can be read.
QString found(const QString &text)
{
    QStringList found;
    for (const QString &secret : secrets()) {
        if (text.contains(secret, Qt::CaseInsensitive))
            found << secret;
    }
    return found.join(QStringLiteral(", "));
}

template <class View>
void waitFor(const View &view)
{
    if (!QTest::qWaitFor([&view] { return !view.isComparing(); }, 60000))
        qFatal("the comparison does not end");
}

QString labelText(const QWidget &view, const char *name)
{
    return view.findChild<QLabel *>(QString::fromLatin1(name))->text();
}

QTableView *table(const QWidget &view, const char *name)
{
    return view.findChild<QTableView *>(QString::fromLatin1(name));
}

const DifferenceModel &differencesOf(const ComparisonView &view)
{
    return *view.findChild<DifferenceModel *>();
}

/// "section > subject" of each difference.
QStringList subjects(const ComparisonView &view)
{
    QStringList result;
    const DifferenceModel &model = differencesOf(view);
    for (int row = 0; row < model.rowCount(); ++row)
        result << model.index(row, DifferenceModel::SectionTitle).data().toString() + QStringLiteral(" > ") + model.index(row, DifferenceModel::Subject).data().toString();
    return result;
}

/// The older and the newer value of the difference with this subject.
QStringList values(const ComparisonView &view, const char *subject)
{
    const DifferenceModel &model = differencesOf(view);
    for (int row = 0; row < model.rowCount(); ++row) {
        if (model.index(row, DifferenceModel::Subject).data().toString() == QLatin1String(subject))
            return {model.index(row, DifferenceModel::Older).data().toString(), model.index(row, DifferenceModel::Newer).data().toString()};
    }
    return {};
}

/// All aliases of users, each once, in one side of the text.
QStringList users(const QString &text)
{
    QStringList result;
    auto matches = QRegularExpression(QStringLiteral("user-[0-9]+")).globalMatch(text);
    while (matches.hasNext())
        result << matches.next().captured();
    result.removeDuplicates();
    return result;
}

QString sideText(const ComparisonView &view, int column)
{
    QString text;
    const QAbstractItemModel *model = table(view, "olderText")->model();
    for (int row = 0; row < model->rowCount(); ++row)
        text += model->index(row, column).data().toString() + QLatin1Char('\n');
    return text;
}

const PersonalData hidden {true, {}};

} // namespace

void ComparisonPrivacyTest::whatIsPlantedIsSeenWithoutHiding()
{
    const std::vector<LoadedReport> reports = plantedReports();
    ComparisonView pair(reports[0], reports[1]);
    pair.setShowsEveryMoment(true);
    waitFor(pair);
    const QString text = everything(pair);
    for (const QString &secret : secrets()) {
        const bool isInThird = secret == QLatin1String("Bienenstich88") || secret == QLatin1String("ANGEBOTE-2032");
        QVERIFY2(isInThird || text.contains(secret, Qt::CaseInsensitive), qPrintable(secret));
    }
    QVERIFY(labelText(pair, "olderName").contains(QStringLiteral("KRANICHNEST")));
    ComparisonTableView several(reports);
    several.setShowsEveryMoment(true);
    waitFor(several);
    QVERIFY(everything(several).contains(QStringLiteral("ANGEBOTE-2032")));
    QVERIFY(everything(several).contains(QStringLiteral("EULENHORST")));
}

void ComparisonPrivacyTest::nothingOfAPairIsLeft()
{
    const std::vector<LoadedReport> reports = plantedReports();
    for (const std::size_t other : {std::size_t(0), std::size_t(1), std::size_t(2)}) {
        ComparisonView pair(reports[0], reports[other], hidden);
        pair.setShowsEveryMoment(true);
        QCOMPARE(found(everything(pair)), QString()); // before the end
        waitFor(pair);
        QCOMPARE(found(everything(pair)), QString());
        QVERIFY(!pair.exported(ComparisonForm::Json).isEmpty());
        pair.nextDifference();
        pair.copy();
        pair.swapSides();
        waitFor(pair);
        QCOMPARE(found(everything(pair) + QApplication::clipboard()->text()), QString());
    }
    ComparisonView pair(reports[0], reports[1]);
    waitFor(pair);
    pair.setPersonalData(hidden); // later
    waitFor(pair);
    QCOMPARE(found(everything(pair)), QString());
    pair.setPersonalData({});
    waitFor(pair);
    QVERIFY(everything(pair).contains(QStringLiteral("KRANICHNEST")));
}

void ComparisonPrivacyTest::nothingOfATableIsLeft()
{
    ComparisonTableView several(plantedReports(), hidden);
    several.setShowsEveryMoment(true);
    QCOMPARE(found(everything(several)), QString());
    waitFor(several);
    QCOMPARE(found(everything(several)), QString());
    QVERIFY(several.exported(ComparisonForm::Text).contains("10.0.19045"));
    several.setPersonalData({});
    waitFor(several);
    QVERIFY(everything(several).contains(QStringLiteral("KRANICHNEST")));
    several.setPersonalData(hidden);
    waitFor(several);
    QCOMPARE(found(everything(several)), QString());
}

void ComparisonPrivacyTest::nothingIsLeftWhileRedactionRuns_data()
{
    QTest::addColumn<bool>("isTable");
    QTest::newRow("pair") << false;
    QTest::newRow("table") << true;
}

void ComparisonPrivacyTest::nothingIsLeftWhileRedactionRuns()
{
    QFETCH(const bool, isTable);
    const auto check = [](auto &view) {
        QStringList copies;
        view.show();
        waitFor(view);
        addCopies(view, copies); // selects all
        view.setPersonalData(hidden);
        QVERIFY(view.isComparing());
        QCOMPARE(found(everything(view, false)), QString());
        QApplication::clipboard()->setText(QStringLiteral("before"));
        view.copy();
        addCopies(view, copies);
        QVERIFY(found(QApplication::clipboard()->text()).isEmpty());
        QCOMPARE(view.exported(ComparisonForm::Text), QByteArray());
        QCOMPARE(labelText(view, "message"), QStringLiteral("Hiding personal data and comparing\u2026"));
        QVERIFY(view.template findChild<QLabel *>(QStringLiteral("message"))->isVisible());
        waitFor(view);
        QVERIFY(!view.exported(ComparisonForm::Text).isEmpty());
    };
    const std::vector<LoadedReport> reports = plantedReports();
    if (isTable) {
        ComparisonTableView several(reports);
        check(several);
    } else {
        ComparisonView pair(reports[0], reports[1]);
        check(pair);
    }
}

void ComparisonPrivacyTest::itSaysWhetherPersonalDataAreHidden()
{
    const std::vector<LoadedReport> reports = plantedReports();
    ComparisonView pair(reports[0], reports[1]);
    ComparisonTableView several(reports);
    const QString open = QStringLiteral("The comparison contains names,");
    const QString closed = QStringLiteral("Personal data are hidden:");
    QVERIFY(labelText(pair, "privacy").startsWith(open));
    QVERIFY(labelText(several, "privacy").startsWith(open));
    pair.setPersonalData(hidden);
    several.setPersonalData(hidden);
    QVERIFY(labelText(pair, "privacy").startsWith(closed));
    QVERIFY(labelText(several, "privacy").startsWith(closed));
    QCOMPARE(pair.findChild<QLabel *>(QStringLiteral("privacy"))->textFormat(), Qt::PlainText);
    QCOMPARE(several.findChild<QLabel *>(QStringLiteral("privacy"))->textFormat(), Qt::PlainText);
}

void ComparisonPrivacyTest::namesOfFiles()
{
    std::vector<LoadedReport> reports = plantedReports();
    reports.resize(2);
    reports[0].name = QStringLiteral("KRANICHNEST before.txt");
    reports[1].name = QStringLiteral("after the update.txt");
    ComparisonView pair(reports[0], reports[1], hidden);
    QCOMPARE(pair.names(), QStringList());
    QCOMPARE(labelText(pair, "olderName"), QString());
    waitFor(pair);
    QVERIFY2(QRegularExpression(QStringLiteral("^host-[0-9]{12} before\\.txt$")).match(pair.names().at(0)).hasMatch(), qPrintable(pair.names().at(0)));
    QCOMPARE(pair.names().at(1), QStringLiteral("after the update.txt"));
    QCOMPARE(labelText(pair, "olderName"), pair.names().at(0));
    // No path of a file, not even of one without personal data.
    QVERIFY(!pair.findChild<QLabel *>(QStringLiteral("newerName"))->toolTip().contains(QLatin1Char('/') + QStringLiteral("home")));
    // The line of the name is no line of a report: two capital letters make no person of it.
    reports[0].name = QStringLiteral("Memory Information");
    ComparisonView words(reports[0], reports[1], hidden);
    waitFor(words);
    QCOMPARE(words.names().at(0), QStringLiteral("Memory Information"));
    QVERIFY(sideText(words, AlignedTextModel::OlderLine).contains(QStringLiteral("Memory Information:")));
    // Of a name that consists of nothing else a number is left.
    ComparisonTableView same({reports[1], reports[1], reports[1]}, hidden);
    waitFor(same);
    QCOMPARE(same.names().at(2), QStringLiteral("after the update.txt (3)"));
    // Where redaction does not look for a part of a word, the name is not shown at all.
    LoadedReport inside = fromPair("full-disk/OLD.txt");
    inside.name = QString::fromUtf8("abj\xc3\xb6rncd.txt");
    ComparisonView parts(reports[0], inside, hidden);
    waitFor(parts);
    QCOMPARE(parts.names().at(1), QStringLiteral("report 2"));
}

void ComparisonPrivacyTest::aTextWithoutReport()
{
    ComparisonView pair(report(leaving(), QStringLiteral("one.txt")), report("Dear all\n", QStringLiteral("mail of kranichnest.txt")), hidden);
    QCOMPARE(found(everything(pair)), QString());
    waitFor(pair);
    QCOMPARE(labelText(pair, "message"), QStringLiteral("There is nothing to compare."));
    QVERIFY(labelText(pair, "notes").startsWith(QStringLiteral("There is no report in mail of host-")));
    QCOMPARE(found(everything(pair)), QString());
}

void ComparisonPrivacyTest::differencesAreTheSame()
{
    for (const char *name : {"driver-update", "full-disk", "missing-runtime", "minute-apart"}) {
        const QByteArray older = QByteArray(name) + "/OLD.txt";
        const QByteArray newer = QByteArray(name) + "/NEW.txt";
        ComparisonView open(fromPair(older), fromPair(newer));
        ComparisonView closed(fromPair(older), fromPair(newer), hidden);
        open.setShowsEveryMoment(true);
        closed.setShowsEveryMoment(true);
        waitFor(open);
        waitFor(closed);
        const auto withoutItems = [](QStringList subjects) { // the name of an item can be an address
            for (QString &subject : subjects)
                subject = subject.section(QStringLiteral(" > "), 0, 0) + QStringLiteral(" > ") + subject.section(QStringLiteral(" \u203a "), -1);
            return subjects;
        };
        QVERIFY(!subjects(open).isEmpty());
        QCOMPARE(withoutItems(subjects(closed)), withoutItems(subjects(open)));
    }
}

void ComparisonPrivacyTest::reportsThatDifferInIdentities()
{
    const QByteArray text = reportOfLindmoor().text();
    QByteArray other = text;
    other.replace("Lindmoor", "Tannhauser").replace("lindmoor", "tannhauser").replace("BIRKENTAL-PC", "ULMENGRUND-PC");
    ComparisonView pair(report(text, QStringLiteral("a")), report(other, QStringLiteral("b")), hidden);
    waitFor(pair);
    QCOMPARE(subjects(pair),
             (QStringList {QStringLiteral("Computer name > NetBios name"), QStringLiteral("Computer name > Physical NetBios name"),
                           QStringLiteral("userName > User name"), QStringLiteral("Special Folders > CSIDL_PERSONAL"),
                           QStringLiteral("Loaded modules/DLLs > module eisvogel.dll \u203a path"),
                           QStringLiteral("System environemnt (QProcess::systemEnvironment()) > variable USERNAME \u203a value")}));
    const QStringList hosts = values(pair, "NetBios name");
    const QStringList names = values(pair, "User name");
    QVERIFY2(hosts.at(0).startsWith(QStringLiteral("host-")) && hosts.at(1).startsWith(QStringLiteral("host-")), qPrintable(hosts.join(QLatin1Char(' '))));
    QVERIFY(hosts.at(0) != hosts.at(1));
    QVERIFY(names.at(0).startsWith(QStringLiteral("user-")) && names.at(1).startsWith(QStringLiteral("user-")));
    QVERIFY(names.at(0) != names.at(1));
    QCOMPARE(values(pair, "CSIDL_PERSONAL"), (QStringList {QStringLiteral("C:\\Users\\%1\\Documents").arg(names.at(0)), QStringLiteral("C:\\Users\\%1\\Documents").arg(names.at(1))}));
}

void ComparisonPrivacyTest::theSamePersonHasOneAlias()
{
    // The computer has another name, the user is the same one: only the name of the computer differs.
    const QByteArray text = reportOfLindmoor().text();
    QByteArray other = text;
    other.replace("BIRKENTAL-PC", "ULMENGRUND-PC");
    ComparisonView pair(report(text, QStringLiteral("a")), report(other, QStringLiteral("b")), hidden);
    waitFor(pair);
    QCOMPARE(subjects(pair), (QStringList {QStringLiteral("Computer name > NetBios name"), QStringLiteral("Computer name > Physical NetBios name")}));
    const QStringList older = users(sideText(pair, AlignedTextModel::OlderLine));
    QCOMPARE(older.size(), 1);
    QCOMPARE(users(sideText(pair, AlignedTextModel::NewerLine)), older);
    // Also if the other report does not say who it is: here only a path has the name.
    QByteArray path = text;
    path.replace("User name:                    Lindmoor\n", "").replace("  USERNAME=Lindmoor\n", "");
    ComparisonView without(report(text, QStringLiteral("a")), report(path, QStringLiteral("b")), hidden);
    waitFor(without);
    QCOMPARE(users(sideText(without, AlignedTextModel::NewerLine)), users(sideText(without, AlignedTextModel::OlderLine)));
    ComparisonView same(report(text, QStringLiteral("a")), report(text, QStringLiteral("b")), hidden);
    waitFor(same);
    QCOMPARE(labelText(same, "summary"), QStringLiteral("Nothing differs."));
}

void ComparisonPrivacyTest::aliasesOfOneComparison()
{
    const QByteArray text = reportOfLindmoor().text();
    ComparisonView one(report(text, QStringLiteral("a")), report(text, QStringLiteral("b")), hidden);
    ComparisonView two(report(text, QStringLiteral("a")), report(text, QStringLiteral("b")), hidden);
    waitFor(one);
    waitFor(two);
    const QStringList ofOne = users(sideText(one, AlignedTextModel::OlderLine));
    QCOMPARE(ofOne.size(), 1);
    QVERIFY(users(sideText(two, AlignedTextModel::OlderLine)) != ofOne); // another comparison has another key
    one.swapSides();
    waitFor(one);
    QCOMPARE(users(sideText(one, AlignedTextModel::OlderLine)), ofOne);
}

void ComparisonPrivacyTest::theSectionAndTheDifferenceStay()
{
    ComparisonView pair(fromPair("full-disk/OLD.txt"), fromPair("full-disk/NEW.txt"));
    waitFor(pair);
    table(pair, "sections")->setCurrentIndex(table(pair, "sections")->model()->index(2, 0)); // the disks
    pair.nextDifference();
    pair.nextDifference(); // drive E, whose label is hidden later
    QCOMPARE(labelText(pair, "position"), QStringLiteral("3 of 6"));
    const QString value = differencesOf(pair).index(1, DifferenceModel::Older).data().toString();
    for (const bool hides : {true, false}) {
        pair.setPersonalData({hides, {}});
        pair.setPersonalData({!hides, {}}); // quickly, before the first one is done
        pair.setPersonalData({hides, {}});
        waitFor(pair);
        QCOMPARE(labelText(pair, "position"), QStringLiteral("3 of 6"));
        QCOMPARE(table(pair, "sections")->currentIndex().row(), 2);
        QCOMPARE(table(pair, "differences")->currentIndex().row(), 1);
        QCOMPARE(differencesOf(pair).rowCount(), 2);
        QCOMPARE(differencesOf(pair).index(1, DifferenceModel::Older).data().toString() == value, !hides);
    }
}

void ComparisonPrivacyTest::theTextsScrollTogetherAfterwards()
{
    ComparisonView pair(fromPair("full-disk/OLD.txt"), fromPair("full-disk/NEW.txt"));
    pair.resize(1024, 600);
    pair.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pair));
    waitFor(pair);
    QCoreApplication::processEvents();
    const QScrollBar *older = table(pair, "olderText")->verticalScrollBar();
    const QScrollBar *newer = table(pair, "newerText")->verticalScrollBar();
    for (const bool hides : {true, false, true}) {
        pair.nextDifference();
        const QString position = labelText(pair, "position");
        pair.setPersonalData({hides, {}});
        waitFor(pair);
        QCoreApplication::processEvents();
        QCOMPARE(labelText(pair, "position"), position);
        QVERIFY(newer->value() > 0);
        QCOMPARE(older->value(), newer->value());
        pair.nextDifference();
        QCOMPARE(older->value(), newer->value());
        const QTableView *text = table(pair, "newerText");
        QVERIFY(text->viewport()->rect().intersects(text->visualRect(text->selectionModel()->selectedRows(AlignedTextModel::NewerLine).constFirst())));
    }
}

void ComparisonPrivacyTest::theFocusStays()
{
    ComparisonView pair(fromPair("full-disk/OLD.txt"), fromPair("full-disk/NEW.txt"));
    ComparisonTableView several({fromPair("full-disk/OLD.txt"), fromPair("full-disk/NEW.txt"), fromPair("missing-runtime/NEW.txt")});
    const auto check = [](auto &view, const std::vector<const char *> &names) {
        view.show();
        view.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        waitFor(view);
        bool hides = false;
        for (const char *name : names) {
            hides = !hides;
            auto *widget = view.template findChild<QWidget *>(QString::fromLatin1(name));
            widget->setFocus();
            QVERIFY(widget->hasFocus());
            view.setPersonalData({hides, {}});
            waitFor(view);
            QVERIFY2(widget->hasFocus(), name);
        }
        view.hide();
    };
    check(pair, {"sections", "differences", "olderText", "newerText", "swap", "everyMoment"});
    check(several, {"values", "frozen", "filter", "everyMoment"});
}

void ComparisonPrivacyTest::theRowOfTheTableStays()
{
    ComparisonTableView several({fromPair("full-disk/OLD.txt"), fromPair("full-disk/NEW.txt"), fromPair("missing-runtime/NEW.txt")});
    waitFor(several);
    const QAbstractItemModel *model = table(several, "frozen")->model();
    const int row = model->rowCount() / 2;
    const QString subject = model->index(row, ComparisonTableModel::Subject).data().toString();
    table(several, "frozen")->setCurrentIndex(model->index(row, ComparisonTableModel::Subject));
    several.setPersonalData(hidden);
    waitFor(several);
    QVERIFY(table(several, "frozen")->currentIndex().isValid());
    QCOMPARE(table(several, "frozen")->currentIndex().siblingAtColumn(ComparisonTableModel::Subject).data().toString(), subject);
}

void ComparisonPrivacyTest::whatWasHiddenByHand()
{
    const std::vector<LoadedReport> reports = plantedReports();
    ComparisonView pair(reports[0], reports[1], hidden);
    ComparisonTableView several(reports, hidden);
    waitFor(pair);
    waitFor(several);
    QVERIFY(everything(pair).contains(QStringLiteral("Tannenried"))); // no rule finds it
    QVERIFY(everything(several).contains(QStringLiteral("Ahornhain")));
    const PersonalData more {true, {QStringLiteral("Tannenried"), QStringLiteral("Ahornhain")}};
    pair.setPersonalData(more);
    several.setPersonalData(more);
    QVERIFY(pair.isComparing());
    waitFor(pair);
    waitFor(several);
    QVERIFY(!everything(pair).contains(QStringLiteral("Tannenried")));
    QVERIFY(!everything(several).contains(QStringLiteral("Ahornhain")));
    pair.setPersonalData(more); // the same
    QVERIFY(!pair.isComparing());
}

void ComparisonPrivacyTest::theSwitchOfTheWindow()
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.filePath(QStringLiteral("settings")));
    QStringList files;
    for (const LoadedReport &report : plantedReports()) {
        QFile file(folder.filePath(report.name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(report.document.text());
        files << file.fileName();
    }
    MainWindow window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto *tabs = window.findChild<QTabWidget *>();
    const auto toolTips = [tabs] {
        QString all;
        for (int tab = 0; tab < tabs->count(); ++tab)
            all += tabs->tabToolTip(tab) + tabs->tabText(tab);
        return all + tabs->window()->windowTitle();
    };
    window.compareFiles(files.mid(0, 2));
    QTRY_VERIFY(window.comparisonView());
    ComparisonView *pair = window.comparisonView();
    window.compareFiles(files);
    QTRY_VERIFY(qobject_cast<ComparisonTableView *>(window.comparisonTab()));
    ComparisonTableView *several = qobject_cast<ComparisonTableView *>(window.comparisonTab());
    waitFor(*pair);
    waitFor(*several);
    QVERIFY(toolTips().contains(QStringLiteral("KRANICHNEST")));
    QWidget *focus = QApplication::focusWidget();
    QVERIFY(focus);
    QTest::keyClick(focus, Qt::Key_H, Qt::ControlModifier);
    QVERIFY(window.actionNamed("hidePersonalData")->isChecked());
    QVERIFY(several->isComparing() && pair->isComparing()); // also the one in the other tab
    // There is nothing to save yet, and no file becomes empty.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    bool hasAsked = false;
    QTimer closer;
    connect(&closer, &QTimer::timeout, this, [&hasAsked] {
        hasAsked = QApplication::activeModalWidget() != nullptr;
        if (hasAsked)
            QApplication::activeModalWidget()->close();
    });
    closer.start(100);
    window.actionNamed("saveAs")->trigger();
    closer.stop();
    QVERIFY(!hasAsked);
    QCOMPARE(window.messageBar()->messages(), QStringList {QStringLiteral("There is nothing to save: the reports are not compared.")});
    QCOMPARE(found(everything(*pair, false) + everything(*several, false) + toolTips()), QString());
    waitFor(*pair);
    waitFor(*several);
    QCOMPARE(found(everything(*pair) + everything(*several) + toolTips()), QString());
    QVERIFY(toolTips().contains(QStringLiteral("host-")));
    // A comparison that begins with the switch on.
    window.compareFiles(files.mid(1, 2));
    QTRY_VERIFY(window.comparisonView() && window.comparisonView() != pair);
    QCOMPARE(found(everything(*window.comparisonView(), false) + toolTips()), QString());
    waitFor(*window.comparisonView());
    QCOMPARE(found(everything(*window.comparisonView()) + toolTips()), QString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_H, Qt::ControlModifier);
    waitFor(*pair);
    QVERIFY(everything(*pair).contains(QStringLiteral("KRANICHNEST")));
    QVERIFY(toolTips().contains(QStringLiteral("KRANICHNEST")));
}

void ComparisonPrivacyTest::whatWasHiddenAndTakenBackInReports()
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.filePath(QStringLiteral("settings")));
    QStringList files;
    for (const char *name : {"one.txt", "two.txt"}) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(leaving());
        files << file.fileName();
    }
    MainWindow window;
    window.show();
    window.openFiles(files);
    QTRY_COMPARE(window.reportPages().size(), std::size_t(2));
    window.actionNamed("hidePersonalData")->trigger();
    ReportPage *page = window.reportPage();
    QTRY_VERIFY(page->output());
    auto *session = page->findChild<RedactionSession *>();
    const auto aliasOf = [session](const QString &original) {
        int alias = 0;
        while (!session->report().originalsOf(alias).contains(original))
            ++alias;
        return alias;
    };
    session->takeBack(aliasOf(QStringLiteral("KRANICHNEST")));
    QTRY_VERIFY(!session->isBusy());
    session->hide(QStringLiteral("Tannenried"));
    QTRY_VERIFY(!session->isBusy());
    QVERIFY(page->textView()->lines().text().contains("KRANICHNEST"));
    window.actionNamed("compareOpenReports")->trigger();
    ComparisonView *pair = window.comparisonView();
    QVERIFY(pair);
    waitFor(*pair);
    QCOMPARE(found(everything(*pair)), QString());
    QVERIFY(!everything(*pair).contains(QStringLiteral("Tannenried")));
    QVERIFY(everything(*pair).contains(QStringLiteral("Erlenhof 3")));
    // What is hidden later is hidden when the comparison is seen again.
    auto *tabs = window.findChild<QTabWidget *>();
    tabs->setCurrentWidget(page);
    session->hide(QStringLiteral("Erlenhof 3"));
    tabs->setCurrentWidget(pair);
    QVERIFY(!everything(*pair, false).contains(QStringLiteral("Erlenhof 3")));
    waitFor(*pair);
    QVERIFY(!everything(*pair).contains(QStringLiteral("Erlenhof 3")));
    // Also after the report was closed.
    tabs->setCurrentWidget(page);
    window.actionNamed("closeTab")->trigger();
    tabs->setCurrentWidget(pair);
    waitFor(*pair);
    QVERIFY(!everything(*pair).contains(QStringLiteral("Tannenried")));
    QCOMPARE(found(everything(*pair)), QString());
}

TEST_WITH_APPLICATION(ComparisonPrivacyTest);

#include "tst_comparison_privacy.moc"
