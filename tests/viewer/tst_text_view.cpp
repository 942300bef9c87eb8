// The text view: caret, selection, keyboard, mouse, marks, what it looks like.

#include "test_main.h"
#include "text/mark_strip.h"
#include "text/text_mime_data.h"
#include "text/text_view.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolTip>

Q_DECLARE_METATYPE(TextMark)

class TextViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsStandBelowOneAnother();
    void keysMoveAsInAPlainTextEdit_data();
    void keysMoveAsInAPlainTextEdit();
    void pagesScrollAndMove();
    void longLinesGoOn();
    void clickAndDragSelect();
    void doubleClickSelectsWords_data();
    void doubleClickSelectsWords();
    void dragAfterDoubleClickSelectsWords();
    void tripleClickSelectsTheLine();
    void otherButtonsSelectNothing();
    void dragOutsideScrolls();
    void selectionHasTheBytes();
    void placesAreNeverInsideACharacter();
    void mimeDataChangesNothing();
    void copyIsRequested();
    void showRangeScrolls();
    void zoom();
    void hoverTextIsPlain();
    void contextMenu();
    void marksAreDrawn_data();
    void marksAreDrawn();
    void marksCanBeRead_data();
    void marksCanBeRead();
    void controlCharactersAreVisible_data();
    void controlCharactersAreVisible();
    void directionalOverridesHaveNoEffect();
    void rightToLeftTextIsSelectedWhereItIs();
    void rightToLeftWindowKeepsTheLeftEdge();
    void stripShowsMarks();
    void clickOnTheStripScrolls();
    void caretIsVisibleWithFocus();
    void otherTextHasNoMarksAndNoSelection();
    void largeTexts_data();
    void largeTexts();
};

namespace {

constexpr int viewWidth = 600, viewHeight = 300;

QByteArray numberedLines(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += "line " + QByteArray::number(i) + '\n';
    return text;
}

void show(QWidget &widget)
{
    widget.resize(viewWidth, viewHeight);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
}

QPoint leftOf(const TextView &view, int offset)
{
    const QRect rect = view.characterRect(offset);
    return {rect.left() + 1, rect.center().y()};
}

QPoint middleOf(const TextView &view, int offset)
{
    return view.characterRect(offset).center();
}

QByteArray described(TextRange range)
{
    return QByteArray::number(range.begin) + '-' + QByteArray::number(range.end);
}

bool hasColour(const QImage &image, const QRect &area, const QColor &colour)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.valid(x, y) && image.pixelColor(x, y).rgb() == colour.rgb())
                return true;
        }
    }
    return false;
}

QPalette darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Text, QColor(230, 230, 230));
    palette.setColor(QPalette::Highlight, QColor(40, 100, 200));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QPalette lightPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}

/// QTest::mouseMove() moves without a button.
void drag(TextView &view, QPointF point)
{
    QMouseEvent event(QEvent::MouseMove, point, Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view.viewport(), &event);
}

