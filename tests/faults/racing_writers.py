#!/usr/bin/env python3
"""Lets many programs change one project at once.

Each either saves, and its change is in the project in the end, or says that another program has the
project or has changed it.
"""

from faults import Bench, read_project, strays, write_sprite

AT_ONCE = 8
REFUSALS = ("is open in", "was changed by another program")


def main():
    bench = Bench(__doc__, 80, "writers")
    folder = bench.new_folder("project")
    project = bench.project(folder, 3, 64)
    saved = refused = 0

    def changes(round_number):
        """What the writers of a round do, and how the project shows it."""
        number = bench.random.randrange(2 ** 24)
        settings = {"light_height": str(number % 200 + 1), "publish_normalmap_postfix": f"_{number}",
                    "light_brightness": str(number % 390 + 10),
                    "light_color": f"#{number:06x}", "ambient_light_color": f"#{number ^ 255:06x}"}
        for key, value in settings.items():
            yield ("set", project, f"{key}={value}"), \
                lambda found, key=key, value=value: found[0].get(key) == value
        for i in range(AT_ONCE - len(settings)):
            sprite = write_sprite(folder / f"r{round_number}_{i}.png", bench.random)
            yield ("add", project, sprite), lambda found, name=sprite.stem: name in found[1]

    def race(round_number):
        nonlocal saved, refused
        before = read_project(project)
        writers = [(bench.start(*arguments), is_in) for arguments, is_in in changes(round_number)]
        ends = [(writer.communicate(timeout=120)[1], writer.returncode, is_in)
                for writer, is_in in writers]
        found = read_project(project)
        for words, status, is_in in ends:
            saved += status == 0
            refused += status != 0
            bench.expect(status != 0 or is_in(found), "a change is silently lost")
            bench.expect(status == 0 or any(word in words for word in REFUSALS), words.strip())
        bench.expect(any(status == 0 for _, status, _ in ends), "nobody could save")
        bench.expect(set(before[1]) <= set(found[1]), "a body is lost")
        bench.expect(not strays(folder), f"left {strays(folder)}")
        for body in found[1][3:]:
            bench.must("remove", project, body)

    for round_number in range((bench.count + AT_ONCE - 1) // AT_ONCE):
        bench.attempt(f"round {round_number}", race, round_number)
    bench.end(f"{saved + refused} writers, {saved} saved, {refused} refused with a reason")


main()
