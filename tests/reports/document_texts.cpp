#include "document_texts.h"

#include <QtCore/QFile>
#include <algorithm>

using namespace velkor::Reports;

QString itemPath(const Document &document, int item)
{
    QStringList path;
    for (int i = item; i >= 0; i = document.items()[std::size_t(i)].parent) {
        const ItemRow &row = itemRows()[std::size_t(document.items()[std::size_t(i)].kind)];
        path.prepend(QLatin1String(row.kind) + QLatin1Char(' ') + document.identity(i));
    }
    return path.join(QStringLiteral(" > "));
}

QString sectionName(const Document &document, int fact)
{
    for (const Section &section : document.sections()) {
        if (fact >= section.firstFact && fact < section.lastFact)
            return QString::fromLatin1(sectionRows()[std::size_t(section.row)].name);
    }
    return {};
}

namespace {

QString flawOfItems(const Document &document)
{
    for (const Item &item : document.items()) {
        for (int i = item.firstFact; i < item.lastFact; ++i) {
            const Fact &fact = document.facts()[std::size_t(i)];
            if (fact.begin < item.begin || fact.end > item.end)
                return QStringLiteral("the fact at %1 is outside of its item").arg(fact.begin);
        }
        if (item.parent >= 0 && document.items()[std::size_t(item.parent)].end < item.end)
            return QStringLiteral("the item at %1 ends after the one around it").arg(item.begin);
    }
    int end = 0;
    for (const Section &section : document.sections()) {
        if (section.begin < end || section.end < section.begin)
            return QStringLiteral("the section at %1 overlaps another").arg(section.begin);
        for (int i = section.firstFact; i < section.lastFact; ++i) {
            const Fact &fact = document.facts()[std::size_t(i)];
            if (fact.begin < section.begin || fact.end > section.end)
                return QStringLiteral("the fact at %1 is outside of its section").arg(fact.begin);
        }
        end = section.end;
    }
    return {};
}

} // namespace

QString flawOfPlaces(const Document &document)
{
    int at = 0;
    int lastFact = -1;
    for (const Place &place : document.places()) {
        if (place.begin != at || place.end <= place.begin)
            return QStringLiteral("a gap or an overlap at %1").arg(at);
        at = place.end;
        if ((place.kind == PlaceKind::Value) != (place.fact >= 0) || (place.fact >= 0 && place.fact <= lastFact))
            return QStringLiteral("a wrong fact at %1").arg(place.begin);
        lastFact = std::max(lastFact, place.fact);
    }
    if (at != document.text().size())
        return QStringLiteral("the places end at %1").arg(at);
    return flawOfItems(document);
}

int otherLines(const Document &document)
{
    int lines = 0;
    for (const Place &place : document.places()) {
        if (place.kind == PlaceKind::Other)
            lines += std::max(1, document.text().mid(place.begin, place.end - place.begin).count('\n'));
    }
    return lines;
}

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
