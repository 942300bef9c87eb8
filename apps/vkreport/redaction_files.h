// Names of files on the command line of vkreport.
#pragma once

#include "options.h"

/// Whether both names belong to one file, now or after it was made. Devices and pipes are not such files.
bool isSameFile(const QString &name, const QString &other);

/// A message for the user if one of the files of the redaction has no usable name or would be overwritten; else empty.
QString problemWithFiles(const Options &options);
