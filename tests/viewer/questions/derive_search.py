"""Writes the small texts, find.tsv, find-ranges.tsv and lines.tsv.

It uses Python's own Unicode data and its own decoder, so its answers do not depend on the code that they test.
Usage: python3 derive_search.py, in this folder.
"""
import pathlib
import re

HERE = pathlib.Path(__file__).resolve().parent
REPORT = "docs/example-report.txt"
ROOT = HERE.parents[2]

TEXTS = {
    "empty.txt": b"",
    "one_line_feed.txt": b"\n",
    "one_letter.txt": b"x",
    "overlapping.txt": b"aaaa\naaaaa\nAaAa\nabababa\n",
    "umlauts.txt": "Jörn Größe GRÖSSE größe\nÄrger ärger Aerger\nÜBER über u\u0308ber\n".encode(),
    "sharp_s.txt": "Straße STRASSE STRAẞE strasse\nMaß Mass MAẞ\n".encode(),
    "turkish_i.txt": "I i İ ı\nISPARTA İSPARTA ısparta isparta\ni\u0307\n".encode(),
    "combining.txt": "café cafe\u0301 CAFÉ CAFE\u0301\nA\u030a Å \u212b\n".encode(),
    "other_lengths.txt": "5 K 5 \u212a 5 k\nΣΊΣΥΦΟΣ σίσυφος\n10 µm 10 μm 10 Μm\n\u017fein Sein\n".encode(),
    "cjk.txt": "系统信息 显卡驱动 驱动驱动驱\nドライバー ドライバ\n\U00020bb7野家 吉野家\n".encode(),
    "capitals_beyond.txt": "\U00010400 \U00010428 \U0001f600 \U0001f600\U0001f600\n".encode(),
    "no_break_spaces.txt": "Driver\u00a0Version: 1\nDriver Version: 2\nDriver\u2007Version: 3\nDriver\u202fVersion: 4\n".encode(),
    "tabs.txt": b"a\tb\ta\tb\n\ta\n  a\n",
    "cr_lf.txt": b"one\r\ntwo\r\n\r\none two\r\nend",
    "lone_cr.txt": b"one\rtwo\r\rone\r",
    "mixed_line_ends.txt": b"a\nb\r\nc\rd\n\re\r\r\nf\n\nlast",
    "no_end.txt": b"first\nlast without an end",
    "not_line_ends.txt": "a\vb\fc\u0085d\u2028e\u2029f\n\x1cg\n".encode(),
    "not_utf8.txt": b"gr\xf6\xdfe\nJ\xc3\xb6rn J\xf6rn J\xc3 rn\n"
                    b"\xff\xfe\x80a\x80a\n\xe2\x82\n\xc0\xafx \xed\xa0\x80y \xf4\x90\x80\x80z\n\xef\xbf\xbd\n",
    "null_characters.txt": b"a\0b\0\0c\nbefore\0after\n\0",
    "mark.txt": b"\xef\xbb\xbfWindows version: \nWindows\n",
    "right_to_left.txt": "name\u202egpj.exe\nשלום עולם שלום\nabc\u200bdef abcdef\n".encode(),
}

