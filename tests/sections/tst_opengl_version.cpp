// ScanOpenGLInfo as an exported class, GetOpenGLVersion() and GetOpenGLVersionCached().

#include "opengl/opengl_version.h"
#include "test_main.h"

#include <QtCore/QPointer>
#include <QtTest/QtTest>
#include <cstddef>
#include <limits>
#include <type_traits>

#ifdef SIMULATED_WINDOWS
#  include "version_flags.h"
#else
#  include <QtOpenGL/QGLFormat>
#  include <QtWidgets/QApplication>
#endif

using namespace velkor::SystemInfo;

class OpenGLVersionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObjectOfTheClass();
    void castByName();
    void metacallForwardsToQObject();
    void parentDeletesIt();
    void canBeDeletedThroughItsBase();
    void defaultRecord();
    void versionOfFlags_data();
    void versionOfFlags();
#ifdef SIMULATED_WINDOWS
    void probe_data();
    void probe();
    void cachedProbe();
#else
    void probesOfThisMachine();
#endif
};

// The layout that hosts are compiled with.
static_assert(std::is_base_of_v<QObject, ScanOpenGLInfo> && sizeof(ScanOpenGLInfo) == sizeof(QObject),
              "no data members");
static_assert(std::is_constructible_v<ScanOpenGLInfo, QObject *>, "a constructor with a parent");
static_assert(std::has_virtual_destructor_v<ScanOpenGLInfo>, "a virtual destructor");
static_assert(std::is_same_v<decltype(&ScanOpenGLInfo::GetOpenGLVersion), COpenGLVersionInfo (*)()>, "static");
static_assert(std::is_same_v<decltype(&ScanOpenGLInfo::GetOpenGLVersionCached), COpenGLVersionInfo (*)()>, "static");
static_assert(std::is_same_v<decltype(&ScanOpenGLInfo::GetOpenGLInfo), void (ScanOpenGLInfo::*)(QString &)>,
              "a member function");
static_assert(std::is_same_v<decltype(&ScanOpenGLInfo::GetOpenGLDriverInfo), QString (ScanOpenGLInfo::*)(QString &)>,
              "a member function");

static_assert(std::is_same_v<decltype(COpenGLVersionInfo::bDefault), bool>);
static_assert(std::is_same_v<decltype(COpenGLVersionInfo::nVersionFlags), qint32>);
static_assert(std::is_same_v<decltype(COpenGLVersionInfo::nMajor), qint32>);
static_assert(std::is_same_v<decltype(COpenGLVersionInfo::nMinor), qint32>);
static_assert(std::is_same_v<decltype(COpenGLVersionInfo::strVersion), QString>);
static_assert(offsetof(COpenGLVersionInfo, bDefault) == 0 && offsetof(COpenGLVersionInfo, nVersionFlags) == 4
                  && offsetof(COpenGLVersionInfo, nMajor) == 8 && offsetof(COpenGLVersionInfo, nMinor) == 12
                  && offsetof(COpenGLVersionInfo, strVersion) == 16
                  && sizeof(COpenGLVersionInfo) == 16 + sizeof(QString),
              "these fields in this order and no others");

namespace {

/// The five fields as one text.
QString shown(const COpenGLVersionInfo &info)
{
    const auto &[isDefault, flags, major, minor, name] = info;
    return QStringLiteral("%1 | %2 | %3 | %4 | %5")
        .arg(isDefault ? QStringLiteral("default") : QStringLiteral("probed"))
        .arg(flags)
        .arg(major)
        .arg(minor)
        .arg(name);
}

} // namespace

void OpenGLVersionTest::metaObjectOfTheClass()
{
    const ScanOpenGLInfo scan(nullptr);
    const QMetaObject *meta = scan.metaObject();
    QCOMPARE(meta, &ScanOpenGLInfo::staticMetaObject);
    QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
    QCOMPARE(QByteArray(meta->className()), QByteArray("velkor::SystemInfo::ScanOpenGLInfo"));
    QCOMPARE(meta->methodCount() - meta->methodOffset(), 0);
    QCOMPARE(meta->propertyCount() - meta->propertyOffset(), 0);
    QCOMPARE(meta->enumeratorCount() - meta->enumeratorOffset(), 0);
    QCOMPARE(meta->classInfoCount() - meta->classInfoOffset(), 0);
    QCOMPARE(meta->constructorCount(), 0);
}

