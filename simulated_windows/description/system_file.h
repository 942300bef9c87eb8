// Reads and writes system.json: the answers of every Windows call that is not a registry
// read, and the registry keys that cannot be opened.
//
// The format knows two things only by the report's own terms: the failures of
// ExpandEnvironmentStrings have the numbers of five variables, and "WinSxS" is the one
// folder, below the Windows directory. Here both become what the calls can be answered
// from: failures by variable, folders by path.
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
