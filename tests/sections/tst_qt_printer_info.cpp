// qtPrinterInfo(), with a print server of the test, and on Windows compared with the results of the
// calls of Windows.

#include "test_main.h"
#include "texts.h"

#ifdef Q_OS_WIN
#  include "described_windows.h"
#  include "vkSystemInfo.h"
#  include <QtGui/QGuiApplication>
#  include <windows.h>
#  include <winspool.h>
#else
#  include "print_server.h"
#  include "section_process.h"
#  include <memory>
#endif

class QtPrinterInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef Q_OS_WIN
    void sameAsWindows();
    void printersInTheRegistry_data();
    void printersInTheRegistry();
#else
    void noServer();
    void text_data();
    void text();
    void instanceOfAPrinter();
#endif
};

#ifdef Q_OS_WIN

namespace {

/// The printers of this user in the order of EnumPrinters().
QStringList printers()
{
    constexpr DWORD kinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
    DWORD size = 0;
    DWORD count = 0;
    EnumPrintersW(kinds, nullptr, 2, nullptr, 0, &size, &count);
    QByteArray buffer(int(size), '\0');
    QStringList names;
    if (size == 0 || !EnumPrintersW(kinds, nullptr, 2, reinterpret_cast<BYTE *>(buffer.data()), size, &size, &count))
        return names;
    const auto information = reinterpret_cast<const PRINTER_INFO_2W *>(buffer.constData());
    for (DWORD i = 0; i < count; ++i)
        names += QString::fromWCharArray(information[i].pPrinterName);
    return names;
}

/// Null if there is none.
QString defaultPrinter()
{
    wchar_t name[256] = {};
    DWORD size = 256;
    return GetDefaultPrinterW(name, &size) ? QString::fromWCharArray(name) : QString();
}

QString textOfWindows()
{
    const QStringList names = printers();
    const QString standard = defaultPrinter();
    QString text("QPrinterInfo\nAvailable printers:\n");
    if (names.isEmpty())
        text += "    <None>\n";
    for (const QString &name : names)
        text += "   " + name + (name == standard ? "    [default printer]\n" : "\n");
    return text;
}

QByteArray printer(const QByteArray &name)
{
    return "[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\Print\\Printers\\" + name + "]\n"
                                                                                                 "\"Name\"=\""
        + name + "\"\n"
                 "\"Port\"=\"FILE:\"\n"
                 "\"Printer Driver\"=\"Described\"\n"
                 "\"Print Processor\"=\"WinPrint\"\n"
                 "\"Datatype\"=\"RAW\"\n"
                 "\"Attributes\"=dword:00000040\n"
                 "\"Status\"=dword:00000000\n";
}

QByteArray defaultDevice(const QByteArray &name)
{
    return "[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows]\n"
           "\"Device\"=\""
        + name + ",winspool,FILE:\"\n";
}

} // namespace

void QtPrinterInfoTest::sameAsWindows()
{
    COMPARE_TEXT(velkor::SystemInfo::qtPrinterInfo(), textOfWindows());
}

void QtPrinterInfoTest::printersInTheRegistry_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no printer") << QByteArray() << "QPrinterInfo\nAvailable printers:\n    <None>\n";
    QTest::newRow("one printer that is not the default")
        << printer("Alpha") << "QPrinterInfo\nAvailable printers:\n   Alpha\n";
    QTest::newRow("the default printer")
        << printer("Alpha") + defaultDevice("Alpha")
        << "QPrinterInfo\nAvailable printers:\n   Alpha    [default printer]\n";
    QTest::newRow("two printers, one of them the default")
        << printer("Alpha") + printer("Beta of 2") + defaultDevice("Beta of 2")
        << "QPrinterInfo\nAvailable printers:\n   Alpha\n   Beta of 2    [default printer]\n";
    QTest::newRow("a default printer that does not exist")
        << printer("Alpha") + defaultDevice("Beta") << "QPrinterInfo\nAvailable printers:\n   Alpha\n";
    QTest::newRow("placeholders and non-ASCII letters are shown unchanged")
        << printer("%1 \xc3\xa4") + printer("%L1 \xd0\x96") + defaultDevice("%L1 \xd0\x96")
        << QString::fromUtf8("QPrinterInfo\nAvailable printers:\n   %1 \xc3\xa4\n   %L1 \xd0\x96    [default printer]\n");
}

// Wine reads the registry in the process itself, Windows in the spooler.
void QtPrinterInfoTest::printersInTheRegistry()
{
    if (!GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version"))
        QSKIP("Windows does not read printers from the registry of this process");
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(velkor::SystemInfo::qtPrinterInfo(), expected);
    COMPARE_TEXT(textOfWindows(), expected);
}

#else

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
    QTest::newRow("placeholders are not replaced")
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

void QtPrinterInfoTest::instanceOfAPrinter()
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

#endif

#ifdef Q_OS_WIN
TEST_WITH_APPLICATION(QtPrinterInfoTest);
#else
TEST_WITH_CORE_APPLICATION(QtPrinterInfoTest);
#endif
#include "tst_qt_printer_info.moc"
