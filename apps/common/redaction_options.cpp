#include "redaction_options.h"

#include "alias_key.h"
#include "neutral_text.h"
#include "program_output.h"
#include "word_list.h"

#include <QtCore/QFileInfo>

using namespace velkor;

namespace {

/// Of a file that is missing: its folder decides, and the case of letters does not.
bool isSameNewFile(const QFileInfo &file, const QFileInfo &other)
{
    return QFileInfo(file.absolutePath()) == QFileInfo(other.absolutePath())
        && file.fileName().compare(other.fileName(), Qt::CaseInsensitive) == 0;
}

bool readWordLists(const QStringList &fileNames, QStringList &entries, QString &error)
{
    for (const QString &fileName : fileNames) {
        if (!readWordList(fileName, entries, error))
            return false;
    }
    return true;
}

} // namespace

std::vector<NamedFile> filesRead(const RedactionFiles &files)
{
    std::vector<NamedFile> all;
    for (const QString &name : files.hide)
        all.push_back({"--hide", name});
    for (const QString &name : files.keep)
        all.push_back({"--keep", name});
    if (!files.aliasKey.isNull())
        all.push_back({"--alias-key", files.aliasKey});
    return all;
}

QString wrongName(const std::vector<NamedFile> &files)
{
    for (const NamedFile &file : files) {
        if (file.name.isEmpty() || file.name == QLatin1String("-"))
            return QStringLiteral("%1 requires the name of a file, not '%2'").arg(QLatin1String(file.option), file.name);
    }
    return QString();
}

QString overwritten(const NamedFile &written, const std::vector<NamedFile> &others)
{
    for (const NamedFile &other : others) {
        if (isSameFile(written.name, other.name)) {
            return QStringLiteral("%1 and %2 name the same file")
                .arg(QLatin1String(other.option), QLatin1String(written.option));
        }
    }
    return QString();
}

bool isSameFile(const QString &name, const QString &other)
{
    if (name.isEmpty() || other.isEmpty() || isDevice(name) || isDevice(other))
        return false;
    const QFileInfo file(name);
    const QFileInfo otherFile(other);
    if (file.exists() != otherFile.exists())
        return false;
    return file.exists() ? file == otherFile : isSameNewFile(file, otherFile);
}

std::optional<Reports::RedactionOptions> readRedactionOptions(const RedactionFiles &files, QString &error)
{
    Reports::RedactionOptions options;
    if (!readWordLists(files.hide, options.hide, error) || !readWordLists(files.keep, options.keep, error))
        return std::nullopt;
    if (!files.aliasKey.isNull()) {
        options.key = readAliasKey(files.aliasKey, error);
        if (options.key.isEmpty())
            return std::nullopt;
    }
    return options;
}

void tellWhatWasRedacted(const Reports::Redaction &redaction)
{
    tell(Reports::terminalText(QString::fromUtf8(Reports::redactionText(redaction))));
}
