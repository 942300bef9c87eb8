// Writes the JSON of reports: write_json FOLDER TEXT...
// Each text becomes a file of the folder, with a number as its name: 0.json, 1.json.

#include "vkReports.h"

#include <QtCore/QFile>
#include <cstdio>

int main(int argc, char *argv[])
{
    for (int i = 2; i < argc; ++i) {
        QFile text(QFile::decodeName(argv[i]));
        QFile json(QFile::decodeName(argv[1]) + QStringLiteral("/%1.json").arg(i - 2));
        if (!text.open(QIODevice::ReadOnly) || !json.open(QIODevice::WriteOnly)) {
            std::fprintf(stderr, "write_json: cannot open %s or its JSON\n", argv[i]);
            return 1;
        }
        json.write(velkor::Reports::toJson(velkor::Reports::read(text.readAll())));
    }
    return 0;
}