void OpenGLVersionTest::castByName()
{
    ScanOpenGLInfo scan(nullptr);
    QCOMPARE(scan.qt_metacast("velkor::SystemInfo::ScanOpenGLInfo"), static_cast<void *>(&scan));
    QCOMPARE(scan.qt_metacast("QObject"), static_cast<void *>(static_cast<QObject *>(&scan)));
    QCOMPARE(scan.qt_metacast("ScanOpenGLInfo"), static_cast<void *>(nullptr));
    QCOMPARE(scan.qt_metacast(nullptr), static_cast<void *>(nullptr));
    QObject *object = &scan;
    QCOMPARE(qobject_cast<ScanOpenGLInfo *>(object), &scan);
    QCOMPARE(qobject_cast<ScanOpenGLInfo *>(static_cast<QObject *>(this)), static_cast<ScanOpenGLInfo *>(nullptr));
}

void OpenGLVersionTest::metacallForwardsToQObject()
{
    ScanOpenGLInfo scan(nullptr);
    const int methodsOfQObject = QObject::staticMetaObject.methodCount();
    QCOMPARE(scan.qt_metacall(QMetaObject::InvokeMetaMethod, methodsOfQObject + 3, nullptr), 3);
    QString name = QStringLiteral("a name");
    void *arguments[] = {&name};
    const int objectName = QObject::staticMetaObject.indexOfProperty("objectName");
    scan.qt_metacall(QMetaObject::WriteProperty, objectName, arguments);
    QCOMPARE(scan.objectName(), name);
}

void OpenGLVersionTest::parentDeletesIt()
{
    QPointer<ScanOpenGLInfo> scan;
    {
        QObject parent;
        scan = new ScanOpenGLInfo(&parent);
        QCOMPARE(scan->parent(), &parent);
    }
    QVERIFY(!scan);
}

void OpenGLVersionTest::canBeDeletedThroughItsBase()
{
    QObject *object = new ScanOpenGLInfo(nullptr);
    const QPointer<QObject> watched(object);
    QCOMPARE(object->parent(), static_cast<QObject *>(nullptr));
    delete object;
    QVERIFY(!watched);
}

void OpenGLVersionTest::defaultRecord()
{
    const COpenGLVersionInfo info;
    QCOMPARE(shown(info), QStringLiteral("default | 0 | -1 | -1 | "));
}

