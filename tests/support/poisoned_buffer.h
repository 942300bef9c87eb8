// Memory that shows what a Windows call wrote to it, and what it left alone.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <windows.h>

/// What a number is before a call that may leave it alone.
constexpr DWORD poison = 0xdeadbeef;

/// Room for a call to write to, filled with 0xCC and followed by as much again, so
/// that what is left alone, inside and behind, can be told.
class PoisonedBuffer
{
public:
    explicit PoisonedBuffer(DWORD room) : m_bytes(int(room) + margin, poisonByte) { }

    BYTE *bytes() { return reinterpret_cast<BYTE *>(m_bytes.data()); }
    CHAR *narrow() { return m_bytes.data(); }
    WCHAR *wide() { return reinterpret_cast<WCHAR *>(m_bytes.data()); }

    bool isUntouched() const { return m_bytes.count(poisonByte) == m_bytes.size(); }
    /// Whether everything from \a position on was left alone.
    bool isUntouchedFrom(int position) const { return PoisonedBuffer(m_bytes.mid(position)).isUntouched(); }
    /// In hexadecimal, up to the last byte that is not poison any more.
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
