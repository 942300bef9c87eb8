// Finds the structure of a text.
#pragma once

#include "document_data.h"
#include "headings.h"
#include "space_evidence.h"
#include "transport.h"

namespace velkor {
namespace Reports {

/// A line without its quote and its line end.
struct TextLine
{
    int begin = 0;         ///< of the quote
    int content = 0;       ///< after the quote or the form feed
    int end = 0;           ///< before the line end
    int next = 0;          ///< of the next line
    bool formFeed = false; ///< a page begins with the line
    bool wrapped = false;  ///< further lines were broken off it; their line ends are in the content

    bool isEmpty() const { return content == end; }
};

class Reader
{
public:
    Reader(DocumentData &data, const Transport &transport);
    void read();

private:
    // Lines
    TextLine lineAt(int begin) const;
    TextLine peek() const;
    TextLine peekText() const;
    int wrappedHeading();
    bool isHeading(const TextLine &line, int &begins) const;

    // Structure
    void readLine();
    void readForeignLine();
    bool readForced();
    bool readSeparator();
    bool readHeading(bool expected);
    void enter(int section, bool heading);
    void leave();
    bool isOpenEnded() const;
    bool resumes();
    bool goesOnIn(const Section &section) const;
    bool repeatsLater(int section);
    void resume(int index);
    std::vector<int> sectionsWith(const TextLine &text) const;
    bool hasLongLabel() const;
    bool startsWithoutHeading();
    int sectionBeforeNextHeading(const std::vector<int> &candidates);

    // Lines of a section
    void readSectionLine();
    void readEmptyLine();
    bool readRule();
    void joinWrapped();
    bool isBrokenOff(const TextLine &before, const TextLine &line) const;
    bool isKnown(const TextLine &line) const;
    bool readExact();
    bool mayFollow(const LineForm &form, int formIndex) const;
    bool isRepeated(const LineForm &form, int formIndex) const;
    bool givesBack(const LineForm &form, int formIndex);
    bool readAnything();
    bool mayStand(const LineForm &form) const;
    bool mayBeConfiguration() const;
    bool readAltered(int weight);
    bool startsModules();
    bool isModule(const TextLine &line) const;
    bool mayBeStripped(const LineForm &form) const;
    bool readBeginning();
    void finishBeginning();
    bool continueValue();
    void extend(Fact &fact);
    void accept(const LineForm &form, int formIndex, const Span *spans, bool altered = false);
    bool nextLineIsValue(int formIndex) const;
    void takeNextLine();
    void openItem(int kind);
    void placeIn(int kind);
    void closeItems(std::size_t depth);

    // Places
    void mark(PlaceKind kind, int begin, int end);
    void markQuote();
    void absorb(int begin);
    void noteAmbiguous();
    bool inKind(const char *kind) const;
    const SectionRow &sectionRow() const;
    void finish();
    bool hasForeignText(bool startMissing) const;

    struct HeadingAhead
    {
        int at;
        int begins;
    };

    struct Level
    {
        int item;
        quint64 seen;
    };

    DocumentData &m_data;
    const Transport m_transport;
    const char *const m_text;
    const int m_size;
    TextLine m_line;
    TextLine m_previous;
    SpaceEvidence m_spaces;
    States m_states;

    int m_section = noSection; ///< index in sectionRows()
    const SectionForm *m_form = nullptr;
    int m_report = -1;
    int m_order = -1;            ///< the last section of this report
    bool m_hasBeginning = false; ///< the first report has the heading of the Windows half
    int m_suspended = noSection; ///< the section before a separator that no heading follows
    bool m_separated = true;     ///< a separator or a half's heading precedes
    bool m_interrupted = true;   ///< foreign text or an empty line precedes
    int m_lastForm = -1;
    int m_lastFact = -1;
    int m_emptyLines = 0;     ///< directly before this line
    bool m_atStart = false;   ///< directly after the section's heading
    bool m_afterRule = false; ///< after the line that begins a class or an interface
    bool m_valueOnNextLine = false;
    HeadingAhead m_headingAhead {-1, noSection}; ///< the first heading of a section after a line, once looked for
    int m_nextHeading = noSection;               ///< after the first separator from m_nextHeadingFrom on
    int m_nextHeadingFrom = 0;
    int m_nextHeadingAt = -1;
    std::string_view m_pendingSuffix; ///< of a value that goes on
    std::vector<Level> m_levels;      ///< the section and the items around the line
};

} // namespace Reports
} // namespace velkor
