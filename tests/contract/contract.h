// What the contract tests share. Each of them makes the same assertions about Windows
// calls wherever it runs: against the simulated Windows and against a real one.
#pragma once

#include "described_windows.h"
#include "poisoned_buffer.h"

#include <QtTest/QtTest>
#include <windows.h>

/// A key of the described registry, open for as long as it lives.
class OpenKey
{
public:
    explicit OpenKey(HKEY root, const char *path = "Software\\Contract")
    {
        m_status = RegOpenKeyExA(root, path, 0, KEY_READ, &m_key);
    }
    ~OpenKey()
    {
        if (m_status == LSTATUS(ERROR_SUCCESS))
            RegCloseKey(m_key);
    }
    OpenKey(const OpenKey &) = delete;
    OpenKey &operator=(const OpenKey &) = delete;

    HKEY handle() const { return m_key; }

private:
    HKEY m_key = nullptr;
    LSTATUS m_status;
};

/// The heading of the key that OpenKey opens, for a description.
inline QByteArray contractKey()
{
    return QByteArrayLiteral("[HKEY_LOCAL_MACHINE\\Software\\Contract]\n");
}

inline bool runsUnderWine()
{
#ifdef SIMULATED_WINDOWS
    return false;
#else
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
#endif
}

/// Names how Wine's answer to the next comparison differs from that of Windows NT;
/// empty: not at all. The test fails on the day Wine answers as Windows NT does.
#define WINE_DEVIATES(how)                                     \
  do {                                                         \
    const QByteArray deviationOfWine = (how);                  \
    if (runsUnderWine() && !deviationOfWine.isEmpty())         \
      QEXPECT_FAIL("", deviationOfWine.constData(), Continue); \
  } while (false)
