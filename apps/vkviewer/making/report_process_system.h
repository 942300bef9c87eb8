// What ReportProcess needs of the system.
#pragma once

#include <QtCore/QProcess>

/// The program starts without a window of a console.
void startWithoutConsole(QProcess &process);
