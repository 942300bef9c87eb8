// The version resource of the DLL.

#include "test_main.h"

#include <QtTest/QtTest>

#include <windows.h>

class VersionResourceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fixedNumbers();
    void texts_data();
    void texts();

private:
    QByteArray m_resource;
};

void VersionResourceTest::initTestCase()
{
    const QString file = QStringLiteral(LIBRARY_FILE);
    const auto *name = reinterpret_cast<const wchar_t *>(file.utf16());
    const DWORD size = GetFileVersionInfoSizeW(name, nullptr);
    QVERIFY(size > 0);
    m_resource.resize(int(size));
    QVERIFY(GetFileVersionInfoW(name, 0, size, m_resource.data()));
}

void VersionResourceTest::fixedNumbers()
{
    VS_FIXEDFILEINFO *numbers = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(m_resource.data(), L"\\", reinterpret_cast<void **>(&numbers), &size));
    QCOMPARE(HIWORD(numbers->dwFileVersionMS), WORD(1));
    QCOMPARE(LOWORD(numbers->dwFileVersionMS), WORD(3));
    QCOMPARE(HIWORD(numbers->dwFileVersionLS), WORD(12));
    QCOMPARE(LOWORD(numbers->dwFileVersionLS), WORD(0));
    QCOMPARE(numbers->dwProductVersionMS, numbers->dwFileVersionMS);
    QCOMPARE(numbers->dwProductVersionLS, numbers->dwFileVersionLS);
    QCOMPARE(numbers->dwFileType, DWORD(VFT_DLL));
}

void VersionResourceTest::texts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("file version") << "FileVersion"
                                  << "1.3.12";
    QTest::newRow("product version") << "ProductVersion"
                                     << "1.3.12";
    QTest::newRow("original file name") << "OriginalFilename"
                                        << "vkSystemInfo.dll";
}

void VersionResourceTest::texts()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    const QString path = QStringLiteral("\\StringFileInfo\\040904b0\\") + name; // US English, Unicode
    wchar_t *text = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(m_resource.data(), reinterpret_cast<const wchar_t *>(path.utf16()),
                           reinterpret_cast<void **>(&text), &size));
    QCOMPARE(QString::fromWCharArray(text), expected);
}

TEST_WITH_CORE_APPLICATION(VersionResourceTest);
#include "tst_version_resource.moc"
