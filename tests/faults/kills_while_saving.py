#!/usr/bin/env python3
"""Kills the command line, alone or with its children, at random moments of its work on a project.

Afterwards the project is the old or the new one, complete, can be saved again at once, and nothing
else is left after that.
"""

import os
import signal
import time

from faults import Bench, read_project, strays


def main():
    bench = Bench(__doc__, 100, "kills")
    folder = bench.new_folder("project")
    project = bench.project(folder, 4, 128)
    surfaces = read_project(project)[2]
    duration = 0.05  # of a save, as far as known
    kills = unsaved = strays_left = 0

    def height():
        return read_project(project)[0]["light_height"]

    def check(value):
        nonlocal kills, unsaved, strays_left, duration
        before = height()
        process = bench.start("set", project, f"light_height={value}", start_new_session=True)
        # Late moments more often: the program starts for longer than it saves.
        time.sleep(duration * (1 - bench.random.random() ** 1.5 * 0.8))
        # The process that moves the new file into place outlives the program or dies with it.
        if value % 4:
            process.send_signal(signal.SIGKILL)
        else:
            os.killpg(process.pid, signal.SIGKILL)
        process.communicate()
        kills += process.returncode == -signal.SIGKILL
        now = height()
        unsaved += now == before
        strays_left += any(not name.endswith(".lock") for name in strays(folder))
        bench.expect(now in (before, str(value)), f"the project is at {now}")
        began = time.monotonic()
        bench.must("set", project, f"light_height={value + 1}")
        duration += (time.monotonic() - began - duration) / 4
        bench.expect(height() == str(value + 1), "the next save is lost")
        bench.expect(read_project(project)[2] == surfaces, "a surface is lost")
        bench.expect(not strays(folder), f"left {strays(folder)}")

    runs = 0
    while kills < bench.count and runs < 4 * bench.count:
        bench.attempt(f"run {runs}", check, runs % 100 * 2 + 2)
        runs += 1
    bench.end(f"{kills} kills, {unsaved} before the new project was in place, {strays_left} left "
              "more than the lock for the next save to remove")


main()
