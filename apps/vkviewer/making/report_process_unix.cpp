#include "report_process_system.h"

void startWithoutConsole(QProcess & /*process*/) { }
