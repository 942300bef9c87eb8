// Reads and writes system.json, the answers of every Windows call that is not a registry read.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>

namespace machine {

/// Fills \a system from \a contents. False when it is not JSON or a member is not
/// of its form; \a error then is the message, \a errorLine its line (from 1), or 0
/// when the message names the member instead.
bool readSystemFile(const QByteArray &contents, SystemAnswers &system, QString &error, int &errorLine);

/// \a system as JSON; answers that are not given are left out.
QByteArray writeSystemFile(const SystemAnswers &system);

} // namespace machine
