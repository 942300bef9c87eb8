#include "translations.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

namespace {

bool install(const QLocale &locale, const QString &name, const QString &folder)
{
    auto *translator = new QTranslator(QCoreApplication::instance());
    return translator->load(locale, name, QStringLiteral("_"), folder) && QCoreApplication::installTranslator(translator);
}

} // namespace

#ifdef VKVIEWER_HAS_TRANSLATIONS
/// A resource of a static library is there only if it is named.
static void initialiseResource()
{
    Q_INIT_RESOURCE(translations);
}
#else
static void initialiseResource()
{ }
#endif

void installTranslations(const QLocale &locale)
{
    initialiseResource();
    install(locale, QStringLiteral("qtbase"), QLibraryInfo::location(QLibraryInfo::TranslationsPath)); // dialogs of Qt
    if (!install(locale, QStringLiteral("vkviewer"), QStringLiteral(":/translations")))
        install(QLocale(QLocale::English), QStringLiteral("vkviewer"), QStringLiteral(":/translations")); // plurals
}
