// The window in German.

#include "test_main.h"
#include "translations/translations.h"
#include "window/main_window.h"
#include "window/start_page.h"

#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <set>

class TranslationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyTextIsTranslated();
    void germanMenus();
    void englishPlurals();

private:
    QTemporaryDir m_folder;
};

namespace {

struct Installed
{
    explicit Installed(const QLocale &locale) { installTranslations(locale); }
    ~Installed()
    {
        const QList<QTranslator *> translators = QCoreApplication::instance()->findChildren<QTranslator *>();
        for (QTranslator *translator : translators)
            delete translator; // which uninstalls it
    }
};

} // namespace

void TranslationsTest::init()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
}

void TranslationsTest::everyTextIsTranslated()
{
    for (const char *language : {"de", "en"}) {
        QFile file(QStringLiteral(TRANSLATIONS_DIR "/vkviewer_%1.ts").arg(QLatin1String(language)));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QVERIFY(bytes.contains("<source>"));
        QVERIFY2(!bytes.contains("unfinished"), language);
    }
}

void TranslationsTest::germanMenus()
{
    const Installed german(QLocale(QStringLiteral("de_AT")));
    const MainWindow window;
    QCOMPARE(window.windowTitle(), QStringLiteral("Systemberichte"));
    const QList<QAction *> titles = window.menuBar()->actions();
    QCOMPARE(titles.first()->text(), QStringLiteral("&Datei"));
    for (const QAction *title : titles) {
        std::set<QChar> letters;
        const QList<QAction *> entries = title->menu()->actions();
        for (const QAction *entry : entries) {
            if (entry->isSeparator())
                continue;
            QVERIFY2(entry->text().contains(QLatin1Char('&')), qPrintable(entry->text()));
            const QChar letter = entry->text().at(entry->text().indexOf(QLatin1Char('&')) + 1).toLower();
            QVERIFY2(letters.insert(letter).second, qPrintable(entry->text()));
        }
    }
    QVERIFY(window.findChild<QPushButton *>(QStringLiteral("openButton"))->text().startsWith(QLatin1String("Bericht")));
}

void TranslationsTest::englishPlurals()
{
    const Installed french(QLocale(QStringLiteral("fr_FR"))); // there is none: English
    QCOMPARE(QCoreApplication::translate("FactTable", "%n fact(s)", nullptr, 1), QStringLiteral("1 fact"));
    QCOMPARE(QCoreApplication::translate("FactTable", "%n fact(s)", nullptr, 2), QStringLiteral("2 facts"));
}

TEST_WITH_APPLICATION(TranslationsTest);
#include "tst_translations.moc"
