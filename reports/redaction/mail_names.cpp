#include "account_names.h"
#include "folding.h"
#include "ordinary_words.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t longestLine = 200;

bool isNameByte(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z')
        || (byte >= 'A' && byte <= 'Z');
}

bool isHostByte(char byte)
{
    return isNameByte(byte) || byte == '.' || byte == '-' || byte == '_';
}

void add(Findings &findings, std::size_t begin, std::size_t end, AliasKind kind)
{
    if (end > begin)
        findings.push_back({int(begin), int(end), kind, Reason::Form});
}

bool endsWith(const std::u16string &line, const std::u16string &word)
{
    return line.size() >= word.size() && line.compare(line.size() - word.size(), word.size(), word) == 0;
}

/// "Kind regards,".
bool isClosing(std::u16string line)
{
    static constexpr const char *closings[] = {"regards", "sincerely", "cheers", "gruß", "grüße", "grüßen", "gruesse", "gruessen",
                                               "cordialement", "salutations", "saludos", "saludo", "saluti", "groeten",
                                               "pozdrawiam", "saygılar", "уважением", "敬具"};
    while (!line.empty() && std::u16string_view(u",!. ").find(line.back()) != std::u16string_view::npos)
        line.pop_back();
    return std::any_of(std::begin(closings), std::end(closings), [&line](const char *closing) {
        return endsWith(line, folded(std::string_view(closing)));
    });
}

/// Two or three words that begin with capital letters and are no ordinary ones: "Jörn Lindmoor".
bool isPerson(std::string_view line)
{
    SymbolReader reader(line);
    Symbol symbol;
    int words = 0;
    std::u16string word;
    bool isFirst = true;
    const auto finish = [&] {
        const bool isName = word.size() > 1 && !isOrdinaryWord(word);
        word.clear();
        isFirst = true;
        ++words;
        return isName;
    };
    while (reader.next(symbol)) {
        if (symbol.code == u' ') {
            if (!word.empty() && !finish())
                return false;
            continue;
        }
        const bool isLetter = symbol.kind == SymbolClass::Upper || (symbol.kind == SymbolClass::Lower && !isFirst);
        if (!isLetter && (symbol.code != u'-' || isFirst))
            return false;
        isFirst = false;
        word += symbol.code;
    }
    return (word.empty() || finish()) && (words == 2 || words == 3);
}

void findReceived(std::string_view text, std::size_t begin, std::string_view line, Findings &findings)
{
    for (const std::string_view word : {"from ", "by "}) {
        const std::size_t found = line.find(word);
        if (found == std::string_view::npos)
            continue;
        const std::size_t host = begin + found + word.size();
        std::size_t end = host;
        while (end < text.size() && isHostByte(text[end]))
            ++end;
        add(findings, host, end, AliasKind::Host);
    }
}

/// "From: Name <address>".
void findSender(std::size_t begin, std::string_view line, const std::u16string &symbols, Findings &findings)
{
    const std::size_t bracket = line.find('<');
    for (const std::u16string header : {u"from: ", u"to: ", u"cc: ", u"von: ", u"an: "}) {
        if (symbols.compare(0, header.size(), header) != 0 || bracket == std::string_view::npos || bracket <= header.size())
            continue;
        const std::string_view name = line.substr(header.size(), bracket - header.size());
        const std::size_t first = name.find_first_not_of(" \"'");
        const std::size_t last = name.find_last_not_of(" \"'");
        if (first != std::string_view::npos)
            add(findings, begin + header.size() + first, begin + header.size() + last + 1, AliasKind::User);
    }
}

} // namespace

void findMailNames(std::string_view text, Findings &findings)
{
    bool isBelowClosing = false;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string_view line = text.substr(begin, end - begin);
        while (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        const std::u16string symbols = line.size() <= longestLine ? folded(line) : std::u16string();
        const bool isEmpty = symbols.find_first_not_of(u' ') == std::u16string::npos;
        const bool isText = symbols.find_first_of(u":/\\@=") == std::u16string::npos;
        if (!isEmpty && isText && (isBelowClosing || isPerson(line)))
            add(findings, begin, begin + line.size(), AliasKind::User);
        isBelowClosing = isClosing(symbols) || (isBelowClosing && isEmpty);
        if (symbols.compare(0, 9, u"received:") == 0)
            findReceived(text, begin, line, findings);
        findSender(begin, line, symbols, findings);
        begin = end + 1;
    }
}

} // namespace Reports
} // namespace velkor
