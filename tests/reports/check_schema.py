"""Validates the JSON of reports with docs/report.schema.json, and shows that wrong JSON fails.

check_schema.py WRITE_JSON SOURCE_FOLDER PLANTED_FOLDER
"""
import copy
import json
import pathlib
import subprocess
import sys
import tempfile

import jsonschema


def texts(source, planted):
    """The files with reports of this project, and some invented reports with identities and secrets."""
    folders = [source / "tests" / "golden", source / "tests" / "reports" / "data"]
    files = [path for folder in folders if folder.is_dir() for path in folder.rglob("*.txt")]
    some = sorted(planted.glob("*.txt"))[:20]
    return [source / "docs" / "example-report.txt", *sorted(files), *some]


def documents(write_json, files):
    """The JSON of the reports, and of the same reports after redaction."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([write_json, folder, *files], check=True)
        return [[json.loads((pathlib.Path(folder) / f"{i}.{ending}").read_bytes()) for i in range(len(files))]
                for ending in ("json", "redacted.json")]


def section(document, name):
    return next(one for one in document["reports"][0]["sections"] if one["name"] == name)


def set_fact(section_name, key, value):
    def change(document):
        section(document, section_name)["facts"][key] = value
    return change


def set_root(key, value):
    def change(document):
        document[key] = value
    return change


def remove_root(key):
    def change(document):
        del document[key]
    return change


def set_redaction(key, value):
    def change(document):
        document["redaction"][key] = value
    return change


def with_alias(**members):
    """Adds an alias that is right apart from these members."""
    alias = {"alias": "user-1", "kind": "user", "count": 1, "reasons": ["fact"]}
    alias.update(members)
    return lambda document: document["redaction"]["aliases"].append({k: v for k, v in alias.items() if v is not None})


def add_item(section_name, list_name, item):
    def change(document):
        section(document, section_name).setdefault(list_name, []).append(item)
    return change


# Changes of a right document that make it a wrong one.
WRONG = {
    "another format": set_root("format", "report"),
    "another version": set_root("schemaVersion", 2),
    "version as text": set_root("schemaVersion", "1"),
    "unknown key": set_root("extra", 1),
    "unknown state": set_root("states", ["broken"]),
    "state twice": set_root("states", ["crLf", "crLf"]),
    "unknown encoding": set_root("encoding", "UTF-32"),
    "unknown line end": set_root("lineEnd", "\n\n"),
    "long prefix": set_root("linePrefix", ">" * 17),
    "short checksum": set_root("sha256", "00"),
    "zero lines": set_root("layout", [0]),
    "fraction of a line": set_root("layout", [1.5]),
    "object in the layout": set_root("layout", [{"text": "x"}]),
    "missing layout": remove_root("layout"),
    "missing reports": remove_root("reports"),
    "missing line end": remove_root("lineEnd"),
    "unknown fact": set_fact("memoryInfo", "extra", "x"),
    "number without text": set_fact("memoryInfo", "memoryLoad", {"value": 15}),
    "number as text": set_fact("memoryInfo", "memoryLoad", "15%"),
    "number in quotation marks": set_fact("memoryInfo", "memoryLoad", {"value": "15", "text": "15%"}),
    "number above 32 bits": set_fact("memoryInfo", "memoryLoad", {"value": 4294967296, "text": "4294967296%"}),
    "bytes without quotation marks": set_fact("memoryInfo", "totalPhys", {"value": 1, "text": "1"}),
    "bytes below zero": set_fact("memoryInfo", "totalPhys", {"value": "-1", "text": "-1"}),
    "date as it stands in the text": set_fact("qtDateTime", "localDateAndTime",
                                              {"value": "21.11.2026 13:17:53", "text": "21.11.2026 13:17:53"}),
    "text as a number": set_fact("userName", "userName", 1),
    "base64 with other characters": set_fact("userName", "userName", {"base64": "A*=="}),
    "base64 with more": set_fact("userName", "userName", {"base64": "AA==", "text": "x"}),
    "list as text": set_fact("processorInfo", "activeProcessors", "Processor #0"),
    "number in a list": set_fact("processorInfo", "activeProcessors", [0]),
    "empty item": add_item("loadedModules", "modules", {}),
    "fact of another item": add_item("loadedModules", "modules", {"name": "x"}),
    "list of another section": add_item("memoryInfo", "modules", {"path": "x"}),
    "unknown section": lambda document: document["reports"][0]["sections"].append({"name": "extra", "facts": {}}),
    "section without facts": lambda document: section(document, "memoryInfo").pop("facts"),
    "redaction as text": set_root("redaction", "all"),
    "anonymous report": set_redaction("anonymous", True),
    "redaction with more": set_redaction("extra", 1),
    "redaction without aliases": lambda document: document["redaction"].pop("aliases"),
    "number of environment values as text": set_redaction("environmentValues", "1"),
    "alias without a kind": with_alias(kind=None),
    "alias of an unknown kind": with_alias(kind="animal"),
    "alias with a count below zero": with_alias(count=-1),
    "alias with an unknown reason": with_alias(reasons=["guess"]),
    "alias with a reason twice": with_alias(reasons=["fact", "fact"]),
    "alias with what it stands for": with_alias(spellings=["x"]),
    "report without sections": lambda document: document["reports"].append({}),
}


def main():
    write_json, source, planted = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    schema = json.loads((source / "docs" / "report.schema.json").read_bytes())
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    files = texts(source, planted)
    failures = 0
    right, redacted = documents(write_json, files)
    for file, document in [*zip(files, right), *zip(files, redacted)]:
        for error in validator.iter_errors(document):
            print(f"FAIL  {file}: {error.json_path}: {error.message[:300]}")
            failures += 1
    for file, document, original in zip(files, redacted, right):
        if "redaction" not in document or "redaction" in original:
            print(f"FAIL  {file}: the member \"redaction\" is in the JSON of the redacted report only")
            failures += 1
    document = copy.deepcopy(redacted[0])
    with_alias()(document)
    if not validator.is_valid(document):
        print("FAIL  right, but not valid: an alias")
        failures += 1
    for name, change in WRONG.items():
        document = copy.deepcopy(redacted[0])
        change(document)
        if validator.is_valid(document):
            print(f"FAIL  valid, but wrong: {name}")
            failures += 1
    print(f"{len(right)} reports, each also redacted, {len(WRONG)} wrong documents, {failures} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
