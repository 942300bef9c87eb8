// The sections that the library exports, as functions.
#pragma once

#include <QtCore/QString>

struct Section
{
    const char *name; // of its function
    QString (*text)();
};

/// Returns null if no section has that name.
const Section *findSection(const QString &name);
