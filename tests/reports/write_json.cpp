// Writes the JSON of reports: write_json FOLDER TEXT...
// Each text becomes two files of the folder, with a number as its name: 0.json, and 0.redacted.json with
// the redacted report and what was replaced.

#include "vkReports.h"

#include <QtCore/QFile>
#include <cstdio>

using namespace velkor::Reports;

namespace {

bool write(const QString &name, const QByteArray &json)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(json) == json.size();
}

} // namespace

int main(int argc, char *argv[])
{
    for (int i = 2; i < argc; ++i) {
        QFile text(QFile::decodeName(argv[i]));
        if (!text.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "write_json: cannot open %s\n", argv[i]);
            return 1;
        }
        const Document document = read(text.readAll());
        const Redaction redaction = redact({document});
        const QString name = QFile::decodeName(argv[1]) + QStringLiteral("/%1").arg(i - 2);
        if (!write(name + QStringLiteral(".json"), toJson(document))
            || !write(name + QStringLiteral(".redacted.json"), toJson(redaction.documents.front(), redaction))) {
            std::fprintf(stderr, "write_json: cannot write the JSON of %s\n", argv[i]);
            return 1;
        }
    }
    return 0;
}
