#!/usr/bin/env python3
"""Fails on what clang-format cannot see: long files, long functions, files without a first word."""
import pathlib
import re
import subprocess
import sys

MAX_FILE = 450      # tables are exempt
MAX_FUNCTION = 60
MAX_LINE = 100
# As long as what they list.
TABLES = {
    "host/config/setting_keys.h",
    "view/logic/commands.cpp",
    "load/text/charset_names.cpp",
}
FUNCTION_END = re.compile(r"^}( *// .*)?$")
FUNCTION_START = re.compile(r"^[A-Za-z_].*[^;]\{$")
NOT_A_FUNCTION = re.compile(
    r"^(namespace|extern|class|struct|enum|union|constexpr|inline constexpr|const|static const)\b"
)


def long_functions(lines: list[str]) -> list[tuple[int, int]]:
    """Functions at file scope as (line, length); formatting puts their braces at column 0."""
    found, start = [], None
    for number, line in enumerate(lines, 1):
        if start is None and FUNCTION_START.match(line) and not NOT_A_FUNCTION.match(line):
            start = number
        elif start is not None and FUNCTION_END.match(line):
            if number - start + 1 > MAX_FUNCTION:
                found.append((start, number - start + 1))
            start = None
    return found


def must_open_with_reason(name: str) -> bool:
    """A source beside its own header leaves the word to the header; tests speak by their names."""
    path = pathlib.Path(name)
    return not name.startswith("tests/") and not (
        path.suffix == ".cpp" and path.with_suffix(".h").exists()
    )


def objections(name: str) -> list[str]:
    lines = pathlib.Path(name).read_text(encoding="utf-8").splitlines()
    found = []
    if len(lines) > MAX_FILE and name not in TABLES:
        found.append(f"{name}: {len(lines)} lines")
    for number, line in enumerate(lines, 1):
        if len(line) > MAX_LINE and "http" not in line:
            found.append(f"{name}:{number}: {len(line)} columns")
    for number, length in long_functions(lines):
        found.append(f"{name}:{number}: a function of {length} lines")
    if must_open_with_reason(name) and lines and not lines[0].startswith("//"):
        found.append(f"{name}:1: does not say why it exists")
    return found


def main() -> int:
    files = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "--", "*.cpp", "*.h"],
        capture_output=True, text=True, check=True,
    ).stdout.split()
    found = [line for name in files for line in objections(name)]
    for line in found:
        print(line)
    print(f"style: {len(files)} files, {len(found)} objections")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
