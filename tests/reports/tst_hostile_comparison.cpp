// Comparisons of hostile values. What must not occur in the output was written down by somebody
// who had not seen the writers.

#include "test_main.h"
#include "vkReports.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <algorithm>

using namespace velkor::Reports;

class HostileComparisonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void values_data();
    void values();
};

namespace {

/// The text of "a\\x1B[2J". The bytes that UTF-8 would have for a lone surrogate become one.
QString unescaped(const QByteArray &text)
{
    QByteArray bytes;
    for (int i = 0; i < text.size(); ++i) {
        if (text.mid(i, 2) == "\\x") {
            bytes += QByteArray::fromHex(text.mid(i + 2, 2));
            i += 3;
        } else {
            bytes += text.at(i);
        }
    }
    const int surrogate = bytes.indexOf('\xed');
    if (surrogate < 0 || surrogate + 2 >= bytes.size() || uchar(bytes.at(surrogate + 1)) < 0xa0)
        return QString::fromUtf8(bytes);
    const int unit = 0xd000 | (bytes.at(surrogate + 1) & 0x3f) << 6 | (bytes.at(surrogate + 2) & 0x3f);
    return QString::fromUtf8(bytes.left(surrogate)) + QChar(ushort(unit)) + QString::fromUtf8(bytes.mid(surrogate + 3));
}

int lengthOfRun(const QString &text, int begin)
{
    int end = begin;
    while (end < text.size() && text.at(end) == QLatin1Char('`'))
        ++end;
    return end - begin;
}

/// Without code spans: from a run of backticks to the next one of the same length.
QString withoutCodeSpans(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size();) {
        const int run = lengthOfRun(text, i);
        int end = i + run;
        while (run > 0 && end < text.size() && lengthOfRun(text, end) != run)
            end += qMax(1, lengthOfRun(text, end));
        if (run > 0 && end < text.size()) {
            i = end + run;
            continue;
        }
        result += text.midRef(i, qMax(1, run));
        i += qMax(1, run);
    }
    return result;
}

int rowOf(const char *section, const char *key)
{
    for (int row = 0; row < int(factRows().size()); ++row) {
        const FactRow &fact = factRows()[std::size_t(row)];
        if (QLatin1String(fact.section) == QLatin1String(section) && QLatin1String(fact.key) == QLatin1String(key))
            return row;
    }
    return -1;
}

/// The value in every place of a comparison.
Comparison comparisonWith(const QString &value)
{
    Change changed;
    changed.section = QStringLiteral("qtSystemEnvironment");
    changed.items = QStringList(QStringLiteral("variable ") + value);
    changed.row = rowOf("qtSystemEnvironment", "value");
    changed.oldValue = value;
    changed.newValue = value + value;
    Change entries = changed;
    entries.addedEntries = QStringList(value);
    entries.removedEntries = QStringList({value, value});
    entries.oldValue = entries.newValue = value + QString(200, QLatin1Char('x')); // too wide for one line
    Change added = changed;
    added.difference = Difference::Added;
    Change item = added;
    item.row = -1;
    item.facts = {{changed.row, value}};
    return {{changed, entries, added, item}};
}

ComparisonTable tableWith(const QString &value)
{
    ComparisonRow row;
    row.section = QStringLiteral("qtSystemEnvironment");
    row.items = QStringList(QStringLiteral("variable ") + value);
    row.row = rowOf("qtSystemEnvironment", "value");
    row.values = {value, std::nullopt, value + value};
    ComparisonTable table;
    table.reports = 3;
    table.rows = {row};
    return table;
}

} // namespace

void HostileComparisonTest::values_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("terminal");
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("markdown");
    QFile file(QStringLiteral(REPORTS_DATA_DIR "/hostile.tsv"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n').mid(1);
    for (const QByteArray &line : lines) {
        const QList<QByteArray> cells = line.split('\t');
        if (cells.size() < 8)
            continue;
        QTest::newRow(cells[0].constData()) << unescaped(cells[3]).repeated(cells[2].toInt()) << QString::fromUtf8(cells[4])
                                            << QString::fromUtf8(cells[5]) << QString::fromUtf8(cells[6]);
    }
}

void HostileComparisonTest::values()
{
    QFETCH(QString, value);
    QFETCH(QString, terminal);
    QFETCH(QString, html);
    QFETCH(QString, markdown);
    const Comparison comparison = comparisonWith(value);
    const ComparisonTable table = tableWith(value);
    ComparisonOptions options;
    options.reportNames = QStringList({value, value, value});
    const auto check = [](const QByteArray &output, const QString &expression, bool isMarkdown = false) {
        const QString text = isMarkdown ? withoutCodeSpans(QString::fromUtf8(output)) : QString::fromUtf8(output);
        QVERIFY2(QString::fromUtf8(output).toUtf8() == output, output.left(2000));            // UTF-8
        if (expression == QLatin1String("-") || expression.contains(QLatin1String("{D800}"))) // no expression of PCRE
            return;
        const QRegularExpression forbidden(expression);
        QVERIFY2(forbidden.isValid(), qPrintable(expression));
        QVERIFY2(!forbidden.match(text).hasMatch(), qPrintable(text.left(2000)));
    };
    check(comparisonText(comparison, options), terminal);
    check(comparisonText(table, options), terminal);
    check(comparisonHtml(comparison, options), html);
    check(comparisonHtml(table, options), html);
    check(comparisonMarkdown(comparison, options), markdown, true);
    check(comparisonMarkdown(table, options), markdown, true);
    for (const QByteArray &json : {comparisonJson(comparison, options), comparisonJson(table, options)})
        check(json, terminal);
    const auto isSurrogate = [](QChar unit) { return unit.isSurrogate(); };
    if (std::count_if(value.begin(), value.end(), isSurrogate) % 2 == 0)
        return;
    const QChar alone = *std::find_if(value.begin(), value.end(), isSurrogate); // shown as an escape, not lost
    const QByteArray escape = "\\u" + QByteArray::number(alone.unicode(), 16);
    for (const QByteArray &output : {comparisonText(comparison, options), comparisonHtml(comparison, options),
                                     comparisonMarkdown(comparison, options), comparisonJson(comparison, options)})
        QVERIFY2(output.contains(escape), output.left(2000));
}

TEST_WITHOUT_APPLICATION(HostileComparisonTest);

#include "tst_hostile_comparison.moc"
