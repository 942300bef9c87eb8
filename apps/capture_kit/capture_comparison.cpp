#include "capture_comparison.h"

#include "decoded_text.h"
#include "line_pairs.h"
#include "neutral_text.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <algorithm>
#include <cstring>

using namespace velkor::Reports;

namespace {

constexpr int longestLine = 1000;       // bytes that are shown
constexpr int longestComputerName = 15; // of the call that the report makes
constexpr char noSection[] = "-";

struct VerdictName
{
    Verdict verdict;
    const char *name;
};

constexpr VerdictName verdictNames[] = {
    {Verdict::Moment, "moment"},
    {Verdict::Modules, "modules"},
    {Verdict::Host, "host"},
    {Verdict::Missing, "missing"},
    {Verdict::Order, "order"},
    {Verdict::Length, "length"},
    {Verdict::Failed, "FAILED"},
};

/// The fact says something about the program or the session that asked.
bool isOfHost(const FactRow &row)
{
    if (std::strcmp(row.section, "someEnvironmentVariables") == 0)
        return true;
    return std::strcmp(row.section, "windowsVersion") == 0
        && (std::strcmp(row.key, "fromGetVersionEx") == 0 || std::strcmp(row.key, "name") == 0);
}

struct Line
{
    QByteArray text;
    QByteArray fixed; ///< the same for two lines whose difference is excused, such as "MemoryLoad:            0%"
    QByteArray section;
    bool hasMoment = false;
};

/// \a value with each number as 0, and "Byte" for KByte, MByte and so on: only these may change.
QByteArray formOf(const QByteArray &value)
{
    const auto isDigit = [](char byte) { return byte >= '0' && byte <= '9'; };
    QByteArray form;
    for (int i = 0; i < value.size(); ++i) {
        const bool isMultiple = std::strchr("KMGTP", value.at(i)) != nullptr && value.at(i) != 0;
        if (isMultiple && i > 0 && value.at(i - 1) == ' ' && qstrncmp(value.constData() + i + 1, "Byte", 4) == 0)
            continue;
        const bool isInNumber = !form.isEmpty() && form.back() == '0' && i > 0 && (isDigit(value.at(i - 1)) || value.at(i - 1) == '.');
        const bool isPoint = value.at(i) == '.' && i + 1 < value.size() && isDigit(value.at(i + 1));
        if (isInNumber && (isDigit(value.at(i)) || isPoint))
            continue;
        form += isDigit(value.at(i)) ? '0' : value.at(i);
    }
    return form;
}

/// The lines of a Windows half.
class WindowsHalf
{
public:
    explicit WindowsHalf(const Document &document) : m_document(document), m_end(endOf(document)) { }

    std::vector<Line> lines()
    {
        std::vector<Line> lines;
        const QByteArray &text = m_document.text();
        m_hasCarriageReturns = areAllEnded(text.left(m_end), "\r\n");
        for (int begin = 0; begin < m_end;) {
            const int lineFeed = text.indexOf('\n', begin);
            const int end = lineFeed < 0 || lineFeed >= m_end ? m_end : lineFeed;
            lines.push_back(lineAt(begin, end));
            if (end == text.size())
                lines.back().fixed += '\n'; // the line has no end
            begin = end + 1;
        }
        return lines;
    }

    int linesAfter() const
    {
        const QByteArray rest = m_document.text().mid(m_end);
        return rest.count('\n') + (rest.isEmpty() || rest.endsWith('\n') ? 0 : 1);
    }

private:
    /// Whether every line ends with carriage return and line feed: the text was converted on its way.
    static bool areAllEnded(const QByteArray &text, const QByteArray &end)
    {
        return text.count(end) > 0 && text.count(end) == text.count('\n');
    }

    /// Where the heading of the Qt half begins.
    static int endOf(const Document &document)
    {
        const QByteArray &text = document.text();
        const QByteArray heading = halfHeading(Half::Qt);
        for (const Place &place : document.places()) {
            const bool isHeading = place.kind == PlaceKind::Heading && text.mid(place.begin, heading.size()) == heading;
            if (isHeading)
                return place.begin;
        }
        return text.size();
    }

