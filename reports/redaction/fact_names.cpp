#include "fact_names.h"

#include "folding.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

using What = FactTreatment::What;

bool is(const char *left, const char *right)
{
    return std::strcmp(left, right) == 0;
}

bool isDomain(const FactRow &row)
{
    return is(row.key, "dnsDomain") || is(row.key, "physicalDnsDomain") || is(row.key, "localDomainName");
}

FactTreatment name(AliasKind kind)
{
    FactTreatment treatment;
    treatment.what = What::Name;
    treatment.kind = kind;
    return treatment;
}

FactTreatment search(PathContext paths)
{
    FactTreatment treatment;
    treatment.paths = paths;
    return treatment;
}

FactTreatment ofEnvironment(const FactRow &row)
{
    FactTreatment treatment;
    treatment.what = is(row.key, "value") ? What::Variable : What::VariableName;
    return treatment;
}

FactTreatment makeTreatment(const FactRow &row)
{
    const Reveals reveals = row.reveals;
    if (is(row.section, "qtSystemEnvironment"))
        return ofEnvironment(row);
    if (reveals.testFlag(Reveal::Address)) {
        FactTreatment treatment = name(reveals.testFlag(Reveal::SerialNumber) ? AliasKind::Mac : AliasKind::Ip);
        treatment.what = What::Address;
        return treatment;
    }
    if (reveals.testFlag(Reveal::Host)) {
        FactTreatment treatment = name(isDomain(row) ? AliasKind::Domain : AliasKind::Host);
        treatment.what = What::HostOrDomain;
        return treatment;
    }
    if (reveals.testFlag(Reveal::Path))
        return search(is(row.key, "command")               ? PathContext::Command
                          : reveals.testFlag(Reveal::User) ? PathContext::Personal
                                                           : PathContext::Whole);
    if (reveals.testFlag(Reveal::User))
        return name(AliasKind::User);
    if (reveals.testFlag(Reveal::Organisation))
        return name(AliasKind::Organisation);
    if (reveals.testFlag(Reveal::Printer))
        return name(AliasKind::Printer);
    if (reveals.testFlag(Reveal::DriveLabel))
        return name(AliasKind::Label);
    if (reveals.testFlag(Reveal::SerialNumber) && is(row.key, "productId"))
        return name(AliasKind::Product);
    FactTreatment treatment;
    treatment.isDevice = reveals.testFlag(Reveal::SerialNumber);
    treatment.isProgram = is(row.key, "applicationName") || is(row.key, "organizationName") || is(row.key, "productName");
    treatment.hasAddresses = !std::strstr(row.key, "etmask");
    return treatment;
}

} // namespace

const FactTreatment &treatmentOf(int row)
{
    static const std::vector<FactTreatment> treatments = [] {
        std::vector<FactTreatment> all;
        for (const FactRow &fact : factRows())
            all.push_back(makeTreatment(fact));
        return all;
    }();
    return treatments[std::size_t(row)];
}

bool isCommonPrinter(const QString &name)
{
    static constexpr const char *starts[] = {"microsoft print to pdf", "microsoft xps document writer", "fax",
                                             "onenote", "send to onenote", "an onenote",
                                             "adobe pdf", "foxit", "pdfcreator",
                                             "pdf24", "microsoft office document", "root print queue"};
    const QString symbols = QString::fromStdU16String(folded(name));
    return std::any_of(std::begin(starts), std::end(starts), [&symbols](const char *start) {
        const QLatin1String common(start);
        return symbols.startsWith(common) && (symbols.size() == common.size() || !symbols.at(common.size()).isLetterOrNumber());
    });
}

} // namespace Reports
} // namespace velkor
