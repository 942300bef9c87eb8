#include "seeds.h"

#include "byte_stream.h"
#include "format_limits.h"
#include "hostile_machine.h"
#include "known_names.h"

#include <QtCore/QtEndian>
#include <algorithm>

namespace {

using machine::RegistryKey;
using machine::RegistryValue;

constexpr int longestPiece = 2048;

/// The index of \a key in \a keys, or -1.
template <typename Key, typename Keys>
int indexOf(const Key &key, const Keys &keys)
{
    const auto found = std::find(std::begin(keys), std::end(keys), key);
    return found == std::end(keys) ? -1 : int(found - std::begin(keys));
}

class StepWriter : public ByteWriter
{
public:
    void step(Step step) { byte(quint8(step)); }
    void answer(int number)
    {
        step(Step::Answer);
        byte(quint8(number));
    }
    void form(TextForm form) { byte(quint8(form)); }
    void form(DataForm form) { byte(quint8(form)); }

    void text(const QString &text)
    {
        const int known = knownTexts().indexOf(text);
        const bool isLatin1 = std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 256; });
        if (known >= 0) {
            form(TextForm::Known);
            byte(quint8(known));
        } else if (isLatin1 && text.size() < 256) {
            form(TextForm::Latin1);
            byte(quint8(text.size()));
            append(text.toLatin1());
        } else if (isLatin1) {
            form(TextForm::LongLatin1);
            word(quint16(text.size()));
            append(text.toLatin1());
        } else if (text.size() < 256) {
            form(TextForm::Utf16);
            byte(quint8(text.size()));
            append(utf16Bytes(text));
        } else {
            form(TextForm::Pair);
            this->text(text.left(text.size() / 2));
            this->text(text.mid(text.size() / 2));
        }
    }

    void value(const RegistryValue &value)
    {
        const int known = knownValues().indexOf(value.name);
        step(known >= 0 ? Step::SetKnownValue : Step::SetValue);
        if (known >= 0)
            byte(quint8(known));
        else
            text(value.name);
        if (value.type < 254) {
            byte(quint8(value.type + 1));
            data(value);
        } else {
            byte(255);
            data(value);
            number32(value.type);
        }
    }

    // Writes an answer or a part of it, by its type. Steps in hostile_machine.cpp is the inverse.

    template <typename T>
    void write(const T &field)
    {
        if constexpr (std::is_integral_v<T>)
            number(quint64(field), sizeof field);
        else
            T::fields([&](const char *, auto member) { write(field.*member); });
    }

    void write(const QString &field) { text(field); }
    void write(const machine::CodePage &codePage)
    {
        byte(quint8(indexOf(codePage.number, codePages)));
    }

    template <typename T>
    void write(const machine::Answer<T> &answer)
    {
        byte(answer ? 1 : 0);
        if (answer)
            write(*answer);
        else
            byte(quint8(answer.error < 250 ? answer.error : 0));
    }

    template <typename T>
    void write(const std::optional<T> &field)
    {
        byte(field ? 1 : 0);
        if (field)
            write(*field);
    }

    template <typename T>
    void write(const std::vector<T> &list)
    {
        byte(quint8(list.size()));
        for (const T &element : list)
            write(element);
    }

    void write(const std::vector<std::optional<QString>> &names)
    {
        byte(quint8(names.size()));
        for (const auto &name : names)
            write(name);
        byte(0); // the last name is not repeated
    }

private:
    void data(const RegistryValue &value)
    {
        const QByteArray &bytes = value.data;
        QString text = utf16Text(bytes);
        const bool isText = bytes.size() % 2 == 0 && (value.type == 1 || value.type == 2)
            && text.endsWith(QChar(QChar::Null));
        if (value.type == 4 && bytes.size() == 4) {
            form(DataForm::Number);
            number32(qFromLittleEndian<quint32>(bytes.constData()));
        } else if (isText) {
            form(DataForm::Text);
            text.chop(1);
            this->text(text);
        } else if (bytes.size() % 2 == 0 && value.type == 7 && isList(text)) {
            list(text);
        } else {
            form(bytes.size() < 256 ? DataForm::Bytes : DataForm::LongBytes);
            if (bytes.size() < 256)
                byte(quint8(bytes.size()));
            else
                word(quint16(bytes.size()));
            append(bytes);
        }
    }

    /// Whether \a text is a list: each string has a terminator, and so has the list.
    static bool isList(const QString &text)
    {
        const int count = text.count(QChar(QChar::Null));
        return text.endsWith(QString(2, QChar(QChar::Null))) && count > 1 && count <= 32;
    }

    void list(const QString &text)
    {
        QStringList strings = text.split(QChar(QChar::Null));
        strings.erase(strings.end() - 2, strings.end()); // empty: follow the last two terminators
        form(DataForm::List);
        byte(quint8(strings.size()));
        for (const QString &string : qAsConst(strings))
            this->text(string);
    }
};

// The registry.

QByteArray subKeySteps(const RegistryKey &key)
{
    StepWriter writer;
    writer.step(Step::EnterSubKey);
    writer.text(key.name());
    if (key.isDenied())
        writer.step(Step::DenyKey);
    for (const RegistryValue &value : key.values())
        writer.value(value);
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        writer.append(subKeySteps(*key.subKeyAt(i)));
    writer.step(Step::Leave);
    return writer.bytes();
}

