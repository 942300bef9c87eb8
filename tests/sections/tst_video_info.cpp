// videoInfoFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(videoInfoFromRegistry, ">>> Info about video from registry:\n\n");

/// The line "[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Video<path>]" of registry.reg.
QByteArray videoKey(const QByteArray &path = QByteArray())
{
    return machineKey("SYSTEM\\CurrentControlSet\\Control\\Video" + path);
}

/// One adapter with one configuration, 0000. "Video" is enumerated last, so the section does not
/// repeat the block of 0000.
QByteArray configuration(const QByteArray &values)
{
    return videoKey("\\{A}\\Video") + videoKey("\\{A}\\0000") + values;
}
QByteArray allValues()
{
    return numberValue("OpenGLFlagsWoW", 3) + numberValue("OpenGLFlags", 16) + numberValue("OpenGLVersionWoW", 2)
        + numberValue("OpenGLVersion", 1) + listValue("OpenGLDriverNameWow", {"g32.dll", "h32.dll"})
        + listValue("OpenGLDriverName", {"g64.dll"}) + textValue("ReleaseVersion", "20.1")
        + textValue("ProviderName", "Acme")
        + textValue("DriverDate", "7-1-2021") + textValue("DriverVersion", "27.20") + textValue("DriverDesc", "Acme 9")
        + numberValue("HardwareInformation.MemorySize", 0x40000000)
        + binaryValue("HardwareInformation.DacType", utf16Data("Internal"))
        + binaryValue("HardwareInformation.ChipType", utf16Data("Nine"))
        + binaryValue("HardwareInformation.BiosString", utf16Data("1.0.5"))
        + binaryValue("HardwareInformation.AdapterString", utf16Data("Acme Nine"))
        + listValue("InstalledDisplayDrivers", {"a", "b"}) + textValue("Device Description", "Acme Graphics 9");
}

const QStringList allLines = {"   Device Description: Acme Graphics 9\n",
                              "   Installed Display Drivers: a b\n",
                              "   AdapterString: Acme Nine\n",
                              "   BiosString: 1.0.5\n",
                              "   ChipType:  Nine\n",
                              "   DacType:  Internal\n",
                              "   Video Memory: 1.0 GByte\n",
                              "   Driver Description: Acme 9\n",
                              "   Driver Version: 27.20\n",
                              "   Driver Date: 7-1-2021\n",
                              "   Provider Name: Acme\n",
                              "   Release Version: 20.1\n",
                              "   OpenGL Driver Name: g64.dll\n",
                              "   OpenGL Driver Name WoW: g32.dll h32.dll\n",
                              "   OpenGL Version: 1 = 0x1\n",
                              "   OpenGL Version WoW: 2 = 0x2\n",
                              "   OpenGL Flags: 16 = 0x10\n",
                              "   OpenGL Flags WoW: 3 = 0x3\n"};

