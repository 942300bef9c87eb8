// Finds network addresses in texts, in any spelling.
#pragma once

#include <QtCore/QByteArray>
#include <string_view>
#include <vector>

namespace velkor {
namespace Reports {

enum class AddressFamily {
    Ip4,
    Ip6,
    Mac,
};

struct AddressPlace
{
    std::size_t begin = 0;
    std::size_t end = 0;
    AddressFamily family = AddressFamily::Ip4;
    /// The same for all spellings of an address: 4, 16 or 6 bytes. An IPv4 address mapped into IPv6 is the
    /// IPv4 address.
    QByteArray canonical;
    /// Nothing else than an address is written so. Not certain: "10.18.10.4" (a version?), twelve hexadecimal
    /// digits, numbers with hyphens or underscores between them.
    bool isCertain = false;
};

/// What can be an address in \a text, in ascending order and without overlaps: IPv4 ("192.0.2.57", with "-" or "_"
/// between the numbers, percent-coded points, reversed before ".in-addr.arpa"), IPv6 (full, compressed, any case, with an IPv4
/// address at the end, as "2001-db8--1.ipv6-literal.net"; brackets, prefix length, port and zone are not part of the place), MAC ("00:00:5E:00:53:1A", "00-00-5e-00-53-1a",
/// "0000.5e00.531a", "00005E00531A"). \a text can have any bytes. Takes time in proportion to the text.
std::vector<AddressPlace> findAddresses(std::string_view text);

/// Whether every machine has this address or it names no machine: unspecified, loopback, limited broadcast, multicast, netmasks ("255.255.255.0"), and the MAC address of zeros or ones.
bool isCommonAddress(const AddressPlace &address);

} // namespace Reports
} // namespace velkor
