// driverInfoFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(driverInfoFromRegistry, ">>> Info about drivers from registry:\n\n");
const char rule[] = "----------------------------\n";

/// The heading of a key below that of all classes.
QByteArray classKey(const QByteArray &path = QByteArray())
{
    return machineKey("SYSTEM\\CurrentControlSet\\Control\\Class" + path);
}

/// The class "Net" with the keys of its drivers.
QByteArray netClass(const QByteArray &drivers = QByteArray())
{
    return classKey("\\{1}") + textValue("Class", "Net") + drivers;
}

/// A key of that class.
QByteArray driverKey(const QByteArray &name)
{
    return classKey("\\{1}\\" + name);
}

QByteArray driver(const QByteArray &name, const QByteArray &description)
{
    return driverKey(name) + textValue("DriverDesc", description);
}

/// The block of the class "Net": its name, \a lines and the rule.
QString netBlock(const QString &lines)
{
    return rule + ("Net:\n" + lines) + rule;
}

QByteArray allValues()
{
    return textValue("InfSectionExt", ".NT") + textValue("InfSection", "Acme.Install") + textValue("InfPath", "oem7.inf")
        + textValue("MatchingDeviceId", "pci\\ven_1234") + textValue("ProviderName", "Acme")
        + textValue("DriverDate", "7-1-2021") + textValue("DriverVersion", "12.18.9.23")
        + textValue("DriverDesc", "Acme LAN");
}

const char allLines[] = "   Driver Description: Acme LAN\n"
                        "   Driver Version:     12.18.9.23\n"
                        "   Driver Date:        7-1-2021\n"
                        "   Provider Name:      Acme\n"
                        "   Matching Device ID: pci\\ven_1234\n"
                        "   InfPath:            oem7.inf\n"
                        "   InfSection:         Acme.Install\n"
                        "   InfSectionExt:      .NT\n";

/// The line of a driver that has only a description.
QString described(const char *description)
{
    return QStringLiteral("   Driver Description: ") + description + '\n';
}

void classRows()
{
    const QByteArray second = classKey("\\{2}") + textValue("Class", "Display");
    rows.text("no key: the heading and an empty line", "", "");
    rows.text("no class", classKey(), "");
    rows.text("a class without drivers: its name between two rules", netClass(), rule + QString("Net:\n") + rule);
    rows.text("two classes: one rule between them", second + netClass(), rule + QString("Net:\n") + rule + "Display:\n" + rule);
    rows.text("a class without a name at index 0: only the opening rule", classKey("\\{1}"), rule);
    rows.text("a class without a name at index 0 before one with a name", classKey("\\{0}") + netClass(),
              rule + QString("Net:\n") + rule);
    rows.text("a class without a name after one with a name", netClass() + classKey("\\{2}"), rule + QString("Net:\n") + rule);
    rows.text("a class without a name between two with names", netClass() + classKey("\\{1}a") + second,
              rule + QString("Net:\n") + rule + "Display:\n" + rule);
    rows.text("drivers of a class without a name are not shown", classKey("\\{1}\\0000") + allValues(), rule);
    rows.text("a class without a name, but with a default value", classKey("\\{1}") + "@=\"Net\"\n", rule);
    rows.text("an empty name: only the colon", classKey("\\{1}") + textValue("Class", ""), rule + QString(":\n") + rule);
    rows.text("a name of 0 bytes", classKey("\\{1}") + hexValue("Class", REG_SZ, ""), rule + QString(":\n") + rule);
    rows.text("a name of 0 bytes does not show the previous name", netClass() + classKey("\\{2}") + hexValue("Class", REG_SZ, ""),
              rule + QString("Net:\n") + rule + ":\n" + rule);
    rows.text("a name with placeholders", classKey("\\{1}") + textValue("Class", "%1 %2"), rule + QString("%1 %2:\n") + rule);
    rows.text("a name outside the code page", classKey("\\{1}") + textValue("Class", QString(QChar(0x4e00))),
              QString(rule) + QChar(0x4e00) + ":\n" + rule);
    rows.text("a name ends at its first null", classKey("\\{1}") + hexValue("Class", REG_SZ, utf16Data(QString("a") + QChar() + "b")),
              rule + QString("a:\n") + rule);
    rows.text("a name of 1024 units without a terminator",
              classKey("\\{1}") + binaryValue("Class", utf16Data(QString(1024, 'x'))),
              rule + QString(1024, 'x') + ":\n" + rule);
    rows.text("a class whose name does not fit the buffer has no name", classKey("\\{1}") + textValue("Class", QString(1024, 'x')),
              rule);
}

