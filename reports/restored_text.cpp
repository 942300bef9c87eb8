#include "restored_text.h"

#include "text_encoding.h"

#include <algorithm>

namespace velkor {
namespace Reports {

int restoredLimit(int json)
{
    constexpr qint64 ofShortJson = 1 << 20;
    constexpr qint64 growth = 8;
    return int(std::min<qint64>(maximalText, growth * json + ofShortJson));
}

std::optional<QByteArray> restoredBytes(const StoredText &stored, int limit)
{
    const std::optional<QByteArray> canonical = canonicalText(stored.trees, limit);
    if (!canonical)
        return std::nullopt;
    std::optional<QByteArray> text = applyEdits(*canonical, stored.form, stored.layout, limit);
    if (!text)
        return std::nullopt;
    if (stored.hasMark)
        text->prepend(byteOrderMark);
    if (stored.encoding == "UTF-16LE")
        text = toUtf16(*text, Encoding::Utf16LittleEndian);
    else if (stored.encoding == "UTF-16BE")
        text = toUtf16(*text, Encoding::Utf16BigEndian);
    return *text + stored.tail;
}

} // namespace Reports
} // namespace velkor
