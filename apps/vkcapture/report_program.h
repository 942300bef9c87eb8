// Runs the vkreport beside this program.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <optional>

struct MadeReport
{
    QByteArray text;
    int exitCode = 0;
    QStringList missing; ///< lines of vkreport about what is missing
};

/// The whole report, which comes through a pipe. If there is none, \a error is a message for the user.
std::optional<MadeReport> makeReport(QString &error);
