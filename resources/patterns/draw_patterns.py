#!/usr/bin/python3
"""Draws Vesperine's built-in structure patterns: seamless height maps, white is high.

Needs Python 3 with NumPy and Pillow (Debian: python3-numpy, python3-pil). Run

    python3 resources/patterns/draw_patterns.py                 all patterns, into images/
    python3 resources/patterns/draw_patterns.py bark sand       only these
    python3 resources/patterns/draw_patterns.py --sheet FILE    the images, lit, on one sheet
    python3 resources/patterns/draw_patterns.py --check         looks for seams in the images

Every run with the same libraries writes the same bytes.
"""

import argparse
import sys
from pathlib import Path

import numpy as np
from PIL import Image

from drawing.grown import bark, leather, sand, scales, stone, wood_grain
from drawing.made import brick, chain_mail, hammered_metal, hexagons, scratches, woven_cloth
from drawing.sheet import contact_sheet
from drawing.toolkit import SIZE, pixels

IMAGES = Path(__file__).resolve().parent / "images"
WORST_SEAM = 1.1  # plates that end at the border have their strongest step there

PATTERNS = {"bark": bark, "brick": brick, "chain-mail": chain_mail,
            "hammered-metal": hammered_metal, "hexagons": hexagons, "leather": leather,
            "sand": sand, "scales": scales, "scratches": scratches, "stone": stone,
            "wood-grain": wood_grain, "woven-cloth": woven_cloth}


def seam_ratio(tile):
    """How the steps across the tile's borders compare with the strongest row or column inside."""
    tile = tile.astype(float)
    ratios = []
    for axis in (0, 1):
        steps = np.abs(tile - np.roll(tile, 1, axis)).mean(1 - axis)
        ratios.append(steps[0] / steps[1:].max())
    return max(ratios)


def check(names):
    """Prints a table of the images; false when one has a wrong form or a seam."""
    print(f"{'pattern':<16}{'mean':>6}{'range':>10}{'deviation':>11}{'seam':>6}")
    sound = True
    for name in names:
        image = Image.open(IMAGES / f"{name}.png")
        if image.mode != "L" or image.size != (SIZE, SIZE):
            print(f"{name:<16}is {image.mode} {image.size}, not grey {SIZE} x {SIZE}")
            sound = False
            continue
        tile = np.asarray(image)
        seam = seam_ratio(tile)
        sound &= bool(seam <= WORST_SEAM)
        limits = f"{tile.min()}-{tile.max()}"
        print(f"{name:<16}{tile.mean():6.1f}{limits:>10}{tile.std():11.1f}{seam:6.2f}"
              + ("" if seam <= WORST_SEAM else "  shows"))
    return sound


def main():
    parser = argparse.ArgumentParser(description="Draws the built-in structure patterns.")
    parser.add_argument("names", nargs="*", help="patterns to draw, all of them by default")
    parser.add_argument("--sheet", metavar="FILE", help="show the images lit on one sheet instead")
    parser.add_argument("--check", action="store_true", help="check the images instead")
    options = parser.parse_args()
    names = options.names or list(PATTERNS)
    if options.sheet:
        contact_sheet({name: IMAGES / f"{name}.png" for name in names}).save(
            options.sheet, optimize=True)
    if options.check:
        return 0 if check(names) else 1
    if not options.sheet:
        IMAGES.mkdir(exist_ok=True)
        for name in names:
            Image.fromarray(pixels(PATTERNS[name]())).save(IMAGES / f"{name}.png", optimize=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
