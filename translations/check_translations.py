#!/usr/bin/env python3
"""Fails when a translation lacks a text of the sources or doesn't go with it.

check_translations.py FOLDER LUPDATE OPTION... SOURCE_FOLDER...
check_translations.py --self-test
"""

import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from collections import Counter
from pathlib import Path

PLACEHOLDER = re.compile(r"%L?\d|%L?n")
TAG = re.compile(r"</?[a-z]+[^>]*>")
FILTER = re.compile(r"\*\.\w+")
MNEMONIC = re.compile(r"&(?!&|\w+;)\w")


def marks(text):
    """What a translation has to share with its source text, by name."""
    plain = TAG.sub("", text)
    return {
        "placeholders": Counter(PLACEHOLDER.findall(text)),
        "tags": Counter(TAG.findall(text)),
        "file filters": FILTER.findall(text),
        "mnemonic": len(MNEMONIC.findall(plain.replace("&&", ""))),
        "lines": text.count("\n"),
        "columns": text.count(" | "),
        "ellipsis": plain.rstrip().endswith(("...", "\u2026")),
        "colon": plain.rstrip().endswith(":"),
        "full stop": plain.rstrip().endswith(".") and not plain.rstrip().endswith("..."),
        "leading blanks": len(text) - len(text.lstrip()),
        "trailing blanks": len(text) - len(text.rstrip()),
    }


def faults_of(message):
    """Why a message of a .ts file is not in order."""
    source = message.findtext("source") or ""
    translation = message.find("translation")
    if translation is None or translation.get("type") == "unfinished":
        return ["it is unfinished"]
    if translation.get("type") in ("vanished", "obsolete"):
        return ["no source has it any more"]
    isPlural = message.get("numerus") == "yes"
    forms = [each.text or "" for each in translation.findall("numerusform")]
    texts = forms if isPlural else [translation.text or ""]
    if not texts or not all(texts):
        return ["it is empty"]
    faults = []
    for text in texts:
        wanted, found = marks(source), marks(text)
        for name in wanted:
            # "One sprite" needs no number.
            if name == "placeholders" and isPlural:
                wanted[name].pop("%n", None), found[name].pop("%n", None)
            if wanted[name] != found[name]:
                faults.append(f"other {name} than the source: {text!r}")
    return faults


def messages_of(path):
    for context in ElementTree.parse(path).getroot().findall("context"):
        for message in context.findall("message"):
            key = (
                context.findtext("name"),
                message.findtext("source") or "",
                message.findtext("comment") or "",
                message.get("numerus") == "yes",
            )
            yield key, message


def check_file(path):
    return [
        f"{path.name}: {key[0]}: {key[1]!r}: {fault}"
        for key, message in messages_of(path)
        for fault in faults_of(message)
    ]


def check_sources(files, update):
    """What lupdate would change in the files, and what it can't make sense of."""
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        fresh = Path(folder) / "sources.ts"
        answer = subprocess.run(
            [*update, "-ts", str(fresh)], capture_output=True, text=True, check=False
        )
        warnings = answer.stderr.strip()
        if answer.returncode or warnings:
            faults.append(f"lupdate says: {warnings or answer.stdout}")
        wanted = {key for key, _ in messages_of(fresh)} if fresh.exists() else set()
    if not wanted:
        faults.append("no texts found in the sources")
    for path in files:
        present = {key for key, _ in messages_of(path)}
        for key in sorted(wanted - present):
            faults.append(f"{path.name}: {key[0]}: {key[1]!r}: it is missing")
        for key in sorted(present - wanted):
            faults.append(f"{path.name}: {key[0]}: {key[1]!r}: no source has it any more")
    return faults


SELF_TEST = [
    # source, translation, is in order
    ("Open %1", "%1 öffnen", True),
    ("Open %1", "Öffnen", False),
    ("%1 of %2", "%2 von %1", True),
    ("%1 of %2", "%1 von %1", False),
    ("&Save", "&Speichern", True),
    ("&Save", "Speichern", False),
    ("Save && close", "Sichern && schließen", True),
    ("&nbsp;in", "&nbsp;hinein", True),
    ("Open...", "Öffnen", False),
    ("Open...", "Öffnen\u2026", True),
    ("Name:", "Name", False),
    ("Deselect ", "Auswahl aufheben", False),
    ("\nX | toggle", "\nX | umschalten", True),
    ("\nX | toggle", "X | umschalten", False),
    ("X | toggle", "X umschalten", False),
    ("<b>Bold</b>", "<b>Fett</b>", True),
    ("<b>Bold</b>", "<b>Fett<b>", False),
    ("Images (*.png *.jpg)", "Bilder (*.png *.jpg)", True),
    ("Images (*.png *.jpg)", "Bilder (*.png)", False),
    ("Done.", "Fertig", False),
    ("Done", "", False),
]


def self_test():
    def message(source, translation, **attributes):
        root = ElementTree.Element("message")
        ElementTree.SubElement(root, "source").text = source
        ElementTree.SubElement(root, "translation", attributes).text = translation
        return root

    wrong = [row for row in SELF_TEST if (not faults_of(message(*row[:2]))) != row[2]]
    if not faults_of(message("Open", "Öffnen", type="unfinished")):
        wrong.append("unfinished")
    plural = ElementTree.Element("message", numerus="yes")
    ElementTree.SubElement(plural, "source").text = "%n sprites in %1"
    forms = ElementTree.SubElement(plural, "translation")
    for text in ("Ein Sprite in %1", "%n Sprites in %1"):
        ElementTree.SubElement(forms, "numerusform").text = text
    if faults_of(plural):
        wrong.append("plural")
    ElementTree.SubElement(forms, "numerusform").text = ""
    if not faults_of(plural):
        wrong.append("empty plural")
    return [f"self-test: {row}" for row in wrong]


def main(words):
    if words == ["--self-test"]:
        return self_test()
    folder, update = Path(words[0]), words[1:]
    own = sorted(folder.glob("vesperine_*.ts"))
    faults = check_sources(own, update)
    for path in own + sorted(folder.glob("toolkit_*.ts")):
        faults += check_file(path)
    return faults


if __name__ == "__main__":
    FAULTS = main(sys.argv[1:])
    print(*FAULTS, sep="\n")
    if FAULTS:
        print("cmake --build build/dev --target update_translations takes texts over.")
    sys.exit(1 if FAULTS else 0)
