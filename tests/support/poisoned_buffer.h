// Memory that shows what a Windows call wrote to it.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <windows.h>

/// The value of a variable before a call that must not change it.
constexpr DWORD poison = 0xdeadbeef;

/// A buffer filled with 0xCC. 64 more such bytes follow, which a call must not change.
class PoisonedBuffer
{
public:
    explicit PoisonedBuffer(DWORD size) : m_bytes(int(size) + margin, poisonByte) { }

    BYTE *bytes() { return reinterpret_cast<BYTE *>(m_bytes.data()); }
    CHAR *narrow() { return m_bytes.data(); }
    WCHAR *wide() { return reinterpret_cast<WCHAR *>(m_bytes.data()); }

    bool isUntouched() const { return m_bytes.count(poisonByte) == m_bytes.size(); }
    /// Whether nothing was written from \a position on.
    bool isUntouchedFrom(int position) const { return PoisonedBuffer(m_bytes.mid(position)).isUntouched(); }
    /// In hexadecimal, up to the last byte that was written.
    QString written() const
    {
        int end = m_bytes.size();
        while (end > 0 && m_bytes.at(end - 1) == poisonByte)
            --end;
        return QString::fromLatin1(m_bytes.left(end).toHex());
    }
    QString wideText() { return QString::fromWCharArray(wide()); }

private:
    explicit PoisonedBuffer(const QByteArray &bytes) : m_bytes(bytes) { }

    static constexpr char poisonByte = '\xcc';
    static constexpr int margin = 64;
    QByteArray m_bytes;
};
