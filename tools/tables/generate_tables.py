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


class Operations:
    """The operations of all rows, one behind the other; a row has a part of them."""

    def __init__(self):
        self.lines = []

    def add(self, row):
        found = exports_table.operations(row)
        for service, operation, position, answer in found:
            self.lines.append(f"    {{{text(f'{service}::{operation}')}, {position}, {text(answer)}}},\n")
        return f"{{all_operations + {len(self.lines) - len(found)}, {len(found)}}}" if found else "{}"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("output")
    parser.add_argument("tables", nargs="+", metavar="LIBRARY=FILE")
    options = parser.parse_args()

    lines, libraries, seen, operations = {}, [], {}, Operations()
    for table in options.tables:
        library, _, path = table.partition("=")
        libraries.append(library)
        rows = exports_table.read(path)
        for row in rows:
            plain = row["symbol"] if row["second_name_of"] == "-" else row["second_name_of"]
            name = "" if plain.startswith("_Z") else plain
            for symbol in sorted({exports_table.symbol(row, processor) for processor in ("x86_64", "aarch64")}):
                if symbol in seen:
                    sys.exit(f"{path}:{row['line']}: {symbol} is exported by {seen[symbol]} too")
                seen[symbol] = library
                answer = row["answer"] if row["kind"] == "fixed result" else "-"
                kind = row["kind"].replace(" ", "_")
                lines[symbol] = (f"    {{{text(symbol)}, {text(name)}, {text(library)}, {text(row['header'])}, "
                                 f"{text(answer)}, Kind::{kind}, {operations.add(row)}}},\n")

    with open(options.output, "w", encoding="utf-8") as output:
        output.write("// Written by tools/tables/generate_tables.py.\n"
                     '#include "tables/export_table.h"\n\n'
                     "namespace kest::tools\n{\n\nnamespace\n{\n\nconstexpr Operation all_operations[] = {\n")
        output.writelines(operations.lines)
        output.write("};\n\nconstexpr Export all_exports[] = {\n")
        # Byte order, in which the tools search.
        output.writelines(lines[symbol] for symbol in sorted(lines, key=str.encode))
        output.write("};\n\nconstexpr std::string_view all_libraries[] = {")
        output.write(", ".join(text(library) for library in libraries))
        output.write("};\n\n} // namespace\n\n"
                     "std::span<const Export> exports()\n{\n    return all_exports;\n}\n\n"
                     "std::span<const std::string_view> libraries()\n{\n    return all_libraries;\n}\n\n"
                     "} // namespace kest::tools\n")


main()
