// What a screen reader sees of the text view.

#include "test_main.h"
#include "text/text_view.h"

#include <QtGui/QAccessible>
#include <QtGui/private/qguiapplication_p.h>
#include <QtWidgets/QScrollBar>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

class TextViewAccessibleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void roleAndState();
    void textIsInUnits();
    void caretAndSelection();
    void boundaries_data();
    void boundaries();
    void characterRectangles();
    void changesAreReported();
    void otherTextIsSeen();
    void largeTextIsAnsweredAtOnce();
};

namespace {

/// "a", an emoji of two units, a space, "b" with an accent, a line end, "second line".
const QByteArray sample = "a\xF0\x9F\x98\x80 b\xCC\x81\r\nsecond line\n";

struct Report
{
    QAccessible::Event type;
    int first;
};
QVector<Report> reports;

void keepReport(QAccessibleEvent *event)
{
    int first = -1;
    if (event->type() == QAccessible::TextCaretMoved)
        first = static_cast<QAccessibleTextCursorEvent *>(event)->cursorPosition();
    else if (event->type() == QAccessible::TextSelectionChanged)
        first = static_cast<QAccessibleTextSelectionEvent *>(event)->selectionStart();
    if (first >= 0) // other events are those of any widget
        reports.append({event->type(), first});
}

class View : public TextView
{
public:
    explicit View(const QByteArray &text)
    {
        setLines(TextLines(text));
        resize(500, 300);
        show();
    }

    QAccessibleInterface *accessible() { return QAccessible::queryAccessibleInterface(this); }
    QAccessibleTextInterface *text() { return accessible()->textInterface(); }
};

} // namespace

void TextViewAccessibleTest::initTestCase()
{
    // Says that somebody reads the screen.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QVERIFY(QAccessible::isActive());
    QAccessible::installUpdateHandler(keepReport);
}

void TextViewAccessibleTest::cleanup()
{
    reports.clear();
}

void TextViewAccessibleTest::roleAndState()
{
    View view(sample);
    QVERIFY(view.text());
    QCOMPARE(view.accessible()->role(), QAccessible::EditableText);
    QVERIFY(view.accessible()->state().readOnly);
    QVERIFY(view.accessible()->state().multiLine);
    QVERIFY(view.accessible()->state().focusable);
    QVERIFY(!view.accessible()->text(QAccessible::Name).isEmpty());
    QCOMPARE(view.accessible()->text(QAccessible::Value), QString::fromUtf8(sample));
}

void TextViewAccessibleTest::textIsInUnits()
{
    View view(sample);
    const QString expected = QString::fromUtf8(sample);
    QCOMPARE(view.text()->characterCount(), expected.size());
    QCOMPARE(view.text()->text(0, expected.size()), expected);
    QCOMPARE(view.text()->text(3, 6), QStringLiteral(" b\u0301"));
    QCOMPARE(view.text()->text(8, 14), QStringLiteral("second"));
    QCOMPARE(view.text()->text(5, 5), QString());
    QCOMPARE(view.text()->text(10, 1000), QStringLiteral("cond line\n"));
}

void TextViewAccessibleTest::caretAndSelection()
{
    View view(sample);
    QAccessibleTextInterface *const text = view.text();
    text->setCursorPosition(8);
    QCOMPARE(view.caret(), 11); // bytes
    QCOMPARE(text->cursorPosition(), 8);
    QCOMPARE(text->selectionCount(), 0);
    text->addSelection(1, 4);
    QCOMPARE(view.selectedBytes(), QByteArray("\xF0\x9F\x98\x80 "));
    QCOMPARE(text->selectionCount(), 1);
    int start = -1, end = -1;
    text->selection(0, &start, &end);
    QCOMPARE(start, 1);
    QCOMPARE(end, 4);
    text->setSelection(0, 8, 14);
    QCOMPARE(view.selectedBytes(), QByteArray("second"));
    text->removeSelection(0);
    QCOMPARE(text->selectionCount(), 0);
    text->selection(1, &start, &end);
    QCOMPARE(start, 0);
    QCOMPARE(end, 0);
}