void OpenGLVersionTest::versionOfFlags_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("expected");

    QTest::newRow("4.3") << 0x80000 << "probed | 524288 | 4 | 3 | OpenGL 4.3";
    QTest::newRow("4.2") << 0x40000 << "probed | 262144 | 4 | 2 | OpenGL 4.2";
    QTest::newRow("4.1") << 0x20000 << "probed | 131072 | 4 | 1 | OpenGL 4.1";
    QTest::newRow("4.0") << 0x10000 << "probed | 65536 | 4 | 0 | OpenGL 4.0";
    QTest::newRow("3.3") << 0x8000 << "probed | 32768 | 3 | 3 | OpenGL 3.3";
    QTest::newRow("3.2") << 0x4000 << "probed | 16384 | 3 | 2 | OpenGL 3.2";
    QTest::newRow("3.1") << 0x2000 << "probed | 8192 | 3 | 1 | OpenGL 3.1";
    QTest::newRow("3.0") << 0x1000 << "probed | 4096 | 3 | 0 | OpenGL 3.0";
    QTest::newRow("2.1") << 0x40 << "probed | 64 | 2 | 1 | OpenGL 2.1";
    QTest::newRow("2.0") << 0x20 << "probed | 32 | 2 | 0 | OpenGL 2.0";
    QTest::newRow("1.5") << 0x10 << "probed | 16 | 1 | 5 | OpenGL 1.5";
    QTest::newRow("1.4") << 0x8 << "probed | 8 | 1 | 4 | OpenGL 1.4";
    QTest::newRow("1.3") << 0x4 << "probed | 4 | 1 | 3 | OpenGL 1.3";
    QTest::newRow("1.2") << 0x2 << "probed | 2 | 1 | 2 | OpenGL 1.2";
    QTest::newRow("1.1") << 0x1 << "probed | 1 | 1 | 1 | OpenGL 1.1";
    QTest::newRow("ES 2.0") << 0x800 << "probed | 2048 | -1 | -1 | OpenGL ES 2.0";
    QTest::newRow("ES Common 1.1") << 0x200 << "probed | 512 | -1 | -1 | OpenGL ES Common 1.1";
    QTest::newRow("ES Common 1.0") << 0x80 << "probed | 128 | -1 | -1 | OpenGL ES Common 1.0";
    QTest::newRow("ES Common Lite 1.1") << 0x400 << "probed | 1024 | -1 | -1 | OpenGL ES Common Lite 1.1";
    QTest::newRow("ES Common Lite 1.0") << 0x100 << "probed | 256 | -1 | -1 | OpenGL ES Common Lite 1.0";
    QTest::newRow("none") << 0 << "probed | 0 | -1 | -1 | not recognized";

    // Each row sets the flag of a version and those of all later rows of the table.
    QTest::newRow("4.3 and all that follow") << 0xfffff << "probed | 1048575 | 4 | 3 | OpenGL 4.3";
    QTest::newRow("4.2 and all that follow") << 0x7ffff << "probed | 524287 | 4 | 2 | OpenGL 4.2";
    QTest::newRow("4.1 and all that follow") << 0x3ffff << "probed | 262143 | 4 | 1 | OpenGL 4.1";
    QTest::newRow("4.0 and all that follow") << 0x1ffff << "probed | 131071 | 4 | 0 | OpenGL 4.0";
    QTest::newRow("3.3 and all that follow") << 0xffff << "probed | 65535 | 3 | 3 | OpenGL 3.3";
    QTest::newRow("3.2 and all that follow") << 0x7fff << "probed | 32767 | 3 | 2 | OpenGL 3.2";
    QTest::newRow("3.1 and all that follow") << 0x3fff << "probed | 16383 | 3 | 1 | OpenGL 3.1";
    QTest::newRow("3.0 and all that follow") << 0x1fff << "probed | 8191 | 3 | 0 | OpenGL 3.0";
    QTest::newRow("2.1 and all that follow: desktop versions precede ES versions") << 0xfff << "probed | 4095 | 2 | 1 | OpenGL 2.1";
    QTest::newRow("2.0 and all that follow") << 0xfbf << "probed | 4031 | 2 | 0 | OpenGL 2.0";
    QTest::newRow("1.5 and all that follow") << 0xf9f << "probed | 3999 | 1 | 5 | OpenGL 1.5";
    QTest::newRow("1.4 and all that follow") << 0xf8f << "probed | 3983 | 1 | 4 | OpenGL 1.4";
    QTest::newRow("1.3 and all that follow") << 0xf87 << "probed | 3975 | 1 | 3 | OpenGL 1.3";
    QTest::newRow("1.2 and all that follow") << 0xf83 << "probed | 3971 | 1 | 2 | OpenGL 1.2";
    QTest::newRow("1.1 and all that follow") << 0xf81 << "probed | 3969 | 1 | 1 | OpenGL 1.1";
    QTest::newRow("ES 2.0 and all that follow") << 0xf80 << "probed | 3968 | -1 | -1 | OpenGL ES 2.0";
    QTest::newRow("ES Common 1.1 and all that follow") << 0x780 << "probed | 1920 | -1 | -1 | OpenGL ES Common 1.1";
    QTest::newRow("ES Common 1.0 and all that follow") << 0x580 << "probed | 1408 | -1 | -1 | OpenGL ES Common 1.0";
    QTest::newRow("ES Common Lite 1.1 and the last") << 0x500 << "probed | 1280 | -1 | -1 | OpenGL ES Common Lite 1.1";

    QTest::newRow("ES 2.0 and 1.1: the desktop version precedes") << 0x801 << "probed | 2049 | 1 | 1 | OpenGL 1.1";
    QTest::newRow("1.1 to 1.5: the highest") << 0x1f << "probed | 31 | 1 | 5 | OpenGL 1.5";
    QTest::newRow("a flag that is not in the table") << 0x100000 << "probed | 1048576 | -1 | -1 | not recognized";
    QTest::newRow("a flag that is not in the table and one that is") << 0x100002 << "probed | 1048578 | 1 | 2 | OpenGL 1.2";
    QTest::newRow("only the sign bit")
        << std::numeric_limits<int>::min() << "probed | -2147483648 | -1 | -1 | not recognized";
    QTest::newRow("all bits") << -1 << "probed | -1 | 4 | 3 | OpenGL 4.3";
}

