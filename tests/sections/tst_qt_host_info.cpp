// qtHostInfo(): text.

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <unistd.h>

using namespace velkor::SystemInfo;

class QtHostInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void domains_data();
    void domains();
    void hosts_data();
    void hosts();
};

namespace {

QString thisHost()
{
    char name[256] = {};
    gethostname(name, sizeof name - 1);
    return QString::fromLocal8Bit(name);
}

} // namespace

// The resolver takes LOCALDOMAIN before its own settings.
void QtHostInfoTest::domains_data()
{
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("line");
    QTest::newRow("a domain") << "example.test" << "Local domain name: example.test\n";
    QTest::newRow("the first domain of several") << "a.test b.test" << "Local domain name: a.test\n";
    QTest::newRow("no domain") << "" << "Local domain name: \n";
}

void QtHostInfoTest::domains()
{
    QFETCH(QString, domain);
    QFETCH(QString, line);
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtHostInfo"), {QStringLiteral("LOCALDOMAIN=") + domain}),
                 QStringLiteral("QHostInfo\n"
                                "Local host name:   ") + thisHost() + QLatin1Char('\n') + line);
}

void QtHostInfoTest::hosts_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a host")
        << "plant-7"
        << "QHostInfo\n"
           "Local host name:   plant-7\n"
           "Local domain name: example.test\n";
    QTest::newRow("placeholders stay")
        << "%1-%2"
        << "QHostInfo\n"
           "Local host name:   %1-%2\n"
           "Local domain name: example.test\n";
}

void QtHostInfoTest::hosts()
{
    QFETCH(QString, host);
    QFETCH(QString, expected);
    const QString text = qt_environment::sectionTextOnHost(host, QStringLiteral("qtHostInfo"),
                                                           {QStringLiteral("LOCALDOMAIN=example.test")});
    if (text.isNull())
        QSKIP("this system does not let its users have host names of their own");
    COMPARE_TEXT(text, expected);
}

TEST_WITH_CORE_APPLICATION(QtHostInfoTest);
#include "tst_qt_host_info.moc"
