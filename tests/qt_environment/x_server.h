// An X server for one test.
#pragma once

#include "server_process.h"

#include <QtCore/QStringList>

namespace qt_environment {

/// Xvfb. The destructor stops it.
class XServer
{
public:
    /// \a screens are sizes and depths, for example "800x600x24".
    XServer(const QStringList &screens, int dotsPerInch);

    /// For example ":99"; empty if the server does not start.
    QString display() const { return m_display; }

private:
    ServerProcess m_server;
    QString m_display;
};

} // namespace qt_environment
