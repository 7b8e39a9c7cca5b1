"""Reads the public headers with libclang: every exported declaration with its contract, and the host's interfaces."""

import pathlib
import re

import clang.cindex as clang

FUNCTIONS = {clang.CursorKind.FUNCTION_DECL, clang.CursorKind.CXX_METHOD, clang.CursorKind.CONSTRUCTOR,
             clang.CursorKind.DESTRUCTOR, clang.CursorKind.CONVERSION_FUNCTION}
CLASSES = {clang.CursorKind.CLASS_DECL, clang.CursorKind.STRUCT_DECL}
SCOPES = CLASSES | {clang.CursorKind.NAMESPACE}
INTERFACE = re.compile(r"I[A-Z]\w*Services?")
TAG = re.compile(r"^@(param|return|lasterror|null|kind|differs)\b", re.MULTILINE)


class Declaration:
    """An exported function, member or variable: its symbols, how it reads, its contract."""

    def __init__(self, cursor, header, comment):
        self.header = header
        self.file = cursor.location.file.name
        self.line = cursor.extent.start.line
        self.scope = scope_of(cursor)
        self.name = "::".join((*self.scope, cursor.spelling))
        self.symbols = symbols_of(cursor)
        self.text = source_text(cursor)
        self.contract, self.tags = read_comment(comment)

    def tag(self, name):
        return [text for tag, text in self.tags if tag == name]


def scope_of(cursor):
    names = []
    parent = cursor.semantic_parent
    while parent is not None:
        if parent.kind in SCOPES:
            names.insert(0, parent.spelling)
        parent = parent.semantic_parent
    return tuple(names)


def symbols_of(cursor):
    """A constructor or destructor is exported twice: for complete objects and for bases."""
    symbol = cursor.mangled_name
    if cursor.kind == clang.CursorKind.CONSTRUCTOR:
        return [symbol, symbol.replace("C1E", "C2E", 1)]
    if cursor.kind == clang.CursorKind.DESTRUCTOR:
        return [symbol, symbol.replace("D1E", "D2E", 1)]
    return [symbol]


def source_text(cursor):
    """The declaration as the header spells it, on one line, without what only concerns the compiler and the body."""
    lines = pathlib.Path(cursor.extent.start.file.name).read_text(encoding="utf-8").splitlines()
    text = " ".join(lines[cursor.extent.start.line - 1:cursor.extent.end.line])
    text = re.split(r"[;{]| = 0\b", text)[0]
    return re.sub(r"\s+", " ", re.sub(r"\b(KEST_API|extern|virtual)\s+", "", text)).strip()


def read_comment(comment):
    """Splits a contract into its text and its tags, in order."""
    lines = [re.sub(r"^\s*(/\*\*|\*/|\*)\s?", "", line) for line in (comment or "").splitlines()]
    text = re.sub(r"\s*\*/\s*$", "", "\n".join(lines)).strip()
    text = re.sub(r"(\S)\s+@kind\b", r"\1\n@kind", text)
    pieces = TAG.split(text)
    return pieces[0].strip(), [(pieces[index], pieces[index + 1].strip()) for index in range(1, len(pieces), 2)]


def follows_directly(previous, cursor):
    """Declarations without a blank line between them share the contract above the first."""
    return previous is not None and cursor.extent.start.line - previous.extent.end.line <= 1


def exported(cursor):
    return any(child.kind == clang.CursorKind.VISIBILITY_ATTR for child in cursor.get_children())


def folder_of(cursor, folders):
    """Which of the folders the cursor's header stands below, if any."""
    if cursor.location.file is None:
        return None
    return next((folder for folder in folders if folder in pathlib.Path(cursor.location.file.name).parents), None)


def walk(scope, folders, found):
    previous, comment = None, None
    for cursor in scope.get_children():
        folder = folder_of(cursor, folders)
        if folder is None:
            continue
        if cursor.kind in FUNCTIONS or cursor.kind == clang.CursorKind.VAR_DECL:
            if cursor.raw_comment:
                comment = cursor.raw_comment
            elif not follows_directly(previous, cursor):
                comment = None
            if exported(cursor):
                header = str(pathlib.Path(cursor.location.file.name).relative_to(folder))
                found.append(Declaration(cursor, header, comment))
            previous = cursor
        else:
            walk(cursor, folders, found)


class Operation:
    """One slot of an interface, counted from 1; reserved ones have no name of their own."""

    def __init__(self, cursor, position):
        self.position = position
        self.name = cursor.spelling
        self.reserved = cursor.spelling.startswith("reserved")
        self.text = source_text(cursor)
        self.result = cursor.result_type.spelling
        self.remark = read_comment(cursor.raw_comment)[0].lstrip("< ") if cursor.raw_comment else ""


def read_interfaces(unit):
    """The host's interfaces, by name: each its purpose and its operations in the order of their slots."""
    interfaces = {}
    for cursor in unit.cursor.get_children():
        if cursor.kind == clang.CursorKind.CLASS_DECL and cursor.is_definition() and \
                INTERFACE.fullmatch(cursor.spelling):
            methods = [child for child in cursor.get_children() if child.kind == clang.CursorKind.CXX_METHOD]
            interfaces[cursor.spelling] = (read_comment(cursor.raw_comment)[0],
                                           [Operation(method, slot) for slot, method in enumerate(methods, start=1)])
    return interfaces


def read_overview(header):
    """The comment that opens a header, without the name of the system."""
    comment = re.match(r"\s*/\*(.*?)\*/", header.read_text(encoding="utf-8"), re.DOTALL)
    if comment is None:
        return ""
    lines = [re.sub(r"^ \* ?", "", line) for line in comment.group(1).strip().splitlines()]
    text = re.sub(r"^Kest Platform Base(, companions)?: ", "", "\n".join(lines).removeprefix("* "))
    return text[:1].upper() + text[1:]


class Headers:
    """What stands in the headers below kest/ of the include folders."""

    def __init__(self, *includes):
        includes = [pathlib.Path(include).resolve() for include in includes]
        folders = [include / "kest" for include in includes]
        headers = {str(path.relative_to(folder)): path for folder in folders for path in sorted(folder.rglob("*.h"))}
        self.unit = parse(includes, headers)
        self.declarations = []
        walk(self.unit.cursor, folders, self.declarations)
        self.declarations.sort(key=lambda declaration: (declaration.header, declaration.line))
        self.interfaces = read_interfaces(self.unit)
        self.overviews = {header: read_overview(path) for header, path in headers.items()}


def parse(includes, headers):
    source = "".join(f'#include "kest/{header}"\n' for header in headers)
    unit = clang.Index.create().parse("all_headers.cpp", unsaved_files=[("all_headers.cpp", source)],
                                      args=["-x", "c++", "-std=c++20", "--target=x86_64-linux-gnu",
                                            *(f"-I{include}" for include in includes)])
    errors = [str(problem) for problem in unit.diagnostics if problem.severity >= clang.Diagnostic.Error]
    if errors:
        raise SystemExit("\n".join(errors))
    return unit
