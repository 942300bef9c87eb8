// What the contract tests share. Each of them makes the same assertions about Windows
// calls wherever it runs: against the simulated Windows and against a real one.
#pragma once

#include "described_windows.h"
#include "open_key.h"
#include "poisoned_buffer.h"

#include <QtTest/QtTest>
#include <windows.h>

/// The key that most contract tests open, and its heading in registry.reg.
constexpr char contractPath[] = "Software\\Contract";

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

/// States how Wine's answer to the next comparison differs from Windows NT's; empty when
/// it does not. The test fails when a later Wine answers as Windows NT does.
#define WINE_DEVIATES(how)                                     \
  do {                                                         \
    const QByteArray deviationOfWine = (how);                  \
    if (runsUnderWine() && !deviationOfWine.isEmpty())         \
      QEXPECT_FAIL("", deviationOfWine.constData(), Continue); \
  } while (false)
