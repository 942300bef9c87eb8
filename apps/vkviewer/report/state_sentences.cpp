#include "state_sentences.h"

#include <QtCore/QCoreApplication>

using velkor::Reports::State;

namespace {

struct StateSentence
{
    State state;
    StateWeight weight;
    const char *sentence;
};

constexpr StateSentence sentences[] = {
    {State::NoReport, StateWeight::Important, QT_TRANSLATE_NOOP("StateSentences", "This text contains no system report.")},
    {State::SeveralReports, StateWeight::Important, QT_TRANSLATE_NOOP("StateSentences", "The text contains several reports.")},
    {State::StartMissing, StateWeight::Important, QT_TRANSLATE_NOOP("StateSentences", "The beginning of the report is missing.")},
    {State::EndMissing, StateWeight::Important, QT_TRANSLATE_NOOP("StateSentences", "The end of the report is missing.")},
    {State::SectionsMissing, StateWeight::Important, QT_TRANSLATE_NOOP("StateSentences", "Sections in the middle of the report are missing.")},
    {State::Ambiguous, StateWeight::Important, QT_TRANSLATE_NOOP("StateSentences", "Values look like parts of the format, so that facts may be wrong.")},
    {State::NotUtf8, StateWeight::Important, QT_TRANSLATE_NOOP("StateSentences", "Some bytes are no UTF-8. They are shown as U+FFFD.")},
    {State::WrappedLines, StateWeight::Important, QT_TRANSLATE_NOOP("StateSentences", "Long lines were wrapped. Some values may be incomplete.")},
    {State::ForeignText, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "There is text that does not belong to a report.")},
    {State::MailQuotes, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "The report was quoted in a mail (\">\").")},
    {State::BlanksCollapsed, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "Several spaces in a row became one.")},
    {State::LeadingBlanksStripped, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "Spaces at the beginning of lines were removed.")},
    {State::TrailingBlanksStripped, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "Spaces at the end of lines were removed.")},
    {State::NoBreakSpaces, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "Spaces were replaced by no-break spaces or tabs.")},
    {State::NativeDigits, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "Dates have digits other than 0 to 9.")},
    {State::Utf16, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "The text was UTF-16.")},
    {State::ByteOrderMark, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "The text begins with a byte-order mark.")},
    {State::CrLf, StateWeight::Any, QT_TRANSLATE_NOOP("StateSentences", "Lines end with carriage returns.")},
};

} // namespace

QStringList stateSentences(velkor::Reports::States states, StateWeight weight)
{
    QStringList result;
    for (const StateSentence &sentence : sentences) {
        if (states.testFlag(sentence.state) && (weight == StateWeight::Any || sentence.weight == StateWeight::Important))
            result << QCoreApplication::translate("StateSentences", sentence.sentence);
    }
    return result;
}
