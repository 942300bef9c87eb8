// Texts of sections in a child process with its own environment.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace qt_environment {

/// The text of \a section in a process with the environment variables \a environment
/// ("NAME=value"). On Windows the process also inherits the environment of this one, because no
/// process runs without it. If the process fails, the text is an error message.
QString sectionText(const QString &section, const QStringList &environment, const QStringList &arguments = {});

#ifndef Q_OS_WIN
/// As sectionText(), with \a hostName as the host name of the process. Null if the system does not
/// permit user namespaces.
QString sectionTextOnHost(const QString &hostName, const QString &section, const QStringList &environment);
#endif

} // namespace qt_environment
