"""Compares the symbols that the built library exports with abi/exports.tsv, both ways."""

import argparse
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "abi"))

import exports_table


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--nm", required=True)
    parser.add_argument("--processor", required=True)
    parser.add_argument("--exports", required=True)
    parser.add_argument("library")
    options = parser.parse_args()

    listed = {exports_table.symbol(row, options.processor): row for row in exports_table.read(options.exports)}
    output = subprocess.run([options.nm, "-D", "--defined-only", options.library], check=True, capture_output=True,
                            text=True).stdout
    exported = {line.split()[-1] for line in output.splitlines()}

    problems = [f"exported, but not in the table: {name}" for name in sorted(exported - listed.keys())]
    problems += [f"{options.exports}:{listed[name]['line']}: not exported: {name}"
                 for name in sorted(listed.keys() - exported)]
    if problems:
        sys.exit("\n".join(problems))
    print(f"{len(exported)} exports, all listed; nothing missing")


main()
