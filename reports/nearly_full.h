// When a disk is nearly full.
#pragma once

#include <QtCore/QtGlobal>

namespace velkor {
namespace Reports {

constexpr quint64 nearlyFullBytes = quint64(1) << 30; // 1 GByte
constexpr quint64 nearlyFullPart = 20;                // a twentieth: 5 %

/// Less than 5 % or less than 1 GByte is free.
constexpr bool isNearlyFull(quint64 free, quint64 total)
{
    return free < nearlyFullBytes || free < total / nearlyFullPart;
}

} // namespace Reports
} // namespace velkor
