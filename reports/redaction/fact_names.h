// What the value of a fact identifies, by the catalogue.
#pragma once

#include "path_names.h"
#include "vkReports.h"

namespace velkor {
namespace Reports {

/// How the value of a fact is treated.
struct FactTreatment
{
    enum class What {
        Search,       ///< only what is found in it
        Name,         ///< the whole value is a name
        HostOrDomain, ///< "host.domain", or one of them
        Address,      ///< the addresses in it
        Variable,     ///< it depends on the name of the environment variable
        VariableName, ///< the name of an environment variable, which stays
    };

    What what = What::Search;
    AliasKind kind = AliasKind::Word; ///< of a name
    PathContext paths = PathContext::Command;
    bool isDevice = false;    ///< serial numbers stand in it without a label
    bool isProgram = false;   ///< names a program, whose folders can have the name
    bool hasAddresses = true; ///< an address in it is one of a machine
};

/// By the index of the row.
const FactTreatment &treatmentOf(int row);

/// Whether \a name is the name of a printer that many machines have: "Microsoft Print to PDF".
bool isCommonPrinter(const QString &name);

} // namespace Reports
} // namespace velkor
