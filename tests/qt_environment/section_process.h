// Sections of the report, as they come out in a process with an environment of its own.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace qt_environment {

/// The section function \a section called in a process with these entries
/// ("NAME=value") in its environment: nothing else on Unix, along with what this
/// process has on Windows, where nothing runs without. When the process fails, the
/// text says so.
QString sectionText(const QString &section, const QStringList &environment, const QStringList &arguments = {});

#ifndef Q_OS_WIN
/// As sectionText(), with a host name that nobody else sees. Null when the system
/// does not let its user do that.
QString sectionTextOnHost(const QString &hostName, const QString &section, const QStringList &environment);
#endif

} // namespace qt_environment
