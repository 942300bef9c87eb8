// A print server for one test.
#pragma once

#include "server_process.h"

#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

namespace qt_environment {

/// CUPS in a folder of its own, reached through a socket in it and by nobody else. Its
/// printers print into nothing. Stopped when it goes out of scope.
class PrintServer
{
public:
    PrintServer();

    /// Empty, or what has failed so far.
    QString error() const { return m_error; }
    void addPrinter(const QString &name);
    void setDefaultPrinter(const QString &name);
    /// A second set of options for a printer, which the user keeps under a name.
    void addInstance(const QString &printer, const QString &instance);
    /// For a process that is to find this server.
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
