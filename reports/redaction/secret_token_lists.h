// How the tokens of known services begin.
#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

namespace velkor {
namespace Reports {

enum class Alphabet {
    Capitals, ///< and digits
    Hex,
    Plain,  ///< letters and digits
    Url,    ///< and "-", "_"
    Points, ///< and "."
};

/// So many characters decide whether it is a token, so that no part of a text is read again and again.
constexpr std::size_t longestChecked = 64;
constexpr std::size_t leastToken = 16;

struct Token
{
    std::string_view prefix;
    std::size_t least; ///< characters after the prefix
    Alphabet alphabet;
};

/// Sorted by the first character.
constexpr Token tokens[] = {
    {"A3T", 17, Alphabet::Capitals},
    {"AAAAB3NzaC1", 32, Alphabet::Url}, // keys of SSH
    {"AAAAC3NzaC1", 32, Alphabet::Url},
    {"AAAAE2VjZHNh", 32, Alphabet::Url},
    {"AAAAGnNrL", 32, Alphabet::Url},
    {"AAAAInNrL", 32, Alphabet::Url},
    {"ABIA", 16, Alphabet::Capitals},
    {"ACCA", 16, Alphabet::Capitals},
    {"AGE-SECRET-KEY-", 40, Alphabet::Url},
    {"AKIA", 16, Alphabet::Capitals},
    {"ASIA", 16, Alphabet::Capitals},
    {"ATATT3", 40, Alphabet::Url},
    {"ATCTT3", 40, Alphabet::Url},
    {"AIza", 30, Alphabet::Url},
    {"CFPAT-", 30, Alphabet::Url},
    {"GOCSPX-", 20, Alphabet::Url},
    {"NRAK-", 20, Alphabet::Plain},
    {"PMAK-", 20, Alphabet::Url},
    {"SK", 32, Alphabet::Hex},
    {"atlasv1", 20, Alphabet::Url},
    {"dapi", 32, Alphabet::Hex},
    {"dckr_pat_", 20, Alphabet::Url},
    {"doo_v1_", 32, Alphabet::Hex},
    {"dop_v1_", 32, Alphabet::Hex},
    {"dor_v1_", 32, Alphabet::Hex},
    {"dp.pt.", 30, Alphabet::Plain},
    {"figd_", 20, Alphabet::Url},
    {"gho_", 20, Alphabet::Plain},
    {"ghp_", 20, Alphabet::Plain},
    {"ghr_", 20, Alphabet::Plain},
    {"ghs_", 20, Alphabet::Plain},
    {"ghu_", 20, Alphabet::Plain},
    {"github_pat_", 20, Alphabet::Url},
    {"glagent-", 20, Alphabet::Url},
    {"glc_", 20, Alphabet::Plain},
    {"glcbt-", 20, Alphabet::Url},
    {"gldt-", 20, Alphabet::Url},
    {"glft-", 20, Alphabet::Url},
    {"glimt-", 20, Alphabet::Url},
    {"glpat-", 16, Alphabet::Url},
    {"glptt-", 20, Alphabet::Url},
    {"glrt-", 16, Alphabet::Url},
    {"glsa_", 20, Alphabet::Url},
    {"glsoat-", 16, Alphabet::Url},
    {"gsk_", 20, Alphabet::Plain},
    {"hf_", 30, Alphabet::Plain},
    {"key-", 32, Alphabet::Hex},
    {"lin_api_", 30, Alphabet::Plain},
    {"npm_", 30, Alphabet::Plain},
    {"ntn_", 30, Alphabet::Plain},
    {"ops_eyJ", 30, Alphabet::Url},
    {"pat-na1-", 30, Alphabet::Url},
    {"phc_", 30, Alphabet::Plain},
    {"pscale_", 30, Alphabet::Points},
    {"pypi-A", 30, Alphabet::Url},
    {"rk_live_", 16, Alphabet::Plain},
    {"rk_test_", 16, Alphabet::Plain},
    {"rubygems_", 32, Alphabet::Hex},
    {"sbp_", 32, Alphabet::Hex},
    {"secret_", 40, Alphabet::Plain},
    {"shpat_", 32, Alphabet::Hex},
    {"shpca_", 32, Alphabet::Hex},
    {"shppa_", 32, Alphabet::Hex},
    {"shpss_", 32, Alphabet::Hex},
    {"sk-", 20, Alphabet::Url},
    {"sk_live_", 16, Alphabet::Plain},
    {"sk_test_", 16, Alphabet::Plain},
    {"sntrys_", 30, Alphabet::Url},
    {"sq0atp-", 20, Alphabet::Url},
    {"sq0csp-", 30, Alphabet::Url},
    {"tfp_", 30, Alphabet::Url},
    {"whsec_", 24, Alphabet::Plain},
    {"xai-", 30, Alphabet::Plain},
    {"xapp-", 20, Alphabet::Url},
    {"xoxa-", 16, Alphabet::Url},
    {"xoxb-", 16, Alphabet::Url},
    {"xoxc-", 16, Alphabet::Url},
    {"xoxd-", 16, Alphabet::Url},
    {"xoxe-", 16, Alphabet::Url},
    {"xoxo-", 16, Alphabet::Url},
    {"xoxp-", 16, Alphabet::Url},
    {"xoxr-", 16, Alphabet::Url},
    {"xoxs-", 16, Alphabet::Url},
};

/// Before a run, with the point between them.
constexpr std::string_view prefixesWithPoint[] = {"SG.", "hvs.", "hvb.", "ya29.", "xoxe.", "hvr."};
constexpr std::string_view webhooks[] = {
    "hooks.slack.com/",
    "discord.com/api/webhooks/",
    "discordapp.com/api/webhooks/",
    "outlook.office.com/webhook",
    "webhook.office.com/",
    "hooks.zapier.com/",
    "api.telegram.org/",
    "hooks.office.com/",
    "chat.googleapis.com/",
    "mattermost",
};

constexpr unsigned char noToken = 255;

/// For each character the first token that begins with it.
struct FirstTokens
{
    constexpr FirstTokens()
    {
        for (unsigned char &row : rows)
            row = noToken;
        for (std::size_t i = std::size(tokens); i-- > 0;)
            rows[std::size_t(tokens[i].prefix[0])] = static_cast<unsigned char>(i);
    }

    unsigned char rows[128] = {};
};

constexpr FirstTokens firstTokens;

} // namespace Reports
} // namespace velkor
