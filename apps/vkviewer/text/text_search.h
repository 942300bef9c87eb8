// Finds all places of a text.
#pragma once

#include "text_hits.h"
#include "text_lines.h"

#include <QtCore/QBasicTimer>
#include <QtCore/QObject>
#include <memory>
#include <vector>

/// Searches in slices of a few milliseconds on the thread of the object, so a window stays usable. Time grows with the
/// text only, whatever is searched.
///
/// A no-break space is found as a space: they look the same. Without \a matchCase, letters are equal if Unicode's simple
/// case folding makes them equal. A byte that is no UTF-8 is found as U+FFFD.
class TextSearch : public QObject
{
    Q_OBJECT

public:
    explicit TextSearch(QObject *parent = nullptr);
    ~TextSearch() override;

    /// Ends the search before. The first slice runs at once: the search of a small text is finished on return.
    void start(const TextLines &lines, const QString &wanted, bool matchCase);
    /// Forgets text and hits.
    void clear();

    bool isFinished() const { return !m_timer.isActive(); }
    /// What was found so far. Never null.
    std::shared_ptr<const TextHits> hits() const { return m_hits; }

Q_SIGNALS:
    /// Something was found, or the search is finished. Also emitted by start().
    void progressed();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void prepare(const QString &wanted);
    void runSlice();
    void searchTo(int end);
    uint folded(uint code) const;

    QByteArray m_text;
    bool m_matchCase = false;
    std::vector<uint> m_wanted;    // folded characters
    std::vector<int> m_fallback;   // how many characters still agree if the next one does not
    std::vector<bool> m_canBegin;  // for each byte, whether a hit can begin with it
    std::vector<int> m_lastBegins; // offsets of the last characters, as a ring
    int m_agreeing = 0;            // how many characters before m_position agree
    int m_characters = 0;          // how many were read
    int m_position = 0;
    std::shared_ptr<TextHits> m_hits;
    QBasicTimer m_timer;
};
