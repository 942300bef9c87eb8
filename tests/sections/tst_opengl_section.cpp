// GetOpenGLInfo() with OpenGL, which needs a display.

#include "described_windows.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtCore/QProcess>
#include <QtOpenGL/QGLFormat>
#include <QtWidgets/QApplication>

#ifdef SIMULATED_WINDOWS
#  include "gl_strings.h"
#  include "overlays.h"
#  include "version_flags.h"
#  include <QtGui/QOpenGLContext>
#  include <QtOpenGL/QGLWidget>
#  include <vector>
#endif

using namespace velkor::SystemInfo;

class OpenGLSectionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void equalsAnIndependentProgram_data();
    void equalsAnIndependentProgram();
    void noOpenGLOmitsOnlyTheSection();
#ifdef SIMULATED_WINDOWS
    void cleanup();
    void flagsLine();
    void overlaysLine();
    void openGLStrings_data();
    void openGLStrings();
    void contextBelongsToAHiddenWidget();
#endif
};

namespace {

const char twoDrivers[] = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers\\A]\n"
                          "\"dll\"=\"x\"\n"
                          "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers\\B]\n"
                          "\"dll\"=\"y\"\n";

QString section()
{
    QString info = QStringLiteral("previous text");
    ScanOpenGLInfo(nullptr).GetOpenGLInfo(info);
    return info;
}

/// The text up to the OpenGL strings.
QString sectionStart(const QString &flagsAndName, const QString &drivers, const char *overlays = "0")
{
    return QStringLiteral("#### QGLFormat #### \n"
                          "hasOpenGL         1\n"
                          "hasOpenGLOverlays ")
        + overlays
        + QStringLiteral("\nopenGLVersionFlags ") + flagsAndName
        + QStringLiteral("\n#### Info about the OpenGL driver DLL's from registry ###\n") + drivers;
}

QString directPart(const QString &version, const QString &vendor, const QString &renderer, const QString &extensions)
{
    return QStringLiteral("#### Direct OpenGL calls (using QGLWidget with default QGLFormat) ####\n"
                          "glGetString(GL_VERSION)  = ")
        + version
        + QStringLiteral("\nglGetString(GL_VENDOR)   = ") + vendor
        + QStringLiteral("\nglGetString(GL_RENDERER) = ") + renderer
        + QStringLiteral("\nglGetString(GL_EXTENSIONS) = ") + extensions + "\n";
}

/// The report without times and memory sizes, which change between two calls.
QString withoutMoment(const QString &report)
{
    const QStringList labels = {"Local Date and Time: ", "UTC   Date and Time: ", "MemoryLoad: ", "AvailPhys: ",
                                "AvailPageFile: ", "AvailVirtual: ", "Used [bytes]: "};
    QStringList lines = report.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        for (const QString &label : labels) {
            if (line.startsWith(label))
                line = label;
        }
        if (line.contains(QLatin1String(" Free: ")))
            line.truncate(line.indexOf(QLatin1String(" Free: ")));
    }
    return lines.join(QLatin1Char('\n'));
}

/// The strings that independent_gl prints: version, vendor, renderer, extensions.
QStringList independentAnswers()
{
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/independent_gl"), QStringList());
    if (!program.waitForFinished() || program.exitCode() != 0)
        return QStringList();
    return QString::fromLatin1(program.readAll()).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
}

/// The flags in hexadecimal and the name of the version. Qt has no flag for versions after 4.3.
QString flagsAndName(const QString &version)
{
    const QString number = qMin(version.left(3), QStringLiteral("4.3"));
    return QStringLiteral("0x") + QString::number(int(QGLFormat::openGLVersionFlags()), 16)
        + QStringLiteral(" OpenGL ") + number;
}

} // namespace

void OpenGLSectionTest::init()
{
    QVERIFY(QGLFormat::hasOpenGL());
}

void OpenGLSectionTest::equalsAnIndependentProgram_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("drivers");
    QTest::newRow("no drivers in the registry") << QByteArray() << QString();
    QTest::newRow("two drivers: the OpenGL strings follow directly")
        << QByteArray(twoDrivers) << "A   x.dll\nB   y.dll\n";
}

void OpenGLSectionTest::equalsAnIndependentProgram()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, drivers);
    const QStringList independent = independentAnswers();
    QCOMPARE(independent.size(), 5); // four lines, and the empty text after the last line end
    for (int i = 0; i < 4; ++i)
        QVERIFY(!independent.at(i).isEmpty());
    const QString expected = sectionStart(flagsAndName(independent.at(0)), drivers)
        + directPart(independent.at(0), independent.at(1), independent.at(2), independent.at(3));
    const DescribedWindows windows(registry);
    COMPARE_TEXT(section(), expected);
    COMPARE_TEXT(section(), expected);
}

