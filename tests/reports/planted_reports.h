// Reports with planted identities and secrets, and what is known about them. redaction/README.md describes
// the files.
#pragma once

#include "vkReports.h"

#include <QtCore/QMap>
#include <QtCore/QStringList>

/// A text that must not be in anything that is made from the redacted report.
struct Hidden
{
    QString thing; ///< rows with the same thing are spellings of the same identity
    QString kind;  ///< "user", "organisation"
    QString needle;
    QString note; ///< an id of kinds.tsv, and perhaps more after a colon

    QString plant() const; ///< the id
};

struct PlantedReport
{
    QString name; ///< "0001"
    velkor::Reports::Document document;
    QStringList lines; ///< of the text, without line feeds but with carriage returns
    std::vector<Hidden> hidden;
    std::vector<int> kept; ///< indexes of lines that must not change
};

/// The text of a file as a program reads it that knows the encodings only: decoded from its byte-order mark.
QString decodedBytes(const QByteArray &bytes);

/// The lines as PlantedReport has them.
QStringList linesOf(const velkor::Reports::Document &document);

/// The reports of a folder. If a file is missing or wrong, sets \a error.
std::vector<PlantedReport> plantedReports(const QString &folder, QString &error);

/// The ids of kinds.tsv, and in how many reports each of them is.
QMap<QString, int> plantedKinds(const QString &folder);
