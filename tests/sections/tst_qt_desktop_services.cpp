// qtDesktopServices(): text.

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtCore/QTemporaryDir>

#ifdef Q_OS_WIN
#  include <windows.h>

#  include <knownfolders.h>
#  include <shlobj.h>
#endif

using namespace velkor::SystemInfo;

class QtDesktopServicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labels();
#ifdef Q_OS_WIN
    void sameAsWindows();
#else
    void defaultFoldersOfAHome();
    void chosenFolders();
    void emptyLocation();
#endif
};

// Every label is 27 characters wide. The folders depend on the system.
void QtDesktopServicesTest::labels()
{
    const QStringList labels = {
        "Desktop:                   ",
        "Desktop [displayName]      ",
        "Documents:                 ",
        "Documents [displayName]    ",
        "Home:                      ",
        "Home [displayName]         ",
        "Data:                      ",
        "Data [displayName]         ",
        "Temp:                      ",
        "Temp [displayName]         ",
        "Applications:              ",
        "Applications [displayName] ",
        "Fonts:                     ",
        "Fonts [displayName]        ",
    };
    const QStringList lines = qtDesktopServices().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 17); // the last is the empty text after the last line feed
    QCOMPARE(lines.at(0), QStringLiteral("QDesktopServices"));
    QCOMPARE(lines.at(1), QStringLiteral("HomeLocation"));
    for (int i = 0; i < labels.size(); ++i)
        QCOMPARE(lines.at(i + 2).left(27), labels.at(i));
    QCOMPARE(lines.at(16), QString());
}

#ifdef Q_OS_WIN

namespace {

QString knownFolder(REFKNOWNFOLDERID id)
{
    wchar_t *path = nullptr;
    SHGetKnownFolderPath(id, KF_FLAG_DONT_VERIFY, nullptr, &path);
    const QString text = QString::fromWCharArray(path).replace(QLatin1Char('\\'), QLatin1Char('/'));
    CoTaskMemFree(path);
    return text;
}

QString temporaryFolder()
{
    wchar_t shortPath[MAX_PATH + 1] = {};
    wchar_t path[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, shortPath);
    GetLongPathNameW(shortPath, path, MAX_PATH + 1);
    QString text = QString::fromWCharArray(path).replace(QLatin1Char('\\'), QLatin1Char('/'));
    text.chop(1); // the path ends with a backslash
    return text;
}

} // namespace

void QtDesktopServicesTest::sameAsWindows()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Example"));
    QCoreApplication::setApplicationName(QStringLiteral("viewer"));
    COMPARE_TEXT(qtDesktopServices(),
                 "QDesktopServices\n"
                 "HomeLocation\n"
                 "Desktop:                   "
                     + knownFolder(FOLDERID_Desktop) + "\n"
                                                       "Desktop [displayName]      Desktop\n"
                                                       "Documents:                 "
                     + knownFolder(FOLDERID_Documents) + "\n"
                                                         "Documents [displayName]    Documents\n"
                                                         "Home:                      "
                     + knownFolder(FOLDERID_Profile) + "\n"
                                                       "Home [displayName]         Home\n"
                                                       "Data:                      "
                     + knownFolder(FOLDERID_LocalAppData) + "/Example/viewer\n"
                                                            "Data [displayName]         Application Data\n"
                                                            "Temp:                      "
                     + temporaryFolder() + "\n"
                                           "Temp [displayName]         Temporary Directory\n"
                                           "Applications:              "
                     + knownFolder(FOLDERID_Programs) + "\n"
                                                        "Applications [displayName] Applications\n"
                                                        "Fonts:                     "
                     + knownFolder(FOLDERID_Fonts) + "\n"
                                                     "Fonts [displayName]        Fonts\n");
}

#else

void QtDesktopServicesTest::defaultFoldersOfAHome()
{
    const QTemporaryDir folder;
    const QString home = folder.path();
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtDesktopServices"), {"HOME=" + home}),
                 "QDesktopServices\n"
                 "HomeLocation\n"
                 "Desktop:                   "
                     + home + "/Desktop\n"
                              "Desktop [displayName]      Desktop\n"
                              "Documents:                 "
                     + home + "/Documents\n"
                              "Documents [displayName]    Documents\n"
                              "Home:                      "
                     + home + "\n"
                              "Home [displayName]         Home\n"
                              "Data:                      "
                     + home + "/.local/share/section_child\n"
                              "Data [displayName]         Application Data\n"
                              "Temp:                      /tmp\n"
                              "Temp [displayName]         Temporary Directory\n"
                              "Applications:              "
                     + home + "/.local/share/applications\n"
                              "Applications [displayName] Applications\n"
                              "Fonts:                     "
                     + home + "/.local/share/fonts\n"
                              "Fonts [displayName]        Fonts\n");
}

// Every folder is configured, with placeholders and blanks in its path.
void QtDesktopServicesTest::chosenFolders()
{
    const QTemporaryDir folder;
    const QString scratch = folder.filePath("%L1");
    QVERIFY(QDir().mkdir(scratch)); // Qt checks that it exists
    QFile settings(folder.filePath("user-dirs.dirs"));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.write("XDG_DESKTOP_DIR=\"$HOME/my desk\"\nXDG_DOCUMENTS_DIR=\"/papers/%1\"\n");
    settings.close();
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtDesktopServices"),
                                             {"HOME=/nobody/%2", "XDG_CONFIG_HOME=" + folder.path(),
                                              "XDG_DATA_HOME=/data/%1", "TMPDIR=" + scratch}),
                 "QDesktopServices\n"
                 "HomeLocation\n"
                 "Desktop:                   /nobody/%2/my desk\n"
                 "Desktop [displayName]      Desktop\n"
                 "Documents:                 /papers/%1\n"
                 "Documents [displayName]    Documents\n"
                 "Home:                      /nobody/%2\n"
                 "Home [displayName]         Home\n"
                 "Data:                      /data/%1/section_child\n"
                 "Data [displayName]         Application Data\n"
                 "Temp:                      "
                     + scratch + "\n"
                                 "Temp [displayName]         Temporary Directory\n"
                                 "Applications:              /data/%1/applications\n"
                                 "Applications [displayName] Applications\n"
                                 "Fonts:                     /data/%1/fonts\n"
                                 "Fonts [displayName]        Fonts\n");
}

void QtDesktopServicesTest::emptyLocation()
{
    const QString text = qt_environment::sectionText(QStringLiteral("qtDesktopServices"), {"TMPDIR=/no such folder"});
    QVERIFY2(text.contains("\nTemp:                      \nTemp [displayName]         Temporary Directory\n"),
             qPrintable(text));
}

#endif

TEST_WITH_CORE_APPLICATION(QtDesktopServicesTest);
#include "tst_qt_desktop_services.moc"