void enumerationRows()
{
    const QByteArray service = videoKey("\\{A}\\Video") + textValue("Service", "acmegfx");
    rows.text("no key: the heading and an empty line", "", "");
    rows.text("no adapter", videoKey(), "");
    rows.text("an adapter without sub-keys", videoKey("\\{A}"), "");
    rows.text("0000 and Video: service and one block",
              videoKey("\\{A}\\0000") + textValue("DriverDate", "1") + service,
              "### Service: acmegfx\n0000\n   Driver Date: 1\n");
    rows.text("Quirk: 0000 alone: its block is repeated", videoKey("\\{A}\\0000") + textValue("DriverDate", "1"),
              "0000\n   Driver Date: 1\n0000\n   Driver Date: 1\n");
    rows.text("Quirk: 0000 and 0001: the block of 0001 is repeated",
              videoKey("\\{A}\\0001") + textValue("DriverDate", "b") + videoKey("\\{A}\\0000"),
              "0000\n0001\n   Driver Date: b\n0001\n   Driver Date: b\n");
    rows.text("0000, 0001 and Video: one block each",
              videoKey("\\{A}\\0000") + videoKey("\\{A}\\0001") + videoKey("\\{A}\\Video"), "0000\n0001\n");
    rows.text("only Video: service and no block", service, "### Service: acmegfx\n");
    rows.text("Video without the value Service: no line",
              videoKey("\\{A}\\Video") + textValue("Device Description", "x"), "");
    rows.text("the key name VIDEO is compared without case",
              videoKey("\\{A}\\VIDEO") + textValue("Service", "s") + textValue("DriverDate", "1") + videoKey("\\{A}\\0000"),
              "### Service: s\n0000\n");
    rows.text("the key name video is compared without case", videoKey("\\{A}\\video") + textValue("Service", "s"),
              "### Service: s\n");
    rows.text("Quirk: the last key is not Video: its block is repeated",
              service + videoKey("\\{A}\\Volatile") + textValue("DriverDate", "1") + videoKey("\\{A}\\0000"),
              "### Service: acmegfx\n0000\nVolatile\n   Driver Date: 1\nVolatile\n   Driver Date: 1\n");
    rows.text("Quirk: Video0 alone is a configuration: its block is repeated", videoKey("\\{A}\\Video0"),
              "Video0\nVideo0\n");
    rows.text("two adapters, in the order of their names",
              videoKey("\\{B}\\Video") + textValue("Service", "b") + videoKey("\\{B}\\0000") + videoKey("\\{A}\\0000"),
              "0000\n0000\n### Service: b\n0000\n");
    rows.text("an adapter without sub-keys does not repeat the last key of the previous adapter",
              videoKey("\\{A}\\0000") + videoKey("\\{B}"), "0000\n0000\n");
    rows.text("a service of 0 bytes", videoKey("\\{A}\\Video") + hexValue("Service", REG_SZ, ""), "### Service: \n");
    rows.text("placeholders in the service are not replaced", videoKey("\\{A}\\Video") + textValue("Service", "%1"),
              "### Service: %1\n");
    rows.text("a service ends at its first null",
              videoKey("\\{A}\\Video") + hexValue("Service", REG_SZ, utf16Data(QString("ab") + QChar() + "cd")),
              "### Service: ab\n");
    rows.text("placeholders in a key name are not replaced", configuration("") + videoKey("\\{A}\\%1"), "%1\n0000\n");
}

void deniedRows()
{
    const auto row = [](const char *name, const QByteArray &registry, const QByteArrayList &denied, const QString &blocks) {
        rows.text(name, {registry, deniedBelow("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Video", denied)},
                  blocks);
    };
    const auto key = [](const QByteArray &path, const char *date) { return videoKey(path) + textValue("DriverDate", date); };
    const auto block = [](const char *name, const char *date) {
        return QString(name) + "\n   Driver Date: " + date + '\n';
    };
    const QByteArray keys = key("\\{A}\\0000", "a") + key("\\{A}\\0001", "b") + key("\\{A}\\0002", "c");
    row("denied first key: the last block is repeated", keys, {"{A}\\0000"},
        block("0001", "b") + block("0002", "c") + block("0002", "c"));
    row("denied middle key: the last block is repeated", keys, {"{A}\\0001"},
        block("0000", "a") + block("0002", "c") + block("0002", "c"));
    row("denied last key: no repeated block, because the key cannot be opened again either", keys, {"{A}\\0002"},
        block("0000", "a") + block("0001", "b"));
    row("all configuration keys denied", keys, {"{A}\\0000", "{A}\\0001", "{A}\\0002"}, "");
    row("denied key Video of an adapter: no service, no repeated block",
        key("\\{A}\\0000", "a") + videoKey("\\{A}\\Video") + textValue("Service", "s"), {"{A}\\Video"}, block("0000", "a"));
    const QByteArray adapters = key("\\{A}\\0000", "a") + videoKey("\\{A}\\Video") + key("\\{B}\\0000", "b")
        + videoKey("\\{B}\\Video") + key("\\{C}\\0000", "c") + videoKey("\\{C}\\Video");
    row("denied first adapter", adapters, {"{A}"}, block("0000", "b") + block("0000", "c"));
    row("denied middle adapter", adapters, {"{B}"}, block("0000", "a") + block("0000", "c"));
    row("denied last adapter", adapters, {"{C}"}, block("0000", "a") + block("0000", "b"));
    row("denied key Control\\Video", adapters, {""}, "");
}

