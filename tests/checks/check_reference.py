"""Demands that docs/reference is what scripts/reference would write, and that every export has a contract."""

import pathlib
import subprocess
import sys

# libclang's bindings are Debian's, and so is the Python that finds them.
PYTHON = "/usr/bin/python3"


def main():
    generator = pathlib.Path(sys.argv[1]) / "docs" / "generator" / "reference.py"
    result = subprocess.run([PYTHON, "-B", str(generator), "--check"], capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit(result.stdout + result.stderr)
    print(result.stdout, end="")


main()
