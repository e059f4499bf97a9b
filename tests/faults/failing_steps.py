#!/usr/bin/env python3
"""Lets every single call of a save on its files fail, and kills the program at every one of them.

On drives that keep locks and know files without names, and on those that lack one or the other. A
save that fails leaves the old project and nothing else; after a kill the project is the old or the
new one, can be saved again at once, and nothing is left after that.
"""

import itertools

from faults import Bench, Fault, read_project, strays

LACKS = [("flock", "tmpfile"), (), ("tmpfile",), ("flock",), ("linkat",), ("flock", "linkat"),
         ("tmpfile", "linkat"), ("flock", "tmpfile", "linkat")]
# Calls without which the program can't take away what it has made.
REMOVING = ("unlink",)


class Steps:
    def __init__(self, bench, shim):
        self.bench, self.shim = bench, shim
        self.folder = bench.new_folder("project")
        self.project = bench.project(self.folder, 2, 16)
        self.tells = bench.folder / "step"
        self.value = 0
        self.failures = self.kills = 0
        self.is_over = False  # the last save had fewer steps

    def save(self, step=0, lacks=(), kills=False):
        """Whether the step was reached, with its name, and how the save ended."""
        self.value = self.value % 200 + 1
        self.tells.unlink(missing_ok=True)
        environment = {"LD_PRELOAD": str(self.shim), "FAULT_FOLDER": str(self.folder),
                       "FAULT_ALWAYS": ",".join(lacks), "FAULT_AT": str(step),
                       "FAULT_TELLS": str(self.tells)}
        if kills:
            environment["FAULT_KILLS"] = "1"
        status, words = self.bench.run("set", self.project, f"light_height={self.value}",
                                       environment=environment)
        return self.tells.read_text() if self.tells.exists() else None, status, words

    def height(self):
        return int(read_project(self.project)[0]["light_height"])

    def check(self, step, lacks, kills):
        before, surfaces = self.height(), read_project(self.project)[2]
        name, status, words = self.save(step, lacks, kills)
        self.is_over = name is None
        if self.is_over:
            if status != 0:
                raise Fault(f"can't be saved: {words.strip()}")
            if strays(self.folder):
                raise Fault(f"left {strays(self.folder)}")
            if words.count("without a lock") != lacks.count("flock"):
                raise Fault(f"says {words!r}")
            return
        now = self.height()
        self.kills += kills
        self.failures += not kills
        allowed = (before, self.value) if kills else ((self.value,) if status == 0 else (before,))
        if now not in allowed or read_project(self.project)[2] != surfaces:
            raise Fault(f"{name}: status {status}, but the project is at {now}: {words.strip()}")
        if not kills and name not in REMOVING and strays(self.folder):
            raise Fault(f"{name}: left {strays(self.folder)}")
        _, status, words = self.save(0, lacks)
        if status != 0 or self.height() != self.value:
            raise Fault(f"{name}: can't be saved after that: {words.strip()}")
        if strays(self.folder):
            raise Fault(f"{name}: left {strays(self.folder)} after the next save")


def main():
    bench = Bench(__doc__, 2, "kinds of drives, of 8")
    steps = Steps(bench, bench.shim())
    kinds = LACKS[:bench.count]
    for lacks, kills in itertools.product(kinds, (False, True)):
        for step in itertools.count(1):
            bench.attempt(f"without {lacks}, step {step}{', killed' if kills else ''}",
                          steps.check, step, lacks, kills)
            if steps.is_over:
                break
    bench.end(f"{len(kinds)} kinds of drives, {steps.failures} failures, {steps.kills} kills")


main()
