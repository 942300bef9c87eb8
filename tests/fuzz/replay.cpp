// Runs a fuzz target once with every file of the given folders.

#include "fuzz_target.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <cstdio>

namespace {

/// The number of files, or -1 if one cannot be read.
int replayFolder(const QString &folder)
{
    int count = 0;
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(folder + QLatin1Char('/') + name);
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "%s: %s\n", qPrintable(file.fileName()), qPrintable(file.errorString()));
            return -1;
        }
        // Printed before the run, so that the last line names the file if the process ends.
        std::printf("%s\n", qPrintable(file.fileName()));
        std::fflush(stdout);
        const QByteArray contents = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(contents.constData()), std::size_t(contents.size()));
        ++count;
    }
    return count;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER...\n", argv[0]);
        return 2;
    }
    for (int i = 1; i < argc; ++i) {
        const int count = replayFolder(QFile::decodeName(argv[i]));
        if (count < 0)
            return 1;
        std::printf("%d inputs of %s\n", count, argv[i]);
        if (count == 0)
            return 1; // the corpus is empty
    }
    return 0;
}
