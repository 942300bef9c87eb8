#include "line_edits.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace velkor {
namespace Reports {

namespace {

constexpr int nearby = 24;       // lines that are searched for a pair of equal ones
constexpr int maximalBlanks = 8; // the format has fewer empty lines in a row

/// Positions of lines by their hashes.
class LineIndex
{
public:
    void add(size_t hash, int position) { m_entries.emplace_back(hash, position); }
    void finish() { std::sort(m_entries.begin(), m_entries.end()); }
    /// The first position from \a position on; -1 if there is none.
    int find(size_t hash, int position) const
    {
        const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), std::make_pair(hash, position));
        return found != m_entries.end() && found->first == hash ? found->second : -1;
    }

private:
    std::vector<std::pair<size_t, int>> m_entries;
};

/// Joins edits: lines that are missing or added between two equal ones are one edit each.
class EditList
{
public:
    explicit EditList(const QByteArray &text) : m_text(text) { }
    void take()
    {
        flush();
        if (m_edits.empty() || m_edits.back().lines <= 0)
            m_edits.push_back({0, {}});
        ++m_edits.back().lines;
    }
    void skip(int lines) { m_skipped += lines; }
    void insert(const TextPart &part)
    {
        m_begin = m_begin < 0 ? part.begin : m_begin;
        m_end = part.end;
    }
    std::vector<LineEdit> finish()
    {
        flush();
        if (!m_edits.empty() && m_edits.back().lines > 0)
            m_edits.pop_back(); // the rest is taken anyway
        return std::move(m_edits);
    }

private:
    void flush()
    {
        if (m_skipped > 0)
            m_edits.push_back({-m_skipped, {}});
        if (m_begin >= 0)
            m_edits.push_back({0, m_text.mid(m_begin, m_end - m_begin)});
        m_skipped = 0;
        m_begin = -1;
    }

    const QByteArray &m_text;
    std::vector<LineEdit> m_edits;
    int m_skipped = 0;
    int m_begin = -1;
    int m_end = 0;
};

class LineComparison
{
public:
    LineComparison(std::vector<size_t> canonical, const std::vector<TextPart> &parts);
    void run(EditList &edits);

private:
    bool isEqual(int line, int part) const;
    bool findPair(int &skipped, int &inserted) const;
    void stepWithoutPair(EditList &edits);

    const std::vector<size_t> m_canonical;
    const std::vector<TextPart> &m_parts;
    LineIndex m_lineIndex;
    LineIndex m_partIndex;
    int m_line = 0;
    int m_part = 0;
};

LineComparison::LineComparison(std::vector<size_t> canonical, const std::vector<TextPart> &parts)
    : m_canonical(std::move(canonical)), m_parts(parts)
{
    for (size_t i = 0; i < m_canonical.size(); ++i)
        m_lineIndex.add(m_canonical[i], int(i));
    for (size_t i = 0; i < m_parts.size(); ++i) {
        if (m_parts[i].isFormat)
            m_partIndex.add(m_parts[i].hash, int(i));
    }
    m_lineIndex.finish();
    m_partIndex.finish();
}

bool LineComparison::isEqual(int line, int part) const
{
    return line < int(m_canonical.size()) && part < int(m_parts.size()) && m_parts[size_t(part)].isFormat
        && m_canonical[size_t(line)] == m_parts[size_t(part)].hash;
}

/// The nearest equal lines. An empty line alone is no sign that the same follows.
bool LineComparison::findPair(int &skipped, int &inserted) const
{
    for (int distance = 1; distance <= nearby; ++distance) {
        for (int i = 0; i <= distance; ++i) {
            const int line = m_line + i;
            const int part = m_part + distance - i;
            if (isEqual(line, part) && (!m_parts[size_t(part)].isBlank || isEqual(line + 1, part + 1))) {
                skipped = i;
                inserted = distance - i;
                return true;
            }
        }
    }
    return false;
}

/// Drops a line of the side whose line the other does not have, or has further away.
void LineComparison::stepWithoutPair(EditList &edits)
{
    const TextPart &part = m_parts[size_t(m_part)];
    const size_t line = m_canonical[size_t(m_line)];
    const int partOfLine = m_partIndex.find(line, m_part);
    const int lineOfPart = m_lineIndex.find(part.hash, m_line);
    const bool lineIsNearer = partOfLine >= 0 && (lineOfPart < 0 || partOfLine - m_part <= lineOfPart - m_line);
    const bool partIsNearer = lineOfPart >= 0 && !lineIsNearer;
    if (!lineIsNearer) {
        edits.skip(1);
        ++m_line;
    }
    if (!partIsNearer) {
        edits.insert(part);
        ++m_part;
    }
}

