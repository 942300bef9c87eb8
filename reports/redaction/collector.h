// Finds in one document what the format, paths and forms say to be a name or a secret.
#pragma once

#include "account_names.h"
#include "addresses.h"
#include "identities.h"
#include "plan.h"
#include "word_list.h"

namespace velkor {
namespace Reports {

/// What one document holds, with offsets in its text. All lists are in order.
struct Collected
{
    Plan planned;                                      ///< without overlaps
    std::unordered_set<std::u16string> programFolders; ///< names of folders of programs, as symbols
    int environmentValues = 0;                         ///< that become their length

    /// An address only if the same one is found for certain elsewhere.
    struct PossibleAddress
    {
        Planned place;
        AliasKind kind;
        QByteArray canonical;
    };
    std::vector<PossibleAddress> addresses;

    /// "DOMAIN\\user", if one of the two is known.
    struct PossibleAccount
    {
        Planned domain;
        Planned user;
        QString domainName;
        QString userName;
        QByteArray fromUser; ///< the text that begins with the user
    };
    std::vector<PossibleAccount> accounts;
};

/// Adds the names to \a identities.
Collected collect(const Document &document, WordList &hide, WordList &keep, Identities &identities);

} // namespace Reports
} // namespace velkor
