#include "hostile_machine.h"

#include "byte_stream.h"
#include "format_limits.h"
#include "known_names.h"

#include <QtCore/QtEndian>
#include <algorithm>

namespace {

using machine::Machine;
using machine::RegistryKey;
using machine::RegistryValue;
using KeyPointer = std::shared_ptr<RegistryKey>;

// Limits that keep a run fast. A name of a key has at most 255 units on Windows too.
constexpr int longestKeyName = 255;
constexpr int longestValueName = 4096;
constexpr int longestText = 40000;
constexpr int longestFieldText = 300; // the fields of records have 16 to 261 characters
constexpr int largestData = 8192;
constexpr int deepestKey = 8;
constexpr std::size_t mostFaults = 8;
constexpr std::size_t mostChanges = 8;

// Sizes of the buffers of the report in units and in bytes, and their neighbours.
constexpr int edges[] = {0, 1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 39, 40, 41,
                         126, 127, 128, 129, 131, 132, 133, 254, 255, 256, 257, 258, 259, 260, 261,
                         511, 512, 513, 1022, 1023, 1024, 1025, 1026, 1027, 1028, 2046, 2047, 2048, 2049, 2050,
                         4095, 4096, 4097, 4098, 4100, 32754, 32755, 32756, 32757, 32758, 32759, 32760, 32766,
                         32767, 32768};
constexpr int edgeCount = int(sizeof edges / sizeof *edges);

class Steps
{
public:
    Steps(const QByteArray &bytes, Machine &machine, HostileMachine *hostile)
        : m_stream(bytes), m_machine(machine), m_hostile(hostile)
    {
        enter(m_machine.registry.root(machine::RegistryRoot::LocalMachine));
    }

    void takeAll()
    {
        while (!m_stream.atEnd())
            take(step());
    }

private:
    Step step()
    {
        const quint8 number = m_stream.byte();
        return Step(number) == Step::DenyKey ? Step::DenyKey : Step(number % quint8(Step::Count));
    }

    void enter(const KeyPointer &key) { m_path = {key}; }
    RegistryKey &key() { return *m_path.back(); }

    void take(Step step)
    {
        switch (step) {
        case Step::EnterKey: {
            const KnownKey &known = knownKeys()[std::size_t(m_stream.index(int(knownKeys().size())))];
            enter(machine::createKey(m_machine.registry.root(known.root), known.path));
            m_known = &known;
            break;
        }
        case Step::EnterSubKey:
            enterSubKey(keyName());
            break;
        case Step::Leave:
            if (m_path.size() > 1)
                m_path.pop_back();
            break;
        case Step::SetKnownValue:
            setValue(knownValue());
            break;
        case Step::SetValue:
            setValue(text().left(longestValueName));
            break;
        case Step::AddSubKeys:
            addSubKeys();
            break;
        case Step::RemoveSubKey:
            key().removeSubKey(keyName());
            break;
        case Step::RemoveValue:
            key().removeValue(knownValue());
            break;
        case Step::Answer:
            answer();
            break;
        case Step::Fail:
            fail();
            break;
        case Step::Change:
            change();
            break;
        case Step::RunTwice:
            if (m_hostile)
                m_hostile->runTwice = true;
            break;
        case Step::SetItsValue: {
            const std::vector<int> &numbers = m_known->values;
            setValue(knownValues().at(numbers[std::size_t(m_stream.index(int(numbers.size())))]));
            break;
        }
        case Step::DenyKey:
            key().setDenied(true);
            break;
        case Step::Count:
            break;
        }
    }

    QString knownValue() { return knownValues().at(m_stream.index(knownValues().size())); }

    /// A valid name of a key: not empty, without backslashes.
    QString keyName()
    {
        QString name = text().left(longestKeyName);
        return name.isEmpty() ? QStringLiteral("A") : name.replace(QLatin1Char('\\'), QLatin1Char('_'));
    }

    void enterSubKey(const QString &name)
    {
        if (m_path.size() < deepestKey && m_keysLeft-- > 0)
            m_path.push_back(key().createSubKey(name));
    }

    void setValue(const QString &name)
    {
        const RegistryValue newValue = value(name);
        if (m_valuesLeft-- > 0)
            key().setValue(newValue);
    }

    /// A count. Mostly small, because large ones are slow.
    int bulk()
    {
        const int count = m_stream.byte();
        if (count < 224)
            return count % 48;
        return count < 240 ? 1016 + count - 224 : (count - 240) << 8 | m_stream.byte(); // close to 1024, or any
    }

    void addSubKeys()
    {
        const int wanted = bulk();
        const int form = m_stream.index(4);
        const RegistryValue common = value(knownValue());
        const int count = std::min(wanted, m_bulkLeft);
        m_bulkLeft -= count;
        for (int i = 0; i < count; ++i) {
            QString name = form == 3 ? QString::number(i) : QStringLiteral("%1").arg(i, 4, 10, QLatin1Char('0'));
            if (form == 1)
                name = name.leftJustified(longestKeyName, QLatin1Char('x'));
            if (form == 2)
                name.prepend(QChar(0x8868));
            key().createSubKey(name)->setValue(common);
        }
    }

