// A double click on the program opens a console for it alone, which closes with the program.
#pragma once

#include <QtCore/QDate>
#include <QtCore/QString>

/// Whether nobody else uses the console of this process, and standard output is connected to it. Always false on Unix.
bool hasConsoleOfItsOwn();

/// Waits until a key is pressed from now on. Does not wait on Unix, or if there is no console.
void waitForKey();

/// The name of a file in \a folder that does not exist yet: vkreport-COMPUTER-2026-11-21.txt, or with -2, -3, ... before
/// ".txt". Characters that cannot be in a file name become "_".
QString ownReportFileName(const QString &folder, const QString &computer, const QDate &date);
