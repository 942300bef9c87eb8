// A host that makes many reports without OpenGL: 150, or as many as its argument says. After the
// first ones the working set does not grow. Each report leaves one handle open, that of the OEM key.
// Refuses to run outside a Wine prefix of this project, because it creates that key if it does not
// exist.

#include "process_counts.h"
#include "throw_away_windows.h"
#include "vkSystemInfo.h"

#include <QtWidgets/QApplication>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int defaultReports = 150; // a slow Wine needs a second for each
constexpr int warmUp = 50;          // reports during which Qt and Wine fill their caches
constexpr SIZE_T allowedGrowth = 256 * 1024;

/// The OEM key, which exists at least as long as the object.
class OemKey
{
public:
    OemKey()
    {
        HKEY key = nullptr;
        m_status = RegCreateKeyExA(HKEY_LOCAL_MACHINE, path, 0, nullptr, REG_OPTION_VOLATILE, KEY_READ, nullptr, &key,
                                   &m_disposition);
        if (m_status == ERROR_SUCCESS)
            RegCloseKey(key);
    }
    ~OemKey()
    {
        if (m_status == ERROR_SUCCESS && m_disposition == REG_CREATED_NEW_KEY)
            RegDeleteKeyA(HKEY_LOCAL_MACHINE, path);
    }
    OemKey(const OemKey &) = delete;
    OemKey &operator=(const OemKey &) = delete;

    bool isThere() const { return m_status == ERROR_SUCCESS; }

private:
    static constexpr char path[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation";
    LSTATUS m_status;
    DWORD m_disposition = 0;
};

} // namespace

int main(int argc, char *argv[])
{
    if (!mayChangeWindows("many_reports"))
        return 1;
    const QApplication application(argc, argv);
    const int reports = argc > 1 ? std::atoi(argv[1]) : defaultReports;
    const OemKey oemKey;
    if (!oemKey.isThere() || reports <= warmUp)
        return 1;
    DWORD handles = 0;
    SIZE_T bytes = 0;
    for (int number = 0; number < reports; ++number) {
        if (number == warmUp) {
            handles = handleCount();
            bytes = workingSet();
        }
        if (velkor::SystemInfo::allInfos(true).size() < 1000) {
            std::printf("report %d is not one\n", number);
            return 1;
        }
    }
    const DWORD handlesAtEnd = handleCount();
    const SIZE_T bytesAtEnd = workingSet();
    const DWORD expected = handles + DWORD(reports - warmUp);
    std::printf("from report %d to %d: handles %lu -> %lu (expected %lu), working set %llu -> %llu KiB\n", warmUp, reports,
                handles, handlesAtEnd, expected, static_cast<unsigned long long>(bytes / 1024),
                static_cast<unsigned long long>(bytesAtEnd / 1024));
    if (handles == 0 || bytes == 0)
        return 1; // the measurement failed
    return handlesAtEnd == expected && bytesAtEnd <= bytes + allowedGrowth ? 0 : 1;
}
