// Reads values from bytes, and writes them as bytes.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// \a text as UTF-16LE.
inline QByteArray utf16Bytes(const QString &text)
{
    QByteArray bytes;
    bytes.reserve(2 * text.size());
    for (const QChar unit : text) {
        bytes += char(unit.cell());
        bytes += char(unit.row());
    }
    return bytes;
}

/// The text of UTF-16LE bytes. An odd last byte is dropped.
inline QString utf16Text(const QByteArray &bytes)
{
    QString text;
    for (int i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(uchar(bytes.at(i)), uchar(bytes.at(i + 1)));
    return text;
}

/// Reads little-endian numbers from bytes. Bytes after the end are 0.
class ByteStream
{
public:
    explicit ByteStream(QByteArray bytes) : m_bytes(std::move(bytes)) { }

    bool atEnd() const { return m_position >= m_bytes.size(); }
    quint8 byte() { return atEnd() ? 0 : quint8(m_bytes.at(m_position++)); }
    quint16 word() { return quint16(number(2)); }
    quint32 number32() { return quint32(number(4)); }
    /// A number of \a size bytes.
    quint64 number(int size)
    {
        quint64 result = 0;
        for (int i = 0; i < size; ++i)
            result |= quint64(byte()) << (8 * i);
        return result;
    }
    /// A number below \a count.
    int index(int count) { return byte() % count; }
    /// At most \a size bytes; fewer at the end.
    QByteArray bytes(int size)
    {
        const QByteArray result = m_bytes.mid(m_position, size);
        m_position += result.size();
        return result;
    }

private:
    const QByteArray m_bytes;
    int m_position = 0;
};

/// The inverse of ByteStream.
class ByteWriter
{
public:
    const QByteArray &bytes() const { return m_bytes; }

    void byte(quint8 value) { m_bytes += char(value); }
    void word(quint16 value) { number(value, 2); }
    void number32(quint32 value) { number(value, 4); }
    void number(quint64 value, int size)
    {
        for (int i = 0; i < size; ++i)
            m_bytes += char(value >> (8 * i));
    }
    void append(const QByteArray &bytes) { m_bytes += bytes; }

private:
    QByteArray m_bytes;
};
