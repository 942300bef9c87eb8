// Compares the section table with the source tree, the texts of the sections, docs/sections.md
// and the registry calls of the sections.

#include "described_windows.h"
#include "report/section_table.h"
#include "simulated_windows.h"
#include "test_main.h"
#include "texts.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSet>
#include <algorithm>
#include <windows.h>

using namespace velkor::SystemInfo;

class SectionTableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sourceAndTestExistOnce();
    void namesAreUnique();
    void textsStartWithTheirHeadings();
    void sectionsMdIsUpToDate();
    void tableListsEveryRegistryRead_data();
    void tableListsEveryRegistryRead();
};

namespace {

QString text(const char *name)
{
    return QString::fromLatin1(name);
}

bool existsInExactlyOneOf(const QStringList &folders, const QString &file)
{
    int count = 0;
    for (const QString &folder : folders)
        count += QFile::exists(QStringLiteral(PROJECT_DIR "/") + folder + QLatin1Char('/') + file);
    return count == 1;
}

QString rootName(HKEY root)
{
    if (root == HKEY_CLASSES_ROOT)
        return QStringLiteral("HKEY_CLASSES_ROOT");
    return root == HKEY_CURRENT_USER ? QStringLiteral("HKEY_CURRENT_USER") : QStringLiteral("HKEY_LOCAL_MACHINE");
}

/// The rows of docs/sections.md: name, first line of the heading, and source file of each section.
QByteArray sectionRows()
{
    QByteArray rows;
    for (const Section &section : SectionTable()) {
        const QByteArray firstLine = QByteArray(section.heading).split('\n').constFirst();
        rows += QByteArray("| `") + section.name + "` | " + (firstLine.isEmpty() ? QByteArray("none") : '`' + firstLine + '`')
            + " | `" + section.file + "` |\n";
    }
    return rows;
}

/// Whether \a read includes the key at \a path. \a path starts with the root name.
bool includesKey(const RegistryRead &read, const QString &path)
{
    const QStringList patterns = (rootName(read.root) + QLatin1Char('\\') + read.path).split(QLatin1Char('\\'));
    const QStringList names = path.split(QLatin1Char('\\'));
    if (patterns.size() != names.size())
        return false;
    for (int i = 0; i < names.size(); ++i) {
        if (patterns.at(i) != QLatin1String("*") && patterns.at(i).compare(names.at(i), Qt::CaseInsensitive) != 0)
            return false;
    }
    return true;
}

bool includesValue(const RegistryRead &read, const simulated::Call &call)
{
    if (read.values.contains(QStringLiteral("*")))
        return true;
    if (call.name == "RegEnumValueA")
        return false;
    return !call.name.startsWith("RegQueryValue") || read.values.contains(call.value);
}

bool isRegistryRead(const simulated::Call &call)
{
    return call.name.startsWith("RegOpenKey") || call.name.startsWith("RegQueryValue") || call.name.startsWith("RegEnum");
}

} // namespace

void SectionTableTest::sourceAndTestExistOnce()
{
    for (const Section &section : SectionTable()) {
        const QString file = text(section.file) + QStringLiteral(".cpp");
        QVERIFY2(existsInExactlyOneOf({"src/win", "src/qt", "src/opengl"}, file), qPrintable(file));
        QVERIFY2(existsInExactlyOneOf({"tests/sections"}, QStringLiteral("tst_") + file), qPrintable(file));
    }
}

void SectionTableTest::namesAreUnique()
{
    QSet<QString> names;
    for (const Section &section : SectionTable()) {
        QVERIFY2(!names.contains(text(section.name)), section.name);
        names += text(section.name);
    }
}

void SectionTableTest::textsStartWithTheirHeadings()
{
    const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
    for (const Section &section : SectionTable()) {
        if (section.part != Part::OpenGL) // needs a display
            QVERIFY2(section.text().startsWith(text(section.heading)), section.name);
    }
}

// If the environment variable UPDATE_DOCUMENTS is set, the test writes docs/sections.md and does not
// compare it.
void SectionTableTest::sectionsMdIsUpToDate()
{
    QFile document(QStringLiteral(PROJECT_DIR "/docs/sections.md"));
    QVERIFY(document.open(QIODevice::ReadWrite));
    const QByteArray text = document.readAll();
    const int list = text.indexOf("| `");
    QVERIFY(list > 0);
    const QByteArray expected = text.left(list) + sectionRows();
    if (qEnvironmentVariableIsSet("UPDATE_DOCUMENTS"))
        QVERIFY(document.resize(0) && document.seek(0) && document.write(expected) == expected.size());
    else
        COMPARE_TEXT(QString::fromUtf8(text), QString::fromUtf8(expected));
}

void SectionTableTest::tableListsEveryRegistryRead_data()
{
    QTest::addColumn<QString>("machine");
    QTest::addColumn<int>("row");
    const QStringList machines = QDir(QStringLiteral(MACHINES_DIR)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &machine : machines) {
        int row = 0;
        for (const Section &section : SectionTable()) {
            if (section.part == Part::Windows)
                QTest::newRow(qPrintable(machine + QLatin1Char(' ') + text(section.name))) << machine << row;
            ++row;
        }
    }
}

// vkcapture copies the keys and values that the table lists, so the table must list every key and
// value that a section reads.
void SectionTableTest::tableListsEveryRegistryRead()
{
    QFETCH(QString, machine);
    QFETCH(int, row);
    const Section &section = SectionTable().begin()[row];
    const DescribedWindows windows(DescribedWindows::load(machine));
    const RegistryReads reads = section.reads ? section.reads() : RegistryReads();
    section.text();
    for (const simulated::Call &call : simulated::journal()) {
        if (!isRegistryRead(call))
            continue;
        const bool listed = std::any_of(reads.begin(), reads.end(), [&](const RegistryRead &read) {
            return includesKey(read, call.key) && includesValue(read, call);
        });
        QVERIFY2(listed, qPrintable(text(call.name) + QLatin1Char(' ') + call.key + QLatin1Char(' ') + call.value));
    }
}

TEST_WITH_APPLICATION(SectionTableTest);
#include "tst_section_table.moc"