/// Drivers of the class "Net".
void addDrivers(const char *name, const QByteArray &keys, const QString &lines)
{
    rows.text(name, netClass(keys), netBlock(lines));
}

void valueRows()
{
    const auto row = [](const char *name, const QByteArray &values, const QString &lines) {
        addDrivers(name, driverKey("0000") + values, lines);
    };
    row("all, in the order of the table", allValues(), allLines);
    row("none", "", "");
    row("only the description", textValue("DriverDesc", "x"), "   Driver Description: x\n");
    row("only the version", textValue("DriverVersion", "x"), "   Driver Version:     x\n");
    row("only the date", textValue("DriverDate", "x"), "   Driver Date:        x\n");
    row("only the provider", textValue("ProviderName", "x"), "   Provider Name:      x\n");
    row("only the matching device ID", textValue("MatchingDeviceId", "x"), "   Matching Device ID: x\n");
    row("only the inf file", textValue("InfPath", "x"), "   InfPath:            x\n");
    row("only the inf section", textValue("InfSection", "x"), "   InfSection:         x\n");
    row("only the inf section's extension", textValue("InfSectionExt", "x"), "   InfSectionExt:      x\n");
    row("the properties of a device class are not shown for a driver",
        numberValue("DeviceType", 7) + numberValue("DeviceCharacteristics", 256), "");
    row("an empty text", textValue("DriverDesc", ""), "   Driver Description: \n");
    row("a text without a terminator", hexValue("DriverDesc", REG_SZ, utf16Data("abc")), "   Driver Description: abc\n");
    row("a text of 0 bytes does not show the previous one",
        textValue("DriverDesc", "x") + hexValue("DriverDate", REG_SZ, ""),
        "   Driver Description: x\n   Driver Date:        \n");
    row("a short text does not show the end of the previous one",
        textValue("DriverDesc", "long") + binaryValue("DriverDate", utf16Data("s")),
        "   Driver Description: long\n   Driver Date:        s\n");
    row("a REG_DWORD: its bytes are the text", numberValue("DriverDesc", 0x00420041), "   Driver Description: AB\n");
    row("1024 units without a terminator are shown whole", binaryValue("DriverDesc", utf16Data(QString(1024, 'x'))),
        "   Driver Description: " + QString(1024, 'x') + '\n');
    row("2050 bytes have no line, and the next value is read",
        textValue("DriverDesc", QString(1024, 'x')) + textValue("InfPath", "i"), "   InfPath:            i\n");
    row("a byte-order mark is a character", textValue("DriverDesc", QChar(0xfeff) + QString("x")),
        "   Driver Description: " + QString(QChar(0xfeff)) + "x\n");
    row("placeholders are not replaced", textValue("DriverDesc", "%1 %2 %99 %L1"), "   Driver Description: %1 %2 %99 %L1\n");
}

void driverRows()
{
    addDrivers("two drivers: an empty line between them", driver("0001", "b") + driver("0000", "a"), described("a") + '\n' + described("b"));
    addDrivers("three drivers: empty lines between them", driver("0000", "a") + driver("0001", "b") + driver("0002", "c"),
               described("a") + '\n' + described("b") + '\n' + described("c"));
    addDrivers("the first driver has no values: no empty line", driverKey("0000") + driver("0001", "b"), described("b"));
    addDrivers("the second of three drivers has no values: one empty line", driver("0000", "a") + driverKey("0001") + driver("0002", "c"),
               described("a") + '\n' + described("c"));
    addDrivers("two drivers in the middle have no values: one empty line",
               driver("0000", "a") + driverKey("0001") + driverKey("0002") + driver("0003", "d"),
               described("a") + '\n' + described("d"));
    addDrivers("the last driver has no values: an empty line before the rule", driver("0000", "a") + driverKey("0001"),
               described("a") + '\n');
    addDrivers("only drivers without values: nothing", driverKey("0000") + driverKey("0001"), "");
    addDrivers("a driver with an empty text has a line, so an empty line follows", driver("0000", "") + driver("0001", "b"),
               described("") + '\n' + described("b"));
    addDrivers("no empty line at the start of the next class",
               driver("0000", "a") + classKey("\\{2}") + textValue("Class", "Display") + classKey("\\{2}\\0000")
                   + textValue("DriverDesc", "b"),
               described("a") + rule + "Display:\n" + described("b"));
    addDrivers("keys below a driver are not read", driverKey("0000\\Ndi") + allValues(), "");
    addDrivers("the name of a driver is not shown", driver("anything", "a"), described("a"));
}

