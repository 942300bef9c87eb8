// Owner of memory from the process heap.
#pragma once

#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The memory is not zeroed. Null if the allocation fails.
class HeapBuffer
{
public:
    explicit HeapBuffer(SIZE_T bytes) : m_memory(HeapAlloc(GetProcessHeap(), 0, bytes)) { }
    ~HeapBuffer() { free(); }
    HeapBuffer(const HeapBuffer &) = delete;
    HeapBuffer &operator=(const HeapBuffer &) = delete;

    explicit operator bool() const { return m_memory != nullptr; }
    template <typename T>
    T *as() const
    {
        return static_cast<T *>(m_memory);
    }

    /// Frees the memory and allocates \a bytes.
    void replace(SIZE_T bytes)
    {
        free();
        m_memory = HeapAlloc(GetProcessHeap(), 0, bytes);
    }

private:
    void free()
    {
        if (m_memory)
            HeapFree(GetProcessHeap(), 0, m_memory);
    }

    LPVOID m_memory;
};

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
