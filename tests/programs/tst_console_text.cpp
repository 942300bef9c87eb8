// How text for a console of Windows is divided: apps/common/console_text.h.

#include "console_text.h"
#include "test_main.h"

class ConsoleTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pieces_data();
    void pieces();
};

namespace {

constexpr int limit = largestConsolePiece;
static_assert(limit * sizeof(char16_t) < 65536, "consoles before Windows 8 accept less than 64 KByte");

QString repeated(const QString &text, int length)
{
    return text.repeated(length / text.size() + 1).left(length);
}

} // namespace

void ConsoleTextTest::pieces_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<int>>("lengths");
    const QString pair = QString::fromUtf8("\xf0\x9f\x96\xa8"); // U+1F5A8
    const auto row = [](const char *name, const QString &text, const QVector<int> &lengths) {
        QTest::newRow(name) << text << lengths;
    };
    row("nothing", QString(), {});
    row("one character", QStringLiteral("x"), {1});
    row("exactly one piece", QString(limit, u'x'), {limit});
    row("one character more", QString(limit + 1, u'x'), {limit, 1});
    row("two and a half", QString(limit * 5 / 2, u'x'), {limit, limit, limit / 2});
    row("pair at the end of the text", QString(limit - 2, u'x') + pair, {limit});
    row("pair after a piece", QString(limit, u'x') + pair, {limit, 2});
    row("pair across the end", QString(limit - 1, u'x') + pair, {limit - 1, 2});
    row("pairs alone, the piece is even", repeated(pair, 2 * limit), {limit, limit});
    row("pairs across each end", QStringLiteral("x") + repeated(pair, 2 * limit), {limit - 1, limit, 2});
    row("half a pair at the end", QString(limit - 1, u'x') + QChar(0xd83d) + u'y', {limit, 1});
    row("half a pair after the end", QString(limit, u'x') + QChar(0xdda8), {limit, 1});
}

void ConsoleTextTest::pieces()
{
    QFETCH(QString, text);
    QFETCH(QVector<int>, lengths);
    QVector<int> found;
    int position = 0;
    while (position < text.size()) {
        const int length = consolePieceLength(text, position);
        QVERIFY(length > 0 && length <= text.size() - position);
        found.append(length);
        position += length;
    }
    QCOMPARE(found, lengths);
}

TEST_WITHOUT_APPLICATION(ConsoleTextTest);
#include "tst_console_text.moc"
