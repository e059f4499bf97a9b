#!/usr/bin/env python3
"""Fails when an include breaks the order of the folders.

Checks every #include below src/: a folder may see only what ALLOWED lists for it, no circle may
exist between the units (a header and its source) or the folders, and the headers of OpenCV, ZIP
and OpenGL stay in the folders that own them. With --self-test it checks that it finds planted
faults.
"""

import re
import sys
from pathlib import Path

IMAGING = ["imaging"]
DOCUMENT = ["model", "model/properties", "imaging", "base"]
INTERACTIVE = DOCUMENT + ["framework"]
ALLOWED = {
    "base": [],
    "imaging": [],
    "imaging/effects": IMAGING,
    "model/properties": ["base"],
    "model": ["model/properties", "imaging", "base"],
    "framework": ["base"],
    "tools": INTERACTIVE,
    "tools/effects": INTERACTIVE + ["tools", "imaging/effects"],
    "preview": INTERACTIVE + ["tools"],
    "ui/properties": INTERACTIVE,
    "ui": INTERACTIVE + ["tools", "tools/effects", "preview", "ui/properties"],
    "cli": DOCUMENT + ["imaging/effects"],
    ".": ["ui", "framework", "base"],
}
# Outside headers that only some units may see: a pattern, and where it may stand.
OWNED = [
    (re.compile(r"opencv2?/"), ["imaging/", "imaging/effects/"], "OpenCV"),
    (re.compile(r"(private/)?qzip(reader|writer)_p\.h|QZip"), ["model/"], "ZIP"),
    (re.compile(r"Q?OpenGL|GL/|GLES|QtOpenGL", re.I), ["preview/"], "OpenGL"),
    (re.compile(r"CLI/"), ["cli/"], "CLI11"),
]
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.M)


def folder_of(path):
    return str(Path(path).parent)


def unit_of(path):
    return str(Path(path).with_suffix(""))


def find_circle(edges):
    """One circle in a graph {node: set of nodes} as a list of nodes, or None."""
    state = {}

    def visit(node, trail):
        state[node] = "open"
        for other in sorted(edges.get(node, ())):
            if state.get(other) == "open":
                return trail[trail.index(other):] + [other]
            if other not in state:
                found = visit(other, trail + [other])
                if found:
                    return found
        state[node] = "done"
        return None

    for node in sorted(edges):
        if node not in state:
            found = visit(node, [node])
            if found:
                return found
    return None


def check(sources):
    """The faults in {path below src/: text}, one line each."""
    faults, units, folders = [], {}, {}
    for path, text in sorted(sources.items()):
        folder = folder_of(path)
        if folder not in ALLOWED:
            faults.append(f"{path}: the folder is not in the table")
            continue
        for kind, target in INCLUDE.findall(text):
            for pattern, owners, name in OWNED:
                if pattern.match(target) and folder + "/" not in owners:
                    faults.append(f"{path}: {name} header {target} outside its folder")
            if kind == "<" or target.endswith("_p.h") or target.endswith(".moc"):
                continue
            if target not in sources:
                faults.append(f"{path}: {target} is not written from src/")
                continue
            other = folder_of(target)
            if other != folder and other not in ALLOWED[folder]:
                faults.append(f"{path}: {folder} may not include {target}")
            if unit_of(target) != unit_of(path):
                units.setdefault(unit_of(path), set()).add(unit_of(target))
            if other != folder:
                folders.setdefault(folder, set()).add(other)
    for what, edges in (("units", units), ("folders", folders)):
        circle = find_circle(edges)
        if circle:
            faults.append(f"circle between {what}: " + " -> ".join(circle))
    return faults


def self_test():
    planted = [
        ("forbidden include", {"base/A.h": '#include "model/B.h"', "model/B.h": ""}, "may not"),
        ("OpenCV outside", {"model/A.cpp": "#include <opencv2/core.hpp>"}, "OpenCV"),
        ("ZIP outside", {"base/A.cpp": "#include <private/qzipreader_p.h>"}, "ZIP"),
        ("OpenGL outside", {"base/A.cpp": "#include <QOpenGLContext>"}, "OpenGL"),
        ("relative include", {"base/A.cpp": '#include "A.h"', "base/A.h": ""}, "not written"),
        ("unknown folder", {"extra/A.cpp": ""}, "not in the table"),
        ("circle of units", {"base/A.cpp": '#include "base/B.h"', "base/A.h": "",
                             "base/B.h": '#include "base/A.h"'}, "circle between units"),
        ("clean", {"base/A.cpp": '#include "base/A.h"', "base/A.h": "#include <QString>"}, None),
    ]
    missed = []
    for name, sources, expected in planted:
        faults = check(sources)
        if not faults if expected else faults:
            missed.append(f"{name}: {faults}")
        elif expected and not any(expected in fault for fault in faults):
            missed.append(f"{name}: {faults}")
    return missed


def main():
    if sys.argv[1:] == ["--self-test"]:
        faults = self_test()
    else:
        root = Path(sys.argv[1]) / "src"
        faults = check({str(path.relative_to(root)): path.read_text(encoding="utf-8")
                        for path in root.rglob("*") if path.suffix in (".h", ".cpp")})
    print("\n".join(faults) or "no faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
