// qtGlobal(): text.

#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtCore/QLibraryInfo>

using namespace velkor::SystemInfo;

class QtGlobalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text();
};

// "Endianess" is the report's spelling. FOUND_QT_VERSION is what the build found.
void QtGlobalTest::text()
{
    COMPARE_TEXT(qtGlobal(),
                 QStringLiteral("Qt Global\n"
                                "Qt version this object was linked against: " FOUND_QT_VERSION "\n"
                                "Qt version currently used for execution:   ")
                     + QLibraryInfo::version().toString()
                     + QStringLiteral("\n"
                                      "Endianess detected by Qt:                  Little Endian\n"
                                      "Pointer size QSysInfo::Wordsize   64bits\n"
                                      "Pointer size QT_POINTER_SIZE      8bytes\n"));
}

TEST_WITHOUT_APPLICATION(QtGlobalTest);
#include "tst_qt_global.moc"
