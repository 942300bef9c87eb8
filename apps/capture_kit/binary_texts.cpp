#include "binary_texts.h"

#include <QtCore/QtEndian>

namespace {

constexpr int shortestText = 3; // characters; shorter names are not replaced in other texts either

bool isTextByte(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x20 && code != 0x7f;
}

bool isTextUnit(QChar unit)
{
    return unit.category() != QChar::Other_Control && unit.unicode() < 0xfffe;
}

QChar unitAt(const QByteArray &data, int offset)
{
    return QChar(qFromLittleEndian<quint16>(data.constData() + offset));
}

QByteArray unitsOf(const QString &text)
{
    QByteArray bytes;
    for (const QChar unit : text) {
        bytes += char(unit.cell());
        bytes += char(unit.row());
    }
    return bytes;
}

} // namespace

QByteArray withUtf16Texts(const QByteArray &data, int first, const std::function<QString(const QString &)> &change)
{
    QByteArray result = data.left(first);
    QString text;
    const auto flush = [&] {
        result += unitsOf(text.size() < shortestText ? text : change(text));
        text.clear();
    };
    int offset = first;
    for (; offset + 1 < data.size(); offset += 2) {
        const QChar unit = unitAt(data, offset);
        if (isTextUnit(unit)) {
            text += unit;
            continue;
        }
        flush();
        result += data.mid(offset, 2);
    }
    flush();
    return result + data.mid(offset);
}

QByteArray withNarrowTexts(const QByteArray &data, const std::function<QByteArray(int, const QByteArray &)> &change)
{
    QByteArray result;
    for (int begin = 0; begin < data.size();) {
        int end = begin;
        while (end < data.size() && isTextByte(data.at(end)))
            ++end;
        const QByteArray text = data.mid(begin, end - begin);
        result += text.size() < shortestText ? text : change(begin, text);
        begin = end;
        while (begin < data.size() && !isTextByte(data.at(begin)))
            result += data.at(begin++);
    }
    return result;
}