/// Adds a row for an adapter with one configuration that has \a values.
void addValues(const QString &name, const QByteArray &values, const QString &lines)
{
    rows.text(name, configuration(values), "0000\n" + lines);
}

void valueRows()
{
    addValues("all values, in the order of the report", allValues(), allLines.join(QString()));
    addValues("no values", "", "");
    addValues("only device description", textValue("Device Description", "x"), "   Device Description: x\n");
    addValues("only driver description", textValue("DriverDesc", "x"), "   Driver Description: x\n");
    addValues("only driver version", textValue("DriverVersion", "x"), "   Driver Version: x\n");
    addValues("only driver date", textValue("DriverDate", "x"), "   Driver Date: x\n");
    addValues("only provider name", textValue("ProviderName", "x"), "   Provider Name: x\n");
    addValues("only release version", textValue("ReleaseVersion", "x"), "   Release Version: x\n");
    addValues("a character outside the code page", textValue("DriverDesc", QString(QChar(0x4e00))),
              QString("   Driver Description: ") + QChar(0x4e00) + '\n');
    addValues("U+FEFF is a character", textValue("DriverDesc", QChar(0xfeff) + QString("x")),
              "   Driver Description: " + QString(QChar(0xfeff)) + "x\n");
    addValues("U+FFFE is a character", textValue("DriverDesc", QChar(0xfffe) + QString("x")),
              "   Driver Description: " + QString(QChar(0xfffe)) + "x\n");
    addValues("a text ends at its first null", hexValue("DriverDesc", REG_SZ, utf16Data(QString("ab") + QChar() + "cd")),
              "   Driver Description: ab\n");
    addValues("a text without a terminator", hexValue("DriverDesc", REG_SZ, utf16Data("abc")), "   Driver Description: abc\n");
    addValues("a text of 5 bytes: the last byte is a character",
              hexValue("DriverDesc", REG_SZ, QByteArray("a\0b\0", 4) + "c"),
              "   Driver Description: abc\n");
    addValues("binary data is read as text", binaryValue("DriverDesc", utf16Data("ab")), "   Driver Description: ab\n");
    addValues("a text of 0 bytes does not show the previous one",
              textValue("DriverDesc", "x") + hexValue("DriverVersion", REG_SZ, ""),
              "   Driver Description: x\n   Driver Version: \n");
    addValues("a short text does not show the end of the previous one",
              textValue("DriverDesc", "long") + binaryValue("DriverVersion", utf16Data("s")),
              "   Driver Description: long\n   Driver Version: s\n");
    addValues("1024 units without a terminator are shown whole", binaryValue("DriverDesc", utf16Data(QString(1024, 'x'))),
              "   Driver Description: " + QString(1024, 'x') + '\n');
    addValues("a value of 2049 bytes: no line", binaryValue("DriverDesc", utf16Data(QString(1024, 'x')) + 'x'), "");
    addValues("placeholders are not replaced", textValue("DriverDesc", "%1 %2 %99 %L1"), "   Driver Description: %1 %2 %99 %L1\n");
    addValues("value names are case-insensitive", textValue("driverdesc", "x"), "   Driver Description: x\n");
}