void TextViewAccessibleTest::boundaries_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("at");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("type");
    const auto row = [](const char *name, int offset, QAccessible::TextBoundaryType type, const QString &before, const QString &at,
                        const QString &after) { QTest::newRow(name) << before << at << after << offset << int(type); };
    row("first character", 0, QAccessible::CharBoundary, QString(), QStringLiteral("a"), QStringLiteral("\U0001F600"));
    row("emoji", 1, QAccessible::CharBoundary, QStringLiteral("a"), QStringLiteral("\U0001F600"), QStringLiteral(" "));
    row("letter with accent", 4, QAccessible::CharBoundary, QStringLiteral(" "), QStringLiteral("b\u0301"), QStringLiteral("\r\n"));
    row("word", 9, QAccessible::WordBoundary, QStringLiteral("\r\n"), QStringLiteral("second"), QStringLiteral(" "));
    row("last word", 16, QAccessible::WordBoundary, QStringLiteral(" "), QStringLiteral("line"), QStringLiteral("\n"));
    row("first line", 2, QAccessible::LineBoundary, QString(), QStringLiteral("a\U0001F600 b\u0301\r\n"), QStringLiteral("second line\n"));
    row("second line", 12, QAccessible::LineBoundary, QStringLiteral("a\U0001F600 b\u0301\r\n"), QStringLiteral("second line\n"), QString());
    row("paragraph", 12, QAccessible::ParagraphBoundary, QStringLiteral("a\U0001F600 b\u0301\r\n"), QStringLiteral("second line\n"), QString());
    row("everything", 12, QAccessible::NoBoundary, QString(), QString::fromUtf8(sample), QString());
}

void TextViewAccessibleTest::boundaries()
{
    QFETCH(int, offset);
    QFETCH(int, type);
    View view(sample);
    QAccessibleTextInterface *const text = view.text();
    const auto boundary = QAccessible::TextBoundaryType(type);
    int start = -1, end = -1;
    QTEST(text->textAtOffset(offset, boundary, &start, &end), "at");
    QVERIFY(start <= offset && offset < end);
    QCOMPARE(text->text(start, end), text->textAtOffset(offset, boundary, &start, &end));
    QTEST(text->textBeforeOffset(offset, boundary, &start, &end), "before");
    QVERIFY(end <= offset);
    QTEST(text->textAfterOffset(offset, boundary, &start, &end), "after");
    QVERIFY(start > offset);
}

void TextViewAccessibleTest::characterRectangles()
{
    View view(sample);
    QAccessibleTextInterface *const text = view.text();
    const QRect first = text->characterRect(8), second = text->characterRect(9);
    QVERIFY(!first.isEmpty());
    QVERIFY(second.left() >= first.right() - 1);
    QVERIFY(first.top() > text->characterRect(0).top());
    QCOMPARE(text->offsetAtPoint({second.left() + 1, second.center().y()}), 9);
    QCOMPARE(text->offsetAtPoint({-1000, -1000}), -1);
}

void TextViewAccessibleTest::changesAreReported()
{
    View view(sample);
    QVERIFY(view.accessible());
    reports.clear();
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(reports.size(), 1);
    QCOMPARE(reports.at(0).type, QAccessible::TextCaretMoved);
    QCOMPARE(reports.at(0).first, 8);
    reports.clear();
    QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(reports.size(), 2);
    QCOMPARE(reports.at(0).type, QAccessible::TextCaretMoved);
    QCOMPARE(reports.at(1).type, QAccessible::TextSelectionChanged);
    QCOMPARE(reports.at(1).first, 8);
}

void TextViewAccessibleTest::otherTextIsSeen()
{
    View view(sample);
    QCOMPARE(view.text()->characterCount(), 20);
    view.setLines(TextLines("other"));
    QCOMPARE(view.text()->characterCount(), 5);
    QCOMPARE(view.text()->text(0, 5), QStringLiteral("other"));
}

/// Ten thousand calls. One that reads the whole text takes some 10 ms, so that all of them would take minutes.
void TextViewAccessibleTest::largeTextIsAnsweredAtOnce()
{
    View view(QByteArray("line \xC3\xA9\n").repeated(1250000));
    QAccessibleTextInterface *const text = view.text();
    const int count = text->characterCount();
    QCOMPARE(count, 1250000 * 7);
    int start = 0, end = 0;
    for (int i = 0; i < 10000; ++i) {
        const int offset = int(qint64(count) * i / 10000);
        const QString line = text->textAtOffset(offset, QAccessible::LineBoundary, &start, &end);
        if (line != QStringLiteral("line \u00E9\n") || start != offset / 7 * 7)
            QCOMPARE(line, QStringLiteral("line \u00E9\n"));
    }
    text->scrollToSubstring(count / 2, count / 2 + 3);
    QVERIFY(view.verticalScrollBar()->value() > 1000);
}

TEST_WITH_APPLICATION(TextViewAccessibleTest);

#include "tst_text_view_accessible.moc"
