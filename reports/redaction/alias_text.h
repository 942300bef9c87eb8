// The form of aliases.
#pragma once

#include "vkReports.h"

#include <string_view>
#include <unordered_set>

namespace velkor {
namespace Reports {

/// What a value of an environment variable becomes: "length-12".
QByteArray lengthAlias(int characters);

/// The length of the alias at the beginning of \a text, such as "user-1" and "length-12"; 0 if there is none.
std::size_t aliasLength(std::string_view text);

/// Whether the bytes from \a begin to \a end of \a text lie in an alias.
bool isInAlias(std::string_view text, std::size_t begin, std::size_t end);

/// Whether an alias stands in \a text.
bool hasAlias(std::string_view text);

/// Whether all words of \a text are aliases.
bool hasOnlyAliases(std::string_view text);

/// Makes aliases of things.
class AliasMaker
{
public:
    explicit AliasMaker(const QByteArray &key);

    /// Aliases in \a text are not made again, if aliases are numbered.
    void reserve(std::string_view text);
    /// \a canonical is the same for all spellings of a thing.
    QString make(AliasKind kind, const QByteArray &canonical);

private:
    bool take(const QByteArray &alias);

    QByteArray hmacKey;
    std::unordered_set<std::string> taken;
    int numbers[int(AliasKind::Word) + 1] = {};
};

} // namespace Reports
} // namespace velkor
