// The sections of the library that can be called one by one.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

struct Section
{
    const char *name; // that of the function
    QString (*text)();
};

/// Null when there is no section of that name.
const Section *findSection(const QString &name);

/// In the report's order.
QStringList sectionNames();
