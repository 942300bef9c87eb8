#include "text_form.h"

#include <algorithm>
#include <unordered_set>

namespace velkor {
namespace Reports {

namespace {

constexpr int sampleLines = 2000;

/// The most frequent line end of \a text.
QByteArray mainLineEnd(const QByteArray &text)
{
    const std::vector<QByteArray> &known = knownLineEnds();
    std::vector<int> counts(known.size());
    int returns = 0; // before this byte
    const auto count = [&](const QByteArray &lineEnd) {
        const auto found = std::find(known.begin(), known.end(), lineEnd);
        if (found != known.end())
            ++counts[size_t(found - known.begin())];
    };
    for (const char byte : text) {
        if (byte == '\n')
            count(QByteArray(std::min(returns, 3), '\r') + '\n');
        else if (byte != '\r' && returns > 0)
            count(QByteArrayLiteral("\r"));
        returns = byte == '\r' ? returns + 1 : 0;
    }
    return known[size_t(std::max_element(counts.begin(), counts.end()) - counts.begin())];
}

/// The hashes of the first lines of the reports, whatever they are.
std::unordered_set<size_t> linesOf(const Document &document, char lineEnd)
{
    const QByteArray &text = document.text();
    std::unordered_set<size_t> lines;
    int begin = document.sections().empty() ? 0 : document.sections().front().begin;
    for (int i = 0; i < 2 * sampleLines && begin < text.size(); ++i) {
        const int feed = text.indexOf(lineEnd, begin);
        const int end = feed < 0 ? text.size() : feed + 1;
        lines.insert(lineHash(text.constData() + begin, end - begin));
        begin = end;
    }
    return lines;
}

int countLines(const std::unordered_set<size_t> &lines, const QByteArray &canonical, const TextForm &form)
{
    int count = 0;
    FormedLines formed(canonical, form);
    for (int i = 0; i < sampleLines && formed.hasNext(); ++i) {
        const QByteArray line = formed.next();
        count += lines.count(lineHash(line.constData(), line.size())) > 0 ? 1 : 0;
    }
    return count;
}

/// The forms to choose from. The first one is the one without changes of blanks.
std::vector<TextForm> candidates(States states, const TextForm &plain)
{
    std::vector<TextForm> forms = {plain};
    const auto addVariants = [&](State state, const auto &change) {
        const size_t count = states.testFlag(state) ? forms.size() : 0;
        for (size_t i = 0; i < count; ++i) {
            TextForm form = forms[i];
            change(form);
            forms.push_back(form);
        }
    };
    addVariants(State::MailQuotes, [](TextForm &form) { form.linePrefix.clear(); });
    addVariants(State::BlanksCollapsed, [](TextForm &form) { form.collapsed = true; });
    addVariants(State::LeadingBlanksStripped, [](TextForm &form) { form.leadingStripped = true; });
    addVariants(State::TrailingBlanksStripped, [](TextForm &form) { form.trailingStripped = true; });
    if (!states.testFlag(State::NoBreakSpaces))
        return forms;
    const size_t count = forms.size();
    for (size_t i = 0; i < count; ++i) {
        for (const auto noBreak : {TextForm::NoBreak::All, TextForm::NoBreak::Runs}) {
            forms.push_back(forms[i]);
            forms.back().noBreak = noBreak;
        }
    }
    return forms;
}

} // namespace

const std::vector<QByteArray> &knownLineEnds()
{
    static const std::vector<QByteArray> known = {"\n", "\r\n", "\r\r\n", "\r"};
    return known;
}

TextForm findForm(const Document &document, const QByteArray &canonical)
{
    TextForm plain;
    plain.lineEnd = mainLineEnd(document.text());
    if (document.linePrefix().size() <= maximalPrefix)
        plain.linePrefix = document.linePrefix();
    const std::vector<TextForm> forms = candidates(document.states(), plain);
    if (forms.size() == 1)
        return plain;
    const std::unordered_set<size_t> lines = linesOf(document, plain.lineEnd.back());
    TextForm best = plain;
    int most = -1;
    for (const TextForm &form : forms) {
        const int count = countLines(lines, canonical, form);
        if (count > most) {
            most = count;
            best = form;
        }
    }
    return best;
}

} // namespace Reports
} // namespace velkor
