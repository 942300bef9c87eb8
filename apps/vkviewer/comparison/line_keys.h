// Numbers that stand for the texts of lines.
#pragma once

#include "aligned_text.h"

#include <QtCore/QHash>

/// Gives equal lines of two documents the same number.
class LineKeys
{
public:
    /// \a states are those of both documents.
    explicit LineKeys(velkor::Reports::States states);

    /// The number of the line's text, without the mail quote and the blanks at its end.
    int text(const velkor::Reports::Document &document, const AlignedLine &line);
    /// The number of the line's label; -1 if it has none.
    int label(const velkor::Reports::Document &document, const AlignedLine &line);

    int count() const { return m_keys.size(); }

private:
    QByteArray content(const velkor::Reports::Document &document, const AlignedLine &line) const;
    int key(const QByteArray &text);

    bool m_ignoresBlanks;
    QHash<QByteArray, int> m_keys;
};
