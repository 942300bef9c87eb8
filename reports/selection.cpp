// Text of chosen sections.

#include "decoded_text.h"
#include "formats.h"
#include "labels.h"
#include "outline.h"
#include "section_names.h"

namespace velkor {
namespace Reports {

namespace {

const char *nameOf(const Document &document, int section)
{
    return sectionRows()[std::size_t(document.sections()[std::size_t(section)].row)].name;
}

/// The sections with what follows them up to the next one: the joined parts are the text.
std::vector<Part> textParts(const Document &document)
{
    constexpr int lessThanSections = 0;
    constexpr int moreThanSections = 1000;
    std::vector<Part> parts;
    const int count = int(document.sections().size());
    const int first = count > 0 ? document.sections().front().begin : document.text().size();
    const bool isForeign = document.states().testFlag(State::ForeignText) || count == 0;
    parts.push_back({isForeign ? QStringLiteral("text before the report") : QStringLiteral("heading"),
                     isForeign ? lessThanSections : moreThanSections,
                     decodedText(document.text().left(first)),
                     {}});
    for (int i = 0; i < count; ++i) {
        const int begin = document.sections()[std::size_t(i)].begin;
        const int end = i + 1 < count ? document.sections()[std::size_t(i + 1)].begin : document.text().size();
        const QString name = QString::fromLatin1(nameOf(document, i));
        const QStringList counts = sectionCounts(document, i);
        const QString shortForm = counts.isEmpty()
            ? QString()
            : QStringLiteral("[%1: %2]\n").arg(name, counts.join(QStringLiteral(", ")));
        parts.push_back({name, importanceOf(nameOf(document, i)) + 1, decodedText(document.text().mid(begin, end - begin)),
                         shortForm});
    }
    return parts;
}

std::vector<Part> chosenParts(const Document &document, const WriteOptions &options)
{
    std::vector<Part> parts;
    for (int i = 0; i < int(document.sections().size()); ++i) {
        if (!isChosen(document, i, options))
            continue;
        const Section &section = document.sections()[std::size_t(i)];
        const QByteArray text = document.text().mid(section.begin, section.end - section.begin);
        parts.push_back({QString::fromLatin1(nameOf(document, i)), importanceOf(nameOf(document, i)), decodedText(text), {}});
    }
    return parts;
}

QByteArray chosenText(const Document &document, const WriteOptions &options)
{
    QByteArray text;
    for (int i = 0; i < int(document.sections().size()); ++i) {
        const Section &section = document.sections()[std::size_t(i)];
        if (isChosen(document, i, options))
            text += document.text().mid(section.begin, section.end - section.begin);
    }
    return text;
}

QString note(const LeftOut &leftOut, int maxLength)
{
    const QString sentences = leftOutSentences(leftOut, maxLength);
    return sentences.isEmpty() ? QString() : QLatin1Char('[') + sentences + QStringLiteral("]\n");
}

} // namespace

QByteArray toText(const Document &document, const WriteOptions &options)
{
    const auto writeNote = [&options](const LeftOut &leftOut) { return note(leftOut, options.maxLength); };
    if (options.onlySummary) {
        const Part all {QStringLiteral("summary"), 0, summaryText(summary(document)), {}};
        return shortened({}, {all}, options.maxLength, writeNote).toUtf8();
    }
    const bool isLimited = options.maxLength > 0 && decodedText(document.text()).size() > options.maxLength;
    if (options.sections.empty())
        return isLimited ? shortened({}, textParts(document), options.maxLength, writeNote).toUtf8() : document.bytes();
    return isLimited ? shortened({}, chosenParts(document, options), options.maxLength, writeNote).toUtf8()
                     : chosenText(document, options);
}

} // namespace Reports
} // namespace velkor
