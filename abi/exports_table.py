"""Reads abi/exports.tsv, the list of everything that libKestPlatformBase.so exports."""

import csv
import sys

COLUMNS = ["symbol", "symbol_aarch64", "second_name_of", "header", "kind", "operation", "position", "answer"]
KINDS = {"local", "forward", "checked forward", "fixed result", "ends the process", "variable"}


def fail(message):
    sys.exit(message)


def read(path):
    """Returns one dict a row, each with its line number; a malformed table ends the program with a message."""
    rows = []
    seen = {}
    with open(path, encoding="utf-8", newline="") as table:
        header = None
        for number, cells in enumerate(csv.reader(table, delimiter="\t", quoting=csv.QUOTE_NONE), start=1):
            if not cells or cells[0].startswith("#"):
                continue
            if header is None:
                header = cells
                if header != COLUMNS:
                    fail(f"{path}:{number}: the columns must be {', '.join(COLUMNS)}")
                continue
            if len(cells) != len(COLUMNS):
                fail(f"{path}:{number}: {len(cells)} columns instead of {len(COLUMNS)}")
            row = dict(zip(COLUMNS, cells), line=number)
            if row["symbol"] in seen:
                fail(f"{path}:{number}: {row['symbol']} stands in line {seen[row['symbol']]} already")
            if row["kind"] not in KINDS:
                fail(f"{path}:{number}: no kind is called '{row['kind']}'")
            forwards = row["kind"] in ("forward", "checked forward")
            if forwards and (row["operation"] == "-" or row["position"] == "-"):
                fail(f"{path}:{number}: a forward names its service operation and position")
            if row["kind"] in ("checked forward", "fixed result") and row["answer"] == "-":
                fail(f"{path}:{number}: a {row['kind']} has an answer")
            if len({row[column].count(",") for column in ("operation", "position")}) != 1:
                fail(f"{path}:{number}: every operation has a position")
            seen[row["symbol"]] = number
            rows.append(row)
    if header is None:
        fail(f"{path}: the table is empty")
    for row in rows:
        if row["second_name_of"] not in ("-", *seen):
            fail(f"{path}:{row['line']}: {row['second_name_of']} is not in the table")
    return rows


def operations(row):
    """The service operations that a function calls: (service, operation, position, answer without it) each."""
    if row["operation"] == "-":
        return []
    names, positions = row["operation"].split(","), row["position"].split(",")
    answers = row["answer"].split(",") if len(names) > 1 else [row["answer"]]
    answers += ["-"] * (len(names) - len(answers))
    return [(*name.split("::"), int(position), answer) for name, position, answer in zip(names, positions, answers)]


def symbol(row, processor):
    """The symbol on a processor: types of va_list differ, and with them the encoded names."""
    if processor == "aarch64" and row["symbol_aarch64"] != "-":
        return row["symbol_aarch64"]
    return row["symbol"]
