#!/usr/bin/env python3
"""Checks the #include lines of the whole tree against the levels of the folders.

usage: includes_test.py SOURCE_ROOT
Linking alone does not stop a header from below being used above its place: a forbidden include of a header
without code would still build. So each line is read here, after the rules have been tried on known faults.
"""

import pathlib
import re
import sys

# What the folders may include beside themselves, directly: their stated neighbours and what those see.
STATED = {
    "basic": [],
    "platform": ["basic"],
    "formula": ["platform"],
    "reports/block": ["basic"],
    "builder/payload": ["reports/block"],
    "model": ["formula", "reports/block"],
    "engine": ["formula", "builder/payload"],
    "engine/search": ["engine"],
    "widgets": ["platform"],
    "reports": ["model"],
    "builder": ["model", "builder/payload"],
    "output": ["engine/search"],
    "surface": ["model", "reports", "builder", "formula", "widgets"],
    "platform/posix": ["platform"],
    "platform/win32": ["platform"],
}
for portable in ("widgets", "model", "engine", "reports", "builder", "output", "surface"):
    STATED[f"{portable}/win32"] = [portable, "platform/win32"] + (
        [] if portable == "widgets" else ["widgets", "widgets/win32"])
STATED["engine/win32"].append("engine/search")

# Programs, tests, fuzzers and benchmarks stand above all and may use everything, but nothing uses them.
TOP = ("programs", "tests", "fuzz", "benchmarks")
ENGINE_NEVER_SEES = ("model", "surface", "reports", "builder")

INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)
WINDOWS_HEADERS = re.compile(
    r"^(windows|windowsx|winsock2?|ws2tcpip|winspool|wingdi|winuser|winbase|winreg|winver|commctrl|commdlg|"
    r"shellapi|shlobj|shlwapi|objidl|objbase|ole2|gdiplus|wincodec|richedit|uxtheme|tchar)(\.h)?$")


def visible(folder):
    seen, open_ = set(), [folder]
    while open_:
        at = open_.pop()
        if at not in seen:
            seen.add(at)
            open_ += STATED[at]
    return seen


def fault(path, bracket, target, exists):
    """Why `path` may not include `target`, both relative to the root, or None.

    exists(target): whether the project has such a file.
    """
    folder = str(pathlib.PurePosixPath(path).parent)
    top = folder.split("/")[0]
    if WINDOWS_HEADERS.match(target.lower()):
        return None if "win32" in folder.split("/") or folder.startswith("tests/windows") else \
            "a header of Windows belongs in a win32 folder"
    if bracket == "<":
        return "headers of the project are included with quotes" if exists(target) else None
    if not exists(target):
        return "no such file under the source root"
    there = str(pathlib.PurePosixPath(target).parent)
    if top in TOP:
        if folder.startswith("programs/engine") and there.split("/")[0] in ENGINE_NEVER_SEES \
                and there not in visible("engine"):
            return "the engine knows a project only by its payload"
        return None
    if folder not in STATED:
        return "this folder has no level: state it in this test"
    return None if there in visible(folder) else f"{folder} may not see {there}"


def try_rules():
    """The rules have to tell right from wrong before a clean tree means anything."""
    right = [("basic/A.cpp", '"', "basic/A.h"), ("basic/A.cpp", "<", "vector"), ("engine/A.h", '"', "basic/A.h"),
             ("engine/A.h", '"', "builder/payload/A.h"), ("surface/A.h", '"', "reports/block/A.h"),
             ("surface/win32/A.cpp", "<", "windows.h"), ("surface/win32/A.cpp", '"', "widgets/win32/A.h"),
             ("programs/designer/A.cpp", '"', "surface/A.h"), ("tests/basic/A.cpp", '"', "model/A.h"),
             ("programs/engine/A.cpp", '"', "builder/payload/A.h")]
    wrong = [("basic/A.cpp", '"', "platform/A.h"), ("engine/A.h", '"', "model/A.h"),
             ("engine/A.h", '"', "builder/A.h"), ("model/A.h", '"', "builder/payload/A.h"),
             ("reports/block/A.h", '"', "reports/A.h"), ("widgets/A.h", '"', "formula/A.h"),
             ("surface/A.cpp", "<", "windows.h"), ("programs/engine/A.cpp", '"', "Windows.h"),
             ("surface/A.h", '"', "surface/win32/A.h"), ("basic/A.h", '"', "A.h"),
             ("basic/A.h", "<", "basic/A.h"), ("model/A.h", '"', "tests/A.h"),
             ("programs/engine/A.cpp", '"', "surface/A.h"), ("newfolder/A.h", '"', "basic/A.h")]
    known = {line[2] for line in right + wrong if "/" in line[2]}
    return ([f"rules refuse {line}" for line in right if fault(*line, known.__contains__)] +
            [f"rules allow {line}" for line in wrong if not fault(*line, known.__contains__)])


def main():
    root = pathlib.Path(sys.argv[1])
    faults = try_rules()
    files = 0
    for pattern in ("**/*.h", "**/*.cpp"):
        for file in sorted(root.glob(pattern)):
            path = file.relative_to(root).as_posix()
            if path.split("/")[0].startswith(("build", ".")):
                continue
            files += 1
            text = file.read_text(encoding="utf-8", errors="replace")
            for match in INCLUDE.finditer(text):
                why = fault(path, match[1], match[2], lambda name: (root / name).is_file())
                if why:
                    line = text.count("\n", 0, match.start()) + 1
                    faults.append(f"{path}:{line}: {match[2]}: {why}")
            if path.endswith(".h") and "#pragma once" not in text:
                faults.append(f"{path}: no #pragma once")
    print("\n".join(faults + [f"{files} files read, {len(faults)} faults"]))
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main())
