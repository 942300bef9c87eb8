#include "outline.h"
#include "decoded_text.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

/// The section that contains \a offset, or -1. Starts at \a section, which it advances.
int sectionAt(const std::vector<Section> &sections, std::size_t &section, int offset)
{
    while (section < sections.size() && sections[section].end <= offset)
        ++section;
    return section < sections.size() && sections[section].begin <= offset ? int(section) : -1;
}

} // namespace

Outline outlineOf(const Document &document, int section)
{
    const Section &place = document.sections()[std::size_t(section)];
    Outline outline;
    outline.nodes.resize(1 + std::size_t(place.lastItem - place.firstItem));
    const auto nodeOf = [&](int item) {
        const bool isInside = item >= place.firstItem && item < place.lastItem;
        return isInside ? std::size_t(1 + item - place.firstItem) : std::size_t(0);
    };
    for (int item = place.firstItem; item < place.lastItem; ++item) {
        const std::size_t node = nodeOf(item);
        outline.nodes[node].item = item;
        outline.nodes[nodeOf(document.items()[std::size_t(item)].parent)].items.push_back(int(node));
    }
    for (int fact = place.firstFact; fact < place.lastFact; ++fact)
        outline.nodes[nodeOf(document.facts()[std::size_t(fact)].item)].facts.push_back(fact);
    return outline;
}

bool isChosen(const Document &document, int section, const WriteOptions &options)
{
    const std::vector<int> &chosen = options.sections;
    const int row = document.sections()[std::size_t(section)].row;
    return chosen.empty() || std::find(chosen.begin(), chosen.end(), row) != chosen.end();
}

std::vector<OtherText> otherTexts(const Document &document)
{
    std::vector<OtherText> texts;
    std::size_t section = 0;
    bool continues = false; // nothing but empty lines and quotes since the last one
    for (const Place &place : document.places()) {
        if (place.kind != PlaceKind::Other) {
            continues = continues && (place.kind == PlaceKind::Empty || place.kind == PlaceKind::Quote);
            continue;
        }
        const int where = sectionAt(document.sections(), section, place.begin);
        if (continues && texts.back().section == where)
            texts.back().end = place.end;
        else
            texts.push_back({where, place.begin, place.end});
        continues = true;
    }
    return texts;
}

QString textBetween(const Document &document, int begin, int end)
{
    QByteArray bytes = document.text().mid(begin, end - begin);
    if (document.states().testFlag(State::CrLf))
        bytes.replace("\r\n", "\n").replace('\r', '\n');
    return decodedText(bytes);
}

} // namespace Reports
} // namespace velkor
