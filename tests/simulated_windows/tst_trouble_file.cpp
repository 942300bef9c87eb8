// The file that VKSYSTEMINFO_TROUBLE names.

#include "forked_child.h"
#include "rows.h"
#include "trouble_file.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>
#include <csignal>
#include <sys/resource.h>
#include <windows.h>

using simulated::TroubleKind;
using simulated::TroubleLine;

namespace {

QString kindText(TroubleKind kind)
{
    switch (kind.event) {
    case TroubleKind::Sleep:
        return QStringLiteral("sleep %1").arg(kind.number);
    case TroubleKind::Hang:
        return QStringLiteral("hang");
    case TroubleKind::Crash:
        return QStringLiteral("crash");
    case TroubleKind::Abort:
        return QStringLiteral("abort");
    case TroubleKind::Exit:
        break;
    }
    return QStringLiteral("exit %1").arg(kind.number);
}

template <typename Text>
QString fieldText(const std::optional<Text> &field)
{
    return field ? QStringLiteral("<%1>").arg(QString(*field)) : QStringLiteral("any");
}

QString lineText(const TroubleLine &line)
{
    const QString name = line.calls.name ? QString::fromUtf8(*line.calls.name) : QStringLiteral("any");
    return kindText(line.kind) + ": " + name + ", " + fieldText(line.calls.key) + ", " + fieldText(line.calls.value);
}

QStringList read(const QByteArray &text, QStringList &problems)
{
    QStringList result;
    for (const TroubleLine &line : simulated::readTroubleLines(text, problems))
        result += lineText(line);
    return result;
}

void goodLines()
{
    const auto row = [](const QString &name, const QByteArray &text, const QStringList &expected) {
        addTestRow(name, [=] {
            QStringList problems;
            QCOMPARE(read(text, problems), expected);
            QCOMPARE(problems, QStringList());
        });
    };
    row("empty", "", {});
    row("a call", "crash\tRegOpenKeyExA\n", {"crash: RegOpenKeyExA, any, any"});
    row("no line end", "crash\tRegOpenKeyExA", {"crash: RegOpenKeyExA, any, any"});
    row("a key", "hang\tGetDriveTypeW\tD:\\\n", {"hang: GetDriveTypeW, <D:\\>, any"});
    row("key and value", "abort\tRegQueryValueExA\tHKEY_LOCAL_MACHINE\\A B\tV W\n",
        {"abort: RegQueryValueExA, <HKEY_LOCAL_MACHINE\\A B>, <V W>"});
    row("sleep", "sleep=1500\tRegCloseKey\n", {"sleep 1500: RegCloseKey, any, any"});
    row("sleep, leading zeros", "sleep=0010\tRegCloseKey\n", {"sleep 10: RegCloseKey, any, any"});
    row("shortest and longest sleep", "sleep=0\t*\nsleep=4294967295\t*\n",
        {"sleep 0: any, any, any", "sleep 4294967295: any, any, any"});
    row("exit", "exit=0\t*\nexit=255\t*\n", {"exit 0: any, any, any", "exit 255: any, any, any"});
    row("an asterisk matches anything", "crash\t*\t*\t*\n", {"crash: any, any, any"});
    row("any key, a value", "crash\tRegQueryValueExA\t*\tV\n", {"crash: RegQueryValueExA, any, <V>"});
    row("an empty field is empty", "crash\tRegQueryValueExA\tHKEY_USERS\t\ncrash\tRegCloseKey\t\n",
        {"crash: RegQueryValueExA, <HKEY_USERS>, <>", "crash: RegCloseKey, <>, any"});
    row("a null byte", QByteArray("crash\t*\tA\0B\n", 12),
        {"crash: any, <" + QString(QLatin1String("A\0B", 3)) + ">, any"});
    row("an asterisk in a longer field", "crash\t*\tA*\t**\n", {"crash: any, <A*>, <**>"});
    row("digits and underscores", "crash\t_localtime32_s\n", {"crash: _localtime32_s, any, any"});
    row("letters beyond ASCII", "crash\t*\tJ\u00f6rn\t\u65e5\n",
        {QString::fromUtf8("crash: any, <J\u00f6rn>, <\u65e5>")});
    row("order is kept", "hang\tB\ncrash\tA\n", {"hang: B, any, any", "crash: A, any, any"});
    row("comments and empty lines", "# crash\tA\n\n#\nhang\tB\n\n", {"hang: B, any, any"});
    row("a comment may be long and any bytes", "#" + QByteArray(5000, '\xff') + "\nhang\tB\n", {"hang: B, any, any"});
    row("line ends of Windows", "hang\tA\tK\r\n\r\ncrash\tB\r\n", {"hang: A, <K>, any", "crash: B, any, any"});
    const QByteArray longest = "hang\tA\t" + QByteArray(4096 - 7, 'k');
    row("the longest line", longest + "\n" + longest + "\r\n",
        {"hang: A, <" + QString(4089, 'k') + ">, any", "hang: A, <" + QString(4089, 'k') + ">, any"});
}

void badLines()
{
    const auto row = [](const QString &name, const QByteArray &line, const QString &problem) {
        addTestRow(name, [=] {
            QStringList problems;
            QCOMPARE(read("# a comment\n" + line + "\nhang\tB\n", problems), QStringList({"hang: B, any, any"}));
            QCOMPARE(problems, QStringList({"2: " + problem}));
        });
    };
    const auto kind = QStringLiteral("unknown kind of trouble");
    const auto call = QStringLiteral("the second field is not the name of a call");
    const auto missing = QStringLiteral("the call is missing");
    const auto utf8 = QStringLiteral("not UTF-8, or with a byte-order mark");
    row("no call", "crash", missing);
    row("blanks instead of a tab", "crash RegOpenKeyExA", missing);
    row("blanks only", "  ", missing);
    row("a tab only", "\t", kind);
    row("an unknown kind", "explode\tA", kind);
    row("an empty kind", "\tA", kind);
    row("case of letters", "Crash\tA", kind);
    row("a blank before the kind", " crash\tA", kind);
    row("a blank after the kind", "crash \tA", kind);
    row("a number for a kind without one", "crash=1\tA", kind);
    row("hang with an empty number", "hang=\tA", kind);
    row("sleep without a number", "sleep\tA", kind);
    row("sleep with an empty number", "sleep=\tA", kind);
    row("a negative number", "sleep=-1\tA", kind);
    row("a sign", "sleep=+1\tA", kind);
    row("a fraction", "sleep=1.5\tA", kind);
    row("a unit", "sleep=1s\tA", kind);
    row("a blank before the number", "sleep= 1\tA", kind);
    row("a blank after the number", "sleep=1 \tA", kind);
    row("two numbers", "sleep=1=1\tA", kind);
    row("a hexadecimal number", "sleep=0x10\tA", kind);
    row("a digit beyond ASCII", "sleep=\u0661\tA", kind);
    row("a sleep that is too long", "sleep=4294967296\tA", kind);
    row("a number of many digits", "sleep=" + QByteArray(100, '9') + "\tA", kind);
    row("exit without a code", "exit\tA", kind);
    row("a code that is too large", "exit=256\tA", kind);
    row("a code that is too large by far", "exit=4294967296\tA", kind);
    row("a negative code", "exit=-1\tA", kind);
    row("a kind that ends with a null byte", QByteArray("crash\0\tA", 8), kind);
    row("an empty call", "crash\t", call);
    row("an empty call with a key", "crash\t\tK", call);
    row("a pattern", "crash\tReg*", call);
    row("two asterisks", "crash\t**", call);
    row("a call with a blank", "crash\tRegOpenKeyExA ", call);
    row("a call with parentheses", "crash\tGetUserNameW()", call);
    row("a call with a null byte", QByteArray("crash\tA\0B", 9), call);
    row("a carriage return in the line", "crash\tA\r\r", call);
    row("too many fields", "crash\tA\tK\tV\tW", "more than 4 fields");
    row("a tab at the end", "crash\tA\tK\tV\t", "more than 4 fields");
    row("not UTF-8", "crash\tA\tK\xff", utf8);
    row("a cut character", "crash\tA\tK\xc3", utf8);
    row("not UTF-8 after a null byte", QByteArray("crash\tA\tK\0\xff", 11), utf8);
    row("a surrogate", "crash\tA\tK\xed\xa0\x80", utf8);
    row("a byte-order mark", "\xef\xbb\xbf"
                             "crash\tA",
        utf8);
    row("UTF-16", QByteArray("c\0r\0a\0s\0h\0\t\0A\0", 14), kind);
    row("too long", "crash\tA\t" + QByteArray(4096 - 7, 'k'), "longer than 4096 bytes");
    row("too long by far", QByteArray(900000, '\t'), "longer than 4096 bytes");
}

void everyBadLineIsTold()
{
    QStringList problems;
    QCOMPARE(read("crash\n\nboom\tA\nhang\tB\ncrash\t\n", problems), QStringList({"hang: B, any, any"}));
    const QStringList expected = {"1: the call is missing", "3: unknown kind of trouble",
                                  "5: the second field is not the name of a call"};
    QCOMPARE(problems, expected);
}

/// A process that leaves no core dump.
class Process : public QProcess
{
protected:
    void setupChildProcess() override
    {
        const rlimit noCore = {0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
    }
};

struct Run
{
    QString end;
    QByteArray output;
    QByteArray errors;
    qint64 milliseconds = 0;
};

/// Runs print_user_name in \a folder.
Run run(const QString &folder, const QString &troubleFile)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VKSYSTEMINFO_MACHINE"), QStringLiteral(MACHINES_DIR "/workstation"));
    environment.insert(QStringLiteral("VKSYSTEMINFO_TROUBLE"), troubleFile);
    Process process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    QElapsedTimer timer;
    timer.start();
    process.start(QCoreApplication::applicationDirPath() + "/print_user_name", QStringList());
    Run result;
    if (!process.waitForFinished(500 * 1000)) {
        result.end = QStringLiteral("does not end");
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.milliseconds = timer.elapsed();
    // After a crash QProcess has the number of the signal.
    const bool crashed = process.exitStatus() == QProcess::CrashExit;
    result.end = QString(crashed ? "signal %1" : "exit code %1").arg(process.exitCode());
    result.output = process.readAllStandardOutput();
    result.errors = process.readAllStandardError();
    return result;
}

void writeFile(const QString &name, const QByteArray &text)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

const QByteArray userName = "J\u00f6rn\n";

void troubleOfAProcess()
{
    const auto row = [](const QString &name, const QByteArray &text, const QString &end, const QByteArray &output,
                        const QByteArray &errors) {
        addTestRow(name, [=] {
            const QTemporaryDir folder;
            writeFile(folder.filePath("trouble"), text);
            const Run result = run(folder.path(), QStringLiteral("trouble"));
            QCOMPARE(result.errors, errors);
            QCOMPARE(result.output, output);
            QCOMPARE(result.end, end);
        });
    };
    const QString success = QStringLiteral("exit code 0");
    row("empty", "", success, userName, "");
    row("another call", "crash\tGetComputerNameExW\n", success, userName, "");
    row("another key", "crash\tGetUserNameW\tK\n", success, userName, "");
    row("crash", "crash\tGetUserNameW\n", QStringLiteral("signal %1").arg(SIGSEGV), "", "");
    row("abort", "abort\tGetUserNameW\n", QStringLiteral("signal %1").arg(SIGABRT), "", "");
    row("exit", "exit=7\tGetUserNameW\n", "exit code 7", "", "");
    row("any call", "exit=7\t*\n", "exit code 7", "", "");
    row("empty key and value", "exit=7\tGetUserNameW\t\t\n", "exit code 7", "", "");
    row("the first line that matches", "exit=6\tGetVersionExA\nexit=7\tGetUserNameW\nexit=8\t*\n", "exit code 7", "",
        "");
    row("a line that cannot be read", "boom\t*\nexit=7\t*\nexit\t*\n", "exit code 7", "",
        "trouble:1: unknown kind of trouble\ntrouble:3: unknown kind of trouble\n");
    const QByteArray large = "exit=7\t*\n#" + QByteArray(1024 * 1024 - 10, ' ');
    row("the largest file", large, "exit code 7", "", "");
    row("a file that is too large", large + " ", success, userName, "trouble: larger than 1048576 bytes\n");
}

void sleepOfAProcess()
{
    const QTemporaryDir folder;
    writeFile(folder.filePath("trouble"), "sleep=300\tGetUserNameW\n");
    const Run result = run(folder.path(), QStringLiteral("trouble"));
    QVERIFY(result.milliseconds >= 300);
    QCOMPARE(result.output, userName);
    QCOMPARE(result.end, QStringLiteral("exit code 0"));
}

void hangOfAProcess()
{
    const QTemporaryDir folder;
    writeFile(folder.filePath("trouble"), "hang\tRegCloseKey\n");
    ForkedChild child([&] {
        qputenv("VKSYSTEMINFO_TROUBLE", QFile::encodeName(folder.filePath("trouble")));
        ForkedChild::tell('a');
        RegCloseKey(HKEY_LOCAL_MACHINE);
        ForkedChild::tell('b');
    });
    QCOMPARE(child.told(), 'a');
    QTest::qSleep(300);
    kill(child.id(), SIGTERM);
    QCOMPARE(child.end(), "signal " + QByteArray::number(SIGTERM));
}

void troubleFiles()
{
    const auto row = [](const QString &name, const QString &file, const QByteArray &errors) {
        addTestRow(name, [=] {
            const QTemporaryDir folder;
            QVERIFY(QDir(folder.path()).mkdir("folder"));
            const Run result = run(folder.path(), file);
            QCOMPARE(result.end, QStringLiteral("exit code 0"));
            QCOMPARE(result.output, userName);
            QCOMPARE(result.errors, errors);
        });
    };
    row("no name", QString(""), "");
    row("a file that does not exist", "no/such/file", "");
    row("a folder", "folder", "folder: file to open is a directory\n");
    row("no end", "/dev/zero", "/dev/zero: larger than 1048576 bytes\n");
}

void absoluteName()
{
    const QTemporaryDir folder;
    writeFile(folder.filePath("trouble"), "exit=7\t*\n");
    QCOMPARE(run(QStringLiteral("/"), folder.filePath("trouble")).end, QStringLiteral("exit code 7"));
}

void fileIsReadOnce()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("trouble");
    QCOMPARE(endOf([&] {
                 qputenv("VKSYSTEMINFO_TROUBLE", QFile::encodeName(name));
                 writeFile(name, "exit=7\tRegCloseKey\n");
                 GetLastError(); // no call in this sense
                 writeFile(name, "exit=8\tRegCloseKey\n");
                 GetLogicalDrives();
                 writeFile(name, "exit=9\tRegCloseKey\n");
                 RegCloseKey(HKEY_LOCAL_MACHINE);
             }),
             QByteArray("exit code 8"));
}

void resetKeepsTheTroubleOfTheFile()
{
    const QTemporaryDir folder;
    writeFile(folder.filePath("trouble"), "exit=7\tRegCloseKey\n");
    QCOMPARE(endOf([&] {
                 qputenv("VKSYSTEMINFO_TROUBLE", QFile::encodeName(folder.filePath("trouble")));
                 GetLogicalDrives();
                 simulated::reset();
                 RegCloseKey(HKEY_LOCAL_MACHINE);
             }),
             QByteArray("exit code 7"));
}

void scopedTroubleComesFirst()
{
    const QTemporaryDir folder;
    writeFile(folder.filePath("trouble"), "exit=7\tRegCloseKey\n");
    QCOMPARE(endOf([&] {
                 qputenv("VKSYSTEMINFO_TROUBLE", QFile::encodeName(folder.filePath("trouble")));
                 const auto trouble = simulated::Trouble::nthCall("RegCloseKey", 0, TroubleKind::sleep(0));
                 RegCloseKey(HKEY_LOCAL_MACHINE);
                 ForkedChild::tell('a');
                 RegCloseKey(HKEY_LOCAL_MACHINE);
             }),
             QByteArray("a, exit code 7"));
}

void addTests()
{
    addTestRows("goodLines", goodLines);
    addTestRows("badLines", badLines);
    addTestRow("everyBadLineIsTold", everyBadLineIsTold);
    addTestRows("troubleOfAProcess", troubleOfAProcess);
    addTestRow("sleepOfAProcess", sleepOfAProcess);
    addTestRow("hangOfAProcess", hangOfAProcess);
    addTestRows("troubleFiles", troubleFiles);
    addTestRow("absoluteName", absoluteName);
    addTestRow("fileIsReadOnce", fileIsReadOnce);
    addTestRow("resetKeepsTheTroubleOfTheFile", resetKeepsTheTroubleOfTheFile);
    addTestRow("scopedTroubleComesFirst", scopedTroubleComesFirst);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
