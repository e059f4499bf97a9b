#!/usr/bin/python3
"""Draws the pointers of the selection tools and of the angle brush: light lines with a dark rim.

Needs Python 3 with NumPy and Pillow, and rsvg-convert (Debian: python3-numpy, python3-pil,
librsvg2-bin). Run

    python3 resources/cursors/draw_cursors.py        all pointers, beside this script

The crosses are drawn pixel by pixel and have an odd size, so that their hot spot is one pixel. The
pipette is the angle brush's SVG; its tip, the hot spot, is the pixel (9, 18).
"""

import subprocess
from pathlib import Path

import numpy as np
from PIL import Image

HERE = Path(__file__).resolve().parent
PIPETTE = HERE.parent / "painttoolicons" / "angle_picker_1_bw.svg"
SIZE, MIDDLE = 25, 12
REACH, GAP = 9, 3       # the arms end so far from the middle and leave so much of it free
SIGN, ARM = (20, 20), 3  # the small sign at the lower right and half its length
LIGHT, RIM = (255, 255, 255, 255), (24, 24, 26, 210)


def cross():
    """The pixels of the plain cross: four arms and the one pixel that is meant."""
    lines = np.zeros((SIZE, SIZE), bool)
    for distance in range(GAP, REACH + 1):
        for x, y in ((distance, 0), (-distance, 0), (0, distance), (0, -distance)):
            lines[MIDDLE + y, MIDDLE + x] = True
    lines[MIDDLE, MIDDLE] = True
    return lines


def sign(upright):
    """A plus at the lower right, or a minus without its upright."""
    lines = np.zeros((SIZE, SIZE), bool)
    x, y = SIGN
    lines[y, x - ARM:x + ARM + 1] = True
    if upright:
        lines[y - ARM:y + ARM + 1, x] = True
    return lines


def rimmed(lines):
    """The lines light, and dark what lies around them."""
    padded = np.pad(lines, 1)
    around = np.zeros_like(lines)
    for down in range(3):
        for across in range(3):
            around |= padded[down:down + SIZE, across:across + SIZE]
    pixels = np.zeros((SIZE, SIZE, 4), np.uint8)
    pixels[around] = RIM
    pixels[lines] = LIGHT
    return Image.fromarray(pixels, "RGBA")


def main():
    pointers = {"cross": cross(), "cross-add": cross() | sign(True),
                "cross-subtract": cross() | sign(False)}
    for name, lines in pointers.items():
        rimmed(lines).save(HERE / f"{name}.png", optimize=True)
    subprocess.run(["rsvg-convert", PIPETTE, "-o", HERE / "pick.png"], check=True)


if __name__ == "__main__":
    main()
