"""What the scripts beside this share: sprites, projects, runs of the command line, and the report."""

import argparse
import os
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import zipfile
import zlib
from pathlib import Path
from xml.etree import ElementTree

HERE = Path(__file__).resolve().parent


class Fault(Exception):
    """What must not happen: something was lost or left behind."""


class Bench:
    """One run of a script: its options, its folder, and the program under test."""

    def __init__(self, description, count, counted):
        parser = argparse.ArgumentParser(description=description)
        parser.add_argument("--build", required=True, type=Path, help="build folder")
        parser.add_argument("--count", type=int, default=count, help=counted)
        parser.add_argument("--seed", type=int, default=1)
        options = parser.parse_args()
        self.count = options.count
        self.random = random.Random(options.seed)
        self.program = options.build.resolve() / "src/cli/vesperine-cli"
        self.folder = Path(tempfile.mkdtemp(prefix="vesperine-faults-")).resolve()
        self.faults = []
        self.environment = {**os.environ, "XDG_CONFIG_HOME": str(self.folder / "config"),
                            "XDG_DATA_HOME": str(self.folder / "data")}

    def start(self, *arguments, environment=None, **options):
        return subprocess.Popen([self.program, *map(str, arguments)],
                                env={**self.environment, **(environment or {})},
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                **options)

    def run(self, *arguments, **options):
        """The exit status and all that was said."""
        process = self.start(*arguments, **options)
        output, words = process.communicate(timeout=120)
        return process.returncode, output + words

    def must(self, *arguments, **options):
        status, words = self.run(*arguments, **options)
        if status != 0:
            raise Fault(f"{' '.join(map(str, arguments))}: {status}: {words.strip()}")

    def expect(self, condition, message):
        if not condition:
            raise Fault(message)

    def attempt(self, what, action, *arguments):
        """Runs one of many attempts and notes what is wrong with it."""
        try:
            action(*arguments)
        except Fault as fault:
            self.faults.append(fault)
            print(f"{what}: {fault}", file=sys.stderr)

    def new_folder(self, name):
        folder = self.folder / name
        folder.mkdir()
        return folder

    def project(self, folder, sprites=3, side=64):
        """A project with a surface in each body."""
        paths = [write_sprite(folder / f"s{i}.png", self.random, side) for i in range(sprites)]
        project = folder / "p.vep"
        self.must("create", project, *paths)
        self.must("emboss", project, "--height", "8")
        return project

    def shim(self):
        library = self.folder / "shim.so"
        subprocess.run(["cc", "-shared", "-fPIC", "-O1", "-o", library, HERE / "shim.c", "-ldl"],
                       check=True)
        return library

    def end(self, figures):
        """Prints the line of figures; the exit status tells whether all was well."""
        shutil.rmtree(self.folder, ignore_errors=True)
        print(f"{Path(sys.argv[0]).stem}: {figures}, {len(self.faults)} faults")
        sys.exit(1 if self.faults else 0)


def write_sprite(path, numbers, side=16):
    """A PNG file of random colours."""
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))
    rows = b"".join(b"\0" + numbers.randbytes(3 * side) for _ in range(side))
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(b"\x89PNG\r\n\x1a\n"
                     + chunk(b"IHDR", struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0))
                     + chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))
    return path


def is_normal_map(path):
    return b"tEXtVesperine\0normal map" in path.read_bytes()[:1024]


def read_project(project):
    """The settings, the bodies' names and the surfaces' bytes of a complete project."""
    try:
        with zipfile.ZipFile(project) as archive:
            surfaces = {name: archive.read(name) for name in archive.namelist()
                        if not name.endswith(".vexml")}
            root = ElementTree.fromstring(archive.read("project.vexml"))
    except (OSError, zipfile.BadZipFile, KeyError, ElementTree.ParseError) as error:
        raise Fault(f"the project is broken: {error!r}") from error
    settings = {child.tag: child.text for child in root if len(child) == 0}
    bodies = [body.findtext("name") for body in root.find("bodies")]
    for element in root.iter():
        if element.get("datafile") and f"datafiles/{element.get('datafile')}" not in surfaces:
            raise Fault("the project lacks a surface")
    return settings, bodies, surfaces


def strays(folder):
    return sorted(path.name for path in folder.iterdir() if path.name.startswith("."))
