// The calls that the library makes, from the journal of the simulated Windows.
#pragma once

#include "simulated_windows.h"
#include "subjects.h"

#include <QtCore/QMap>
#include <QtCore/QVector>
#include <functional>

namespace bench {

using Calls = QVector<simulated::Call>;
using Recordings = QMap<QByteArray, Calls>; // by the name of the section

/// Runs \a run and returns its calls.
Calls recordedCalls(const std::function<void()> &run);
/// Without \a withOpenGL, all sections but OpenGL.
Recordings recordSections(bool withOpenGL);

/// The first difference between two recordings, as text; empty if they are equal.
QString difference(const Calls &library, const Calls &baseline);

/// Before its first call in a process a baseline must not record calls, so it reads them from
/// a file. The file has the arguments of each call and not its results. readRecordings()
/// returns nothing if it cannot read the file.
bool writeRecordings(const QString &fileName, const Recordings &recordings);
Recordings readRecordings(const QString &fileName);

} // namespace bench
