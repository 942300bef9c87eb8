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

QString aliasKindName(AliasKind)
{
    return {};
}

QByteArray redactionText(const Redaction &)
{
    return {};
}

QByteArray redactionJson(const Redaction &)
{
    return {};
}

QByteArray aliasMapJson(const Redaction &)
{
    return {};
}

QByteArray toJson(const Document &document, const Redaction &)
{
    return toJson(document);
}

} // namespace Reports
} // namespace velkor
