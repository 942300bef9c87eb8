#include "described_calls.h"

#include "ansi_code_page.h"

#include <QtCore/QtEndian>

namespace expected {
namespace {

constexpr quint32 registryText = 1;
constexpr quint32 registryExpandText = 2;
constexpr quint32 registryMultiText = 7;

bool isText(quint32 type)
{
    return type == registryText || type == registryExpandText || type == registryMultiText;
}

QString units(const QByteArray &bytes)
{
    QString text;
    for (int i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(qFromLittleEndian<quint16>(bytes.constData() + i));
    return text;
}

QByteArray bytesOf(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
}

void overwrite(QByteArray &target, const QByteArray &bytes)
{
    target.replace(0, bytes.size(), bytes);
}

/// Whether the key at \a path, or one above it, is denied.
bool isBarred(const std::shared_ptr<machine::RegistryKey> &root, const QString &path)
{
    for (QString above = path; !above.isEmpty(); above = above.section(QLatin1Char('\\'), 0, -2)) {
        const auto key = machine::findKey(root, above);
        if (key && key->isDenied())
            return true;
    }
    return root->isDenied();
}

/// The part that a query and an enumeration of values have in common.
bool deliver(Form form, const simulated::AnsiCodePage &codePage, const machine::RegistryValue &value, Buffer &buffer,
             quint32 room)
{
    QByteArray data = value.data;
    if (form == Form::Narrow && isText(value.type))
        data = codePage.fromUtf16(units(data));
    buffer.type = value.type;
    buffer.size = quint32(data.size());
    if (buffer.size > room)
        return false;
    const int unit = form == Form::Wide ? 2 : 1;
    const QByteArray terminator(unit, 0);
    if (isText(value.type) && !data.isEmpty() && !data.endsWith(terminator) && int(room) - data.size() >= unit)
        data += terminator;
    overwrite(buffer.bytes, data);
    return true;
}

} // namespace

QString Buffer::wide() const
{
    int end = 0;
    while (end + 1 < bytes.size() && (bytes.at(end) || bytes.at(end + 1)))
        end += 2;
    return units(bytes.left(end));
}

QString Buffer::wide(quint32 count) const
{
    return units(bytes.left(2 * int(count)));
}

quint64 Buffer::number(int width) const
{
    quint64 result = 0;
    for (int i = width - 1; i >= 0; --i)
        result = result << 8 | uchar(bytes.at(i));
    return result;
}

std::optional<quint32> DescribedCalls::begin(const char *name, const QString &key, const QString &value)
{
    const std::size_t number = calls.size();
    if (beforeCall)
        beforeCall(number);
    calls.push_back({name, value.isEmpty() ? key : key + QLatin1Char(' ') + value});
    const auto failure = failures.find(number);
    return failure == failures.end() ? std::nullopt : std::optional<quint32>(failure->second);
}

Key DescribedCalls::open(machine::RegistryRoot root, const QString &path)
{
    const QString asked = simulated::AnsiCodePage(machine.system.ansiCodePage).toUtf16(path.toLatin1());
    Key key;
    key.path = machine.registry.root(root)->name() + QLatin1Char('\\') + asked;
    if (!fails("RegOpenKeyExA", key.path) && !isBarred(machine.registry.root(root), asked))
        key.key = machine::findKey(machine.registry.root(root), asked);
    if (key)
        openHandles += key.path;
    return key;
}

void DescribedCalls::close(const Key &key)
{
    begin("RegCloseKey", key.path); // a failure gives the key back all the same
    openHandles.removeOne(key.path);
}

bool DescribedCalls::query(Form form, const Key &key, const QString &name, Buffer &buffer, quint32 room)
{
    const bool narrow = form == Form::Narrow;
    const simulated::AnsiCodePage codePage(machine.system.ansiCodePage);
    const QString asked = narrow ? codePage.toUtf16(name.toLatin1()) : name;
    buffer.size = room;
    const bool failed = fails(narrow ? "RegQueryValueExA" : "RegQueryValueExW", key.path, asked);
    if (failed && !failuresWriteResults)
        return false;
    const machine::RegistryValue *value = key.key->findValue(asked);
    return value && deliver(form, codePage, *value, buffer, room) && !failed;
}

bool DescribedCalls::enumerateKey(const char *call, Form form, const Key &key, int index, Buffer &name, int room)
{
    const bool failed = fails(call, key.path, QString::number(index));
    if (failed && !failuresWriteResults)
        return false;
    const auto subKey = key.key->subKeyAt(std::size_t(index));
    if (!subKey)
        return false;
    const bool narrow = form == Form::Narrow;
    const QByteArray bytes = narrow ? simulated::AnsiCodePage(machine.system.ansiCodePage).fromUtf16(subKey->name())
                                    : bytesOf(subKey->name());
    const int unit = narrow ? 1 : 2;
    if (bytes.size() / unit >= room)
        return false;
    overwrite(name.bytes, bytes + QByteArray(unit, 0));
    return !failed;
}

bool DescribedCalls::enumerateValue(const Key &key, int index, Buffer &name, Buffer &data)
{
    constexpr int room = 2048;
    const bool failed = fails("RegEnumValueA", key.path, QString::number(index));
    if ((failed && !failuresWriteResults) || std::size_t(index) >= key.key->values().size())
        return false;
    const machine::RegistryValue &value = key.key->values().at(std::size_t(index));
    const simulated::AnsiCodePage codePage(machine.system.ansiCodePage);
    const QByteArray bytes = codePage.fromUtf16(value.name);
    if (bytes.size() >= room || !deliver(Form::Narrow, codePage, value, data, room))
        return false;
    overwrite(name.bytes, bytes + '\0');
    return !failed;
}

quint32 DescribedCalls::directory(const char *call, const machine::Answer<QString> &path, QString &buffer)
{
    constexpr int room = 1024;
    const bool failed = fails(call);
    if ((failed && !failuresWriteResults) || !path)
        return 0;
    if (path->size() >= room)
        return failed ? 0 : quint32(path->size()) + 1;
    buffer = *path;
    return failed ? 0 : quint32(path->size());
}

} // namespace expected