/// Sends many keys to a TextView and to a QPlainTextEdit and returns the first difference.
QByteArray firstDifference(const QByteArray &utf8, uint seed)
{
    struct Key
    {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    };
    static const Key keys[] = {
        {Qt::Key_Left, {}}, {Qt::Key_Right, {}}, {Qt::Key_Right, {}}, {Qt::Key_Up, {}}, {Qt::Key_Down, {}}, {Qt::Key_Home, {}}, {Qt::Key_End, {}}, {Qt::Key_Left, Qt::ControlModifier}, {Qt::Key_Right, Qt::ControlModifier}, {Qt::Key_Home, Qt::ControlModifier}, {Qt::Key_End, Qt::ControlModifier}, {Qt::Key_A, Qt::ControlModifier}};
    TextView view;
    view.setLines(TextLines(utf8));
    QPlainTextEdit edit;
    edit.setReadOnly(true);
    edit.setLineWrapMode(QPlainTextEdit::NoWrap);
    edit.setTextInteractionFlags(Qt::TextSelectableByKeyboard | Qt::TextSelectableByMouse);
    edit.setFont(view.font());
    edit.setTabStopDistance(8 * QFontMetricsF(view.font()).horizontalAdvance(QLatin1Char(' ')));
    const QString text = QString::fromUtf8(utf8);
    edit.setPlainText(text);
    view.resize(viewWidth, viewHeight);
    edit.resize(viewWidth, viewHeight); // not shown: a window takes seconds under Wine
    const auto offset = [&text](int unit) { return text.left(unit).toUtf8().size(); };
    for (int i = 0; i < 300; ++i) {
        seed = seed * 1103515245 + 12345;
        const Key &key = keys[(seed >> 16) % std::size(keys)];
        const bool select = (seed >> 24) % 3 == 0 && key.key != Qt::Key_A;
        const Qt::KeyboardModifiers modifiers = key.modifiers | (select ? Qt::ShiftModifier : Qt::NoModifier);
        QTest::keyClick(&view, key.key, modifiers);
        QTest::keyClick(&edit, key.key, modifiers);
        QTextCursor cursor = edit.textCursor();
        // QPlainTextEdit keeps the selection if the caret cannot move. The view ends it, as most editors do.
        if (!select && key.key != Qt::Key_A && view.selection().begin == view.selection().end && cursor.hasSelection()) {
            cursor.clearSelection();
            edit.setTextCursor(cursor);
        }
        const TextRange expected {offset(cursor.selectionStart()), offset(cursor.selectionEnd())};
        if (view.selection() != expected || view.caret() != offset(cursor.position()))
            return "key " + QByteArray::number(i) + ": " + QKeySequence(int(modifiers) | key.key).toString().toUtf8() + ": "
                + described(view.selection()) + " caret " + QByteArray::number(view.caret()) + " instead of " + described(expected)
                + " caret " + QByteArray::number(offset(cursor.position()));
    }
    return {};
}

} // namespace

void TextViewTest::columnsStandBelowOneAnother()
{
    TextView view;
    view.setLines(TextLines("iiii|\nWWWW|\n...."));
    show(view);
    QCOMPARE(view.characterRect(4).left(), view.characterRect(10).left());
}

void TextViewTest::keysMoveAsInAPlainTextEdit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("report") << QByteArray("Version (major.minor.build): \nFrom registry:     10.0.19045.3803\n\n  Disk C:\\ 100.9 GByte \n---\n");
    QTest::newRow("tabs") << QByteArray("\tone\ttwo\n\t\tthree\nfour\n");
    QTest::newRow("accents") << QByteArray("e\xCC\x81tude \xC3\xA9\nnai\xCC\x88ve cafe\xCC\x81\xCC\xA3\nx");
    QTest::newRow("East Asian") << QByteArray("a \xE7\xB3\xBB\xE7\xB5\xB1\xE8\xB3\x87\xE8\xA8\x8A b\nxxxxxxxxxxxxxx\n\xE3\x81\x82\xE3\x81\x84");
    QTest::newRow("surrogate pairs") << QByteArray("a\xF0\x9F\x98\x80\xF0\x90\x8C\xB0 b\n\xF0\x9F\x98\x80\nccc");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one letter") << QByteArray("a");
}

void TextViewTest::keysMoveAsInAPlainTextEdit()
{
    QFETCH(QByteArray, text);
    for (uint seed = 1; seed <= 3; ++seed)
        QCOMPARE(firstDifference(text, seed), QByteArray());
}

