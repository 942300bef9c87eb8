"""Writes texts/hostile.txt: the example report with values that a stranger chose to do harm.

Usage: python3 derive_hostile.py, in this folder.
"""
import pathlib

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[2]

REPLACED = [
    ("ProductName:            Microsoft Windows 10\n",
     "ProductName:            <h1>Windows</h1><script>alert(1)</script>\n"),
    ("RegisteredOwner:        \n", "RegisteredOwner:        <img src=\"http://192.0.2.66/owner.png\">\n"),
    ("RegisteredOrganization: \n", "RegisteredOrganization: <a href=\"mailto:x@example.invalid\">mail</a> x@example.invalid\n"),
    ("Manufacturer:     Fujitsu\n", "Manufacturer:     <b>Fujitsu</b> &amp; &lt;i&gt; &#60;u&#62;\n"),
    ("Model:     ESPRIMO P757\n", "Model:     <html><body><img src=http://192.0.2.66/model.png>\n"),
    ("ProcessorNameString:  AMD EPYC\nVendorIdentifier:     AuthenticAMD\n",
     "ProcessorNameString:  AMD \x1b[31mEPYC\x1b[0m\x07\nVendorIdentifier:     Authentic\u202eDMA\u202c\u2066\n"),
    ("PrintQueue:\n", "<b>Print</b>&Queue:\n"),
    ("   Driver Description: HID-Tastatur\n", "   Driver Description: &Datei\t\x01\x7f\u0085\u200b\ufeff\n"),
    ("   Driver Description: HID-konforme Maus\n", "   Driver Description: " + "e" + "\u0301" * 2000 + "\n"),
    ("   Provider Name:      FTDI\n", "   Provider Name:      " + "W" * 100000 + "\n"),
    ("   Provider Name:      Kyocera\n", "   Provider Name:      " + "wort " * 20000 + "wort\n"),
    ("C:\\windows\\system32\\zlib1.dll\n", "C:\\windows\\<img src=file://192.0.2.66/share/a.png>.dll\n"),
    ("C:\\windows\\system32\\nsi.dll\n", "C:\\windows\\system32\\\u202elld.isn\n"),
    ("Application Name:     vkreport\n", "Application Name:     @everyone [x](http://192.0.2.66/) `code` | # h\n"),
    ("Organization Name:    \n", "Organization Name:    =HYPERLINK(\"http://192.0.2.66/\";\"x\")\n"),
    ("  WINEUSERLOCALE=C\n", "  <img src=x onerror=alert(1)>=<qt><b>value</b></qt>\n"),
    ("MSOGL   mesadrv.dll.dll\n", "\U0001f600\u05e9\u05dc\u05d5\u05dd   %1 %2 %n\n"),
]

text = (ROOT / "docs/example-report.txt").read_bytes().decode()
for old, new in REPLACED:
    if old not in text:
        raise SystemExit("missing: %r" % old)
    text = text.replace(old, new, 1)
(HERE / "texts/hostile.txt").write_bytes(text.encode())
