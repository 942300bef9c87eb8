#include "machine_loader.h"

#include "registry_file.h"
#include "system_file.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace machine {
namespace {

QString located(const QString &path, int line, const QString &message)
{
    const QString place = line > 0 ? QStringLiteral("%1:%2").arg(path).arg(line) : path;
    return place + QStringLiteral(": ") + message;
}

/// True if the file does not exist, or if \a read succeeds.
template <typename Read>
bool readFile(const QString &path, QString &error, Read read)
{
    QFile file(path);
    if (!file.exists())
        return true;
    if (!file.open(QIODevice::ReadOnly)) {
        error = located(path, 0, file.errorString());
        return false;
    }
    QString message;
    int line = 0;
    if (read(file.readAll(), message, line))
        return true;
    error = located(path, line, message);
    return false;
}

} // namespace

std::optional<Machine> loadMachine(const QString &folder, QString &error)
{
    const QDir directory(folder);
    if (folder.isEmpty() || !directory.exists()) {
        error = QStringLiteral("%1: no such machine folder").arg(folder);
        return std::nullopt;
    }
    Machine machine;
    const bool read = readFile(directory.filePath(QStringLiteral("registry.reg")), error,
                               [&](const QByteArray &contents, QString &message,
                                   int &line) { return readRegistryFile(contents, machine.registry, message, line); })
        && readFile(directory.filePath(QStringLiteral("system.json")), error,
                    [&](const QByteArray &contents, QString &message, int &line) {
        return readSystemFile(contents, machine, message, line);
                      });
    if (!read)
        return std::nullopt;
    return machine;
}

} // namespace machine
