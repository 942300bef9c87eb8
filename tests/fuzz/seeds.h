// A described machine as inputs for the fuzzer, cut into pieces of a few hundred bytes
// to some thousand: what a mutation changes then is most of the input.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>

/// Steps by what they are about. All of them taken together, in any order, make a
/// machine with the same report.
QMap<QString, QByteArray> seedsOf(const machine::Machine &machine);
