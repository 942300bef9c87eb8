// Offsets of a text in bytes and in UTF-16 units.
#pragma once

#include <QtCore/QByteArray>
#include <vector>

/// Reads the text once; then each call reads some thousand bytes.
class TextPositions
{
public:
    explicit TextPositions(const QByteArray &utf8 = {});

    /// Whether it was made for this text.
    bool isOf(const QByteArray &utf8) const;
    /// UTF-16 units of the whole text.
    int units() const { return m_units; }
    int unitsBefore(int offset) const;
    /// The byte at which a unit begins; for the second of a surrogate pair that of the first.
    int offsetOf(int unit) const;

private:
    struct Checkpoint
    {
        int offset;
        int units;
    };

    QByteArray m_text;
    int m_units = 0;
    std::vector<Checkpoint> m_checkpoints;
};
