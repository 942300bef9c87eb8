#include "progress.h"

#include "program_input.h"

namespace {

constexpr qint64 shortTime = 300;     // milliseconds; who waits no longer needs no line on a terminal
constexpr qint64 lineInterval = 1000; // milliseconds
/// What is done before a child has begun.
constexpr char beginning[] = "start";

} // namespace

Progress::Progress(double timeLimit, bool isForPrograms, MessageWriter &writer)
    : m_timeLimit(timeLimit), m_writer(writer), m_form(isForPrograms ? Form::Lines : isTerminal(stderr) ? Form::Terminal
                                                                                                        : Form::None)
{
    m_time.start();
    setWork(QLatin1String(beginning));
}

Progress::~Progress()
{
    erase();
}

void Progress::setWork(const QString &work)
{
    m_work = work;
    if (m_form == Form::Lines)
        writeLine();
}

void Progress::show()
{
    if (m_form == Form::Terminal && m_time.elapsed() >= shortTime)
        rewriteLine();
    else if (m_form == Form::Lines && m_time.elapsed() >= m_timeOfLine + lineInterval)
        writeLine();
}

void Progress::rewriteLine()
{
    QString line = QStringLiteral("%1: %2 s").arg(m_work).arg(m_time.elapsed() / 1000);
    if (m_timeLimit > 0)
        line += QStringLiteral(" of at most %1 s").arg(m_timeLimit, 0, 'g', 10);
    m_writer.write(QLatin1Char('\r') + line.leftJustified(m_width));
    m_width = line.size();
}

void Progress::writeLine()
{
    m_timeOfLine = m_time.elapsed();
    m_writer.write(QStringLiteral("vkreport: progress: %1 %2 %3\n")
                       .arg(m_work)
                       .arg(double(m_timeOfLine) / 1000, 0, 'f', 1)
                       .arg(m_timeLimit, 0, 'g', 10));
}

void Progress::erase()
{
    if (m_width > 0)
        m_writer.write(QLatin1Char('\r') + QString(m_width, QLatin1Char(' ')) + QLatin1Char('\r'));
    m_width = 0;
}
