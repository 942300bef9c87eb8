// The manifest and the icon in the programs, as Windows finds them.

#include "test_main.h"

#include <QtCore/QXmlStreamReader>
#include <algorithm>
#include <memory>
#include <windows.h>

class ProgramResourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manifest_data() { programs(); }
    void manifest();
    void icon_data() { programs(); }
    void icon();

private:
    static void programs();
};

namespace {

struct ModuleFreer
{
    using pointer = HMODULE;
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<void, ModuleFreer>;

/// The file as data: its code does not run.
Module openProgram(const QString &file)
{
    return Module(LoadLibraryExW(reinterpret_cast<const wchar_t *>(file.utf16()), nullptr, LOAD_LIBRARY_AS_DATAFILE));
}

struct Resource
{
    int id = 0; // 0 for a name
    WORD language = 0;
    QByteArray bytes;
};

struct Search
{
    QVector<Resource> found;
    bool isComplete = true;
};

BOOL CALLBACK addResource(HMODULE module, const wchar_t *type, const wchar_t *name, WORD language, LONG_PTR parameter)
{
    auto &search = *reinterpret_cast<Search *>(parameter);
    const HRSRC place = FindResourceExW(module, type, name, language);
    const HGLOBAL loaded = place ? LoadResource(module, place) : nullptr;
    const void *bytes = loaded ? LockResource(loaded) : nullptr;
    search.isComplete = search.isComplete && bytes;
    if (bytes) {
        const QByteArray copy(static_cast<const char *>(bytes), int(SizeofResource(module, place)));
        search.found.append({IS_INTRESOURCE(name) ? int(reinterpret_cast<ULONG_PTR>(name)) : 0, language, copy});
    }
    return TRUE;
}

BOOL CALLBACK addLanguages(HMODULE module, const wchar_t *type, wchar_t *name, LONG_PTR parameter)
{
    return EnumResourceLanguagesW(module, type, name, addResource, parameter);
}

/// All resources of a type, with any name and in any language.
QVector<Resource> resources(const Module &module, int type)
{
    Search search;
    const bool isDone = EnumResourceNamesW(module.get(), MAKEINTRESOURCEW(type), addLanguages, reinterpret_cast<LONG_PTR>(&search));
    return isDone && search.isComplete ? search.found : QVector<Resource>();
}

constexpr int iconType = 3;       // RT_ICON
constexpr int groupIconType = 14; // RT_GROUP_ICON
constexpr int manifestType = 24;  // RT_MANIFEST

/// The elements in their order, with namespace, attributes and text.
QStringList elements(const QByteArray &xml)
{
    QStringList elements;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            QString element = reader.namespaceUri() + ' ' + reader.name();
            for (const QXmlStreamAttribute &attribute : reader.attributes())
                element += ' ' + attribute.qualifiedName() + '=' + attribute.value();
            elements += element;
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            elements += '"' + reader.text().toString() + '"';
        }
    }
    return reader.hasError() ? QStringList(reader.errorString()) : elements;
}

int numberAt(const QByteArray &bytes, int offset, int size)
{
    int number = 0;
    for (int i = size - 1; i >= 0; --i)
        number = number * 256 + uchar(bytes.at(offset + i));
    return number;
}

} // namespace

void ProgramResourcesTest::programs()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("hasWindow");
    QTest::newRow("vkreport") << VKREPORT << false;
    QTest::newRow("vkcompare") << VKCOMPARE << false;
    QTest::newRow("vkviewer") << VKVIEWER << true;
    QTest::newRow("vkcapture") << VKCAPTURE << false;
}

// In the programs that make or capture a report, supportedOS would change what GetVersionEx() returns, activeCodePage the
// functions *A, dpiAware the sizes of screens.
void ProgramResourcesTest::manifest()
{
    QFETCH(QString, file);
    QFETCH(bool, hasWindow);
    const Module program = openProgram(file);
    QVERIFY(program);
    const QVector<Resource> manifests = resources(program, manifestType);
    QCOMPARE(manifests.size(), 1);     // the toolchain has not added another one
    QCOMPARE(manifests.first().id, 1); // CREATEPROCESS_MANIFEST_RESOURCE_ID
    QStringList expected = {
        "urn:schemas-microsoft-com:asm.v1 assembly manifestVersion=1.0",
        "urn:schemas-microsoft-com:asm.v3 trustInfo",
        "urn:schemas-microsoft-com:asm.v3 security",
        "urn:schemas-microsoft-com:asm.v3 requestedPrivileges",
        "urn:schemas-microsoft-com:asm.v3 requestedExecutionLevel level=asInvoker uiAccess=false",
    };
    if (hasWindow) {
        expected += {
            "urn:schemas-microsoft-com:compatibility.v1 compatibility",
            "urn:schemas-microsoft-com:compatibility.v1 application",
            "urn:schemas-microsoft-com:compatibility.v1 supportedOS Id={35138b9a-5d96-4fbd-8e2d-a2440225f93a}", // Windows 7
            "urn:schemas-microsoft-com:compatibility.v1 supportedOS Id={4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}", // Windows 8
            "urn:schemas-microsoft-com:compatibility.v1 supportedOS Id={1f676c76-80e1-4239-95bb-83d0f6d0da78}", // Windows 8.1
            "urn:schemas-microsoft-com:compatibility.v1 supportedOS Id={8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}", // Windows 10
        };
    }
    expected += {
        "urn:schemas-microsoft-com:asm.v3 application",
        "urn:schemas-microsoft-com:asm.v3 windowsSettings",
    };
    if (hasWindow) {
        expected += {
            "http://schemas.microsoft.com/SMI/2005/WindowsSettings dpiAware",
            "\"true/pm\"",
            "http://schemas.microsoft.com/SMI/2016/WindowsSettings dpiAwareness",
            "\"PerMonitor\"",
        };
    }
    expected += {
        "http://schemas.microsoft.com/SMI/2016/WindowsSettings longPathAware",
        "\"true\"",
    };
    QCOMPARE(elements(manifests.first().bytes), expected);
}

void ProgramResourcesTest::icon()
{
    QFETCH(QString, file);
    const Module program = openProgram(file);
    QVERIFY(program);
    const QVector<Resource> groups = resources(program, groupIconType);
    const QVector<Resource> images = resources(program, iconType);
    QCOMPARE(groups.size(), 1);
    const QByteArray &group = groups.first().bytes;
    QVector<int> sizes;
    for (int entry = 6; entry + 14 <= group.size(); entry += 14) { // GRPICONDIR, GRPICONDIRENTRY
        const int size = numberAt(group, entry, 1);
        sizes.append(size == 0 ? 256 : size);
        QCOMPARE(numberAt(group, entry + 6, 2), 32); // bits of a pixel
        const int id = numberAt(group, entry + 12, 2);
        const auto image = std::find_if(images.begin(), images.end(), [id](const Resource &each) { return each.id == id; });
        QVERIFY(image != images.end());
        QCOMPARE(image->bytes.size(), numberAt(group, entry + 8, 4));
        QCOMPARE(image->bytes.startsWith("\x89PNG"), size == 0);
    }
    QCOMPARE(sizes, QVector<int>({16, 24, 32, 48, 256}));
    QCOMPARE(images.size(), 5);
}

TEST_WITH_CORE_APPLICATION(ProgramResourcesTest);
#include "tst_program_resources.moc"
