// section_child SECTION [DESKTOP-FILE-NAME]
//
// Prints one section. The process has an application object only if the section needs one. The
// environment variable HOST_LOCALE, for example de_DE, sets the default locale.

#include "program_output.h"
#include "report/section_table.h"

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

struct SectionNeeds
{
    const char *name;
    Needs needs;
};

/// Other sections need no application object.
constexpr SectionNeeds applications[] = {
    {"qtCoreApplication", Needs::CoreApplication},
    {"qtDesktopServices", Needs::CoreApplication},
    {"qtAccessibility", Needs::GuiApplication},
    {"qtPrinterInfo", Needs::GuiApplication},
    {"qtScreens", Needs::GuiApplication},
    {"qtDesktop", Needs::GuiApplication},
};

const Section *findSection(const QByteArray &name)
{
    for (const Section &section : SectionTable()) {
        if (name == section.name)
            return &section;
    }
    return nullptr;
}

Needs needsOf(const QByteArray &name)
{
    for (const SectionNeeds &row : applications) {
        if (name == row.name)
            return row.needs;
    }
    return Needs::Nothing;
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
    const auto application = makeApplication(needsOf(section->name), argc, argv);
    useHostLocale(); // after Qt, which sets the locale of the environment
    if (argc > 2)
        QGuiApplication::setDesktopFileName(QString::fromUtf8(argv[2]));
    return writeToStandardOutput(section->text()) ? Done : Failed;
}
