// An X server for one test.
#pragma once

#include "server_process.h"

#include <QtCore/QStringList>

namespace qt_environment {

/// Xvfb. Stopped when it goes out of scope.
class XServer
{
public:
    /// \a screens are sizes and depths such as "800x600x24".
    XServer(const QStringList &screens, int dotsPerInch);

    /// Such as ":99"; empty when the server does not start.
    QString display() const { return m_display; }

private:
    ServerProcess m_server;
    QString m_display;
};

} // namespace qt_environment
