// internetExplorerInfo()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(internetExplorerInfo, "Internet Explorer information from Registry\n");

const QString noKey = "<failed to open registry key '%1'";
const QString noVersion = "<could neither read 'Version' nor 'IVer' for Explorer>";
const QString noBuild = "<could not read build number>";

QByteArray key()
{
    return machineKey("Software\\Microsoft\\Internet Explorer");
}

QString versionLine(const QString &version)
{
    return "Version:           " + version + "\n";
}

void addRow(const char *name, const QByteArray &values, const QString &version, const QString &otherLines = QString())
{
    rows.text(name, key() + values, versionLine(version) + otherLines);
}

const QString updateLine = "Update Version:    11.0.1000\n";
const QString kbLine = "KBNumber:          KB5031355\n";
const QString w2kLine = "W2kVersion:        9.11.19041.0\n";

QByteArray serviceValues()
{
    return textValue("W2kVersion", "9.11.19041.0") + textValue("svcKBNumber", "KB5031355")
        + textValue("svcUpdateVersion", "11.0.1000");
}

QByteArray versions()
{
    return textValue("Version", "9.11.19041.0") + textValue("svcVersion", "11.789.19041.0");
}

void versionRows()
{
    addRow("only version", textValue("Version", "6.0.2900"), "6.0.2900");
    addRow("svcVersion precedes Version", versions(), "11.789.19041.0");
    addRow("service version and all service lines", versions() + serviceValues(), "11.789.19041.0",
           updateLine + kbLine + w2kLine);
    addRow("service version and update version", versions() + textValue("svcUpdateVersion", "11.0.1000"),
           "11.789.19041.0", updateLine);
    addRow("service version and KB number", versions() + textValue("svcKBNumber", "KB5031355"), "11.789.19041.0", kbLine);
    addRow("service version and W2kVersion", versions() + textValue("W2kVersion", "9.11.19041.0"), "11.789.19041.0",
           w2kLine);
    addRow("no svcVersion: no service line, not even W2kVersion",
           textValue("Version", "6.0.2900") + serviceValues(), "6.0.2900");
    addRow("svcVersion without Version is ignored", textValue("svcVersion", "11.0") + serviceValues(),
           noVersion);
    addRow("Version precedes IVer and Build",
           textValue("Version", "6.0.2900") + textValue("IVer", "102") + textValue("Build", "520"), "6.0.2900");
    addRow("empty version", textValue("Version", ""), "");
    addRow("an empty svcVersion precedes Version", textValue("Version", "9.0") + textValue("svcVersion", ""), "");
    addRow("empty service values: only the labels",
           versions() + textValue("svcUpdateVersion", "") + textValue("svcKBNumber", "") + textValue("W2kVersion", ""),
           "11.789.19041.0", "Update Version:    \nKBNumber:          \nW2kVersion:        \n");
    addRow("neither version nor IVer", textValue("Build", "520"), noVersion);
    addRow("an empty key", "", noVersion);
}

void textRows()
{
    addRow("placeholders in the version are not replaced", textValue("Version", "%1 %2 %99 %L1"), "%1 %2 %99 %L1");
    addRow("placeholders in the service values are not replaced",
           textValue("Version", "9.0") + textValue("svcVersion", "%1") + textValue("svcUpdateVersion", "%2 %1")
               + textValue("svcKBNumber", "%99") + textValue("W2kVersion", "%L1"),
           "%1", "Update Version:    %2 %1\nKBNumber:          %99\nW2kVersion:        %L1\n");
    addRow("a REG_DWORD: its bytes are the text", numberValue("Version", 0x00302e39), "9.0");
    addRow("text is decoded as UTF-8", binaryValue("Version", "9\xc3\xa9"), QString("9") + QChar(0xe9));
    addRow("a byte that is not UTF-8 becomes U+FFFD", binaryValue("Version", "9\xe9!"),
           QString("9") + QChar(0xfffd) + "!");
    addRow("a version of 2048 bytes without a terminator is shown whole", binaryValue("Version", QByteArray(2048, 'x')),
           QString(2048, 'x'));
    addRow("svcVersion does not fit: Version, no service line",
           textValue("Version", "9.0") + binaryValue("svcVersion", QByteArray(2049, 'x')) + serviceValues(), "9.0");
    addRow("svcKBNumber does not fit: only its line is missing",
           versions() + textValue("svcUpdateVersion", "11.0.1000") + binaryValue("svcKBNumber", QByteArray(2049, 'x'))
               + textValue("W2kVersion", "9.11.19041.0"),
           "11.789.19041.0", updateLine + w2kLine);
}

