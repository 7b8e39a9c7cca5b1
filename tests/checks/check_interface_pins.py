"""Demands that tests/abi pins the interface of the library and of its companions, whole: every export's signature, every
structure, every constant."""

import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "abi"))

import exports_table

COMMENT = re.compile(r"/\*.*?\*/|//[^\n]*", re.DOTALL)
# Of members that have no address.
UNNAMED = re.compile(r"(\w+)::~?\1$")
# What the host implements is pinned as well, and not exported.
HOST_SIDE = re.compile(r"I\w+Services?::")
# Names that stand for declarations, not for values.
NO_CONSTANTS = re.compile(r"KEST_|REF(GUID|IID|CLSID)$|_stat(64i32)?$")


def text_of(folder, suffix):
    return "\n".join(COMMENT.sub("", path.read_text(encoding="utf-8")) for path in sorted(folder.rglob(f"*{suffix}")))


def exported_names(root):
    """The functions and members of the tables of exports, as code names them."""
    tables = (root / "abi" / "exports.tsv", root / "companions" / "companions.tsv")
    rows = [row for table in tables for row in exports_table.read(table) if row["kind"] != "variable"]
    demangled = subprocess.run(["c++filt"], input="\n".join(row["symbol"] for row in rows), check=True,
                               capture_output=True, text=True).stdout.splitlines()
    names = {re.sub(r"\(.*", "", name) if "operator(" not in name else name for name in demangled}
    return {name.replace("tagRECT", "RECT").replace("RECT const", "const RECT") for name in names
            if not UNNAMED.search(name)}


def structures(headers):
    """Each structure with fields, by its tag and the names given to it."""
    for match in re.finditer(r"\bstruct\s+(?:__attribute__\(\([^)]*\)\)\s*)?(\w+)\s*\{", headers):
        depth, end = 1, match.end()
        while depth:
            depth += {"{": 1, "}": -1}.get(headers[end], 0)
            end += 1
        if ";" in headers[match.end():end]:
            yield match.group(1), {match.group(1), *re.findall(r"\w+", headers[end:headers.index(";", end)])}


def constants(headers):
    return {name for name in re.findall(r"^\s*#\s*define\s+(\w+)[ (]", headers, re.MULTILINE)
            if not NO_CONSTANTS.match(name)}


def main():
    root = pathlib.Path(sys.argv[1])
    pins = root / "tests" / "abi"
    headers = "\n".join(text_of(root / folder / "kest", ".h") for folder in ("include", "companions/include"))
    signatures = text_of(pins / "signatures", ".cpp")
    layouts = set(re.findall(r"\bsizeof\((\w+)\)", text_of(pins / "structures", ".cpp")))
    values = set(re.findall(r"\w+", text_of(pins / "constants", ".cpp") + text_of(pins, "_test.cpp")))

    pinned = {table_row.rsplit(",", 1)[1].strip().removeprefix("(").removesuffix(")").removeprefix("&")
              for table_row in re.findall(r"\bhas(?:Signature|Member)<(.*?)>\);", signatures, re.DOTALL)}
    pinned = {name for name in pinned if not HOST_SIDE.match(name)}
    exported = exported_names(root)
    problems = [f"no signature in tests/abi/signatures: {name}" for name in sorted(exported - pinned)]
    problems += [f"not exported, but in tests/abi/signatures: {name}" for name in sorted(pinned - exported)]
    found = list(structures(headers))
    problems += [f"no layout in tests/abi/structures: {tag}" for tag, names in found
                 if not names & layouts and tag != "UnreportedConstruction"]
    declared = constants(headers)
    problems += [f"no value in tests/abi: {name}" for name in sorted(declared - values)]
    if problems:
        sys.exit("\n".join(problems))
    print(f"{len(exported)} signatures, {len(found)} structures, {len(declared)} constants pinned")


main()
