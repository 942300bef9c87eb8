// Where the time of a report goes, as far as the public interface can tell.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>

/// How long \a run takes, in milliseconds.
double milliseconds(const std::function<void()> &run);

/// The report made again, as a whole and in its parts, a line for each part with its
/// share. \a firstCall is what the report took that was printed. What cannot be called
/// alone is what is left of the whole.
QString reportTimings(bool noOpenGL, double firstCall);

/// The same for these sections alone.
QString sectionTimings(const QStringList &names);
