// The list of what is hidden: by mouse and by keyboard.

#include "redaction/redaction_panel.h"
#include "redaction/redaction_session.h"
#include "redaction_texts.h"
#include "test_main.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeView>
#include <memory>

using namespace velkor::Reports;

class RedactionPanelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_panel.reset(); }

    void rows();
    void sorts();
    void numbersSortAsNumbers();
    void originals();
    void showsPlaces_data();
    void showsPlaces();
    void takesBack_data();
    void takesBack();
    void cannotTakeBackLengths();
    void hidesSelection_data();
    void hidesSelection();
    void undoAndRedo_data();
    void undoAndRedo();
    void saysWhatFailed();
    void choiceStaysNearby();
    void nothingToHide();
    void namesForEverybody();
    void strangersTextIsPlain();

private:
    QPushButton *button(const char *text) const;
    QStringList column(int column) const;
    void choose(const char *alias);
    void click(const char *text) { QTest::mouseClick(button(text), Qt::LeftButton); }
    bool wait()
    {
        return QTest::qWaitFor([this] { return !m_session->isBusy(); }, 30000);
    }
    QByteArray text() const { return m_session->report().document().text(); }

    std::unique_ptr<RedactionSession> m_session;
    std::unique_ptr<RedactionPanel> m_panel;
    QTreeView *m_list = nullptr;
};

namespace {

QByteArray placeOf(const QSignalSpy &spy, const QByteArray &text, int index)
{
    const int begin = spy.at(index).at(0).toInt();
    const int end = spy.at(index).at(1).toInt();
    return QByteArray::number(text.left(begin).count('\n')) + ": " + text.mid(begin, end - begin);
}

} // namespace

void RedactionPanelTest::init()
{
    m_panel.reset();
    m_session = std::make_unique<RedactionSession>();
    m_panel = std::make_unique<RedactionPanel>(m_session.get());
    m_list = m_panel->findChild<QTreeView *>();
    m_panel->resize(600, 400);
    m_panel->show();
    m_panel->activateWindow(); // for keys
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    m_session->setOriginal(reportOfLindmoor());
    QVERIFY(wait());
}

QPushButton *RedactionPanelTest::button(const char *text) const
{
    for (QPushButton *button : m_panel->findChildren<QPushButton *>()) {
        if (QString(button->text()).remove(QLatin1Char('&')) == QLatin1String(text))
            return button;
    }
    qFatal("no button %s", text);
    return nullptr; // MSVC does not know that qFatal() does not return
}

QStringList RedactionPanelTest::column(int column) const
{
    QStringList texts;
    for (int row = 0; row < m_list->model()->rowCount(); ++row)
        texts += m_list->model()->index(row, column).data().toString();
    return texts;
}

void RedactionPanelTest::choose(const char *alias)
{
    const int row = column(0).indexOf(QLatin1String(alias));
    QVERIFY2(row >= 0, alias);
    const QRect place = m_list->visualRect(m_list->model()->index(row, 0));
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, place.center());
}

void RedactionPanelTest::rows()
{
    QCOMPARE(column(0), QStringList({"host-1", "length-...", "user-1"}));
    QCOMPARE(column(1), QStringList({"Computer", "Environment", "User name"}));
    QCOMPARE(column(2), QStringList({"2", "2", "4"}));
    QCOMPARE(column(3)[0], QStringLiteral("a fact of the report reveals it"));
    QVERIFY(column(3)[2].contains(QStringLiteral("a path says what it is")));
    QVERIFY(m_panel->findChild<QLabel *>()->text().startsWith(QStringLiteral("Hidden places: 8.")));
}

void RedactionPanelTest::sorts()
{
    QHeaderView *header = m_list->header();
    const auto clickHeader = [&](int column) {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(header->sectionViewportPosition(column) + 10, header->height() / 2));
    };
    clickHeader(0);
    QCOMPARE(column(0), QStringList({"user-1", "length-...", "host-1"}));
    clickHeader(2);
    QCOMPARE(column(2), QStringList({"2", "2", "4"}));
    clickHeader(2);
    QCOMPARE(column(2), QStringList({"4", "2", "2"}));
}

