#!/usr/bin/env python3
"""Kills the editor while it has unsaved work, and checks that all of it comes back.

Each run paints some strokes in the window, saves them to know what they are, takes them back by
undo, saves that, and brings the strokes back by redo: they are unsaved then, and known bit for bit.
Once the editor has kept a snapshot it is killed. The next start recovers and saves. It is given the
project's name in one run, nothing in the next; in a third the work is recovered, given up, and
recovered from what is offered once more.

Needs Xvfb and xdotool. A run takes a minute: the shortest interval of snapshots is 30 seconds.
"""

import argparse
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import traceback
import xml.etree.ElementTree as ElementTree
import zipfile
import zlib
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from shown_editor import Display, Editor, Fault, wait_for

MODES = ("named", "unnamed", "given-up")
SIDE = 96  # of a sprite, in pixels
SAVED = r"^p\.vep .*Vesperine$"
CHANGED = r"^p\.vep\* .*Vesperine$"


def write_sprite(path, dice):
    """A PNG file of one opaque colour."""
    def chunk(kind, content):
        body = kind + content
        return struct.pack(">I", len(content)) + body + struct.pack(">I", zlib.crc32(body))
    color = bytes(dice.randrange(60, 256) for _ in range(3)) + b"\xff"
    rows = (b"\0" + color * SIDE) * SIDE
    head = struct.pack(">IIBBBBB", SIDE, SIDE, 8, 6, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) +
                     chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def surfaces_of(project):
    """The painted surface of each body by its name, as the bytes that were compressed."""
    with zipfile.ZipFile(project) as archive:
        root = ElementTree.fromstring(archive.read("project.vexml"))
        surfaces = {}
        for body in root.find("bodies"):
            name = body.find("painted_normal_map").get("datafile")
            packed = archive.read(f"datafiles/{name}")
            surfaces[body.find("name").text] = zlib.decompress(packed[4:]) if packed[4:] else b""
        return surfaces


class Run:
    def __init__(self, build, number, seed, mode, folder):
        self._program = build / "src" / "vesperine"
        self._cli = build / "src" / "cli" / "vesperine-cli"
        self._number = number
        self._dice = random.Random(f"{seed}/{number}")
        self._mode = mode
        self._folder = folder
        self._project = folder / "p.vep"

    def say(self, text):
        print(f"run {self._number} ({self._mode}): {text}", flush=True)

    def is_good(self):
        try:
            self._prepare()
            with Display() as self._display:
                painted = self._paint_and_kill()
                self._recover(painted)
            return True
        except Exception as error:  # of one run; the others go on
            where = traceback.extract_tb(error.__traceback__)
            steps = [frame.name for frame in where if frame.filename == __file__]
            self.say(f"LOST: {error!r} in {' > '.join(steps)}")
        return False

    def _start(self, *arguments):
        return Editor(self._program, self._display, self._folder, arguments)

    def _prepare(self):
        sprite = self._folder / "a.png"
        write_sprite(sprite, self._dice)
        subprocess.run([str(self._cli), "create", str(self._project), str(sprite)],
                       check=True, stdout=subprocess.DEVNULL)
        settings = self._folder / "config" / "Vesperine" / "Vesperine.conf"
        settings.parent.mkdir(parents=True)
        settings.write_text("[General]\nrecoveryInterval=30\n", encoding="utf-8")

    def _save(self, editor):
        editor.await_window(CHANGED)
        editor.key("ctrl+s")
        editor.await_window(SAVED)
        return surfaces_of(self._project)

    def _paint(self, editor):
        window = editor.await_window(SAVED)
        x, y, width, height = editor.place(window)
        # The view is the middle of the window; the sprite fills it, the light is at its corner.
        def point():
            return (x + width // 2 + self._dice.randrange(-80, 80),
                    y + height // 2 + self._dice.randrange(-80, 80))
        strokes = self._dice.randrange(2, 6)
        editor.key(self._dice.choice("bs"))  # height or structure
        for _ in range(strokes):
            editor.stroke([point() for _ in range(self._dice.randrange(2, 8))])
        return strokes

    def _snapshots(self):
        return list((self._folder / "data").glob("*/*/recovery/*/index"))

    def _paint_and_kill(self):
        flat = surfaces_of(self._project)
        with self._start(self._project) as editor:
            strokes = self._paint(editor)
            painted = self._save(editor)
            if painted == flat:
                raise Fault("the strokes have painted nothing")
            editor.key(*["ctrl+z"] * strokes)
            if self._save(editor) != flat:
                raise Fault("undo has not taken the strokes back")
            editor.key(*["ctrl+shift+z"] * strokes)
            editor.await_window(CHANGED)
            self.say(f"{strokes} strokes painted, unsaved; waiting for the snapshot")
            wait_for("snapshot", self._snapshots, 90)
            time.sleep(self._dice.uniform(0, 2))
            editor.kill()
        self.say("killed")
        if surfaces_of(self._project) != flat:
            raise Fault("the project's file is not as it was saved")
        return painted

    def _start_and_recover(self, arguments):
        editor = self._start(*arguments)
        try:
            editor.await_window("^Unsaved work$")
            editor.key("Return")
            editor.await_window(CHANGED)
            time.sleep(0.5)
            if editor.window(r"^Save changes\?$"):
                raise Fault("the start asks whether the recovered work is to be saved")
            return editor
        except Fault:
            editor.__exit__()
            raise

    def _recover(self, painted):
        arguments = [] if self._mode == "unnamed" else [self._project]
        if self._mode == "given-up":
            self._give_up(arguments)
        with self._start_and_recover(arguments) as editor:
            if self._save(editor) != painted:
                raise Fault("what was recovered is not what was painted")
            wait_for("removal of the snapshot", lambda: not self._snapshots())
            editor.key("ctrl+q")
            editor.wait_for_end()
        self.say("recovered, all as painted")

    def _give_up(self, arguments):
        with self._start_and_recover(arguments) as editor:
            editor.key("ctrl+q")
            editor.await_window(r"^Save changes\?$")
            editor.key("Tab", "Return")  # Discard
            editor.wait_for_end()
        if not self._snapshots():
            raise Fault("what was given up is not kept")
        self.say("recovered, given up")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--build", type=Path, required=True, help="the folder of the build")
    parser.add_argument("--count", type=int, default=3, help="how many runs (default 3)")
    parser.add_argument("--seed", type=int, default=1, help="of strokes and moments (default 1)")
    parser.add_argument("--mode", choices=MODES, help="of all runs, instead of one after another")
    options = parser.parse_args()
    for tool in ("Xvfb", "xdotool"):
        if not shutil.which(tool):
            sys.exit(f"recoveries_in_window: there is no {tool}")
    build = options.build.resolve()

    # They mostly wait, so that some at once disturb each other little.
    lost = 0
    with tempfile.TemporaryDirectory() as work, ThreadPoolExecutor(max_workers=3) as pool:
        def run(number):
            folder = Path(work) / str(number)
            folder.mkdir()
            mode = options.mode or MODES[number % len(MODES)]
            return Run(build, number, options.seed, mode, folder).is_good()
        lost = sum(not is_good for is_good in pool.map(run, range(options.count)))
    print(f"recoveries_in_window: {options.count} runs, {lost} lost")
    return 1 if lost else 0


if __name__ == "__main__":
    sys.exit(main())
