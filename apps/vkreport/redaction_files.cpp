#include "redaction_files.h"

#include <QtCore/QFileInfo>

namespace {

struct NamedFile
{
    const char *option;
    QString name;
};

/// The files that are read or made before the report is written.
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

/// Of a file that is missing: its folder decides, and the case of letters does not.
bool isSameNewFile(const QFileInfo &file, const QFileInfo &other)
{
    return QFileInfo(file.absolutePath()) == QFileInfo(other.absolutePath())
        && file.fileName().compare(other.fileName(), Qt::CaseInsensitive) == 0;
}

} // namespace

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

QString problemWithFiles(const Options &options)
{
    const NamedFile output {"--output", options.output};
    const NamedFile map {"--alias-map", options.redaction.aliasMap};
    std::vector<NamedFile> files = filesRead(options.redaction);
    QString problem = wrongName(files);
    if (problem.isEmpty())
        problem = overwritten(output, files);
    if (!problem.isEmpty() || map.name.isNull())
        return problem;
    files.push_back(output);
    files.push_back({"--input", options.input});
    problem = wrongName({map});
    return problem.isEmpty() ? overwritten(map, files) : problem;
}
