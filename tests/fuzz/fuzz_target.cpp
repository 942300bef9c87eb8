#include "fuzz_target.h"

#include <QtCore/QString>
#include <cstdio>
#include <cstdlib>

void require(bool condition, const char *what, const QByteArray &details)
{
    if (condition)
        return;
    std::fprintf(stderr, "Does not hold: %s\n%s\n", what, details.left(4000).constData());
    std::abort();
}

void silenceMessages()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &message) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", message.toUtf8().constData());
    });
}