void RedactionPanelTest::numbersSortAsNumbers()
{
    QByteArray text;
    for (int i = 0; i < 12; ++i)
        text += "C:\\Users\\Lindmoor" + QByteArray(1, char('a' + i)) + "x\\Documents\n";
    m_session->setOriginal(read(text));
    QVERIFY(wait());
    QStringList expected;
    for (int i = 1; i <= 12; ++i)
        expected += QStringLiteral("user-%1").arg(i);
    QCOMPARE(column(0), expected);
}

void RedactionPanelTest::originals()
{
    QVERIFY(m_list->isColumnHidden(4));
    auto *box = m_panel->findChild<QCheckBox *>();
    QVERIFY(!box->isChecked());
    QTest::keyClick(box, Qt::Key_Space);
    QVERIFY(!m_list->isColumnHidden(4));
    QCOMPARE(column(4), QStringList({"BIRKENTAL-PC", QString(), "Lindmoor, lindmoor"}));
    QTest::keyClick(box, Qt::Key_Space);
    QVERIFY(m_list->isColumnHidden(4));
}

void RedactionPanelTest::showsPlaces_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("mouse") << true;
    QTest::newRow("keyboard") << false;
}

void RedactionPanelTest::showsPlaces()
{
    QFETCH(bool, byMouse);
    const QSignalSpy chosen(m_panel.get(), &RedactionPanel::placeChosen);
    QVERIFY(!button("Next place")->isEnabled());
    if (byMouse) {
        choose("user-1");
    } else {
        m_list->setFocus();
        QTest::keyClick(m_list, Qt::Key_Home);
        QTest::keyClick(m_list, Qt::Key_End);
    }
    const int before = chosen.count() - 1; // places of rows before
    QVERIFY(before >= 0);
    const QByteArrayList places {"4: user-1", "9: user-1", "12: user-1", "19: user-1", "4: user-1"};
    for (int i = 0; i < places.size(); ++i) {
        QCOMPARE(chosen.count(), before + i + 1);
        QCOMPARE(placeOf(chosen, text(), before + i), places[i]);
        if (byMouse)
            click("Next place");
        else
            QTest::keyClick(m_list, Qt::Key_Return);
    }
    // The lengths have places, too.
    choose("length-...");
    QCOMPARE(placeOf(chosen, text(), chosen.count() - 1), QByteArray("17: length-6"));
}

void RedactionPanelTest::takesBack_data()
{
    showsPlaces_data();
}

void RedactionPanelTest::takesBack()
{
    QFETCH(bool, byMouse);
    QVERIFY(!button("Take back")->isEnabled());
    choose("host-1");
    QVERIFY(button("Take back")->isEnabled());
    if (byMouse)
        click("Take back");
    else
        QTest::keyClick(m_list, Qt::Key_Delete);
    QVERIFY(wait());
    QCOMPARE(text().count("BIRKENTAL-PC"), 2);
    QCOMPARE(column(0), QStringList({"length-...", "user-1"}));
}

void RedactionPanelTest::cannotTakeBackLengths()
{
    choose("length-...");
    QVERIFY(!button("Take back")->isEnabled());
    QVERIFY(button("Take back")->toolTip().contains(QStringLiteral("environment")));
    QTest::keyClick(m_list, Qt::Key_Delete);
    QVERIFY(wait());
    QVERIFY(m_panel->findChild<QLabel *>()->text().contains(QStringLiteral("environment")));
    QVERIFY(!text().contains("meadow"));
}

void RedactionPanelTest::hidesSelection_data()
{
    showsPlaces_data();
}

