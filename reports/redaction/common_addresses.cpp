// Addresses that every machine has or that name none.

#include "addresses.h"

namespace velkor {
namespace Reports {

namespace {

/// Whether all bits that are 1 precede all that are 0.
bool isMask(const QByteArray &bytes)
{
    bool ended = false;
    for (const char byte : bytes) {
        for (int bit = 7; bit >= 0; --bit) {
            const bool isSet = (uchar(byte) >> bit & 1) != 0;
            if (isSet && ended)
                return false;
            ended |= !isSet;
        }
    }
    return true;
}

bool isCommonIp4(const QByteArray &bytes)
{
    const int first = uchar(bytes[0]);
    return first == 0 || first == 127 || (first >= 224 && first < 240) || isMask(bytes);
}

/// The multicast addresses of one machine ("ff02::1:ff00:531a") contain a part of its own address.
bool isMulticastOfMachine(const QByteArray &bytes)
{
    return bytes.startsWith("\xff\x02") && bytes.mid(2, 11) == QByteArray(9, '\0') + QByteArray("\x01\xff");
}

bool isCommonIp6(const QByteArray &bytes)
{
    const bool isLoopback = bytes == QByteArray(15, '\0') + '\x01';
    return isLoopback || (uchar(bytes[0]) == 0xff && !isMulticastOfMachine(bytes)) || isMask(bytes);
}

} // namespace

bool isCommonAddress(const AddressPlace &address)
{
    const QByteArray &bytes = address.canonical;
    switch (address.family) {
    case AddressFamily::Ip4:
        return isCommonIp4(bytes);
    case AddressFamily::Ip6:
        return isCommonIp6(bytes);
    case AddressFamily::Mac:
        break;
    }
    return bytes.count('\0') == bytes.size() || bytes.count('\xff') == bytes.size();
}

} // namespace Reports
} // namespace velkor
