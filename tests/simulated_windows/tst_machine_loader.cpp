// loadMachine(): the two files of a folder, and error messages that name file and line.

#include "machine_loader.h"
#include "rows.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace machine;

namespace {

const QByteArray registryFile = "Windows Registry Editor Version 5.00\n[HKEY_LOCAL_MACHINE\\A]\n@=\"B\"\n";
const QByteArray systemFile = "{\"GetUserName\": \"Jim\"}";

/// A temporary machine folder. A null QByteArray means no file.
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

void bothFiles()
{
    const Folder folder(registryFile, systemFile);
    QString error;
    const auto machine = loadMachine(folder.path(), error);
    QVERIFY2(machine, qPrintable(error));
    QVERIFY(findKey(machine->registry.root(RegistryRoot::LocalMachine), QStringLiteral("A"))->findValue(QString()));
    QCOMPARE(*machine->system.GetUserName, QStringLiteral("Jim"));
}

void missingFilesDescribeNothing()
{
    const auto row = [](const QString &name, const QByteArray &registry, const QByteArray &system) {
        addTestRow(name, [=] {
            const Folder folder(registry, system);
            QString error;
            const auto machine = loadMachine(folder.path(), error);
            QVERIFY2(machine, qPrintable(error));
            QCOMPARE(machine->registry.root(RegistryRoot::LocalMachine)->subKeyCount(), std::size_t(registry.isNull() ? 0 : 1));
            QCOMPARE(bool(machine->system.GetUserName), !system.isNull());
        });
    };
    row("no registry", QByteArray(), systemFile);
    row("no system", registryFile, QByteArray());
    row("neither", QByteArray(), QByteArray());
}

void missingFolder()
{
    const auto row = [](const QString &name, const QString &folder, const QString &expected) {
        addTestRow(name, [=] {
            QString error;
            QVERIFY(!loadMachine(folder, error));
            QCOMPARE(error, expected);
        });
    };
    row("no such folder", "no/such/machine", "no/such/machine: no such machine folder");
    row("no name", QString(), ": no such machine folder");
}

void malformedFile()
{
    const auto row = [](const QString &name, const QByteArray &registry, const QByteArray &system, const QString &expected) {
        addTestRow(name, [=] {
            const Folder folder(registry, system);
            QString error;
            QVERIFY(!loadMachine(folder.path(), error));
            QCOMPARE(error, folder.path() + expected);
        });
    };
    row("a line of the registry", registryFile + "hello\n", systemFile, "/registry.reg:4: neither a key, a value nor a comment");
    row("an empty registry file", QByteArray(""), systemFile, "/registry.reg:1: the first line is not \"Windows Registry Editor Version 5.00\"");
    row("a line of the system file", registryFile, QByteArray("{\n  \"timeZone\": none\n}"), "/system.json:2: illegal value");
    row("a member of the system file", registryFile, QByteArray("{\n  \"GetUserName\": 5\n}"), "/system.json: 'GetUserName' is not a text");
    row("both files are malformed: the message is about the registry", QByteArray("REGEDIT4\n"), QByteArray("{"), "/registry.reg:1: the first line is not \"Windows Registry Editor Version 5.00\"");
}

void fileThatCannotBeRead()
{
    const auto row = [](const QString &title, const QString &name) {
        addTestRow(title, [=] {
            const Folder folder {QByteArray(), QByteArray()};
            QVERIFY(QDir(folder.path()).mkdir(name)); // a folder instead of a file
            QString error;
            QVERIFY(!loadMachine(folder.path(), error));
            const QString start = folder.path() + QLatin1Char('/') + name + QStringLiteral(": ");
            QVERIFY2(error.startsWith(start) && error.size() > start.size(), qPrintable(error));
        });
    };
    row("registry", "registry.reg");
    row("system", "system.json");
}

void exampleMachine()
{
    QString error;
    const auto machine = loadMachine(QStringLiteral(MACHINES_DIR "/workstation"), error);
    QVERIFY2(machine, qPrintable(error));
    QVERIFY(machine->registry.root(RegistryRoot::LocalMachine)->subKeyCount() > 0);
    QCOMPARE(machine->system.GetVersionEx->dwBuildNumber, 9200u);
}

void addTests()
{
    addTestRow("bothFiles", bothFiles);
    addTestRows("missingFilesDescribeNothing", missingFilesDescribeNothing);
    addTestRows("missingFolder", missingFolder);
    addTestRows("malformedFile", malformedFile);
    addTestRows("fileThatCannotBeRead", fileThatCannotBeRead);
    addTestRow("exampleMachine", exampleMachine);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