// Quirk: the section compares the bytes of a UTF-16 name with "Properties" as if they were single
// characters. It opens such a key by its name in the ANSI code page, which is question marks.
const QByteArray bytesReadProperties = QString::fromUtf16(u"\u7250\u706f\u7265\u6974\u7365").toUtf8();
const QByteArray bytesReadUpperCase = QString::fromUtf16(u"\u5250\u504f\u5245\u4954\u5345").toUtf8();
const QByteArray bytesReadLess = QString::fromUtf16(u"\u7250\u706f\u7265\u6974").toUtf8();
const QByteArray bytesReadMore = QString::fromUtf16(u"\u7250\u706f\u7265\u6974\u7365\u7365").toUtf8();
const char opened[] = "?????";

// A unit with the bytes 0x00 and 0x01: the zero byte ends the compared text.
const QByteArray unitOfLowZero = QString(QChar(0x0100)).toUtf8();
// Each unit has a letter of "Properties" in its low byte, or in its high byte.
const QByteArray lowBytesReadProperties
    = QString::fromUtf16(u"\u0150\u0172\u016f\u0170\u0165\u0172\u0174\u0169\u0165\u0173").toUtf8();
const QByteArray highBytesReadProperties
    = QString::fromUtf16(u"\u5000\u7200\u6f00\u7000\u6500\u7200\u7400\u6900\u6500\u7300").toUtf8();
// The bytes "Propertie" and a zero byte.
const QByteArray bytesReadAllButTheLast = QString::fromUtf16(u"\u7250\u706f\u7265\u6974\u0065").toUtf8();

QByteArray bothProperties()
{
    return numberValue("DeviceCharacteristics", 256) + numberValue("DeviceType", 42);
}

const char bothPropertyLines[] = "   Device Type:             42 = 0x2a\n"
                                 "   Device Characteristics:  256 = 0x100\n";

