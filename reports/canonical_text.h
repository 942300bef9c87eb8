// The text that the facts of reports would have in the order of the catalogue.
#pragma once

#include "report_tree.h"

#include <optional>

namespace velkor {
namespace Reports {

constexpr int maximalPrefix = 16;

/// What happened to all lines of a text.
struct TextForm
{
    enum class NoBreak {
        None,
        All,  ///< each space became U+00A0
        Runs, ///< in a run of spaces, all but the last
    };
    QByteArray lineEnd = QByteArrayLiteral("\n");
    QByteArray linePrefix; ///< up to maximalPrefix bytes
    bool collapsed = false;
    bool leadingStripped = false;
    bool trailingStripped = false;
    NoBreak noBreak = NoBreak::None;
};

/// The text with line feeds. Its length is at most proportional to what the trees hold. Nothing if
/// it exceeds \a limit.
std::optional<QByteArray> canonicalText(const ReportTrees &trees, int limit);

/// The lines of a canonical text, in a form.
class FormedLines
{
public:
    FormedLines(const QByteArray &canonical, const TextForm &form) : m_canonical(canonical), m_form(form) { }
    bool hasNext() const { return m_at < m_canonical.size(); }
    /// The next line with its line end.
    QByteArray next();
    void skip();

private:
    int lineLength() const;

    const QByteArray &m_canonical;
    const TextForm &m_form;
    int m_at = 0;
};

} // namespace Reports
} // namespace velkor