    QString text(int depth = 0)
    {
        switch (TextForm(m_stream.index(int(TextForm::Count)))) {
        case TextForm::Latin1:
            return latin1(m_stream.bytes(m_stream.byte()));
        case TextForm::Utf16:
            return utf16Text(m_stream.bytes(2 * m_stream.byte()));
        case TextForm::Known:
            return knownTexts().at(m_stream.index(knownTexts().size()));
        case TextForm::Repeated: {
            const int length = m_stream.word() % longestText;
            return QString(length, QChar(m_stream.word()));
        }
        case TextForm::Utf8: {
            const QByteArray bytes = m_stream.bytes(m_stream.byte());
            return QString::fromUtf8(bytes.constData(), bytes.size());
        }
        case TextForm::Pair: {
            if (depth > 3)
                return QString();
            const QString first = text(depth + 1);
            return first + text(depth + 1);
        }
        case TextForm::LongLatin1:
            return latin1(m_stream.bytes(m_stream.word()));
        case TextForm::Filled: {
            const int length = m_stream.word() % longestText;
            const QString part = depth > 3 ? QString() : text(depth + 1);
            return filled(part, length);
        }
        case TextForm::Edge: {
            const int length = edges[m_stream.index(edgeCount)];
            return QString(length, QChar(m_stream.byte()));
        }
        case TextForm::Count:
            break;
        }
        return QString();
    }

    // With the size: QString::fromLatin1(QByteArray) of Qt 5 stops at a null.
    static QString latin1(const QByteArray &bytes) { return QString::fromLatin1(bytes.constData(), bytes.size()); }

    /// \a part, which may be empty, repeated up to \a size.
    template <typename Text>
    static Text filled(const Text &part, int size)
    {
        return part.isEmpty() ? part : part.repeated(size / part.size() + 1).left(size);
    }

    RegistryValue value(const QString &name)
    {
        RegistryValue result;
        result.name = name;
        const quint8 type = m_stream.byte(); // 0: the usual type of the form
        const auto form = DataForm(m_stream.index(int(DataForm::Count)));
        result.data = data(form).left(largestData);
        result.type = type > 0 && type < 255 ? type - 1u : usualType(form);
        if (type == 255)
            result.type = m_stream.number32();
        return result;
    }

    static quint32 usualType(DataForm form)
    {
        switch (form) {
        case DataForm::List:
        case DataForm::BrokenList:
            return 7;
        case DataForm::Number:
            return 4;
        case DataForm::Bytes:
        case DataForm::LongBytes:
        case DataForm::Repeated:
        case DataForm::Edge:
            return 3;
        default:
            return 1;
        }
    }

    QByteArray data(DataForm form)
    {
        switch (form) {
        case DataForm::Text:
            return utf16Bytes(text()) + QByteArray(2, '\0');
        case DataForm::Unterminated:
            return utf16Bytes(text());
        case DataForm::List:
            return list() + QByteArray(2, '\0');
        case DataForm::BrokenList:
            return list();
        case DataForm::Bytes:
            return m_stream.bytes(m_stream.byte());
        case DataForm::LongBytes:
            return m_stream.bytes(m_stream.word());
        case DataForm::Number: {
            QByteArray bytes(4, '\0');
            qToLittleEndian(m_stream.number32(), bytes.data());
            return bytes;
        }
        case DataForm::Repeated: {
            const int size = m_stream.word() % largestData;
            return QByteArray(size, char(m_stream.byte()));
        }
        case DataForm::Odd: {
            QByteArray bytes = utf16Bytes(text());
            bytes.chop(1);
            return bytes;
        }
        case DataForm::Filled: {
            const int size = m_stream.word() % largestData;
            return filled(utf16Bytes(text()), size);
        }
        case DataForm::Edge: {
            const int size = edges[m_stream.index(edgeCount)];
            return QByteArray(size, char(m_stream.byte()));
        }
        case DataForm::EdgeText: {
            const int size = edges[m_stream.index(edgeCount)];
            return filled(utf16Bytes(text()), size);
        }
        case DataForm::Count:
            break;
        }
        return QByteArray();
    }

    QByteArray list()
    {
        QByteArray bytes;
        for (int count = m_stream.index(32); count > 0; --count)
            bytes += utf16Bytes(text()) + QByteArray(2, '\0');
        return bytes;
    }

    quint32 error()
    {
        static const quint32 large[] = {259, 997, 1223, 0x80004005, 0x80000000, 0xffffffff};
        const quint8 number = m_stream.byte();
        return number < 250 ? number : large[number - 250];
    }

    std::size_t callNumber()
    {
        const std::size_t number = m_stream.byte();
        return number < 192 ? number : (number - 192) << 8 | m_stream.byte();
    }

