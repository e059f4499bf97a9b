#!/usr/bin/python3
"""Draws Vesperine's sample sprites and their normal maps.

Needs Python 3 with NumPy and Pillow (Debian: python3-numpy, python3-pil). Run

    python3 samples/draw_samples.py                    all sprites, next to this script
    python3 samples/draw_samples.py fox lantern        only these
    python3 samples/draw_samples.py --preview FILE     and a contact sheet, lit from two sides

Every run with the same libraries writes the same bytes.
"""

import argparse
from pathlib import Path

from drawing.characters import fox, ghost, robot
from drawing.props import barrel, lantern, toadstool
from drawing.surfaces import cobbles, plaque
from drawing.toolkit import contact_sheet

HERE = Path(__file__).resolve().parent

SPRITES = {"fox.png": fox, "robot.png": robot, "lantern.png": lantern, "barrel.png": barrel,
           "ghost.png": ghost, "cobbles.png": cobbles, "toadstool.png": toadstool,
           "plaque.jpg": plaque}


def save(name, sprite, normals):
    target = HERE / name
    if target.suffix == ".jpg":
        sprite.save(target, quality=90, subsampling=0)
    else:
        sprite.save(target, optimize=True)
    (HERE / "normals").mkdir(exist_ok=True)
    normals.save(HERE / "normals" / f"{target.stem}_n.png", optimize=True)


def main():
    parser = argparse.ArgumentParser(description="Draws the sample sprites and their normal maps.")
    parser.add_argument("names", nargs="*", help="sprites to draw, all of them by default")
    parser.add_argument("--preview", metavar="FILE", help="also write a contact sheet")
    options = parser.parse_args()
    pictures = []
    for name, draw in SPRITES.items():
        if options.names and Path(name).stem not in options.names:
            continue
        pictures.append(draw())
        save(name, *pictures[-1])
    if options.preview and pictures:
        contact_sheet(pictures).save(options.preview)


if __name__ == "__main__":
    main()
