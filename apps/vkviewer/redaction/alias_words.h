// What redaction says, in words.
#pragma once

#include "vkReports.h"

/// "User name".
QString kindText(velkor::Reports::AliasKind kind);
/// Phrases with semicolons between them, why something was replaced.
QString reasonText(velkor::Reports::Reasons reasons);