void TextViewTest::pagesScrollAndMove()
{
    TextView view;
    view.setLines(TextLines(numberedLines(1000)));
    show(view);
    const int rows = view.verticalScrollBar()->pageStep();
    QTest::keyClick(&view, Qt::Key_PageDown);
    QCOMPARE(view.lines().lineAt(view.caret()), rows - 1);
    QCOMPARE(view.verticalScrollBar()->value(), rows - 1);
    QTest::keyClick(&view, Qt::Key_PageDown, Qt::ShiftModifier);
    QCOMPARE(view.lines().lineAt(view.selection().end), 2 * (rows - 1));
    QCOMPARE(view.lines().lineAt(view.selection().begin), rows - 1);
    QTest::keyClick(&view, Qt::Key_PageUp);
    QTest::keyClick(&view, Qt::Key_PageUp);
    QCOMPARE(view.caret(), 0);
    QCOMPARE(view.verticalScrollBar()->value(), 0);
    QTest::keyClick(&view, Qt::Key_Space);
    QCOMPARE(view.lines().lineAt(view.caret()), rows - 1);
    QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
    QVERIFY(view.viewport()->rect().contains(view.characterRect(view.caret())));
}

void TextViewTest::longLinesGoOn()
{
    TextView view;
    const int longest = TextRows::longestRow;
    view.setLines(TextLines(QByteArray(2 * longest, 'x') + "\nend"));
    show(view);
    QTest::keyClick(&view, Qt::Key_End);
    QCOMPARE(view.caret(), longest - 1);
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.caret(), longest); // the next row
    QTest::keyClick(&view, Qt::Key_Left);
    QCOMPARE(view.caret(), longest - 1);
    QTest::keyClick(&view, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(view.caret(), longest);
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(view.caret(), 2 * longest + 1);
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(view.selectedBytes(), view.lines().text()); // no line end was added
}

void TextViewTest::clickAndDragSelect()
{
    TextView view;
    view.setLines(TextLines("one two\nthree four\n"));
    show(view);
    QSignalSpy moved(&view, &TextView::caretMoved), selected(&view, &TextView::selectionChanged);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, leftOf(view, 4));
    QCOMPARE(view.caret(), 4);
    QCOMPARE(moved.count(), 1);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, leftOf(view, 14));
    QCOMPARE(described(view.selection()), QByteArray("4-14"));
    QCOMPARE(view.selectedBytes(), QByteArray("two\nthree "));
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, leftOf(view, 10));
    drag(view, leftOf(view, 2));
    QCOMPARE(described(view.selection()), QByteArray("2-10"));
    QCOMPARE(view.caret(), 2);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, leftOf(view, 2));
    QTest::mouseMove(view.viewport(), leftOf(view, 14));
    QCOMPARE(view.caret(), 2); // no button
    QVERIFY(selected.count() >= 3);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {viewWidth / 2, viewHeight - 40}); // below the text
    QCOMPARE(view.caret(), view.lines().text().size());
}

void TextViewTest::doubleClickSelectsWords_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("word") << QByteArray("one two three") << 5 << QByteArray("two");
    QTest::newRow("last letter") << QByteArray("one two three") << 6 << QByteArray("two");
    QTest::newRow("version") << QByteArray("v 10.0.19045 x") << 5 << QByteArray("10.0.19045");
    QTest::newRow("spaces") << QByteArray("one    two") << 4 << QByteArray("    ");
    QTest::newRow("accent") << QByteArray("a cafe\xCC\x81s b") << 3 << QByteArray("cafe\xCC\x81s");
    QTest::newRow("first of a line") << QByteArray("one\ntwo\n") << 4 << QByteArray("two");
}

void TextViewTest::doubleClickSelectsWords()
{
    QFETCH(QByteArray, text);
    QFETCH(int, offset);
    TextView view;
    view.setLines(TextLines(text));
    show(view);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middleOf(view, offset));
    QTEST(view.selectedBytes(), "expected");
}