    Line lineAt(int begin, int end)
    {
        const QByteArray &text = m_document.text();
        Line line;
        const int textEnd = end - (m_hasCarriageReturns && end > begin && text.at(end - 1) == '\r' ? 1 : 0);
        line.text = text.mid(begin, textEnd - begin);
        const std::vector<Section> &sections = m_document.sections();
        while (m_nextSection < sections.size() && sections[m_nextSection].begin <= begin)
            ++m_nextSection;
        line.section = m_nextSection == 0 ? noSection : sectionRows()[std::size_t(sections[m_nextSection - 1].row)].name;
        line.fixed = line.section + '\n';
        int at = begin;
        const std::vector<Fact> &facts = m_document.facts();
        while (m_fact < facts.size() && facts[m_fact].end < begin)
            ++m_fact;
        for (std::size_t i = m_fact; i < facts.size() && facts[i].begin <= textEnd; ++i) {
            const FactRow &row = m_document.row(facts[i]);
            const bool isMoment = row.changes != Changes::Rarely;
            const int valueBegin = std::max(facts[i].begin, at);
            const int valueEnd = std::min(facts[i].end, textEnd);
            if ((!isMoment && !::isOfHost(row)) || valueEnd < valueBegin)
                continue;
            line.hasMoment = line.hasMoment || isMoment;
            line.fixed += text.mid(at, valueBegin - at) + '\r' + (isMoment ? formOf(text.mid(valueBegin, valueEnd - valueBegin)) : QByteArray());
            at = valueEnd;
        }
        line.fixed += text.mid(at, textEnd - at);
        return line;
    }

    const Document &m_document;
    int m_end;
    bool m_hasCarriageReturns = false;
    std::size_t m_nextSection = 0;
    std::size_t m_fact = 0;
};

/// The names of the sections that a line of vkreport says to be missing.
QSet<QByteArray> missingSections(const QStringList &notes)
{
    QSet<QByteArray> sections;
    for (const QString &note : notes) {
        const int mark = note.indexOf(QLatin1String("missing: "));
        if (mark < 0)
            continue;
        const QString rest = note.mid(mark + int(std::strlen("missing: ")));
        for (const SectionRow &row : sectionRows()) {
            if (rest == QLatin1String(row.name) || rest.startsWith(QLatin1String(row.name) + QLatin1String(": ")))
                sections.insert(row.name);
        }
    }
    return sections;
}

class Comparer
{
public:
    Comparer(const Document &report, const QByteArray &replay, const CaptureNotes &captureNotes)
        : notes(captureNotes), missing(missingSections(captureNotes.missing))
    {
        WindowsHalf half(report);
        left = half.lines();
        const Document replayed = read(replay);
        right = WindowsHalf(replayed).lines();
        result.notCompared = half.linesAfter();
    }

    CaptureComparison run()
    {
        const std::vector<std::pair<int, int>> pairs = equalLines(fixedTexts(left), fixedTexts(right));
        findMoved(pairs);
        int at = 0;
        int otherAt = 0;
        for (const auto &pair : pairs) {
            addUnpaired(at, pair.first, otherAt, pair.second);
            addPair(pair.first, pair.second);
            at = pair.first + 1;
            otherAt = pair.second + 1;
        }
        addUnpaired(at, int(left.size()), otherAt, int(right.size()));
        return std::move(result);
    }

private:
    static std::vector<QByteArray> fixedTexts(const std::vector<Line> &lines)
    {
        std::vector<QByteArray> texts;
        texts.reserve(lines.size());
        for (const Line &line : lines)
            texts.push_back(line.fixed);
        return texts;
    }

    void addPair(int index, int otherIndex)
    {
        const Line &line = left[std::size_t(index)];
        if (line.text == right[std::size_t(otherIndex)].text) {
            ++result.same;
            return;
        }
        const Verdict verdict = line.hasMoment ? Verdict::Moment : Verdict::Host;
        add(verdict, true, index);
        add(verdict, false, otherIndex);
    }

    /// The replay decides where in the report a line without a pair stands: a line of the report can look like the
    /// heading of another section.
    void addUnpaired(int begin, int end, int otherBegin, int otherEnd)
    {
        for (int i = begin; i < end; ++i) {
            placeInReplay(left[std::size_t(i)], i - begin, otherBegin, otherEnd);
            add(verdictOf(true, i), true, i);
        }
        for (int i = otherBegin; i < otherEnd; ++i)
            add(verdictOf(false, i), false, i);
    }

    void add(Verdict verdict, bool isReport, int index)
    {
        const Line &line = (isReport ? left : right)[std::size_t(index)];
        result.lines.push_back({verdict, line.section, index + 1, isReport, line.text});
    }

