"""A contact sheet of patterns as reliefs in light from the upper left."""

import numpy as np
from PIL import Image, ImageDraw, ImageFont

from .toolkit import SIZE, lit

GROUND, TEXT = 0x2d, 0xe8
GAP, LABEL, HEIGHT = 16, 28, 180


def label_font():
    try:
        return ImageFont.truetype("DejaVuSans.ttf", 15)
    except OSError:
        return ImageFont.load_default()


def title(name):
    return name.replace("-", " ").capitalize()


def contact_sheet(files, columns=4):
    """The image files, given by name, their upper part in rows; few greys keep the file small."""
    rows = -(-len(files) // columns)
    cell = SIZE + GAP
    sheet = Image.new("L", (columns * cell + GAP, rows * (HEIGHT + LABEL) + GAP), GROUND)
    draw, font = ImageDraw.Draw(sheet), label_font()
    for number, (name, path) in enumerate(files.items()):
        x = GAP + number % columns * cell
        y = GAP + number // columns * (HEIGHT + LABEL)
        sheet.paste(lit(np.asarray(Image.open(path))).crop((0, 0, SIZE, HEIGHT)), (x, y))
        draw.text((x, y + HEIGHT + 4), title(name), TEXT, font)
    return sheet.quantize(40)
