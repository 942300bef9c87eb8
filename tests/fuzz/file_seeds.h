// The files of a described machine as inputs for the fuzzer, cut into pieces.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>

/// Pieces of registry.reg and system.json, each a file of its own.
QMap<QString, QByteArray> fileSeedsOf(const machine::Machine &machine);
