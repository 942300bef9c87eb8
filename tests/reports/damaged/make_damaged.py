#!/usr/bin/env python3
"""make_damaged.py PAIRS FOLDER: writes into FOLDER what people do to a report before they send it:
the inputs, states.tsv and facts.tsv. The states and the facts are written by hand below. PAIRS is
the folder of the pairs of reports."""
import os, re, sys

PAIRS, FOLDER = sys.argv[1:]
B = open(PAIRS + "/full-disk/OLD.txt", encoding="utf-8", newline="").read()
N = open(PAIRS + "/full-disk/NEW.txt", encoding="utf-8", newline="").read()
SEP = "-" * 72 + "\n"
os.makedirs(FOLDER, exist_ok=True)
for f in os.listdir(FOLDER):
    os.remove(FOLDER + "/" + f)

def edit(text, *edits):
    """Each edit: old text, new text, number of places (1 if not given). Stops if the number differs."""
    for e in edits:
        old, new = e[0], e[1]
        n = e[2] if len(e) > 2 else 1
        if text.count(old) != n:
            sys.exit("%d places, expected %d: %r" % (text.count(old), n, old))
        text = text.replace(old, new)
    return text

files, facts, checks = [], [], {}

WIN = """
windowsVersion ¦  ¦ fromRegistry ¦ 10.0.19045.3803
processorInfo ¦  ¦ numberOfProcessors ¦ 8
memoryInfo ¦  ¦ totalPhys ¦ 17055318016 Byte = 15.8 GByte
driverInfoFromRegistry ¦ deviceClass Display > driver PCI\\VEN_1002&DEV_6995&REV_00 ¦ driverVersion ¦ 27.20.21026.2006
diskInformation ¦ drive C ¦ free ¦ 100.9 GByte
"""
QT = """
qtGlobal ¦  ¦ qtVersionCurrentlyUsedForExecution ¦ 5.15.11
qtHostInfo ¦  ¦ localHostName ¦ Birkental-PC07
qtNetworkInterfaces ¦ interface 00:00:5E:00:53:11 > address 192.0.2.17 ¦ netmask ¦ 255.255.255.0
qtSystemEnvironment ¦ variable NUMBER_OF_PROCESSORS ¦ value ¦ 8
GetOpenGLInfo ¦  ¦ glRenderer ¦ Radeon (TM) Pro WX 2100 Graphics
"""
MIX = """
internetExplorerInfo ¦  ¦ kbNumber ¦ KB5031355
videoInfoFromRegistry ¦ adapter amdkmdag > configuration 0000 ¦ driverDate ¦ 10-28-2021
installedApplicationsFromRegistry ¦ product Q9 V3.1 ¦ version ¦ 3.1.447 (raw value 0x30101bf)
loadedModules ¦ module qt5core.dll ¦ path ¦ C:\\Program Files\\Velkor\\Q9 V3\\Qt5Core.dll
qtLocale ¦  ¦ country ¦ Germany
"""
BLANKS = """
windowsVersion ¦  ¦ name ¦ Windows 10 Professional Edition, 64-bit
diskInformation ¦ drive E ¦ label ¦ MESSDATEN
diskInformation ¦ drive D ¦ type ¦ CD/DVD drive
systemInformationFromRegistry ¦  ¦ informationSource ¦ 1
qtScreens ¦ screen 2 ¦ refreshRate ¦ 60.02 Hz
"""
LETTERS = """
userName ¦  ¦ userName ¦ Jörn
diskInformation ¦ drive Z ¦ label ¦ Büro
driverInfoFromRegistry ¦ deviceClass USB > driver USB\\COMPOSITE ¦ driverDescription ¦ USB-Verbundgerät
qtDesktopServices ¦  ¦ home ¦ C:/Users/Jörn
qtSystemEnvironment ¦ variable USERNAME ¦ value ¦ Jörn
"""
LONG = """
timeZoneInfoFromRegistry ¦  ¦ standardBias ¦ 0 min (additional offset if no daylight saving is active)
driverInfoFromRegistry ¦ deviceClass System > driver PCI\\VEN_8086&DEV_591F ¦ driverDescription ¦ Intel(R) Xeon(R) E3 - 1200 v6/7th Gen Intel(R) Core(TM) Host Bridge/DRAM Registers - 591F
GetOpenGLInfo ¦  ¦ glVersion ¦ 4.6.14761 Compatibility Profile Context 21.10.26.02 27.20.21026.2006
memoryInfo ¦  ¦ totalPhys ¦ 17055318016 Byte = 15.8 GByte
qtHostInfo ¦  ¦ localHostName ¦ Birkental-PC07
"""
FULL = """
diskInformation ¦ drive C ¦ free ¦ 300.4 MByte
someEnvironmentVariables ¦  ¦ temp ¦ Z:\\Temp
memoryInfo ¦  ¦ memoryLoad ¦ 81%
qtCoreApplication ¦  ¦ applicationPID ¦ 4420
qtDateTime ¦  ¦ localDateAndTime ¦ 16.01.2024 15:47:02
"""
MAIL = """
internetExplorerInfo ¦  ¦ version ¦ 11.789.19041.0
biosInfoFromRegistry ¦  ¦ systemBIOSDate ¦ 07/19/21
qtCoreApplication ¦  ¦ applicationName ¦ Q9
qtLocale ¦  ¦ measuringSystem ¦ MetricSystem
diskInformation ¦ drive C ¦ total ¦ 237.7 GByte
"""

