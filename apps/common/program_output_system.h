// What program_output.cpp needs of the system.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <cstdio>

/// Writes UTF-8 without converting line feeds. A console of Windows gets the characters: it would read bytes in its
/// own code page.
bool writeToStream(const QByteArray &utf8, std::FILE *stream);

/// Writes to standard error: on Windows as writeToStream() does, on Unix in the encoding of the locale.
void writeToStandardError(const QString &text);
