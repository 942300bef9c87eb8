#include "state_texts.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

struct StateText
{
    State state;
    const char *sentence;
};

// In the order of importance.
constexpr StateText stateTexts[] = {
    {State::NoReport, "This text contains no system report."},
    {State::SeveralReports, "The text contains several reports."},
    {State::StartMissing, "The beginning of the report is missing."},
    {State::EndMissing, "The end of the report is missing."},
    {State::SectionsMissing, "Sections in the middle of the report are missing."},
    {State::NotUtf8, "Some bytes are no UTF-8. They are shown as U+FFFD."},
    {State::ForeignText, "There is text that does not belong to a report."},
    {State::WrappedLines, "Long lines were wrapped. Some values may be incomplete."},
    {State::MailQuotes, "The report was quoted in a mail (\">\")."},
    {State::BlanksCollapsed, "Several spaces in a row became one."},
    {State::LeadingBlanksStripped, "Spaces at the beginning of lines were removed."},
    {State::TrailingBlanksStripped, "Spaces at the end of lines were removed."},
    {State::NoBreakSpaces, "Spaces were replaced by no-break spaces or tabs."},
    {State::NativeDigits, "Dates have digits other than 0 to 9."},
    {State::Utf16, "The text was UTF-16."},
    {State::ByteOrderMark, "The text begins with a byte-order mark."},
    {State::CrLf, "Lines end with carriage returns."},
};

constexpr int mostLines = 10;

/// The numbers of the lines at \a offsets, which ascend; the first is 1.
QStringList lineNumbers(const QByteArray &text, const std::vector<int> &offsets)
{
    QStringList numbers;
    int line = 1;
    int position = 0;
    for (const int offset : offsets) {
        if (numbers.size() == mostLines)
            return numbers << QStringLiteral("...");
        const int end = std::min(offset, text.size());
        for (; position < end; ++position)
            line += text.at(position) == '\n' ? 1 : 0;
        numbers << QString::number(line);
    }
    return numbers;
}

} // namespace

QStringList stateSentences(const Document &document)
{
    QStringList sentences;
    for (const StateText &text : stateTexts) {
        if (document.states().testFlag(text.state))
            sentences << QString::fromLatin1(text.sentence);
    }
    if (!document.ambiguous().empty() || document.states().testFlag(State::Ambiguous)) {
        const QStringList lines = lineNumbers(document.text(), document.ambiguous());
        sentences << QStringLiteral("Values look like parts of the format, so that facts may be wrong. Lines: %1.")
                         .arg(lines.join(QStringLiteral(", ")));
    }
    return sentences;
}

} // namespace Reports
} // namespace velkor