void OpenGLVersionTest::versionOfFlags()
{
    QFETCH(int, flags);
    QFETCH(QString, expected);
    QCOMPARE(shown(openGLVersionFromFlags(flags)), expected);
}

#ifdef SIMULATED_WINDOWS

void OpenGLVersionTest::probe_data()
{
    versionOfFlags_data();
}

void OpenGLVersionTest::probe()
{
    QFETCH(int, flags);
    QFETCH(QString, expected);
    const int callsBefore = version_flags::calls;
    version_flags::pretended = flags;
    QCOMPARE(shown(ScanOpenGLInfo::GetOpenGLVersion()), expected);
    QCOMPARE(version_flags::calls - callsBefore, 1);
}

/// The cache is filled once in a process, so this is one test. GetOpenGLVersion(), which probe()
/// calls before, does not fill it.
void OpenGLVersionTest::cachedProbe()
{
    const int callsBefore = version_flags::calls;
    version_flags::pretended = 0x80000;
    ScanOpenGLInfo::GetOpenGLVersion();
    QCOMPARE(version_flags::calls - callsBefore, 1);

    const QString kept = QStringLiteral("probed | 31 | 1 | 5 | OpenGL 1.5");
    version_flags::pretended = 0x1f;
    QCOMPARE(shown(ScanOpenGLInfo::GetOpenGLVersionCached()), kept);
    QCOMPARE(version_flags::calls - callsBefore, 2);
    version_flags::pretended = 0x40;
    QCOMPARE(shown(ScanOpenGLInfo::GetOpenGLVersionCached()), kept);
    QCOMPARE(version_flags::calls - callsBefore, 2);

    QCOMPARE(shown(ScanOpenGLInfo::GetOpenGLVersion()), QStringLiteral("probed | 64 | 2 | 1 | OpenGL 2.1"));
    QCOMPARE(version_flags::calls - callsBefore, 3);
    QCOMPARE(shown(ScanOpenGLInfo::GetOpenGLVersionCached()), kept);
    QCOMPARE(version_flags::calls - callsBefore, 3);

    COpenGLVersionInfo copy = ScanOpenGLInfo::GetOpenGLVersionCached();
    copy.strVersion = QStringLiteral("another");
    copy.bDefault = true;
    QCOMPARE(shown(ScanOpenGLInfo::GetOpenGLVersionCached()), kept);
    QCOMPARE(version_flags::calls - callsBefore, 3);
}

TEST_WITH_CORE_APPLICATION(OpenGLVersionTest);

#else

void OpenGLVersionTest::probesOfThisMachine()
{
    const int flags = int(QGLFormat::openGLVersionFlags());
    QVERIFY(flags != 0);
    QCOMPARE(ScanOpenGLInfo::GetOpenGLVersion().nVersionFlags, flags);
    QCOMPARE(shown(ScanOpenGLInfo::GetOpenGLVersion()), shown(openGLVersionFromFlags(flags)));
    QCOMPARE(shown(ScanOpenGLInfo::GetOpenGLVersionCached()), shown(openGLVersionFromFlags(flags)));
}

TEST_WITH_APPLICATION(OpenGLVersionTest);

#endif

#include "tst_opengl_version.moc"
