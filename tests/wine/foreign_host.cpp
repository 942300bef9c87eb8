// A host without the header and the import library: it finds the functions of the DLL by name.
//
//   foreign_host vkSystemInfo.dll                   both tests
//   foreign_host vkSystemInfo.dll without-opengl    the first test, if Qt has no OpenGL
//
// First test: keeps a result of every exported function, frees the DLL, then reads and destroys
// the results.
//
// Second test: loads the DLL, makes a report and frees the DLL, a hundred times. The host must not
// crash, and after the first rounds neither the handles nor the memory may grow.

#include "process_counts.h"

#include <QtCore/QDir>
#include <QtWidgets/QApplication>
#include <cstdio>
#include <vector>

namespace {

constexpr int rounds = 100;
constexpr int warmUp = 20; // rounds in which Qt and Wine fill their caches
constexpr SIZE_T allowedGrowth = 4 * 1024 * 1024;

/// The host's own declaration of COpenGLVersionInfo.
struct OpenGLVersion
{
    bool isDefault;
    qint32 flags;
    qint32 major;
    qint32 minor;
    QString name;
};

QString text(void *function)
{
    return reinterpret_cast<QString (*)()>(function)();
}

QString report(void *function)
{
    return reinterpret_cast<QString (*)(bool)>(function)(false);
}

QString numbers(void *function)
{
    int patch = 0;
    int minor = 0;
    int major = 0;
    reinterpret_cast<void (*)(int &, int &, int &)>(function)(patch, minor, major);
    return QString::number(major) + QString::number(minor) + QString::number(patch);
}

QString foundVersion(void *function)
{
    int error = 0;
    QString version;
    reinterpret_cast<bool (*)(int &, QString &)>(function)(error, version);
    return version;
}

QString openGLName(void *function)
{
    return reinterpret_cast<OpenGLVersion (*)()>(function)().name;
}

struct Function
{
    const char *name;
    QString (*call)(void *function);
};

constexpr Function functions[] = {
    {"_ZN6velkor10SystemInfo14ScanOpenGLInfo16GetOpenGLVersionEv", openGLName},
    {"_ZN6velkor10SystemInfo14ScanOpenGLInfo22GetOpenGLVersionCachedEv", openGLName},
    {"_ZN6velkor10SystemInfo10WinSysInfo20checkStandardBonjourERiR7QString", foundVersion},
    {"_ZN6velkor10SystemInfo10WinSysInfo18checkVelkorBonjourERiR7QString", foundVersion},
    {"_ZN6velkor10SystemInfo8allInfosEb", report},
    {"_ZN6velkor10SystemInfo10libVersionERiS1_S1_", numbers},
    {"_ZN6velkor10SystemInfo16libVersionStringEv", text},
    {"_ZN6velkor10SystemInfo12platformNameEv", text},
    {"_ZN6velkor10SystemInfo15qtAccessibilityEv", text},
    {"_ZN6velkor10SystemInfo17qtCoreApplicationEv", text},
    {"_ZN6velkor10SystemInfo10qtDateTimeEv", text},
    {"_ZN6velkor10SystemInfo9qtDesktopEv", text},
    {"_ZN6velkor10SystemInfo17qtDesktopServicesEv", text},
    {"_ZN6velkor10SystemInfo8qtGlobalEv", text},
    {"_ZN6velkor10SystemInfo10qtHostInfoEv", text},
    {"_ZN6velkor10SystemInfo8qtLocaleEv", text},
    {"_ZN6velkor10SystemInfo13qtPrinterInfoEv", text},
    {"_ZN6velkor10SystemInfo9qtScreensEv", text},
    {"_ZN6velkor10SystemInfo19qtSystemEnvironmentEv", text},
    {"_ZN6velkor10SystemInfo9separatorEv", text},
};

/// The number of functions that the DLL exports by name.
DWORD exportCount(HMODULE module)
{
    const auto start = reinterpret_cast<const BYTE *>(module);
    const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER *>(start);
    const auto headers = reinterpret_cast<const IMAGE_NT_HEADERS *>(start + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY &directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    return reinterpret_cast<const IMAGE_EXPORT_DIRECTORY *>(start + directory.VirtualAddress)->NumberOfNames;
}

/// Whether there is memory at \a address.
bool isMapped(const void *address)
{
    MEMORY_BASIC_INFORMATION memory = {};
    return VirtualQuery(address, &memory, sizeof memory) != 0 && memory.State == MEM_COMMIT;
}

struct Result
{
    const char *function;
    QString text;
    QByteArray copy; // of the text, made while the DLL is loaded
};

/// A result of every function; the DLL is freed before the function returns. Empty if the functions
/// are not exactly the exported ones, if one returns no text, or if the DLL stays loaded.
std::vector<Result> keptResults(const char *library)
{
    const HMODULE module = LoadLibraryA(library);
    if (!module || exportCount(module) != std::size(functions))
        return {};
    std::vector<Result> results;
    for (const Function &function : functions) {
        const auto address = reinterpret_cast<void *>(GetProcAddress(module, function.name));
        const QString result = address ? function.call(address) : QString();
        if (result.isEmpty()) {
            std::printf("%s: no result\n", function.name);
            return {};
        }
        results.push_back({function.name, result, result.toUtf8()});
    }
    if (!isMapped(module) || !FreeLibrary(module) || GetModuleHandleA("vkSystemInfo.dll") || isMapped(module)) {
        std::printf("the library stayed loaded\n");
        return {};
    }
    return results;
}

/// With both DNS-SD libraries of the tests, so that their checks return versions.
bool resultsOutliveTheLibrary(const char *library, bool withoutOpenGL)
{
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/dnssd_libraries/running");
    SetDllDirectoryW(reinterpret_cast<const wchar_t *>(QDir::toNativeSeparators(folder).utf16()));
    std::vector<Result> results = keptResults(library);
    SetDllDirectoryW(nullptr);
    if (results.empty())
        return false;
    const QByteArray openGL = results.front().copy;
    for (Result &result : results) {
        if (!isMapped(result.text.data_ptr()) || result.text.toUtf8() != result.copy) {
            std::printf("%s: the result went with the library\n", result.function);
            std::fflush(stdout);
            TerminateProcess(GetCurrentProcess(), 1); // the destructor of the result would crash
        }
        result.text += QLatin1Char('.');
        result.text.clear();
    }
    std::printf("%u results read without the library; OpenGL: %s\n", unsigned(results.size()), openGL.constData());
    return !withoutOpenGL || openGL == "not recognized";
}

bool wholeReport(const char *library, bool noOpenGL)
{
    using AllInfos = QString (*)(bool);
    const HMODULE module = LoadLibraryA(library);
    if (!module)
        return false;
    const auto allInfos = reinterpret_cast<AllInfos>(
        reinterpret_cast<void *>(GetProcAddress(module, "_ZN6velkor10SystemInfo8allInfosEb")));
    bool complete = false;
    if (allInfos) {
        const QString text = allInfos(noOpenGL);
        complete = text.startsWith(QLatin1String("############ Windows specific section ###########\n"))
            && text.contains(QLatin1String("#### QGLFormat #### \n")) == !noOpenGL;
    }
    return FreeLibrary(module) && complete && !GetModuleHandleA("vkSystemInfo.dll");
}

bool neitherHandlesNorMemoryGrow(const char *library)
{
    DWORD handles = 0;
    SIZE_T bytes = 0;
    for (int round = 0; round < rounds; ++round) {
        if (round == warmUp) {
            handles = handleCount();
            bytes = workingSet();
        }
        // The graphics driver keeps memory of contexts, so reports with OpenGL precede the measurement.
        const bool noOpenGL = round >= warmUp || round % 5 != 0;
        if (!wholeReport(library, noOpenGL)) {
            std::printf("round %d: no whole report, or the library stayed loaded\n", round);
            return false;
        }
    }
    const DWORD handlesAtEnd = handleCount();
    const SIZE_T bytesAtEnd = workingSet();
    std::printf("handles %lu -> %lu, working set %llu -> %llu KiB from round %d to %d\n", handles, handlesAtEnd,
                static_cast<unsigned long long>(bytes / 1024), static_cast<unsigned long long>(bytesAtEnd / 1024), warmUp,
                rounds);
    if (handles == 0 || bytes == 0)
        return false; // the measurement failed
    return handlesAtEnd <= handles + 2 && bytesAtEnd <= bytes + allowedGrowth;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv); // removes the options of Qt from argv
    const bool withoutOpenGL = argc > 2 && qstrcmp(argv[2], "without-opengl") == 0;
    if (argc < 2 || !resultsOutliveTheLibrary(argv[1], withoutOpenGL))
        return 1;
    return withoutOpenGL || neitherHandlesNorMemoryGrow(argv[1]) ? 0 : 1;
}