# Text, needle, match case, hits, first and last offset. The last three are read off the text by a person, for the
# rows where they are given; None leaves them to the script.
QUESTIONS = [
    ("empty.txt", "a", False, (0, -1, -1)),
    ("empty.txt", "", False, (0, -1, -1)),
    ("one_letter.txt", "", True, (0, -1, -1)),
    ("one_letter.txt", "x", True, (1, 0, 0)),
    ("one_letter.txt", "xx", True, (0, -1, -1)),
    ("one_letter.txt", "X", False, (1, 0, 0)),
    ("one_letter.txt", "X", True, (0, -1, -1)),
    ("one_line_feed.txt", "\n", True, (1, 0, 0)),
    ("overlapping.txt", "aa", True, (4, 0, 7)),
    ("overlapping.txt", "aa", False, (6, 0, 13)),
    ("overlapping.txt", "aaa", True, (2, 0, 5)),
    ("overlapping.txt", "aaaaaa", False, (0, -1, -1)),
    ("overlapping.txt", "aba", True, (2, 16, 20)),
    ("overlapping.txt", "AbA", False, (2, 16, 20)),
    ("overlapping.txt", "a\na", True, (2, 3, 14)),
    ("umlauts.txt", "größe", False, (2, 6, 22)),
    ("umlauts.txt", "größe", True, (1, 22, 22)),
    ("umlauts.txt", "GRÖSSE", False, (1, 14, 14)),
    ("umlauts.txt", "ärger", False, (2, 30, 37)),
    ("umlauts.txt", "Ä", True, (1, 30, 30)),
    ("umlauts.txt", "über", False, (2, 51, 57)),
    ("umlauts.txt", "u\u0308ber", False, (1, 63, 63)),
    ("umlauts.txt", "ö", False, None),
    ("umlauts.txt", "o", False, None),
    ("sharp_s.txt", "ß", False, None),
    ("sharp_s.txt", "ß", True, None),
    ("sharp_s.txt", "ẞ", True, None),
    ("sharp_s.txt", "ss", False, None),
    ("sharp_s.txt", "straße", False, None),
    ("turkish_i.txt", "i", False, None),
    ("turkish_i.txt", "I", True, None),
    ("turkish_i.txt", "İ", False, None),
    ("turkish_i.txt", "ı", False, None),
    ("turkish_i.txt", "isparta", False, None),
    ("turkish_i.txt", "i\u0307", False, None),
    ("combining.txt", "é", False, None),
    ("combining.txt", "e\u0301", False, None),
    ("combining.txt", "cafe", False, None),
    ("combining.txt", "\u0301", True, None),
    ("combining.txt", "å", False, None),
    ("combining.txt", "a\u030a", False, None),
    ("other_lengths.txt", "k", False, None),
    ("other_lengths.txt", "\u212a", False, None),
    ("other_lengths.txt", "\u212a", True, None),
    ("other_lengths.txt", "5 k", False, None),
    ("other_lengths.txt", "σίσυφος", False, None),
    ("other_lengths.txt", "ς", False, None),
    ("other_lengths.txt", "10 µm", False, None),
    ("other_lengths.txt", "sein", False, None),
    ("cjk.txt", "驱动", True, None),
    ("cjk.txt", "驱动驱", False, None),
    ("cjk.txt", "ドライバー", False, None),
    ("cjk.txt", "ドライバ", False, None),
    ("cjk.txt", "野家", False, None),
    ("cjk.txt", "\U00020bb7", False, None),
    ("capitals_beyond.txt", "\U00010428", False, None),
    ("capitals_beyond.txt", "\U00010428", True, None),
    ("capitals_beyond.txt", "\U0001f600", False, None),
    ("no_break_spaces.txt", "driver version", False, None),
    ("no_break_spaces.txt", "Driver\u00a0Version", True, None),
    ("no_break_spaces.txt", "\u00a0", False, None),
    ("no_break_spaces.txt", " ", False, None),
    ("no_break_spaces.txt", "VERSION", False, None),
    ("tabs.txt", "\t", True, None),
    ("tabs.txt", "a\tb", True, None),
    ("tabs.txt", "a b", False, None),
    ("tabs.txt", "  a", False, None),
    ("cr_lf.txt", "one", False, (2, 0, 12)),
    ("cr_lf.txt", "\r\n", True, (4, 3, 19)),
    ("cr_lf.txt", "one\r\ntwo", True, (1, 0, 0)),
    ("cr_lf.txt", "end", True, (1, 21, 21)),
    ("lone_cr.txt", "one", True, (2, 0, 9)),
    ("lone_cr.txt", "\r", True, (4, 3, 12)),
    ("lone_cr.txt", "one\rtwo", True, (1, 0, 0)),
    ("mixed_line_ends.txt", "last", True, None),
    ("mixed_line_ends.txt", "ab", True, (0, -1, -1)),
    ("no_end.txt", "last", False, (1, 6, 6)),
    ("not_line_ends.txt", "d\u2028e", True, None),
    ("not_line_ends.txt", "b\fC", False, None),
    ("not_utf8.txt", "größe", False, (0, -1, -1)),
    ("not_utf8.txt", "jörn", False, (1, 6, 6)),
    ("not_utf8.txt", "j", False, None),
    ("not_utf8.txt", "a", True, None),
    ("not_utf8.txt", "\ufffd", True, None),
    ("not_utf8.txt", "x", False, None),
    ("not_utf8.txt", "/x", False, (0, -1, -1)),
    ("not_utf8.txt", "Ã", False, (0, -1, -1)),
    ("null_characters.txt", "\0", True, None),
    ("null_characters.txt", "b\0\0c", True, (1, 2, 2)),
    ("null_characters.txt", "AFTER", False, None),
    ("null_characters.txt", "beforeafter", False, (0, -1, -1)),
    ("mark.txt", "windows", False, None),
    ("mark.txt", "\ufeff", True, (1, 0, 0)),
    ("right_to_left.txt", "שלום", False, None),
    ("right_to_left.txt", "gpj.exe", False, None),
    ("right_to_left.txt", "exe.jpg", False, (0, -1, -1)),
    ("right_to_left.txt", "abcdef", False, None),
    (REPORT, "windows", False, None),
    (REPORT, "windows", True, None),
    (REPORT, "Windows", True, None),
    (REPORT, "tester", True, None),
    (REPORT, "TESTER", False, None),
    (REPORT, "driver version", False, None),
    (REPORT, "Driver Version: ", True, None),
    (REPORT, "27.20.100.9664", True, None),
    (REPORT, "27?20", True, (0, -1, -1)),
    (REPORT, "gerät", False, None),
    (REPORT, "GERÄT", False, None),
    (REPORT, "gera\u0308t", False, (0, -1, -1)),
    (REPORT, "Standardmäßiger", True, None),
    (REPORT, "STANDARDMÄẞIGER", False, None),
    (REPORT, "standardmässiger", False, (0, -1, -1)),
    (REPORT, "–", True, None),
    (REPORT, "-" * 72, True, None),
    (REPORT, "--", True, None),
    (REPORT, "%1", True, None),
    (REPORT, "\\\\", True, None),
    (REPORT, "(R)", False, None),
    (REPORT, "[displayname]", False, None),
    (REPORT, "############ Windows specific section ###########", True, (1, 0, 0)),
    (REPORT, "gl_ext", False, None),
    (REPORT, "PCI\\VEN_8086&DEV_5912", True, None),
    (REPORT, "no such text", False, (0, -1, -1)),
    (REPORT, "Windows version: \n", True, (1, 50, 50)),
    (REPORT, "\u00a0", True, None),
]

