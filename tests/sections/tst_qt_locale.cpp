// qtLocale(): text.

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#ifdef Q_OS_WIN
#  include <windows.h>
#endif

using namespace velkor::SystemInfo;

class QtLocaleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef Q_OS_WIN
    void sameAsWindows();
#else
    void text_data();
    void text();
#endif
};

#ifdef Q_OS_WIN

namespace {

QString localeText(LCTYPE type)
{
    wchar_t text[256] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 256);
    return QString::fromWCharArray(text);
}

} // namespace

void QtLocaleTest::sameAsWindows()
{
    const bool isMetric = localeText(LOCALE_IMEASURE) == QStringLiteral("0");
    COMPARE_TEXT(qtLocale(),
                 QStringLiteral("QLocale\n"
                                "Country:          ")
                     + localeText(LOCALE_SENGCOUNTRY)
                     + QStringLiteral("\nLanguage:         ") + localeText(LOCALE_SENGLANGUAGE)
                     + QStringLiteral("\nMeasuring System: ")
                     + (isMetric ? QStringLiteral("MetricSystem\n") : QStringLiteral("ImperialSystem\n")));
}

#else

void QtLocaleTest::text_data()
{
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<QString>("expected");

    QTest::newRow("Germany: metric")
        << QStringList({"LC_ALL=de_DE.UTF-8"})
        << "QLocale\n"
           "Country:          Germany\n"
           "Language:         German\n"
           "Measuring System: MetricSystem\n";
    QTest::newRow("United States: imperial")
        << QStringList({"LC_ALL=en_US.UTF-8"})
        << "QLocale\n"
           "Country:          United States\n"
           "Language:         English\n"
           "Measuring System: ImperialSystem\n";
    QTest::newRow("Quirk: the measurement system of the United Kingdom is unknown")
        << QStringList({"LC_ALL=en_GB.UTF-8"})
        << "QLocale\n"
           "Country:          United Kingdom\n"
           "Language:         English\n"
           "Measuring System: unknown\n";
    QTest::newRow("LC_MEASUREMENT of the United States")
        << QStringList({"LANG=de_DE.UTF-8", "LC_MEASUREMENT=en_US.UTF-8"})
        << "QLocale\n"
           "Country:          Germany\n"
           "Language:         German\n"
           "Measuring System: ImperialSystem\n";
    QTest::newRow("LC_MEASUREMENT of the United Kingdom")
        << QStringList({"LANG=fr_CA.UTF-8", "LC_MEASUREMENT=en_GB.UTF-8"})
        << "QLocale\n"
           "Country:          Canada\n"
           "Language:         French\n"
           "Measuring System: unknown\n";
    QTest::newRow("LC_MEASUREMENT of Germany")
        << QStringList({"LANG=en_US.UTF-8", "LC_MEASUREMENT=de_DE.UTF-8"})
        << "QLocale\n"
           "Country:          United States\n"
           "Language:         English\n"
           "Measuring System: MetricSystem\n";
    QTest::newRow("no locale: C")
        << QStringList()
        << "QLocale\n"
           "Country:          Default\n"
           "Language:         C\n"
           "Measuring System: MetricSystem\n";
}

void QtLocaleTest::text()
{
    QFETCH(QStringList, environment);
    QFETCH(QString, expected);
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtLocale"), environment), expected);
}

#endif

TEST_WITH_CORE_APPLICATION(QtLocaleTest);
#include "tst_qt_locale.moc"
