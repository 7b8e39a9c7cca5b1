"""Writes the reference, docs/reference/, from the public headers and the tables of exports, the companions' included.

With --check nothing is written: the pages must be up to date. Either way every export must have a contract, and the
contract's kind, the operation that it names and that operation's slot must be those of its table.
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

INCLUDES = [ROOT / "include", ROOT / "companions" / "include"]
TABLES = [ROOT / "abi" / "exports.tsv", ROOT / "companions" / "companions.tsv"]
PREFACE = "<!-- Written by scripts/reference from the headers and the tables of exports. -->\n"
TAG_TITLES = {"param": "Argument", "return": "Result", "lasterror": "Last error", "null": "Null", "kind": "Kind",
              "differs": "Differs from Windows"}


class Entry:
    """An exported declaration joined with its row of the table of exports."""

    def __init__(self, declaration, row):
        self.declaration = declaration
        self.row = row
        self.name = declaration.name
        self.header = declaration.header
        self.anchor = None

    @property
    def page(self):
        return page_of(self.header)

    @property
    def link(self):
        return f"[`{self.name}`]({self.page}#{self.anchor})"


def page_of(header):
    return header.removesuffix(".h").replace("/", "-") + ".md"


def anchor(name):
    """The fragment that Markdown renderers derive from a heading."""
    return re.sub(r"[^\w\- ]", "", name.lower()).replace(" ", "-")


def set_anchors(entries):
    """Headings that differ in punctuation only are told apart by a number, as renderers do it."""
    taken = collections.Counter()
    for (page, name), group in grouped(entries, lambda entry: (entry.page, entry.name)).items():
        plain = anchor(name)
        number = taken[page, plain]
        taken[page, plain] += 1
        for entry in group:
            entry.anchor = f"{plain}-{number}" if number else plain


def cell(text):
    return re.sub(r"\s+", " ", text).replace("|", "\\|")


def read_tables():
    return [dict(row, table=table.relative_to(ROOT)) for table in TABLES for row in exports_table.read(table)]


def join(headers, rows):
    """Entries in header order; ends the program when headers and table do not agree or a contract is missing."""
    found = headers.declarations
    by_symbol = {symbol: declaration for declaration in found for symbol in declaration.symbols}
    second_names = {row["second_name_of"]: row["symbol"] for row in rows if row["second_name_of"] != "-"}
    problems, entries, seen = [], [], set()
    for row in rows:
        place = f"{row['table']}:{row['line']}: {row['symbol']}"
        other = row["second_name_of"] if row["second_name_of"] != "-" else second_names.get(row["symbol"])
        declaration = by_symbol.get(row["symbol"]) or by_symbol.get(other)
        if declaration is None:
            problems.append(f"{place} is declared in no header")
            continue
        problems += [f"{place} {problem}" for problem in disagreements(declaration, row, headers.interfaces)]
        if id(declaration) not in seen:
            seen.add(id(declaration))
            entries.append(Entry(declaration, row))
    problems += [f"{declaration.file}:{declaration.line}: {declaration.name} is in no table of exports"
                 for declaration in found if not set(declaration.symbols) & {row["symbol"] for row in rows}]
    if problems:
        sys.exit("\n".join(problems))
    order = {id(declaration): number for number, declaration in enumerate(found)}
    entries.sort(key=lambda entry: order[id(entry.declaration)])
    set_anchors(entries)
    return entries


def disagreements(declaration, row, interfaces):
    """What a row and the declaration of its symbol say differently."""
    place = f"({declaration.header}:{declaration.line})"
    if declaration.header != row["header"]:
        yield f"is declared in {declaration.header}"
    if not declaration.contract:
        yield f"has no contract {place}"
    for kind in declaration.tag("kind"):
        if re.split(r"[:\s]*$|:", kind)[0] != row["kind"]:
            yield f"is a '{row['kind']}', but not in its contract {place}"
        named = re.match(r"(?:checked )?forward: (\w+::\w+)", kind)
        if named and named.group(1) not in row["operation"].split(","):
            yield f"does not call {named.group(1)}, which its contract names {place}"
    for service, operation, position, _ in exports_table.operations(row):
        slots = interfaces[service][1] if service in interfaces else []
        if position > len(slots) or slots[position - 1].name != operation:
            yield f"calls {service}::{operation}, which does not stand at position {position}"


def operation_text(row):
    return ", ".join(f"`{service}::{operation}`, position {position}"
                     for service, operation, position, _ in exports_table.operations(row))


def header_page(header, overview, entries):
    lines = [PREFACE, f"# kest/{header}\n", f"\n{overview}\n" if overview else ""]
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
                lines.append(f"- [Service](host.md) operation: {operation_text(entry.row)}\n")
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
             "Everything that libKestPlatformBase.so exports and, from the headers in `companions`, libKestCompanions.so, "
             "with the contract that stands at its declaration. Each page is a header of `include/kest` or "
             "`companions/include/kest`.\n\n",
             "- [Every difference from Windows](differences.md)\n",
             "- [Fixed results](fixed_results.md)\n",
             "- [What a host must implement](host.md)\n",
             "- [What ends the process](process_ends.md)\n\n",
             "| kind | what a function of it does |\n|---|---|\n"
             "| local | its work, here |\n"
             "| forward | calls one operation of the host's, which must be there |\n"
             "| checked forward | the same; answers by itself while there is no hub, or the service is missing |\n"
             "| fixed result | answers the same always, and nothing else |\n"
             "| ends the process | is there to be linked against, not to be called |\n\n",
             "## By header\n\n| header | declarations |\n|---|---|\n"]
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


def host_page(entries, interfaces):
    lines = [PREFACE, "# What a host must implement\n\n",
             "A host derives from `IPlatformServices` and from the services that it supplies, overrides the operations "
             "that it supports and installs the hub with [`setPlatformServices`](platform_services.md"
             "#setplatformservices). The order of the operations is binding: each is a slot of the virtual table, "
             "counted from 1. What the tables leave out is never called; it is reserved and has an empty body.\n\n",
             "The last column says what the functions served answer while there is no hub, or the hub does not hand out "
             "the service. \"Must be there\" marks functions that make no test: the host supplies that operation before "
             "they are called.\n"]
    served = collections.defaultdict(list)
    for entry in entries:
        for service, operation, _, answer in exports_table.operations(entry.row):
            served[service, operation].append((entry, answer))
    purpose, getters = interfaces["IPlatformServices"]
    lines += [f"\n## IPlatformServices\n\n{purpose}\n\n| position | getter | hands out |\n|---|---|---|\n"]
    used = [getter for getter in getters if not getter.reserved]
    lines += [f"| {getter.position} | `{getter.name}` | [{service_of(getter)}](#{anchor(service_of(getter))}) |\n"
              for getter in used]
    for service in map(service_of, used):
        purpose, operations = interfaces[service]
        lines.append(f"\n## {service}\n\n{purpose}\n\n| position | operation | serves | without it |\n|---|---|---|---|\n")
        for operation in operations:
            if not operation.reserved:
                text = f"`{cell(operation.text)}`" + (f"<br>{cell(operation.remark)}" if operation.remark else "")
                users = served[service, operation.name]
                lines.append(f"| {operation.position} | {text} | {' <br>'.join(dict.fromkeys(e.link for e, _ in users))}"
                             f" | {answers_text(users)} |\n")
    return "".join(lines)


def service_of(getter):
    return getter.result.removesuffix("*").strip()


def answers_text(users):
    """One answer for all the functions served, or one for each of them."""
    answers = {entry.name: "must be there" if answer == "-" else answer for entry, answer in users}
    if len(set(answers.values())) == 1:
        return next(iter(answers.values()))
    return "<br>".join(f"`{name}`: {answer}" for name, answer in answers.items())


ENDS = re.compile(r"\bends? the process\b")


def ending_sentences(text):
    pieces = [re.sub(r"\s+", " ", piece).strip() for piece in re.split(r"\n\s*-\s|\n\n", text)]
    sentences = [sentence for piece in pieces for sentence in re.split(r"(?<=\.) (?=[A-Z0-9*])", piece)]
    return [sentence for sentence in sentences if ENDS.search(sentence)]


def endings(declaration):
    """What a contract says about the end of the process, in its own words."""
    for sentence in ending_sentences(declaration.contract):
        yield sentence
    for tag, text in declaration.tags:
        if tag == "differs":
            identifier, sentence = re.match(r"\{(\S*)\}\s*(.*)", text, re.DOTALL).groups()
            if "EndsTheProcess" in identifier or "Dies" in identifier or ENDS.search(sentence):
                yield f"`{identifier}`: {sentence}"
        elif tag != "kind":
            for sentence in ending_sentences(tag_text(tag, text)):
                yield f"{TAG_TITLES[tag]}: {sentence}" if tag == "null" else sentence


def process_ends_page(overviews, entries):
    lines = [PREFACE, "# What ends the process\n\n## Always\n\nThese functions are declared so that code links; "
             "reaching one ends the process.\n\n"]
    lines += [f"- {entry.link}\n" for entry in entries if entry.row["kind"] == "ends the process"]
    lines.append("\n## In a whole family\n\n| header | when |\n|---|---|\n")
    for header in dict.fromkeys(entry.header for entry in entries):
        sentences = ending_sentences(overviews[header])
        if sentences:
            lines.append(f"| [{header}]({page_of(header)}) | {cell(' '.join(sentences))} |\n")
    lines.append("\n## In one function\n\n| function | when |\n|---|---|\n")
    for entry in entries:
        sentences = list(dict.fromkeys(endings(entry.declaration)))
        if sentences and entry.row["kind"] != "ends the process":
            lines.append(f"| {entry.link} | {'<br>'.join(map(cell, sentences))} |\n")
    return "".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true")
    options = parser.parse_args()

    headers = declarations.Headers(*INCLUDES)
    entries = join(headers, read_tables())
    pages = {page_of(header): header_page(header, headers.overviews[header], group)
             for header, group in grouped(entries, lambda entry: entry.header).items()}
    pages |= {"index.md": index_page(entries), "differences.md": differences_page(entries),
              "fixed_results.md": fixed_results_page(entries), "host.md": host_page(entries, headers.interfaces),
              "process_ends.md": process_ends_page(headers.overviews, entries)}

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
