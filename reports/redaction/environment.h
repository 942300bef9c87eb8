// What the values of environment variables are.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

enum class VariableKind {
    Other,    ///< unknown: only the length of its value can stay
    Harmless, ///< says nothing about a person
    Paths,
    Personal, ///< a folder of the user
    User,     ///< name of a user
    Host,
    Domain,
};

/// By the name of the variable in any case of letters. docs/privacy.md has the list.
VariableKind variableKind(const QString &name);

} // namespace Reports
} // namespace velkor
