// make_seeds CORPUS MACHINE...
//
// Writes the seeds of the described machines MACHINE to the folder CORPUS/TARGET of each target.

#include "file_seeds.h"
#include "seeds.h"

#include "machine_loader.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <cstdio>

namespace {

bool fail(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    return false;
}

bool writeSeeds(const QString &folder, const QString &machineName, const QMap<QString, QByteArray> &seeds)
{
    if (!QDir().mkpath(folder))
        return fail(folder + QStringLiteral(" cannot be made"));
    for (auto it = seeds.begin(); it != seeds.end(); ++it) {
        QFile file(folder + QLatin1Char('/') + machineName + QLatin1Char('-') + it.key());
        if (!file.open(QIODevice::WriteOnly) || file.write(it.value()) != it.value().size() || !file.flush())
            return fail(file.fileName() + QStringLiteral(": ") + file.errorString());
    }
    return true;
}

bool makeSeeds(const QString &corpus, const QString &machineFolder)
{
    QString error;
    const auto machine = machine::loadMachine(machineFolder, error);
    if (!machine)
        return fail(error);
    const QString name = QDir(machineFolder).dirName();
    return writeSeeds(corpus + QStringLiteral("/report"), name, seedsOf(*machine))
        && writeSeeds(corpus + QStringLiteral("/machine_files"), name, fileSeedsOf(*machine));
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: make_seeds CORPUS MACHINE...\n");
        return 2;
    }
    for (int i = 2; i < argc; ++i) {
        if (!makeSeeds(QFile::decodeName(argv[1]), QFile::decodeName(argv[i])))
            return 1;
    }
    return 0;
}