// Quirk: all values except "Build" share one buffer, which is never cleared.
void bufferRows()
{
    addRow("an unterminated svcVersion is followed by the rest of Version",
           textValue("Version", "9.11.19041.0") + binaryValue("svcVersion", "11"), "1111.19041.0");
    addRow("svcVersion of 0 bytes shows Version", textValue("Version", "9.0") + binaryValue("svcVersion", ""),
           "9.0");
    addRow("an unterminated svcUpdateVersion is followed by the rest of svcVersion",
           versions() + binaryValue("svcUpdateVersion", "12"), "11.789.19041.0", "Update Version:    12.789.19041.0\n");
    addRow("svcKBNumber of 0 bytes shows svcUpdateVersion",
           versions() + textValue("svcUpdateVersion", "11.0.1000") + binaryValue("svcKBNumber", ""), "11.789.19041.0",
           updateLine + "KBNumber:          11.0.1000\n");
    addRow("Build has a buffer of its own", textValue("IVer", "102") + binaryValue("Build", ""),
           "2.0 (Build ) <no official known build number>");
    addRow("an unterminated Build is read into a zeroed buffer", textValue("IVer", "102") + binaryValue("Build", "52"),
           "2.0 (Build 52) <no official known build number>");
}

/// "IVer" with data of \a size bytes, so that a "Build" of that size fits.
QByteArray iverOfSize(const QByteArray &text, int size)
{
    return binaryValue("IVer", text + QByteArray(size - text.size(), '\0'));
}

void addRelease(const char *name, const QByteArray &iver, const QString &build, const QString &version)
{
    addRow(name, iverOfSize(iver, std::max(build.size(), iver.size()) + 1) + textValue("Build", build), version);
}

void releaseRows()
{
    addRow("103 without Build", textValue("IVer", "103"), "3." + noBuild);
    addRelease("103, 1155", "103", "1155", "3.0 (Build: 1155)");
    addRelease("103, 1158", "103", "1158", "3.0 (Build: 1158), Windows 95 OSR2");
    addRelease("103, 1215", "103", "1215", "3.01 (Build: 1215)");
    addRelease("103, 1300", "103", "1300", "3.02 (Build: 1300)");
    addRelease("103, another build", "103", "1301", "3.<no official released build> (Build: 1301)");
    addRelease("103, the start of a known build", "103", "115", "3.<no official released build> (Build: 115)");
    addRelease("103, more than a known build", "103", "11558", "3.<no official released build> (Build: 11558)");
    addRelease("103, the build of 102", "103", "520", "3.<no official released build> (Build: 520)");
    addRelease("103, an empty build", "103", "", "3.<no official released build> (Build: )");
    addRow("102 without Build", textValue("IVer", "102"), "2.0" + noBuild);
    addRelease("102, 520", "102", "520", "2.0 (Build 520) Windows 95");
    addRelease("102, another build", "102", "521", "2.0 (Build 521) <no official known build number>");
    addRelease("102, a build of 103", "102", "1155", "2.0 (Build 1155) <no official known build number>");
    addRelease("102, an empty build", "102", "", "2.0 (Build ) <no official known build number>");
    addRow("101 without Build", textValue("IVer", "101"), "IVer = 101 Windows NT");
    addRelease("101, Build is not shown", "101", "520", "IVer = 101 Windows NT");
    addRow("100 without Build", textValue("IVer", "100"), "1.0 (Plus! for Windows 95)");
    addRelease("100, Build is not shown", "100", "520", "1.0 (Plus! for Windows 95)");
    addRow("999 without Build", textValue("IVer", "999"), "IVer = 999 unknwon");
    addRelease("999 with Build: the placeholder is not replaced, Build is not shown", "999", "520", "IVer = 999 unknwon Build = %1");
}

