#include "translations/translations.h"
#include "window/main_window.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QLocale>
#include <QtWidgets/QApplication>

namespace {

void useHighDensity()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

QStringList readArguments(const QApplication &application)
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
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkviewer"));
    QCoreApplication::setOrganizationName(QStringLiteral("vkSystemInfo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VKVIEWER_VERSION));
    installTranslations(QLocale());
    const QStringList files = readArguments(application);
    MainWindow window;
    window.show();
    if (files.size() > 1)
        window.compareFiles(files);
    else
        window.openFiles(files);
    return QApplication::exec();
}
