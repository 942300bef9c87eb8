// The catalogue of facts: consistent in itself, and the same sections as the library's.

#include "catalogue.h"
#include "document_texts.h"
#include "line_form.h"
#include "report/section_table.h"
#include "test_main.h"

#include "vkSystemInfo.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <algorithm>

using namespace velkor;
using namespace velkor::Reports;

class CatalogueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionsOfTheLibrary();
    void separatorOfTheLibrary();
    void keys();
    void items();
    void labels();
    void everyLineIsRead_data();
    void everyLineIsRead();
};

namespace {

QString name(const char *text)
{
    return QString::fromLatin1(text);
}

const ItemRow *findItem(const char *section, const char *kind)
{
    for (const ItemRow &row : itemRows()) {
        if (name(row.section) == name(section) && name(row.kind) == name(kind))
            return &row;
    }
    return nullptr;
}

QByteArray sample(const FactRow &row)
{
    if (*row.only != '\0')
        return row.only;
    if (name(row.item) == QStringLiteral("configuration") && row.form & Anything)
        return "0000";
    switch (row.type) {
    case Type::Number:
    case Type::Number64:
    case Type::Real:
        return "7";
    case Type::Bytes:
        return "1.5 GByte";
    default:
        return "sample";
    }
}

/// The line that the row at \a first begins, with values.
QByteArray sampleLine(std::size_t first)
{
    const std::vector<FactRow> &rows = factRows();
    if (name(rows[first].item) == QStringLiteral("drive"))
        return "C:\\ fixed drive          sample  sample  Free: 1.5 GByte Total: 1.5 GByte \n";
    QByteArray line = rows[first].line;
    for (std::size_t i = first; i < rows.size() && (i == first || rows[i].place > 1); ++i)
        line.replace('%' + QByteArray::number(rows[i].place), sample(rows[i]));
    return line + '\n';
}

/// The lines that begin the item of that kind, and those around it.
QByteArray opening(const char *section, const char *kind)
{
    const ItemRow *item = findItem(section, kind);
    if (!item)
        return {};
    QByteArray text = opening(section, item->parent) + item->before;
    if (name(kind) == QStringLiteral("deviceClass"))
        text += "----------------------------\n";
    const std::vector<FactRow> &rows = factRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (name(rows[i].section) == name(section) && name(rows[i].item) == name(kind) && rows[i].form & Opens)
            return text + sampleLine(i);
    }
    return text;
}

std::size_t firstRow(int section)
{
    const std::vector<FactRow> &rows = factRows();
    std::size_t row = 0;
    while (name(rows[row].section) != name(sectionRows()[std::size_t(section)].facts))
        ++row;
    return row;
}

/// True if the section begins with a fact, and the row is not on that line.
bool beginsWithOtherLine(int section, int row)
{
    const std::size_t first = firstRow(section);
    return *sectionRows()[std::size_t(section)].heading == '\0'
        && factRows()[std::size_t(row)].label() != factRows()[first].label();
}

} // namespace

void CatalogueTest::sectionsOfTheLibrary()
{
    QStringList ours;
    for (const SectionRow &row : sectionRows()) {
        const char half = row.half == Half::Windows ? 'W' : row.half == Half::Qt ? 'Q'
                                                                                 : 'O';
        ours += QStringLiteral("%1 %2 %3").arg(name(row.name)).arg(QLatin1Char(half)).arg(row.separator);
    }
    QStringList theirs;
    for (const SystemInfo::Section &section : SystemInfo::SectionTable()) {
        const char half = section.part == SystemInfo::Part::Windows ? 'W' : section.part == SystemInfo::Part::Qt ? 'Q'
                                                                                                                 : 'O';
        theirs += QStringLiteral("%1 %2 %3")
                      .arg(name(section.name))
                      .arg(QLatin1Char(half))
                      .arg(section.followed == SystemInfo::Followed::BySeparator);
    }
    QCOMPARE(ours, theirs);
    std::size_t i = 0;
    for (const SystemInfo::Section &section : SystemInfo::SectionTable()) {
        const char *heading = sectionRows()[i].heading;
        if (*heading != '\0')
            QCOMPARE(name(heading), name(section.heading));
        else
            QVERIFY(!name(section.heading).endsWith(QLatin1Char('\n')) || name(section.name) == QStringLiteral("wordSize"));
        ++i;
    }
}

void CatalogueTest::separatorOfTheLibrary()
{
    QCOMPARE(QString::fromLatin1(separatorLine()) + QLatin1Char('\n'), SystemInfo::separator());
    const QByteArray report = contentsOf(QStringLiteral(PROJECT_DIR "/docs/example-report.txt"));
    QVERIFY(report.startsWith(halfHeading(Half::Windows) + '\n'));
    QVERIFY(report.contains('\n' + halfHeading(Half::Qt) + '\n'));
}

