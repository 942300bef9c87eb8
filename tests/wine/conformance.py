"""Compares the lines of a report of vkSystemInfo.dll under Wine with data from other sources:
Wine's registry editor, wmic and cmd, and Linux itself. It uses no code of the project except
the program that prints the report.

    conformance.py RUN_WINE VKREPORT PREFIX

RUN_WINE runs a Windows program in the Wine prefix PREFIX. The output has the number of the
lines that a check confirms, and lists the other lines. A section without a check does not fail.
"""

import datetime
import ipaddress
import json
import os
import re
import subprocess
import sys
import tempfile

RUN_WINE, VKREPORT, PREFIX = sys.argv[1:4]
SEPARATOR = "-" * 72
CLASS_RULE = "-" * 28
SECTIONS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "docs", "sections.md")

failures = 0


def first_lines():
    """The first lines of all sections, from the table in docs/sections.md."""
    with open(SECTIONS, encoding="utf-8") as stream:
        return tuple(re.findall(r"^\| `[^`]+` \| `([^`]+)` \|", stream.read(), re.MULTILINE))


HEADINGS = first_lines()


def wine(*command):
    """The output of a Windows program."""
    result = subprocess.run([RUN_WINE, *command], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    data = result.stdout
    text = data.decode("utf-16") if data[:2] == b"\xff\xfe" else data.decode("cp437")
    return text.replace("\r\n", "\n")


def linux(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout.rstrip("\n")


def failed(what, actual, expected):
    global failures
    failures += 1
    print(f"FAILED  {what}\n    in the report: {actual!r}\n    elsewhere:     {expected!r}")


class Report:
    """The lines of the report, and whether a check has confirmed them."""

    def __init__(self, text):
        self.lines = text.split("\n")
        self.confirmed = [False] * len(self.lines)

    def find(self, line):
        """The number of the first line that starts with a text."""
        for number, candidate in enumerate(self.lines):
            if candidate.startswith(line):
                return number
        return None

    def section(self, heading):
        """The numbers of the lines after a heading, up to a separator or the next section."""
        first = self.find(heading)
        if first is None:
            failed(f"heading {heading!r}", None, heading)
            return []
        self.confirmed[first] = True
        last = first + 1
        while last < len(self.lines) and self.lines[last] != SEPARATOR and not self.lines[last].startswith(HEADINGS):
            last += 1
        return list(range(first + 1, last))

    def line(self, label, expected, numbers=None):
        """Checks the text after a label; None expects no line. numbers restricts the search to a section."""
        numbers = range(len(self.lines)) if numbers is None else numbers
        found = [number for number in numbers if self.lines[number].startswith(label)]
        actual = self.lines[found[0]][len(label):] if found else None
        if actual != expected:
            failed(label, actual, expected)
        for number in found[:1]:
            self.confirmed[number] = actual == expected

    def block(self, heading, expected, numbers=None):
        """Checks all lines of a section, or the lines with the given numbers."""
        numbers = self.section(heading) if numbers is None else numbers
        actual = [self.lines[number] for number in numbers]
        if actual != expected:
            at = next((i for i, pair in enumerate(zip(actual, expected)) if pair[0] != pair[1]), min(len(actual), len(expected)))
            failed(f"{heading} (line {at} of {len(expected)}; {len(actual)} there)", actual[at:at + 3], expected[at:at + 3])
            return
        for number in numbers:
            self.confirmed[number] = True


class Key:
    """A key in an export of the registry editor. Names of values are case-insensitive."""

    def __init__(self, path):
        self.path = path
        self.name = path.rsplit("\\", 1)[-1]
        self.values = {}
        self.names = []

    def get(self, name):
        return self.values.get(name.lower())

    def put(self, name, data):
        self.values[name.lower()] = data
        self.names.append(name)


def unescaped(text):
    return re.sub(r"\\(.)", r"\1", text)


def decoded(data):
    """The data of a value as a text, a list of texts, a number or bytes."""
    if data.startswith('"'):
        return unescaped(data[1:-1])
    if data.startswith("dword:"):
        return int(data[6:], 16)
    kind, _, digits = data.partition(":")
    raw = bytes(int(byte, 16) for byte in digits.split(",") if byte)
    if kind in ("hex(2)", "hex(1)"):
        return raw.decode("utf-16-le").split("\0")[0]
    if kind == "hex(7)":
        return raw.decode("utf-16-le").rstrip("\0").split("\0")
    if kind == "hex(b)":
        return int.from_bytes(raw, "little")
    return raw


def exported(path):
    """A key and all keys below it, in the order of the export; empty if the key does not exist."""
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "key.reg")
        wine("reg", "export", path, "Z:" + file.replace("/", "\\"), "/y")
        if not os.path.exists(file):
            return []
        with open(file, "rb") as stream:
            text = stream.read().decode("utf-16").replace("\r\n", "\n").replace("\\\n  ", "")
    keys = []
    for line in text.split("\n")[1:]:
        if line.startswith("["):
            keys.append(Key(line[1:-1]))
        elif line.startswith("@="):
            keys[-1].put("", decoded(line[2:]))
        elif line.startswith('"'):
            end = re.match(r'"((?:[^"\\]|\\.)*)"=', line)
            keys[-1].put(unescaped(end.group(1)), decoded(line[end.end():]))
    return keys


def values_of(path):
    keys = exported(path)
    return keys[0] if keys else Key(path)


def below(keys, parent):
    """The direct sub-keys."""
    prefix = parent.path.lower() + "\\"
    return [key for key in keys if key.path.lower().startswith(prefix) and "\\" not in key.path[len(prefix):]]


def wmic(thing, name):
    """The values of a property of all objects."""
    lines = wine("wmic", *thing.split(), "get", name).split("\n")
    return [line.strip() for line in lines[1:] if line.strip()]


def scaled(count):
    """A size in the format of the report, truncated to one decimal digit."""
    for power, unit in ((3, "GByte"), (2, "MByte"), (1, "KByte")):
        if count >= 1024 ** power:
            return f"{count * 10 // 1024 ** power // 10}.{count * 10 // 1024 ** power % 10} {unit}"
    return f"{count} Byte"


def lines_of(key, table):
    """The lines of the existing values; the table has pairs of name and label."""
    return [label + str(key.get(name)) for name, label in table if key.get(name) is not None]


def first_text(data):
    return data[0] if isinstance(data, list) else data


# The checks

def windows_version(report):
    release = wine("cmd", "/c", "ver").strip().rsplit(" ", 1)[1]
    report.line("From GetVersionEx: ", "6.2.9200")  # the version for programs without a manifest
    report.line("From registry:     ", release)
    name = report.find(" " * 19)
    expected = "Windows 10 0x1c, " + wmic("os", "OSArchitecture")[0]  # 0x1c: the edition of Wine has no name
    report.line(" " * 19, expected, [name])
    key = values_of(r"HKLM\Software\Microsoft\Windows NT\CurrentVersion")
    table = [(name, f"{name + ':':24}") for name in
             ("ProductId", "EditionID", "ReleaseId", "DisplayVersion", "PathName", "ProductName", "RegisteredOwner",
              "RegisteredOrganization", "CSDVersion", "CSDBuildNumber")]
    numbers = report.section("Windows version information from Registry")
    report.block("Windows version information from Registry", lines_of(key, table), numbers)
    report.line("ProductId:              ", wmic("os", "SerialNumber")[0])


def internet_explorer(report):
    key = values_of(r"HKLM\Software\Microsoft\Internet Explorer")
    version = key.get("svcVersion")
    expected = ["Version:           " + (version or key.get("Version"))]
    if version:
        expected += lines_of(key, [("svcUpdateVersion", "Update Version:    "), ("svcKBNumber", "KBNumber:          "),
                                   ("W2kVersion", "W2kVersion:        ")])
    report.block("Internet Explorer information from Registry", expected)


def processors(report):
    count = int(wmic("cpu", "NumberOfLogicalProcessors")[0])
    if count != os.cpu_count():
        failed("processors: wmic and Linux", count, os.cpu_count())
    numbers = report.section("Processor information: ")
    level, revision = wine("cmd", "/c", "echo %PROCESSOR_LEVEL% %PROCESSOR_REVISION%").split()
    report.line("Processor architecture:       ", {"9": "x64 (64bit)"}.get(wmic("cpu", "Architecture")[0]), numbers)
    report.line("Number of processors:       ", str(count), numbers)
    report.line("Active processors:          ", "Processor #0", numbers)
    for number in range(1, count):
        report.line(f"                            Processor #{number}", "", numbers)
    report.line("Processor revision:         ", f"{int(revision, 16)} = 0x{int(revision, 16):04x}", numbers)
    report.line("Processor level:            ", level, numbers)
    report.line("Page size:                  ", linux("getconf", "PAGESIZE"), numbers)
    keys = exported(r"HKLM\Hardware\Description\System\CentralProcessor")
    expected = []
    for index, key in enumerate(keys[1:]):
        expected.append(f"Processor #{index}")
        expected += lines_of(key, [("ProcessorNameString", "ProcessorNameString:  "), ("VendorIdentifier", "VendorIdentifier:     "),
                                   ("Identifier", "Identifier:           "), ("MMXIdentifier", "MMXIdentifier:        ")])
        mhz = key.get("~MHz")
        gigahertz = f" = {mhz // 1000}.{mhz % 1000:03} GHz" if mhz >= 1000 else ""
        expected.append(f"MHZ:                  {mhz} MHz{gigahertz}")
        expected.append(f"FeatureSet:           0x{key.get('FeatureSet'):x}")
    report.block("Central Processor information from Registry", expected)
    report.line("ProcessorNameString:  ", wmic("cpu", "Name")[0])
    report.line("VendorIdentifier:     ", wmic("cpu", "Manufacturer")[0])


def memory(report):
    total = int(wmic("computersystem", "TotalPhysicalMemory")[0])
    with open("/proc/meminfo", encoding="ascii") as stream:
        of_linux = 1024 * int(re.search(r"MemTotal: +(\d+)", stream.read()).group(1))
    if not 0 <= of_linux - total < 1024 ** 2:
        failed("memory: wmic and Linux", total, of_linux)
    numbers = report.section("Memory Information:")
    report.line("TotalPhys:             ", f"{total} Byte = {scaled(total)}", numbers)


def names(report):
    host = linux("hostname")
    name = wmic("computersystem", "Name")[0]
    if name.lower() != host[:15].lower():
        failed("computer name: wmic and Linux", name, host)
    numbers = report.section("Computer name")
    report.line("NetBios name:                 ", name, numbers)
    report.line("Physical NetBios name:        ", name, numbers)
    if len(host) <= 15:
        report.line("hostname                      ", host.split(".")[0], numbers)
        report.line("Physical hostname             ", host.split(".")[0], numbers)
    report.line("User name:                    ", linux("id", "-un"), numbers)
    report.line("Local host name:   ", host)


def descriptions(report):
    oem = values_of(r"HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\OEMInformation")
    report.block("OEM Information from Registry", lines_of(oem, [("Manufacturer", "Manufacturer:     "), ("Model", "Model:     ")]))
    zone = values_of(r"HKLM\SYSTEM\CurrentControlSet\Control\TimeZoneInformation")
    numbers = report.section("Time Zone information from Registry")
    for name in ("StandardName", "DaylightName"):
        report.line(f"{name + ':':16}", zone.get(name) or None, numbers)


def devices(report):
    class_table = [("DriverDesc", "   Driver Description: "), ("DriverVersion", "   Driver Version:     "),
                   ("DriverDate", "   Driver Date:        "), ("ProviderName", "   Provider Name:      "),
                   ("MatchingDeviceId", "   Matching Device ID: "), ("InfPath", "   InfPath:            "),
                   ("InfSection", "   InfSection:         "), ("InfSectionExt", "   InfSectionExt:      ")]
    keys = exported(r"HKLM\SYSTEM\CurrentControlSet\Control\Class")
    expected = ["", CLASS_RULE]
    for device_class in below(keys, keys[0]):
        if device_class.get("Class") is None:
            continue
        expected.append(device_class.get("Class") + ":")
        written = False
        for driver in below(keys, device_class):
            if written:  # Quirk: also before a key without lines
                expected.append("")
            block = lines_of(driver, class_table)
            expected += block
            written = bool(block)
        expected.append(CLASS_RULE)
    report.block(">>> Info about drivers from registry:", expected)

    device_table = [("Class", "   Class:               "), ("DeviceDesc", "   Device Description:  "),
                    ("FriendlyName", "   Friendly Name:       "), ("LocationInformation", "   LocationInformation: "),
                    ("HardwareID", "   Hardware ID:         "), ("Service", "   Service:             ")]
    for enumerator in ("FDC", "IDE", "SCSI", "USBSTOR"):
        expected = []
        keys = exported("HKLM\\SYSTEM\\CurrentControlSet\\Enum\\" + enumerator)
        for device in below(keys, keys[0]) if keys else []:
            expected.append(device.name)
            for instance in below(keys, device):
                for name, label in device_table:
                    if instance.get(name) is not None:
                        expected.append(label + first_text(instance.get(name)))
                expected.append("")
            expected.append("")
        report.block(f">>> Info about '{enumerator}' disk devices from registry:", expected)

    for device_map in ("PARALLEL PORTS", "SERIALCOMM"):
        keys = exported("HKLM\\HARDWARE\\DEVICEMAP\\" + device_map)
        expected = [f"{name}   {keys[0].get(name)}" for name in keys[0].names] + [""] if keys else []
        report.block(f">> Info about '{device_map}' ports from registry:", expected)


def video(report):
    def text(data):
        if isinstance(data, bytes):
            return data.decode("utf-16-le").split("\0")[0]
        return " ".join(data) if isinstance(data, list) else data

    def number(data):
        return f"{data} = 0x{data:x}"

    table = [("Device Description", "   Device Description: ", text), ("InstalledDisplayDrivers", "   Installed Display Drivers: ", text),
             ("HardwareInformation.AdapterString", "   AdapterString: ", text), ("HardwareInformation.BiosString", "   BiosString: ", text),
             ("HardwareInformation.ChipType", "   ChipType:  ", text), ("HardwareInformation.DacType", "   DacType:  ", text),
             (None, "   Video Memory: ", scaled),
             ("DriverDesc", "   Driver Description: ", text), ("DriverVersion", "   Driver Version: ", text),
             ("DriverDate", "   Driver Date: ", text), ("ProviderName", "   Provider Name: ", text),
             ("ReleaseVersion", "   Release Version: ", text), ("OpenGLDriverName", "   OpenGL Driver Name: ", text),
             ("OpenGLDriverNameWow", "   OpenGL Driver Name WoW: ", text), ("OpenGLVersion", "   OpenGL Version: ", number),
             ("OpenGLVersionWoW", "   OpenGL Version WoW: ", number), ("OpenGLFlags", "   OpenGL Flags: ", number),
             ("OpenGLFlagsWoW", "   OpenGL Flags WoW: ", number)]
    keys = exported(r"HKLM\SYSTEM\CurrentControlSet\Control\Video")
    expected = [""]
    for adapter in below(keys, keys[0]):
        configurations = below(keys, adapter)
        service = next((key.get("Service") for key in configurations if key.name == "Video"), None)
        if service is not None:
            expected.append("### Service: " + service)
        # Quirk: the report lists the last configuration again, unless it is "Video".
        for key in configurations + configurations[-1:]:
            if key.name.lower() == "video":
                continue
            expected.append(key.name)
            for name, label, form in table:
                data = key.get(name) if name else key.get("HardwareInformation.qwMemorySize")
                if name is None and isinstance(data, bytes):
                    data = int.from_bytes(data, "little")
                if name is None and data is None:
                    data = key.get("HardwareInformation.MemorySize")
                    data = int.from_bytes(data, "little") if isinstance(data, bytes) else data
                if data is not None:
                    expected.append(label + form(data))
    report.block(">>> Info about video from registry:", expected)


def products(report):
    def values(key):
        lines = lines_of(key, [("ProductName", "ProductName: ")])
        version = key.get("Version")
        if version is not None:
            lines.append(f"Version: {version >> 24}.{version >> 16 & 255}.{version & 65535} (raw value 0x{version:x})")
        lines += [f"{name}: 0x{key.get(name):x}" for name in
                  ("AdvertiseFlags", "Assignment", "DeploymentFlags", "InstanceType", "Language") if key.get(name) is not None]
        return lines + lines_of(key, [("PackageCode", "PackageCode: ")])

    def application(name):
        if "Linemodel" in name:
            if "V10" in name or "V11" in name:
                return [".lmdl", ".lmdl2", ".vkpj"], "Linemodel since V10"
            return [".lmdl", ".lmdl2"], "Linemodel"
        if name.startswith("Q9 V3"):
            return [".q9p", ".q90", ".vkpj"], "Q9 V3 Project"
        return {"Q9": ([".wvp"], "Q9 Project"), "Q9 Beta": ([".q9p", ".q90", ".vkpj"], "Q9 V2 Project"),
                "Q9 V2": ([".q9p", ".q90"], "Q9 V2 Project"), "Q90": ([".q90"], "Q90 Project")}.get(name)

    root = r"HKCR\Installer\Products"
    keys = exported(root)
    expected = [""]
    for product in below(keys, keys[0]):
        known = application(product.get("ProductName") or "")
        if not known:
            continue
        expected += values(product)
        for extension in known[0]:
            project = values_of("HKCR\\" + extension).get("")
            if project:
                expected.append(f"File extension '{extension}' registered with application project type '{project}'")
        command = values_of(f"HKCR\\{known[1]}\\shell\\open\\command").get("")
        if command:
            expected += [f"Open command for '{known[1]}':", command]
        expected.append("")
    if len(expected) < 10:
        failed("lines about products", len(expected), "the products of the described machine")
    report.block(">>> Info about installed Velkor applications from registry:", expected)
    expected = [""]
    keys = exported(r"HKCU\Software\Microsoft\Installer\Products")
    for product in below(keys, keys[0]):
        if product.get("ProductName") in ("M4-M8-vkUpdate", "Device Flasher", "T-BOX-vkUpdate"):
            expected += values(product) + [""]
    report.block(">>> Info about installed Velkor Visual Basic applications from registry:", expected)


def folders(report):
    winsxs = os.path.join(PREFIX, "drive_c", "windows", "winsxs")
    numbers = report.section("WinSxS directory entries")
    for number in numbers:
        if not os.path.isdir(os.path.join(winsxs, report.lines[number])):
            failed("WinSxS: a folder", report.lines[number], None)
        else:
            report.confirmed[number] = True
    runtimes = [name for name in os.listdir(winsxs) if re.search(r"microsoft\.vc.*crt", name, re.IGNORECASE)]
    if len(numbers) != len(runtimes):
        failed("WinSxS: folders of run-time libraries", len(numbers), sorted(runtimes))

    numbers = report.section("Some environment variables:")
    for name, label in (("OS", "OS       = "), ("PATH", "PATH     = "), ("HOMEPATH", "HOMEPATH = "), ("TEMP", "TEMP     = "),
                        ("PROCESSOR_IDENTIFIER", "PROCESSOR_IDENTIFIER = ")):
        report.line(label, wine("cmd", "/c", f"echo %{name}%").rstrip("\n"), numbers)

    numbers = report.section("Windows system directories")
    report.line("System directory:      ", wine("cmd", "/c", "echo %SystemRoot%").strip(), numbers)
    shell = values_of(r"HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders")
    numbers = report.section("Special Folders: ")
    for label, value in (("CSIDL_PERSONAL    ", shell.get("Personal")), ("CSIDL_PROGRAMS    ", shell.get("Programs")),
                         ("CSIDL_LOCAL_APPDATA    ", shell.get("Local AppData")), ("CSIDL_APPDATA    ", shell.get("AppData")),
                         ("CSIDL_PROGRAM_FILES    ", wine("cmd", "/c", "echo %ProgramFiles%").strip())):
        report.line(label, value, numbers)


def drives(report):
    letters = sorted(name[0].upper() for name in os.listdir(os.path.join(PREFIX, "dosdevices")) if re.fullmatch("[a-z]:", name))
    if [name.strip(":") for name in wmic("logicaldisk", "Name")] != letters:
        failed("drives: wmic and Linux", wmic("logicaldisk", "Name"), letters)
    numbers = report.section("Disk information: ")
    listed = [report.lines[number][0] for number in numbers]
    if listed != letters:
        failed("drives", listed, letters)
    for number, letter in zip(numbers, letters):
        status = os.statvfs(os.path.join(PREFIX, "dosdevices", letter.lower() + ":"))
        # Other processes may change the free space meanwhile, so 0.5 GByte of difference are permitted.
        free = re.search(r"Free: ([0-9.]+) (GByte|MByte)", report.lines[number])
        free_now = status.f_bavail * status.f_frsize / 1024 ** 3
        reported = float(free.group(1)) / (1 if free.group(2) == "GByte" else 1024)
        total = scaled(status.f_blocks * status.f_frsize)
        if abs(reported - free_now) > 0.5 or f"Total: {total} " not in report.lines[number] \
                or not report.lines[number].startswith(f"{letter}:\\ fixed drive "):
            failed(f"drive {letter}", report.lines[number], f"fixed drive, {free_now:.2f} GByte free of {total}")
        else:
            report.confirmed[number] = True


def dns_sd(report):
    for label, library in (("Standard Bonjour: ", "dnssd.dll"), ("velkor DNS-SD: ", "vkdnssd.dll")):
        exists = os.path.exists(os.path.join(PREFIX, "drive_c", "windows", "system32", library))
        report.line(label, None if exists else "not installed.")
    shared = values_of(r"HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\SharedDLLs")
    counted = next((shared.get(name) for name in shared.names if name.lower().endswith(r"\system32\vkdnssd.dll")), None)
    if counted is not None:
        report.line("RefCount for vkdnssd.dll: ", str(counted))


def modules(report):
    numbers = report.section("Loaded modules/DLLs:")
    for position, number in enumerate(numbers):
        path = report.lines[number]
        unix = os.path.join(PREFIX, "dosdevices", path[:2].lower(), *path[3:].split("\\"))
        # Paths of Windows are case-insensitive.
        if not os.path.exists(unix) and not find_ignoring_case(os.path.join(PREFIX, "dosdevices", path[:2].lower()), path[3:]):
            failed("a module that is not a file", path, unix)
        else:
            report.confirmed[number] = True
        if position == 0 and not path.lower().endswith("vkreport.exe"):
            failed("the first module", path, "vkreport.exe")


def find_ignoring_case(folder, path):
    for part in path.split("\\"):
        names_here = {name.lower(): name for name in os.listdir(folder)} if os.path.isdir(folder) else {}
        if part.lower() not in names_here:
            return None
        folder = os.path.join(folder, names_here[part.lower()])
    return folder


def network(report):
    interfaces = {link["ifname"]: link for link in json.loads(linux("ip", "-json", "address"))}
    heading = report.find("Network Interfaces Info")
    numbers = report.section("Network Interfaces Info")
    blocks = []
    for number in numbers:
        if report.lines[number] == "_" * 55:
            report.confirmed[number] = True
            blocks.append([])
        elif blocks:
            blocks[-1].append(number)
    if heading is None or len(blocks) != len(interfaces):
        failed("number of network interfaces", len(blocks), len(interfaces))
    for block in blocks:
        name = report.lines[block[0]]
        link = interfaces.get(name)
        if link is None:
            failed("network interface", name, sorted(interfaces))
            continue
        report.confirmed[block[0]] = True
        loopback = "LOOPBACK" in link["flags"]
        if loopback:
            report.line("Loopback interface", "", block)
        address = link["address"].upper()
        report.line("Hardware address: ", "" if loopback else address, block)
        expected = set()
        for entry in link["addr_info"]:
            if entry.get("tentative"):
                continue
            ip = ipaddress.ip_interface(f"{entry['local']}/{entry['prefixlen']}")
            expected.add(entry["local"])
            start = next((number for number in block if re.split(r"[% ]", report.lines[number])[0] == entry["local"]), None)
            if start is None:
                failed(f"{name}: address", None, entry["local"])
                continue
            parts = report.lines[start].split(" , ")
            if entry["family"] == "inet" and not loopback:
                wanted = [entry["local"], str(ip.netmask), str(ip.network.broadcast_address)]
                if parts != wanted:
                    failed(f"{name}: address", parts, wanted)
                    continue
            elif ipaddress.ip_address(parts[1]) != ip.netmask:
                failed(f"{name}: mask of {entry['local']}", parts[1], str(ip.netmask))
                continue
            report.confirmed[start] = True
        caption = next((number for number in block if report.lines[number].startswith("Addresses: ")), None)
        listed = [report.lines[number] for number in block
                  if report.lines[number].count(" , ") == 2 and number != caption]
        if len(listed) != len(expected):
            failed(f"{name}: number of addresses", listed, sorted(expected))
        if not expected:
            report.line("<no address>", "", block)
        gateway = linux("ip", "-json", "route", "show", "default", "dev", name)
        gateways = [route["gateway"] for route in json.loads(gateway or "[]") if "gateway" in route]
        if gateways:
            report.line("Gateway: ", f"{gateways[0]}, 255.255.255.255", block)


def qt_half(report, before, after):
    moment = report.find("Local Date and Time: ")
    reported = datetime.datetime.strptime(report.lines[moment][21:], "%d.%m.%Y %H:%M:%S")
    if not before.replace(microsecond=0) <= reported <= after:
        failed("local time", reported, (before, after))
    else:
        report.confirmed[moment] = True
    offset = datetime.datetime.now().astimezone().utcoffset()
    utc = (reported - offset).strftime("%d.%m.%Y %H:%M:%S")
    report.line("UTC   Date and Time: ", utc)
    report.line("ActiveBias: ", f"{int(-offset.total_seconds() // 60)} min")

    numbers = report.section("QDesktopServices")
    profile = wine("cmd", "/c", "echo %USERPROFILE%").strip().replace("\\", "/")
    report.line("Home:                      ", profile, numbers)
    report.line("Temp:                      ", wine("cmd", "/c", "echo %TEMP%").strip().replace("\\", "/"), numbers)

    numbers = report.section("System environemnt")
    listed = {report.lines[number][2:]: number for number in numbers}
    # "set" runs with other values of the variables of the shell. The output of cmd is ambiguous for
    # values with line breaks or non-ASCII characters.
    ambiguous = {name for name, value in os.environ.items() if "\n" in value or not value.isascii()}
    for line in wine("cmd", "/c", "set").split("\n"):
        name = line.split("=", 1)[0]
        if not re.fullmatch(r"[A-Za-z_][\w()]*", name) or "=" not in line \
                or name in ambiguous or name in ("PROMPT", "_", "PWD", "OLDPWD", "SHLVL"):
            continue
        if line in listed:
            report.confirmed[listed[line]] = True
        else:
            failed("variable of the environment", next((entry for entry in listed if entry.startswith(name + "=")), None), line)


def main():
    before = datetime.datetime.now()
    text = subprocess.run([RUN_WINE, VKREPORT, "--no-opengl"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          check=True).stdout.decode("utf-8")
    after = datetime.datetime.now()
    report = Report(text)
    for check in (windows_version, internet_explorer, processors, memory, names, descriptions, devices, video, products,
                  folders, drives, dns_sd, modules, network):
        check(report)
    qt_half(report, before, after)
    fixed = {"", SEPARATOR}
    varying = [number for number, line in enumerate(report.lines) if line not in fixed]
    confirmed = sum(report.confirmed[number] for number in varying)
    print(f"{confirmed} of {len(varying)} lines are confirmed by other sources. Lines without a check:")
    for number in varying:
        if not report.confirmed[number]:
            print("    " + report.lines[number])
    sys.exit(1 if failures else 0)


main()
