"""Demands that every C and C++ file is formatted as .clang-format says."""

import pathlib
import subprocess
import sys

FOLDERS = ["include", "src", "common", "companions", "host", "tools", "examples", "tests", "fuzz", "benchmarks"]


def main():
    root = pathlib.Path(sys.argv[1])
    files = sorted(str(path) for folder in FOLDERS for path in (root / folder).rglob("*")
                   if path.suffix in {".h", ".hpp", ".cpp", ".c"} and "corpus" not in path.parts)
    result = subprocess.run(["clang-format", "--dry-run", "--Werror", *files], capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit(result.stderr + "clang-format -i mends it")
    print(f"{len(files)} files formatted")


main()
