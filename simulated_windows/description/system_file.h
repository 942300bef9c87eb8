// Reads and writes system.json: the answers of all calls that do not read the registry, and the
// registry keys that cannot be opened.
//
// The format has two limits. Failures of ExpandEnvironmentStrings have the numbers of five
// variables, and "WinSxS" below the Windows directory is the only folder. In memory the failures
// have names of variables, and the folders have paths.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>

namespace machine {

/// Sets the answers of \a machine from \a contents, and adds its denied keys to the registry. False
/// if \a contents is not JSON or a member has the wrong type; then \a error is the message.
/// \a errorLine is the line, counted from 1, or 0 if the message names the member.
bool readSystemFile(const QByteArray &contents, Machine &machine, QString &error, int &errorLine);

/// The answers and the denied keys as JSON, without absent answers.
QByteArray writeSystemFile(const Machine &machine);

} // namespace machine