# Texts with hits of other lengths than the needle.
RANGES = [
    ("other_lengths.txt", "k", False),
    ("other_lengths.txt", "5 k", False),
    ("other_lengths.txt", "10 µm", False),
    ("other_lengths.txt", "sein", False),
    ("sharp_s.txt", "ß", False),
    ("sharp_s.txt", "straße", False),
    ("combining.txt", "å", False),
    ("overlapping.txt", "aa", False),
    ("not_utf8.txt", "jörn", False),
]


HIDDEN = (0xa0, 0xb5, 0x130, 0x131, 0x212a, 0x212b, 0x1e9e, 0xfeff, 0xfffd)


def decode(text):
    """[(offset, code point)]; a byte that is no UTF-8 is U+FFFD."""
    result, at = [], 0
    while at < len(text):
        for length in (1, 2, 3, 4):
            try:
                one = text[at:at + length].decode("utf-8")
            except UnicodeDecodeError:
                continue
            if len(one) == 1:
                result.append((at, ord(one)))
                at += length
                break
        else:
            result.append((at, 0xfffd))
            at += 1
    return result


def fold(point):
    """Simple case folding. Python has the full one: of several letters, the simple one is the small letter."""
    full = chr(point).casefold()
    if len(full) == 1:
        return ord(full)
    small = chr(point).lower()
    return ord(small) if len(small) == 1 else point


