#include "regions.h"

#include "catalogue.h"
#include "value_lines.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

bool canHoldName(const FactRow &row)
{
    return (row.type == Type::Text || row.type == Type::List) && (row.form & Fixed) == 0 && *row.only == '\0';
}

Region regionOf(const Document &document, int index)
{
    const DocumentData &data = document.data();
    const Fact &fact = data.facts[std::size_t(index)];
    Region region(data.text, index);
    const char last = data.lineEnd[data.lineEnd.size() - 1];
    if (!std::memchr(data.text.constData() + fact.begin, last, std::size_t(fact.end - fact.begin))) {
        region.append(fact.begin, fact.end, '\n');
    } else {
        const bool isWrapped = data.states.testFlag(State::WrappedLines);
        for (const ValueLine &line : valueLines(data, fact.begin, fact.end))
            region.append(line.begin, line.end, isWrapped ? ' ' : '\n');
    }
    region.finish();
    return region;
}

/// Visits what no rule knows, line after line as one text as long as no value is between.
class OtherText
{
public:
    OtherText(const Document &readDocument, const std::function<void(const Region &)> &visitor)
        : document(readDocument), visit(visitor), region(document.text(), -1)
    {
    }

    void add(const Mark &mark)
    {
        if (mark.kind == PlaceKind::Other)
            region.append(mark.begin, mark.end, '\n');
    }

    void finish()
    {
        region.finish();
        if (!region.isEmpty())
            visit(region);
        region = Region(document.text(), -1);
    }

private:
    const Document &document;
    const std::function<void(const Region &)> &visit;
    Region region;
};

} // namespace

Region::Region(const QByteArray &documentText, int fact)
    : document(&documentText), factIndex(fact)
{
}

void Region::append(int begin, int end, char separator)
{
    if (!hasFirst) {
        first = {0, begin, end};
        hasFirst = true;
        return;
    }
    if (more.empty())
        joined = document->mid(first.begin, first.end - first.begin);
    joined += separator;
    more.push_back({joined.size(), begin, end});
    joined.append(document->constData() + begin, end - begin);
}

void Region::finish()
{
    if (!more.empty())
        view = {joined.constData(), std::size_t(joined.size())};
    else if (hasFirst)
        view = {document->constData() + first.begin, std::size_t(first.end - first.begin)};
}

void forEachRegion(const Document &document, const std::function<void(const Region &)> &visit)
{
    const DocumentData &data = document.data();
    OtherText other(document, visit);
    std::size_t fact = 0;
    const auto visitFactsBefore = [&](int offset) {
        for (; fact < data.facts.size() && data.facts[fact].begin < offset; ++fact) {
            other.finish();
            if (canHoldName(document.row(data.facts[fact])))
                visit(regionOf(document, int(fact)));
        }
    };
    for (const Mark &mark : data.marks) {
        visitFactsBefore(mark.begin);
        other.add(mark);
    }
    visitFactsBefore(data.text.size() + 1);
    other.finish();
}

} // namespace Reports
} // namespace velkor