void TextViewTest::dragAfterDoubleClickSelectsWords()
{
    TextView view;
    view.setLines(TextLines("one two three four"));
    show(view);
    QMouseEvent press(QEvent::MouseButtonDblClick, middleOf(view, 5), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view.viewport(), &press);
    drag(view, middleOf(view, 10));
    QCOMPARE(view.selectedBytes(), QByteArray("two three"));
    drag(view, middleOf(view, 1));
    QCOMPARE(view.selectedBytes(), QByteArray("one two"));
    QCOMPARE(view.caret(), 0);
}

void TextViewTest::tripleClickSelectsTheLine()
{
    TextView view;
    view.setLines(TextLines("one\r\ntwo words\r\nthree"));
    show(view);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middleOf(view, 6));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middleOf(view, 6));
    QCOMPARE(view.selectedBytes(), QByteArray("two words\r\n"));
}

void TextViewTest::otherButtonsSelectNothing()
{
    TextView view;
    view.setLines(TextLines("one two three"));
    show(view);
    view.setSelection({4, 7});
    for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::RightButton}) {
        QTest::mouseClick(view.viewport(), button, {}, leftOf(view, 1));
        QTest::mouseDClick(view.viewport(), button, {}, leftOf(view, 1));
        QCOMPARE(described(view.selection()), QByteArray("4-7"));
    }
}

void TextViewTest::dragOutsideScrolls()
{
    TextView view;
    view.setLines(TextLines(numberedLines(1000)));
    show(view);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, leftOf(view, 0));
    drag(view, {10, viewHeight + 50});
    QTRY_VERIFY(view.verticalScrollBar()->value() > 20);
    QVERIFY(view.lines().lineAt(view.caret()) > 20);
    QCOMPARE(view.selection().begin, 0);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, {10, viewHeight + 50});
    const int value = view.verticalScrollBar()->value();
    QTest::qWait(150);
    QCOMPARE(view.verticalScrollBar()->value(), value);
}

void TextViewTest::selectionHasTheBytes()
{
    const QByteArray text("no\xC2\xA0"
                          "break\r\n\xFF\xFE\0end\r",
                          17);
    TextView view;
    view.setLines(TextLines(text));
    view.selectAll();
    QCOMPARE(view.selectedBytes(), text);
    QCOMPARE(view.caret(), text.size());
    view.setSelection({100, 50});
    QCOMPARE(view.selectedBytes(), QByteArray());
    view.setSelection({-5, 3});
    QCOMPARE(described(view.selection()), QByteArray("0-4")); // the whole no-break space
}

void TextViewTest::placesAreNeverInsideACharacter()
{
    TextView view;
    view.setLines(TextLines("a\xF0\x9F\x98\x80z"));
    view.setCaret(3);
    QCOMPARE(view.caret(), 1);
    view.setSelection({2, 4});
    QCOMPARE(described(view.selection()), QByteArray("1-5"));
    view.setCaret(6, true);
    QCOMPARE(described(view.selection()), QByteArray("1-6"));
}

void TextViewTest::mimeDataChangesNothing()
{
    const QByteArray bytes = "a\xC2\xA0"
                             "b\r\nc\rd\n\xFF"
                             "e";
    const QScopedPointer<QMimeData> data(TextView::toMimeData(bytes));
    QCOMPARE(data->text(), QStringLiteral("a\u00A0b\r\nc\rd\n\uFFFDe"));
    QCOMPARE(data->data(QStringLiteral("text/plain;charset=utf-8")), bytes);
    QVERIFY(data->hasText());
    QVERIFY(!data->hasHtml());
    QVERIFY(!data->hasUrls());
    QCOMPARE(TextMimeData(bytes, {4, 8}).text(), QStringLiteral("\r\nc\r"));
}

void TextViewTest::copyIsRequested()
{
    TextView view;
    view.setLines(TextLines("one"));
    show(view);
    QSignalSpy requested(&view, &TextView::copyRequested);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(requested.count(), 1);
    QTest::keyClick(&view, Qt::Key_C);
    QCOMPARE(requested.count(), 1);
}

