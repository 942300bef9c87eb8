// Splits a described machine into inputs for the fuzzer. They have some hundred to some thousand
// bytes, so that a mutation changes a large part of an input.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>

/// Steps by topic. All of them together, in any order, describe a machine with the same report.
QMap<QString, QByteArray> seedsOf(const machine::Machine &machine);
