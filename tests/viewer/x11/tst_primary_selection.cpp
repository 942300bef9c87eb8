// The selection of the text view is the primary selection of the X server.

#include "test_main.h"
#include "text/text_view.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>

class PrimarySelectionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keyboardPublishes();
    void mousePublishesAtTheEnd();
    void clickKeepsWhatOthersSelected();
};

namespace {

QString primary()
{
    return QApplication::clipboard()->text(QClipboard::Selection);
}

} // namespace

void PrimarySelectionTest::init()
{
    QVERIFY(QApplication::clipboard()->supportsSelection());
    QApplication::clipboard()->setText(QStringLiteral("of another"), QClipboard::Selection);
}

void PrimarySelectionTest::keyboardPublishes()
{
    TextView view;
    view.setLines(TextLines("one\xC2\xA0two\r\nthree"));
    view.show();
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(primary(), QStringLiteral("one\u00A0two\r\nthree"));
    QTest::keyClick(&view, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(primary(), QStringLiteral("o"));
}

void PrimarySelectionTest::mousePublishesAtTheEnd()
{
    TextView view;
    view.setLines(TextLines("one two"));
    view.show();
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, view.characterRect(0).center() - QPoint(2, 0));
    QMouseEvent move(QEvent::MouseMove, view.characterRect(4).center() - QPoint(2, 0), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view.viewport(), &move);
    QCOMPARE(primary(), QStringLiteral("of another"));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, view.characterRect(4).center() - QPoint(2, 0));
    QCOMPARE(primary(), QStringLiteral("one "));
}

void PrimarySelectionTest::clickKeepsWhatOthersSelected()
{
    TextView view;
    view.setLines(TextLines("one two"));
    view.show();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.characterRect(4).center());
    QCOMPARE(primary(), QStringLiteral("of another"));
}

TEST_WITH_APPLICATION(PrimarySelectionTest);

#include "tst_primary_selection.moc"
