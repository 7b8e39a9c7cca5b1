"""Writes the reference, docs/reference/, from the public headers and abi/exports.tsv.

With --check nothing is written: the pages must be up to date. Either way every export must have a contract.
"""

import argparse
import collections
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "abi"))

import declarations
import exports_table

PREFACE = "<!-- Written by scripts/reference from the headers and abi/exports.tsv. -->\n"
TAG_TITLES = {"param": "Argument", "return": "Result", "lasterror": "Last error", "null": "Null", "kind": "Kind",
              "differs": "Differs from Windows"}


class Entry:
    """An exported declaration joined with its row of the table of exports."""

    def __init__(self, declaration, row):
        self.declaration = declaration
        self.row = row
        self.name = declaration.name
        self.header = declaration.header

    @property
    def page(self):
        return page_of(self.header)

    @property
    def link(self):
        return f"[`{self.name}`]({self.page}#{anchor(self.name)})"


def page_of(header):
    return header.removesuffix(".h").replace("/", "-") + ".md"


def anchor(name):
    """The fragment that Markdown renderers derive from a heading."""
    return re.sub(r"[^\w\- ]", "", name.lower()).replace(" ", "-")


def cell(text):
    return re.sub(r"\s+", " ", text).replace("|", "\\|")


def join(found, rows):
    """Entries in header order; ends the program when an export has no contract or stands in another header."""
    by_symbol = {symbol: declaration for declaration in found for symbol in declaration.symbols}
    second_names = {row["second_name_of"]: row["symbol"] for row in rows if row["second_name_of"] != "-"}
    problems, entries, seen = [], [], set()
    for row in rows:
        place = f"abi/exports.tsv:{row['line']}: {row['symbol']}"
        other = row["second_name_of"] if row["second_name_of"] != "-" else second_names.get(row["symbol"])
        declaration = by_symbol.get(row["symbol"]) or by_symbol.get(other)
        if declaration is None:
            problems.append(f"{place} is declared in no header")
        elif declaration.header != row["header"]:
            problems.append(f"{place} is declared in {declaration.header}, not in {row['header']}")
        elif not declaration.contract:
            problems.append(f"{place} has no contract ({declaration.header}:{declaration.line})")
        elif id(declaration) not in seen:
            seen.add(id(declaration))
            entries.append(Entry(declaration, row))
    problems += [f"include/kest/{declaration.header}:{declaration.line}: {declaration.name} is not in abi/exports.tsv"
                 for declaration in found if not set(declaration.symbols) & {row["symbol"] for row in rows}]
    if problems:
        sys.exit("\n".join(problems))
    order = {id(declaration): number for number, declaration in enumerate(found)}
    return sorted(entries, key=lambda entry: order[id(entry.declaration)])


def operation_text(row):
    return f"`{row['operation']}`, position {row['position']}" if row["operation"] != "-" else ""


def header_page(header, entries):
    lines = [PREFACE, f"# {header}\n"]
    for name, group in grouped(entries, lambda entry: entry.name).items():
        lines.append(f"\n## {name}\n")
        shown = None
        for entry in group:
            declaration = entry.declaration
            lines.append(f"\n```cpp\n{declaration.text};\n```\n")
            contract = (declaration.contract, tuple(declaration.tags))
            if contract != shown:
                lines.append(f"\n{declaration.contract}\n\n")
                lines += [f"- {TAG_TITLES[tag]}: {tag_text(tag, text)}\n" for tag, text in declaration.tags]
                shown = contract
            if not declaration.tag("kind"):
                lines.append(f"- Kind: {entry.row['kind']}\n")
            if operation_text(entry.row):
                lines.append(f"- Service operation: {operation_text(entry.row)}\n")
    return "".join(lines)


def tag_text(tag, text):
    text = re.sub(r"\s+", " ", text)
    if tag == "param":
        return re.sub(r"^(\S+)\s*", r"`\1`: ", text)
    if tag == "differs":
        return re.sub(r"^\{([^}]*)\}\s*", r"`\1`: ", text)
    return text


def grouped(items, key):
    groups = collections.defaultdict(list)
    for item in items:
        groups[key(item)].append(item)
    return groups


def index_page(entries):
    lines = [PREFACE, "# Reference\n\n",
             "- [Every difference from Windows](differences.md)\n",
             "- [Fixed results](fixed_results.md)\n",
             "- [What a host must implement](host.md)\n",
             "- [What ends the process](process_ends.md)\n\n",
             "## By header\n\n| header | exports |\n|---|---|\n"]
    lines += [f"| [{header}]({page_of(header)}) | {len(group)} |\n"
              for header, group in grouped(entries, lambda entry: entry.header).items()]
    lines.append("\n## By name\n\n| name | kind | header |\n|---|---|---|\n")
    by_name = grouped(sorted(entries, key=lambda entry: entry.name.lower().lstrip("_")), lambda entry: entry.name)
    lines += [f"| {group[0].link} | {', '.join(dict.fromkeys(entry.row['kind'] for entry in group))} | "
              f"{group[0].header} |\n" for group in by_name.values()]
    return "".join(lines)


