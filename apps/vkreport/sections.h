// The sections that the library exports.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

struct Section
{
    const char *name; // of its function
    QString (*text)();
};

/// Returns null if no section has that name.
const Section *findSection(const QString &name);

/// All names, in the order of the report.
QStringList sectionNames();
