#include "comparison_form.h"

using namespace velkor::Reports;

namespace {

template <typename Compared>
QByteArray write(const Compared &compared, ComparisonForm form, const ComparisonOptions &options)
{
    switch (form) {
    case ComparisonForm::Text:
        return comparisonText(compared, options);
    case ComparisonForm::Json:
        return comparisonJson(compared, options);
    case ComparisonForm::Markdown:
        return comparisonMarkdown(compared, options);
    case ComparisonForm::Html:
        return comparisonHtml(compared, options);
    }
    return {};
}

} // namespace

QByteArray written(const Comparison &comparison, ComparisonForm form, const ComparisonOptions &options)
{
    return write(comparison, form, options);
}

QByteArray written(const ComparisonTable &table, ComparisonForm form, const ComparisonOptions &options)
{
    return write(table, form, options);
}
