// A server process that ends with the test that started it.
#pragma once

#include <QtCore/QProcess>

namespace qt_environment {

/// A process that ends when the object is destroyed or the parent process ends, even by a crash.
class ServerProcess : public QProcess
{
public:
    static constexpr int timeout = 30000; // milliseconds

    ~ServerProcess() override;

protected:
    void setupChildProcess() override;
};

} // namespace qt_environment
