// Shared by the contract tests, which make the same assertions about calls of Windows with the
// simulated Windows and on a real one.
#pragma once

#include "described_windows.h"
#include "open_key.h"
#include "poisoned_buffer.h"

#include <QtTest/QtTest>
#include <windows.h>

/// The key that most contract tests open; contractKey() is its heading in registry.reg.
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

/// Expects the next comparison to fail under Wine. \a how says how Wine differs from Windows NT; an
/// empty text expects success. The test fails if a later Wine behaves like Windows NT.
#define WINE_DEVIATES(how)                                     \
  do {                                                         \
    const QByteArray deviationOfWine = (how);                  \
    if (runsUnderWine() && !deviationOfWine.isEmpty())         \
      QEXPECT_FAIL("", deviationOfWine.constData(), Continue); \
  } while (false)
