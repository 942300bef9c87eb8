// Files and standard input of the programs, and what is connected to them.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <cstdio>

/// Reads the whole file, or standard input if the name is "-", of at most 512 MByte. On failure \a error is a message for the user.
bool readInput(const QString &fileName, QByteArray &bytes, QString &error);

/// Reads until \a size bytes were read or the file ends. Pipes give their bytes in pieces.
QByteArray readUpTo(QFile &file, int size);

/// Whether a person sees what is written to \a stream.
bool isTerminal(std::FILE *stream);

/// Whether standard output is a terminal that shows colours, and the user has not set NO_COLOR.
bool canShowColours();
