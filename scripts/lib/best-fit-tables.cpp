// Prints simulated_windows/api/best_fit_tables.cpp as the Windows it runs on converts
// text: each UTF-16 unit that a code page lacks and that has a similar character there.
// Standard C++ and Windows alone; see scripts/best-fit-tables.

#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <string>

namespace {

std::string converted(UINT codePage, DWORD flags, wchar_t unit)
{
    char bytes[8];
    const int size = WideCharToMultiByte(codePage, flags, &unit, 1, bytes, sizeof bytes, nullptr, nullptr);
    return std::string(bytes, std::size_t(size));
}

/// The bytes of the similar character; empty when there is none, or no need of one.
std::string bestFit(UINT codePage, wchar_t unit)
{
    const std::string bytes = converted(codePage, 0, unit);
    return bytes == converted(codePage, WC_NO_BEST_FIT_CHARS, unit) ? std::string() : bytes;
}

/// As a part of a string literal; octal, since a hexadecimal escape has no end.
std::string escaped(const std::string &bytes)
{
    std::string result;
    for (const char byte : bytes) {
        char text[8];
        const bool plain = byte >= ' ' && byte <= '~' && byte != '"' && byte != '\\' && byte != '?';
        std::snprintf(text, sizeof text, plain ? "%c" : "\\%03o", plain ? byte : byte & 0xff);
        result += text;
    }
    return result;
}

/// Units that follow each other and have equally many bytes each.
class Run
{
public:
    void add(unsigned unit, const std::string &bytes)
    {
        constexpr std::size_t longest = 80;
        if (unit != m_next || bytes.size() != m_width || m_text.size() >= longest)
            print();
        if (m_text.empty()) {
            m_first = unit;
            m_width = bytes.size();
        }
        m_text += escaped(bytes);
        m_next = unit + 1;
    }

    void print()
    {
        if (!m_text.empty())
            std::printf("    {0x%04x, %u, \"%s\"},\n", m_first, unsigned(m_width), m_text.c_str());
        m_text.clear();
    }

private:
    std::string m_text;
    unsigned m_first = 0;
    unsigned m_next = 0;
    std::size_t m_width = 0;
};

} // namespace

int main()
{
    const UINT codePages[] = {1252, 1250, 1251, 932};
    _setmode(_fileno(stdout), _O_BINARY);
    std::printf("// Made by scripts/best-fit-tables; changes by hand are lost.\n"
                "#include \"best_fit.h\"\n\nnamespace simulated {\nnamespace {\n");
    for (const UINT codePage : codePages) {
        std::printf("\nconstexpr BestFitRun runs%u[] = {\n", codePage);
        Run run;
        for (unsigned unit = 0; unit < 0x10000; ++unit) {
            const std::string bytes = bestFit(codePage, wchar_t(unit));
            if (!bytes.empty())
                run.add(unit, bytes);
        }
        run.print();
        std::printf("};\n");
    }
    std::printf("\n} // namespace\n\nconst std::vector<BestFitTable> &bestFitTables()\n{\n"
                "    static const std::vector<BestFitTable> tables = {\n");
    for (const UINT codePage : codePages)
        std::printf("        {%u, std::begin(runs%u), std::end(runs%u)},\n", codePage, codePage, codePage);
    std::printf("    };\n    return tables;\n}\n\n} // namespace simulated\n");
    return std::fflush(stdout) == 0 ? 0 : 1;
}
