// Lists of words and patterns, which --hide and --keep name.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// Appends the entries of a file to \a entries: UTF-8, or UTF-16 with a mark; one entry a line. White space around an
/// entry, empty lines and lines that begin with "#" are ignored; "\#" at the beginning is a "#". If a line is no entry
/// or there are too many, returns false, and \a error is a message for the user.
bool readWordList(const QString &fileName, QStringList &entries, QString &error);