bool isBelow(const KnownKey &key, const KnownKey &other)
{
    return key.root == other.root && key.path.startsWith(other.path + QLatin1Char('\\'), Qt::CaseInsensitive);
}

/// The known keys that are not below another known key.
std::vector<int> topKeys()
{
    std::vector<int> numbers;
    const std::vector<KnownKey> &keys = knownKeys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const bool isTop = std::none_of(keys.begin(), keys.end(),
                                        [&](const KnownKey &other) { return isBelow(keys[i], other); });
        if (isTop)
            numbers.push_back(int(i));
    }
    return numbers;
}

void addKey(const RegistryKey &key, int number, const QString &name, QMap<QString, QByteArray> &seeds)
{
    StepWriter start;
    start.step(Step::EnterKey);
    start.byte(quint8(number));
    QByteArray steps = start.bytes();
    StepWriter itself;
    if (key.isDenied())
        itself.step(Step::DenyKey);
    for (const RegistryValue &value : key.values())
        itself.value(value);
    steps += itself.bytes();
    int piece = 0;
    const auto end = [&] {
        seeds[QStringLiteral("%1-%2").arg(name).arg(piece++, 2, 10, QLatin1Char('0'))] = steps;
        steps = start.bytes();
    };
    for (std::size_t i = 0; i < key.subKeyCount(); ++i) {
        const QByteArray subKey = subKeySteps(*key.subKeyAt(i));
        if (steps.size() + subKey.size() > longestPiece && steps.size() > start.bytes().size())
            end();
        steps += subKey;
    }
    end();
}

QString seedName(const QString &path)
{
    QString name = path.toLower();
    for (QChar &unit : name) {
        if (!unit.isLetterOrNumber())
            unit = QLatin1Char('_');
    }
    return name;
}

void addRegistry(const machine::Registry &registry, QMap<QString, QByteArray> &seeds)
{
    for (const int number : topKeys()) {
        const KnownKey &known = knownKeys()[std::size_t(number)];
        if (const auto key = machine::findKey(registry.root(known.root), known.path))
            addKey(*key, number, QStringLiteral("key%1-").arg(number, 2, 10, QLatin1Char('0')) + seedName(known.path), seeds);
    }
}

// The other answers: a step for each, and for each entry of a map.

template <typename T>
void addAnswer(StepWriter &writer, int number, const T &field)
{
    writer.answer(number);
    writer.write(field);
}

/// Adds no step for a \a key below 0, which the report does not query.
template <typename T>
void addEntry(StepWriter &writer, int number, int key, const T &entry)
{
    if (key < 0)
        return;
    writer.answer(number);
    writer.byte(quint8(key));
    writer.write(entry);
}

void addAnswer(StepWriter &writer, int number, const QMap<int, qint32> &numbers)
{
    for (auto it = numbers.begin(); it != numbers.end(); ++it)
        addEntry(writer, number, it.key(), *it);
}

void addAnswer(StepWriter &writer, int number, const machine::NumberedAnswers &answers)
{
    for (auto it = answers.begin(); it != answers.end(); ++it)
        addEntry(writer, number, indexOf(it.key(), numberedKeys()), *it);
}

void addAnswer(StepWriter &writer, int number, const QMap<QString, machine::DriveRecord> &drives)
{
    for (auto it = drives.begin(); it != drives.end(); ++it)
        addEntry(writer, number, it.key().at(0).unicode() - 'A', *it);
}

void addAnswer(StepWriter &writer, int number, const QMap<QString, QString> &environment)
{
    for (auto it = environment.begin(); it != environment.end(); ++it)
        addEntry(writer, number, indexOf(it.key(), machine::numberedVariables), *it);
}

void addAnswer(StepWriter &writer, int number, const QMap<QString, machine::LibraryRecord> &libraries)
{
    for (auto it = libraries.begin(); it != libraries.end(); ++it)
        addEntry(writer, number, indexOf(it.key(), libraryNames), *it);
}

void addSystem(const machine::SystemAnswers &system, QMap<QString, QByteArray> &seeds)
{
    int number = firstFieldAnswer;
    machine::SystemAnswers::fields([&](const char *name, auto member) {
        StepWriter writer;
        addAnswer(writer, number++, system.*member);
        if (!writer.bytes().isEmpty())
            seeds[QStringLiteral("system-") + QString::fromLatin1(name).toLower()] = writer.bytes();
    });
    StepWriter expansions;
    for (auto it = system.expansionErrors.begin(); it != system.expansionErrors.end(); ++it) {
        expansions.answer(expansionErrorAnswer);
        expansions.byte(quint8(indexOf(it.key(), machine::numberedVariables)));
        expansions.byte(quint8(std::min(*it, 249u)));
    }
    if (!expansions.bytes().isEmpty())
        seeds[QStringLiteral("system-expansionerrors")] = expansions.bytes();
    if (const auto path = machine::winSxSPath(system); path && system.folders.contains(*path)) {
        const QStringList names = system.folders.value(*path).directories;
        StepWriter folder;
        folder.answer(winSxSAnswer);
        folder.byte(quint8(names.size()));
        for (const QString &name : names)
            folder.text(name);
        seeds[QStringLiteral("system-getsystemwindowsdirectory")] += folder.bytes(); // the parent of WinSxS
    }
}

} // namespace

QMap<QString, QByteArray> seedsOf(const machine::Machine &machine)
{
    QMap<QString, QByteArray> seeds;
    addRegistry(machine.registry, seeds);
    addSystem(machine.system, seeds);
    return seeds;
}
