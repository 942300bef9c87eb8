// The system that answers the calls which read no registry: the example machine in
// the simulated Windows, the system itself elsewhere. The assertions hold for both.
#pragma once

#include "contract.h"
#include "wide_text.h"

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#endif

/// The system answers while the object exists.
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

/// The answer of a call that writes a text into a buffer of a given size.
struct TextAnswer
{
    QString text;
    DWORD result;
    DWORD size;
    bool untouched;  // nothing was written
    bool withinRoom; // nothing was written after the terminator
};

/// Calls \a get with a buffer of \a room units; \a get may store the size that the call
/// returns in its last argument.
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