// The four values that drivers store as REG_SZ or REG_BINARY. An unterminated REG_BINARY is shown with
// its null characters.
void binaryOrTextRows()
{
    const auto row = [](const char *name, DWORD type, const QByteArray &data, const QString &text) {
        QByteArray values;
        for (const char *value : {"AdapterString", "BiosString", "ChipType", "DacType"})
            values += hexValue(QByteArray("HardwareInformation.") + value, type, data);
        addValues(name, values,
                  "   AdapterString: " + text + "\n   BiosString: " + text + "\n   ChipType:  " + text + "\n   DacType:  " + text
                      + '\n');
    };
    const QChar null;
    row("binary, 10 bytes without a null: 5 characters", REG_BINARY, utf16Data("abcde"), "abcde");
    row("binary, 12 bytes with a null at the end: up to it", REG_BINARY, utf16Data(QString("abcde") + null), "abcde");
    row("binary, two nulls, one at the end: up to the first", REG_BINARY,
        utf16Data(QString("ab") + null + "cd" + null), "ab");
    row("binary, a null inside but not at the end: all units including the null", REG_BINARY, utf16Data(QString("ab") + null + "cd"),
        QString("ab") + null + "cd");
    row("binary, no bytes: an empty text", REG_BINARY, "", "");
    row("binary, one byte: an empty text", REG_BINARY, "a", "");
    row("binary, two bytes: one character", REG_BINARY, utf16Data("a"), "a");
    row("binary, a null alone: an empty text", REG_BINARY, QByteArray(2, '\0'), "");
    row("binary, three bytes: one character", REG_BINARY, utf16Data("a") + 'x', "a");
    row("binary, a null unit and one more byte: an empty text", REG_BINARY, QByteArray(2, '\0') + 'x', "");
    row("binary, an odd byte after a null: up to the null", REG_BINARY, utf16Data(QString("ab") + null) + 'x', "ab");
    row("binary, an odd byte after a character: omitted", REG_BINARY, utf16Data("ab") + 'x', "ab");
    row("binary, an odd byte and a null inside: all whole units", REG_BINARY, utf16Data(QString("a") + null + "b") + 'x',
        QString("a") + null + "b");
    row("binary, 2048 bytes without a null", REG_BINARY, utf16Data(QString(1024, 'x')), QString(1024, 'x'));
    row("binary, a byte-order mark", REG_BINARY, utf16Data(QChar(0xfeff) + QString("a")), QChar(0xfeff) + QString("a"));
    row("binary, placeholders are not replaced", REG_BINARY, utf16Data("%1 %2 %99"), "%1 %2 %99");
    row("text with its terminator", REG_SZ, utf16Data(QString("abc") + null), "abc");
    row("text without a terminator", REG_SZ, utf16Data("abc"), "abc");
    row("text with a null inside: up to it", REG_SZ, utf16Data(QString("ab") + null + "cd"), "ab");
    row("text of 0 bytes", REG_SZ, "", "");
    row("text of 5 bytes: the last byte is a character", REG_SZ, utf16Data("ab") + 'c', "abc");
    row("a REG_MULTI_SZ: the first string", REG_MULTI_SZ, utf16Data(QString("a") + null + "b" + null + null), "a");
    row("a REG_DWORD: its bytes are the text", REG_DWORD, utf16Data("ab"), "ab");
    row("a REG_QWORD with a null inside: up to the null", REG_QWORD, utf16Data(QString("ab") + null + "c"), "ab");
}

/// Adds one row in which all three REG_MULTI_SZ values have \a data.
void addLists(const QString &name, DWORD type, const QByteArray &data, const QString &text)
{
    QByteArray values;
    for (const char *value : {"InstalledDisplayDrivers", "OpenGLDriverName", "OpenGLDriverNameWow"})
        values += hexValue(value, type, data);
    addValues("list: " + name, values,
              "   Installed Display Drivers: " + text + "\n   OpenGL Driver Name: " + text + "\n   OpenGL Driver Name WoW: "
                  + text + '\n');
}

