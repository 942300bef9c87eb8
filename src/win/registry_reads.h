// What a section reads from the registry, for vkcapture, which copies it.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <cstddef>
#include <vector>
#include <windows.h>

namespace velkor {
namespace SystemInfo {

/// Keys, and the values that a section queries in each of them.
struct RegistryRead
{
    HKEY root;
    QString path;       ///< "*" as a name matches every sub-key
    QStringList values; ///< "" is the default value, "*" every value; may be empty
};

using RegistryReads = std::vector<RegistryRead>;

/// The value names of a table whose rows have a member `name`.
template <typename Row, std::size_t count>
QStringList valueNames(const Row (&table)[count])
{
    struct Text // char or wchar_t
    {
        static QString of(const char *name) { return QString::fromLatin1(name); }
        static QString of(const wchar_t *name) { return QString::fromWCharArray(name); }
    };
    QStringList names;
    for (const Row &row : table)
        names += Text::of(row.name);
    return names;
}

} // namespace SystemInfo
} // namespace velkor
