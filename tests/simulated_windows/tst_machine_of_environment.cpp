// Without install() the calls answer for the machine that VKSYSTEMINFO_MACHINE names.

#include "rows.h"
#include "simulated_windows.h"

#include <QtCore/QProcess>
#include <QtTest/QtTest>

namespace {

void userName()
{
    const auto row = [](const QString &name, const QString &machine, const QByteArray &output, const QByteArray &errors) {
        addTestRow(name, [=] {
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
        });
    };
    row("a machine", QStringLiteral(MACHINES_DIR "/workstation"), QByteArray("J\u00f6rn\n"), QByteArray());
    row("no machine: every call fails", QString(), QByteArray("failed\n"), QByteArray());
    row("a machine that does not exist: a message, and every call fails", "no/such/machine", QByteArray("failed\n"), QByteArray("no/such/machine: no such machine folder\n"));
}

void addTests()
{
    addTestRows("userName", userName);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