void listRows()
{
    const auto row = [](const QString &name, DWORD type, const QString &data, const QString &text) {
        addLists(name, type, utf16Data(data), text);
    };
    const QChar null;
    row("two strings are joined by a space", REG_MULTI_SZ, QString("a") + null + "b" + null + null, "a b");
    row("one string", REG_MULTI_SZ, QString("a") + null + null, "a");
    row("no string", REG_MULTI_SZ, QString(null), "");
    row("no bytes", REG_MULTI_SZ, "", "");
    row("a string of spaces does not end the list", REG_MULTI_SZ, QString(" ") + null + " b" + null + null, "   b");
    row("an empty string inside ends the list", REG_MULTI_SZ, QString("a") + null + null + "c" + null + null, "a");
    row("an empty first string: no text", REG_MULTI_SZ, null + QString("a") + null + null, "");
    row("no null after the last string", REG_MULTI_SZ, QString("a") + null + "bc", "a bc");
    row("without the second terminating null", REG_MULTI_SZ, QString("a") + null + "bc" + null, "a bc");
    row("the type REG_SZ is ignored", REG_SZ, QString("a.dll") + null, "a.dll");
    row("the type REG_BINARY is ignored", REG_BINARY, QString("a") + null + "b", "a b");
    row("1024 units without a null", REG_MULTI_SZ, QString(1024, 'x'), QString(1024, 'x'));
    row("two strings of together 1024 units, the second unterminated", REG_BINARY, QString(1022, 'x') + null + 'y',
        QString(1022, 'x') + " y");
    row("placeholders are not replaced", REG_MULTI_SZ, QString("%1") + null + "%2" + null + null, "%1 %2");
    addLists("of 5 bytes: the last byte is a character", REG_BINARY, utf16Data("ab") + 'c', "abc");
}

void memoryRows()
{
    const auto row = [](const char *name, const QByteArray &values, const QString &lines) {
        addValues(QString("memory size: ") + name, values, lines);
    };
    const auto wide = [](const QByteArray &bytes) {
        return hexValue("HardwareInformation.qwMemorySize", REG_QWORD, bytes);
    };
    const QByteArray eightGigabytes = wide(QByteArray("\0\0\0\0\2\0\0\0", 8));
    const QByteArray oneGigabyte = numberValue("HardwareInformation.MemorySize", 0x40000000);
    row("neither value: no line", "", "");
    row("only the 64-bit value", eightGigabytes, "   Video Memory: 8.0 GByte\n");
    row("only the 32-bit value", oneGigabyte, "   Video Memory: 1.0 GByte\n");
    row("both values: the 64-bit value is used", oneGigabyte + eightGigabytes, "   Video Memory: 8.0 GByte\n");
    row("a 64-bit value of 0 is used, not the 32-bit value", wide(QByteArray(8, '\0')) + oneGigabyte,
        "   Video Memory: 0 Byte\n");
    row("the largest 64-bit value", wide(QByteArray(8, '\xff')), "   Video Memory: 17179869183.9 GByte\n");
    row("a 64-bit value of four bytes", wide(QByteArray("\0\0\0\x40", 4)), "   Video Memory: 1.0 GByte\n");
    row("a 64-bit value of 0 bytes", wide(""), "   Video Memory: 0 Byte\n");
    row("a 64-bit value of nine bytes: the 32-bit value is used", wide(QByteArray(9, '\1')) + oneGigabyte,
        "   Video Memory: 1.0 GByte\n");
    row("only a 64-bit value of nine bytes: no line", wide(QByteArray(9, '\1')), "");
    row("the 32-bit value is unsigned", numberValue("HardwareInformation.MemorySize", 0xffffffff),
        "   Video Memory: 3.9 GByte\n");
    row("a 32-bit value of type REG_BINARY", binaryValue("HardwareInformation.MemorySize", QByteArray("\0\0\x60\0", 4)),
        "   Video Memory: 6.0 MByte\n");
    row("a 32-bit value of two bytes", binaryValue("HardwareInformation.MemorySize", QByteArray("\0\6", 2)),
        "   Video Memory: 1.5 KByte\n");
    row("a 32-bit value of eight bytes: no line", binaryValue("HardwareInformation.MemorySize", QByteArray(8, '\1')), "");
}

