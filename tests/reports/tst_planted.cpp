// Redaction of invented reports with planted identities and secrets. redaction/make_planted.py makes the
// reports and says what must go and what must stay.
//
// The build makes 150 reports. Environment variables for more:
//   PLANTED_REPORTS=1000  makes so many reports, and takes them instead
//   PLANTED_SEED=7        makes them with that seed
//   PLANTED_OUTPUT=FOLDER writes the redacted texts and, for each of the tests, a table of all failures

#include "document_texts.h"
#include "failure_list.h"
#include "planted_aliases.h"
#include "planted_reports.h"
#include "redacted_outputs.h"
#include "redaction_rules.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <algorithm>

using namespace velkor::Reports;

class PlantedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void needlesAreInTheReports();
    void nothingHiddenIsLeft();
    void linesToKeepAreKept();
    void structureStays();
    void redactingAgainChangesNothing();
    void aliasesAreWellFormed();
    void thingsHaveAliasesOfTheirOwn();
    void keyedAliasesAreTheSameInOtherReports();
    void reportsTogetherHaveOneNumbering();
    void jsonGivesTheRedactedText();

private:
    void makeReports(const QString &count);
    void writeOutput();
    const Document &redacted(std::size_t report) const { return m_redactions[report].documents.front(); }

    QTemporaryDir m_made;
    QString m_folder;
    QMap<QString, int> m_kinds;
    std::vector<PlantedReport> m_reports;
    std::vector<Redaction> m_redactions; // each report alone, without a key
};

namespace {

RedactionOptions withKey()
{
    RedactionOptions options;
    options.key = QByteArrayLiteral("a key that only this test has...");
    return options;
}

/// The number of the first line with the needle, from 1; 0 if it spans lines.
int lineWith(const QStringList &lines, const QString &needle)
{
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i].contains(needle))
            return i + 1;
    }
    return 0;
}

/// The line of \a text that has the needle, both searchable, for a message.
QString excerpt(const QString &text, const QString &needle)
{
    const int at = text.indexOf(needle);
    const int begin = text.lastIndexOf(QLatin1Char('\n'), at) + 1;
    return text.mid(std::max(begin, at - 60), 60 + needle.size() + 60).section(QLatin1Char('\n'), 0, 0);
}

/// The section that the line with that index begins in.
QString sectionOfLine(const Document &document, int line)
{
    int offset = 0;
    for (; line > 0; --line)
        offset = document.text().indexOf('\n', offset) + 1;
    for (const Section &section : document.sections()) {
        if (offset >= section.begin && offset < section.end)
            return QString::fromLatin1(sectionRows()[std::size_t(section.row)].name);
    }
    return QStringLiteral("no section");
}

/// The things that are names of the same person: make_planted.py cannot know whether an account, an owner
/// and a mail address belong together.
bool canBeOnePerson(const PlantedReport &report, const QString &one, const QString &other)
{
    const auto isPerson = [&](const QString &thing) {
        return thing == QLatin1String("user:1") || thing.startsWith(QLatin1String("address:"))
            || std::any_of(report.hidden.begin(), report.hidden.end(), [&](const Hidden &hidden) {
                   return hidden.thing == thing && hidden.note.contains(QLatin1String("may share the alias of"));
               });
    };
    return isPerson(one) && isPerson(other);
}

/// An address with hyphens can be taken for a name; the note says so.
bool canBeOneAddress(const PlantedReport &report, const QString &one, const QString &other)
{
    return std::any_of(report.hidden.begin(), report.hidden.end(), [&](const Hidden &hidden) {
        return (hidden.thing == one || hidden.thing == other)
            && (hidden.note.contains(QLatin1String("may have the alias of")) || hidden.note.contains(QLatin1String("may be taken as an address")));
    });
}

