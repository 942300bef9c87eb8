// loadMachine(): a folder's two files, and messages that name file and line.

#include "machine_loader.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace machine;

class MachineLoaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bothFiles();
    void missingFilesKnowNothing_data();
    void missingFilesKnowNothing();
    void missingFolder_data();
    void missingFolder();
    void malformedFile_data();
    void malformedFile();
    void fileThatCannotBeRead_data();
    void fileThatCannotBeRead();
    void exampleMachine();
};

namespace {

const QByteArray registryFile = "Windows Registry Editor Version 5.00\n[HKEY_LOCAL_MACHINE\\A]\n@=\"B\"\n";
const QByteArray systemFile = "{\"GetUserName\": \"Jim\"}";

/// A machine folder of its own; no file is written for a null text.
class Folder
{
public:
    Folder(const QByteArray &registry, const QByteArray &system)
    {
        write(QStringLiteral("registry.reg"), registry);
        write(QStringLiteral("system.json"), system);
    }

    QString path() const { return m_directory.path(); }

private:
    void write(const QString &name, const QByteArray &contents)
    {
        QFile file(m_directory.filePath(name));
        if (!contents.isNull() && (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size()))
            qFatal("%s cannot be written", qPrintable(file.fileName()));
    }

    QTemporaryDir m_directory;
};

} // namespace

void MachineLoaderTest::bothFiles()
{
    const Folder folder(registryFile, systemFile);
    QString error;
    const auto machine = loadMachine(folder.path(), error);
    QVERIFY2(machine, qPrintable(error));
    QVERIFY(findKey(machine->registry.root(RegistryRoot::LocalMachine), QStringLiteral("A"))->findValue(QString()));
    QCOMPARE(*machine->system.GetUserName, QStringLiteral("Jim"));
}

void MachineLoaderTest::missingFilesKnowNothing_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArray>("system");
    QTest::newRow("no registry") << QByteArray() << systemFile;
    QTest::newRow("no system") << registryFile << QByteArray();
    QTest::newRow("neither") << QByteArray() << QByteArray();
}

void MachineLoaderTest::missingFilesKnowNothing()
{
    QFETCH(QByteArray, registry);
    QFETCH(QByteArray, system);
    const Folder folder(registry, system);
    QString error;
    const auto machine = loadMachine(folder.path(), error);
    QVERIFY2(machine, qPrintable(error));
    QCOMPARE(machine->registry.root(RegistryRoot::LocalMachine)->subKeyCount(), std::size_t(registry.isNull() ? 0 : 1));
    QCOMPARE(bool(machine->system.GetUserName), !system.isNull());
}

void MachineLoaderTest::missingFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no such folder") << QStringLiteral("no/such/machine")
                                    << QStringLiteral("no/such/machine: no such machine folder");
    QTest::newRow("no name") << QString() << QStringLiteral(": no such machine folder");
}

void MachineLoaderTest::missingFolder()
{
    QFETCH(QString, folder);
    QFETCH(QString, expected);
    QString error;
    QVERIFY(!loadMachine(folder, error));
    QCOMPARE(error, expected);
}

void MachineLoaderTest::malformedFile_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected"); // behind the folder's path
    QTest::newRow("a line of the registry")
        << registryFile + "hello\n"
        << systemFile
        << QStringLiteral("/registry.reg:4: neither a key, a value nor a comment");
    QTest::newRow("an empty registry file")
        << QByteArray("") << systemFile
        << QStringLiteral("/registry.reg:1: the first line is not \"Windows Registry Editor Version 5.00\"");
    QTest::newRow("a line of the system file")
        << registryFile << QByteArray("{\n  \"timeZone\": none\n}") << QStringLiteral("/system.json:2: illegal value");
    QTest::newRow("a member of the system file")
        << registryFile << QByteArray("{\n  \"GetUserName\": 5\n}")
        << QStringLiteral("/system.json: 'GetUserName' is not a text");
    QTest::newRow("both: the registry is told")
        << QByteArray("REGEDIT4\n") << QByteArray("{")
        << QStringLiteral("/registry.reg:1: the first line is not \"Windows Registry Editor Version 5.00\"");
}

void MachineLoaderTest::malformedFile()
{
    QFETCH(QByteArray, registry);
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    const Folder folder(registry, system);
    QString error;
    QVERIFY(!loadMachine(folder.path(), error));
    QCOMPARE(error, folder.path() + expected);
}

void MachineLoaderTest::fileThatCannotBeRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("registry") << QStringLiteral("registry.reg");
    QTest::newRow("system") << QStringLiteral("system.json");
}

void MachineLoaderTest::fileThatCannotBeRead()
{
    QFETCH(QString, name);
    const Folder folder {QByteArray(), QByteArray()};
    QVERIFY(QDir(folder.path()).mkdir(name)); // a folder of that name
    QString error;
    QVERIFY(!loadMachine(folder.path(), error));
    const QString start = folder.path() + QLatin1Char('/') + name + QStringLiteral(": ");
    QVERIFY2(error.startsWith(start) && error.size() > start.size(), qPrintable(error));
}

void MachineLoaderTest::exampleMachine()
{
    QString error;
    const auto machine = loadMachine(QStringLiteral(MACHINES_DIR "/workstation"), error);
    QVERIFY2(machine, qPrintable(error));
    QVERIFY(machine->registry.root(RegistryRoot::LocalMachine)->subKeyCount() > 0);
    QCOMPARE(machine->system.GetVersionEx->dwBuildNumber, 9200u);
}

TEST_WITHOUT_APPLICATION(MachineLoaderTest);
#include "tst_machine_loader.moc"
