// Puts a report together from the texts of its sections.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <map>

/// The names of all sections in the order of the report, with or without the OpenGL section.
QStringList sectionNames(bool noOpenGL);

/// The report with the sections of \a texts, and without the others. A separator line is left out if all sections since
/// the one before it are missing; the headings of the halves stay.
QByteArray assembledReport(const std::map<QString, QByteArray> &texts);
