#!/usr/bin/env python3
"""Random exports where sprites can be reached by other names: mounts (which take root), hard links
and links.

No sprite and no project is ever replaced, a file of somebody else only with --overwrite, and every
path that is named as written holds a normal map.
"""

import os
import subprocess

from faults import Bench, is_normal_map, write_sprite


def main():
    bench = Bench(__doc__, 60, "exports")
    mounts = os.geteuid() == 0
    written = refused = mounted = 0

    def mount(folder, place):
        nonlocal mounts, mounted
        place.mkdir()
        mounts = mounts and subprocess.run(["mount", "--bind", folder, place],
                                           check=False).returncode == 0
        mounted += mounts
        return mounts

    def scatter(folder, sprites, suffix):
        """Puts something where maps may go: links to sprites, and foreign files."""
        foreign = {}
        for sprite in sprites:
            for place in (folder / "sprites", folder / "out"):
                target = place / f"{sprite.stem}{suffix}.png"
                choice = bench.random.randrange(20)
                if target.exists() or target.is_symlink():
                    continue
                if choice == 0:
                    os.link(bench.random.choice(sprites), target)
                elif choice == 1:
                    target.symlink_to(bench.random.choice(sprites))
                elif choice in (2, 3, 4):
                    target.write_bytes(bench.random.randbytes(40))
                    foreign[target] = target.read_bytes()
        return foreign

    def command(folder, sprites, suffix, output, overwrite):
        project = folder / "p.vep"
        kind = bench.random.randrange(6)
        if kind == 0:
            return ["generate", *sprites, "--bevel", "4", "--output", output, "--suffix", suffix]
        if kind == 1:
            return ["lit", project, "--body", "#1", "--light", "3,3", "--output",
                    output / f"{bench.random.choice(sprites).stem}.png"]
        if kind == 2:
            return ["thumbnail", project, output / f"{bench.random.choice(sprites).stem}.png"]
        arguments = ["export", project, "--suffix", suffix]
        if bench.random.randrange(3):
            arguments += ["--output", output]
        return arguments + ["--overwrite"] * overwrite

    def export(number):
        nonlocal written, refused
        folder = bench.new_folder(str(number))
        sprites = [write_sprite(folder / "sprites" / f"s{i}.png", bench.random)
                   for i in range(bench.random.randrange(1, 5))]
        (folder / "out").mkdir()
        bench.must("create", folder / "p.vep", *sprites)
        suffix = bench.random.choice(["", "_n", "1"])
        mount_point = folder / "mount"
        outputs = [folder / "out", folder / "sprites", folder / "link"]
        (folder / "link").symlink_to(folder / "sprites")
        is_mounted = mounts and number % 2 == 0 and mount(folder / "sprites", mount_point)
        if is_mounted:
            outputs = [mount_point]
        try:
            foreign = scatter(folder, sprites, suffix)
            overwrite = bench.random.random() < 0.5
            sources = {path: path.read_bytes() for path in [*sprites, folder / "p.vep"]}
            arguments = command(folder, sprites, suffix, bench.random.choice(outputs), overwrite)
            status, words = bench.run(*arguments)
            paths = [line for line in words.splitlines() if line.startswith(str(folder))]
            written += len(paths)
            refused += status != 0
            said = f"{' '.join(map(str, arguments))}: {words.strip()}"
            for path, content in sources.items():
                bench.expect(path.read_bytes() == content, f"{path.name} is replaced: {said}")
            if arguments[0] in ("export", "generate") and "--overwrite" not in arguments:
                for path, content in foreign.items():
                    bench.expect(path.read_bytes() == content, f"{path.name} is replaced: {said}")
                for path in paths:
                    bench.expect(is_normal_map(type(folder)(path)), f"{path} is no map: {said}")
            bench.expect(status != 0 or paths, f"nothing is written: {said}")
            left = [path.name for path in folder.rglob(".*")]
            bench.expect(not left, f"left {left}: {said}")
        finally:
            if is_mounted:
                subprocess.run(["umount", mount_point], check=False)

    for number in range(bench.count):
        bench.attempt(f"export {number}", export, number)
    if not mounted:
        print("exports_by_other_names: skipped the mounts: they need root")
    bench.end(f"{bench.count} exports, {mounted} through mounts, {written} files written, "
              f"{refused} refused")


main()
