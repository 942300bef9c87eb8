// The key that makes aliases the same in all reports.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// The key in a file, without white space at its end. A file that is missing is made with a new key, for its owner
/// alone. If that fails or the file holds no key, returns an empty key, and \a error is a message for the user.
QByteArray readAliasKey(const QString &fileName, QString &error);
