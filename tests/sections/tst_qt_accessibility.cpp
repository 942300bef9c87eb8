// qtAccessibility()

#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

using namespace velkor::SystemInfo;

class QtAccessibilityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
};

void QtAccessibilityTest::text_data()
{
    QTest::addColumn<bool>("isActive");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no assistive technology: 0")
        << false
        << "Qt Accessibility\n"
           "QAccessible::isActive() = 0\n";
    QTest::newRow("an assistive technology is active: 1")
        << true
        << "Qt Accessibility\n"
           "QAccessible::isActive() = 1\n";
}

// The platform plugin of Qt reports that an assistive technology is active.
void QtAccessibilityTest::text()
{
    QFETCH(bool, isActive);
    QFETCH(QString, expected);
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(isActive);
    COMPARE_TEXT(qtAccessibility(), expected);
}

TEST_WITH_APPLICATION(QtAccessibilityTest);
#include "tst_qt_accessibility.moc"
