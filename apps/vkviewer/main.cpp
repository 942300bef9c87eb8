#include "translations/translations.h"
#include "window/main_window.h"
#include "window/readable_style.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QLocale>
#include <QtWidgets/QApplication>
#include <algorithm>

namespace {

void useHighDensity()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

/// The answer is a text, which needs no display.
bool asksForText(int argc, char *argv[])
{
    const auto isSuch = [](const char *argument) {
        const QLatin1String text(argument);
        return text == QLatin1String("--help") || text == QLatin1String("--help-all") || text == QLatin1String("-h")
            || text == QLatin1String("--version") || text == QLatin1String("-v");
    };
    return std::any_of(argv + 1, argv + argc, isSuch);
}

void describeProgram()
{
    QCoreApplication::setApplicationName(QStringLiteral("vkviewer"));
    QCoreApplication::setOrganizationName(QStringLiteral("vkSystemInfo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VKVIEWER_VERSION));
    installTranslations(QLocale());
}

QStringList readArguments(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate("main", "Shows system reports in a window. Compares them if there are several files."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("FILE"), QCoreApplication::translate("main", "report to open: text or JSON"), QStringLiteral("[FILE]..."));
    parser.process(application);
    return parser.positionalArguments();
}

} // namespace

int main(int argc, char *argv[])
{
    useHighDensity();
    if (argc > 1 && asksForText(argc, argv)) {
        const QCoreApplication application(argc, argv);
        describeProgram();
        readArguments(application); // ends the program
        return 0;
    }
    QApplication application(argc, argv);
    ReadableStyle::install();
    describeProgram();
    const QStringList files = readArguments(application);
    MainWindow window;
    window.show();
    if (files.size() > 1)
        window.compareFiles(files);
    else
        window.openFiles(files);
    return QApplication::exec();
}
