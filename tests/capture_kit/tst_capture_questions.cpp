// Cases that were written before the code: differences.tsv, which differences.md explains, and the machine with planted
// identities, which planted/README.md explains.

#include "capture_comparison.h"
#include "capture_file.h"
#include "capture_redaction.h"
#include "described_windows.h"
#include "machine_loader.h"
#include "registry_file.h"
#include "system_file.h"
#include "test_main.h"
#include "win/windows_sections.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTextCodec>

using namespace velkor;

class CaptureQuestionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differences_data();
    void differences();
    void plantedIdentities_data();
    void plantedIdentities();
    void textsThatStay_data();
    void textsThatStay();
    void replayOfThePlantedMachine();
    void formsOfThePlantedValues();
};

namespace {

QByteArray contentOf(const QString &name)
{
    QFile file(QStringLiteral(PROJECT_DIR "/tests/capture_kit/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

/// The columns of each line that is no comment.
std::vector<QList<QByteArray>> rowsOf(const QString &name)
{
    std::vector<QList<QByteArray>> rows;
    for (const QByteArray &line : contentOf(name).split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#'))
            rows.push_back(line.split('\t'));
    }
    return rows;
}

machine::Machine described(const QString &folder)
{
    QString error;
    auto machine = machine::loadMachine(folder, error);
    if (!machine)
        qFatal("%s", qPrintable(error));
    return std::move(*machine);
}

QByteArray replayed(const machine::Machine &machine)
{
    const DescribedWindows windows(machine);
    return SystemInfo::WinSysInfo::allWinInfos().toUtf8();
}

// ---- edits of differences.tsv

/// "{U+0020}" and "{empty}" in \a text become what they mean.
QByteArray unescaped(QByteArray text)
{
    text.replace("{empty}", "");
    for (int at = text.indexOf("{U+"); at >= 0; at = text.indexOf("{U+", at)) {
        const int end = text.indexOf('}', at);
        const QByteArray utf8 = QString(QChar(text.mid(at + 3, end - at - 3).toUShort(nullptr, 16))).toUtf8();
        text.replace(at, end + 1 - at, utf8);
        at += utf8.size();
    }
    return text;
}

class EditedReport
{
public:
    explicit EditedReport(const QByteArray &text)
    {
        for (int begin = 0; begin < text.size();) {
            const int end = text.indexOf('\n', begin) + 1;
            m_lines.push_back(text.mid(begin, (end > 0 ? end : text.size()) - begin));
            begin = end > 0 ? end : text.size();
        }
    }

    void apply(const QByteArray &edit)
    {
        const int blank = edit.indexOf(' ');
        const QByteArray name = blank < 0 ? edit : edit.left(blank);
        const QByteArray argument = blank < 0 ? QByteArray() : edit.mid(blank + 1);
        const int arrow = argument.indexOf(" => ");
        const QByteArray address = arrow < 0 ? argument : argument.left(arrow);
        const QByteArray line = arrow < 0 ? QByteArray() : unescaped(argument.mid(arrow + 4)) + '\n';
        if (name == "none")
            return;
        if (name == "qt-line") {
            m_qtLine = unescaped(argument) + '\n';
            return;
        }
        if (name == "swap") {
            const int bar = argument.indexOf(" | ");
            std::swap(*find(argument.left(bar)), *find(argument.mid(bar + 3)));
            return;
        }
        const auto place = find(address);
        if (name == "replace")
            *place = line;
        else if (name == "delete")
            m_lines.erase(place);
        else if (name == "insert-before")
            m_lines.insert(place, line);
        else if (name == "insert-after")
            m_lines.insert(place + 1, line);
        else if (name == "repeat")
            m_lines.insert(place, QByteArray(*place));
        else if (name == "blank-at-end")
            place->insert(place->size() - 1, ' ');
        else if (name == "drop-line-end")
            place->chop(1);
        else if (name == "crlf")
            place->insert(place->size() - 1, '\r');
        else if (name == "cut-after")
            cut(place);
        else
            qFatal("unknown edit '%s'", name.constData());
    }

    QByteArray report() const
    {
        QByteArray text;
        for (const QByteArray &line : m_lines)
            text += line;
        if (m_isCut)
            return text;
        return text + "###### System informations retrieved using Qt #######\n"
                      "Local Date and Time: 14.12.2023 08:12:33\n"
                      "UTC   Date and Time: 14.12.2023 07:12:33\n"
                      "ActiveBias: -60 min\n"
                      "------------------------------------------------------------------------\n"
            + m_qtLine;
    }

private:
    using Lines = std::vector<QByteArray>;

    void cut(Lines::iterator last)
    {
        m_lines.erase(last + 1, m_lines.end());
        m_isCut = true;
    }

    Lines::iterator find(QByteArray address)
    {
        int number = 1;
        int offset = 0;
        while (address.endsWith('}')) {
            const int open = address.lastIndexOf('{');
            const QByteArray what = address.mid(open + 1, address.size() - open - 2);
            if (what.startsWith('#'))
                number = what.mid(1).toInt();
            else if (what.startsWith('+') || what.startsWith('-'))
                offset = what.toInt();
            else
                break;
            address.truncate(open);
        }
        const bool isEmptyLine = address == "{empty}";
        const QByteArray beginning = isEmptyLine ? QByteArray("\n") : unescaped(address);
        for (auto line = m_lines.begin(); line != m_lines.end(); ++line) {
            if (line->startsWith(beginning) && --number == 0)
                return line + offset;
        }
        qFatal("no line begins with '%s'", address.constData());
    }

    Lines m_lines;
    QByteArray m_qtLine;
    bool m_isCut = false;
};

QString joined(const QStringList &names)
{
    return names.isEmpty() ? QStringLiteral("-") : names.join(QLatin1Char(','));
}

// ---- the machine with planted identities

const QString plantedFolder = QStringLiteral(PROJECT_DIR "/tests/capture_kit/planted");

struct Planted
{
    QByteArray report; ///< the Windows half before the redaction
    RedactedCapture capture;
    machine::Machine machine; ///< the redacted description, written and read
    QByteArray replay;        ///< of it
    QByteArray registry;      ///< the files as they are written
    QByteArray system;
    QByteArray notes;
};

const Planted &planted()
{
    static const Planted result = [] {
        Planted made;
        const machine::Machine machine = described(plantedFolder);
        made.report = replayed(machine);
        const QByteArray whole = made.report + "###### System informations retrieved using Qt #######\n";
        made.capture = redactCapture(machine, Reports::read(whole), {}, {});
        made.registry = machine::writeRegistryFile(made.capture.machine.registry);
        made.system = machine::writeSystemFile(made.capture.machine);
        CaptureNotes notes;
        notes.isRedacted = true;
        notes.missing = made.capture.notes;
        made.notes = captureJson(notes);
        QString error;
        int line = 0;
        if (!machine::readRegistryFile(made.registry, made.machine.registry, error, line)
            || !machine::readSystemFile(made.system, made.machine, error, line))
            qFatal("line %d: %s", line, qPrintable(error));
        made.replay = replayed(made.machine);
        return made;
    }();
    return result;
}

void collectData(const machine::RegistryKey &key, std::vector<QByteArray> &data)
{
    for (const machine::RegistryValue &value : key.values())
        data.push_back(value.data);
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        collectData(*key.subKeyAt(i), data);
}

const std::vector<QByteArray> &redactedData()
{
    static const std::vector<QByteArray> data = [] {
        std::vector<QByteArray> result;
        for (const auto &root : planted().machine.registry.roots())
            collectData(*root, result);
        return result;
    }();
    return data;
}

QString utf16At(const QByteArray &data, int first)
{
    return QString(reinterpret_cast<const QChar *>(data.constData() + first), (data.size() - first) / 2);
}

QString registryText()
{
    return QTextCodec::codecForName("UTF-16LE")->toUnicode(planted().registry);
}

/// All strings and names of members.
QStringList textsOfJson(const QJsonValue &value)
{
    QStringList texts;
    if (value.isString())
        texts += value.toString();
    for (const QJsonValue &element : value.toArray())
        texts += textsOfJson(element);
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member)
        texts += QStringList(member.key()) + textsOfJson(member.value());
    return texts;
}

QStringList textsOfJson(const QByteArray &json)
{
    return textsOfJson(QJsonDocument::fromJson(json).object());
}

bool contains(const QString &text, const QString &part)
{
    return text.contains(part, Qt::CaseInsensitive);
}

/// Where \a text still is; empty if it is nowhere.
QString placeOf(const QString &text)
{
    if (contains(QString::fromUtf8(planted().capture.report.bytes()), text))
        return QStringLiteral("report");
    if (contains(registryText(), text))
        return QStringLiteral("text of registry.reg");
    for (const QByteArray &data : redactedData()) {
        const QString forms[] = {utf16At(data, 0), data.isEmpty() ? QString() : utf16At(data, 1),
                                 QTextCodec::codecForName("windows-1252")->toUnicode(data), QString::fromUtf8(data)};
        for (const QString &form : forms) {
            if (contains(form, text))
                return QStringLiteral("data of registry.reg: ") + QString::fromLatin1(data.toHex(' '));
        }
    }
    for (const QString &string : textsOfJson(planted().system) + textsOfJson(planted().notes)) {
        if (contains(string, text))
            return QStringLiteral("JSON: ") + string;
    }
    return {};
}

} // namespace

void CaptureQuestionsTest::differences_data()
{
    QTest::addColumn<QByteArray>("edit");
    QTest::addColumn<QString>("verdicts");
    QTest::addColumn<QString>("sections");
    for (const QList<QByteArray> &row : rowsOf(QStringLiteral("differences.tsv")))
        QTest::newRow(row.at(0)) << row.at(1) << QString::fromUtf8(row.at(2)) << QString::fromUtf8(row.at(3));
}

void CaptureQuestionsTest::differences()
{
    QFETCH(QByteArray, edit);
    QFETCH(QString, verdicts);
    QFETCH(QString, sections);
    static const QByteArray replay = replayed(described(QStringLiteral(MACHINES_DIR "/workstation")));

    EditedReport edited(replay);
    for (int begin = 0; begin <= edit.size();) {
        const int end = edit.indexOf(" && ", begin);
        edited.apply(end < 0 ? edit.mid(begin) : edit.mid(begin, end - begin));
        begin = end < 0 ? edit.size() + 1 : end + 4;
    }
    const CaptureComparison comparison = compareCapture(Reports::read(edited.report()), replay, {});

    constexpr std::pair<Verdict, const char *> order[] = {
        {Verdict::Moment, "moment"}, {Verdict::Modules, "modules"}, {Verdict::Host, "host"}, {Verdict::Missing, "missing"}, {Verdict::Order, "order"}, {Verdict::Length, "length"}, {Verdict::Failed, "FAILED"}};
    QStringList printed;
    for (const auto &[verdict, name] : order) {
        if (comparison.count(verdict) > 0)
            printed += QString::fromLatin1(name);
    }
    QStringList printedSections;
    for (const DifferentLine &line : comparison.lines) {
        const QString section = QString::fromUtf8(line.section);
        if (!printedSections.contains(section))
            printedSections += section;
    }
    const QByteArray text = captureComparisonText(comparison);
    QVERIFY2((printed.isEmpty() ? QStringLiteral("none") : printed.join(QLatin1Char(','))) == verdicts, text);
    if (sections != QLatin1String("*")) {
        QStringList expected = sections == QLatin1String("-") ? QStringList() : sections.split(QLatin1Char(','));
        expected.sort();
        printedSections.sort();
        QVERIFY2(joined(printedSections) == joined(expected), text);
    }
}

void CaptureQuestionsTest::plantedIdentities_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QString>("text");
    for (const QList<QByteArray> &row : rowsOf(QStringLiteral("identities.txt")))
        QTest::newRow(row.at(1)) << row.at(0) << QString::fromUtf8(row.at(1));
}

void CaptureQuestionsTest::plantedIdentities()
{
    QFETCH(QByteArray, kind);
    QFETCH(QString, text);
    if (kind != "bytes") {
        QCOMPARE(placeOf(text), QString());
        return;
    }
    const QByteArray bytes = QByteArray::fromHex(text.toLatin1());
    QVERIFY(bytes.size() > 1);
    for (const QByteArray &data : redactedData())
        QVERIFY2(!data.contains(bytes), data.toHex(' '));
}

void CaptureQuestionsTest::textsThatStay_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("text");
    for (const QList<QByteArray> &row : rowsOf(QStringLiteral("keep.txt")))
        QTest::addRow("%s: %s", row.at(0).constData(), row.at(1).constData()) << row.at(0) << QString::fromUtf8(row.at(1));
}

