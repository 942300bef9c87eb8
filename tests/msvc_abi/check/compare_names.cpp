// Says which names a DLL imports from Qt and Qt's DLLs do not export.
//   compare_names IMPORTS EXPORTS...
// IMPORTS is the output of "dumpbin /imports" for the DLL, EXPORTS that of "dumpbin /exports" for
// each of Qt's DLLs. Exit code 1 if a name is missing or nothing is imported from Qt.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using Names = std::map<std::string, std::set<std::string>>; // by DLL

static std::vector<std::string> words(const std::string &line)
{
    std::istringstream stream(line);
    std::vector<std::string> result;
    for (std::string word; stream >> word;)
        result.push_back(word);
    return result;
}

static std::string lower(std::string text)
{
    for (char &character : text)
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    return text;
}

static bool isDll(const std::string &name)
{
    return name.size() > 4 && lower(name.substr(name.size() - 4)) == ".dll";
}

static bool isHexadecimal(const std::string &text)
{
    return std::all_of(text.begin(), text.end(), [](unsigned char character) { return std::isxdigit(character); });
}

// A DLL is alone on its line; below it "  18D ??0QString@@QEAA@XZ" is a hint and a name.
static void readImports(std::istream &input, Names &names)
{
    std::string dll;
    for (std::string line; std::getline(input, line);) {
        const std::vector<std::string> parts = words(line);
        if (parts.size() == 1 && isDll(parts[0]))
            dll = parts[0];
        else if (parts.size() == 1 && parts[0] == "Summary") // of sections: "  1000 .data"
            dll.clear();
        else if (parts.size() == 2 && !dll.empty() && isHexadecimal(parts[0]))
            names[dll].insert(parts[1]);
    }
}

// "Section contains the following exports for Qt5Core.dll"; below it
// "  1    0 00012A60 ??0QString@@QEAA@XZ" is an ordinal, a hint, an address and a name.
static void readExports(std::istream &input, Names &names)
{
    std::string dll;
    for (std::string line; std::getline(input, line);) {
        const std::vector<std::string> parts = words(line);
        if (parts.size() == 7 && parts[4] == "exports" && isDll(parts[6]))
            dll = lower(parts[6]);
        else if (parts.size() >= 4 && !dll.empty() && isHexadecimal(parts[0]) && isHexadecimal(parts[1])
                 && parts[2].size() == 8 && isHexadecimal(parts[2]))
            names[dll].insert(parts[3]);
    }
}

int main(int count, char *arguments[])
{
    if (count < 3) {
        std::fputs("usage: compare_names IMPORTS EXPORTS...\n", stderr);
        return 2;
    }
    Names imported;
    Names exported;
    for (int i = 1; i < count; ++i) {
        std::ifstream file(arguments[i]);
        if (!file) {
            std::fprintf(stderr, "compare_names: cannot read %s\n", arguments[i]);
            return 2;
        }
        if (i == 1)
            readImports(file, imported);
        else
            readExports(file, exported);
    }

    size_t wanted = 0;
    size_t found = 0;
    for (const auto &[dll, names] : imported) {
        if (dll.compare(0, 2, "Qt") != 0)
            continue;
        const std::set<std::string> &available = exported[lower(dll)];
        size_t here = 0;
        for (const std::string &name : names) {
            if (available.count(name))
                ++here;
            else
                std::printf("MISSING %s %s\n", dll.c_str(), name.c_str());
        }
        std::printf("%s %s: %zu of %zu names\n", here == names.size() ? "ok     " : "FAILED ", dll.c_str(), here,
                    names.size());
        wanted += names.size();
        found += here;
    }
    if (wanted == 0)
        std::puts("FAILED  no imports from Qt found");
    return wanted != 0 && found == wanted ? 0 : 1;
}
