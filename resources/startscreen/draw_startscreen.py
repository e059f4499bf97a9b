#!/usr/bin/python3
"""Draws the start screen: a relief of the evening star and three steps, with its normal map.

Needs Python 3 with NumPy and Pillow and the DejaVu fonts (Debian: python3-numpy, python3-pil,
fonts-dejavu). Run

    python3 resources/startscreen/draw_startscreen.py                  both pictures
    python3 resources/startscreen/draw_startscreen.py --lit FOLDER     and views of them in light

Every run with the same libraries writes the same bytes.
"""

import argparse
from pathlib import Path

import numpy as np
from PIL import Image

from drawing import scene, steps
from drawing.toolkit import encoded, lit, shrink, smoothstep

HERE = Path(__file__).resolve().parent
LIGHTS = {"dusk": (82, 114), "star": (330, 150), "dawn": (590, 400), "steps": (590, 840)}
LIGHT_HEIGHT = 32


def pictures():
    """The colours with alpha and the normal map."""
    relief, outline = scene.build()
    ball, mask = steps.add(relief)
    alpha = shrink(smoothstep(0.5, -0.5, outline))
    normals = shrink(relief.normals() * (1 - mask[..., None]) + ball * mask[..., None])
    colours = steps.letter(np.clip(shrink(relief.albedo), 0, 1))
    colours = np.rint(np.concatenate([colours, alpha[..., None]], -1) * 255).astype(np.uint8)
    colours[colours[..., 3] == 0] = 0
    normal_map = encoded(normals)
    normal_map[colours[..., 3] == 0] = (127, 127, 255)
    return colours, normal_map


def main():
    parser = argparse.ArgumentParser(description="Draws the start screen.")
    parser.add_argument("--lit", metavar="FOLDER", help="write lit views into this folder too")
    options = parser.parse_args()
    colours, normal_map = pictures()
    Image.fromarray(colours, "RGBA").save(HERE / "startscreen.png", optimize=True)
    Image.fromarray(normal_map, "RGB").save(HERE / "startscreen_n.png", optimize=True)
    if options.lit:
        for name, place in LIGHTS.items():
            view = lit(colours, normal_map, place, LIGHT_HEIGHT)
            Image.fromarray(view).save(Path(options.lit) / f"startscreen-{name}.png")


if __name__ == "__main__":
    main()
