// The system that answers the calls which read no registry: the example machine in
// the simulated Windows, the system itself elsewhere. The assertions hold for both.
#pragma once

#include "contract.h"
#include "wide_text.h"

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#endif

/// In place for as long as it lives.
class [[maybe_unused]] AnsweringWindows
{
public:
#ifdef SIMULATED_WINDOWS
    AnsweringWindows() : m_windows(DescribedWindows::load(QStringLiteral("workstation")))
    { }

    void setVariable(const QString &name, const QString &value)
    {
        simulated::machineInUse().system.environment[machine::upperCased(name)] = value;
    }

private:
    DescribedWindows m_windows;
#else
    void setVariable(const QString &name, const QString &value)
    {
        SetEnvironmentVariableW(wide(name), wide(value));
    }
#endif
};

/// The form that calls take which write a text into a buffer of so many units.
struct TextAnswer
{
    QString text;
    DWORD result;
    DWORD size;
    bool untouched;  // nothing was written
    bool withinRoom; // nothing was written behind text and terminator
};

/// Calls \a get with a buffer of \a room units, which it may change through its last
/// argument as the call leaves it.
template <typename Get>
TextAnswer textAnswer(DWORD room, Get get)
{
    PoisonedBuffer buffer(2 * room);
    TextAnswer answer;
    answer.size = room;
    answer.result = DWORD(get(buffer.wide(), &answer.size));
    answer.untouched = buffer.isUntouched();
    if (!answer.untouched)
        answer.text = buffer.wideText();
    answer.withinRoom = buffer.isUntouchedFrom(answer.untouched ? 0 : 2 * (answer.text.size() + 1));
    return answer;
}
