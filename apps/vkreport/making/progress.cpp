#include "progress.h"

#include "program_input.h"

namespace {

constexpr qint64 shortTime = 300; // milliseconds; who waits no longer needs no line

} // namespace

Progress::Progress(double timeLimit, MessageWriter &writer)
    : m_timeLimit(timeLimit), m_writer(writer), m_isTerminal(isTerminal(stderr))
{
    m_time.start();
}

Progress::~Progress()
{
    erase();
}

void Progress::show()
{
    if (!m_isTerminal || m_time.elapsed() < shortTime)
        return;
    QString line = QStringLiteral("%1: %2 s").arg(m_work).arg(m_time.elapsed() / 1000);
    if (m_timeLimit > 0)
        line += QStringLiteral(" of at most %1 s").arg(m_timeLimit, 0, 'g', 10);
    m_writer.write(QLatin1Char('\r') + line.leftJustified(m_width));
    m_width = line.size();
}

void Progress::erase()
{
    if (m_width > 0)
        m_writer.write(QLatin1Char('\r') + QString(m_width, QLatin1Char(' ')) + QLatin1Char('\r'));
    m_width = 0;
}
