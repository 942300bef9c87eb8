// A host that knows neither header nor import library: it loads the DLL, makes a report
// and frees the DLL again, a hundred times. It must not crash, and after the first
// rounds neither handles nor memory may grow.
//
//   foreign_host vkSystemInfo.dll

#include "process_counts.h"

#include <QtWidgets/QApplication>
#include <cstdio>

namespace {

constexpr int rounds = 100;
constexpr int warmUp = 20; // Qt and Wine fill their caches
constexpr SIZE_T allowedGrowth = 4 * 1024 * 1024;

bool report(const char *library, bool noOpenGL)
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

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    DWORD handles = 0;
    SIZE_T bytes = 0;
    for (int round = 0; round < rounds; ++round) {
        if (round == warmUp) {
            handles = handleCount();
            bytes = workingSet();
        }
        // Contexts leave memory with the graphics driver, so they come before the measuring.
        const bool noOpenGL = round >= warmUp || round % 5 != 0;
        if (!report(argv[1], noOpenGL)) {
            std::printf("round %d: no whole report, or the library stayed loaded\n", round);
            return 1;
        }
    }
    const DWORD handlesAtEnd = handleCount();
    const SIZE_T bytesAtEnd = workingSet();
    std::printf("handles %lu -> %lu, working set %llu -> %llu KiB from round %d to %d\n", handles, handlesAtEnd,
                static_cast<unsigned long long>(bytes / 1024), static_cast<unsigned long long>(bytesAtEnd / 1024), warmUp,
                rounds);
    if (handles == 0 || bytes == 0)
        return 1; // nothing was measured
    return handlesAtEnd <= handles + 2 && bytesAtEnd <= bytes + allowedGrowth ? 0 : 1;
}
