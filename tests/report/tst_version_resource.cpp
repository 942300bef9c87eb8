// The version resources of the DLL and of the programs.

#include "test_main.h"

#include <QtTest/QtTest>

#include <windows.h>

class VersionResourceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fixedNumbers_data();
    void fixedNumbers();
    void texts_data();
    void texts();
};

namespace {

QByteArray resourceOf(const QString &file)
{
    const auto *name = reinterpret_cast<const wchar_t *>(file.utf16());
    const DWORD size = GetFileVersionInfoSizeW(name, nullptr);
    QByteArray resource(int(size), '\0');
    return GetFileVersionInfoW(name, 0, size, resource.data()) ? resource : QByteArray();
}

} // namespace

void VersionResourceTest::fixedNumbers_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("type");
    QTest::newRow("vkSystemInfo") << LIBRARY_FILE << int(VFT_DLL);
    QTest::newRow("vkreport") << VKREPORT << int(VFT_APP);
    QTest::newRow("vkcompare") << VKCOMPARE << int(VFT_APP);
}

void VersionResourceTest::fixedNumbers()
{
    QFETCH(QString, file);
    QFETCH(int, type);
    const QByteArray resource = resourceOf(file);
    VS_FIXEDFILEINFO *numbers = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(resource.constData(), L"\\", reinterpret_cast<void **>(&numbers), &size));
    QCOMPARE(HIWORD(numbers->dwFileVersionMS), WORD(1));
    QCOMPARE(LOWORD(numbers->dwFileVersionMS), WORD(3));
    QCOMPARE(HIWORD(numbers->dwFileVersionLS), WORD(12));
    QCOMPARE(LOWORD(numbers->dwFileVersionLS), WORD(0));
    QCOMPARE(numbers->dwProductVersionMS, numbers->dwFileVersionMS);
    QCOMPARE(numbers->dwProductVersionLS, numbers->dwFileVersionLS);
    QCOMPARE(numbers->dwFileType, DWORD(type));
}

void VersionResourceTest::texts_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto rows = [](const char *file, const char *name, const char *fileName, const char *description) {
        const auto row = [&](const char *text, const char *expected) {
            QTest::addRow("%s, %s", name, text) << file << text << expected;
        };
        row("FileVersion", "1.3.12");
        row("ProductVersion", "1.3.12");
        row("ProductName", "vkSystemInfo");
        row("InternalName", name);
        row("OriginalFilename", fileName);
        row("FileDescription", description);
    };
    rows(LIBRARY_FILE, "vkSystemInfo", "vkSystemInfo.dll", "Plain-text system report for diagnosing Qt applications");
    rows(VKREPORT, "vkreport", "vkreport.exe", "Makes and reads system reports");
    rows(VKCOMPARE, "vkcompare", "vkcompare.exe", "Shows what differs between system reports");
}

void VersionResourceTest::texts()
{
    QFETCH(QString, file);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    const QByteArray resource = resourceOf(file);
    const QString path = QStringLiteral("\\StringFileInfo\\040904b0\\") + name; // US English, Unicode
    wchar_t *text = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(resource.constData(), reinterpret_cast<const wchar_t *>(path.utf16()),
                           reinterpret_cast<void **>(&text), &size));
    QCOMPARE(QString::fromWCharArray(text), expected);
}

TEST_WITH_CORE_APPLICATION(VersionResourceTest);
#include "tst_version_resource.moc"
