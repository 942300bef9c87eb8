// host_child APPLICATION THREAD FUNCTION
//
// Calls one public function and prints the text that it returns. APPLICATION is the application
// object of the process: none, core, gui or widgets. THREAD is the calling thread: main or other.

#include "program_output.h"
#include "vkSystemInfo.h"

#include <QtWidgets/QApplication>
#include <functional>
#include <map>
#include <memory>
#include <thread>

using namespace velkor::SystemInfo;

namespace {

QString versionText()
{
    int patch = 0;
    int minor = 0;
    int major = 0;
    libVersion(patch, minor, major);
    return QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(patch);
}

template <bool (*check)(int &, QString &)>
QString bonjourText()
{
    int error = -1;
    QString version;
    const bool found = check(error, version);
    return QStringLiteral("%1 %2 %3").arg(found).arg(error).arg(version);
}

const std::map<QByteArray, std::function<QString()>> functions = {
    {"allInfos", [] { return allInfos(false); }},
    {"allInfosWithoutOpenGL", [] { return allInfos(true); }},
    {"separator", separator},
    {"libVersion", versionText},
    {"libVersionString", libVersionString},
    {"platformName", platformName},
    {"qtGlobal", qtGlobal},
    {"qtCoreApplication", qtCoreApplication},
    {"qtLocale", qtLocale},
    {"qtDateTime", qtDateTime},
    {"qtHostInfo", qtHostInfo},
    {"qtAccessibility", qtAccessibility},
    {"qtPrinterInfo", qtPrinterInfo},
    {"qtSystemEnvironment", qtSystemEnvironment},
    {"qtScreens", qtScreens},
    {"qtDesktop", qtDesktop},
    {"qtDesktopServices", qtDesktopServices},
    {"checkStandardBonjour", bonjourText<WinSysInfo::checkStandardBonjour>},
    {"checkVelkorBonjour", bonjourText<WinSysInfo::checkVelkorBonjour>},
    {"GetOpenGLVersion", [] { return ScanOpenGLInfo::GetOpenGLVersion().strVersion; }},
    {"GetOpenGLVersionCached", [] { return ScanOpenGLInfo::GetOpenGLVersionCached().strVersion; }},
};

std::unique_ptr<QCoreApplication> application(const QByteArray &kind, int &argc, char *argv[])
{
    if (kind == "core")
        return std::make_unique<QCoreApplication>(argc, argv);
    if (kind == "gui")
        return std::make_unique<QGuiApplication>(argc, argv);
    if (kind == "widgets")
        return std::make_unique<QApplication>(argc, argv);
    return nullptr;
}

} // namespace

int main(int argc, char *argv[])
{
    const auto function = functions.find(argc == 4 ? argv[3] : "");
    if (function == functions.end())
        return WrongUsage;
    const QByteArray thread = argv[2];
    const auto object = application(argv[1], argc, argv);
    QString text;
    if (thread == "other")
        std::thread([&] { text = function->second(); }).join();
    else
        text = function->second();
    return writeToStandardOutput(text) ? Done : Failed;
}
