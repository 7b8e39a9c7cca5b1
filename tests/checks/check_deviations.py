"""Demands a test for each documented deviation from Windows, and a documented deviation for each such test.

A header says @differs{Function.WhatDiffers}; its test is TEST(Function, WhatDiffers), underscores of the function's
name dropped. Suites named exactly like an exported function hold such tests only; other tests stand in suites named
after a topic.
"""

import itertools
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "abi"))

import exports_table

DIFFERS = re.compile(r"@differs\{([^}]*)\}")
IDENTIFIER = re.compile(r"[A-Za-z0-9]+\.[A-Z][A-Za-z0-9]*")
TEST = re.compile(r"^TEST\(\s*(\w+)\s*,\s*(\w+)\s*\)", re.MULTILINE)


def places(root, folders, suffix, pattern, name):
    """Maps each name that the pattern finds to its place."""
    found = {}
    for path in sorted(path for folder in folders for path in (root / folder).rglob("*" + suffix)):
        text = path.read_text(encoding="utf-8")
        for match in pattern.finditer(text):
            line = text.count("\n", 0, match.start()) + 1
            place = f"{path.relative_to(root)}:{line}"
            if name(match) in found:
                sys.exit(f"{place}: {name(match)} stands in {found[name(match)]} already")
            found[name(match)] = place
    return found


def base_names(root):
    """Exported function names without underscores, as suites spell them; members by class and by name."""
    names = set()
    tables = [root / "abi" / "exports.tsv", root / "companions" / "companions.tsv"]
    for row in itertools.chain.from_iterable(map(exports_table.read, tables)):
        match = re.match(r"_ZN?K?(\d+.*)", row["symbol"])
        if match is None:
            names.add(row["symbol"].replace("_", ""))
            continue
        text = match.group(1)
        while (length := re.match(r"\d+", text)) is not None:
            start = length.end()
            names.add(text[start:start + int(length.group())].replace("_", ""))
            text = text[start + int(length.group()):]
    return names


def main():
    root = pathlib.Path(sys.argv[1])
    documented = places(root, ["include", "companions/include"], ".h", DIFFERS, lambda match: match.group(1))
    tests = places(root, ["tests"], ".cpp", TEST, lambda match: f"{match.group(1)}.{match.group(2)}")
    exported = base_names(root)

    problems = []
    for identifier, place in documented.items():
        if not IDENTIFIER.fullmatch(identifier):
            problems.append(f"{place}: '{identifier}' is not Function.WhatDiffers")
        elif identifier.split(".")[0] not in exported:
            problems.append(f"{place}: {identifier} names no exported function")
        elif identifier not in tests:
            problems.append(f"{place}: {identifier} has no test of that name")
    for identifier, place in tests.items():
        if identifier.split(".")[0] in exported and identifier not in documented:
            problems.append(f"{place}: {identifier} is documented in no header")
    if problems:
        sys.exit("\n".join(problems))
    print(f"{len(documented)} deviations, each documented and tested")


main()