void numberRows()
{
    addValues("only OpenGL version", numberValue("OpenGLVersion", 16), "   OpenGL Version: 16 = 0x10\n");
    addValues("only OpenGL version of WoW", numberValue("OpenGLVersionWoW", 16), "   OpenGL Version WoW: 16 = 0x10\n");
    addValues("only OpenGL flags", numberValue("OpenGLFlags", 16), "   OpenGL Flags: 16 = 0x10\n");
    addValues("only OpenGL flags of WoW", numberValue("OpenGLFlagsWoW", 16), "   OpenGL Flags WoW: 16 = 0x10\n");
    addValues("OpenGLFlags 0", numberValue("OpenGLFlags", 0), "   OpenGL Flags: 0 = 0x0\n");
    addValues("OpenGLFlags 0xffffffff: unsigned, hexadecimal digits in lower case", numberValue("OpenGLFlags", 0xffffffff),
              "   OpenGL Flags: 4294967295 = 0xffffffff\n");
    addValues("OpenGLFlags of two bytes: the high bytes are 0", binaryValue("OpenGLFlags", "\x01\x02"),
              "   OpenGL Flags: 513 = 0x201\n");
    addValues("OpenGLFlags of 0 bytes: 0, not the previous number",
              numberValue("OpenGLVersion", 7) + hexValue("OpenGLFlags", REG_DWORD, ""),
              "   OpenGL Version: 7 = 0x7\n   OpenGL Flags: 0 = 0x0\n");
    addValues("OpenGLFlagsWoW of one byte: the high bytes are 0, not those of the previous number",
              numberValue("OpenGLFlags", 0xffffffff) + binaryValue("OpenGLFlagsWoW", "\x05"),
              "   OpenGL Flags: 4294967295 = 0xffffffff\n   OpenGL Flags WoW: 5 = 0x5\n");
    addValues("OpenGLFlags of five bytes: no line", binaryValue("OpenGLFlags", QByteArray(5, '\1')), "");
    addValues("OpenGLFlags of type REG_SZ, one character: its bytes are the number", textValue("OpenGLFlags", "1"),
              "   OpenGL Flags: 49 = 0x31\n");
    addValues("OpenGLFlags of type REG_SZ, two characters: no line", textValue("OpenGLFlags", "12"), "");
}

void callRows()
{
    QString journal = R"(RegOpenKeyExA ... 0x20019
RegEnumKeyExA ... "0" 2048
RegOpenKeyExA ...\{A} 0x20019
RegOpenKeyExA ...\{A}\Video 0x20019
RegQueryValueExW ...\{A}\Video "Service" 2048
RegCloseKey ...\{A}\Video
RegEnumKeyExA ...\{A} "0" 2048
RegOpenKeyExA ...\{A}\0000 0x20019
RegQueryValueExW ...\{A}\0000 "Device Description" 2048
RegQueryValueExW ...\{A}\0000 "InstalledDisplayDrivers" 2048
RegQueryValueExW ...\{A}\0000 "HardwareInformation.AdapterString" 2048
RegQueryValueExW ...\{A}\0000 "HardwareInformation.BiosString" 2048
RegQueryValueExW ...\{A}\0000 "HardwareInformation.ChipType" 2048
RegQueryValueExW ...\{A}\0000 "HardwareInformation.DacType" 2048
RegQueryValueExA ...\{A}\0000 "HardwareInformation.qwMemorySize" 8
RegQueryValueExA ...\{A}\0000 "HardwareInformation.MemorySize" 4
RegQueryValueExW ...\{A}\0000 "DriverDesc" 2048
RegQueryValueExW ...\{A}\0000 "DriverVersion" 2048
RegQueryValueExW ...\{A}\0000 "DriverDate" 2048
RegQueryValueExW ...\{A}\0000 "ProviderName" 2048
RegQueryValueExW ...\{A}\0000 "ReleaseVersion" 2048
RegQueryValueExW ...\{A}\0000 "OpenGLDriverName" 2048
RegQueryValueExW ...\{A}\0000 "OpenGLDriverNameWow" 2048
RegQueryValueExW ...\{A}\0000 "OpenGLVersion" 4
RegQueryValueExW ...\{A}\0000 "OpenGLVersionWoW" 4
RegQueryValueExW ...\{A}\0000 "OpenGLFlags" 4
RegQueryValueExW ...\{A}\0000 "OpenGLFlagsWoW" 4
RegCloseKey ...\{A}\0000
RegEnumKeyExA ...\{A} "1" 2048
RegOpenKeyExA ...\{A}\Video 0x20019
RegCloseKey ...\{A}\Video
RegEnumKeyExA ...\{A} "2" 2048
RegOpenKeyExA ...\{A}\Video 0x20019
RegCloseKey ...\{A}\Video
RegCloseKey ...\{A}
RegEnumKeyExA ... "1" 2048
RegCloseKey ...
)";
    rows.calls("calls for an adapter with all values", configuration(allValues()),
               journal.replace("...", "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Video"));
}