void LineComparison::run(EditList &edits)
{
    const int lineCount = int(m_canonical.size());
    const int partCount = int(m_parts.size());
    while (m_part < partCount) {
        int skipped = 0;
        int inserted = 0;
        if (isEqual(m_line, m_part)) {
            edits.take();
            ++m_line;
            ++m_part;
        } else if (!m_parts[size_t(m_part)].isFormat || m_line == lineCount) {
            edits.insert(m_parts[size_t(m_part)]);
            ++m_part;
        } else if (findPair(skipped, inserted)) {
            edits.skip(skipped);
            for (int i = 0; i < inserted; ++i)
                edits.insert(m_parts[size_t(m_part + i)]);
            m_line += skipped;
            m_part += inserted;
        } else {
            stepWithoutPair(edits);
        }
    }
    edits.skip(lineCount - m_line);
}

/// The number of bytes from \a begin to \a end that no rule of the format knows. \a mark moves on.
int otherBytes(const std::vector<Mark> &marks, size_t &mark, int begin, int end)
{
    while (mark < marks.size() && marks[mark].end <= begin)
        ++mark;
    int count = 0;
    for (size_t i = mark; i < marks.size() && marks[i].begin < end; ++i) {
        if (marks[i].kind == PlaceKind::Other)
            count += std::min(end, marks[i].end) - std::max(begin, marks[i].begin);
    }
    return count;
}

/// Adds a part, and joins it with those before it that are no lines of the format either.
void addPart(std::vector<TextPart> &parts, const TextPart &part)
{
    if (!parts.empty() && !parts.back().isFormat && (!part.isFormat || part.isBlank)) {
        parts.back().end = part.end;
        return;
    }
    parts.push_back(part);
    const auto isBlank = [](const TextPart &one) { return one.isBlank; };
    if (part.isBlank && parts.size() > maximalBlanks && std::all_of(parts.end() - maximalBlanks, parts.end(), isBlank)) {
        parts.resize(parts.size() - maximalBlanks + 1);
        parts.back().end = part.end;
        parts.back().isFormat = false;
    }
}

} // namespace

size_t lineHash(const char *line, int length)
{
    return std::hash<std::string_view>()(std::string_view(line, size_t(length)));
}

std::vector<TextPart> textParts(const QByteArray &text, const std::vector<Mark> &marks, const TextForm &form)
{
    std::vector<TextPart> parts;
    const char last = form.lineEnd.back();
    size_t mark = 0;
    for (int begin = 0; begin < text.size();) {
        const int feed = text.indexOf(last, begin);
        TextPart part;
        part.begin = begin;
        part.end = feed < 0 ? text.size() : feed + 1;
        const int content = part.end - begin - form.linePrefix.size() - form.lineEnd.size();
        const int other = otherBytes(marks, mark, begin, part.end);
        part.isBlank = content <= 0;
        part.isFormat = other == 0 || other < content;
        part.hash = part.isFormat ? lineHash(text.constData() + begin, part.end - begin) : 0;
        addPart(parts, part);
        begin = part.end;
    }
    return parts;
}

std::vector<LineEdit> findEdits(const QByteArray &canonical, const TextForm &form, const QByteArray &text,
                                const std::vector<TextPart> &parts)
{
    std::vector<size_t> lines;
    for (FormedLines formed(canonical, form); formed.hasNext();) {
        const QByteArray line = formed.next();
        lines.push_back(lineHash(line.constData(), line.size()));
    }
    EditList edits(text);
    LineComparison(std::move(lines), parts).run(edits);
    return edits.finish();
}

std::optional<QByteArray> applyEdits(const QByteArray &canonical, const TextForm &form,
                                     const std::vector<LineEdit> &edits, int limit)
{
    QByteArray text;
    bool fits = true;
    const auto append = [&](const QByteArray &part) {
        fits = fits && part.size() <= limit - text.size();
        if (fits)
            text.append(part);
    };
    FormedLines formed(canonical, form);
    for (const LineEdit &edit : edits) {
        append(edit.text);
        for (int i = 0; i != edit.lines && fits; i += edit.lines > 0 ? 1 : -1) {
            if (!formed.hasNext())
                return std::nullopt;
            if (edit.lines > 0)
                append(formed.next());
            else
                formed.skip();
        }
    }
    while (formed.hasNext() && fits)
        append(formed.next());
    if (!fits)
        return std::nullopt;
    return text;
}

} // namespace Reports
} // namespace velkor
