// section_child SECTION [DESKTOP-FILE-NAME]
//
// Prints one section in a process of its own, with the application object that the
// section asks for and no more. HOST_LOCALE in the environment, such as de_DE, is what
// a host makes its default locale.

#include "program_output.h"
#include "vkSystemInfo.h"

#include <QtCore/QLocale>
#include <QtGui/QGuiApplication>
#include <clocale>
#include <memory>

using namespace velkor::SystemInfo;

namespace {

enum class Needs {
    Nothing,
    CoreApplication,
    GuiApplication,
};

struct Section
{
    const char *name;
    QString (*text)();
    Needs needs;
};

constexpr Section sections[] = {
    {"qtGlobal", qtGlobal, Needs::Nothing},
    {"qtCoreApplication", qtCoreApplication, Needs::CoreApplication},
    {"qtLocale", qtLocale, Needs::Nothing},
    {"qtDateTime", qtDateTime, Needs::Nothing},
    {"qtHostInfo", qtHostInfo, Needs::Nothing},
    {"qtAccessibility", qtAccessibility, Needs::GuiApplication},
    {"qtPrinterInfo", qtPrinterInfo, Needs::GuiApplication},
    {"qtSystemEnvironment", qtSystemEnvironment, Needs::Nothing},
    {"qtScreens", qtScreens, Needs::GuiApplication},
    {"qtDesktop", qtDesktop, Needs::GuiApplication},
    {"qtDesktopServices", qtDesktopServices, Needs::CoreApplication},
};

const Section *findSection(const QByteArray &name)
{
    for (const Section &section : sections) {
        if (name == section.name)
            return &section;
    }
    return nullptr;
}

std::unique_ptr<QCoreApplication> makeApplication(Needs needs, int &argc, char *argv[])
{
    switch (needs) {
    case Needs::CoreApplication:
        return std::make_unique<QCoreApplication>(argc, argv);
    case Needs::GuiApplication:
        return std::make_unique<QGuiApplication>(argc, argv);
    default:
        return nullptr;
    }
}

void useHostLocale()
{
    const QByteArray name = qgetenv("HOST_LOCALE");
    if (name.isEmpty())
        return;
    QLocale::setDefault(QLocale(QString::fromLatin1(name)));
    if (!std::setlocale(LC_ALL, (name + ".UTF-8").constData()))
        qFatal("the C library has no locale %s.UTF-8", name.constData());
}

} // namespace

int main(int argc, char *argv[])
{
    const Section *section = argc > 1 ? findSection(argv[1]) : nullptr;
    if (!section)
        return WrongUsage;
    const auto application = makeApplication(section->needs, argc, argv);
    useHostLocale(); // after Qt, which takes that of the environment
    if (argc > 2)
        QGuiApplication::setDesktopFileName(QString::fromUtf8(argv[2]));
    return writeToStandardOutput(section->text()) ? Done : Failed;
}