void propertyRows()
{
    const QString heading("   Properties\n");
    // "?????" is enumerated before the other name, as a driver.
    addDrivers("a key named Properties is a driver: its properties are not shown", driverKey("Properties") + bothProperties(), "");
    addDrivers("a key named Properties is a driver: its driver values are shown", driver("Properties", "a") + bothProperties(),
               described("a"));
    addDrivers("a key named Properties after a driver: an empty line before the rule",
               driver("0000", "a") + driverKey("Properties") + bothProperties(), described("a") + '\n');
    addDrivers("a name whose bytes spell Properties: both properties",
               driverKey(opened) + bothProperties() + driverKey(bytesReadProperties), heading + bothPropertyLines);
    addDrivers("a name whose bytes spell PROPERTIES", driverKey(opened) + bothProperties() + driverKey(bytesReadUpperCase),
               heading + bothPropertyLines);
    addDrivers("a name whose bytes spell a part of Properties is a driver",
               driver("????", "a") + bothProperties() + driverKey(bytesReadLess), described("a") + '\n' + described("a"));
    addDrivers("a name whose bytes spell more than Properties is a driver", driver("??????", "a") + bothProperties() + driverKey(bytesReadMore),
               described("a") + '\n' + described("a"));
    addDrivers("a unit whose low byte is 0 ends the compared name",
               driverKey("??????") + bothProperties() + driverKey(bytesReadProperties + unitOfLowZero), heading + bothPropertyLines);
    addDrivers("units after one whose low byte is 0 are not compared",
               driverKey("??????x?") + bothProperties() + driverKey(bytesReadProperties + unitOfLowZero + "x" + bytesReadMore.left(3)),
               heading + bothPropertyLines);
    addDrivers("a name whose bytes spell one letter more is a driver",
               driver("?????x", "a") + bothProperties() + driverKey(bytesReadProperties + "x"),
               described("a") + '\n' + described("a"));
    addDrivers("a name whose bytes spell one letter less is a driver",
               driver("????e", "a") + bothProperties() + driverKey(bytesReadAllButTheLast), described("a") + '\n' + described("a"));
    addDrivers("a name with a unit whose low byte is 0 inside is a driver",
               driver("??", "a") + bothProperties() + driverKey(bytesReadProperties.left(3) + unitOfLowZero),
               described("a") + '\n' + described("a"));
    addDrivers("a name that starts with a unit whose low byte is 0 is a driver",
               driver("??????", "a") + bothProperties() + driverKey(unitOfLowZero + bytesReadProperties),
               described("a") + '\n' + described("a"));
    addDrivers("a name of which only the low bytes spell Properties is a driver",
               driver("??????????", "a") + bothProperties() + driverKey(lowBytesReadProperties), described("a") + '\n' + described("a"));
    addDrivers("a name of which only the high bytes spell Properties is a driver",
               driver("??????????", "a") + bothProperties() + driverKey(highBytesReadProperties), described("a") + '\n' + described("a"));
    addDrivers("the key of question marks is missing: no lines", driverKey(bytesReadProperties) + bothProperties(), "");
    addDrivers("only the device type",
               driverKey(opened) + numberValue("DeviceType", 0xffffffff) + driverKey(bytesReadProperties),
               heading + "   Device Type:             4294967295 = 0xffffffff\n");
    addDrivers("only the characteristics",
               driverKey(opened) + numberValue("DeviceCharacteristics", 0) + driverKey(bytesReadProperties),
               heading + "   Device Characteristics:  0 = 0x0\n");
    addDrivers("numbers of more than four bytes have no line",
               driverKey(opened) + binaryValue("DeviceType", QByteArray(5, '\1')) + numberValue("DeviceCharacteristics", 1)
                   + driverKey(bytesReadProperties),
               heading + "   Device Characteristics:  1 = 0x1\n");
    addDrivers("a number of two bytes",
               driverKey(opened) + binaryValue("DeviceType", "\x01\x02") + driverKey(bytesReadProperties),
               heading + "   Device Type:             513 = 0x201\n");
    addDrivers("Quirk: a short second number keeps bytes of the first",
               driverKey(opened) + numberValue("DeviceType", 0x04030201) + binaryValue("DeviceCharacteristics", "\xff")
                   + driverKey(bytesReadProperties),
               heading + "   Device Type:             67305985 = 0x4030201\n"
                   + "   Device Characteristics:  67306239 = 0x40302ff\n");
    addDrivers("Quirk: a second number of 0 bytes shows the first",
               driverKey(opened) + numberValue("DeviceType", 42) + binaryValue("DeviceCharacteristics", "")
                   + driverKey(bytesReadProperties),
               heading + "   Device Type:             42 = 0x2a\n" + "   Device Characteristics:  42 = 0x2a\n");
    const QString shortFirst = heading + "   Device Type:             7 = 0x7\n"
        + "   Device Characteristics:  67305985 = 0x4030201\n";
    addDrivers("a short first number keeps no bytes of the previous properties",
               driverKey(opened) + binaryValue("DeviceType", "\x07") + numberValue("DeviceCharacteristics", 0x04030201)
                   + driverKey(bytesReadProperties) + driverKey(bytesReadUpperCase),
               shortFirst + '\n' + shortFirst);
    addDrivers("driver values are not shown among properties",
               driver(opened, "a") + bothProperties() + driverKey(bytesReadProperties),
               described("a") + '\n' + heading + bothPropertyLines);
    addDrivers("no properties: only the title", driverKey(opened) + driverKey(bytesReadProperties), heading);
    addDrivers("properties after and before a driver: an empty line for each",
               driver("?", "a") + driverKey(opened) + bothProperties() + driverKey(bytesReadProperties)
                   + driverKey(QString(QChar(0x8000)).toUtf8()),
               described("a") + '\n' + heading + bothPropertyLines + '\n' + described("a"));
    addDrivers("a title without properties: no empty line after it",
               driver("?", "a") + driverKey(opened) + driverKey(bytesReadProperties)
                   + driverKey(QString(QChar(0x8000)).toUtf8()),
               described("a") + '\n' + heading + described("a"));
}