/// Adds aliases of one thing that differ, and things of one report that have the same.
void addMixedAliases(const PlantedReport &report, const std::vector<SeenAlias> &seen, FailureList &failures)
{
    QMap<QString, const SeenAlias *> ofThings;
    QMap<QString, const SeenAlias *> ofAliases;
    for (const SeenAlias &one : seen) {
        const SeenAlias *&thing = ofThings[one.hidden->thing];
        if (thing && thing->alias != one.alias) {
            failures.add(report.name, one.line + 1, QStringLiteral("two aliases: ") + one.hidden->plant(),
                         QStringLiteral("%1 %2 is %3, but in line %4 %5 is %6")
                             .arg(one.hidden->thing, one.hidden->needle, one.alias, QString::number(thing->line + 1),
                                  thing->hidden->needle, thing->alias));
        }
        const SeenAlias *&alias = ofAliases[one.alias];
        if (alias && alias->hidden->thing != one.hidden->thing
            && !canBeOnePerson(report, alias->hidden->thing, one.hidden->thing)
            && !canBeOneAddress(report, alias->hidden->thing, one.hidden->thing)) {
            failures.add(report.name, one.line + 1, QStringLiteral("two things: ") + one.hidden->plant(),
                         QStringLiteral("%1 is %2 %3, but in line %4 %5 %6")
                             .arg(one.alias, one.hidden->thing, one.hidden->needle, QString::number(alias->line + 1),
                                  alias->hidden->thing, alias->hidden->needle));
        }
        thing = thing ? thing : &one;
        alias = alias ? alias : &one;
    }
}

bool hasAliases(const PlantedReport &report)
{
    return !aliasesIn(report.lines.join(QLatin1Char('\n'))).empty();
}

/// Adds what is wrong with the redaction of several reports and, at the end, the first of them again.
void addFlawsOfGroup(const std::vector<PlantedReport> &reports, const Redaction &redaction, FailureList &failures)
{
    const QString &name = reports.front().name;
    const bool hadSome = std::any_of(reports.begin(), reports.end(), hasAliases);
    const QString flaw = flawOfAliases(redaction, false, hadSome);
    if (!flaw.isEmpty())
        failures.add(name, 0, QStringLiteral("alias"), flaw);
    if (redaction.documents.front().bytes() != redaction.documents.back().bytes())
        failures.add(name, 0, QStringLiteral("the same report twice"), QString());
    const Redaction again = redact(redaction.documents);
    for (std::size_t i = 0; i < again.documents.size(); ++i) {
        if (again.documents[i].bytes() != redaction.documents[i].bytes())
            failures.add(name, 0, QStringLiteral("redacted again"), QString::number(i));
    }
}

/// Adds what is wrong with a report that was redacted with others. \a addresses: which MAC address
/// each alias stands for.
void addFlawsOfMember(const PlantedReport &report, const Document &redacted, QMap<QString, QString> &addresses,
                      FailureList &failures)
{
    const QString flaw = flawOfRedaction(report.document, redacted);
    if (!flaw.isEmpty())
        failures.add(report.name, 0, QStringLiteral("structure"), flaw);
    const QString text = searchable(decodedBytes(redacted.bytes()));
    for (const Hidden &hidden : report.hidden) {
        if (text.contains(searchable(hidden.needle)))
            failures.add(report.name, lineWith(report.lines, hidden.needle), hidden.plant(), hidden.needle);
    }
    const std::vector<SeenAlias> seen = seenAliases(report, linesOf(redacted));
    addMixedAliases(report, seen, failures);
    for (const SeenAlias &one : seen) {
        if (one.hidden->kind != QLatin1String("mac"))
            continue;
        const QString digits = one.hidden->needle.toLower().remove(QRegularExpression(QStringLiteral("[:.-]")));
        QString &address = addresses[one.alias];
        if (!address.isEmpty() && address != digits) {
            failures.add(report.name, one.line + 1, QStringLiteral("two things in two reports"),
                         QStringLiteral("%1 is %2 and %3").arg(one.alias, digits, address));
        }
        address = digits;
    }
}

/// The report as it arrives in another way: with another address before it and with other line ends.
QByteArray otherCopy(const PlantedReport &report)
{
    QByteArray text = report.document.text();
    if (report.document.lineEnd() == "\n")
        text.replace("\n", "\r\n");
    const int mark = text.startsWith("\xef\xbb\xbf") ? 3 : 0;
    return text.insert(mark, "Seen from 198.51.100.254 by guesthouse.example" + report.document.lineEnd());
}

} // namespace

void PlantedTest::makeReports(const QString &count)
{
    QVERIFY(m_made.isValid());
    m_folder = m_made.path();
    QStringList arguments = {QStringLiteral(PROJECT_DIR "/tests/reports/redaction/make_planted.py"), m_folder, count};
    if (qEnvironmentVariableIsSet("PLANTED_SEED"))
        arguments += qEnvironmentVariable("PLANTED_SEED");
    QProcess python;
    python.setProcessChannelMode(QProcess::ForwardedChannels);
    python.start(QStringLiteral(PYTHON), arguments);
    constexpr int tenMinutes = 600000;
    QVERIFY2(python.waitForFinished(tenMinutes) && python.exitStatus() == QProcess::NormalExit
                 && python.exitCode() == 0,
             "make_planted.py failed");
}

