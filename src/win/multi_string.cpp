#include "win/multi_string.h"

#include "win/registry_key.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

QString toText(const char *string, unsigned int length)
{
    return QString::fromUtf8(string, int(length));
}

QString toText(const wchar_t *string, unsigned int length)
{
    return wideUnits(string, length);
}

template <typename Char>
unsigned int lengthOf(const Char *string)
{
    const Char *end = string;
    while (*end)
        ++end;
    return unsigned(end - string);
}

template <typename Char>
QStringList splitted(const Char *buffer, unsigned int count)
{
    QStringList list;
    unsigned int position = 0;
    while (position < count) {
        const unsigned int length = lengthOf(buffer + position);
        if (length == 0)
            break;
        list += toText(buffer + position, length);
        position += length + 1;
    }
    return list;
}

} // namespace

QStringList registryMultiStringToList(const char *buffer, unsigned int byteCount)
{
    return splitted(buffer, byteCount);
}

QStringList registryWideMultiStringToList(const wchar_t *buffer, unsigned int count)
{
    return splitted(buffer, count);
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