void TextViewTest::showRangeScrolls()
{
    TextView view;
    QByteArray text = numberedLines(1000);
    const int begin = text.indexOf("line 500\n");
    text.insert(begin + 5, QByteArray(300, ' '));
    view.setLines(TextLines(text));
    show(view);
    view.showRange({begin + 305, begin + 308});
    QCOMPARE(view.selectedBytes(), QByteArray("500"));
    QVERIFY(view.viewport()->rect().contains(view.characterRect(begin + 305)));
    QVERIFY(view.viewport()->rect().contains(view.characterRect(begin + 307)));
    QVERIFY(view.horizontalScrollBar()->value() > 0);
    const int top = view.verticalScrollBar()->value();
    view.showRange({begin, begin + 4});
    QCOMPARE(view.verticalScrollBar()->value(), top); // it was visible
    QCOMPARE(view.horizontalScrollBar()->value(), 0);
    view.scrollToTop(0);
    QCOMPARE(view.verticalScrollBar()->value(), 0);
    QCOMPARE(view.selectedBytes(), QByteArray("line"));
}

void TextViewTest::zoom()
{
    TextView view;
    view.setLines(TextLines(numberedLines(1000)));
    show(view);
    view.scrollToTop(view.lines().line(500).begin);
    const qreal usual = view.font().pointSizeF();
    QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(view.font().pointSizeF(), usual + 1);
    QCOMPARE(view.verticalScrollBar()->value(), 500);
    QTest::keyClick(&view, Qt::Key_Minus, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(view.font().pointSizeF(), usual - 1);
    QTest::keyClick(&view, Qt::Key_0, Qt::ControlModifier | Qt::AltModifier); // AltGr
    QCOMPARE(view.font().pointSizeF(), usual - 1);
    QTest::keyClick(&view, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(view.font().pointSizeF(), usual);
    const auto turnWheel = [&view](int eighths) {
        QWheelEvent event(QPointF(5, 5), view.viewport()->mapToGlobal(QPoint(5, 5)), {}, {0, eighths}, {}, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view.viewport(), &event);
    };
    turnWheel(60); // half a step
    QCOMPARE(view.font().pointSizeF(), usual);
    turnWheel(60);
    QCOMPARE(view.font().pointSizeF(), usual + 1);
    turnWheel(-240);
    QCOMPARE(view.font().pointSizeF(), usual - 1);
    for (int i = 0; i < 200; ++i)
        view.zoomOut();
    QVERIFY(view.font().pointSizeF() >= 1);
}

void TextViewTest::hoverTextIsPlain()
{
    TextView view;
    view.setLines(TextLines("one two\n"));
    show(view);
    QList<int> asked;
    view.setHoverText([&asked](int offset) {
        asked << offset;
        return offset >= 4 ? QStringLiteral("<img src=\"http://example.com/x.png\">&amp;") : QString();
    });
    const auto hover = [&view](QPoint point) {
        QHelpEvent event(QEvent::ToolTip, point, view.viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(view.viewport(), &event);
    };
    hover(middleOf(view, 5));
    QCOMPARE(asked, QList<int> {5});
    QVERIFY(QToolTip::isVisible());
    QVERIFY(!QToolTip::text().contains(QLatin1String("<img")));
    QTextDocument document;
    document.setHtml(QToolTip::text());
    QCOMPARE(document.toPlainText(), QStringLiteral("<img src=\"http://example.com/x.png\">&amp;"));
    hover(middleOf(view, 1));
    QCOMPARE(asked, (QList<int> {5, 1}));
    QTRY_VERIFY(!QToolTip::isVisible());
    hover({viewWidth / 2, 5}); // beside the text
    hover({5, viewHeight - 50});
    QCOMPARE(asked, (QList<int> {5, 1}));
}

void TextViewTest::contextMenu()
{
    TextView view;
    view.setLines(TextLines("one two\n"));
    show(view);
    QSignalSpy requested(&view, &TextView::contextMenuRequested);
    const QPoint point = leftOf(view, 4);
    QContextMenuEvent mouse(QContextMenuEvent::Mouse, point, view.viewport()->mapToGlobal(point));
    QCoreApplication::sendEvent(view.viewport(), &mouse);
    QCOMPARE(requested.count(), 1);
    QCOMPARE(requested.at(0).at(0).toPoint(), view.viewport()->mapToGlobal(point));
    QCOMPARE(requested.at(0).at(1).toInt(), 4);
    view.setCaret(2);
    QContextMenuEvent keyboard(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&view, &keyboard);
    QCOMPARE(requested.count(), 2);
    QCOMPARE(requested.at(1).at(1).toInt(), 2);
    QVERIFY(QRect(view.viewport()->mapToGlobal(QPoint()), view.viewport()->size()).contains(requested.at(1).at(0).toPoint()));
#ifndef Q_OS_WIN // where the system makes the event of the Menu key of it
    QTest::keyClick(&view, Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(requested.count(), 3);
    QCOMPARE(requested.at(2), requested.at(1));
#endif
}

void TextViewTest::marksAreDrawn_data()
{
    QTest::addColumn<TextMark>("mark");
    QTest::addColumn<QPalette>("palette");
    const struct
    {
        const char *name;
        TextMark mark;
    } rows[] = {{"hit", TextMark::Hit}, {"current hit", TextMark::CurrentHit}, {"replacement", TextMark::Replacement}, {"changed", TextMark::Changed}, {"added", TextMark::Added}, {"removed", TextMark::Removed}};
    for (const auto &row : rows) {
        QTest::addRow("%s, light", row.name) << row.mark << lightPalette();
        QTest::addRow("%s, dark", row.name) << row.mark << darkPalette();
    }
}

void TextViewTest::marksAreDrawn()
{
    QFETCH(TextMark, mark);
    QFETCH(QPalette, palette);
    TextView view;
    view.setPalette(palette);
    view.setLines(TextLines("zero\none two three\n"));
    show(view);
    view.setMarks(mark, {{0, 0}, {9, 12}});
    const MarkStyle style = markStyle(mark, palette);
    const QImage image = view.viewport()->grab().toImage();
    const QRect marked = view.characterRect(9).united(view.characterRect(11));
    QVERIFY(hasColour(image, marked, style.background));
    QVERIFY(hasColour(image, marked, style.lineColour));
    const QRect before = view.characterRect(5).united(view.characterRect(7));
    const QRect after = view.characterRect(13).united(view.characterRect(17));
    QVERIFY(!hasColour(image, before, style.background));
    QVERIFY(!hasColour(image, after, style.background));
    view.setMarks(mark, {});
    QVERIFY(!hasColour(view.viewport()->grab().toImage(), marked, style.background));
}

void TextViewTest::marksCanBeRead_data()
{
    QTest::addColumn<QColor>("base");
    QTest::addColumn<QColor>("text");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("dark") << QColor(30, 30, 30) << QColor(230, 230, 230);
    QTest::newRow("black") << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("high contrast") << QColor(Qt::black) << QColor(Qt::yellow);
    QTest::newRow("sepia") << QColor(253, 246, 227) << QColor(88, 110, 117);
    QTest::newRow("grey") << QColor(60, 60, 60) << QColor(200, 200, 200);
}

void TextViewTest::marksCanBeRead()
{
    QFETCH(QColor, base);
    QFETCH(QColor, text);
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    QSet<int> lines;
    for (const TextMark mark : textMarks) {
        const MarkStyle style = markStyle(mark, palette);
        QVERIFY2(contrast(text, style.background) >= 4.5, qPrintable(style.background.name()));
        QVERIFY2(contrast(base, style.lineColour) >= 3, qPrintable(style.lineColour.name()));
        QVERIFY(style.background != base);
        lines << int(style.line);
    }
    QCOMPARE(lines.size(), int(std::size(textMarks))); // nobody needs to distinguish the colours
    QCOMPARE(qRound(contrast(Qt::white, Qt::black)), 21);
    QCOMPARE(contrast(base, base), 1.0);
}

void TextViewTest::controlCharactersAreVisible_data()
{
    QTest::addColumn<QByteArray>("character");
    QTest::newRow("null") << QByteArray(1, '\0');
    QTest::newRow("escape") << QByteArray("\x1B");
    QTest::newRow("backspace") << QByteArray("\b");
    QTest::newRow("delete") << QByteArray("\x7F");
    QTest::newRow("next line") << QByteArray("\xC2\x85");
    QTest::newRow("line separator") << QByteArray("\xE2\x80\xA8");
    QTest::newRow("right-to-left override") << QByteArray("\xE2\x80\xAE");
    QTest::newRow("isolate") << QByteArray("\xE2\x81\xA6");
    QTest::newRow("no UTF-8") << QByteArray("\xFF");
}

void TextViewTest::controlCharactersAreVisible()
{
    QFETCH(QByteArray, character);
    TextView view;
    view.setPalette(lightPalette());
    view.setLines(TextLines("ab" + character + "cd"));
    show(view);
    const QRect sign = view.characterRect(2);
    QVERIFY(sign.width() >= view.characterRect(0).width() / 2);
    QVERIFY(hasColour(view.viewport()->grab().toImage(), sign, Qt::black));
    QVERIFY(view.characterRect(2 + character.size()).left() >= sign.right() - 1);
    view.setCaret(2);
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.caret(), 2 + character.size());
    view.selectAll();
    QCOMPARE(view.selectedBytes(), "ab" + character + "cd");
}

void TextViewTest::directionalOverridesHaveNoEffect()
{
    TextView view;
    view.setLines(TextLines("a\xE2\x80\xAE"
                            "exe.txt"));
    show(view);
    for (int offset = 5; offset < 11; ++offset)
        QVERIFY(view.characterRect(offset).left() > view.characterRect(offset - 1).left());
}

void TextViewTest::rightToLeftTextIsSelectedWhereItIs()
{
    const QByteArray hebrew = "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"; // four letters of two bytes
    TextView view;
    view.setPalette(lightPalette());
    view.setLines(TextLines("ab " + hebrew + " cd"));
    show(view);
    QVERIFY(view.characterRect(3).left() > view.characterRect(5).left()); // the first letter is at the right
    QVERIFY(view.characterRect(3).right() <= view.characterRect(12).left() + 1);
    view.setMarks(TextMark::Added, {{3, 5}});
    const QColor background = markStyle(TextMark::Added, lightPalette()).background;
    const QImage image = view.viewport()->grab().toImage();
    QVERIFY(hasColour(image, view.characterRect(3), background));
    QVERIFY(!hasColour(image, view.characterRect(7), background));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {view.characterRect(7).left() + 1, view.characterRect(7).center().y()});
    QCOMPARE(view.caret(), 9); // at the left of the letter is its end
}

void TextViewTest::rightToLeftWindowKeepsTheLeftEdge()
{
    TextView view;
    view.setLayoutDirection(Qt::RightToLeft);
    view.setLines(TextLines(QByteArray(500, 'x')));
    show(view);
    QVERIFY(view.horizontalScrollBar()->maximum() > 0);
    QVERIFY(view.viewport()->rect().contains(view.characterRect(0)));
    QCOMPARE(view.horizontalScrollBar()->layoutDirection(), Qt::LeftToRight);
    const auto *const strip = view.findChild<MarkStrip *>();
    QVERIFY(strip->geometry().right() <= view.viewport()->geometry().left()); // beside the scroll bar, which is at the left
}

void TextViewTest::stripShowsMarks()
{
    TextView view;
    view.setPalette(lightPalette());
    view.setLines(TextLines(numberedLines(10000)));
    show(view);
    const auto *const strip = view.findChild<MarkStrip *>();
    QVERIFY(strip && strip->isVisible());
    QVERIFY(strip->geometry().left() >= view.viewport()->geometry().right());
    const QColor colour = markStyle(TextMark::Replacement, lightPalette()).lineColour;
    const auto marked = [strip, colour](double from, double to) {
        const QRect area(0, int(strip->height() * from), strip->width(), int(strip->height() * (to - from)));
        return hasColour(const_cast<MarkStrip *>(strip)->grab().toImage(), area, colour);
    };
    QVERIFY(!marked(0, 1));
    const int begin = view.lines().line(7500).begin;
    view.setMarks(TextMark::Replacement, {{begin, begin + 4}});
    QVERIFY(marked(0.73, 0.77));
    QVERIFY(!marked(0, 0.73));
    QVERIFY(!marked(0.77, 1));
}

void TextViewTest::clickOnTheStripScrolls()
{
    TextView view;
    view.setLines(TextLines(numberedLines(10000)));
    show(view);
    auto *const strip = view.findChild<MarkStrip *>();
    QTest::mouseClick(strip, Qt::LeftButton, {}, {1, strip->height() / 2});
    QVERIFY(qAbs(view.verticalScrollBar()->value() - 5000) < 60);
    QCOMPARE(view.caret(), 0);
}

void TextViewTest::caretIsVisibleWithFocus()
{
    TextView view;
    view.setPalette(lightPalette());
    view.setLines(TextLines("\n\n\n"));
    show(view);
    view.clearFocus();
    const auto caretSeen = [&view] { return hasColour(view.viewport()->grab().toImage(), view.viewport()->rect(), Qt::black); };
    QVERIFY(!caretSeen());
    view.activateWindow();
    view.setFocus();
    QTRY_VERIFY(view.hasFocus());
    QTest::keyClick(&view, Qt::Key_Down);
    QVERIFY(caretSeen());
}

void TextViewTest::otherTextHasNoMarksAndNoSelection()
{
    TextView view;
    view.setPalette(lightPalette());
    view.setLines(TextLines(numberedLines(1000)));
    show(view);
    view.setMarks(TextMark::Added, {{0, 1000}});
    view.showRange({5000, 5010});
    QSignalSpy changed(&view, &TextView::linesChanged);
    view.setLines(TextLines("short"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(view.caret(), 0);
    QCOMPARE(described(view.selection()), QByteArray("0-0"));
    QCOMPARE(view.verticalScrollBar()->maximum(), 0);
    QVERIFY(!hasColour(view.viewport()->grab().toImage(), view.viewport()->rect(),
                       markStyle(TextMark::Added, lightPalette()).background));
}

void TextViewTest::largeTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("one line") << QByteArray(10000000, 'x');
    QTest::newRow("empty lines") << QByteArray(10000000, '\n');
    QTest::newRow("no UTF-8") << QByteArray(1000000, '\xFF');
    QTest::newRow("right to left") << QByteArray("\xD7\xA9").repeated(500000);
    QTest::newRow("accents") << QByteArray("\xCC\x81").repeated(500000);
    QTest::newRow("signs") << QByteArray(1000000, '\x01');
    QTest::newRow("tabs") << QByteArray(1000000, '\t');
}

void TextViewTest::largeTexts()
{
    QFETCH(QByteArray, text);
    TextView view;
    view.setLines(TextLines(text));
    show(view);
    view.setMarks(TextMark::Hit, {{0, text.size()}});
    QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(view.caret(), text.size());
    view.viewport()->repaint();
    QTest::keyClick(&view, Qt::Key_PageUp);
    QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier);
    QVERIFY(view.caret() < text.size());
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum() / 2);
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    view.viewport()->repaint();
    QCOMPARE(view.selectedBytes().size(), text.size());
}

TEST_WITH_APPLICATION(TextViewTest);

#include "tst_text_view.moc"
