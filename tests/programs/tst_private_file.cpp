// Files for their owner alone: apps/common/private_file.h.

#include "private_access.h"
#include "private_file.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

class PrivateFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void made();
    void existingStays();
    void oneOfSeveralMakesIt();
    void neverIncomplete();
    void read();
    void readFails();
    void written();
    void failures();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden | QDir::System); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_error;
};

namespace {

constexpr int largest = 1024 * 1024;

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

} // namespace

void PrivateFileTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_error.clear();
}

void PrivateFileTest::made()
{
    for (const QByteArray &bytes : {QByteArray(), QByteArray("a\nb\r\n\0c\x1a", 8), QByteArray(300000, 'x')}) {
        QVERIFY(makePrivateFile(path("file"), bytes, m_error) == FileResult::Done);
        QCOMPARE(contentOf(path("file")), bytes);
        QCOMPARE(whoElseHasRights(path("file")), QString());
        QCOMPARE(files(), QStringList("file"));
        QVERIFY(QFile::remove(path("file")));
    }
}

void PrivateFileTest::existingStays()
{
    QVERIFY(makePrivateFile(path("file"), "first", m_error) == FileResult::Done);
    QVERIFY(makePrivateFile(path("file"), "second", m_error) == FileResult::Exists);
    QCOMPARE(contentOf(path("file")), QByteArray("first"));
    QCOMPARE(files(), QStringList("file"));
}

void PrivateFileTest::oneOfSeveralMakesIt()
{
    constexpr int count = 8;
    for (int round = 0; round < 20; ++round) {
        std::atomic<bool> starts {false};
        std::vector<FileResult> results(count, FileResult::Failed);
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i) {
            threads.emplace_back([this, i, &starts, &results] {
                while (!starts)
                    std::this_thread::yield();
                QString error;
                results[std::size_t(i)] = makePrivateFile(path("file"), QByteArray::number(i), error);
            });
        }
        starts = true;
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(std::count(results.begin(), results.end(), FileResult::Exists), std::ptrdiff_t(count - 1));
        const auto winner = std::find(results.begin(), results.end(), FileResult::Done);
        QCOMPARE(contentOf(path("file")), QByteArray::number(int(winner - results.begin())));
        QCOMPARE(files(), QStringList("file"));
        QVERIFY(QFile::remove(path("file")));
    }
}

// Whoever finds the file finds all of its bytes.
void PrivateFileTest::neverIncomplete()
{
    const QByteArray bytes(largest, 'x');
    std::atomic<bool> isMade {false};
    QByteArray found;
    std::thread reader([this, &found, &isMade] {
        QString error;
        FileResult result = FileResult::Missing;
        while (result == FileResult::Missing && !isMade)
            result = readPrivateFile(path("file"), largest, found, error);
        if (result == FileResult::Missing)
            readPrivateFile(path("file"), largest, found, error);
    });
    const FileResult result = makePrivateFile(path("file"), bytes, m_error);
    isMade = true;
    reader.join();
    QVERIFY(result == FileResult::Done);
    QVERIFY(found == bytes);
}

void PrivateFileTest::read()
{
    QVERIFY(makePrivateFile(path("file"), "0123456789", m_error) == FileResult::Done);
    QByteArray bytes("old");
    QVERIFY(readPrivateFile(path("file"), 100, bytes, m_error) == FileResult::Done);
    QCOMPARE(bytes, QByteArray("0123456789"));
    QVERIFY(readPrivateFile(path("file"), 4, bytes, m_error) == FileResult::Done);
    QCOMPARE(bytes, QByteArray("0123"));
}

void PrivateFileTest::readFails()
{
    QByteArray bytes("old");
    QVERIFY(readPrivateFile(path("missing"), 100, bytes, m_error) == FileResult::Missing);
    QVERIFY(readPrivateFile(path("missing/file"), 100, bytes, m_error) == FileResult::Missing);
    QCOMPARE(bytes, QByteArray("old"));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QVERIFY(readPrivateFile(path("folder"), 100, bytes, m_error) == FileResult::Failed);
    QVERIFY2(m_error.startsWith(QStringLiteral("cannot read '%1': ").arg(path("folder"))), qPrintable(m_error));
}

void PrivateFileTest::written()
{
    QVERIFY(writePrivateFile(path("file"), "first", m_error));
    QCOMPARE(contentOf(path("file")), QByteArray("first"));
    QCOMPARE(whoElseHasRights(path("file")), QString());
    QVERIFY(shareWithOthers(path("file")) && !whoElseHasRights(path("file")).isEmpty());
    QVERIFY(writePrivateFile(path("file"), "second", m_error));
    QCOMPARE(contentOf(path("file")), QByteArray("second"));
    QCOMPARE(whoElseHasRights(path("file")), QString());
    QCOMPARE(files(), QStringList("file"));
}

void PrivateFileTest::failures()
{
    QVERIFY(makePrivateFile(path("missing/file"), "x", m_error) == FileResult::Failed);
    QVERIFY2(m_error.startsWith(QStringLiteral("cannot write '%1': ").arg(path("missing/file"))), qPrintable(m_error));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QVERIFY(!writePrivateFile(path("folder"), "x", m_error));
    QVERIFY2(m_error.startsWith(QStringLiteral("cannot write '%1': ").arg(path("folder"))), qPrintable(m_error));
    QCOMPARE(files(), QStringList());
}

TEST_WITH_CORE_APPLICATION(PrivateFileTest);
#include "tst_private_file.moc"
