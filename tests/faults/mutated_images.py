#!/usr/bin/env python3
"""Lets vesperine-cli make maps of mutated PNG and JPEG files: none may end it, hang it or exhaust the
memory.

A part of the PNG files is broken inside of chunks that have right lengths and checksums."""

import base64
import struct
import sys
import tempfile
import zlib

from mutation import Run, mutated, options, program, try_all

# A picture of 24 by 20 pixels in ten scans.
PROGRESSIVE = base64.b64decode(
    "/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDAA0JCgsKCA0LCgsODg0PEyAVExISEyccHhcgLikxMC4pLSwzOko+MzZG"
    "NywtQFdBRkxOUlNSMj5aYVpQYEpRUk//2wBDAQ4ODhMREyYVFSZPNS01T09PT09PT09PT09PT09PT09PT09PT09P"
    "T09PT09PT09PT09PT09PT09PT09PT09PT0//wgARCAAUABgDASIAAhEBAxEB/8QAGAABAAMBAAAAAAAAAAAAAAAA"
    "AAECAwX/xAAZAQACAwEAAAAAAAAAAAAAAAAABQECAwT/2gAMAwEAAhADEAAAAeYo37tWCLVgdK4Af//EABkQAAMB"
    "AQEAAAAAAAAAAAAAAAABERAhMf/aAAgBAQABBQJvtKP3LjP/xAAaEQACAgMAAAAAAAAAAAAAAAAAAQIxBBEU/9oA"
    "CAEDAQE/Aehiy9WMlZ//xAAaEQACAgMAAAAAAAAAAAAAAAAAAQIUETFB/9oACAECAQE/AaqwVEcI6P/EABQQAQAA"
    "AAAAAAAAAAAAAAAAADD/2gAIAQEABj8CH//EABgQAQADAQAAAAAAAAAAAAAAAAEAESFB/9oACAEBAAE/IeBlxhrZ"
    "iKGLXZZN5DGjsU//2gAMAwEAAgADAAAAEB/QQv/EABcRAQEBAQAAAAAAAAAAAAAAAAEAESH/2gAIAQMBAT8QA3Gw"
    "YpdJT//EABgRAQEBAQEAAAAAAAAAAAAAAAEAESFB/9oACAECAQE/ENhyfQZDUSf/xAAaEAEAAwEBAQAAAAAAAAAA"
    "AAABABExIUFx/9oACAEBAAE/EHHYHzkDS+sCrVI32qtmkc2oTtVDkOk8JE4h1yJVX7P/2Q=="
)
# One block of 8 by 8 pixels in four inks.
INKS = (
    bytes.fromhex("ffd8ffdb004300")
    + bytes([8]) * 64
    + bytes.fromhex(
        "ffc00014080008000804011100021100031100041100"
        "ffc400160000030000000000000000000000000000000708"
        "ffc40014100100000000000000000000000000000000"
        "ffda000e040100020003000400003f007fa7f4fe7fbfffd9"
    )
)
JPEG_WORDS = (
    b"\xff\xda",
    b"\xff\xd9",
    b"\xff\xd8",
    b"\xff\xc0",
    b"\xff\xc2",
    b"\xff\xc4",
    b"\xff\xdb",
    b"\xff\xdd\x00\x04\x00\x01",
    b"\xff\xfe\x00\x02",
    b"\xff\xe1\x00\x0cExif\x00\x00MM\x00*",
    b"\xff",
)


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def png_chunks(chance):
    """Type and content of each chunk of a small picture of any kind."""
    kind, bits, channels = chance.choice(
        ((0, 1, 1), (0, 8, 1), (0, 16, 1), (2, 8, 3), (2, 16, 3), (3, 4, 1), (3, 8, 1), (4, 8, 2), (6, 8, 4), (6, 16, 4))
    )
    width, height = chance.randint(1, 20), chance.randint(1, 20)
    interlaced = chance.randrange(2)
    row = (width * bits * channels + 7) // 8 + 1
    rows = b"".join(bytes([chance.randrange(5)]) + chance.randbytes(row - 1) for _ in range(height * 2))
    chunks = [(b"IHDR", struct.pack(">IIBBBBB", width, height, bits, kind, 0, 0, interlaced))]
    extras = [
        (b"gAMA", struct.pack(">I", chance.choice((45455, 100000, 0)))),
        (b"tEXt", b"Vesperine\0" + chance.choice((b"normal map", b"x" * 500))),
        (b"zTXt", b"k\0\0" + zlib.compress(bytes(chance.choice((10, 1000000))))),
        (b"iTXt", b"k\0\1\0\0\0" + zlib.compress(bytes(1000))),
        (b"iCCP", b"p\0\0" + zlib.compress(chance.randbytes(200))),
        (b"pHYs", struct.pack(">IIB", 1, 2, 1)),
        (b"oFFs", struct.pack(">iiB", -1, 2, 0)),
        (b"eXIf", b"MM\0*\0\0\0\x08" + chance.randbytes(20)),
    ]
    chunks += chance.sample(extras, chance.randint(0, 3))
    if kind == 3:
        chunks += [(b"PLTE", chance.randbytes(3 * 2**bits)), (b"tRNS", chance.randbytes(2**bits))]
    chunks.append((b"IDAT", zlib.compress(rows if interlaced else rows[: row * height])))
    return chunks + [(b"IEND", b"")]


def png(chance):
    where = chance.choice(("file", "file", "content", "pixels", "order"))
    chunks = png_chunks(chance)
    if where in ("content", "pixels"):
        at = [kind for kind, _ in chunks].index(b"IDAT") if where == "pixels" else chance.randrange(len(chunks))
        kind, body = chunks[at]
        if where == "pixels":
            body = zlib.compress(mutated(zlib.decompress(body), chance))
        chunks[at] = (kind, mutated(body, chance) if where == "content" else body)
    if where == "order":
        chance.shuffle(chunks)
        chunks.append(chance.choice(chunks))
    whole = b"\x89PNG\r\n\x1a\n" + b"".join(chunk(*each) for each in chunks)
    return mutated(whole, chance, (b"IDAT", b"IEND", b"PLTE")) if where == "file" else whole


def image(chance):
    if chance.randrange(2):
        return ".png", png(chance)
    return ".jpg", mutated(chance.choice((PROGRESSIVE, PROGRESSIVE, INKS)), chance, JPEG_WORDS)


def main():
    arguments = options(__doc__)
    cli = program(arguments.build)

    def run(files):
        with tempfile.TemporaryDirectory() as maps:
            effects = ["--bevel", "2", "--emboss", "1"]
            command = [cli, "--quiet", "generate", *files, *effects, "--output", maps]
            return Run(command, (0, 1, 4), len(files))

    return try_all("mutated_images", arguments, image, run)


if __name__ == "__main__":
    sys.exit(main())
