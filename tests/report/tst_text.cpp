// append(), appendLine() and appendSection(): texts and capacities.

#include "report/text.h"
#include "test_main.h"
#include "texts.h"

using namespace velkor::SystemInfo;

class TextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data();
    void lines();
    void capacityGrowsByAQuarter();
    void sectionIsSqueezed();
};

void TextTest::lines_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a label") << QByteArray("Model:     %1") << "P757"
                             << "Model:     P757\n";
    QTest::newRow("text after the value") << QByteArray("a %1 b%") << "x"
                                          << "a x b%\n";
    QTest::newRow("the value alone") << QByteArray("%1") << "x"
                                     << "x\n";
    QTest::newRow("no value") << QByteArray("a %1") << QString() << "a \n";
    QTest::newRow("a value with placeholders") << QByteArray("a %1") << "%1 %2 %L1"
                                               << "a %1 %2 %L1\n";
    QTest::newRow("a value with U+0000 and U+FEFF")
        << QByteArray("a %1") << QString(QChar(0xfeff) + QString(QChar(0)) + QLatin1Char('x'))
        << QString(QStringLiteral("a ") + QChar(0xfeff) + QChar(0) + QStringLiteral("x\n"));
}

void TextTest::lines()
{
    QFETCH(QByteArray, format);
    QFETCH(QString, value);
    QFETCH(QString, expected);
    QString text = QStringLiteral("before\n");
    appendLine(text, format.constData(), value);
    COMPARE_TEXT(text, QStringLiteral("before\n") + expected);
}

void TextTest::capacityGrowsByAQuarter()
{
    QString text;
    int most = 0; // capacity in percent of the size
    int growths = 0;
    for (int i = 0; i < 20000; ++i) {
        const int capacity = text.capacity();
        appendLine(text, "   Driver Version:     %1", QStringLiteral("31.0.101.2111"));
        growths += text.capacity() != capacity;
        if (text.size() > 1000)
            most = qMax(most, int(100LL * text.capacity() / text.size()));
    }
    QCOMPARE(text.size(), 20000 * (23 + 13 + 1));
    QVERIFY2(most <= 126, qPrintable(QString::number(most)));
    QVERIFY2(growths < 60, qPrintable(QString::number(growths))); // 36 from 256 to 740,000 units
}

void TextTest::sectionIsSqueezed()
{
    QString section = QString(1000, QLatin1Char('s'));
    section.reserve(100000);
    QString text = QStringLiteral("a");
    appendSection(text, section);
    appendSection(text, QString());
    COMPARE_TEXT(text, QLatin1Char('a') + QString(1000, QLatin1Char('s')));
    QCOMPARE(section.size(), 1000); // the argument is unchanged
    QVERIFY(text.capacity() < 1300);
}

TEST_WITH_CORE_APPLICATION(TextTest);
#include "tst_text.moc"
