// Durations of a report and of its parts, measured through the public interface.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>

/// Calls \a run and returns its duration in milliseconds.
double milliseconds(const std::function<void()> &run);

/// Runs the report again, as a whole and in its parts, and returns a line for each part
/// with its duration and share. The duration of the sections that the library does not
/// export is the difference to the whole. \a firstCall is the duration of the printed report.
QString reportTimings(bool noOpenGL, double firstCall);

/// Runs the sections \a names and returns their lines.
QString sectionTimings(const QStringList &names);
