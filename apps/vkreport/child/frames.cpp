#include "frames.h"

#include <algorithm>

namespace {

constexpr int longestHeader = 32;                 // bytes
constexpr int largestContent = 512 * 1024 * 1024; // bytes

bool isKnown(const QByteArray &name)
{
    constexpr const char *names[] = {FrameName::begin, FrameName::text, FrameName::end};
    return std::any_of(std::begin(names), std::end(names), [&name](const char *known) { return name == known; });
}

} // namespace

QByteArray toBytes(const Frame &frame)
{
    return frame.name + ' ' + QByteArray::number(frame.content.size()) + '\n' + frame.content;
}

FrameReader::Next FrameReader::take(Frame &frame)
{
    const int lineEnd = m_bytes.indexOf('\n');
    if (lineEnd < 0)
        return m_bytes.size() > longestHeader ? Next::Invalid : Next::Incomplete;
    const int space = m_bytes.indexOf(' ');
    if (lineEnd > longestHeader || space < 0 || space > lineEnd || !isKnown(m_bytes.left(space)))
        return Next::Invalid;
    bool isNumber = false;
    const int size = m_bytes.mid(space + 1, lineEnd - space - 1).toInt(&isNumber);
    if (!isNumber || size < 0 || size > largestContent)
        return Next::Invalid;
    const int begin = lineEnd + 1;
    if (m_bytes.size() - begin < size)
        return Next::Incomplete;
    frame = {m_bytes.left(space), m_bytes.mid(begin, size)};
    m_bytes.remove(0, begin + size);
    return Next::Frame;
}
