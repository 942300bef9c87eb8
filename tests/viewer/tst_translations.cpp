// The window in German.

#include "redaction/redaction_panel.h"
#include "test_main.h"
#include "translations/translations.h"
#include "window/main_window.h"
#include "window/report_page.h"
#include "window/start_page.h"

#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTreeView>
#include <set>

class TranslationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyTextIsTranslated();
    void germanMenus();
    void englishPlurals();
    void pageOnASmallScreen_data();
    void pageOnASmallScreen();

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

void TranslationsTest::pageOnASmallScreen_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << QStringLiteral("en_GB");
    QTest::newRow("German") << QStringLiteral("de_DE");
}

/// A report without its personal data, with the find bar: nothing is scrolled sideways, and each letter is there once.
void TranslationsTest::pageOnASmallScreen()
{
    QFETCH(QString, locale);
    const Installed translations {QLocale(locale)};
    MainWindow window;
    window.resize(1024, 600);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.openFiles({QStringLiteral(PROJECT_DIR "/docs/example-report.txt")});
    QTRY_VERIFY(!window.isLoading());
    ReportPage *page = window.reportPage();
    QVERIFY(page);
    page->setRedacted(true);
    QTRY_VERIFY(page->output().has_value());
    page->find();
    QVERIFY2(window.minimumSizeHint().width() <= 1024, qPrintable(QString::number(window.minimumSizeHint().width())));
    QCOMPARE(window.width(), 1024);
    auto *list = page->redactionPanel()->findChild<QTreeView *>();
    QTRY_COMPARE(list->horizontalScrollBar()->maximum(), 0);
    const int reason = 3;
    const QString header = list->model()->headerData(reason, Qt::Horizontal).toString();
    QVERIFY(list->header()->sectionSize(reason) >= list->fontMetrics().horizontalAdvance(header));
    QVERIFY(list->header()->sectionSize(0) > list->header()->minimumSectionSize());
    QVERIFY(list->model()->index(0, reason).data(Qt::ToolTipRole).toString().contains(list->model()->index(0, reason).data().toString()));
    page->redactionPanel()->findChild<QCheckBox *>()->click(); // one column more
    QTRY_COMPARE(list->horizontalScrollBar()->maximum(), 0);

    QStringList texts;
    for (const QAction *title : window.menuBar()->actions())
        texts << title->text();
    for (const QWidget *widget : page->findChildren<QWidget *>()) {
        if (!widget->isVisible())
            continue;
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            texts << button->text();
        const auto *label = qobject_cast<const QLabel *>(widget);
        if (label && label->buddy())
            texts << label->text();
    }
    std::set<QChar> letters;
    for (const QString &text : texts) {
        const int at = text.indexOf(QLatin1Char('&'));
        if (at >= 0)
            QVERIFY2(letters.insert(text.at(at + 1).toLower()).second, qPrintable(text));
    }
    QVERIFY(letters.size() > 15);
}

TEST_WITH_APPLICATION(TranslationsTest);
#include "tst_translations.moc"
