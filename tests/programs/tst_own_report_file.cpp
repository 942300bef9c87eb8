// The file that vkreport writes after a double click: apps/vkreport/own_console.h.

#include "own_console.h"
#include "test_main.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <memory>

class OwnReportFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void computer_data();
    void computer();
    void date();
    void existing();
    void existingFolder();
#ifdef Q_OS_UNIX
    void existingLink();
    void noConsole();
#endif

private:
    QString name(const QString &computer = QStringLiteral("PC")) const
    {
        return ownReportFileName(m_folder->path(), computer, QDate(2026, 3, 7));
    }
    QString path(const char *file) const { return m_folder->filePath(QString::fromLatin1(file)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

bool makeFile(const QString &name)
{
    return QFile(name).open(QIODevice::WriteOnly | QIODevice::NewOnly);
}

} // namespace

void OwnReportFileTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void OwnReportFileTest::computer_data()
{
    QTest::addColumn<QString>("computer");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *title, const QString &computer, const QString &expected) {
        QTest::newRow(title) << computer << expected;
    };
    row("letters and digits", "DESKTOP-7F3K2", "vkreport-DESKTOP-7F3K2-2026-03-07.txt");
    row("not ASCII", QString::fromUtf8("Büro-Ω"), QString::fromUtf8("vkreport-Büro-Ω-2026-03-07.txt"));
    row("every invalid character", "a<b>c:d\"e/f\\g|h?i*j", "vkreport-a_b_c_d_e_f_g_h_i_j-2026-03-07.txt");
    row("control characters", "a\tb\nc\x01\x1f", "vkreport-a_b_c__-2026-03-07.txt");
    row("a zero byte", QString(QChar(0)), "vkreport-_-2026-03-07.txt");
    row("folder above", "..\\..", "vkreport-.._..-2026-03-07.txt");
    row("a place of arguments", "%1%2%99", "vkreport-%1%2%99-2026-03-07.txt");
    row("valid punctuation", "a b.c;d'e%f~g{h}", "vkreport-a b.c;d'e%f~g{h}-2026-03-07.txt");
    row("no name", QString(), "vkreport--2026-03-07.txt");
}

void OwnReportFileTest::computer()
{
    QFETCH(QString, computer);
    QFETCH(QString, expected);
    const QString file = name(computer);
    QCOMPARE(file, m_folder->path() + '/' + expected);
    QVERIFY(makeFile(file));
    QVERIFY(QFile::remove(file));
}

void OwnReportFileTest::date()
{
    QCOMPARE(ownReportFileName(m_folder->path(), "PC", QDate(2031, 12, 25)), path("vkreport-PC-2031-12-25.txt"));
    QCOMPARE(ownReportFileName(m_folder->path() + '/', "PC", QDate(2031, 12, 25)), path("vkreport-PC-2031-12-25.txt"));
}

void OwnReportFileTest::existing()
{
    QVERIFY(makeFile(path("vkreport-PC-2026-03-06.txt")) && makeFile(path("vkreport-PC2-2026-03-07.txt")));
    QCOMPARE(name(), path("vkreport-PC-2026-03-07.txt"));
    QVERIFY(makeFile(path("vkreport-PC-2026-03-07.txt")));
    for (int number = 2; number <= 12; ++number) {
        const QString expected = path("vkreport-PC-2026-03-07-%1.txt").arg(number);
        QCOMPARE(name(), expected);
        QVERIFY(makeFile(expected));
    }
    QVERIFY(QFile::remove(path("vkreport-PC-2026-03-07-5.txt")));
    QCOMPARE(name(), path("vkreport-PC-2026-03-07-5.txt"));
}

void OwnReportFileTest::existingFolder()
{
    QVERIFY(QDir(m_folder->path()).mkdir("vkreport-PC-2026-03-07.txt"));
    QCOMPARE(name(), path("vkreport-PC-2026-03-07-2.txt"));
}

#ifdef Q_OS_UNIX
void OwnReportFileTest::existingLink()
{
    QVERIFY(QFile::link(path("missing"), path("vkreport-PC-2026-03-07.txt")));
    QCOMPARE(name(), path("vkreport-PC-2026-03-07-2.txt"));
}

void OwnReportFileTest::noConsole()
{
    QVERIFY(!hasConsoleOfItsOwn());
    waitForKey(); // returns
}
#endif

TEST_WITHOUT_APPLICATION(OwnReportFileTest);
#include "tst_own_report_file.moc"