void failureRows()
{
    // Two adapters, of which only the first has the key "Video".
    const Described machine = configuration(allValues()) + videoKey("\\{A}\\Video") + textValue("Service", "acmegfx")
        + videoKey("\\{B}\\0000");
    const auto row = [&](const char *name, const char *call, int number, const QString &blocks) {
        rows.failure(name, machine, call, number, blocks);
    };
    const QString service = "### Service: acmegfx\n";
    const QString first = "0000\n" + allLines.join(QString());
    const QString second = "0000\n0000\n";
    const QString full = service + first + second;
    row("the key Control\\Video cannot be opened: only the heading", "RegOpenKeyExA", 0, "");
    row("an adapter cannot be opened: the next one follows", "RegOpenKeyExA", 1, second);
    row("the key Video of an adapter cannot be opened: no service", "RegOpenKeyExA", 2, first + second);
    row("a configuration cannot be opened", "RegOpenKeyExA", 3, service + second);
    row("the enumeration of adapters fails at its start", "RegEnumKeyExA", 0, "");
    row("the enumeration of configurations fails at its start", "RegEnumKeyExA", 1, service + second);
    row("the enumeration of configurations fails after the first: its block is repeated", "RegEnumKeyExA", 2,
        service + first + first + second);
    row("the enumeration of adapters fails after the first", "RegEnumKeyExA", 4, service + first);
    row("the query of Service fails", "RegQueryValueExW", 0, first + second);
    const QString start = service + "0000\n";
    const QString memory = allLines.at(6);
    const QStringList after = allLines.mid(7);
    rows.failures(machine, "RegQueryValueExW", 1, allLines.mid(0, 6),
                  {"the query of Device Description fails", "the query of InstalledDisplayDrivers fails",
                   "the query of AdapterString fails", "the query of BiosString fails", "the query of ChipType fails",
                   "the query of DacType fails"},
                  start, memory + after.join(QString()) + second);
    row("the query of qwMemorySize fails: MemorySize is used", "RegQueryValueExA", 0, full);
    rows.failures(machine, "RegQueryValueExA", 1, {memory}, {"the query of MemorySize fails"},
                  start + QStringList(allLines.mid(0, 6)).join(QString()), after.join(QString()) + second);
    rows.failures(machine, "RegQueryValueExW", 7, after,
                  {"the query of DriverDesc fails", "the query of DriverVersion fails", "the query of DriverDate fails",
                   "the query of ProviderName fails", "the query of ReleaseVersion fails",
                   "the query of OpenGLDriverName fails", "the query of OpenGLDriverNameWow fails",
                   "the query of OpenGLVersion fails", "the query of OpenGLVersionWoW fails",
                   "the query of OpenGLFlags fails", "the query of OpenGLFlagsWoW fails"},
                  start + QStringList(allLines.mid(0, 7)).join(QString()), second);
    row("a configuration cannot be closed: the text is unchanged", "RegCloseKey", 1, full);
    rows.anyFailure("each call fails in turn", machine);
}

void addRows()
{
    enumerationRows();
    deniedRows();
    valueRows();
    binaryOrTextRows();
    listRows();
    memoryRows();
    numberRows();
    if (windowsIsSimulated)
        rows.text("keys named U+00E4 cannot be opened: the name in the code page is decoded as UTF-8",
                  videoKey("\\\xc3\xa4\\0000") + videoKey("\\{A}\\0000") + videoKey("\\{A}\\\xc3\xa4"), "0000\n");
    callRows();
    failureRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
