#include "binary_texts.h"
#include "machine_texts.h"
#include "registry_facts.h"
#include "unique_names.h"

#include <QtCore/QtEndian>

using namespace machine;

namespace {

constexpr int longestShown = 2048; // bytes; a longer value has no line in the report

bool isText(quint32 type)
{
    return type == 1 || type == 2 || type == 6 || type == 7; // REG_SZ, REG_EXPAND_SZ, REG_LINK, REG_MULTI_SZ
}

/// A number, unless the report shows it as a name.
bool isNumber(const RegistryValue &value, const ShownFact &fact)
{
    return (value.type == 4 || value.type == 5) && value.data.size() == 4 && fact.row == neutralRow();
}

QString changed(const ShownFact &fact, const QString &text, TextChange &change)
{
    return fact.isAnsi ? change.ansiText(fact.row, text) : change.text(fact.row, text);
}

/// The texts between the nulls. What follows the last whole unit stays.
QByteArray changedText(const QByteArray &data, const ShownFact &fact, TextChange &change)
{
    QByteArray result;
    const auto append = [&result](const QString &text) {
        for (const QChar unit : text) {
            result += char(unit.cell());
            result += char(unit.row());
        }
    };
    QString text;
    int offset = 0;
    for (; offset + 1 < data.size(); offset += 2) {
        const QChar unit(qFromLittleEndian<quint16>(data.constData() + offset));
        if (!unit.isNull()) {
            text += unit;
            continue;
        }
        append(changed(fact, text, change));
        append(QString(unit));
        text.clear();
    }
    append(changed(fact, text, change));
    const bool isShort = data.size() > longestShown && result.size() < data.size() - data.size() % 2;
    if (isShort) // it must not get a line
        result.append(data.size() - data.size() % 2 - result.size(), '\0');
    return result + data.mid(offset);
}

QByteArray changedBinary(const QByteArray &data, const ShownFact &fact, TextChange &change)
{
    const auto wide = [&change](const QString &text) { return change.text(neutralRow(), text); };
    const auto narrow = [&](int offset, const QByteArray &text) { return change.bytes(offset == 0 ? fact.row : neutralRow(), text); };
    const QByteArray result = change.withoutAddresses(data);
    return withNarrowTexts(withUtf16Texts(withUtf16Texts(result, 0, wide), 1, wide), narrow);
}

struct KeyCopy
{
    std::shared_ptr<RegistryKey> from;
    std::shared_ptr<RegistryKey> to;
    KnownKey known;
};

void copyValues(const KeyCopy &copy, TextChange &change)
{
    UniqueNames names;
    for (const RegistryValue &value : copy.from->values()) {
        RegistryValue result = value;
        if (!copy.known.isFixedValue(value.name))
            result.name = changed(copy.known.factOfValueNames(), value.name, change);
        result.name = names.unique(result.name);
        const ShownFact fact = copy.known.factOfValue(value.name);
        if (isText(value.type))
            result.data = changedText(value.data, fact, change);
        else if (!isNumber(value, fact))
            result.data = changedBinary(value.data, fact, change);
        copy.to->setValue(result);
    }
}

} // namespace

Registry changedRegistry(const Registry &registry, TextChange &change)
{
    Registry result;
    std::vector<KeyCopy> copies;
    for (const RegistryRoot root : {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser, RegistryRoot::LocalMachine, RegistryRoot::Users})
        copies.push_back({registry.root(root), result.root(root), KnownKey(readsBelow(root))});
    while (!copies.empty()) { // no recursion: a file can have keys of any depth
        const KeyCopy copy = std::move(copies.back());
        copies.pop_back();
        copy.to->setDenied(copy.from->isDenied());
        copyValues(copy, change);
        UniqueNames names;
        for (std::size_t i = 0; i < copy.from->subKeyCount(); ++i) {
            const auto subKey = copy.from->subKeyAt(i);
            const QString &name = subKey->name();
            const QString newName = copy.known.isFixed(name) ? name : changed(copy.known.factOfSubKeys(), name, change);
            copies.push_back({subKey, copy.to->createSubKey(names.unique(newName)), copy.known.subKey(name)});
        }
    }
    return result;
}
