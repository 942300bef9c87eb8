// What the user says about the redaction: the key of the aliases, and lists of words.
#pragma once

#include "vkReports.h"

#include <optional>

/// Names of files; null if they were not given.
struct RedactionFiles
{
    QString aliasKey;
    QString aliasMap;
    QStringList hide;
    QStringList keep;
};

struct NamedFile
{
    const char *option;
    QString name;
};

/// The files that are read or made before something is redacted.
std::vector<NamedFile> filesRead(const RedactionFiles &files);

/// The functions below return a message for the user if something is wrong, else an empty text.

/// One of the files has no usable name.
QString wrongName(const std::vector<NamedFile> &files);
/// \a written is one of the \a others, which it would replace.
QString overwritten(const NamedFile &written, const std::vector<NamedFile> &others);

/// Whether both names belong to one file, now or after it was made. Devices and pipes are not such files.
bool isSameFile(const QString &name, const QString &other);

/// Reads the lists and the key; makes the key if its file is missing and the lists are right. If that fails, returns
/// nothing, and \a error is a message for the user.
std::optional<velkor::Reports::RedactionOptions> readRedactionOptions(const RedactionFiles &files, QString &error);

/// Writes what was replaced to standard error.
void tellWhatWasRedacted(const velkor::Reports::Redaction &redaction);
