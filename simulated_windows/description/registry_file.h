// Reads and writes registry.reg, which has the format of the Windows registry editor.
#pragma once

#include "registry_tree.h"

#include <QtCore/QByteArray>

namespace machine {

/// Adds the keys and values of \a contents to \a registry. False if a line is malformed; then
/// \a error is the message and \a errorLine the line, counted from 1.
bool readRegistryFile(const QByteArray &contents, Registry &registry, QString &error, int &errorLine);

/// \a registry in the form of the registry editor: UTF-16LE with a byte-order mark,
/// CRLF. Includes keys without values.
QByteArray writeRegistryFile(const Registry &registry);

} // namespace machine
