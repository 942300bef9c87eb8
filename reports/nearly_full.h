// When a disk is nearly full.
#pragma once

#include <QtCore/QtGlobal>

namespace velkor {
namespace Reports {

constexpr quint64 nearlyFullBytes = quint64(1) << 30; // 1 GByte
constexpr quint64 nearlyFullPart = 20;                // a twentieth: 5 %
constexpr quint64 smallDrive = quint64(10) << 30;     // 10 GByte

/// Less than 5 % is free, or less than 1 GByte of a drive that is not small.
constexpr bool isNearlyFull(quint64 free, quint64 total)
{
    return (free < nearlyFullBytes && total >= smallDrive) || free < total / nearlyFullPart;
}

} // namespace Reports
} // namespace velkor
