"""Demands a generic name for every served function with a W form: the W form under UNICODE, else the A form where one
is served, and no name otherwise."""

import argparse
import pathlib
import re
import subprocess
import sys

HEADERS = ["commctrl.h", "imm.h", "shellapi.h", "shlobj.h", "shlwapi.h", "usp10.h", "wincrypt.h", "windows.h",
           "winspool.h"]


def served(root):
    rows = (root / "abi" / "exports.tsv").read_text(encoding="utf-8").splitlines()
    return {row.split("\t")[0] for row in rows if row and not row.startswith("#")}


def expansions(options, names, definitions):
    source = "".join(f"#include <{header}>\n" for header in HEADERS)
    source += "".join(f"\nkest_generic_name {name}\n" for name in names)
    result = subprocess.run([options.compiler, "-E", "-P", "-x", "c", "-std=c11", *definitions, "-isystem",
                             str(options.root / "include" / "windows"), "-isystem", str(options.root / "include"), "-"],
                            input=source, capture_output=True, text=True, check=False)
    if result.returncode != 0:
        sys.exit(result.stderr)
    return dict(zip(names, re.findall(r"kest_generic_name (\w+)", result.stdout)))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("root", type=pathlib.Path)
    options = parser.parse_args()

    symbols = served(options.root)
    names = sorted(symbol[:-1] for symbol in symbols if re.fullmatch(r"[A-Za-z]\w+W", symbol))
    wide = expansions(options, names, ["-DUNICODE", "-D_UNICODE"])
    narrow = expansions(options, names, [])
    problems = []
    for name in names:
        if wide[name] != name + "W":
            problems.append(f"{name} stands for {wide[name]} under UNICODE")
        # The narrow form may also be a companion's, which the table of exports does not list.
        if name + "A" in symbols and narrow[name] != name + "A" or narrow[name] not in (name, name + "A"):
            problems.append(f"{name} stands for {narrow[name]} without UNICODE")
    if problems:
        sys.exit("\n".join(problems))
    print(f"{len(names)} functions with a wide form, each with its generic name")


main()
