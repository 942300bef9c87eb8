// Splits the files of a described machine into inputs for the fuzzer.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>

/// Inputs by name; each is a valid registry.reg or system.json.
QMap<QString, QByteArray> fileSeedsOf(const machine::Machine &machine);
