// Answers the calls that do not read the registry: with the simulated Windows the machine
// "workstation", on Windows the system itself.
#pragma once

#include "contract.h"
#include "wide_text.h"

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#endif

/// The machine answers while the object exists.
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

/// The result of a call that writes a text into a buffer.
struct TextAnswer
{
    QString text;
    DWORD result;
    DWORD size;
    bool untouched;    // nothing was written
    bool withinBounds; // nothing was written after the terminator
};

/// Calls \a get with a buffer of \a size units. \a get may store the size that the call returns in
/// its last argument.
template <typename Get>
TextAnswer textAnswer(DWORD size, Get get)
{
    PoisonedBuffer buffer(2 * size);
    TextAnswer answer;
    answer.size = size;
    answer.result = DWORD(get(buffer.wide(), &answer.size));
    answer.untouched = buffer.isUntouched();
    if (!answer.untouched)
        answer.text = buffer.wideText();
    answer.withinBounds = buffer.isUntouchedFrom(answer.untouched ? 0 : 2 * (answer.text.size() + 1));
    return answer;
}
