// A text and where its lines are.
#pragma once

#include "text_range.h"

#include <QtCore/QByteArray>
#include <memory>
#include <vector>

/// Immutable. Copies share the text and take no time. Lines end with \\n, \\r\\n or \\r; there is always one line more
/// than line ends. Needs 4 bytes a line beside the text.
class TextLines
{
public:
    explicit TextLines(const QByteArray &utf8 = {});

    const QByteArray &text() const { return m_text; }
    int count() const { return int(m_begins->size()); }

    /// Without its line end. \a index is from 0 to count() - 1.
    TextRange line(int index) const;
    /// The line that \a offset, or the line end at \a offset, belongs to.
    int lineAt(int offset) const;

private:
    QByteArray m_text;
    std::shared_ptr<const std::vector<int>> m_begins;
};
