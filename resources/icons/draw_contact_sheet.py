#!/usr/bin/python3
"""Shows every icon at 16, 24, 32 and 48 pixels in the colours of the dark and of the light theme.

Needs Python 3 with Pillow, and rsvg-convert (Debian: python3-pil, librsvg2-bin). Run

    python3 resources/icons/draw_contact_sheet.py             writes docs/icons.png
    python3 resources/icons/draw_contact_sheet.py FILE        writes another picture
"""

import io
import subprocess
import sys
from pathlib import Path

from PIL import Image, ImageDraw, ImageFont

RESOURCES = Path(__file__).resolve().parent.parent
FAMILIES = ("view", "painttoolicons", "icons/qrv_tools", "icons")
OWN_COLOURS = ("light-cursor", "angle_picker_1_bw")  # pointers, seen over sprites: shown on grey
SIZES = (16, 24, 32, 48)
COLUMNS, CELL, ROW, MARGIN = 4, 168, 82, 16
TEXT, ACCENT = "#e8e8ea", "#f2b155"  # as they stand in the files
THEMES = (("#2d2d30", "#e8e8ea", "#f2b155"), ("#ededee", "#202024", "#a55c08"))
GREY = "#7a7a7e"


def rendered(svg, size):
    picture = subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size)], input=svg.encode(),
                             check=True, capture_output=True).stdout
    return Image.open(io.BytesIO(picture)).convert("RGBA")


def label_font():
    try:
        return ImageFont.truetype("DejaVuSans.ttf", 11)
    except OSError:
        return ImageFont.load_default()


def half(files, ground, text, accent):
    """All icons in one theme."""
    rows = -(-len(files) // COLUMNS)
    sheet = Image.new("RGB", (COLUMNS * CELL + 2 * MARGIN, rows * ROW + 2 * MARGIN), ground)
    draw, font = ImageDraw.Draw(sheet), label_font()
    for number, path in enumerate(files):
        left = MARGIN + number % COLUMNS * CELL
        top = MARGIN + number // COLUMNS * ROW
        svg = path.read_text().replace(TEXT, text).replace(ACCENT, accent)
        if path.stem in OWN_COLOURS:
            draw.rectangle((left - 4, top - 2, left + CELL - 16, top + 54), GREY)
        x = left
        for size in SIZES:
            icon = rendered(svg, size)
            sheet.paste(icon, (x, top + 26 - size // 2), icon)
            x += size + 9
        draw.text((left, top + 57), path.stem.replace("Icons_", ""), text, font)
    return sheet


def main():
    target = Path(sys.argv[1]) if len(sys.argv) > 1 else RESOURCES.parent / "docs" / "icons.png"
    files = [path for family in FAMILIES for path in sorted((RESOURCES / family).glob("*.svg"))]
    halves = [half(files, *theme) for theme in THEMES]
    sheet = Image.new("RGB", (sum(part.width for part in halves), halves[0].height))
    sheet.paste(halves[0], (0, 0))
    sheet.paste(halves[1], (halves[0].width, 0))
    sheet.save(target, optimize=True)


if __name__ == "__main__":
    main()
