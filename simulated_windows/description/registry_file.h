// Reads and writes registry.reg, text as the Windows registry editor exports it.
#pragma once

#include "registry_tree.h"

#include <QtCore/QByteArray>

namespace machine {

/// Adds what \a contents says to \a registry. False when a line is malformed;
/// \a error then is the message, \a errorLine its line (from 1).
bool readRegistryFile(const QByteArray &contents, Registry &registry, QString &error, int &errorLine);

/// \a registry as the registry editor would export it: UTF-16LE with a byte-order mark,
/// CRLF. Every key is written, also one without values.
QByteArray writeRegistryFile(const Registry &registry);

} // namespace machine