void deniedRows()
{
    const auto row = [](const char *name, const QByteArray &registry, const QByteArrayList &denied, const QString &blocks) {
        rows.text(name, {registry, deniedBelow("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class", denied)},
                  blocks);
    };
    const QByteArray drivers = netClass(driver("0000", "a") + driver("0001", "b") + driver("0002", "c"));
    const QString start = rule + QString("Net:\n");
    row("the first driver", drivers, {"{1}\\0000"}, start + described("b") + '\n' + described("c") + rule);
    row("a driver in the middle: one empty line", drivers, {"{1}\\0001"},
        start + described("a") + '\n' + described("c") + rule);
    row("the last driver: no empty line after the previous one", drivers, {"{1}\\0002"},
        start + described("a") + '\n' + described("b") + rule);
    row("all drivers", drivers, {"{1}\\0000", "{1}\\0001", "{1}\\0002"}, start + rule);
    row("Properties after a driver: no empty line", netClass(driver("0000", "a")), {"{1}\\Properties"},
        start + described("a") + rule);
    const QByteArray classes = netClass() + classKey("\\{2}") + textValue("Class", "Display") + classKey("\\{3}")
        + textValue("Class", "Mouse");
    row("the first class: no opening rule", classes, {"{1}"}, "Display:\n" + QString(rule) + "Mouse:\n" + rule);
    row("a class in the middle", classes, {"{2}"}, start + rule + "Mouse:\n" + rule);
    row("the last class", classes, {"{3}"}, start + rule + "Display:\n" + rule);
    row("all classes", classes, {"{1}", "{2}", "{3}"}, "");
    row("the key of all classes", classes, {""}, "");
}

// Wine opens a key although its name is outside the code page.
void simulatedRows()
{
    const QByteArray last = driver("z", "z");
    addDrivers("1023 characters fit", driver(QByteArray(1023, 'n'), "n") + last, described("n") + '\n' + described("z"));
    addDrivers("1024 characters do not fit: the enumeration ends there", driver("a", "a") + driver(QByteArray(1024, 'n'), "n") + last,
               described("a"));
    rows.text("a class whose name is outside the code page cannot be opened",
              netClass() + classKey("\\{\xc3\xa4}") + textValue("Class", "x"), netBlock(QString()));
}

/// "..." in \a journal stands for the key of all classes.
void addCalls(const char *name, const QByteArray &registry, QString journal)
{
    rows.calls(name, registry,
               journal.replace("...", "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class"));
}

void callRows()
{
    addCalls("calls", netClass(driverKey("0000") + allValues()) + classKey("\\{2}"), R"(RegOpenKeyExA ... 0x20019
RegEnumKeyExA ... "0" 2048
RegOpenKeyExA ...\{1} 0x20019
RegQueryValueExW ...\{1} "Class" 2048
RegEnumKeyExW ...\{1} "0" 1024
RegOpenKeyExA ...\{1}\0000 0x20019
RegQueryValueExW ...\{1}\0000 "DriverDesc" 2048
RegQueryValueExW ...\{1}\0000 "DriverVersion" 2048
RegQueryValueExW ...\{1}\0000 "DriverDate" 2048
RegQueryValueExW ...\{1}\0000 "ProviderName" 2048
RegQueryValueExW ...\{1}\0000 "MatchingDeviceId" 2048
RegQueryValueExW ...\{1}\0000 "InfPath" 2048
RegQueryValueExW ...\{1}\0000 "InfSection" 2048
RegQueryValueExW ...\{1}\0000 "InfSectionExt" 2048
RegCloseKey ...\{1}\0000
RegEnumKeyExW ...\{1} "1" 1024
RegCloseKey ...\{1}
RegEnumKeyExA ... "1" 2048
RegOpenKeyExA ...\{2} 0x20019
RegQueryValueExW ...\{2} "Class" 2048
RegCloseKey ...\{2}
RegEnumKeyExA ... "2" 2048
RegCloseKey ...
)");
    addCalls("calls for properties", netClass(driverKey(opened) + driverKey(bytesReadProperties)),
             R"(RegOpenKeyExA ... 0x20019
RegEnumKeyExA ... "0" 2048
RegOpenKeyExA ...\{1} 0x20019
RegQueryValueExW ...\{1} "Class" 2048
RegEnumKeyExW ...\{1} "0" 1024
RegOpenKeyExA ...\{1}\????? 0x20019
RegQueryValueExW ...\{1}\????? "DriverDesc" 2048
RegQueryValueExW ...\{1}\????? "DriverVersion" 2048
RegQueryValueExW ...\{1}\????? "DriverDate" 2048
RegQueryValueExW ...\{1}\????? "ProviderName" 2048
RegQueryValueExW ...\{1}\????? "MatchingDeviceId" 2048
RegQueryValueExW ...\{1}\????? "InfPath" 2048
RegQueryValueExW ...\{1}\????? "InfSection" 2048
RegQueryValueExW ...\{1}\????? "InfSectionExt" 2048
RegCloseKey ...\{1}\?????
RegEnumKeyExW ...\{1} "1" 1024
RegOpenKeyExA ...\{1}\????? 0x20019
RegQueryValueExA ...\{1}\????? "DeviceType" 4
RegQueryValueExA ...\{1}\????? "DeviceCharacteristics" 4
RegCloseKey ...\{1}\?????
RegEnumKeyExW ...\{1} "2" 1024
RegCloseKey ...\{1}
RegEnumKeyExA ... "1" 2048
RegCloseKey ...
)");
}