void CatalogueTest::keys()
{
    QSet<QString> seen;
    const FactRow *previous = nullptr;
    for (const FactRow &row : factRows()) {
        const QString key = name(row.section) + QLatin1Char(' ') + name(row.item) + QLatin1Char(' ') + name(row.key);
        const QString line = key + QLatin1Char(' ') + name(row.line);
        QVERIFY2(name(row.key).isEmpty() == (row.place == 0), qPrintable(line));
        // Two lines can have the same fact: with and without a number, or a mark.
        const bool otherLine = row.form & (Opens | Failure);
        QVERIFY2(row.place == 0 || otherLine || !seen.contains(key), qPrintable(line));
        seen += key;
        QVERIFY2(QRegularExpression(QStringLiteral("^([a-z][A-Za-z0-9]*)?$")).match(name(row.key)).hasMatch(), qPrintable(line));
        if (row.place > 1)
            QVERIFY2(previous && previous->place == row.place - 1 && name(previous->line) == name(row.line), qPrintable(line));
        previous = &row;
    }
}

void CatalogueTest::items()
{
    for (int section = 0; section < int(sectionRows().size()); ++section)
        QVERIFY(sectionForm(section).lines.size() <= 64); // the reader notes in 64 bits which lines an item has
    for (const FactRow &row : factRows())
        QVERIFY2(*row.item == '\0' || findItem(row.section, row.item), row.item);
    for (const ItemRow &item : itemRows()) {
        QVERIFY2(*item.parent == '\0' || findItem(item.section, item.parent), item.kind);
        const auto hasFact = [&](const char *key) {
            return std::any_of(factRows().begin(), factRows().end(), [&](const FactRow &row) {
                return name(row.section) == name(item.section) && name(row.item) == name(item.kind) && name(row.key) == name(key);
            });
        };
        QVERIFY2(hasFact(item.identity), item.kind);
        QVERIFY2(*item.otherIdentity == '\0' || hasFact(item.otherIdentity), item.kind);
    }
}

void CatalogueTest::labels()
{
    const auto label = [](const char *section, const char *key) {
        for (const FactRow &row : factRows()) {
            if (name(row.section) == name(section) && name(row.key) == name(key))
                return row.label();
        }
        return QString();
    };
    QCOMPARE(label("memoryInfo", "totalPhys"), QStringLiteral("TotalPhys:             "));
    QCOMPARE(label("qtScreens", "physicalDpiX"), QStringLiteral("  Physical DPI x: "));
    QCOMPARE(label("qtScreens", "physicalDpiY"), QStringLiteral("  y: "));
    QCOMPARE(label("loadedModules", "path"), QString());
}

void CatalogueTest::everyLineIsRead_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<int>("row");
    for (int section = 0; section < int(sectionRows().size()); ++section) {
        const SectionRow &sectionRow = sectionRows()[std::size_t(section)];
        for (std::size_t i = 0; i < factRows().size(); ++i) {
            const FactRow &row = factRows()[i];
            if (name(row.section) == name(sectionRow.facts) && row.place == 1)
                QTest::newRow(qPrintable(QStringLiteral("%1 %2 %3 %4").arg(name(sectionRow.name), name(row.item), name(row.key)).arg(i)))
                    << section << int(i);
        }
    }
}

void CatalogueTest::everyLineIsRead()
{
    QFETCH(int, section);
    QFETCH(int, row);
    const SectionRow &sectionRow = sectionRows()[std::size_t(section)];
    const std::vector<FactRow> &rows = factRows();
    const FactRow &fact = rows[std::size_t(row)];
    const ItemRow *item = findItem(fact.section, fact.item);
    QByteArray text = sectionRow.heading;
    if (beginsWithOtherLine(section, row))
        text += sampleLine(firstRow(section));
    if (item && fact.form & Opens)
        text += opening(fact.section, item->parent) + item->before + (name(item->kind) == QStringLiteral("deviceClass") ? "----------------------------\n" : "");
    else
        text += opening(fact.section, fact.item);
    if (name(fact.item) == QStringLiteral("openGLDriver"))
        text += "#### Info about the OpenGL driver DLL's from registry ###\n";
    const bool opened = item && !(fact.form & Opens) && text.endsWith(sampleLine(std::size_t(row)));
    if (!opened)
        text += sampleLine(std::size_t(row));
    text += separatorLine() + '\n';

    const Document document = read(text);
    QCOMPARE(document.bytes(), text);
    QCOMPARE(otherLines(document), 0);
    QCOMPARE(int(document.sections().size()), 1);
    QCOMPARE(document.sections().front().row, section);
    for (std::size_t i = std::size_t(row); i < rows.size() && (i == std::size_t(row) || rows[i].place > 1); ++i) {
        const auto found = std::find_if(document.facts().begin(), document.facts().end(),
                                        [&](const Fact &candidate) { return candidate.row == int(i); });
        QVERIFY2(found != document.facts().end(), text.constData());
        const bool drive = name(fact.item) == QStringLiteral("drive");
        if (!drive)
            QCOMPARE(document.value(*found), sample(rows[i]));
        QCOMPARE(found->item >= 0, item != nullptr);
    }
}

TEST_WITHOUT_APPLICATION(CatalogueTest);
#include "tst_catalogue.moc"
