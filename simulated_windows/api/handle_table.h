// The table of open handles. A handle is a number, not a pointer.
#pragma once

#include "registry_tree.h"

#include <QtCore/QStringList>
#include <map>

namespace simulated {

enum class HandleKind {
    Key,
    Library,
};

struct Handle
{
    HandleKind kind;
    QString openedFor;                         // a key's full path, a library's name
    std::shared_ptr<machine::RegistryKey> key; // null for a library
};

class HandleTable
{
public:
    quintptr add(Handle handle);
    /// Returns null, and records a misuse, if no handle of that kind has this number.
    const Handle *find(quintptr number, HandleKind kind, const char *use);
    bool remove(quintptr number, HandleKind kind, const char *use);
    bool isOpen(quintptr number) const { return m_handles.count(number) > 0; }
    void clear();

    QStringList open() const;
    const QStringList &misuses() const { return m_misuses; }

private:
    std::map<quintptr, Handle> m_handles;
    QStringList m_misuses;
    quintptr m_next = 0x40; // no number is used twice
};

HandleTable &handles();

} // namespace simulated