    /// Sets the section of a line of the report, the number \a offset of those between two pairs.
    void placeInReplay(Line &line, int offset, int otherBegin, int otherEnd) const
    {
        if (right.empty())
            return;
        if (otherBegin < otherEnd) {
            line.section = right[std::size_t(std::min(otherBegin + offset, otherEnd - 1))].section;
            return;
        }
        const QByteArray &before = right[std::size_t(std::max(otherBegin - 1, 0))].section;
        const QByteArray &after = right[std::min(std::size_t(otherEnd), right.size() - 1)].section;
        const bool isAtEnd = otherBegin > 0 && right[std::size_t(otherBegin - 1)].text == separatorLine();
        if (line.section != before && line.section != after)
            line.section = isAtEnd ? after : before;
        if (isAtEnd && std::size_t(otherEnd) == right.size())
            line.section = noSection;
    }

    static bool isModule(const QByteArray &text)
    {
        return !text.isEmpty() && text != separatorLine() && !text.startsWith("####") && !text.endsWith('\r')
            && std::none_of(sectionRows().begin(), sectionRows().end(), [&](const SectionRow &row) { return text + '\n' == row.heading; });
    }

    Verdict verdictOf(bool isReport, int index)
    {
        const Line &line = (isReport ? left : right)[std::size_t(index)];
        if (line.section == "loadedModules" && isModule(line.text))
            return Verdict::Modules;
        if (missing.contains(line.section))
            return Verdict::Missing;
        if (notes.isRedacted) {
            int &elsewhere = (isReport ? moved : movedOther)[line.fixed];
            if (elsewhere > 0) {
                --elsewhere;
                return Verdict::Order;
            }
            if (isReport && isTooLong(line))
                return Verdict::Length;
        }
        return Verdict::Failed;
    }

    /// Of the lines without a pair those that stand elsewhere in the same section.
    void findMoved(const std::vector<std::pair<int, int>> &pairs)
    {
        for (const Line &line : left)
            ++moved[line.fixed];
        for (const Line &line : right)
            ++movedOther[line.fixed];
        for (const auto &pair : pairs) {
            --moved[left[std::size_t(pair.first)].fixed];
            --movedOther[right[std::size_t(pair.second)].fixed];
        }
        for (auto count = moved.begin(); count != moved.end(); ++count)
            *count = std::min(*count, movedOther.value(count.key()));
        for (auto count = movedOther.begin(); count != movedOther.end(); ++count)
            *count = std::min(*count, moved.value(count.key()));
    }

    /// "NetBios name:                 host-730915462280": the call returns at most 15 characters.
    static bool isTooLong(const Line &line)
    {
        if (line.section != "computerNames")
            return false;
        const QByteArray name = line.text.mid(line.text.lastIndexOf(' ') + 1);
        static constexpr const char *kinds[] = {"host-", "domain-", "user-", "org-", "word-"};
        return name.size() > longestComputerName
            && std::any_of(std::begin(kinds), std::end(kinds), [&name](const char *kind) { return name.startsWith(kind); });
    }

    const CaptureNotes &notes;
    QSet<QByteArray> missing;
    std::vector<Line> left;
    std::vector<Line> right;
    QHash<QByteArray, int> moved;
    QHash<QByteArray, int> movedOther;
    CaptureComparison result;
};

QByteArray shown(const QByteArray &text)
{
    if (text.size() <= longestLine)
        return terminalText(decodedText(text)).toUtf8();
    return terminalText(decodedText(text.left(longestLine))).toUtf8() + "... (" + QByteArray::number(text.size() - longestLine)
        + " more bytes)";
}

const char *nameOf(Verdict verdict)
{
    const auto isSame = [verdict](const VerdictName &known) { return known.verdict == verdict; };
    return std::find_if(std::begin(verdictNames), std::end(verdictNames), isSame)->name;
}

} // namespace

int CaptureComparison::count(Verdict verdict) const
{
    return int(std::count_if(lines.begin(), lines.end(), [verdict](const DifferentLine &line) { return line.verdict == verdict; }));
}

CaptureComparison compareCapture(const Document &report, const QByteArray &replay, const CaptureNotes &notes)
{
    return Comparer(report, replay, notes).run();
}

QByteArray captureComparisonText(const CaptureComparison &comparison)
{
    QByteArray text;
    for (const DifferentLine &line : comparison.lines) {
        text += QByteArray(nameOf(line.verdict)) + "  " + line.section + "  line " + QByteArray::number(line.number)
            + (line.isReport ? ": report: " : ": replay: ") + shown(line.text) + '\n';
    }
    text += QByteArray::number(comparison.same) + " lines are the same";
    for (const VerdictName &verdict : verdictNames) {
        const int count = comparison.count(verdict.verdict);
        if (count > 0 || verdict.verdict == Verdict::Failed)
            text += ", " + QByteArray::number(count) + ' ' + verdict.name;
    }
    return text + ", " + QByteArray::number(comparison.notCompared) + " lines of the Qt half and OpenGL are not compared\n";
}
