// qtPrinterInfo(): text, with print servers of the test's own.

#include "print_server.h"
#include "section_process.h"
#include "test_main.h"
#include "texts.h"

#include <memory>

class QtPrinterInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noServer();
    void text_data();
    void text();
    void instance();
};

namespace {

const char noPrinter[] = "QPrinterInfo\n"
                         "Available printers:\n"
                         "    <None>\n";

QString printerInfo(const QStringList &environment)
{
    return qt_environment::sectionText(QStringLiteral("qtPrinterInfo"),
                                       environment + QStringList(QStringLiteral("QT_QPA_PLATFORM=offscreen")));
}

} // namespace

void QtPrinterInfoTest::noServer()
{
    const QTemporaryDir empty;
    COMPARE_TEXT(printerInfo({QStringLiteral("CUPS_SERVER=") + empty.filePath(QStringLiteral("socket")),
                              QStringLiteral("HOME=") + empty.path()}),
                 QLatin1String(noPrinter));
}

void QtPrinterInfoTest::text_data()
{
    QTest::addColumn<QStringList>("printers");
    QTest::addColumn<QString>("defaultPrinter");
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no printer") << QStringList() << QString() << QStringList() << noPrinter;
    QTest::newRow("one printer that is not the default")
        << QStringList({"alpha"}) << QString() << QStringList()
        << "QPrinterInfo\n"
           "Available printers:\n"
           "   alpha\n";
    QTest::newRow("the default printer")
        << QStringList({"alpha"}) << "alpha" << QStringList()
        << "QPrinterInfo\n"
           "Available printers:\n"
           "   alpha    [default printer]\n";
    QTest::newRow("two printers, one of them the default")
        << QStringList({"alpha", "beta"}) << "beta" << QStringList()
        << "QPrinterInfo\n"
           "Available printers:\n"
           "   alpha\n"
           "   beta    [default printer]\n";
    QTest::newRow("the default printer of the user")
        << QStringList({"alpha", "beta"}) << "beta" << QStringList({"LPDEST=alpha"})
        << "QPrinterInfo\n"
           "Available printers:\n"
           "   alpha    [default printer]\n"
           "   beta\n";
    QTest::newRow("placeholders stay")
        << QStringList({"%1", "%2-%L1"}) << "%2-%L1" << QStringList()
        << "QPrinterInfo\n"
           "Available printers:\n"
           "   %1\n"
           "   %2-%L1    [default printer]\n";
}

void QtPrinterInfoTest::text()
{
    QFETCH(QStringList, printers);
    QFETCH(QString, defaultPrinter);
    QFETCH(QStringList, environment);
    QFETCH(QString, expected);
    qt_environment::PrintServer server;
    for (const QString &printer : qAsConst(printers))
        server.addPrinter(printer);
    if (!defaultPrinter.isEmpty())
        server.setDefaultPrinter(defaultPrinter);
    QVERIFY2(server.error().isEmpty(), qPrintable(server.error()));
    COMPARE_TEXT(printerInfo(server.environment() + environment), expected);
}

void QtPrinterInfoTest::instance()
{
    qt_environment::PrintServer server;
    server.addPrinter(QStringLiteral("alpha"));
    server.addInstance(QStringLiteral("alpha"), QStringLiteral("drafts"));
    QVERIFY2(server.error().isEmpty(), qPrintable(server.error()));
    COMPARE_TEXT(printerInfo(server.environment()),
                 QStringLiteral("QPrinterInfo\n"
                                "Available printers:\n"
                                "   alpha\n"
                                "   alpha/drafts\n"));
}

TEST_WITH_CORE_APPLICATION(QtPrinterInfoTest);
#include "tst_qt_printer_info.moc"
