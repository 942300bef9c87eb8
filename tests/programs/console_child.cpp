// Writes to the file that its argument names whether it has a console of its own.

#include "own_console.h"

#include <QtCore/QFile>

int main(int argc, char *argv[])
{
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(hasConsoleOfItsOwn() ? "own" : "not own") > 0;
    return isWritten ? 0 : 1;
}