    void answer()
    {
        machine::SystemAnswers &system = m_machine.system;
        int fieldCount = 0;
        machine::SystemAnswers::fields([&](const char *, auto) { ++fieldCount; });
        const int wanted = m_stream.index(firstFieldAnswer + fieldCount);
        if (wanted == expansionErrorAnswer) {
            const int index = m_stream.index(5);
            system.expansionErrors[QString::fromLatin1(machine::numberedVariables[index])] = error();
        } else if (wanted == winSxSAnswer) {
            QStringList names;
            for (int count = m_stream.byte(); count > 0 && !m_stream.atEnd(); --count)
                names += text().left(longestKeyName);
            if (const auto path = machine::winSxSPath(system))
                system.folders[*path].directories = names;
        }
        int number = firstFieldAnswer;
        machine::SystemAnswers::fields([&](const char *, auto member) {
            if (number++ == wanted)
                read(system.*member);
        });
    }

    // Reads an answer or a part of it, by its type. StepWriter in seeds.cpp is the inverse.

    template <typename T>
    void read(T &field)
    {
        if constexpr (std::is_integral_v<T>)
            field = T(m_stream.number(sizeof field));
        else
            T::fields([&](const char *, auto member) { readField(field.*member); });
    }

    template <typename T>
    void readField(T &field)
    {
        read(field);
    }
    void readField(QString &field) { field = text().left(longestFieldText); }

    void read(QString &field) { field = text(); }
    void read(machine::CodePage &codePage) { codePage = codePages[m_stream.index(5)]; }

    /// Every fourth value of the first byte is a failure.
    template <typename T>
    void read(machine::Answer<T> &answer)
    {
        answer = {};
        if (m_stream.byte() % 4 == 0)
            answer.error = error();
        else
            read(answer.value.emplace());
    }

    template <typename T>
    void read(std::optional<T> &field)
    {
        field.reset();
        if (m_stream.byte() % 4 != 0)
            read(field.emplace());
    }

    template <typename T>
    void read(std::vector<T> &list)
    {
        list.clear();
        for (int count = m_stream.index(64); count > 0 && !m_stream.atEnd(); --count)
            read(list.emplace_back());
    }

    /// Some names. The last is repeated to make a long list.
    void read(std::vector<std::optional<QString>> &names)
    {
        names.clear();
        for (int count = m_stream.byte(); count > 0 && !m_stream.atEnd(); --count)
            read(names.emplace_back());
        const auto more = std::size_t(bulk());
        if (!names.empty()) {
            const std::optional<QString> last = names.back();
            names.insert(names.end(), more, last);
        }
    }

    // Each call reads one entry of a map.

    void read(QMap<int, qint32> &numbers) { read(numbers[m_stream.byte()]); }

    void read(machine::NumberedAnswers &answers)
    {
        const int keyCount = int(numberedKeys().size());
        const int index = m_stream.index(keyCount + 1);
        if (index < keyCount)
            read(answers[numberedKeys()[std::size_t(index)]]);
        else
            answers.error = error();
    }

    void read(QMap<QString, QString> &environment)
    {
        read(environment[QString::fromLatin1(machine::numberedVariables[m_stream.index(5)])]);
    }

    void read(QMap<QString, machine::DriveRecord> &drives)
    {
        read(drives[machine::upperCased(QChar('A' + m_stream.index(32)) + QStringLiteral(":\\"))]);
    }

    void read(QMap<QString, machine::LibraryRecord> &libraries)
    {
        read(libraries[QString::fromLatin1(libraryNames[m_stream.index(2)])]);
    }

    void fail()
    {
        CallFault fault;
        const int form = m_stream.index(3);
        if (form > 0)
            fault.call = knownCalls()[std::size_t(m_stream.index(int(knownCalls().size())))];
        fault.every = form == 1;
        if (!fault.every)
            fault.number = callNumber();
        fault.error = std::max(error(), 1u); // not ERROR_SUCCESS, which would mean success without results
        if (m_hostile && m_hostile->faults.size() < mostFaults)
            m_hostile->faults.push_back(fault);
    }

    void change()
    {
        Change change;
        change.beforeCall = callNumber();
        change.steps = m_stream.bytes(m_stream.byte());
        if (m_hostile && m_hostile->changes.size() < mostChanges)
            m_hostile->changes.push_back(change);
    }

    ByteStream m_stream;
    Machine &m_machine;
    HostileMachine *m_hostile; // null for the steps of a change
    std::vector<KeyPointer> m_path;
    const KnownKey *m_known = &knownKeys().front();
    int m_keysLeft = 512;
    int m_valuesLeft = 2048;
    int m_bulkLeft = 3000;
};

} // namespace

const std::vector<int> &numberedKeys()
{
    static const std::vector<int> keys = [] {
        std::vector<int> result {0, 1, 2, 3, 4, 5, 6, 7};
        result.insert(result.end(), std::begin(specialFolderNumbers), std::end(specialFolderNumbers));
        return result;
    }();
    return keys;
}

HostileMachine hostileMachine(const QByteArray &bytes)
{
    HostileMachine hostile;
    takeSteps(bytes, hostile);
    return hostile;
}

void takeSteps(const QByteArray &bytes, HostileMachine &hostile)
{
    Steps(bytes, hostile.machine, &hostile).takeAll();
}

void takeSteps(const QByteArray &bytes, Machine &machine)
{
    Steps(bytes, machine, nullptr).takeAll();
}
