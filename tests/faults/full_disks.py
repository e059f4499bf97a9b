#!/usr/bin/env python3
"""Saves onto full disks: small drives in memory (which takes root), and limits on a file's size.

A save that does not fit says so, keeps the old project and leaves nothing; with space it succeeds.
"""

import os
import resource
import signal
import subprocess

from faults import Bench, read_project, strays

PAGE = 4096


def main():
    bench = Bench(__doc__, 60, "full disks")
    disk = bench.new_folder("disk")
    is_mounted = os.geteuid() == 0 and subprocess.run(
        ["mount", "-t", "tmpfs", "-o", "size=4m", "tmpfs", disk], check=False).returncode == 0
    if not is_mounted:
        print("full_disks: skipped the small drives: mounting needs root")
    refused = saved = 0
    try:
        project = bench.project(disk, 3, 96)
        size = project.stat().st_size
        filler = disk / "filler"

        def save(round_number, free, limit):
            def limited():
                signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
                resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))
            return bench.run("set", project, f"light_height={round_number % 200 + 1}",
                             preexec_fn=None if free is not None else limited)

        def check(round_number):
            nonlocal refused, saved
            before = read_project(project)
            free = limit = None
            if is_mounted and round_number % 3:
                free = bench.random.randrange(0, 3 * size // PAGE // 2) * PAGE
                status = os.statvfs(disk)
                with open(filler, "wb") as file:
                    file.write(bytes(max(0, status.f_bavail * status.f_frsize - free)))
            else:
                limit = bench.random.randrange(0, size)
            status, words = save(round_number, free, limit)
            after = read_project(project)
            is_new = after[0]["light_height"] == str(round_number % 200 + 1)
            refused += status != 0
            saved += status == 0
            bench.expect(status == 0 and is_new or status != 0 and after == before,
                         f"status {status}, but the project is "
                         f"{'new' if is_new else 'old'}: {words.strip()}")
            bench.expect(status == 0 or str(project) in words, f"says only {words!r}")
            bench.expect(not strays(disk), f"left {strays(disk)}")
            filler.unlink(missing_ok=True)
            bench.must("set", project, "light_height=250")

        for round_number in range(bench.count):
            bench.attempt(f"disk {round_number}", check, round_number)
            filler.unlink(missing_ok=True)
    finally:
        if is_mounted:
            subprocess.run(["umount", disk], check=False)
    bench.end(f"{bench.count} full disks, {refused} saves refused, {saved} fitted")


main()
