#include "vkReports.h"

namespace velkor {
namespace Reports {

Redaction redact(const std::vector<Document> &documents, const RedactionOptions &)
{
    return {documents, {}, 0};
}

QString redactionEntryError(const QString &)
{
    return {};
}

} // namespace Reports
} // namespace velkor