def out(name, states, notes, data, pool="", loose=None):
    """loose: text to look the facts up in if not the file itself as UTF-8."""
    if isinstance(data, str):
        data = data.encode("utf-8", "surrogatepass")
    path = FOLDER + "/" + name
    assert not os.path.exists(path), name
    open(path, "wb").write(data)
    files.append((name, states, notes))
    text = loose if loose is not None else data.decode("utf-8", "replace")
    squeeze = lambda s: re.sub(r"[\s\u00a0>]+", "", s)
    for line in pool.strip().splitlines():
        f = [x.strip() for x in line.split("¦")]
        assert len(f) == 4, line
        assert squeeze(f[3]) in squeeze(text), (name, f)
        facts.append([name] + f)

def lines(text):
    return text[:-1].split("\n")
def each(text, fn):
    return "\n".join(fn(l) for l in lines(text)) + "\n"
def wrap(line, width, hard=False):
    result = []
    while len(line) > width:
        indent = len(line) - len(line.lstrip())
        at = line.rfind(" ", indent + 1, width + 1)
        if at < 0:
            if hard:
                result.append(line[:width]); line = line[width:]; continue
            at = line.find(" ", width)
            if at < 0: break
        result.append(line[:at]); line = line[at + 1:]
    return "\n".join(result + [line])

