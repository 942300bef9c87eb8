// The handles that are open. A handle is a number of this table, never a pointer.
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
    /// Null when there is no such handle of that kind; that is noted as a misuse.
    const Handle *find(quintptr number, HandleKind kind, const char *use);
    bool remove(quintptr number, HandleKind kind, const char *use);
    bool isOpen(quintptr number) const { return m_handles.count(number) > 0; }
    void clear();

    QStringList open() const;
    const QStringList &misuses() const { return m_misuses; }

private:
    std::map<quintptr, Handle> m_handles;
    QStringList m_misuses;
    quintptr m_next = 0x40; // never given out twice
};

HandleTable &handles();

} // namespace simulated
