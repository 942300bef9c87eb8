#include "expected_texts.h"

namespace expected {
namespace {

using machine::RegistryRoot;

struct Row
{
    const char *value;
    const char *format;
};

const QString end = QStringLiteral("\n");

QString q(const char *text)
{
    return QString::fromLatin1(text);
}

QString narrowRows(DescribedCalls &calls, const Key &key, const std::vector<Row> &rows, Buffer &buffer)
{
    QString text;
    for (const Row &row : rows) {
        if (calls.query(Form::Narrow, key, q(row.value), buffer))
            text += line(row.format, buffer.narrow());
    }
    return text;
}

/// Each value in memory of its own.
QString narrowRows(DescribedCalls &calls, const Key &key, const std::vector<Row> &rows)
{
    QString text;
    for (const Row &row : rows) {
        Buffer buffer;
        text += narrowRows(calls, key, {row}, buffer);
    }
    return text;
}

/// A number printed with its sign.
QString signedRows(DescribedCalls &calls, const Key &key, const std::vector<Row> &rows)
{
    QString text;
    Buffer buffer;
    for (const Row &row : rows) {
        if (calls.query(Form::Narrow, key, q(row.value), buffer, 4))
            text += line(row.format, QString::number(qint32(buffer.number())));
    }
    return text;
}

/// The strings up to the first empty one.
QString list(const Buffer &buffer, Form form, const QString &between)
{
    QStringList strings;
    quint32 position = 0;
    while (position < buffer.size) {
        Buffer rest;
        rest.bytes = buffer.bytes.mid(int(position) * (form == Form::Wide ? 2 : 1)) + QByteArray(2, 0);
        const QString string = form == Form::Wide ? rest.wide() : rest.narrow();
        if (string.isEmpty())
            break;
        strings += string;
        position += (form == Form::Wide ? quint32(string.size()) : quint32(qstrlen(rest.bytes.constData()))) + 1;
    }
    return strings.join(between);
}

QString biosList(DescribedCalls &calls, const Key &key, const char *value, const char *label, Buffer &buffer)
{
    if (!calls.query(Form::Narrow, key, q(value), buffer))
        return QString();
    return q(label) + list(buffer, Form::Narrow, end + QString(23, QLatin1Char(' '))) + end;
}

QString decimalAndHexadecimal(const char *format, quint32 number)
{
    return q(format).arg(QString::number(number), QString::number(number, 16)) + end;
}

} // namespace

QString windowsVersionFromRegistry(DescribedCalls &calls)
{
    QString text = q("Windows version information from Registry\n");
    const Key key = calls.open(RegistryRoot::LocalMachine, q("Software\\Microsoft\\Windows NT\\CurrentVersion"));
    if (!key)
        return text;
    Buffer buffer;
    text += narrowRows(calls, key,
                       {{"ProductId", "ProductId:              %1"},
                        {"EditionID", "EditionID:              %1"},
                        {"ReleaseId", "ReleaseId:              %1"},
                        {"DisplayVersion", "DisplayVersion:         %1"},
                        {"PathName", "PathName:               %1"},
                        {"ProductName", "ProductName:            %1"},
                        {"RegisteredOwner", "RegisteredOwner:        %1"},
                        {"RegisteredOrganization", "RegisteredOrganization: %1"},
                        {"CSDVersion", "CSDVersion:             %1"},
                        {"CSDBuildNumber", "CSDBuildNumber:         %1"}},
                       buffer);
    calls.close(key);
    return text;
}

namespace {

/// The release for "IVer" and "Build"; \a build is null when that could not be read.
QString oldExplorer(const QString &iver, const QString *build)
{
    const QString unreadable = q("<could not read build number>");
    if (iver == q("103")) {
        if (!build)
            return q("3.") + unreadable;
        if (*build == q("1155"))
            return q("3.0 (Build: 1155)");
        if (*build == q("1158"))
            return q("3.0 (Build: 1158), Windows 95 OSR2");
        if (*build == q("1215"))
            return q("3.01 (Build: 1215)");
        if (*build == q("1300"))
            return q("3.02 (Build: 1300)");
        return q("3.<no official released build> (Build: ") + *build + q(")");
    }
    if (iver == q("102")) {
        if (!build)
            return q("2.0") + unreadable;
        return q("2.0 (Build ") + *build + q(*build == q("520") ? ") Windows 95" : ") <no official known build number>");
    }
    if (iver == q("101"))
        return q("IVer = 101 Windows NT");
    if (iver == q("100"))
        return q("1.0 (Plus! for Windows 95)");
    return q("IVer = ") + iver + q(" unknwon") + (build ? q(" Build = %1") : QString());
}

} // namespace

QString internetExplorer(DescribedCalls &calls)
{
    const QString title = q("Internet Explorer information from Registry\n");
    const Key key = calls.open(RegistryRoot::LocalMachine, q("Software\\Microsoft\\Internet Explorer"));
    if (!key)
        return title + q("<failed to open registry key '%1'");
    QString version;
    QString more;
    Buffer first;
    if (calls.query(Form::Narrow, key, q("Version"), first)) {
        version = first.narrow();
        if (calls.query(Form::Narrow, key, q("svcVersion"), first)) {
            version = first.narrow();
            more = narrowRows(calls, key,
                              {{"svcUpdateVersion", "Update Version:    %1"},
                               {"svcKBNumber", "KBNumber:          %1"},
                               {"W2kVersion", "W2kVersion:        %1"}},
                              first);
        }
        // The sizes of these two are what the query before left, as far as the memory goes.
    } else if (calls.query(Form::Narrow, key, q("IVer"), first, qMin(first.size, 2048u))) {
        Buffer second;
        const bool read = calls.query(Form::Narrow, key, q("Build"), second, qMin(first.size, 2048u));
        const QString build = second.narrow();
        version = oldExplorer(first.narrow(), read ? &build : nullptr);
    } else {
        version = q("<could neither read 'Version' nor 'IVer' for Explorer>");
    }
    calls.close(key);
    return title + q("Version:           ") + version + end + more;
}

QString processorsFromRegistry(DescribedCalls &calls)
{
    QString text = q("Central Processor information from Registry\n");
    for (int i = 0; i < 256; ++i) {
        const Key key = calls.open(RegistryRoot::LocalMachine,
                                   q("Hardware\\Description\\System\\CentralProcessor\\") + QString::number(i));
        if (!key)
            break;
        text += q("Processor #") + QString::number(i) + end;
        text += narrowRows(calls, key,
                           {{"ProcessorNameString", "ProcessorNameString:  %1"},
                            {"VendorIdentifier", "VendorIdentifier:     %1"},
                            {"Identifier", "Identifier:           %1"},
                            {"MMXIdentifier", "MMXIdentifier:        %1"}});
        Buffer speed;
        if (calls.query(Form::Narrow, key, q("~MHZ"), speed, 4)) {
            const auto megahertz = speed.number();
            text += q("MHZ:                  ") + QString::number(megahertz) + q(" MHz");
            if (megahertz >= 1000)
                text += q(" = ") + QString::number(double(megahertz) / 1000, 'f', 3) + q(" GHz");
            text += end;
        }
        Buffer features;
        if (calls.query(Form::Narrow, key, q("FeatureSet"), features, 4))
            text += q("FeatureSet:           0x") + QString::number(features.number(), 16) + end;
        calls.close(key);
    }
    return text;
}

QString oemInformation(DescribedCalls &calls)
{
    QString text = q("OEM Information from Registry\n");
    const auto &version = calls.machine.system.GetVersionEx;
    if (calls.fails("GetVersionExA") || !version)
        return text + q("GetVersionExA(&osver) failed!\n");
    if (version->dwMajorVersion < 6)
        return text;
    const Key key = calls.open(RegistryRoot::LocalMachine, q("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation"));
    if (!key)
        return text;
    Buffer buffer;
    text += narrowRows(calls, key, {{"Manufacturer", "Manufacturer:     %1"}, {"Model", "Model:     %1"}}, buffer);
    return text; // and the key stays open
}

QString systemInformation(DescribedCalls &calls)
{
    QString text = q("SystemInformation from Registry\n");
    const Key key = calls.open(RegistryRoot::LocalMachine, q("SYSTEM\\CurrentControlSet\\Control\\SystemInformation"));
    if (!key)
        return text;
    Buffer buffer;
    text += narrowRows(calls, key,
                       {{"BIOSReleaseDate", "BIOSReleaseDate:     %1"},
                        {"BIOSVersion", "BIOSVersion:         %1"},
                        {"SystemManufacturer", "SystemManufacturer:  %1"},
                        {"SystemProductName", "SystemProductName:   %1"}},
                       buffer);
    text += signedRows(calls, key, {{"InformationSource", "InformationSource:   %1 "}});
    calls.close(key);
    return text;
}

QString biosInformation(DescribedCalls &calls)
{
    QString text = q("BIOS information from Registry\n");
    const Key key = calls.open(RegistryRoot::LocalMachine, q("Hardware\\Description\\System"));
    if (!key)
        return text;
    Buffer buffer;
    text += biosList(calls, key, "SystemBiosVersion", "SystemBiosVersion:     ", buffer);
    text += narrowRows(calls, key, {{"SystemBIOSDate", "SystemBIOSDate:        %1"}}, buffer);
    text += biosList(calls, key, "VideoBiosVersion", "VideoBiosVersion:      ", buffer);
    text += narrowRows(calls, key, {{"VideoBIOSDate", "VideoBIOSDate:         %1"}}, buffer);
    calls.close(key);
    return text;
}

QString timeZone(DescribedCalls &calls)
{
    QString text = q("Time Zone information from Registry\n");
    const Key key = calls.open(RegistryRoot::LocalMachine, q("SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation"));
    if (!key)
        return text;
    text += signedRows(calls, key,
                       {{"ActiveTimeBias", "ActiveTimeBias: %1 min (offset to UTC)"},
                        {"Bias", "Bias:           %1 min (offset to UTC)"},
                        {"DaylightBias", "DaylightBias:   %1 min (additional offset if daylight saving is active)"},
                        {"StandardBias", "StandardBias:   %1 min (additional offset if no daylight saving is active)"}});
    Buffer buffer;
    text += narrowRows(calls, key, {{"DaylightName", "DaylightName:   %1"}, {"StandardName", "StandardName:   %1"}}, buffer);
    calls.close(key);
    return text;
}

namespace {

struct Application
{
    QStringList extensions;
    QString projectType;
};

std::optional<Application> application(const QString &name)
{
    if (name.contains(q("Linemodel"))) {
        if (name.contains(q("V10")) || name.contains(q("V11")))
            return Application {{q(".lmdl"), q(".lmdl2"), q(".vkpj")}, q("Linemodel since V10")};
        return Application {{q(".lmdl"), q(".lmdl2")}, q("Linemodel")};
    }
    if (name == q("Q9"))
        return Application {{q(".wvp")}, q("Q9 Project")};
    if (name == q("Q9 Beta"))
        return Application {{q(".q9p"), q(".q90"), q(".vkpj")}, q("Q9 V2 Project")};
    if (name == q("Q9 V2"))
        return Application {{q(".q9p"), q(".q90")}, q("Q9 V2 Project")};
    if (name.startsWith(q("Q9 V3")))
        return Application {{q(".q9p"), q(".q90"), q(".vkpj")}, q("Q9 V3 Project")};
    if (name == q("Q90"))
        return Application {{q(".q90")}, q("Q90 Project")};
    return std::nullopt;
}

QString productValues(DescribedCalls &calls, const Key &key)
{
    QString text = narrowRows(calls, key, {{"ProductName", "ProductName: %1"}});
    Buffer version;
    if (calls.query(Form::Narrow, key, q("Version"), version, 4)) {
        const auto bytes = version.bytes;
        text += q("Version: %1.%2.%3 (raw value 0x%4)\n")
                    .arg(uchar(bytes[3]))
                    .arg(uchar(bytes[2]))
                    .arg(uchar(bytes[1]) * 256 + uchar(bytes[0]))
                    .arg(version.number(), 0, 16);
    }
    for (const char *name : {"AdvertiseFlags", "Assignment", "DeploymentFlags", "InstanceType", "Language"}) {
        Buffer number;
        if (calls.query(Form::Narrow, key, q(name), number, 4))
            text += q(name) + q(": 0x") + QString::number(number.number(), 16) + end;
    }
    return text + narrowRows(calls, key, {{"PackageCode", "PackageCode: %1"}});
}

QString classDefault(DescribedCalls &calls, const QString &path)
{
    const Key key = calls.open(RegistryRoot::ClassesRoot, path);
    if (!key)
        return QString();
    Buffer buffer;
    const bool read = calls.query(Form::Narrow, key, QString(), buffer);
    calls.close(key);
    return read ? buffer.narrow() : QString();
}

/// \a product gives the text of a product of that name.
template <typename Product>
QString products(DescribedCalls &calls, RegistryRoot root, const QString &path, Product product)
{
    QString text;
    const Key all = calls.open(root, path);
    if (!all)
        return text;
    Buffer name;
    for (int i = 0; calls.enumerateKey("RegEnumKeyExA", Form::Narrow, all, i, name); ++i) {
        const Key key = calls.open(root, path + q("\\") + name.narrow());
        if (!key)
            continue;
        Buffer productName;
        if (calls.query(Form::Narrow, key, q("ProductName"), productName))
            text += product(key, productName.narrow());
        calls.close(key);
    }
    calls.close(all);
    return text;
}

} // namespace

QString installedApplications(DescribedCalls &calls)
{
    const QString heading = q(">>> Info about installed Velkor applications from registry:\n\n");
    return heading
        + products(calls, RegistryRoot::ClassesRoot, q("Installer\\Products"),
                   [&](const Key &key, const QString &name) {
        const auto known = application(name);
        if (!known)
            return QString();
        QString text = productValues(calls, key);
        for (const QString &extension : known->extensions) {
            const QString type = classDefault(calls, extension);
            if (!type.isEmpty())
                text += q("File extension '") + extension + q("' registered with application project type '") + type
                    + q("'\n");
        }
        const QString command = classDefault(calls, known->projectType + q("\\shell\\open\\command"));
        if (!command.isEmpty())
            text += q("Open command for '") + known->projectType + q("':\n") + command + end;
        return text + end;
           });
}

QString visualBasicApplications(DescribedCalls &calls)
{
    const QString heading = q(">>> Info about installed Velkor Visual Basic applications from registry:\n\n");
    return heading
        + products(calls, RegistryRoot::CurrentUser, q("Software\\Microsoft\\Installer\\Products"),
                   [&](const Key &key, const QString &name) {
        const QStringList tools = {q("M4-M8-vkUpdate"), q("Device Flasher"), q("T-BOX-vkUpdate")};
        return tools.contains(name) ? productValues(calls, key) + end : QString();
           });
}

QString ports(DescribedCalls &calls, const QString &deviceMap)
{
    QString text = q(">> Info about '") + deviceMap + q("' ports from registry:\n");
    const Key key = calls.open(RegistryRoot::LocalMachine, q("HARDWARE\\DEVICEMAP\\") + deviceMap);
    if (!key)
        return text;
    Buffer name;
    Buffer data;
    for (int i = 0; calls.enumerateValue(key, i, name, data); ++i)
        text += name.narrow() + q("   ") + data.narrow() + end;
    calls.close(key);
    return text + end;
}

QString diskDevices(DescribedCalls &calls, const QString &enumerator)
{
    QString text = q(">>> Info about '") + enumerator + q("' disk devices from registry:\n");
    const QString path = q("SYSTEM\\CurrentControlSet\\Enum\\") + enumerator;
    const Key bus = calls.open(RegistryRoot::LocalMachine, path);
    if (!bus)
        return text;
    Buffer buffer;
    for (int i = 0; calls.enumerateKey("RegEnumKeyExA", Form::Narrow, bus, i, buffer); ++i) {
        text += buffer.narrow() + end;
        const QString devicePath = path + q("\\") + buffer.narrow();
        const Key device = calls.open(RegistryRoot::LocalMachine, devicePath);
        if (!device)
            continue;
        for (int j = 0; calls.enumerateKey("RegEnumKeyExA", Form::Narrow, device, j, buffer); ++j) {
            const Key instance = calls.open(RegistryRoot::LocalMachine, devicePath + q("\\") + buffer.narrow());
            if (!instance)
                continue;
            text += narrowRows(calls, instance,
                               {{"Class", "   Class:               %1"},
                                {"DeviceDesc", "   Device Description:  %1"},
                                {"FriendlyName", "   Friendly Name:       %1"},
                                {"LocationInformation", "   LocationInformation: %1"},
                                {"HardwareID", "   Hardware ID:         %1"},
                                {"Service", "   Service:             %1"}},
                               buffer);
            text += end;
            calls.close(instance);
        }
        text += end;
        calls.close(device);
    }
    calls.close(bus);
    return text;
}

namespace {

enum class As {
    Text,
    List,
    BinaryOrText,
};

struct WideRow
{
    const char *value;
    const char *format;
    As as = As::Text;
};

QString decoded(const Buffer &buffer, As as)
{
    if (as == As::List)
        return list(buffer, Form::Wide, QStringLiteral(" "));
    constexpr quint32 binary = 3;
    const quint32 units = buffer.size / 2;
    if (as == As::BinaryOrText && buffer.type == binary && (units == 0 || !buffer.wide(units).endsWith(QChar())))
        return buffer.wide(units);
    return buffer.wide();
}

QString wideRows(DescribedCalls &calls, const Key &key, const std::vector<WideRow> &rows)
{
    QString text;
    for (const WideRow &row : rows) {
        Buffer buffer;
        if (calls.query(Form::Wide, key, q(row.value), buffer))
            text += line(row.format, decoded(buffer, row.as));
    }
    return text;
}

QString videoMemory(DescribedCalls &calls, const Key &key)
{
    Buffer large;
    if (calls.query(Form::Narrow, key, q("HardwareInformation.qwMemorySize"), large, 8))
        return q("   Video Memory: ") + byteSize(large.number(8)) + end;
    Buffer small;
    if (calls.query(Form::Narrow, key, q("HardwareInformation.MemorySize"), small, 4))
        return q("   Video Memory: ") + byteSize(small.number()) + end;
    return QString();
}

QString configuration(DescribedCalls &calls, const Key &key)
{
    QString text = wideRows(calls, key,
                            {{"Device Description", "   Device Description: %1"},
                             {"InstalledDisplayDrivers", "   Installed Display Drivers: %1", As::List},
                             {"HardwareInformation.AdapterString", "   AdapterString: %1", As::BinaryOrText},
                             {"HardwareInformation.BiosString", "   BiosString: %1", As::BinaryOrText},
                             {"HardwareInformation.ChipType", "   ChipType:  %1", As::BinaryOrText},
                             {"HardwareInformation.DacType", "   DacType:  %1", As::BinaryOrText}});
    text += videoMemory(calls, key);
    text += wideRows(calls, key,
                     {{"DriverDesc", "   Driver Description: %1"},
                      {"DriverVersion", "   Driver Version: %1"},
                      {"DriverDate", "   Driver Date: %1"},
                      {"ProviderName", "   Provider Name: %1"},
                      {"ReleaseVersion", "   Release Version: %1"},
                      {"OpenGLDriverName", "   OpenGL Driver Name: %1", As::List},
                      {"OpenGLDriverNameWow", "   OpenGL Driver Name WoW: %1", As::List}});
    const Row numbers[] = {{"OpenGLVersion", "   OpenGL Version: %1 = 0x%2"},
                           {"OpenGLVersionWoW", "   OpenGL Version WoW: %1 = 0x%2"},
                           {"OpenGLFlags", "   OpenGL Flags: %1 = 0x%2"},
                           {"OpenGLFlagsWoW", "   OpenGL Flags WoW: %1 = 0x%2"}};
    for (const Row &row : numbers) {
        Buffer number;
        if (calls.query(Form::Wide, key, q(row.value), number, 4))
            text += decimalAndHexadecimal(row.format, quint32(number.number()));
    }
    return text;
}

} // namespace

QString videoAdapters(DescribedCalls &calls)
{
    QString text = q(">>> Info about video from registry:\n\n");
    const QString path = q("SYSTEM\\CurrentControlSet\\Control\\Video");
    const Key all = calls.open(RegistryRoot::LocalMachine, path);
    if (!all)
        return text;
    Buffer name;
    for (int i = 0; calls.enumerateKey("RegEnumKeyExA", Form::Narrow, all, i, name); ++i) {
        const QString adapterPath = path + q("\\") + name.narrow();
        const Key adapter = calls.open(RegistryRoot::LocalMachine, adapterPath);
        if (!adapter)
            continue;
        if (const Key video = calls.open(RegistryRoot::LocalMachine, adapterPath + q("\\Video"))) {
            text += wideRows(calls, video, {{"Service", "### Service: %1"}});
            calls.close(video);
        }
        for (int j = 0;; ++j) {
            // Also where nothing more was found the name in the buffer is visited.
            const bool found = calls.enumerateKey("RegEnumKeyExA", Form::Narrow, adapter, j, name);
            const QString subName = name.narrow();
            if (const Key key = calls.open(RegistryRoot::LocalMachine, adapterPath + q("\\") + subName)) {
                if (subName.compare(q("Video"), Qt::CaseInsensitive) != 0)
                    text += subName + end + configuration(calls, key);
                calls.close(key);
            }
            if (!found)
                break;
        }
        calls.close(adapter);
    }
    calls.close(all);
    return text;
}

namespace {

/// Both numbers have one place in memory.
QString deviceProperties(DescribedCalls &calls, const Key &key)
{
    const Row rows[] = {{"DeviceType", "   Device Type:             %1 = 0x%2"},
                        {"DeviceCharacteristics", "   Device Characteristics:  %1 = 0x%2"}};
    QString text;
    Buffer number;
    for (const Row &row : rows) {
        if (calls.query(Form::Narrow, key, q(row.value), number, 4))
            text += decimalAndHexadecimal(row.format, quint32(number.number()));
    }
    return text;
}

QString driverValues(DescribedCalls &calls, const Key &key)
{
    return wideRows(calls, key,
                    {{"DriverDesc", "   Driver Description: %1"},
                     {"DriverVersion", "   Driver Version:     %1"},
                     {"DriverDate", "   Driver Date:        %1"},
                     {"ProviderName", "   Provider Name:      %1"},
                     {"MatchingDeviceId", "   Matching Device ID: %1"},
                     {"InfPath", "   InfPath:            %1"},
                     {"InfSection", "   InfSection:         %1"},
                     {"InfSectionExt", "   InfSectionExt:      %1"}});
}

} // namespace

QString drivers(DescribedCalls &calls)
{
    const QString rule = q("----------------------------\n");
    QString text = q(">>> Info about drivers from registry:\n\n");
    const QString path = q("SYSTEM\\CurrentControlSet\\Control\\Class");
    const Key all = calls.open(RegistryRoot::LocalMachine, path);
    if (!all)
        return text;
    Buffer name;
    for (int i = 0; calls.enumerateKey("RegEnumKeyExA", Form::Narrow, all, i, name); ++i) {
        const QString classPath = path + q("\\") + name.narrow();
        const Key deviceClass = calls.open(RegistryRoot::LocalMachine, classPath);
        if (!deviceClass)
            continue;
        if (i == 0)
            text += rule;
        Buffer className;
        if (calls.query(Form::Wide, deviceClass, q("Class"), className)) {
            text += className.wide() + q(":\n");
            bool wrote = false;
            Buffer driverName;
            for (int j = 0; calls.enumerateKey("RegEnumKeyExW", Form::Wide, deviceClass, j, driverName, 1024); ++j) {
                const Key driver = calls.open(RegistryRoot::LocalMachine, classPath + q("\\") + driverName.wide());
                if (!driver)
                    continue;
                if (wrote)
                    text += end;
                const bool properties = qstricmp(driverName.bytes.constData(), "Properties") == 0;
                if (properties)
                    text += q("   Properties\n");
                const QString block = properties ? deviceProperties(calls, driver) : driverValues(calls, driver);
                text += block;
                wrote = !block.isEmpty();
                calls.close(driver);
            }
            text += rule;
        }
        calls.close(deviceClass);
    }
    calls.close(all);
    return text;
}

QString openGLDrivers(DescribedCalls &calls)
{
    QString text = q("#### Info about the OpenGL driver DLL's from registry ###\n");
    const QString path = q("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers");
    const Key all = calls.open(RegistryRoot::LocalMachine, path);
    if (!all)
        return text;
    Buffer name;
    for (int i = 0; calls.enumerateKey("RegEnumKeyA", Form::Narrow, all, i, name); ++i) {
        text += name.narrow() + q("   ");
        if (const Key driver = calls.open(RegistryRoot::LocalMachine, path + q("\\") + name.narrow())) {
            Buffer dll;
            if (calls.query(Form::Narrow, driver, q("dll"), dll))
                text += dll.narrow() + q(".dll");
            calls.close(driver);
        }
        text += end;
    }
    calls.close(all);
    return text;
}

} // namespace expected
