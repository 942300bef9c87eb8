// Bytes as what they stand for, and back.
#pragma once

#include <QtCore/QByteArray>

/// Takes numbers from the front of some bytes; little endian, and 0 behind their end.
class ByteStream
{
public:
    explicit ByteStream(QByteArray bytes) : m_bytes(std::move(bytes)) { }

    bool atEnd() const { return m_position >= m_bytes.size(); }
    quint8 byte() { return atEnd() ? 0 : quint8(m_bytes.at(m_position++)); }
    quint16 word() { return quint16(number(2)); }
    quint32 number32() { return quint32(number(4)); }
    quint64 number64() { return number(8); }
    /// Something below \a count.
    int index(int count) { return byte() % count; }
    /// Up to \a size bytes, fewer at the end.
    QByteArray bytes(int size)
    {
        const QByteArray result = m_bytes.mid(m_position, size);
        m_position += result.size();
        return result;
    }

private:
    quint64 number(int size)
    {
        quint64 result = 0;
        for (int i = 0; i < size; ++i)
            result |= quint64(byte()) << (8 * i);
        return result;
    }

    const QByteArray m_bytes;
    int m_position = 0;
};

/// Writes what a ByteStream reads.
class ByteWriter
{
public:
    const QByteArray &bytes() const { return m_bytes; }

    void byte(quint8 value) { m_bytes += char(value); }
    void word(quint16 value) { number(value, 2); }
    void number32(quint32 value) { number(value, 4); }
    void number64(quint64 value) { number(value, 8); }
    void append(const QByteArray &bytes) { m_bytes += bytes; }

private:
    void number(quint64 value, int size)
    {
        for (int i = 0; i < size; ++i)
            m_bytes += char(value >> (8 * i));
    }

    QByteArray m_bytes;
};
