// Writes the seeds of described machines: make_seeds FOLDER MACHINE...

#include "seeds.h"

#include "machine_loader.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <cstdio>

namespace {

bool writeFile(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.flush())
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return false;
}

bool writeSeeds(const QString &folder, const QString &machineFolder)
{
    QString error;
    const auto machine = machine::loadMachine(machineFolder, error);
    if (!machine) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return false;
    }
    const QMap<QString, QByteArray> seeds = seedsOf(*machine);
    const QString start = folder + QLatin1Char('/') + QDir(machineFolder).dirName() + QLatin1Char('-');
    for (auto it = seeds.begin(); it != seeds.end(); ++it) {
        if (!writeFile(start + it.key(), it.value()))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: make_seeds FOLDER MACHINE...\n");
        return 2;
    }
    const QString folder = QFile::decodeName(argv[1]);
    if (!QDir().mkpath(folder))
        return 1;
    for (int i = 2; i < argc; ++i) {
        if (!writeSeeds(folder, QFile::decodeName(argv[i])))
            return 1;
    }
    return 0;
}
