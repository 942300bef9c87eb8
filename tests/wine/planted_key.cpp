// Creates a key like those of Windows Installer in the registry before the tests, and checks after
// them that it still exists. Refuses to run outside a Wine prefix of this project.
//
//   planted_key plant | check
//
// check removes the key. It also fails if a test left one of its own keys.

#include "throw_away_windows.h"

#include <cstring>
#include <cwchar>

namespace {

constexpr wchar_t installer[] = L"Installer";
constexpr wchar_t products[] = L"Installer\\Products";
constexpr wchar_t planted[] = L"Installer\\Products\\00000000000000000000000000000001";
constexpr wchar_t valueName[] = L"ProductName";
constexpr wchar_t productName[] = L"Planted";

bool plant()
{
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CLASSES_ROOT, planted, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, &key, nullptr)
        != ERROR_SUCCESS)
        return false;
    const LSTATUS status = RegSetValueExW(key, valueName, 0, REG_SZ, reinterpret_cast<const BYTE *>(productName),
                                          sizeof productName);
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

bool isPlanted()
{
    wchar_t data[64] = {};
    DWORD size = sizeof data - sizeof *data;
    return RegGetValueW(HKEY_CLASSES_ROOT, planted, valueName, RRF_RT_REG_SZ, nullptr, data, &size) == ERROR_SUCCESS
        && std::wcscmp(data, productName) == 0;
}

/// Also removes the parent keys that are empty then.
void removePlantedKey()
{
    RegDeleteKeyW(HKEY_CLASSES_ROOT, planted);
    RegDeleteKeyW(HKEY_CLASSES_ROOT, products);
    RegDeleteKeyW(HKEY_CLASSES_ROOT, installer);
}

/// The number of keys that DescribedWindows created and did not delete.
int keysLeftByTests()
{
    constexpr wchar_t start[] = L"vkSystemInfo test "; // see described_windows_real.cpp
    constexpr std::size_t length = sizeof start / sizeof *start - 1;
    HKEY software = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &software) != ERROR_SUCCESS)
        return -1;
    int count = 0;
    wchar_t name[256];
    for (DWORD index = 0; RegEnumKeyW(software, index, name, 256) == ERROR_SUCCESS; ++index) {
        if (std::wcsncmp(name, start, length) == 0) {
            std::printf("left in HKEY_CURRENT_USER\\Software: %ls\n", name);
            ++count;
        }
    }
    RegCloseKey(software);
    return count;
}

} // namespace

int main(int argc, char *argv[])
{
    const bool plants = argc == 2 && std::strcmp(argv[1], "plant") == 0;
    if (!plants && !(argc == 2 && std::strcmp(argv[1], "check") == 0)) {
        std::fprintf(stderr, "usage: planted_key plant | check\n");
        return 2;
    }
    if (!mayChangeWindows("planted_key"))
        return 1;
    if (plants)
        return plant() ? 0 : 1;
    const bool survived = isPlanted();
    if (!survived)
        std::printf("HKEY_CLASSES_ROOT\\%ls is no longer as it was planted\n", planted);
    removePlantedKey();
    return survived && keysLeftByTests() == 0 ? 0 : 1;
}
