// The handles that are open. A handle is a number of this table, never a pointer.
#pragma once

#include "registry_tree.h"

#include <QtCore/QStringList>
#include <map>

namespace simulated {

struct Handle
{
    QString openedFor;                          // a key's full path, a library's name
    std::shared_ptr<machine::RegistryKey> key;  // null for a library
};

class HandleTable
{
public:
    quintptr add(Handle handle);
    /// Null when there is no such handle; that is noted as a misuse.
    const Handle *find(quintptr number, const char *use);
    bool remove(quintptr number, const char *use);
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