void comparisonRows()
{
    addRow("an empty IVer", textValue("IVer", ""), "IVer =  unknwon");
    addRelease("an empty IVer with an empty Build", "", "", "IVer =  unknwon Build = %1");
    addRow("an IVer of 0 bytes", hexValue("IVer", REG_SZ, ""), "IVer =  unknwon");
    addRow("the start of a known IVer", textValue("IVer", "10"), "IVer = 10 unknwon");
    addRow("more than a known IVer", textValue("IVer", "1030"), "IVer = 1030 unknwon");
    addRow("a known IVer with a trailing blank", textValue("IVer", "103 "), "IVer = 103  unknwon");
    addRow("a known IVer with a leading blank", textValue("IVer", " 103"), "IVer =  103 unknwon");
    addRow("a known IVer without a terminator", binaryValue("IVer", "101"), "IVer = 101 Windows NT");
    addRow("an IVer ends at its first null", binaryValue("IVer", QByteArray("100\0"
                                                                            "9",
                                                                            5)),
           "1.0 (Plus! for Windows 95)");
    addRow("an IVer of type REG_DWORD: its bytes are the text", numberValue("IVer", 0x00303031), "1.0 (Plus! for Windows 95)");
    addRow("bytes are compared, not decoded texts", binaryValue("IVer", "\xef\xbb\xbf"
                                                                        "101"),
           "IVer = 101 unknwon");
    addRow("placeholders in IVer are not replaced", textValue("IVer", "%1 %2"), "IVer = %1 %2 unknwon");
    addRelease("placeholders in IVer are not replaced, with Build", "%1", "520", "IVer = %1 unknwon Build = %1");
    addRelease("placeholders in Build of 103 are not replaced", "103", "%1 %99", "3.<no official released build> (Build: %1 %99)");
    addRelease("placeholders in Build of 102 are not replaced", "102", "%L1", "2.0 (Build %L1) <no official known build number>");
    addRow("service values are not read", textValue("IVer", "100") + textValue("svcVersion", "11.0") + serviceValues(),
           "1.0 (Plus! for Windows 95)");
}

// Quirk: "Build" is queried with the size of the data of "IVer".
void sizeRows()
{
    addRow("103, 1155: five bytes do not fit in four", textValue("IVer", "103") + textValue("Build", "1155"),
           "3." + noBuild);
    addRow("103, 1155 without a terminator: four bytes fit",
           textValue("IVer", "103") + hexValue("Build", REG_SZ, utf16Data("1155")),
           "3.0 (Build: 1155)");
    addRow("103 without a terminator, 1155 without a terminator: four bytes do not fit in three",
           hexValue("IVer", REG_SZ, utf16Data("103")) + hexValue("Build", REG_SZ, utf16Data("1155")), "3." + noBuild);
    addRow("102, 520: four bytes fit", textValue("IVer", "102") + textValue("Build", "520"), "2.0 (Build 520) Windows 95");
    addRow("102, 5200: five bytes do not fit", textValue("IVer", "102") + textValue("Build", "5200"), "2.0" + noBuild);
    addRow("102 without a terminator, 520: four bytes do not fit in three",
           hexValue("IVer", REG_SZ, utf16Data("102")) + textValue("Build", "520"), "2.0" + noBuild);
    addRow("999, a Build that does not fit", textValue("IVer", "999") + textValue("Build", "5200"), "IVer = 999 unknwon");
    addRow("an IVer of 0 bytes: Build does not fit", hexValue("IVer", REG_SZ, "") + textValue("Build", ""), "IVer =  unknwon");
    addRow("an IVer of 0 bytes, a Build of 0 bytes", hexValue("IVer", REG_SZ, "") + hexValue("Build", REG_SZ, ""),
           "IVer =  unknwon Build = %1");
    addRow("the largest IVer", binaryValue("IVer", QByteArray(2048, 'x')) + binaryValue("Build", QByteArray(2048, 'y')),
           "IVer = " + QString(2048, 'x') + " unknwon Build = %1");
    addRow("an IVer that is too long", binaryValue("IVer", QByteArray(2049, 'x')) + textValue("Build", "520"), noVersion);
    addRow("a version that is too long: IVer is read",
           binaryValue("Version", QByteArray(2049, 'x')) + textValue("IVer", "102") + textValue("Build", "520")
               + textValue("svcVersion", "11.0"),
           "2.0 (Build 520) Windows 95");
    addRow("a Version that does not fit: IVer is queried with the size of the buffer",
           binaryValue("Version", QByteArray(4096, 'x')) + binaryValue("IVer", QByteArray(3000, 'x')), noVersion);
}