void CaptureQuestionsTest::textsThatStay()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, text);
    if (file == "report") {
        QVERIFY(planted().capture.report.bytes().contains(text.toUtf8()));
        QVERIFY(planted().replay.contains(text.toUtf8()));
        return;
    }
    bool isThere = false;
    if (file == "registry.reg") {
        QString names = registryText();
        isThere = names.replace(QStringLiteral("\\\\"), QStringLiteral("\\")).contains(text);
        for (const QByteArray &data : redactedData())
            isThere = isThere || utf16At(data, 0).contains(text);
    } else {
        for (const QString &string : textsOfJson(planted().system))
            isThere = isThere || string.contains(text);
    }
    QVERIFY(isThere);
}

void CaptureQuestionsTest::replayOfThePlantedMachine()
{
    CaptureNotes notes;
    notes.isRedacted = true;
    const CaptureComparison comparison = compareCapture(planted().capture.report, planted().replay, notes);
    // The name of one key has an umlaut, so the report cannot open the key. It opens the key with the alias.
    for (const DifferentLine &line : comparison.lines)
        QVERIFY2(line.section == "diskDevicesFromRegistry:USBSTOR", captureComparisonText(comparison));
    QCOMPARE(comparison.count(Verdict::Failed), 7);
    QVERIFY(comparison.same > 100);
}

