#include "secret_address.h"

#include "address_forms.h"
#include "secret_values.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t longestLogin = 512;
constexpr auto none = std::string_view::npos;

/// The text from \a begin on up to a blank or quote.
std::string_view addressAt(std::string_view text, std::size_t begin)
{
    const std::string_view address = text.substr(std::min(begin, text.size()), longestLogin);
    const auto end = std::find_if(address.begin(), address.end(), [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || c == '"' || c == '\'' || c == '`' || c == '<' || c == '>';
    });
    return address.substr(0, std::size_t(end - address.begin()));
}

/// Where "@" ends the login, or none. A password can have a slash; a port cannot.
std::size_t endOfLogin(std::string_view address)
{
    const std::size_t end = std::min(address.find_first_of("/?#"), address.size());
    const std::size_t at = address.substr(0, end).rfind('@');
    if (at != none)
        return at;
    const std::size_t colon = address.substr(0, end).find(':');
    if (colon == none || std::all_of(address.begin() + std::ptrdiff_t(colon) + 1, address.begin() + std::ptrdiff_t(end), isDecimal))
        return none;
    return address.find('@', end);
}

bool isPassword(std::string_view text, SecretPlace place)
{
    return place.end > place.begin && !isNoSecret(text.substr(place.begin, place.end - place.begin));
}

} // namespace

bool readPasswordInAddress(std::string_view text, std::size_t begin, SecretPlace &place)
{
    const std::string_view address = addressAt(text, begin);
    const std::size_t end = endOfLogin(address);
    if (end == none)
        return false;
    const std::size_t colon = address.substr(0, end).find(':');
    place = {begin + (colon == none ? 0 : colon + 1), begin + end};
    return colon == none ? looksGenerated(address.substr(0, end)) : isPassword(text, place);
}

bool readPasswordInCodedAddress(std::string_view text, std::size_t begin, SecretPlace &place)
{
    const std::string_view address = addressAt(text, begin);
    const std::size_t end = address.find("%40");
    const std::size_t upper = address.find("%3A");
    const std::size_t colon = upper == none ? address.find("%3a") : upper;
    if (end == none || colon == none || colon > end || address.substr(0, colon).find('%') != none)
        return false;
    place = {begin + colon + 3, begin + end};
    return isPassword(text, place);
}

bool readOracleLogin(std::string_view text, std::size_t colon, SecretPlace &place)
{
    const char last = colon > 0 ? text[colon - 1] : '\0';
    if (last != 'n' && last != 'i' && last != '8')
        return false;
    const bool isOracle = (colon >= 5 && continuesWith(text, colon - 5, ":thin")) || (colon >= 4 && continuesWith(text, colon - 4, ":oci"))
        || (colon >= 5 && continuesWith(text, colon - 5, ":oci8"));
    if (!isOracle)
        return false;
    const std::string_view address = addressAt(text, colon + 1);
    const std::size_t end = address.find('@');
    const std::size_t slash = address.find('/');
    if (end == none || slash == none || slash > end)
        return false;
    place = {colon + 1 + slash + 1, colon + 1 + end};
    return isPassword(text, place);
}

} // namespace Reports
} // namespace velkor
