#include "text_search.h"

#include "utf8_character.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimerEvent>

namespace {

constexpr int sliceTime = 8; // milliseconds: two slices for a frame of a screen with 60 Hz
constexpr int bytesBetweenClocks = 64 * 1024;

} // namespace

TextSearch::TextSearch(QObject *parent)
    : QObject(parent), m_hits(std::make_shared<TextHits>(QByteArray(), 0))
{
}

TextSearch::~TextSearch() = default;

void TextSearch::start(const TextLines &lines, const QString &wanted, bool matchCase)
{
    m_text = lines.text();
    m_matchCase = matchCase;
    m_agreeing = m_characters = m_position = 0;
    prepare(wanted);
    m_hits = std::make_shared<TextHits>(m_text, int(m_wanted.size()));
    if (m_wanted.empty())
        m_position = m_text.size();
    m_timer.start(0, this);
    runSlice();
}

void TextSearch::clear()
{
    m_timer.stop();
    m_text.clear();
    m_hits = std::make_shared<TextHits>(QByteArray(), 0);
}

uint TextSearch::folded(uint code) const
{
    if (code == QChar::Nbsp)
        return QChar::Space;
    return m_matchCase ? code : QChar::toCaseFolded(code);
}

/// The table of Knuth, Morris and Pratt.
void TextSearch::prepare(const QString &wanted)
{
    m_wanted.clear();
    const QVector<uint> codes = wanted.toUcs4();
    for (const uint code : codes)
        m_wanted.push_back(folded(code));
    m_lastBegins.assign(m_wanted.size(), 0);
    m_fallback.assign(m_wanted.size() + 1, 0);
    int agreeing = 0;
    for (std::size_t i = 1; i < m_wanted.size(); ++i) {
        while (agreeing > 0 && m_wanted[i] != m_wanted[std::size_t(agreeing)])
            agreeing = m_fallback[std::size_t(agreeing)];
        if (m_wanted[i] == m_wanted[std::size_t(agreeing)])
            ++agreeing;
        m_fallback[i + 1] = agreeing;
    }
    constexpr uint firstOfSeveralBytes = 0x80;
    m_canBegin.assign(256, true);
    for (uint byte = 0; byte < firstOfSeveralBytes && !m_wanted.empty(); ++byte)
        m_canBegin[byte] = folded(byte) == m_wanted.front();
}

void TextSearch::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        runSlice();
}

void TextSearch::runSlice()
{
    QElapsedTimer clock;
    clock.start();
    const int before = m_hits->count();
    while (m_position < m_text.size() && clock.elapsed() < sliceTime)
        searchTo(int(std::min(qint64(m_text.size()), qint64(m_position) + bytesBetweenClocks)));
    const bool finished = m_position >= m_text.size();
    if (finished)
        m_timer.stop();
    if (finished || m_hits->count() > before)
        Q_EMIT progressed();
}

void TextSearch::searchTo(int end)
{
    const char *const text = m_text.constData();
    const int length = int(m_wanted.size());
    while (m_position < end) {
        if (m_agreeing == 0 && !m_canBegin[uchar(text[m_position])]) {
            ++m_position;
            continue;
        }
        const Utf8Character character = characterAt(text, m_text.size(), m_position);
        const uint code = folded(character.code);
        while (m_agreeing > 0 && code != m_wanted[std::size_t(m_agreeing)])
            m_agreeing = m_fallback[std::size_t(m_agreeing)];
        m_lastBegins[std::size_t(m_characters % length)] = m_position;
        m_characters = (m_characters + 1) % length;
        m_position += character.length;
        if (code == m_wanted[std::size_t(m_agreeing)] && ++m_agreeing == length) {
            m_hits->add(m_lastBegins[std::size_t(m_characters)]); // the oldest of the ring
            m_agreeing = 0;
        }
    }
}
