// A print server for one test.
#pragma once

#include "server_process.h"

#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

namespace qt_environment {

/// CUPS in a temporary folder. Clients connect through a socket in it. The printers print to
/// /dev/null. The destructor stops the server.
class PrintServer
{
public:
    PrintServer();

    /// The errors so far; empty if there are none.
    QString error() const { return m_error; }
    void addPrinter(const QString &name);
    void setDefaultPrinter(const QString &name);
    /// Adds an instance of a printer: a named set of options of the user.
    void addInstance(const QString &printer, const QString &instance);
    /// The environment variables of a process that uses this server.
    QStringList environment() const;

private:
    bool writeConfiguration();
    bool waitUntilItAnswers();
    bool run(const QString &program, const QStringList &arguments);
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    ServerProcess m_server;
    QString m_error;
};

} // namespace qt_environment
