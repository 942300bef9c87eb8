// Which machine answers a process that was not told of one: that of the environment.

#include "simulated_windows.h"
#include "test_main.h"

#include <QtCore/QProcess>
#include <QtTest/QtTest>

class MachineOfEnvironmentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void userName_data();
    void userName();
};

void MachineOfEnvironmentTest::userName_data()
{
    QTest::addColumn<QString>("machine");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("errors");
    QTest::newRow("a machine") << QStringLiteral(MACHINES_DIR "/workstation") << QByteArray("J\u00f6rn\n") << QByteArray();
    QTest::newRow("none: every call fails") << QString() << QByteArray("failed\n") << QByteArray();
    QTest::newRow("one that is not there: it is told, and every call fails")
        << QStringLiteral("no/such/machine") << QByteArray("failed\n") << QByteArray("no/such/machine: no such machine folder\n");
}

void MachineOfEnvironmentTest::userName()
{
    QFETCH(QString, machine);
    QFETCH(QByteArray, output);
    QFETCH(QByteArray, errors);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("VKSYSTEMINFO_MACHINE"));
    if (!machine.isEmpty())
        environment.insert(QStringLiteral("VKSYSTEMINFO_MACHINE"), machine);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationDirPath() + "/print_user_name", QStringList());
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), output);
    QCOMPARE(process.readAllStandardError(), errors);
}

TEST_WITH_CORE_APPLICATION(MachineOfEnvironmentTest);
#include "tst_machine_of_environment.moc"
