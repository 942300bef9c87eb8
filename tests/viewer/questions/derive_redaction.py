"""Writes redaction.tsv and checks that every text of it is in texts/leaving.txt.

Usage: python3 derive_redaction.py, in this folder, after derive_leaving.py.
"""
import pathlib

HERE = pathlib.Path(__file__).resolve().parent
text = (HERE / "texts/leaving.txt").read_text(encoding="utf-8")

GONE, STAYS = "must be gone", "must stay"
ON = "switch on"

NAMES = ["Quirina Möhlenkamp", "Möhlenkamp", "qmoehlenkamp", "quirina.moehlenkamp@zwirbelbach.example"]
HOST = ["KRANICHNEST", "kranichnest", "kranichnest.zwirbelbach.example"]
NET = ["zwirbelbach.example", "02:00:5E:4D:7B:C3", "192.0.2.86", "192.0.2.241", "192.0.2.255", "fe80::5eff:fe4d:7bc3"]
OTHER = ["Zwirbelbach Feinwerk", "48271-OEM-9036614-27715", "Kopierstube Ost", "ANGEBOTE-2031"]
SECRETS = ["Hummelflug77", "vexq-71kk-pudding-0042"]
HARMLESS = [
    "############ Windows specific section ###########", "RegisteredOwner:", "10.0.18362", "27.20.100.9664", "AMD EPYC",
    "ESPRIMO P757", "NVMe SAMSUNG MZVLB256", "PCI\\VEN_8086&DEV_5912", "62E2E84ADC3C86A4EB3F1A4FAEC4DFB9", "COM3",
    "Microsoft Print to PDF", "255.255.255.0", "127.0.0.1", "C:\\users\\Public", "21.11.2026 13:17:53", "BUILD_TOKEN",
    "AppData", "Windows_NT", "Driver Description",
]
UNFINDABLE = ["Tannenried", "Erlenhof 3"]

rows = []


def add(what, texts, steps):
    for one in texts:
        if one not in text:
            raise SystemExit("not in the report: " + one)
        rows.append("%s\t%s\t%s" % (one, what, steps))


add(STAYS, NAMES[:1] + HOST[:1] + SECRETS[:1] + UNFINDABLE, "none")
add(GONE, NAMES + HOST + NET + OTHER + SECRETS, ON)
add(STAYS, HARMLESS + UNFINDABLE, ON)

steps = ON + "; switch off"
add(STAYS, NAMES + HOST + NET + OTHER + SECRETS + UNFINDABLE, steps)

steps = ON + "; take back the alias of qmoehlenkamp"
add(STAYS, ["qmoehlenkamp"], steps)
add(GONE, HOST + NET[:3] + OTHER + SECRETS, steps)

steps = ON + "; take back the alias of KRANICHNEST"
add(STAYS, ["KRANICHNEST"], steps)
add(GONE, NAMES + ["zwirbelbach.example", "192.0.2.86"] + OTHER + SECRETS, steps)

steps = ON + "; take back the alias of 192.0.2.86"
add(STAYS, ["192.0.2.86"], steps)
add(GONE, NAMES + HOST + ["192.0.2.241", "02:00:5E:4D:7B:C3"] + SECRETS, steps)

steps = ON + "; take back the alias of Zwirbelbach Feinwerk"
add(STAYS, ["Zwirbelbach Feinwerk"], steps)
add(GONE, NAMES + HOST + ["zwirbelbach.example"] + SECRETS, steps)

steps = ON + "; take back the alias of KRANICHNEST; undo"
add(GONE, NAMES + HOST + SECRETS, steps)

steps = ON + "; select Tannenried in \"USB Serial Converter Tannenried\"; hide the selection"
add(GONE, ["Tannenried"] + NAMES + SECRETS, steps)
add(STAYS, ["Erlenhof 3", "USB Serial Converter", "filter.dll"], steps)

steps += "; take back its alias"
add(STAYS, ["Tannenried"], steps)
add(GONE, NAMES + SECRETS, steps)

steps = ON + "; select Tannenried in \"USB Serial Converter Tannenried\"; hide the selection; switch off; switch on"
add(GONE, ["Tannenried"] + NAMES + SECRETS, steps)

steps = ON + "; select [Erlenhof 3] with its brackets; hide the selection"
add(GONE, ["Erlenhof 3"] + NAMES, steps)
add(STAYS, ["USB Serial Port", "Driver Description", "Tannenried", "10.0.18362"], steps)

steps = ON + "; select *PNP0501; hide the selection"
add(GONE, ["*PNP0501"], steps)
add(STAYS, ["*PNP09FF", "ACPI\\PNP0100", "Tannenried"], steps)

steps = ON + "; take back the alias of qmoehlenkamp; close the window; open the report; " + ON
add(GONE, NAMES + HOST + SECRETS, steps)

(HERE / "redaction.tsv").write_text("#SECRET_TEXT\tEXPECTED\tAFTER\n" + "\n".join(rows) + "\n",
                                    encoding="utf-8", newline="\n")
