// Reads and writes system.json: the answers of every Windows call that is not a registry
// read, and the registry keys that cannot be opened.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>

namespace machine {

/// Fills the answers of \a machine from \a contents, and adds its denied keys to the
/// registry. False when it is not JSON or a member is not
/// of its form; \a error then is the message, \a errorLine its line (from 1), or 0
/// when the message names the member instead.
bool readSystemFile(const QByteArray &contents, Machine &machine, QString &error, int &errorLine);

/// The answers and the denied keys as JSON; answers that are not given are left out.
QByteArray writeSystemFile(const Machine &machine);

} // namespace machine