void failureRows()
{
    // Two classes, of which the first has two drivers.
    const Described full = netClass(driverKey("0000") + allValues() + driver("0001", "b")) + classKey("\\{2}")
        + textValue("Class", "Display");
    const auto row = [&](const char *name, const char *call, int number, const QString &blocks) {
        rows.failure(name, full, call, number, blocks);
    };
    const QString net = QString("Net:\n") + allLines + '\n' + described("b") + rule;
    const QString display = QString("Display:\n") + rule;
    const QString all = rule + net + display;
    row("the classes cannot be opened: only the heading", "RegOpenKeyExA", 0, "");
    row("the class at index 0 cannot be opened: no opening rule at all", "RegOpenKeyExA", 1, display);
    row("a driver cannot be opened: no empty line for it", "RegOpenKeyExA", 2,
        rule + QString("Net:\n") + described("b") + rule + display);
    row("the last driver cannot be opened: no empty line for it", "RegOpenKeyExA", 3,
        rule + QString("Net:\n") + allLines + rule + display);
    row("a later class cannot be opened", "RegOpenKeyExA", 4, rule + net);
    row("the enumeration of classes fails at its start", "RegEnumKeyExA", 0, "");
    row("the enumeration of classes fails after the first", "RegEnumKeyExA", 1, rule + net);
    row("the enumeration of drivers fails at its start", "RegEnumKeyExW", 0, rule + QString("Net:\n") + rule + display);
    row("the enumeration of drivers fails after the first", "RegEnumKeyExW", 1,
        rule + QString("Net:\n") + allLines + rule + display);
    row("the name of the class at index 0 cannot be read: only the opening rule", "RegQueryValueExW", 0,
        rule + display);
    const QStringList lines = QString(allLines).split(QRegularExpression("(?<=\n)"), Qt::SkipEmptyParts);
    rows.failures(full, "RegQueryValueExW", 1, lines,
                  {"no description", "no version", "no date", "no provider", "no device ID", "no inf file", "no inf section",
                   "no inf section's extension"},
                  rule + QString("Net:\n"), '\n' + described("b") + rule + display);
    row("a driver cannot be closed: the text is unchanged", "RegCloseKey", 0, all);
    row("a class cannot be closed: the text is unchanged", "RegCloseKey", 2, all);
    rows.anyFailure("each call fails in turn", full);

    const Described properties = netClass(driverKey(opened) + bothProperties() + driverKey(bytesReadProperties));
    rows.failure("the properties cannot be opened", properties, "RegOpenKeyExA", 3, netBlock(""));
    rows.failures(properties, "RegQueryValueExA", 0,
                  {"   Device Type:             42 = 0x2a\n", "   Device Characteristics:  256 = 0x100\n"},
                  {"no device type", "no characteristics"}, rule + QString("Net:\n   Properties\n"), rule);
    rows.anyFailure("any call for properties fails", properties);
}

void addRows()
{
    classRows();
    valueRows();
    driverRows();
    propertyRows();
    deniedRows();
    if (windowsIsSimulated)
        simulatedRows();
    callRows();
    failureRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
