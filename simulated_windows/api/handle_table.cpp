#include "handle_table.h"

#include "simulated_windows.h"

namespace simulated {

quintptr HandleTable::add(Handle handle)
{
    m_next += 4;
    m_handles.emplace(m_next, std::move(handle));
    return m_next;
}

const Handle *HandleTable::find(quintptr number, HandleKind kind, const char *use)
{
    const auto found = m_handles.find(number);
    if (found != m_handles.end() && found->second.kind == kind)
        return &found->second;
    m_misuses += QStringLiteral("%1 of handle 0x%2").arg(QLatin1String(use)).arg(number, 0, 16);
    return nullptr;
}

bool HandleTable::remove(quintptr number, HandleKind kind, const char *use)
{
    return find(number, kind, use) && m_handles.erase(number) > 0;
}

void HandleTable::clear()
{
    m_handles.clear();
    m_misuses.clear();
}

QStringList HandleTable::open() const
{
    QStringList result;
    for (const auto &entry : m_handles)
        result += entry.second.openedFor;
    return result;
}

HandleTable &handles()
{
    static HandleTable table;
    return table;
}

QStringList openHandles()
{
    return handles().open();
}

QStringList handleMisuses()
{
    return handles().misuses();
}

} // namespace simulated