void RedactionPanelTest::hidesSelection()
{
    QFETCH(bool, byMouse);
    QVERIFY(!button("Hide selection")->isEnabled());
    m_panel->setSelectedText("eisvogel");
    QVERIFY(button("Hide selection")->isEnabled());
    if (byMouse)
        click("Hide selection");
    else
        QTest::keyClick(button("Hide selection"), Qt::Key_Space);
    QVERIFY(wait());
    QVERIFY(text().contains("word-1.dll"));
    QVERIFY(column(1).contains(QStringLiteral("Hidden by hand")));
    QVERIFY(!button("Hide selection")->isEnabled());
}

void RedactionPanelTest::undoAndRedo_data()
{
    showsPlaces_data();
}

void RedactionPanelTest::undoAndRedo()
{
    QFETCH(bool, byMouse);
    QVERIFY(!button("Undo")->isEnabled() && !button("Redo")->isEnabled());
    choose("host-1");
    click("Take back");
    QVERIFY(wait());
    QVERIFY(button("Undo")->isEnabled() && !button("Redo")->isEnabled());
    if (byMouse) {
        click("Undo");
    } else {
        m_list->setFocus();
        QTest::keyClick(m_list, Qt::Key_Z, Qt::ControlModifier);
    }
    QVERIFY(wait());
    QVERIFY(!text().contains("BIRKENTAL-PC"));
    if (byMouse)
        click("Redo");
    else
        QTest::keySequence(m_list, QKeySequence(QKeySequence::Redo));
    QVERIFY(wait());
    QVERIFY(text().contains("BIRKENTAL-PC"));
}

void RedactionPanelTest::saysWhatFailed()
{
    m_panel->setSelectedText("one\ntwo");
    click("Hide selection");
    auto *label = m_panel->findChild<QLabel *>();
    QCOMPARE(label->text(), QStringLiteral("Select a text within one line."));
    choose("user-1");
    QVERIFY(label->text().startsWith(QStringLiteral("Hidden places: 8.")));
}

void RedactionPanelTest::choiceStaysNearby()
{
    choose("host-1");
    const QSignalSpy chosen(m_panel.get(), &RedactionPanel::placeChosen);
    click("Take back");
    QVERIFY(wait());
    QCOMPARE(m_list->currentIndex().data().toString(), QStringLiteral("length-..."));
    QVERIFY(chosen.isEmpty()); // the view does not jump
}

void RedactionPanelTest::nothingToHide()
{
    m_session->setOriginal(read("MemoryLoad:            15%\n"));
    QVERIFY(wait());
    QCOMPARE(m_list->model()->rowCount(), 0);
    QCOMPARE(m_panel->findChild<QLabel *>()->text(), QStringLiteral("Nothing was found that has to be hidden."));
    QVERIFY(!button("Next place")->isEnabled() && !button("Take back")->isEnabled());
    m_panel->takeBack();
    m_panel->showNextPlace();
    m_panel->hideSelection();
    QVERIFY(wait());
    QCOMPARE(text(), QByteArray("MemoryLoad:            15%\n"));
}

void RedactionPanelTest::namesForEverybody()
{
    QVERIFY(!m_list->accessibleName().isEmpty());
    for (const QPushButton *each : m_panel->findChildren<QPushButton *>())
        QVERIFY2(each->text().contains(QLatin1Char('&')), qPrintable(each->text()));
    QCOMPARE(m_panel->findChild<QLabel *>()->textFormat(), Qt::PlainText);
}

void RedactionPanelTest::strangersTextIsPlain()
{
    m_session->setOriginal(read("User name:                    <img src=x>\xe2\x80\xaeLindmoor\n"));
    QVERIFY(wait());
    QCOMPARE(m_list->model()->rowCount(), 1);
    QCOMPARE(column(4), QStringList(QStringLiteral("<img src=x>\\u202eLindmoor")));
}

TEST_WITH_APPLICATION(RedactionPanelTest);
#include "tst_redaction_panel.moc"
