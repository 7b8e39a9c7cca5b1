"""Demands of every exported function that does work of its own a row in the tables of failing allocations, or a reason
to have none."""

import fnmatch
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "abi"))

import exports_table

# A name in a row, with what the row is about behind a comma.
ROW_NAME = re.compile(r'"(\w+)(?:,? [a-z ]+)?"')


def local_functions(root):
    tables = (root / "abi" / "exports.tsv", root / "companions" / "companions.tsv")
    symbols = [row["symbol"] for table in tables for row in exports_table.read(table)
               if row["kind"] == "local" and row["second_name_of"] == "-"]
    names = subprocess.run(["c++filt"], input="\n".join(symbols), check=True, capture_output=True,
                           text=True).stdout.splitlines()
    return {re.sub(r"\(.*", "", name) for name in names}


def main():
    root = pathlib.Path(sys.argv[1])
    faults = root / "tests" / "faults"
    rows = {name for path in faults.glob("*_allocations_test.cpp")
            for name in ROW_NAME.findall(path.read_text(encoding="utf-8"))}
    lines = (faults / "without_rows.txt").read_text(encoding="utf-8").splitlines()
    patterns = [pattern for line in lines if not line.startswith(("#", "[")) for pattern in line.split()]

    functions = local_functions(root)
    # A member of a class is named by the class's constructor, or by itself.
    without = {name for name in functions if name.split("::")[-1] not in rows}
    problems = [f"no row in tests/faults: {name}" for name in sorted(without)
                if not any(fnmatch.fnmatchcase(name, pattern) for pattern in patterns)]
    problems += [f"tests/faults/without_rows.txt: {pattern} stands for no function without a row" for pattern in patterns
                 if not fnmatch.filter(without, pattern)]
    if problems:
        sys.exit("\n".join(problems))
    print(f"{len(functions) - len(without)} functions with rows, {len(without)} without and with a reason")


main()
