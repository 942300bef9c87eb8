// What is copied, saved and printed: a report as it is, or without personal data.
#pragma once

#include "vkReports.h"

#include <QtCore/QString>
#include <memory>

struct OutputReport
{
    QString name; ///< for people, and for names of files; without a folder
    velkor::Reports::Document document;
    /// What was replaced; null if nothing was hidden.
    std::shared_ptr<const velkor::Reports::Redaction> redaction;
    /// What of the report could not be made: JsonNotes::incomplete.
    QByteArray incomplete = {};

    bool isRedacted() const { return redaction != nullptr; }
};

enum class OutputFormat {
    Text,
    Json,
    Html,
    Markdown,
};

/// Issue trackers accept so many UTF-16 code units.
constexpr int largestIssue = 65536;

/// All of the report. Text has the bytes that were read.
QByteArray outputBytes(const OutputReport &report, OutputFormat format);
/// For an issue tracker: at most largestIssue units. What was left out is said in it.
QByteArray issueMarkdown(const OutputReport &report);
/// What support asks first, as text.
QByteArray summaryText(const OutputReport &report);