void CaptureQuestionsTest::formsOfThePlantedValues()
{
    // planted/README.md, "The form that stays"
    std::vector<std::pair<QString, const machine::RegistryValue *>> values;
    std::function<void(const machine::RegistryKey &)> visit = [&](const machine::RegistryKey &key) {
        for (const machine::RegistryValue &value : key.values())
            values.emplace_back(key.name(), &value);
        for (std::size_t i = 0; i < key.subKeyCount(); ++i)
            visit(*key.subKeyAt(i));
    };
    for (const auto &root : planted().machine.registry.roots())
        visit(*root);
    const auto named = [&](const char *name, const QString &key = {}) {
        for (const auto &[keyName, value] : values) {
            if (value->name == QLatin1String(name) && (key.isEmpty() || keyName == key))
                return *value;
        }
        qFatal("no value '%s'", name);
    };
    const auto isTerminated = [](const machine::RegistryValue &value) {
        const int size = value.data.size() / 2 * 2;
        return size >= 2 && value.data.at(size - 1) == 0 && value.data.at(size - 2) == 0;
    };

    const auto owner = named("RegisteredOwner");
    QCOMPARE(owner.type, 1U);
    QCOMPARE(owner.data.size() % 2, 1);
    QVERIFY(!isTerminated(owner));
    const auto organization = named("RegisteredOrganization");
    QCOMPARE(organization.type, 1U);
    QCOMPARE(organization.data.size() % 2, 0);
    QVERIFY(!isTerminated(organization));
    const auto bios = named("VideoBiosVersion");
    QCOMPARE(bios.type, 7U);
    QCOMPARE(utf16At(bios.data, 0).count(QChar(0)), 2);
    QVERIFY(isTerminated(bios));
    const auto adapter = named("HardwareInformation.AdapterString");
    QCOMPARE(adapter.type, 3U);
    QVERIFY(!isTerminated(adapter));
    const auto chip = named("HardwareInformation.ChipType");
    QCOMPARE(chip.type, 3U);
    QCOMPARE(chip.data.size() % 2, 1);
    const auto url = named("1", QStringLiteral("URL"));
    QCOMPARE(url.type, 2U);
    QVERIFY(!isTerminated(url));
    const auto remote = named("RemoteName");
    QCOMPARE(remote.type, 3U);
    QVERIFY(!isTerminated(remote));
    const auto empty = named("Empty");
    QCOMPARE(empty.type, 1U);
    QCOMPARE(empty.data.size(), 0);
    const auto flags = named("ShortFlags");
    QCOMPARE(flags.type, 4U);
    QCOMPARE(flags.data.size(), 3);
    const auto unknown = named("Unknown");
    QCOMPARE(unknown.type, 0U);
    QCOMPARE(unknown.data.size(), 3);
}

TEST_WITH_CORE_APPLICATION(CaptureQuestionsTest);
#include "tst_capture_questions.moc"
