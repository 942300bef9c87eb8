// qtGlobal(), with the running Qt and with another version of it.

#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtCore/QLibraryInfo>

#ifndef Q_OS_WIN
#  include <dlfcn.h>
#endif

using namespace velkor::SystemInfo;

class QtGlobalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text();
#ifndef Q_OS_WIN
    void runningVersionDiffersFromTheLinkedOne();
#endif
};

#ifndef Q_OS_WIN

namespace {

const char *pretendedVersion = nullptr; // null: the real version

} // namespace

// The linker prefers this definition to that of QtCore.
const char *qVersion() noexcept
{
    using Function = const char *(*)();
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "qVersion"));
    return pretendedVersion ? pretendedVersion : real();
}

#endif

namespace {

// Quirk: "Endianess" is misspelled. FOUND_QT_VERSION is the version that CMake found.
QString textWith(const QString &runningVersion)
{
    return QStringLiteral("Qt Global\n"
                          "Qt version this object was linked against: " FOUND_QT_VERSION "\n"
                          "Qt version currently used for execution:   ")
        + runningVersion
        + QStringLiteral("\n"
                         "Endianess detected by Qt:                  Little Endian\n"
                         "Pointer size QSysInfo::Wordsize   64bits\n"
                         "Pointer size QT_POINTER_SIZE      8bytes\n");
}

} // namespace

void QtGlobalTest::text()
{
    COMPARE_TEXT(qtGlobal(), textWith(QLibraryInfo::version().toString()));
}

#ifndef Q_OS_WIN

void QtGlobalTest::runningVersionDiffersFromTheLinkedOne()
{
    pretendedVersion = "5.98.76";
    const QString text = qtGlobal();
    pretendedVersion = nullptr;
    COMPARE_TEXT(text, textWith(QStringLiteral("5.98.76")));
}

#endif

TEST_WITHOUT_APPLICATION(QtGlobalTest);
#include "tst_qt_global.moc"