def find(text, needle, match_case):
    """[(begin, end)] from left to right, without overlap."""
    if not needle:
        return []
    points = decode(text)
    offsets = [offset for offset, _ in points] + [len(text)]

    def change(point):
        point = ord(" ") if point == 0xa0 else point
        return point if match_case else fold(point)

    hay = [change(point) for _, point in points]
    wanted = [change(ord(letter)) for letter in needle]
    hits, at = [], 0
    while at + len(wanted) <= len(hay):
        if hay[at:at + len(wanted)] == wanted:
            hits.append((offsets[at], offsets[at + len(wanted)]))
            at += len(wanted)
        else:
            at += 1
    return hits


def lines(text):
    """[(begin, end)] of every line without its end. A line end at the end of the text begins one more line."""
    result, begin = [], 0
    for end in re.finditer(rb"\r\n|\n|\r", text):
        result.append((begin, end.start()))
        begin = end.end()
    result.append((begin, len(text)))
    return result


def written(needle):
    """What would not be seen in a table, or looks like another letter, is written as \\u{HEX} of its code point."""
    result = ""
    for letter in needle:
        point = ord(letter)
        if letter == "\\":
            result += "\\\\"
        elif letter in "\t\n\r":
            result += {"\t": "\\t", "\n": "\\n", "\r": "\\r"}[letter]
        elif point < 32 or point in HIDDEN or 0x300 <= point < 0x370 or 0x2028 <= point < 0x2030:
            result += "\\u{%x}" % point
        else:
            result += letter
    return result


def bytes_of(name):
    return (ROOT / name).read_bytes() if "/" in name else TEXTS[name]


def path_of(name):
    return name if "/" in name else "texts/" + name


def main():
    for name, text in TEXTS.items():
        (HERE / "texts" / name).write_bytes(text)
    rows = ["#FILE\tNEEDLE\tMATCH_CASE\tHITS\tFIRST_OFFSET\tLAST_OFFSET"]
    for name, needle, match_case, read in QUESTIONS:
        hits = find(bytes_of(name), needle, match_case)
        answer = (len(hits), hits[0][0] if hits else -1, hits[-1][0] if hits else -1)
        if read is not None and read != answer:
            raise SystemExit("%s %r: read %s, derived %s" % (name, needle, read, answer))
        rows.append("\t".join([path_of(name), written(needle), "yes" if match_case else "no", *map(str, answer)]))
    (HERE / "find.tsv").write_text("\n".join(rows) + "\n", encoding="utf-8", newline="\n")

    rows = ["#FILE\tNEEDLE\tMATCH_CASE\tBEGIN\tEND"]
    for name, needle, match_case in RANGES:
        for begin, end in find(bytes_of(name), needle, match_case):
            case = "yes" if match_case else "no"
            rows.append("\t".join([path_of(name), written(needle), case, str(begin), str(end)]))
    (HERE / "find-ranges.tsv").write_text("\n".join(rows) + "\n", encoding="utf-8", newline="\n")

    rows = ["#FILE\tLINE_INDEX\tBEGIN\tEND"]
    for name in TEXTS:
        for index, (begin, end) in enumerate(lines(TEXTS[name])):
            rows.append("%s\t%d\t%d\t%d" % (path_of(name), index, begin, end))
    report = lines(bytes_of(REPORT))
    for index in [0, 1, 2, 3, 12, 500, 501, 1000, len(report) - 2, len(report) - 1]:
        rows.append("%s\t%d\t%d\t%d" % (REPORT, index, *report[index]))
    (HERE / "lines.tsv").write_text("\n".join(rows) + "\n", encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
