// The find bar with a text view, by keyboard and by mouse.

#include "test_main.h"
#include "text/find_bar.h"
#include "text/text_view.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

class FindBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typingFindsFromTheCaret();
    void nextAndPreviousGoAround_data();
    void nextAndPreviousGoAround();
    void matchCase();
    void noHits();
    void emptyFieldFindsNothing();
    void selectionBecomesWanted();
    void escapeClosesAndGivesTheFocusBack();
    void closeButtonCloses();
    void marksFollowTheBar();
    void nextWorksWhileClosed();
    void nextWithoutTextOpens();
    void findGoesOnFromTheCaret();
    void otherTextIsSearchedAnew();
    void manyHitsAreCounted();
    void everythingHasAName();
};

namespace {

class Window : public QWidget
{
public:
    explicit Window(const QByteArray &text)
        : view(new TextView(this)), bar(new FindBar(view, this)), edit(bar->findChild<QLineEdit *>())
    {
        auto *const layout = new QVBoxLayout(this);
        layout->addWidget(view);
        layout->addWidget(bar);
        view->setLines(TextLines(text));
        resize(700, 300);
        show();
    }

    QString count() const
    {
        for (const QLabel *label : bar->findChildren<QLabel *>()) {
            if (!label->buddy())
                return label->text();
        }
        return QStringLiteral("no label");
    }
    QByteArray selected() const
    {
        return QByteArray::number(view->selection().begin) + '-' + QByteArray::number(view->selection().end);
    }
    void click(const char *name) const
    {
        for (QToolButton *button : bar->findChildren<QToolButton *>()) {
            if (button->accessibleName() == QLatin1String(name))
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }

    TextView *view;
    FindBar *bar;
    QLineEdit *edit;
};

} // namespace

void FindBarTest::typingFindsFromTheCaret()
{
    Window window("one two\none three\none four\n");
    QVERIFY(!window.bar->isVisible());
    window.view->setCaret(5);
    window.bar->open();
    QVERIFY(window.bar->isVisible());
    QCOMPARE(window.focusWidget(), window.edit);
    QTest::keyClicks(window.edit, QStringLiteral("o"));
    QCOMPARE(window.selected(), QByteArray("6-7"));
    QCOMPARE(window.count(), QStringLiteral("2 of 5")); // at 0, 6, 8, 18 and 23
    QTest::keyClicks(window.edit, QStringLiteral("n"));
    QCOMPARE(window.selected(), QByteArray("8-10"));
    QTest::keyClicks(window.edit, QStringLiteral("e f"));
    QCOMPARE(window.selected(), QByteArray("18-23"));
    QCOMPARE(window.count(), QStringLiteral("1 of 1"));
}

void FindBarTest::nextAndPreviousGoAround_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("slots") << QStringLiteral("slots");
    QTest::newRow("keyboard") << QStringLiteral("keyboard");
    QTest::newRow("mouse") << QStringLiteral("mouse");
}

void FindBarTest::nextAndPreviousGoAround()
{
    QFETCH(QString, way);
    Window window("hit a hit b hit");
    window.bar->open();
    window.edit->setText(QStringLiteral("hit"));
    QCOMPARE(window.count(), QStringLiteral("1 of 3"));
    const auto go = [&](bool next) {
        if (way == QLatin1String("slots"))
            next ? window.bar->findNext() : window.bar->findPrevious();
        else if (way == QLatin1String("keyboard"))
            QTest::keyClick(window.edit, Qt::Key_Return, next ? Qt::NoModifier : Qt::ShiftModifier);
        else
            window.click(next ? "Next hit" : "Previous hit");
        return window.selected();
    };
    QCOMPARE(go(true), QByteArray("6-9"));
    QCOMPARE(window.count(), QStringLiteral("2 of 3"));
    QCOMPARE(go(true), QByteArray("12-15"));
    QCOMPARE(go(true), QByteArray("0-3"));
    QVERIFY(window.count().startsWith(QLatin1String("1 of 3, ")));
    QCOMPARE(go(false), QByteArray("12-15"));
    QVERIFY(window.count().startsWith(QLatin1String("3 of 3, ")));
    QCOMPARE(go(false), QByteArray("6-9"));
    QCOMPARE(window.count(), QStringLiteral("2 of 3"));
}

void FindBarTest::matchCase()
{
    Window window("Hit hit HIT");
    window.bar->open();
    window.edit->setText(QStringLiteral("hit"));
    QCOMPARE(window.count(), QStringLiteral("1 of 3"));
    auto *const box = window.bar->findChild<QCheckBox *>();
    QVERIFY(!box->isChecked());
    QTest::keyClick(box, Qt::Key_Space);
    QCOMPARE(window.count(), QStringLiteral("1 of 1"));
    QCOMPARE(window.selected(), QByteArray("4-7"));
    QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    QCOMPARE(window.count(), QStringLiteral("2 of 3"));
}

void FindBarTest::noHits()
{
    Window window("one two");
    window.view->setCaret(3);
    window.bar->open();
    window.edit->setText(QStringLiteral("three"));
    QCOMPARE(window.count(), QStringLiteral("No hits"));
    QCOMPARE(window.selected(), QByteArray("3-3"));
    window.bar->findNext();
    window.bar->findPrevious();
    QCOMPARE(window.count(), QStringLiteral("No hits"));
    QCOMPARE(window.selected(), QByteArray("3-3"));
}

void FindBarTest::emptyFieldFindsNothing()
{
    Window window("one two");
    window.bar->open();
    QCOMPARE(window.count(), QString());
    window.edit->setText(QStringLiteral("two"));
    window.edit->clear();
    QCOMPARE(window.count(), QString());
    QTest::keyClick(window.edit, Qt::Key_Return);
    QCOMPARE(window.count(), QString());
}