void PlantedTest::writeOutput()
{
    const QDir folder(qEnvironmentVariable("PLANTED_OUTPUT"));
    QVERIFY(folder.mkpath(QStringLiteral(".")));
    for (std::size_t i = 0; i < m_reports.size(); ++i) {
        QFile file(folder.filePath(m_reports[i].name + QStringLiteral(".txt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(redacted(i).bytes());
    }
}

void PlantedTest::initTestCase()
{
    m_folder = QStringLiteral(PLANTED_DIR);
    if (qEnvironmentVariableIsSet("PLANTED_REPORTS"))
        makeReports(qEnvironmentVariable("PLANTED_REPORTS"));
    QString error;
    m_reports = plantedReports(m_folder, error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QVERIFY(!m_reports.empty());
#if defined(__SANITIZE_ADDRESS__) // which makes the test ten times slower
    constexpr std::size_t enough = 20;
    if (m_reports.size() > enough)
        m_reports.erase(m_reports.begin() + enough, m_reports.end());
#endif
    m_kinds = plantedKinds(m_folder);
    QVERIFY(m_kinds.size() >= 60);
    for (const PlantedReport &report : m_reports) {
        m_redactions.push_back(redact({report.document}));
        QCOMPARE(flawOfReplacements(report.document, m_redactions.back()), QString());
    }
    if (qEnvironmentVariableIsSet("PLANTED_OUTPUT"))
        writeOutput();
}

// A needle that is not in the report, or that a search does not find, would prove nothing.
void PlantedTest::needlesAreInTheReports()
{
    FailureList failures;
    QMap<QString, int> found;
    int needles = 0;
    QSet<QString> plants;
    for (const PlantedReport &report : m_reports) {
        const std::vector<Output> outputs = outputsOf(report.document, Redaction());
        for (const Hidden &hidden : report.hidden) {
            const QString needle = searchable(hidden.needle);
            ++needles;
            plants += hidden.plant();
            for (const Output &output : outputs)
                found[QLatin1String(output.name)] += output.text.contains(needle) ? 1 : 0;
            if (!report.lines.join(QLatin1Char('\n')).remove(QLatin1Char('\r')).contains(hidden.needle))
                failures.add(report.name, 0, hidden.plant(), hidden.needle);
        }
    }
    failures.show("needles", m_kinds);
    qInfo("%d reports, %d needles of %d kinds", int(m_reports.size()), needles, plants.size());
    QVERIFY(failures.isEmpty());
    QVERIFY(plants.size() >= 60);
    QCOMPARE(found.value(QStringLiteral("text")), needles);
    for (const char *name : {"JSON, strings decoded", "Markdown", "HTML as shown"}) {
        qInfo("%s: %d of the needles are found before redaction", name, found.value(QLatin1String(name)));
        QVERIFY(found.value(QLatin1String(name)) > needles * 8 / 10);
    }
}

void PlantedTest::nothingHiddenIsLeft()
{
    FailureList failures;
    for (std::size_t i = 0; i < m_reports.size(); ++i) {
        const std::vector<Output> outputs = outputsOf(redacted(i), m_redactions[i]);
        for (const Hidden &hidden : m_reports[i].hidden) {
            const QString needle = searchable(hidden.needle);
            QStringList names;
            QString line;
            for (const Output &output : outputs) {
                const bool isEscaped = qstrcmp(output.name, "JSON") == 0 && needle.contains(QLatin1Char('\\'));
                if (isEscaped || !output.text.contains(needle)) // the decoded strings are another output
                    continue;
                names += QLatin1String(output.name);
                line = line.isEmpty() ? excerpt(output.text, needle) : line;
            }
            if (!names.isEmpty()) {
                failures.add(m_reports[i].name, lineWith(m_reports[i].lines, hidden.needle), hidden.plant(),
                             QStringLiteral("%1 \"%2\" is in %3: %4")
                                 .arg(hidden.thing, hidden.needle, names.join(QStringLiteral(", ")), line));
            }
        }
    }
    failures.show("hidden", m_kinds);
    qInfo("%d needles are left", int(failures.size()));
    QVERIFY(failures.isEmpty());
}

void PlantedTest::linesToKeepAreKept()
{
    FailureList failures;
    std::size_t all = 0;
    double worst = 1;
    for (std::size_t i = 0; i < m_reports.size(); ++i) {
        const PlantedReport &report = m_reports[i];
        const QStringList lines = linesOf(redacted(i));
        std::size_t changed = 0;
        for (const int line : report.kept) {
            if (lines.value(line) == report.lines[line])
                continue;
            ++changed;
            failures.add(report.name, line + 1, sectionOfLine(report.document, line),
                         QStringLiteral("\"%1\" became \"%2\"").arg(report.lines[line], lines.value(line)));
        }
        all += report.kept.size();
        worst = std::min(worst, 1 - double(changed) / double(report.kept.size()));
    }
    failures.show("keep");
    const double kept = 1 - double(failures.size()) / double(all);
    qInfo("%.3f %% of %d lines to keep are kept, of the worst report %.2f %%", 100 * kept, int(all), 100 * worst);
    QVERIFY(kept >= 0.98);
    QVERIFY(worst >= 0.9);
}

void PlantedTest::structureStays()
{
    FailureList failures;
    for (std::size_t i = 0; i < m_reports.size(); ++i) {
        const QString flaw = flawOfRedaction(m_reports[i].document, redacted(i));
        if (!flaw.isEmpty())
            failures.add(m_reports[i].name, 0, QStringLiteral("structure"), flaw);
        const QString places = flawOfPlaces(redacted(i));
        if (!places.isEmpty())
            failures.add(m_reports[i].name, 0, QStringLiteral("places"), places);
        if (read(redacted(i).bytes()).facts().size() != redacted(i).facts().size())
            failures.add(m_reports[i].name, 0, QStringLiteral("the document is not the one of its bytes"), QString());
    }
    failures.show("structure");
    QVERIFY(failures.isEmpty());
}

void PlantedTest::redactingAgainChangesNothing()
{
    FailureList failures;
    for (std::size_t i = 0; i < m_reports.size(); ++i) {
        const Redaction keyed = redact({m_reports[i].document}, withKey());
        const std::vector<std::pair<QByteArray, QByteArray>> pairs = {
            {redacted(i).bytes(), redact({redacted(i)}).documents.front().bytes()},
            {redacted(i).bytes(), redact({read(redacted(i).bytes())}, withKey()).documents.front().bytes()},
            {keyed.documents.front().bytes(), redact(keyed.documents, withKey()).documents.front().bytes()},
            {keyed.documents.front().bytes(), redact(keyed.documents).documents.front().bytes()},
        };
        for (std::size_t pair = 0; pair < pairs.size(); ++pair) {
            const QStringList once = decodedBytes(pairs[pair].first).split(QLatin1Char('\n'));
            const QStringList twice = decodedBytes(pairs[pair].second).split(QLatin1Char('\n'));
            for (int line = 0; line < once.size(); ++line) {
                if (once[line] == twice.value(line))
                    continue;
                failures.add(
                    m_reports[i].name, line + 1,
                    QStringLiteral("%1 then %2").arg(pair < 2 ? "numbers" : "key", pair % 3 == 0 ? "numbers" : "key"),
                    QStringLiteral("\"%1\" became \"%2\"").arg(once[line], twice.value(line)));
            }
        }
    }
    failures.show("again");
    QVERIFY(failures.isEmpty());
}

void PlantedTest::aliasesAreWellFormed()
{
    FailureList failures;
    for (std::size_t i = 0; i < m_reports.size(); ++i) {
        const bool hadSome = hasAliases(m_reports[i]);
        const Redaction keyed = redact({m_reports[i].document}, withKey());
        for (const QString &flaw : {flawOfAliases(m_redactions[i], false, hadSome), flawOfAliases(keyed, true)}) {
            if (!flaw.isEmpty())
                failures.add(m_reports[i].name, 0, QStringLiteral("alias"), flaw);
        }
        for (const Redaction *redaction : {static_cast<const Redaction *>(&m_redactions[i]), &keyed}) {
            const QString text = decodedBytes(redaction->documents.front().bytes());
            for (const Alias &alias : redaction->aliases) {
                if (!text.contains(alias.text))
                    failures.add(m_reports[i].name, 0, QStringLiteral("alias that is not in the text"), alias.text);
            }
        }
        if (!redact({redacted(i)}).aliases.empty())
            failures.add(m_reports[i].name, 0, QStringLiteral("aliases of a redacted report"),
                         redact({redacted(i)}).aliases.front().text);
    }
    failures.show("aliases");
    QVERIFY(failures.isEmpty());
}

void PlantedTest::thingsHaveAliasesOfTheirOwn()
{
    FailureList failures;
    int things = 0;
    for (std::size_t i = 0; i < m_reports.size(); ++i) {
        const std::vector<SeenAlias> seen = seenAliases(m_reports[i], linesOf(redacted(i)));
        things += aliasesOfThings(seen).size();
        addMixedAliases(m_reports[i], seen, failures);
    }
    failures.show("things");
    qInfo("the aliases of %d things can be seen", things);
    QVERIFY(things > int(m_reports.size()) * 4);
    QVERIFY(failures.isEmpty());
}

// The same report from another way, and the same addresses in different reports.
void PlantedTest::keyedAliasesAreTheSameInOtherReports()
{
    FailureList failures;
    QMap<QString, QString> ofAddresses;
    int repeated = 0;
    for (const PlantedReport &report : m_reports) {
        const std::vector<SeenAlias> seen
            = seenAliases(report, linesOf(redact({report.document}, withKey()).documents.front()));
        const QStringList copy = linesOf(redact({read(otherCopy(report))}, withKey()).documents.front());
        const QMap<QString, QSet<QString>> inCopy = aliasesOfThings(seenAliases(report, copy, 1));
        for (const SeenAlias &one : seen) {
            const QSet<QString> other = inCopy.value(one.hidden->thing);
            if (!other.isEmpty() && !other.contains(one.alias))
                failures.add(
                    report.name, one.line + 1, QStringLiteral("copy: ") + one.hidden->plant(),
                    QStringLiteral("%1 is %2, in the copy %3").arg(one.hidden->needle, one.alias, *other.begin()));
            if (one.hidden->kind != QLatin1String("ip") && one.hidden->kind != QLatin1String("mac"))
                continue;
            QString &alias = ofAddresses[one.hidden->needle.toLower()];
            repeated += alias.isEmpty() ? 0 : 1;
            if (!alias.isEmpty() && alias != one.alias)
                failures.add(
                    report.name, one.line + 1, QStringLiteral("other report: ") + one.hidden->plant(),
                    QStringLiteral("%1 is %2, in another report %3").arg(one.hidden->needle, one.alias, alias));
            alias = one.alias;
        }
    }
    failures.show("key");
    qInfo("%d addresses, seen again %d times", ofAddresses.size(), repeated);
    QVERIFY(repeated > 0);
    QVERIFY(failures.isEmpty());
}

void PlantedTest::reportsTogetherHaveOneNumbering()
{
    FailureList failures;
    constexpr std::size_t together = 3;
    for (std::size_t first = 0; first + together <= m_reports.size(); first += together) {
        const std::vector<PlantedReport> reports(m_reports.begin() + int(first), m_reports.begin() + int(first + together));
        std::vector<Document> documents;
        for (const PlantedReport &report : reports)
            documents.push_back(report.document);
        documents.push_back(documents.front());
        const Redaction redaction = redact(documents);
        QCOMPARE(redaction.documents.size(), documents.size());
        for (std::size_t i = 0; i < documents.size(); ++i)
            QCOMPARE(flawOfReplacements(documents[i], redaction, i), QString());
        addFlawsOfGroup(reports, redaction, failures);
        QMap<QString, QString> addresses;
        for (std::size_t i = 0; i < together; ++i)
            addFlawsOfMember(reports[i], redaction.documents[i], addresses, failures);
    }
    failures.show("together", m_kinds);
    QVERIFY(failures.isEmpty());
}

void PlantedTest::jsonGivesTheRedactedText()
{
    FailureList failures;
    for (std::size_t i = 0; i < m_reports.size(); ++i) {
        QString error;
        const std::optional<Document> again = fromJson(toJson(redacted(i), m_redactions[i]), &error);
        if (!again || again->bytes() != redacted(i).bytes())
            failures.add(m_reports[i].name, 0, QStringLiteral("JSON"), error);
        const Comparison comparison = compare(redacted(i), redacted(i));
        if (!comparison.same() || !comparison.changes.empty())
            failures.add(m_reports[i].name, 0, QStringLiteral("comparison with itself"), QString());
    }
    failures.show("json");
    QVERIFY(failures.isEmpty());
}

TEST_WITHOUT_APPLICATION(PlantedTest);
#include "tst_planted.moc"
