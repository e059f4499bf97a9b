"""The lower part: the name and three steps, each with a tile that shows what it does."""

import numpy as np
from PIL import Image, ImageDraw, ImageFont

from .toolkit import (FINE, HEIGHT, OVERSAMPLE, WIDTH, X, Y, blur, box_distance, colour, encoded,
                      smoothstep)

NAME, NAME_MIDDLE = "VESPERINE", (480, 440)
STEPS = (("Drop sprites here", "PNG or JPEG files, or folders"),
         ("Shape them", "Give flat pictures a surface"),
         ("Export normal maps", "Ready for your game engine"))
HINT = "Drag the light over the picture, or press P to bring it to the pointer"

TILE, TILE_TOP, BALL = 70, 471, 26
MARGIN, TEXT_GAP, TITLE_DOWN, NOTE_DOWN, HINT_TOP = 36, 13, 12, 40, 564
WELL, WHITE, QUIET = colour("#19191b"), colour("#ffffff"), colour("#b2b2ba")
ACCENT, GOLD = colour("#f2b155"), colour("#f0cf8c")
BANDS = (colour("#f3dcae"), colour("#e0a45c"), colour("#b9683f"), colour("#7c4a45"))


def font(name, size):
    return ImageFont.truetype(f"{name}.ttf", size)


TITLE_FACE, NOTE_FACE = font("DejaVuSansCondensed-Bold", 19), font("DejaVuSansCondensed", 14)


def columns():
    """Where the three tiles begin and the middles of the equal gaps between the steps."""
    widths = [TILE + TEXT_GAP + max(TITLE_FACE.getlength(title), NOTE_FACE.getlength(note))
              for title, note in STEPS]
    gap = (WIDTH - 2 * MARGIN - sum(widths)) / (len(STEPS) - 1)
    lefts = [round(MARGIN + sum(widths[:number]) + gap * number) for number in range(len(STEPS))]
    return lefts, [left - gap / 2 for left in lefts[1:]]


LEFTS, GAPS = columns()


def middle(left):
    return left + TILE / 2, TILE_TOP + TILE / 2


def ball_distance(left):
    across, down = middle(left)
    return np.hypot(X - across, Y - down)


def tile(relief, left):
    """A well in the slab."""
    distance = box_distance(left, TILE_TOP, left + TILE, TILE_TOP + TILE, 9)
    inside = smoothstep(0.5, -0.5, distance)
    relief.height -= 3 * smoothstep(0.5, -2.5, distance)
    relief.tint(inside, WELL)
    return distance


def sprite(relief, left):
    """A small planet, as an artist would draw it: flat, with bands and a dark outline."""
    across, down = middle(left)
    x, y = (X - across) / BALL, (Y - down) / BALL
    level = y + 0.28 * x + 0.07 * np.sin(3.5 * x + 1.2)
    bands = np.broadcast_to(BANDS[0], FINE + (3,)).copy()
    for edge, tone in zip((-0.42, 0.06, 0.52), BANDS[1:]):
        bands += smoothstep(-0.02, 0.02, level - edge)[..., None] * (tone - bands)
    rim = smoothstep(BALL - 2.2, BALL - 1.6, ball_distance(left))[..., None]
    relief.tint(smoothstep(0.4, -0.4, ball_distance(left) - BALL), bands * (1 - rim) + 0.16 * rim)


def dashes(relief, left):
    """The place to drop at."""
    distance = box_distance(left, TILE_TOP, left + TILE, TILE_TOP + TILE, 9)
    across, down = middle(left)
    upright = np.abs(X - across) > np.abs(Y - down)
    along = np.where(upright, Y - down, X - across)
    dash = smoothstep(0.3, -0.3, np.abs((along + 4.75) % 9.5 - 4.75) - 2.9)
    relief.tint(smoothstep(0.4, -0.4, np.abs(distance) - 1.1) * dash, ACCENT)


def half_ball(left):
    """The normals of the planet as a half ball, and where they hold."""
    across, down = middle(left)
    x, y = (X - across) / BALL, (down - Y) / BALL
    square = np.minimum(x * x + y * y, 0.92)
    squeeze = np.sqrt(square / np.maximum(x * x + y * y, 1e-9))
    normals = np.stack([x * squeeze, y * squeeze, np.sqrt(1 - square)], -1)
    return normals, smoothstep(0.4, -0.4, ball_distance(left) - BALL)


def chevron(relief, across):
    """The way from one step to the next."""
    y = Y - TILE_TOP - TILE / 2
    distance = np.abs((X - across) + np.abs(y) - 4) / np.sqrt(2)
    ends = smoothstep(0.4, -0.4, np.abs(y) - 8.5)
    relief.tint(smoothstep(0.4, -0.4, distance - 1.0) * ends, QUIET)


def name(relief):
    """The name in raised capitals."""
    picture = Image.new("L", FINE[::-1], 0)
    draw, face = ImageDraw.Draw(picture), font("DejaVuSerif", 24 * OVERSAMPLE)
    gap = 13 * OVERSAMPLE
    widths = [draw.textlength(letter, face) for letter in NAME]
    x = NAME_MIDDLE[0] * OVERSAMPLE - (sum(widths) + gap * (len(NAME) - 1)) / 2
    for letter, width in zip(NAME, widths):
        draw.text((x, NAME_MIDDLE[1] * OVERSAMPLE), letter, 255, face, anchor="lm")
        x += width + gap
    mask = np.asarray(picture) / 255
    relief.height += 2.4 * blur(mask, 0.8)
    relief.tint(mask, GOLD)


def add(relief):
    """Cuts name and tiles into the slab."""
    name(relief)
    for left in LEFTS:
        tile(relief, left)
    for left in LEFTS[:2]:
        sprite(relief, left)
    dashes(relief, LEFTS[0])
    shaped, mask = half_ball(LEFTS[1])
    exported, disc = half_ball(LEFTS[2])
    flat = np.array([0, 0, 1])
    exported = exported * disc[..., None] + flat * (1 - disc[..., None])
    inner = box_distance(LEFTS[2], TILE_TOP, LEFTS[2] + TILE, TILE_TOP + TILE, 9)
    relief.tint(smoothstep(0.5, -0.5, inner), encoded(exported) / 255)
    for gap in GAPS:
        chevron(relief, gap)
    return shaped, mask


def letter(colours):
    """Writes the texts pixel by pixel, so that they stay crisp."""
    for left, (title, note) in zip(LEFTS, STEPS):
        x = left + TILE + TEXT_GAP
        colours = written(colours, title, (x, TILE_TOP + TITLE_DOWN), "la", TITLE_FACE)
        colours = written(colours, note, (x, TILE_TOP + NOTE_DOWN), "la", NOTE_FACE)
    return written(colours, HINT, (WIDTH / 2, HINT_TOP), "ma", NOTE_FACE)


def written(colours, text, place, anchor, face):
    picture = Image.new("L", (WIDTH, HEIGHT), 0)
    ImageDraw.Draw(picture).text(place, text, 255, face, anchor=anchor)
    mask = np.asarray(picture)[..., None] / 255
    return colours * (1 - mask) + WHITE * mask
