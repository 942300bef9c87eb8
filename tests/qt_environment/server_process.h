// A server that goes away with the test that has started it.
#pragma once

#include <QtCore/QProcess>

namespace qt_environment {

/// A process that ends when its object or its parent process does, whatever the way.
class ServerProcess : public QProcess
{
public:
    static constexpr int patience = 30000; // milliseconds

    ~ServerProcess() override;

protected:
    void setupChildProcess() override;
};

} // namespace qt_environment
