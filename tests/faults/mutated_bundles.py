#!/usr/bin/env python3
"""Lets vesperine-cli check mutated project files: none may end it, hang it or exhaust the memory.

A part of the files is broken as a whole, a part inside, under right lengths and checksums."""

import io
import struct
import sys
import warnings
import zipfile
import zlib

from mutation import Run, mutated, options, program, try_all

WORDS = (
    b"<body>",
    b"</body>",
    b"<body/>",
    b"<bodies>",
    b"<!--",
    b"-->",
    b"<![CDATA[",
    b"]]>",
    b"<!DOCTYPE a [<!ENTITY b 'c'>]>",
    b"<?x ?>",
    b"&amp;",
    b"&#0;",
    b"&b;",
    b" a='1'",
    b"\0",
    b"\xff\xfe",
    b"PK\x03\x04",
    b"PK\x05\x06",
    b"99999999999",
    b"-1",
    b"../",
)


def surface(width, height, chance):
    cells = chance.randbytes(4 * width * height) if chance.randrange(2) else bytes(4 * width * height)
    return struct.pack("<ii", width, height) + cells


def packed(value):
    return struct.pack(">I", len(value)) + zlib.compress(value)


def xml(ids):
    bodies = "".join(
        f"<body><name>body {i}</name><sprite><filename>{i}.png</filename>"
        f"<checksum>d41d8cd98f00b204e9800998ecf8427e</checksum></sprite>"
        f'<painted_normal_map datafile="{name}"/></body>'
        for i, name in enumerate(ids)
    )
    return (
        '<?xml version="1.0" encoding="UTF-8"?>\n<vesperine_project><preset_collections/>'
        f"<filename>a.vep</filename><bodies>{bodies}</bodies><publish_directory>./maps"
        "</publish_directory><publish_normalmap_postfix>_n</publish_normalmap_postfix>"
        "<light_height>32</light_height><light_brightness>100</light_brightness>"
        "<light_color>#ffffff</light_color><ambient_light_color>#808080</ambient_light_color>"
        "</vesperine_project>"
    ).encode()


def bundle(chance):
    where = chance.choice(("archive", "archive", "text", "text", "surfaces", "packed", "names"))
    ids = [f"id-{i}" for i in range(chance.randint(0, 4))]
    text = xml(ids)
    if where == "text":
        text = mutated(text, chance, WORDS)
    files = [("project.vexml", text)]
    for name in ids:
        value = surface(chance.randint(0, 9), chance.randint(0, 9), chance)
        if where == "surfaces":
            value = mutated(value, chance)
        data = packed(value)
        if where == "packed":
            data = mutated(data, chance)
        files.append(("datafiles/" + name, data))
    if where == "names":
        chance.shuffle(files)
        files = [(chance.choice((name, "a.veproject/", "datafiles/", name)), data) for name, data in files]
    archive = io.BytesIO()
    kind = chance.choice((zipfile.ZIP_STORED, zipfile.ZIP_DEFLATED))
    with zipfile.ZipFile(archive, "w", kind) as writer:
        for name, data in files:
            writer.writestr(zipfile.ZipInfo(name), data, kind)
    whole = archive.getvalue()
    return mutated(whole, chance, WORDS) if where == "archive" else whole


def project(chance):
    if chance.randrange(5) == 0:
        return ".vex", mutated(xml(["a", "b"]), chance, WORDS)
    return ".vep", bundle(chance)


def main():
    arguments = options(__doc__)
    warnings.simplefilter("ignore", UserWarning)  # of names that stand twice in an archive
    cli = program(arguments.build)
    return try_all(
        "mutated_bundles",
        arguments,
        project,
        lambda files: Run([cli, "--quiet", "check", *files], (0, 1, 3), len(files)),
    )


if __name__ == "__main__":
    sys.exit(main())
