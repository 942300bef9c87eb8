// The texts of two reports beside each other, line by line.
#pragma once

#include "line_matcher.h"
#include "vkReports.h"

/// Offsets in Document::text().
struct AlignedLine
{
    int begin = 0;
    int end = 0;  ///< before the line end
    int next = 0; ///< after it
};

enum class LineChange : unsigned char {
    Same,
    Changed,
    Removed,
    Added,
};

struct AlignedRow
{
    int older = -1; ///< index in AlignedText::older; -1 if the older report has no such line
    int newer = -1;
    LineChange change = LineChange::Same;
    bool everyMoment = false; ///< differs, but only by values that change every moment
};

/// The rows of a section. A section that a report has several times has a range for each.
struct AlignedSection
{
    QString section; ///< name of the section
    LineIndexes rows;
    LineIndexes older; ///< indexes in AlignedText::older
    LineIndexes newer;
};

struct AlignedText
{
    velkor::Reports::Document olderDocument;
    velkor::Reports::Document newerDocument;
    std::vector<AlignedLine> older; ///< the lines of all sections of the first report
    std::vector<AlignedLine> newer;
    std::vector<AlignedRow> rows;
    std::vector<AlignedSection> sections; ///< in the order of the catalogue

    /// The rows of all sections with this name; all rows for an empty one.
    LineIndexes rowsOf(const QString &section) const;
};

/// Indexes in Document::sections(); -1 if a document does not have the section.
struct SectionPair
{
    QString section;
    int older = -1;
    int newer = -1;
};

/// Aligns the sections. What mail programs do to lines is no difference: quotes, line ends, blanks at the end.
AlignedText alignTexts(const velkor::Reports::Document &older, const velkor::Reports::Document &newer,
                       const std::vector<SectionPair> &sections);

/// Of the lines \a among, which ascend, those that the bytes from \a begin to \a end touch: at least one, if there are any.
LineIndexes linesAt(const std::vector<AlignedLine> &lines, LineIndexes among, int begin, int end);
