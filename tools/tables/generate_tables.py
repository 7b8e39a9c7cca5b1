"""Writes the tables of exports as C++ data.

Each table is given as LIBRARY=FILE, the file in the form of abi/exports.tsv.
"""

import argparse
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "abi"))

import exports_table


def text(cell):
    return json.dumps("" if cell == "-" else cell)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("output")
    parser.add_argument("tables", nargs="+", metavar="LIBRARY=FILE")
    options = parser.parse_args()

    lines, libraries, seen = {}, [], {}
    for table in options.tables:
        library, _, path = table.partition("=")
        libraries.append(library)
        rows = exports_table.read(path)
        for row in rows:
            plain = row["symbol"] if row["second_name_of"] == "-" else row["second_name_of"]
            name = "" if plain.startswith("_Z") else plain
            for symbol in {exports_table.symbol(row, processor) for processor in ("x86_64", "aarch64")}:
                if symbol in seen:
                    sys.exit(f"{path}:{row['line']}: {symbol} is exported by {seen[symbol]} too")
                seen[symbol] = library
                position = "0" if row["position"] == "-" else row["position"]
                kind = row["kind"].replace(" ", "_")
                lines[symbol] = (f"    {{{text(symbol)}, {text(name)}, {text(library)}, {text(row['header'])}, "
                                 f"{text(row['operation'])}, {text(row['answer'])}, Kind::{kind}, {position}}},\n")

    with open(options.output, "w", encoding="utf-8") as output:
        output.write("// Written by tools/tables/generate_tables.py.\n"
                     '#include "tables/export_table.h"\n\n'
                     "namespace kest::tools\n{\n\nnamespace\n{\n\nconstexpr Export all_exports[] = {\n")
        # Byte order, in which the tools search.
        output.writelines(lines[symbol] for symbol in sorted(lines, key=str.encode))
        output.write("};\n\nconstexpr std::string_view all_libraries[] = {")
        output.write(", ".join(text(library) for library in libraries))
        output.write("};\n\n} // namespace\n\n"
                     "std::span<const Export> exports()\n{\n    return all_exports;\n}\n\n"
                     "std::span<const std::string_view> libraries()\n{\n    return all_libraries;\n}\n\n"
                     "} // namespace kest::tools\n")


main()
