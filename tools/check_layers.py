#!/usr/bin/env python3
"""Fails when an include points up the layers, or when a pure file reaches for Windows.

The layers, from the top: each may include itself and what stands below it.
"""
import pathlib
import re
import subprocess
import sys

# Top to bottom. The first prefix that matches a path names its layer.
LAYERS = [
    ("entry points", r"host/[^/]+$"),
    ("view", r"view/[^/]+$"),
    ("loading", r"load/[^/]+$"),
    ("settings store", r"host/store/"),
    ("files", r"load/files/"),
    ("view logic", r"view/logic/"),
    ("model", r"model/"),
    ("config", r"host/config/"),
    ("text", r"load/text/"),
    ("memory", r"load/memory/"),
]
PURE = {"view logic", "model", "config", "text", "memory"}
# The interface's constants are plain numbers that the viewer must know as well as the entry points.
SHARED_HEADERS = {"host/lister_api.h"}
# The one file of the lower layers that is Windows by purpose.
WINDOWS_FILES = {"load/text/platform_win32.cpp"}
# Models are loaded with plain option structs; they must not know the settings.
FORBIDDEN = {("model", "config")}
WINDOWS_HEADERS = re.compile(r"^(windows|windowsx|commctrl|commdlg|shellapi|uxtheme|winuser)\.h$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def layer_of(path: str) -> int | None:
    for index, (_, pattern) in enumerate(LAYERS):
        if re.match(pattern, path):
            return index
    return None


def objections(path: str, text: str) -> list[str]:
    own = layer_of(path)
    found = []
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if not match or own is None:
            continue
        target = match.group(2)
        place = f"{path}:{number}"
        name = LAYERS[own][0]
        if match.group(1) == "<":
            if name in PURE and WINDOWS_HEADERS.match(target) and path not in WINDOWS_FILES:
                found.append(f"{place}: {name} must not know Windows ({target})")
            continue
        other = layer_of(target)
        if other is None or target in SHARED_HEADERS:
            continue
        if other < own:
            found.append(f"{place}: {name} must not include {LAYERS[other][0]} ({target})")
        if (name, LAYERS[other][0]) in FORBIDDEN:
            found.append(f"{place}: {name} must not include {LAYERS[other][0]} ({target})")
    return found


def main() -> int:
    files = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "--", "*.cpp", "*.h"],
        capture_output=True, text=True, check=True,
    ).stdout.split()
    found = []
    for name in files:
        found += objections(name, pathlib.Path(name).read_text(encoding="utf-8"))
    for line in found:
        print(line)
    print(f"layers: {len(files)} files, {len(found)} objections")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
