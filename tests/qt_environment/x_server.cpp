#include "x_server.h"

namespace {

QStringList serverArguments(const QStringList &screens, int dotsPerInch)
{
    QStringList arguments = {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-nolisten"),
                             QStringLiteral("tcp"), QStringLiteral("-dpi"), QString::number(dotsPerInch)};
    for (int i = 0; i < screens.size(); ++i)
        arguments << QStringLiteral("-screen") << QString::number(i) << screens.at(i);
    return arguments;
}

} // namespace

namespace qt_environment {

XServer::XServer(const QStringList &screens, int dotsPerInch)
{
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(QStringLiteral("Xvfb"), serverArguments(screens, dotsPerInch));
    QByteArray number; // the server writes it with a line end when it is ready
    while (!number.endsWith('\n') && m_server.waitForReadyRead(ServerProcess::timeout))
        number += m_server.readAllStandardOutput();
    if (number.endsWith('\n'))
        m_display = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
}

} // namespace qt_environment
