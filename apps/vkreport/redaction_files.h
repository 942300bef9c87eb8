// Names of files on the command line of vkreport.
#pragma once

#include "options.h"

/// A message for the user if one of the files of the redaction has no usable name or would be overwritten; else empty.
QString problemWithFiles(const Options &options);