def differences_page(entries):
    lines = [PREFACE, "# Every difference from Windows\n\n",
             "Each has an identifier, which is the name of the test that pins it. Functions whose answer is fixed "
             "stand on [their own page](fixed_results.md).\n"]
    seen = set()
    for header, group in grouped(entries, lambda entry: entry.header).items():
        rows = []
        for entry in group:
            for text in entry.declaration.tag("differs"):
                identifier = text[1:text.index("}")]
                if identifier not in seen:
                    seen.add(identifier)
                    rows.append(f"| {entry.link} | `{identifier}` | {cell(text[text.index('}') + 1:].strip())} |\n")
        if rows:
            lines += [f"\n## {header}\n\n| function | identifier | difference |\n|---|---|---|\n", *rows]
    return "".join(lines)


def fixed_results_page(entries):
    lines = [PREFACE, "# Fixed results\n\n",
             "These functions answer the same whatever they are given, write nothing and leave the last error "
             "alone.\n"]
    fixed = [entry for entry in entries if entry.row["kind"] == "fixed result"]
    for header, group in grouped(fixed, lambda entry: entry.header).items():
        lines.append(f"\n## {header}\n\n| function | answer |\n|---|---|\n")
        lines += [f"| {entry.link} | {entry.row['answer']} |\n" for entry in group]
    return "".join(lines)


def host_page(entries):
    lines = [PREFACE, "# What a host must implement\n\n",
             "By service: each operation, the functions that it serves, and what these answer while there is no hub or "
             "the hub does not supply the service. \"must be there\" marks functions that make no test: the host "
             "supplies that operation before they are called.\n"]
    served = collections.defaultdict(list)
    for entry in entries:
        if entry.row["operation"] != "-":
            for operation, position in zip(entry.row["operation"].split(","), entry.row["position"].split(",")):
                served[(operation.split("::")[0], int(position), operation.split("::")[1])].append(entry)
    for service, keys in grouped(sorted(served), lambda key: key[0]).items():
        lines.append(f"\n## {service}\n\n| position | operation | serves | without it |\n|---|---|---|---|\n")
        for key in keys:
            names = dict.fromkeys(entry.link for entry in served[key])
            answers = dict.fromkeys("must be there" if entry.row["answer"] == "-" else entry.row["answer"]
                                    for entry in served[key])
            lines.append(f"| {key[1]} | `{key[2]}` | {', '.join(names)} | {', '.join(answers)} |\n")
    return "".join(lines)


def process_ends_page(entries):
    lines = [PREFACE, "# What ends the process\n\n## Always\n\nThese functions are declared so that code links; "
             "reaching one ends the process.\n\n"]
    lines += [f"- {entry.link}\n" for entry in entries if entry.row["kind"] == "ends the process"]
    lines.append("\n## On some arguments\n\n| function | when |\n|---|---|\n")
    for entry in entries:
        declaration = entry.declaration
        text = re.sub(r"\s+", " ", " ".join((declaration.contract, *(text for _, text in declaration.tags))))
        text = re.sub(r"\{[^}]*\}", "", text)
        sentences = [sentence for sentence in re.split(r"(?<=[.;]) ", text) if re.search(r"\bends? the process", sentence)]
        if sentences and entry.row["kind"] != "ends the process":
            lines.append(f"| {entry.link} | {cell(' '.join(dict.fromkeys(sentences)))} |\n")
    return "".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true")
    options = parser.parse_args()

    entries = join(declarations.read(ROOT / "include"), exports_table.read(ROOT / "abi" / "exports.tsv"))
    pages = {page_of(header): header_page(header, group)
             for header, group in grouped(entries, lambda entry: entry.header).items()}
    pages |= {"index.md": index_page(entries), "differences.md": differences_page(entries),
              "fixed_results.md": fixed_results_page(entries), "host.md": host_page(entries),
              "process_ends.md": process_ends_page(entries)}

    folder = ROOT / "docs" / "reference"
    if options.check:
        present = {path.name: path.read_text(encoding="utf-8") for path in folder.glob("*.md")}
        stale = sorted(name for name in pages.keys() | present.keys() if pages.get(name) != present.get(name))
        if stale:
            sys.exit(f"out of date: {', '.join('docs/reference/' + name for name in stale)}; scripts/reference mends it")
    else:
        folder.mkdir(parents=True, exist_ok=True)
        for path in folder.glob("*.md"):
            path.unlink()
        for name, text in pages.items():
            (folder / name).write_text(text, encoding="utf-8")
    print(f"{len(entries)} documented declarations on {len(pages)} pages")


main()
