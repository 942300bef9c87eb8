// The command line of vkreport.
#pragma once

#include "program_output.h"
#include "redaction_options.h"

#include <optional>

enum class Format {
    Text,
    Json,
    Markdown,
    Html,
};

struct Options
{
    bool noOpenGL = false;
    bool listSections = false;
    bool listFacts = false;
    bool platformName = false;
    bool openGLVersion = false;
    bool bonjour = false;
    bool timings = false;
    bool inProcess = false;
    bool lowPriority = false;
    bool progress = false;
    double timeLimit = 60; ///< seconds; 0 for none
    QStringList sections;  ///< as they were given
    QString input;         ///< name of the file to read, "-" for standard input; null to make a report
    QString output;        ///< name of the file to write; null for standard output
    Format format = Format::Text;
    bool redact = false;
    RedactionFiles redaction;
    velkor::Reports::WriteOptions write; ///< sections of the whole report, if they are not taken one by one

    /// Whether parts of the report or other facts were requested instead of the whole report.
    bool asksForParts() const
    {
        return listSections || platformName || openGLVersion || bonjour || !sections.isEmpty();
    }
    /// Whether a document is read, and not only text printed.
    bool needsDocument() const;
};

/// Reads the command line. Handles --help, --version and wrong usage; returns the exit code if the program
/// can end. Needs a QCoreApplication.
std::optional<ExitCode> parseOptions(Options &options);
