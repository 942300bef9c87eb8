// qtCoreApplication(). Every row creates its own application object.

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#ifdef Q_OS_WIN
#  include <windows.h>
#else
#  include <unistd.h>
#endif

using namespace velkor::SystemInfo;

class QtCoreApplicationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void descriptions_data();
    void descriptions();
    void libraryPaths_data();
    void libraryPaths();
#ifndef Q_OS_WIN // on Windows Qt takes the name from the file of the program
    void emptyName();
#endif
    void pluginPathOfTheEnvironment();
};

namespace {

// The default name of the application is the base name of its first argument.
struct Application
{
    explicit Application(const char *firstArgument = "tst_qt_core_application")
        : argument(firstArgument)
    { }

    QByteArray argument;
    int argc = 1;
    char *argv[2] = {argument.data(), nullptr};
    QCoreApplication object {argc, argv};
};

#ifdef Q_OS_WIN

QString programFile()
{
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return QString::fromWCharArray(path).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

qint64 processId()
{
    return GetCurrentProcessId();
}

#else

QString programFile()
{
    return QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
}

qint64 processId()
{
    return getpid();
}

#endif

QString folderOf(const QString &file)
{
    return file.left(file.lastIndexOf(QLatin1Char('/')));
}

/// The lines about the file of the program and the process.
QString programLines()
{
    return QStringLiteral("Application DirPath:  ") + folderOf(programFile()) + QStringLiteral("\nApplication FilePath: ")
        + programFile() + QStringLiteral("\nApplication PID:      ") + QString::number(processId()) + QLatin1Char('\n');
}

/// The lines up to the application's name if only the name is set.
QString linesUpToName(const QString &name)
{
    return QStringLiteral("QCoreApplication:\n"
                          "Application Version:  \n"
                          "Application Name:     ")
        + name + QLatin1Char('\n');
}

const char noOrganization[] = "Organization Domain:  \n"
                              "Organization Name:    \n";

} // namespace

void QtCoreApplicationTest::descriptions_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("organization");
    QTest::addColumn<QString>("firstLines");
    QTest::addColumn<QString>("organizationLines");

    QTest::newRow("all properties")
        << "2.10.1"
        << "Plant Viewer"
        << "example.com"
        << "Example & Sons"
        << "QCoreApplication:\n"
           "Application Version:  2.10.1\n"
           "Application Name:     Plant Viewer\n"
        << "Organization Domain:  example.com\n"
           "Organization Name:    Example & Sons\n";
    QTest::newRow("empty properties: only the labels")
        << ""
        << "viewer"
        << ""
        << ""
        << "QCoreApplication:\n"
           "Application Version:  \n"
           "Application Name:     viewer\n"
        << "Organization Domain:  \n"
           "Organization Name:    \n";
    QTest::newRow("placeholders are not replaced")
        << "%1"
        << "%2 %99"
        << "%L1"
        << "%1%2"
        << "QCoreApplication:\n"
           "Application Version:  %1\n"
           "Application Name:     %2 %99\n"
        << "Organization Domain:  %L1\n"
           "Organization Name:    %1%2\n";
    QTest::newRow("blanks and line feeds are not removed")
        << " 1 "
        << "a\nb"
        << "  "
        << "b "
        << "QCoreApplication:\n"
           "Application Version:   1 \n"
           "Application Name:     a\nb\n"
        << "Organization Domain:    \n"
           "Organization Name:    b \n";
}

void QtCoreApplicationTest::descriptions()
{
    QFETCH(QString, version);
    QFETCH(QString, name);
    QFETCH(QString, domain);
    QFETCH(QString, organization);
    QFETCH(QString, firstLines);
    QFETCH(QString, organizationLines);
    const Application application;
    QCoreApplication::setApplicationVersion(version);
    QCoreApplication::setApplicationName(name);
    QCoreApplication::setOrganizationDomain(domain);
    QCoreApplication::setOrganizationName(organization);
    QCoreApplication::setLibraryPaths({QStringLiteral("/plugins")});
    COMPARE_TEXT(qtCoreApplication(),
                 firstLines + programLines() + organizationLines + QStringLiteral("Library Paths:        /plugins\n"));
}

void QtCoreApplicationTest::libraryPaths_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no path: only the label") << QStringList() << "Library Paths:        \n";
    QTest::newRow("one path") << QStringList({"/a"}) << "Library Paths:        /a\n";
    QTest::newRow("three paths: the second and third start after 22 blanks")
        << QStringList({"/usr/lib/plugins", "/b c", "/d"})
        << "Library Paths:        /usr/lib/plugins\n"
           "                      /b c\n"
           "                      /d\n";
    QTest::newRow("placeholders are not replaced")
        << QStringList({"/%1", "/%2"})
        << "Library Paths:        /%1\n"
           "                      /%2\n";
}

void QtCoreApplicationTest::libraryPaths()
{
    QFETCH(QStringList, paths);
    QFETCH(QString, expected);
    const Application application;
    QCoreApplication::setApplicationVersion(QString());
    QCoreApplication::setApplicationName(QStringLiteral("viewer"));
    QCoreApplication::setOrganizationDomain(QString());
    QCoreApplication::setOrganizationName(QString());
    QCoreApplication::setLibraryPaths(paths);
    COMPARE_TEXT(qtCoreApplication(),
                 linesUpToName(QStringLiteral("viewer")) + programLines() + QLatin1String(noOrganization) + expected);
}

#ifndef Q_OS_WIN

void QtCoreApplicationTest::emptyName()
{
    const Application application("");
    QCoreApplication::setApplicationVersion(QString());
    QCoreApplication::setApplicationName(QString());
    QCoreApplication::setLibraryPaths({});
    COMPARE_TEXT(qtCoreApplication(),
                 linesUpToName(QString()) + programLines() + QLatin1String(noOrganization)
                     + QStringLiteral("Library Paths:        \n"));
}

#endif

// Qt lists the folders of QT_PLUGIN_PATH first.
void QtCoreApplicationTest::pluginPathOfTheEnvironment()
{
    const Application application;
    const QTemporaryDir first;
    const QTemporaryDir second;
    const QString firstPath = QFileInfo(first.path()).canonicalFilePath();
    const QString secondPath = QFileInfo(second.path()).canonicalFilePath();
    const QString text = qt_environment::sectionText(
        QStringLiteral("qtCoreApplication"),
        {QStringLiteral("QT_PLUGIN_PATH=") + firstPath + QDir::listSeparator() + secondPath});
    QVERIFY2(text.contains(QStringLiteral("\nApplication Name:     section_child\n")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("\nLibrary Paths:        ") + firstPath
                           + QStringLiteral("\n                      ") + secondPath
                           + QStringLiteral("\n                      ")),
             qPrintable(text));
}

TEST_WITHOUT_APPLICATION(QtCoreApplicationTest);
#include "tst_qt_core_application.moc"