void FindBarTest::selectionBecomesWanted()
{
    Window window("one two\ntwo\n");
    window.view->setSelection({4, 7});
    window.bar->open();
    QCOMPARE(window.edit->text(), QStringLiteral("two"));
    QCOMPARE(window.edit->selectedText(), QStringLiteral("two"));
    QCOMPARE(window.count(), QStringLiteral("1 of 2"));
    window.view->selectAll(); // two lines
    window.bar->open();
    QCOMPARE(window.edit->text(), QStringLiteral("two"));
}

void FindBarTest::escapeClosesAndGivesTheFocusBack()
{
    Window window("one two");
    window.bar->open();
    window.edit->setText(QStringLiteral("one"));
    QTest::keyClick(window.edit, Qt::Key_Escape);
    QVERIFY(!window.bar->isVisible());
    QCOMPARE(window.focusWidget(), window.view);
    QCOMPARE(window.selected(), QByteArray("0-3")); // where the user was
    window.bar->open();
    QTest::keyClick(window.bar->findChild<QCheckBox *>(), Qt::Key_Escape);
    QVERIFY(!window.bar->isVisible());
}

void FindBarTest::closeButtonCloses()
{
    Window window("one two");
    window.bar->open();
    window.click("Close the find bar");
    QVERIFY(!window.bar->isVisible());
    QCOMPARE(window.focusWidget(), window.view);
}

void FindBarTest::marksFollowTheBar()
{
    Window window("hit a hit");
    const QColor background = markStyle(TextMark::Hit, window.view->palette()).background;
    const auto marked = [&] {
        const QImage image = window.view->viewport()->grab().toImage();
        const QRect hit = window.view->characterRect(6);
        for (int y = hit.top(); y <= hit.bottom(); ++y) {
            if (image.pixelColor(hit.center().x(), y).rgb() == background.rgb())
                return true;
        }
        return false;
    };
    QVERIFY(!marked());
    window.bar->open();
    window.edit->setText(QStringLiteral("hit"));
    QVERIFY(marked());
    window.hide(); // such as a page of a stack
    window.show();
    QVERIFY(marked());
    window.bar->closeBar();
    QVERIFY(!marked());
}

void FindBarTest::nextWorksWhileClosed()
{
    Window window("hit a hit b hit");
    window.bar->open();
    window.edit->setText(QStringLiteral("hit"));
    window.bar->closeBar();
    window.bar->findNext();
    QCOMPARE(window.selected(), QByteArray("6-9"));
    QVERIFY(!window.bar->isVisible());
}

void FindBarTest::nextWithoutTextOpens()
{
    Window window("one two");
    window.bar->findNext();
    QVERIFY(window.bar->isVisible());
    window.bar->closeBar();
    window.bar->findPrevious();
    QVERIFY(window.bar->isVisible());
}

void FindBarTest::findGoesOnFromTheCaret()
{
    Window window("hit a hit b hit");
    window.bar->open();
    window.edit->setText(QStringLiteral("hit"));
    window.view->setCaret(10);
    QCOMPARE(window.count(), QStringLiteral("Hits: 3"));
    window.bar->findNext();
    QCOMPARE(window.selected(), QByteArray("12-15"));
    window.view->setCaret(10);
    window.bar->findPrevious();
    QCOMPARE(window.selected(), QByteArray("6-9"));
}

void FindBarTest::otherTextIsSearchedAnew()
{
    Window window("hit hit");
    window.bar->open();
    window.edit->setText(QStringLiteral("hit"));
    QCOMPARE(window.count(), QStringLiteral("1 of 2"));
    window.view->setLines(TextLines("a hit"));
    QCOMPARE(window.count(), QStringLiteral("Hits: 1"));
    QCOMPARE(window.selected(), QByteArray("0-0")); // nobody asked for another place
    window.bar->findNext();
    QCOMPARE(window.selected(), QByteArray("2-5"));
    window.bar->closeBar();
    window.view->setLines(TextLines("another hit"));
    window.bar->findNext();
    QCOMPARE(window.selected(), QByteArray("8-11"));
}

void FindBarTest::manyHitsAreCounted()
{
    const QByteArray text(10 * 1000 * 1000, 'e');
    Window window(text);
    window.view->setCaret(text.size() - 1);
    window.bar->open();
    window.edit->setText(QStringLiteral("E"));
    const QLocale locale;
    const QString total = locale.toString(text.size());
    QTRY_COMPARE_WITH_TIMEOUT(window.count(), QStringLiteral("%1 of %1").arg(total), 60000);
    QCOMPARE(window.view->selection().begin, text.size() - 1);
    window.bar->findNext();
    QVERIFY(window.count().startsWith(QStringLiteral("1 of %1").arg(total)));
}

void FindBarTest::everythingHasAName()
{
    Window window("one");
    window.bar->open();
    QCOMPARE(window.edit->accessibleName(), QStringLiteral("Find"));
    int labels = 0;
    for (const QLabel *label : window.bar->findChildren<QLabel *>()) {
        QCOMPARE(label->textFormat(), Qt::PlainText);
        ++labels;
    }
    QCOMPARE(labels, 2);
    for (const QToolButton *button : window.bar->findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly)) {
        QVERIFY(!button->accessibleName().isEmpty());
        QVERIFY(button->focusPolicy() & Qt::TabFocus);
    }
}

TEST_WITH_APPLICATION(FindBarTest);

#include "tst_find_bar.moc"
