// A comparison as a file.
#pragma once

#include "vkReports.h"

/// As those of vkcompare.
enum class ComparisonForm {
    Text,
    Json,
    Markdown,
    Html,
};

/// UTF-8 with line feeds.
QByteArray written(const velkor::Reports::Comparison &comparison, ComparisonForm form, const velkor::Reports::ComparisonOptions &options);
QByteArray written(const velkor::Reports::ComparisonTable &table, ComparisonForm form, const velkor::Reports::ComparisonOptions &options);