// noOpenGL omits exactly the section and one separator.
void OpenGLSectionTest::noOpenGLOmitsOnlyTheSection()
{
    allInfos(false); // loads the OpenGL libraries, which the list of loaded modules shows
    const QString whole = allInfos(false);
    const QString expected = allInfos(true) + section() + separator();
    COMPARE_TEXT(withoutMoment(whole), withoutMoment(expected));
}

#ifdef SIMULATED_WINDOWS

namespace {

// The values of the OpenGL registry, in the order of the section.
const std::vector<unsigned> names {0x1F02, 0x1F00, 0x1F01, 0x1F03};

} // namespace

void OpenGLSectionTest::cleanup()
{
    gl_strings::answer = nullptr;
    overlays::pretended.reset();
    version_flags::pretended.reset();
}

void OpenGLSectionTest::flagsLine()
{
    version_flags::pretended = 0x1f;
    const DescribedWindows windows(QByteArray {});
    const QString text = section();
    COMPARE_TEXT(text.left(text.indexOf(QLatin1String("#### Direct"))), sectionStart("0x1f OpenGL 1.5", QString()));
}

void OpenGLSectionTest::overlaysLine()
{
    version_flags::pretended = 0x1f;
    overlays::pretended = true;
    gl_strings::answer = [](unsigned) { return "x"; };
    const DescribedWindows windows(QByteArray {});
    COMPARE_TEXT(section(), sectionStart("0x1f OpenGL 1.5", QString(), "1") + directPart("x", "x", "x", "x"));
}

void OpenGLSectionTest::openGLStrings_data()
{
    QTest::addColumn<QList<QByteArray>>("answers"); // a null QByteArray stands for a null pointer
    QTest::addColumn<QString>("expected");
    const QByteArray null;
    QTest::newRow("each string on its own line") << QList<QByteArray> {"1", "2", "3", "4 5 6 "} << directPart("1", "2", "3", "4 5 6 ");
    QTest::newRow("no version") << QList<QByteArray> {null, "2", "3", "4"} << directPart("", "2", "3", "4");
    QTest::newRow("no vendor") << QList<QByteArray> {"1", null, "3", "4"} << directPart("1", "", "3", "4");
    QTest::newRow("no renderer") << QList<QByteArray> {"1", "2", null, "4"} << directPart("1", "2", "", "4");
    QTest::newRow("no extensions") << QList<QByteArray> {"1", "2", "3", null} << directPart("1", "2", "3", "");
    QTest::newRow("four null pointers") << QList<QByteArray> {null, null, null, null} << directPart("", "", "", "");
    QTest::newRow("empty texts") << QList<QByteArray> {"", "", "", ""} << directPart("", "", "", "");
    QTest::newRow("strings are decoded as Latin-1")
        << QList<QByteArray> {"\xe9", "\xc3\xa9", "\xff", "\x80"}
        << directPart(QChar(0xe9), QString(QChar(0xc3)) + QChar(0xa9), QChar(0xff), QChar(0x80));
    QTest::newRow("placeholders are not replaced")
        << QList<QByteArray> {"%1", "%2", "%1%1", "%L1"} << directPart("%1", "%2", "%1%1", "%L1");
}

void OpenGLSectionTest::openGLStrings()
{
    QFETCH(QList<QByteArray>, answers);
    QFETCH(QString, expected);
    version_flags::pretended = 0x1f;
    std::vector<unsigned> asked;
    gl_strings::answer = [&](unsigned name) -> const char * {
        asked.push_back(name);
        const auto place = std::find(names.begin(), names.end(), name) - names.begin();
        const QByteArray text = answers.value(int(place));
        return text.isNull() ? nullptr : answers.at(int(place)).constData();
    };
    const DescribedWindows windows(twoDrivers);
    COMPARE_TEXT(section(), sectionStart("0x1f OpenGL 1.5", "A   x.dll\nB   y.dll\n") + expected);
    QVERIFY(asked == names);
}

void OpenGLSectionTest::contextBelongsToAHiddenWidget()
{
    version_flags::pretended = 0x1f;
    int contexts = 0, hiddenWidgets = 0;
    gl_strings::answer = [&](unsigned) {
        contexts += QOpenGLContext::currentContext() != nullptr;
        const QWidgetList widgets = QApplication::allWidgets();
        const auto widget = widgets.isEmpty() ? nullptr : qobject_cast<QGLWidget *>(widgets.first());
        hiddenWidgets += widgets.size() == 1 && widget && widget->isHidden() && !widget->parentWidget();
        return "answer";
    };
    const DescribedWindows windows(QByteArray {});
    section();
    QCOMPARE(contexts, 4);
    QCOMPARE(hiddenWidgets, 4);
    QVERIFY(QApplication::allWidgets().isEmpty());
    QVERIFY(!QOpenGLContext::currentContext());
}

#endif

TEST_WITH_APPLICATION(OpenGLSectionTest);
#include "tst_opengl_section.moc"
