"""Makes mutated files, gives many of them to a process, and finds the one at fault."""

import argparse
import os
import random
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import threading

MEMORY = 2 << 30  # of one process, for files of some kilobytes
ADDRESSES = 16 << 30  # so that the machine outlives what takes far more
SECONDS_TO_START = 10
SECONDS_A_FILE = 0.25  # most take some milliseconds
BATCH = 200


def options(name):
    parser = argparse.ArgumentParser(description=name)
    parser.add_argument("--build", required=True, help="a build folder with vesperine-cli")
    parser.add_argument("--count", type=int, default=2000, help="files to try")
    parser.add_argument("--seed", type=int, default=1, help="other seeds, other files")
    return parser.parse_args()


def program(build):
    path = os.path.join(os.path.abspath(build), "src", "cli", "vesperine-cli")
    if not os.access(path, os.X_OK):
        sys.exit(f"'{path}' is missing: build vesperine-cli first")
    return path


class Run:
    """How one process ended: 'ok', 'crashed', 'hung' or 'over memory'."""

    def __init__(self, command, good_codes, file_count):
        with tempfile.TemporaryFile() as words:
            process = subprocess.Popen(
                command,
                stdin=subprocess.DEVNULL,
                stdout=subprocess.DEVNULL,
                stderr=words,
                preexec_fn=lambda: resource.setrlimit(
                    resource.RLIMIT_AS, (ADDRESSES, ADDRESSES)
                ),
            )
            timer = threading.Timer(
                SECONDS_TO_START + SECONDS_A_FILE * file_count,
                process.send_signal,
                (signal.SIGKILL,),
            )
            timer.start()
            _, status, usage = os.wait4(process.pid, 0)
            hung = not timer.is_alive()
            timer.cancel()
            process.returncode = os.waitstatus_to_exitcode(status)
            words.seek(0)
            lines = words.read()
        self.code = process.returncode
        if hung:
            self.end = "hung"
        elif usage.ru_maxrss * 1024 > MEMORY or b"not enough memory" in lines:
            self.end = "over memory"
        elif self.code not in good_codes or b"ERROR: " in lines and b"Sanitizer" in lines:
            self.end = "crashed"
        else:
            self.end = "ok"


def culprits(files, run):
    """The files at fault with how they end, found by halving; [(None, end)] when none is alone."""
    end = run(files).end
    if end == "ok":
        return []
    if len(files) == 1:
        return [(files[0], end)]
    half = len(files) // 2
    found = culprits(files[:half], run) + culprits(files[half:], run)
    return found or [(None, end)]


def try_all(name, arguments, make, run):
    """Tries files of the suffix and bytes that make(random) gives; the exit status of the script."""
    ends = {"crashed": 0, "hung": 0, "over memory": 0}
    kept = None
    with tempfile.TemporaryDirectory(prefix=name + "-") as folder:
        for start in range(0, arguments.count, BATCH):
            files = []
            for index in range(start, min(start + BATCH, arguments.count)):
                # Of each file its own, so that one can be made again without the others.
                chance = random.Random(f"{arguments.seed} {index}")
                suffix, data = make(chance)
                path = os.path.join(folder, f"{index}{suffix}")
                with open(path, "wb") as file:
                    file.write(data)
                files.append(path)
            for path, end in culprits(files, run):
                ends[end] += 1
                if path is None:
                    print(f"{name}: the files from {start} on have {end} together only")
                    continue
                kept = kept or tempfile.mkdtemp(prefix=name + "-kept-")
                shutil.copy(path, kept)
                print(f"{name}: {end}: {os.path.join(kept, os.path.basename(path))}")
            for path in files:
                os.remove(path)
    figures = ", ".join(f"{number} {end}" for end, number in ends.items())
    print(f"{name}: {arguments.count} tried, {figures}")
    return 1 if any(ends.values()) else 0


def mutated(data, chance, words=()):
    """`data` after one to four changes: of bits, bytes, numbers, lengths, order, or by `words`."""
    data = bytearray(data)
    for _ in range(chance.randint(1, 4)):
        size = len(data)
        if size == 0:
            break
        at = chance.randrange(size)
        length = min(chance.choice((1, 2, 4, 16, 64, size // 2 + 1)), size - at)
        kind = chance.randrange(9)
        if kind == 0:
            data[at] ^= 1 << chance.randrange(8)
        elif kind == 1:
            data[at] = chance.randrange(256)
        elif kind == 2:
            number = chance.choice((0, 1, 0x7F, 0x80, 0xFF, 0x7FFF, 0xFFFF, 0x7FFFFFFF, 0xFFFFFFFF))
            width = chance.choice((1, 2, 4))
            order = chance.choice(("little", "big"))
            data[at : at + width] = (number & (256**width - 1)).to_bytes(width, order)
        elif kind == 3:
            del data[at : at + length]
        elif kind == 4:
            data[at:at] = data[at : at + length] * chance.choice((1, 2, 50))
        elif kind == 5:
            data[at:at] = chance.randbytes(length)
        elif kind == 6:
            other = chance.randrange(size)
            data[at : at + length] = data[other : other + length]
        elif kind == 7 and chance.randrange(4) == 0:
            del data[at:]
        elif words:
            data[at:at] = chance.choice(words) * chance.choice((1, 1, 1, 300))
    return bytes(data)
