// Redacts the report before it is written.
#pragma once

#include "options.h"

/// The report without what identifies somebody. If that is not possible, writes a message and returns nothing.
std::optional<velkor::Reports::Redaction> redacted(const velkor::Reports::Document &document,
                                                   const RedactionFiles &files);

/// Writes what was replaced to standard error and what stands for what to the file that \a files names.
ExitCode writeWhatWasRedacted(const velkor::Reports::Redaction &redaction, const RedactionFiles &files);
