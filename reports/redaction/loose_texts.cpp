#include "loose_texts.h"

#include "document_data.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

int factRow(const char *section, const char *item, const char *key)
{
    const std::vector<FactRow> &rows = factRows();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const FactRow &row) {
        return std::strcmp(row.section, section) == 0 && std::strcmp(row.item, item) == 0 && std::strcmp(row.key, key) == 0;
    });
    return found == rows.end() ? -1 : int(found - rows.begin());
}

Document looseDocument(const std::vector<LooseText> &texts)
{
    auto data = std::make_shared<DocumentData>();
    data->isLoose = true;
    for (const LooseText &loose : texts) {
        Fact fact;
        fact.row = loose.row;
        fact.begin = data->text.size();
        data->text += loose.text;
        fact.end = data->text.size();
        data->text += '\n';
        data->facts.push_back(fact);
    }
    return Document(data);
}

std::vector<QByteArray> looseTexts(const Document &document)
{
    std::vector<QByteArray> texts;
    for (const Fact &fact : document.facts())
        texts.push_back(document.text().mid(fact.begin, fact.end - fact.begin));
    return texts;
}

Document withText(const Document &document, const QByteArray &text, const std::vector<Replaced> &replaced)
{
    auto data = std::make_shared<DocumentData>(document.data());
    data->text = text;
    std::size_t next = 0;
    int growth = 0;
    for (Fact &fact : data->facts) { // a replaced place is inside of one fact
        fact.begin += growth;
        for (; next < replaced.size() && replaced[next].end <= fact.end; ++next)
            growth = replaced[next].newEnd - replaced[next].end;
        fact.end += growth;
    }
    return Document(data);
}

} // namespace Reports
} // namespace velkor
