#include "text_lines.h"

#include <algorithm>

namespace {

/// Calls \a found with the offset after each line end.
template <class Function>
void forEachLineEnd(const QByteArray &text, Function found)
{
    const char *const data = text.constData();
    const int size = text.size();
    for (int i = 0; i < size; ++i) {
        if (data[i] == '\n' || (data[i] == '\r' && (i + 1 == size || data[i + 1] != '\n')))
            found(i + 1);
    }
}

std::shared_ptr<const std::vector<int>> lineBegins(const QByteArray &text)
{
    std::size_t count = 1;
    forEachLineEnd(text, [&count](int) { ++count; });
    auto begins = std::make_shared<std::vector<int>>();
    begins->reserve(count);
    begins->push_back(0);
    forEachLineEnd(text, [&begins](int begin) { begins->push_back(begin); });
    return begins;
}

} // namespace

TextLines::TextLines(const QByteArray &utf8)
    : m_text(utf8), m_begins(lineBegins(m_text))
{
}

TextRange TextLines::line(int index) const
{
    const int begin = (*m_begins)[std::size_t(index)];
    if (index + 1 == count())
        return {begin, m_text.size()};
    int end = (*m_begins)[std::size_t(index) + 1] - 1;
    if (end > begin && m_text.at(end) == '\n' && m_text.at(end - 1) == '\r')
        --end;
    return {begin, end};
}

int TextLines::lineAt(int offset) const
{
    const auto next = std::upper_bound(m_begins->begin(), m_begins->end(), offset);
    return std::max(0, int(next - m_begins->begin()) - 1);
}
