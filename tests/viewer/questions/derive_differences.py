"""Writes texts/before.txt and texts/after.txt: the example report before and after an update of Windows.

Usage: python3 derive_differences.py, in this folder.
"""
import pathlib

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[2]

# What precedes the change, the old text and the new one.
STEPS = [
    # Differences.
    ("", "From registry:     10.0.18362", "From registry:     10.0.19045.3803"),
    ("### Service: igfx\n0000\n", "   Driver Version: 27.20.100.9664", "   Driver Version: 31.0.101.2111"),
    ("Display:\n", "   Driver Version:     27.20.100.9664", "   Driver Version:     31.0.101.2111"),
    ("Display:\n", "   Driver Date:        6-1-2021", "   Driver Date:        9-14-2022"),
    ("Some environment variables:\n", "PATH     = C:\\windows\\system32;C:\\windows;",
     "PATH     = C:\\windows\\system32;C:\\Program Files\\Drossel\\bin;C:\\windows;"),
    ("Disk information: \n", "Z:\\ fixed drive          NTFS    Free: 70.6 GByte Total: 251.9 GByte \n", ""),
    (">>> Info about 'USBSTOR'", "Disk&Ven_SanDisk&Prod_Ultra&Rev_1.00\n",
     "Disk&Ven_Drossel&Prod_Stick&Rev_2.00\n"
     "   Device Description:  @disk.inf,%disk_devdesc%;Laufwerk\n"
     "   Friendly Name:       Drossel Stick USB Device\n"
     "   Hardware ID:         USBSTOR\\DiskDrossel_Stick___________2.00\n"
     "   Service:             disk\n"
     "\n\n"
     "Disk&Ven_SanDisk&Prod_Ultra&Rev_1.00\n"),
    ("Loaded modules", "C:\\windows\\system32\\zlib1.dll", "C:\\vkreport\\zlib1.dll"),
    ("System environemnt", "  PATH=C:\\windows\\system32;C:\\windows;",
     "  PATH=C:\\windows\\system32;C:\\Program Files\\Drossel\\bin;C:\\windows;"),
    # What changes every moment.
    ("", "MemoryLoad:            15%", "MemoryLoad:            42%"),
    ("", "AvailPhys:             21422440448 Byte = 19.9 GByte", "AvailPhys:             14495514624 Byte = 13.5 GByte"),
    ("", "AvailPageFile:         21422440448 Byte = 19.9 GByte",
     "AvailPageFile:         14495514624 Byte = 13.5 GByte"),
    ("", "AvailVirtual:          140737430065152 Byte = 131071.9 GByte",
     "AvailVirtual:          140737421676544 Byte = 131071.9 GByte"),
    ("Disk information: \n", "Free: 70.6 GByte", "Free: 69.9 GByte"),
    ("", "Used [bytes]:           100000000", "Used [bytes]:           104857600"),
    ("", "Local Date and Time: 21.11.2026 13:17:53", "Local Date and Time: 24.11.2026 08:02:11"),
    ("", "UTC   Date and Time: 21.11.2026 13:17:53", "UTC   Date and Time: 24.11.2026 08:02:11"),
    ("", "Application PID:      424", "Application PID:      5128"),
    ("", "Lease obtained: Thu Jan 01 00:00:00 1970", "Lease obtained: Tue Nov 24 07:58:40 2026"),
    ("", "Lease expires:  Thu Jan 01 00:00:00 1970", "Lease expires:  Wed Nov 25 07:58:40 2026"),
    # No difference at all: an equal version in another spelling.
    ("", "Qt version currently used for execution:   5.15.8", "Qt version currently used for execution:   5.15.8.0"),
]

before = (ROOT / "docs/example-report.txt").read_bytes().decode()
after = before
for place, old, new in STEPS:
    at = after.index(old, after.index(place))
    after = after[:at] + new + after[at + len(old):]

# No difference at all: two drivers changed places.
begin = after.index("   Driver Description: ACPI-Einschaltknopf")
middle = after.index("   Driver Description: PCI-Express-Stammkomplex")
end = after.index("   Driver Description: Intel(R) Xeon(R) E3")
after = after[:begin] + after[middle:end] + after[begin:middle] + after[end:]

(HERE / "texts/before.txt").write_bytes(before.encode())
(HERE / "texts/after.txt").write_bytes(after.encode())