# --- whole reports, not damaged
out("clean.txt", "", "as written", B, WIN)
out("clean-without-opengl.txt", "", "the host asked for no OpenGL section", B[:B.index("#### QGLFormat")], MIX)
# --- line ends
out("crlf.txt", "crlf", "an editor saved it on Windows", B.replace("\n", "\r\n"), WIN)
out("crlf-mixed.txt", "crlf", "every third line ends with CR LF", "".join(l + ("\r\n" if i % 3 == 0 else "\n") for i, l in enumerate(lines(B))), QT)
out("cr-only.txt", "crlf", "old Mac line ends, no line feed at all; no state of its own in the list", B.replace("\n", "\r"), MIX)
out("crlf-doubled.txt", "crlf", "CR CR LF: the file was converted twice", B.replace("\n", "\r\r\n"), LETTERS)
out("crlf-blank-line-between.txt", "crlf", "CR LF became two line ends: every second line is empty, so are lines between blocks; blocks of drivers still start with a label", B.replace("\n", "\r\n\r\n"), WIN)
# --- mail
out("mail-quote.txt", "mailQuotes", "every line after '> ', empty lines as '> '", each(B, lambda l: "> " + l), MAIL)
out("mail-quote-twice.txt", "mailQuotes", "'>> ' before every line", each(B, lambda l: ">> " + l), WIN)
out("mail-quote-spaced.txt", "mailQuotes", "'> > ' before every line", each(B, lambda l: "> > " + l), QT)
out("mail-quote-no-blank.txt", "mailQuotes", "'>' without a blank: the lines '>>> Info about video' and '>> Info about' get one more; a reader must not eat those", each(B, lambda l: ">" + l), MIX)
out("mail-quote-bare-empty.txt", "mailQuotes,trailingBlanksStripped", "'> ' and no blanks at the end; empty lines are '>'", each(B, lambda l: ("> " + l).rstrip()), BLANKS)
out("mail-reply.txt", "mailQuotes,foreignText", "attribution line before, signature after", "Guten Tag,\n\nhier der Bericht.\n\nAm 09.01.2024 um 10:30 schrieb Jörn <joern@birkental.example>:\n" + each(B, lambda l: "> " + l) + "\n-- \nSupport\n", WIN)
half = B.index("Keyboard:\n")
out("mail-quote-half.txt", "mailQuotes", "the first half is quoted, the second is not (answered inline, then the mark was lost)", each(B[:half], lambda l: "> " + l) + B[half:], WIN)
# --- encodings
out("utf8-mark.txt", "byteOrderMark", "UTF-8 with mark", "\ufeff" + B, LETTERS)
out("utf16le-mark.txt", "utf16,byteOrderMark", "'Unicode' of an editor, here with LF", b"\xff\xfe" + B.encode("utf-16-le"), LETTERS, B)
out("utf16be-mark.txt", "utf16,byteOrderMark", "", b"\xfe\xff" + B.encode("utf-16-be"), LETTERS, B)
out("utf16le-no-mark.txt", "utf16", "", B.encode("utf-16-le"), WIN, B)
out("utf16be-no-mark.txt", "utf16", "", B.encode("utf-16-be"), WIN, B)
sur = edit(B, ("Büro  Free", "B\ud83dro  Free"))
out("utf16le-lone-surrogate.txt", "utf16,byteOrderMark", "the label of Z: holds a high surrogate alone; the label reads B, U+FFFD, ro", b"\xff\xfe" + sur.encode("utf-16-le", "surrogatepass"), WIN, B)
out("utf16be-lone-surrogate-no-mark.txt", "utf16", "low surrogate alone in the user name", edit(B, ("User name:                    Jörn", "User name:                    J\udc04rn")).encode("utf-16-be", "surrogatepass"), WIN, B)
out("utf16le-odd-byte.txt", "utf16,byteOrderMark,endMissing", "cut after half a character in the last section", b"\xff\xfe" + B[:-200].encode("utf-16-le")[:-1], WIN, B)
out("utf16le-crlf.txt", "utf16,byteOrderMark,crlf", "a Windows shell redirected it to a file", b"\xff\xfe" + B.replace("\n", "\r\n").encode("utf-16-le"), LETTERS, B)
out("latin1.txt", "notUtf8", "saved as ISO 8859-1; characters outside it became '?'", B.encode("latin-1", "replace"), WIN)
out("windows-1252.txt", "notUtf8", "saved as code page 1252, with the dash of a driver as 0x96", B.encode("cp1252", "replace"), QT)
inv = B.encode().replace("Büro".encode(), b"B\xffro").replace("Verbundgerät".encode(), b"Verbundger\xc3t").replace(b"Kyocera ECOSYS", b"Kyocera \xe2\x82ECOSYS")
out("invalid-utf8.txt", "notUtf8", "three broken sequences in values", inv, MIX)
out("double-utf8.txt", "", "UTF-8 read as code page 1252 and saved as UTF-8: valid UTF-8, so the state list has no name for it; values read 'JÃ¶rn'", "".join(c.encode("utf-8").decode("cp1252") if c in "öüäßÖÜÄ" and c.encode("utf-8")[1] not in (0x81,0x8d,0x8f,0x90,0x9d) else c for c in B), WIN)
out("nul-bytes.txt", "foreignText", "NUL bytes in two values, between two sections and a run of 512 at the end (a disk block); no state of its own in the list", edit(B, ("Radeon (TM) Pro WX 2100 Graphics\n   Installed", "Radeon (TM) Pro\0 WX 2100 Graphics\n   Installed"), ("Language:         German\n", "Language:         German\0\n"), (SEP + "QLocale", SEP + "\0\nQLocale")) + "\0" * 512, WIN)
ff = lines(B)
out("form-feeds.txt", "foreignText", "a form feed before every 60th line (printed to a file); no state of its own in the list", "\n".join(("\f" if i % 60 == 59 else "") + l for i, l in enumerate(ff)) + "\n", QT)
out("page-headings.txt", "foreignText", "a form feed and a page heading after every 60 lines, also inside blocks", "\n".join(l + ("\n\fbericht.txt                                        Seite %d\n" % (i // 60 + 2) if i % 60 == 59 else "") for i, l in enumerate(ff)) + "\n", MIX)
# --- blanks
out("trailing-blanks-stripped.txt", "trailingBlanksStripped", "", each(B, str.rstrip), BLANKS)
out("leading-blanks-stripped.txt", "leadingBlanksStripped", "no indentation is left: a folder '0000' or 'Processor #1' of the list looks like a title", each(B, str.lstrip), BLANKS)
out("both-blanks-stripped.txt", "leadingBlanksStripped,trailingBlanksStripped", "", each(B, str.strip), BLANKS)
out("blanks-collapsed.txt", "blanksCollapsed", "each run of blanks became one, also at the start and the end of a line", each(B, lambda l: re.sub(" +", " ", l)), BLANKS)
out("web-page.txt", "blanksCollapsed,leadingBlanksStripped,trailingBlanksStripped", "copied from a web page", each(B, lambda l: re.sub(" +", " ", l).strip()), BLANKS)
out("no-break-spaces.txt", "noBreakSpaces", "every blank is U+00A0", B.replace(" ", "\u00a0"), BLANKS)
out("no-break-spaces-runs.txt", "noBreakSpaces", "in a run all blanks but the last are U+00A0, as an HTML editor writes them", re.sub(" +", lambda m: "\u00a0" * (len(m.group(0)) - 1) + " ", B), BLANKS)
# --- wrapped lines
out("wrapped-72.txt", "wrappedLines", "lines broken at a blank before column 73; the blank is lost; words longer than that are kept whole", each(B, lambda l: wrap(l, 72)), LONG)
out("wrapped-76.txt", "wrappedLines", "the same with 76", each(B, lambda l: wrap(l, 76)), LONG)
out("wrapped-76-hard.txt", "wrappedLines", "long words are broken too", each(B, lambda l: wrap(l, 76, True)), LONG)
out("wrapped-72-quoted.txt", "wrappedLines,mailQuotes", "wrapped, then quoted with '> '", each(each(B, lambda l: wrap(l, 72)), lambda l: "> " + l), LONG)
out("quoted-then-wrapped-72.txt", "wrappedLines,mailQuotes", "quoted, then wrapped: the rest of a line has no quote mark; a separator (74 columns with the mark) became a line '>' and a line of 72 hyphens", each(each(B, lambda l: "> " + l), lambda l: wrap(l, 72)), MAIL)
# --- the host's own text
HOST = "Q9 V3.1 support package\nCreated: 2024-01-09\nLicence: 4711-0815\n\n"
out("foreign-before.txt", "foreignText", "the host writes a head", HOST + B, WIN)
out("foreign-after.txt", "foreignText", "the host writes its log after the report", B + "\n[10:22:40] project opened\n[10:22:41] device not found: error 7\n", QT)
out("foreign-both.txt", "foreignText", "", HOST + B + "\n=== end of support package ===\n", MIX)
out("foreign-like-a-report.txt", "foreignText", "the host's head has separators and lines 'label: value' of its own, one of them 'Version: 3.1.447'", "Q9\n" + SEP + "Version: 3.1.447\nUser name: none\n" + SEP + B + SEP + "Memory use of Q9: 412 MByte\n" + SEP, WIN)
out("foreign-no-line-end.txt", "foreignText", "the host's text runs into the heading: 'Report: ####...'", "Report: " + B, QT)
# --- parts
cut = B.index("   Driver Version:     10.0.19041.1\n", B.index("Keyboard:\n"))
out("start-missing.txt", "startMissing", "starts in the keyboard driver's block; its class is not known", B[cut:], """
driverInfoFromRegistry ¦ deviceClass MEDIA > driver HDAUDIO\\FUNC_01&VEN_10EC&DEV_0671 ¦ driverVersion ¦ 6.0.8988.1
driverInfoFromRegistry ¦ deviceClass Ports > driver *PNP0501 ¦ infSection ¦ ComPort
timeZoneInfoFromRegistry ¦  ¦ bias ¦ -60 min (offset to UTC)
registryQuota ¦  ¦ allowedBytes ¦ 4294967295
qtLocale ¦  ¦ language ¦ German
""")
out("start-missing-in-line.txt", "startMissing", "starts inside a line of the memory section: 'hys:             92...'", B[B.index("hys:             9216737280"):], """
memoryInfo ¦  ¦ totalPageFile ¦ 19605454848 Byte = 18.2 GByte
computerNames ¦  ¦ netBiosName ¦ BIRKENTAL-PC07
oemInfoFromRegistry ¦  ¦ model ¦ ESPRIMO P757
diskInformation ¦ drive Z ¦ total ¦ 3666.4 GByte
GetOpenGLInfo ¦  ¦ glVendor ¦ ATI Technologies Inc.
""")
end = B.index("System32\\OpenSSH", B.index("  Path=")) + 5
out("end-missing.txt", "endMissing", "ends in the value of Path; what there is of Path is not the value", B[:end], """
windowsVersion ¦  ¦ fromRegistry ¦ 10.0.19045.3803
qtHostInfo ¦  ¦ localDomainName ¦ birkental.example
qtNetworkInterfaces ¦ interface 00:00:5E:00:53:27 > address 198.51.100.1 ¦ netmask ¦ 255.255.255.0
qtSystemEnvironment ¦ variable COMPUTERNAME ¦ value ¦ BIRKENTAL-PC07
qtSystemEnvironment ¦ variable NUMBER_OF_PROCESSORS ¦ value ¦ 8
""")
out("end-missing-32k.txt", "endMissing", "a form kept only the first 32768 characters", B[:32768], """
windowsVersion ¦  ¦ fromRegistry ¦ 10.0.19045.3803
processorInfo ¦  ¦ numberOfProcessors ¦ 8
memoryInfo ¦  ¦ totalPhys ¦ 17055318016 Byte = 15.8 GByte
driverInfoFromRegistry ¦ deviceClass Display > driver PCI\\VEN_1002&DEV_6995&REV_00 ¦ driverVersion ¦ 27.20.21026.2006
installedApplicationsFromRegistry ¦ product Q9 ¦ version ¦ 1.8.212 (raw value 0x10800d4)
""")
a, z = B.index("   Matching Device ID: PCI\\VEN_8086&DEV_15E3"), B.index("C:\\Windows\\System32\\USER32.dll")
out("middle-missing.txt", "sectionsMissing", "cut from a network driver to the list of modules; the two ends stand one after the other", B[:a] + B[z:], """
driverInfoFromRegistry ¦ deviceClass Display > driver PCI\\VEN_1002&DEV_6995&REV_00 ¦ infPath ¦ oem31.inf
videoInfoFromRegistry ¦ adapter igfx > configuration 0000 ¦ videoMemory ¦ 1.0 GByte
loadedModules ¦ module glu32.dll ¦ path ¦ C:\\Windows\\SYSTEM32\\GLU32.dll
qtCoreApplication ¦  ¦ applicationVersion ¦ 3.1.447
GetOpenGLInfo ¦  ¦ hasOpenGL ¦ 1
""")
a, z = B.index("Memory Information:"), B.index("Time Zone information")
out("sections-missing.txt", "sectionsMissing", "whole sections cut out at separators", B[:a] + B[z:], """
processorInfo ¦  ¦ pageSize ¦ 4096
timeZoneInfoFromRegistry ¦  ¦ daylightName ¦ @tzres.dll,-321
installedVisualBasicApplications ¦ product Device Flasher ¦ version ¦ 1.3.8 (raw value 0x1030008)
diskInformation ¦ drive E ¦ fileSystem ¦ FAT32
qtAccessibility ¦  ¦ isActive ¦ 0
""")
out("one-section-memory.txt", "startMissing,endMissing", "one section alone, without a separator", B[B.index("Memory Information:"):B.index(SEP + "Computer name")], """
memoryInfo ¦  ¦ memoryLoad ¦ 45%
memoryInfo ¦  ¦ totalPhys ¦ 17055318016 Byte = 15.8 GByte
memoryInfo ¦  ¦ availPhys ¦ 9216737280 Byte = 8.5 GByte
memoryInfo ¦  ¦ totalPageFile ¦ 19605454848 Byte = 18.2 GByte
memoryInfo ¦  ¦ totalVirtual ¦ 140737488224256 Byte = 131071.9 GByte
""")
out("one-section-date.txt", "startMissing,endMissing", "the section without a title", B[B.index("Local Date"):B.index(SEP + "Qt Global")], """
qtDateTime ¦  ¦ localDateAndTime ¦ 09.01.2024 10:22:41
qtDateTime ¦  ¦ utcDateAndTime ¦ 09.01.2024 09:22:41
qtDateTime ¦  ¦ activeBias ¦ -60 min
""")
out("windows-half.txt", "endMissing", "the Windows half alone; it ends with a separator", B[:B.index("###### System")], WIN)
out("qt-half.txt", "startMissing", "the Qt half and OpenGL", B[B.index("###### System"):], QT)
# --- native digits
def digits(zero):
    t = str.maketrans({chr(48 + i): chr(zero + i) for i in range(10)})
    def repl(m): return m.group(1) + m.group(2).translate(t)
    return re.sub(r"(Local Date and Time: |UTC   Date and Time: )(.*)", repl, B)
for name, zero, loc, utc in [("arabic-indic", 0x660, "٠٩.٠١.٢٠٢٤ ١٠:٢٢:٤١", "٠٩.٠١.٢٠٢٤ ٠٩:٢٢:٤١"), ("persian", 0x6f0, "۰۹.۰۱.۲۰۲۴ ۱۰:۲۲:۴۱", "۰۹.۰۱.۲۰۲۴ ۰۹:۲۲:۴۱"), ("devanagari", 0x966, "०९.०१.२०२४ १०:२२:४१", "०९.०१.२०२४ ०९:२२:४१")]:
    out("digits-%s.txt" % name, "nativeDigits", "both times in native digits, the bias in European digits; the instant is 2024-01-09 09:22:41 UTC", digits(zero), """
qtDateTime ¦  ¦ localDateAndTime ¦ %s
qtDateTime ¦  ¦ utcDateAndTime ¦ %s
qtDateTime ¦  ¦ activeBias ¦ -60 min
windowsVersion ¦  ¦ fromRegistry ¦ 10.0.19045.3803
qtCoreApplication ¦  ¦ applicationPID ¦ 7312
""" % (loc, utc))
# --- number of reports
out("two-reports.txt", "severalReports", "one after the other; the facts are of the first, except drive C free 300.4 MByte of the second", B + N, WIN)
out("two-reports-second-cut.txt", "severalReports,endMissing", "the second ends in the memory section; the facts are of the first", B + N[:N.index("TotalPageFile") + 30], WIN)
out("two-reports-one-quoted.txt", "severalReports,mailQuotes,foreignText", "the answer holds a new report; the old one is quoted below; the facts are of the new report, which is not quoted", "Neuer Bericht:\n\n" + N + "\nAm 09.01.2024 schrieb der Support:\n" + each(B, lambda l: "> " + l), FULL)
out("two-reports-text-between.txt", "severalReports,foreignText", "facts of the first", B + "\n===== second report =====\n\n" + N, MIX)
out("same-report-twice.txt", "severalReports", "pasted twice", B + B, WIN)
out("no-report.txt", "noReport", "a mail without a report", "Guten Tag,\n\nQ9 startet nicht mehr: Fehler 7.\nVersion: 3.1.447\nProcessor: i7\n\nGrüße\nJörn\n")
out("no-report-separators-in-it.txt", "noReport", "a log with separators of 72 hyphens and labels", "Log\n" + SEP + "Version: 3\nStatus: Up, Running\n" + SEP + "Memory: 12\n" + SEP)
out("empty.txt", "noReport", "0 bytes", "")
out("only-blanks.txt", "noReport", "blanks and line ends", "  \n\n   \n")
out("only-separators.txt", "noReport", "separators alone", SEP * 23)
out("only-headings.txt", "sectionsMissing,endMissing", "the two headings and the OpenGL title alone; a report without sections, or noReport: see the list of doubts", "############ Windows specific section ###########\n###### System informations retrieved using Qt #######\n#### QGLFormat #### \n")
# --- values with line breaks
def val(name, can, note, text, pool): out("value-" + name + ".txt", "ambiguous" if can == "ambiguous" else "", can + ": " + note, text, pool)
ORG = "RegisteredOrganization: Birkental Anlagenbau GmbH"
val("plain-line", "tell", "the organisation has two lines; 'GmbH' is no label of the section, so it continues the value", edit(B, (ORG, "RegisteredOrganization: Birkental Anlagenbau\nGmbH")), WIN)
val("label-that-may-follow", "ambiguous", "'CSDVersion:' may follow the organisation, and nothing else shows that it is part of its value", edit(B, (ORG, ORG + "\nCSDVersion:             Service Pack 9")), WIN)
val("label-out-of-order", "tell", "'ProductId:' stands before RegisteredOwner in every report, and is there already", edit(B, (ORG, ORG + "\nProductId:              00000")), MIX)
val("label-repeated", "ambiguous", "'RegisteredOrganization:' twice: owner 'J..n<break>RegisteredOrganization: Fake' or organisation 'Fake<break>RegisteredOrganization: Birkental...'", edit(B, (ORG, "RegisteredOrganization: Fake\n" + ORG)), WIN)
val("path-then-homepath", "ambiguous", "PATH holds a break and 'HOMEPATH = \\fake'; the true HOMEPATH follows: two readings", edit(B, ("HOMEPATH = \\Users\\Jörn\n", "HOMEPATH = \\fake\nHOMEPATH = \\Users\\Jörn\n")), MIX)
val("separator", "tell", "a separator in the organisation; after it stands 'Zentrale', which starts no section, then the real separator", edit(B, (ORG, ORG + "\n" + SEP + "Zentrale")), WIN)
val("separator-at-end", "ambiguous", "the organisation ends with a break and a separator: two separators in a row could also be a section cut out between them", edit(B, (ORG, ORG + "\n" + SEP[:-1])), QT)
val("separator-longer", "tell", "73 hyphens are no separator", edit(B, (ORG, ORG + "\n" + "-" * 73)), WIN)
val("heading-qt", "tell", "the Qt heading in the organisation; the sections of the Windows half follow it, and the real heading comes after a separator", edit(B, (ORG, ORG + "\n###### System informations retrieved using Qt #######")), WIN)
val("heading-windows", "tell", "the Windows heading in a variable; it does not start a second report, because 'Windows version: ' does not follow", edit(B, ("  VELKOR_PROJECTS=Z:\\Projekte", "  VELKOR_PROJECTS=Z:\\Projekte\n############ Windows specific section ###########")), QT)
IE = "This is a 64bit application.\n" + SEP + "Internet Explorer information from Registry\nVersion:           9.0\n"
val("section-then-rest", "tell", "the owner holds two whole sections; 'RegisteredOrganization:' follows in what then looks like the Explorer section, where it has no place, and both sections come again", edit(B, ("\nRegisteredOrganization:", "\n" + SEP + IE + "RegisteredOrganization:")), WIN)
val("section-whole", "ambiguous", "the organisation, last value of its section, holds the two sections that follow; which of the two copies is the value cannot be seen", edit(B, (ORG, ORG + "\n" + SEP + IE[:-1])), """
windowsVersion ¦  ¦ fromRegistry ¦ 10.0.19045.3803
processorInfo ¦  ¦ numberOfProcessors ¦ 8
memoryInfo ¦  ¦ totalPhys ¦ 17055318016 Byte = 15.8 GByte
diskInformation ¦ drive C ¦ free ¦ 100.9 GByte
qtLocale ¦  ¦ country ¦ Germany
""")
GL = SEP + "#### QGLFormat #### \nhasOpenGL         0\nhasOpenGLOverlays 0\nopenGLVersionFlags 0x0 not recognized\n#### Info about the OpenGL driver DLL's from registry ###"
val("section-opengl-at-end", "ambiguous", "the report has no OpenGL section; the last variable holds one", edit(B[:B.index("#### QGLFormat")], ("  windir=C:\\Windows\n", "  windir=C:\\Windows\n" + GL + "\n")), MIX)
val("section-opengl-in-the-middle", "tell", "a variable in the middle holds an OpenGL section; variables follow it and the real section stands at the end", edit(B, ("  OS=Windows_NT\n", "  OS=Windows_NT\n" + GL + "\n")), WIN)
whole = edit(B, ("10.0.19045.3803", "10.0.10240.1"), ("Birkental", "Attrappe", B.count("Birkental")))
val("report-whole", "ambiguous", "the last variable ends with a separator and a whole other report without OpenGL: the same as two reports, the first without OpenGL", edit(B, ("  windir=C:\\Windows\n" + SEP + "#### QGLFormat", "  windir=C:\\Windows\n" + SEP + whole[:whole.index("#### QGLFormat")] + "#### QGLFormat")), """
memoryInfo ¦  ¦ totalPhys ¦ 17055318016 Byte = 15.8 GByte
processorInfo ¦  ¦ numberOfProcessors ¦ 8
qtLocale ¦  ¦ country ¦ Germany
diskInformation ¦ drive C ¦ free ¦ 100.9 GByte
GetOpenGLInfo ¦  ¦ glRenderer ¦ Radeon (TM) Pro WX 2100 Graphics
""")
val("variable-indented", "ambiguous", "the value of OS holds a break and '  FAKE=1': the same as a variable FAKE", edit(B, ("  OS=Windows_NT\n", "  OS=Windows_NT\n  FAKE=1\n")), QT)
val("variable-not-indented", "tell", "'FAKE=1' without two blanks is part of the value before", edit(B, ("  OS=Windows_NT\n", "  OS=Windows_NT\nFAKE=1\n")), QT)
val("driver-version-repeated", "ambiguous", "the description of the keyboard driver holds '   Driver Version:     9.9', or the version holds a break", edit(B, ("   Driver Description: HID-Tastatur\n", "   Driver Description: HID-Tastatur\n   Driver Version:     9.9\n")), WIN)
val("driver-rule-and-class", "ambiguous", "the last value of a driver holds a rule of 28 hyphens and 'Fake:': the same as an empty class Fake", edit(B, ("   InfSection:         KXDRIVER\n", "   InfSection:         KXDRIVER\n----------------------------\nFake:\n")), WIN)
val("driver-empty-line", "ambiguous", "the description holds an empty line and a second description: the same as two drivers", edit(B, ("   Driver Description: HID-konforme Maus\n", "   Driver Description: HID-konforme Maus\n\n   Driver Description: Fake\n")), MIX)
val("driver-text-line", "tell", "a line without indentation inside a driver's block is no class, because no colon ends it", edit(B, ("   Driver Description: HID-konforme Maus\n", "   Driver Description: HID-konforme Maus\n(zweite Zeile)\n")), MIX)
val("bios-continuation", "ambiguous", "23 blanks after a break in a BIOS string are the same as a further string", edit(B, ("FUJ    - 1072009\n", "FUJ    - 1072009\n                       FAKE\n")), WIN)
val("printer", "ambiguous", "a printer's name holds a break, three blanks and a name", edit(B, ("   Microsoft Print to PDF\n", "   Microsoft Print to PDF\n   Fake\n")), QT)
val("application-name", "tell", "the application's name holds 'Application PID:      1'; directory and file path come after it, and the real line too", edit(B, ("Application Name:     Q9\n", "Application Name:     Q9\nApplication PID:      1\n")), WIN)
val("interface-rule", "tell", "an interface's name holds a line of 55 underscores and 'Fake'; 'Hardware address' follows at once, so 'Bluetooth-Netzwerkverbindung' would have no lines of its own", edit(B, ("Bluetooth-Netzwerkverbindung\n", "Bluetooth-Netzwerkverbindung\n" + "_" * 55 + "\nFake\n")), WIN)
val("interface-whole", "ambiguous", "an interface's name holds the lines of a whole interface and a rule", edit(B, ("Bluetooth-Netzwerkverbindung\n", "Fake\nHardware address: 00:00:5E:00:53:FE\nStatus: Up, Running\nAddresses: IP , netmask , broadcast\n203.0.113.9 , 255.255.255.0 , 203.0.113.255\n" + "_" * 55 + "\nBluetooth-Netzwerkverbindung\n")), WIN)
val("product-empty-line", "ambiguous", "an open command holds an empty line and a whole product", edit(B, ("\"C:\\Program Files\\Velkor\\Q9 V3\\Q9.exe\" \"%1\"\n", "\"C:\\Program Files\\Velkor\\Q9 V3\\Q9.exe\" \"%1\"\n\nProductName: Q9 V3.9\nVersion: 3.9.1 (raw value 0x3090001)\n")), WIN)
# --- texts without a line end
KEY = "<failed to open registry key '%1'"
ie1, ie2 = B.index("Version:           11.789"), B.index(SEP + "Processor information")
GLUED = B[:ie1] + KEY + B[ie2:]
out("glued-registry-key.txt", "", "the Explorer's key could not be opened: the text and the separator are one line; not damaged", GLUED, WIN)
d1, d2 = B.index("C:\\ fixed drive"), B.index(SEP + ">>> Info about 'FDC'")
out("glued-drives.txt", "", "GetLogicalDrives failed: 'error = 5' and the separator are one line; the error is 5, not 5 and hyphens; not damaged", B[:d1] + "Failed GetLogicalDrives(), error = 5" + B[d2:], """
diskInformation ¦  ¦ getLogicalDrivesFailed ¦ 5
someEnvironmentVariables ¦  ¦ os ¦ Windows_NT
diskDevicesFromRegistry:SCSI ¦ device Disk&Ven_NVMe&Prod_SAMSUNG_MZVLB256 > instance NVMe SAMSUNG MZVLB256 ¦ service ¦ disk
memoryInfo ¦  ¦ totalPhys ¦ 17055318016 Byte = 15.8 GByte
portsFromRegistry:SERIALCOMM ¦ port \\Device\\Serial0 ¦ port ¦ COM1
""")
w1, w2 = B.index("amd64_microsoft.vc80"), B.index(SEP + "Some environment")
out("glued-winsxs.txt", "", "the directory does not exist: the text and the separator are one line; not damaged", B[:w1] + "Directory 'C:/Windows/WinSxS' does not exist." + B[w2:], MIX)
G3 = GLUED.replace(B[d1:d2], "Failed GetLogicalDrives(), error = 31").replace(B[w1:w2], "Directory 'C:/Windows/WinSxS' does not exist.")
out("glued-all.txt", "", "the three together; not damaged", G3, """
processorInfo ¦  ¦ numberOfProcessors ¦ 8
diskInformation ¦  ¦ getLogicalDrivesFailed ¦ 31
someEnvironmentVariables ¦  ¦ os ¦ Windows_NT
checkStandardBonjour ¦  ¦ standardBonjour ¦ installed.
qtLocale ¦  ¦ country ¦ Germany
""")
out("glued-all-quoted-crlf.txt", "mailQuotes,crlf,trailingBlanksStripped", "the three together, quoted, with CR LF, no blanks at the end", each(G3, lambda l: ("> " + l).rstrip()).replace("\n", "\r\n"), """
processorInfo ¦  ¦ processorLevel ¦ 6
diskInformation ¦  ¦ getLogicalDrivesFailed ¦ 31
registryQuota ¦  ¦ usedBytes ¦ 187432960
checkStandardBonjour ¦  ¦ dnsSDVersion ¦ 333.10.0
qtHostInfo ¦  ¦ localHostName ¦ Birkental-PC07
""")
# --- several at once
out("support-mail.txt", "utf16,byteOrderMark,crlf,mailQuotes,trailingBlanksStripped,foreignText,endMissing", "what arrives on a bad day", b"\xff\xfe" + ("Hallo,\n" + each(B[:B.index("TotalVirtual")], lambda l: ("> " + l).rstrip())).replace("\n", "\r\n").encode("utf-16-le"), """
windowsVersion ¦  ¦ fromRegistry ¦ 10.0.19045.3803
windowsVersionFromRegistry ¦  ¦ displayVersion ¦ 22H2
internetExplorerInfo ¦  ¦ kbNumber ¦ KB5031355
processorRegistryInfo ¦ processor 7 ¦ mhz ¦ 3600 MHz = 3.600 GHz
memoryInfo ¦  ¦ totalPhys ¦ 17055318016 Byte = 15.8 GByte
""", B)

NAMES = set("crlf mailQuotes byteOrderMark utf16 trailingBlanksStripped leadingBlanksStripped blanksCollapsed noBreakSpaces wrappedLines foreignText startMissing endMissing sectionsMissing nativeDigits severalReports noReport ambiguous notUtf8".split())
with open(FOLDER + "/states.tsv", "w", encoding="utf-8", newline="") as f:
    f.write("file\tstates\tnotes\n")
    for n, s, t in files:
        assert set(s.split(",")) - {""} <= NAMES, s
        f.write("%s\t%s\t%s\n" % (n, s, t))
with open(FOLDER + "/facts.tsv", "w", encoding="utf-8", newline="") as f:
    f.write("file\tsection\titem\tkey\ttext\n")
    for r in facts:
        f.write("\t".join(r) + "\n")
print(len(files), "files", len(facts), "facts", "states not used:", NAMES - {s for _, x, _ in files for s in x.split(",")})
