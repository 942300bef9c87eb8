// What turns the lines of a canonical text into a text: the member "layout" of JSON.
#pragma once

#include "canonical_text.h"
#include "document_data.h"

namespace velkor {
namespace Reports {

/// After the last edit, the other lines of the canonical text follow.
struct LineEdit
{
    int lines = 0;   ///< > 0: so many lines are as in the canonical text; < 0: so many are missing
    QByteArray text; ///< if lines is 0: text that the canonical text does not have
};

/// Part of the text: a line with its line end, or several lines that no rule of the format knows.
struct TextPart
{
    int begin = 0;
    int end = 0;
    size_t hash = 0;
    bool isFormat = true; ///< false if the canonical text cannot have it
    bool isBlank = false;
};

/// The parts of \a text without gaps. \a marks are those of its document.
std::vector<TextPart> textParts(const QByteArray &text, const std::vector<Mark> &marks, const TextForm &form);

/// Compares the lines in linear time. The edits are right unless different lines have equal hashes.
std::vector<LineEdit> findEdits(const QByteArray &canonical, const TextForm &form, const QByteArray &text,
                                const std::vector<TextPart> &parts);

/// The text. Nothing if the edits count more lines than the canonical text has, or if the text
/// exceeds \a limit.
std::optional<QByteArray> applyEdits(const QByteArray &canonical, const TextForm &form,
                                     const std::vector<LineEdit> &edits, int limit);

size_t lineHash(const char *line, int length);

} // namespace Reports
} // namespace velkor
