// userName()

#include "section_rows.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "unterminated_texts.h"
#endif

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(userName, "");
const QString label = "User name:                    ";

Described named(const QByteArray &name)
{
    return {"", "{\"GetUserName\": \"" + name + "\"}"};
}

void nameRows()
{
    rows.text("a name", named("jl"), label + "jl\n");
    rows.text("an empty name: only the label", named(""), label + "\n");
    rows.text("255 characters fit", named(QByteArray(255, 'u')), label + QString(255, 'u') + "\n");
    rows.text("256 characters: no line", named(QByteArray(256, 'u')), "");
    rows.text("far more characters: no line", named(QByteArray(5000, 'u')), "");
    rows.text("a character outside ASCII", named("J\xc3\xb6rn"), label + "J" + QChar(0xf6) + "rn\n");
    rows.text("a surrogate pair", named(R"(\ud83d\ude00)"), label + QChar(0xd83d) + QChar(0xde00) + "\n");
    rows.text("a leading U+FEFF is a character", named(R"(\ufeffjl)"), label + QChar(0xfeff) + "jl\n");
    rows.text("blanks are not removed", named(" j l "), label + " j l \n");
    rows.text("a placeholder is not replaced", named("%1 %2"), label + "%1 %2\n");
    rows.text("an empty machine: no line", "", "");
    rows.text("a failing call: no line", {"", "{\"GetUserName\": {\"error\": 5}}"}, "");
}

#ifdef SIMULATED_WINDOWS

// The section removes the last unit only if it is U+0000.
void unterminatedRows()
{
    const auto withoutTerminator = [] {
        const simulated::UnterminatedTexts texts;
        return userName();
    };
    const SectionRows unterminated(withoutTerminator, label);
    unterminated.text("without a terminator: all units belong to the name", named("jl"), "jl\n");
    unterminated.text("without a terminator: no unit", named(""), "\n");
    unterminated.text("without a terminator: 256 units fill the buffer", named(QByteArray(256, 'u')), QString(256, 'u') + "\n");
}

#endif

void sameAsWindows()
{
    WCHAR name[256] = {};
    DWORD size = 256;
    QVERIFY(GetUserNameW(name, &size));
    COMPARE_TEXT(userName(), label + QString::fromWCharArray(name) + "\n");
}

void addRows()
{
    if (!windowsIsSimulated)
        return addTestRow("same as Windows", sameAsWindows);
    nameRows();
#ifdef SIMULATED_WINDOWS
    unterminatedRows();
#endif
    rows.withoutMachine("");
    rows.calls("calls", named("jl"), "GetUserNameW 256\n");
    rows.failure("the call fails: no line", named("jl"), "GetUserNameW", 0, "");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