void callRows()
{
    const QString path = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Internet Explorer";
    const auto row = [&](const char *name, const QByteArray &values, const QStringList &queries) {
        rows.calls(QString("calls: ") + name, key() + values, keyCalls(path, queries));
    };
    rows.calls("calls: no key", "", openCall(path));
    row("service version: five sizes of 2048", versions() + serviceValues(),
        {"Version 2048", "svcVersion 2048", "svcUpdateVersion 2048", "svcKBNumber 2048", "W2kVersion 2048"});
    row("service version without service values", versions(),
        {"Version 2048", "svcVersion 2048", "svcUpdateVersion 2048", "svcKBNumber 2048", "W2kVersion 2048"});
    row("only version", textValue("Version", "9.0") + serviceValues(), {"Version 2048", "svcVersion 2048"});
    row("neither version nor IVer", textValue("Build", "520"), {"Version 2048", "IVer 2048"});
    row("Build with the size of IVer", textValue("IVer", "102") + textValue("Build", "520"),
        {"Version 2048", "IVer 2048", "Build 4"});
    row("Build with the size of a longer IVer", textValue("IVer", "unknown") + textValue("Build", "520"),
        {"Version 2048", "IVer 2048", "Build 8"});
    row("Build is queried even if it is not shown", textValue("IVer", "100"),
        {"Version 2048", "IVer 2048", "Build 4"});
}
void failureRows()
{
    const auto row = [](const char *name, const QByteArray &values, const char *call, int number, const QString &lines) {
        rows.failure(name, key() + values, call, number, lines);
    };
    const QByteArray full = versions() + serviceValues();
    const QByteArray old = textValue("IVer", "102") + textValue("Build", "520");
    const QString all = versionLine("11.789.19041.0") + updateLine + kbLine + w2kLine;
    row("the key cannot be opened", full, "RegOpenKeyExA", 0, noKey);
    row("version cannot be read, IVer neither", full, "RegQueryValueExA", 0, versionLine(noVersion));
    row("version cannot be read, IVer can", full + old, "RegQueryValueExA", 0, versionLine("2.0 (Build 520) Windows 95"));
    row("service version cannot be read", full, "RegQueryValueExA", 1, versionLine("9.11.19041.0"));
    row("update version cannot be read", full, "RegQueryValueExA", 2, versionLine("11.789.19041.0") + kbLine + w2kLine);
    row("KB number cannot be read", full, "RegQueryValueExA", 3, versionLine("11.789.19041.0") + updateLine + w2kLine);
    row("W2kVersion cannot be read", full, "RegQueryValueExA", 4, versionLine("11.789.19041.0") + updateLine + kbLine);
    row("IVer cannot be read", old, "RegQueryValueExA", 1, versionLine(noVersion));
    row("Build cannot be read", old, "RegQueryValueExA", 2, versionLine("2.0" + noBuild));
    row("the key cannot be closed: the text is unchanged", full, "RegCloseKey", 0, all);
}
void addRows()
{
    rows.text("no key: an unfinished line", "", noKey);
    rows.text("everything",
              key() + versions() + textValue("IVer", "102") + textValue("Build", "520") + serviceValues(),
              versionLine("11.789.19041.0") + updateLine + kbLine + w2kLine);
    versionRows();
    textRows();
    bufferRows();
    releaseRows();
    comparisonRows();
    sizeRows();
    callRows();
    failureRows();
    if (windowsIsSimulated) // a real Windows has its own ANSI code page
        addRow("a non-ASCII character, which Windows converts to the ANSI code page, becomes U+FFFD", textValue("Version", QString("9") + QChar(0xe9)), QString("9") + QChar(0xfffd));
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
