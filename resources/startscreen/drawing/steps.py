"""The lower part: the name and three steps, each with a tile that shows what it does."""

import numpy as np
from PIL import Image, ImageDraw, ImageFont

from .toolkit import (FINE, HEIGHT, OVERSAMPLE, WIDTH, X, Y, blur, box_distance, colour, encoded,
                      smoothstep)

NAME, NAME_MIDDLE = "VESPERINE", (330, 499)
STEPS = (("Drop sprites here", "PNG or JPEG files, or folders"),
         ("Shape them", "Give flat pictures a surface"),
         ("Export normal maps", "Ready for your game engine"))
HINT = "Drag the light, or press P to bring it to the pointer"

TILE, BALL, TOPS = 88, 33, (546, 656, 766)
TEXT_GAP, TITLE_UP, NOTE_DOWN, HINT_MIDDLE = 26, 6, 29, 885
WELL, WHITE, QUIET = colour("#0f0f11"), colour("#ffffff"), colour("#b2b2ba")
ACCENT, GOLD = colour("#f2b155"), colour("#fff1cf")
BANDS = (colour("#f3dcae"), colour("#e0a45c"), colour("#b9683f"), colour("#7c4a45"))


def font(name, size):
    return ImageFont.truetype(f"{name}.ttf", size)


TITLE_FACE, NOTE_FACE = font("DejaVuSansCondensed-Bold", 34), font("DejaVuSansCondensed", 25)
HINT_FACE = font("DejaVuSansCondensed", 21)


def left_edge():
    """Where the tiles begin, so that the rows as a whole are in the middle."""
    texts = max(max(TITLE_FACE.getlength(title), NOTE_FACE.getlength(note))
                for title, note in STEPS)
    return round((WIDTH - TILE - TEXT_GAP - texts) / 2)


LEFT = left_edge()


def middle(top):
    return LEFT + TILE / 2, top + TILE / 2


def tile_distance(top):
    return box_distance(LEFT, top, LEFT + TILE, top + TILE, 11)


def ball_distance(top):
    across, down = middle(top)
    return np.hypot(X - across, Y - down)


def tile(relief, top):
    """A well in the slab."""
    distance = tile_distance(top)
    inside = smoothstep(0.5, -0.5, distance)
    relief.height -= 3 * smoothstep(0.5, -2.5, distance)
    relief.tint(inside, WELL)
    return distance


def sprite(relief, top):
    """A small planet, as an artist would draw it: flat, with bands and a dark outline."""
    across, down = middle(top)
    x, y = (X - across) / BALL, (Y - down) / BALL
    level = y + 0.28 * x + 0.07 * np.sin(3.5 * x + 1.2)
    bands = np.broadcast_to(BANDS[0], FINE + (3,)).copy()
    for edge, tone in zip((-0.42, 0.06, 0.52), BANDS[1:]):
        bands += smoothstep(-0.02, 0.02, level - edge)[..., None] * (tone - bands)
    rim = smoothstep(BALL - 2.8, BALL - 2.1, ball_distance(top))[..., None]
    relief.tint(smoothstep(0.4, -0.4, ball_distance(top) - BALL), bands * (1 - rim) + 0.16 * rim)


def dashes(relief, top):
    """The place to drop at."""
    distance = tile_distance(top)
    across, down = middle(top)
    upright = np.abs(X - across) > np.abs(Y - down)
    along = np.where(upright, Y - down, X - across)
    dash = smoothstep(0.3, -0.3, np.abs((along + 6) % 12 - 6) - 3.7)
    relief.tint(smoothstep(0.4, -0.4, np.abs(distance) - 1.5) * dash, ACCENT)


def half_ball(top):
    """The normals of the planet as a half ball, and where they hold."""
    across, down = middle(top)
    x, y = (X - across) / BALL, (down - Y) / BALL
    square = np.minimum(x * x + y * y, 0.92)
    squeeze = np.sqrt(square / np.maximum(x * x + y * y, 1e-9))
    normals = np.stack([x * squeeze, y * squeeze, np.sqrt(1 - square)], -1)
    return normals, smoothstep(0.4, -0.4, ball_distance(top) - BALL)


def chevron(relief, top):
    """The way down from one step to the next, in the gap that ends at top."""
    x, y = X - LEFT - TILE / 2, Y - top + (TOPS[1] - TOPS[0] - TILE) / 2
    distance = np.abs(y + np.abs(x) - 4) / np.sqrt(2)
    ends = smoothstep(0.4, -0.4, np.abs(x) - 9)
    relief.tint(smoothstep(0.4, -0.4, distance - 1.3) * ends, QUIET)


def name(relief):
    """The name in raised capitals."""
    picture = Image.new("L", FINE[::-1], 0)
    draw, face = ImageDraw.Draw(picture), font("DejaVuSerif", 38 * OVERSAMPLE)
    gap = 20 * OVERSAMPLE
    widths = [draw.textlength(letter, face) for letter in NAME]
    x = NAME_MIDDLE[0] * OVERSAMPLE - (sum(widths) + gap * (len(NAME) - 1)) / 2
    for letter, width in zip(NAME, widths):
        draw.text((x, NAME_MIDDLE[1] * OVERSAMPLE), letter, 255, face, anchor="lm")
        x += width + gap
    mask = np.asarray(picture) / 255
    relief.height += 3.2 * blur(mask, 1.0)
    relief.tint(mask, GOLD)


def add(relief):
    """Cuts name and tiles into the slab."""
    name(relief)
    for top in TOPS:
        tile(relief, top)
    for top in TOPS[:2]:
        sprite(relief, top)
    dashes(relief, TOPS[0])
    shaped, mask = half_ball(TOPS[1])
    exported, disc = half_ball(TOPS[2])
    flat = np.array([0, 0, 1])
    exported = exported * disc[..., None] + flat * (1 - disc[..., None])
    inside = smoothstep(0.5, -0.5, tile_distance(TOPS[2]))
    relief.tint(inside, encoded(exported) / 255)
    for top in TOPS[1:]:
        chevron(relief, top)
    return shaped, mask


def letter(colours):
    """Writes the texts pixel by pixel, so that they stay crisp."""
    x = LEFT + TILE + TEXT_GAP
    for top, (title, note) in zip(TOPS, STEPS):
        line = top + TILE / 2
        colours = written(colours, title, (x, line - TITLE_UP), "ls", TITLE_FACE)
        colours = written(colours, note, (x, line + NOTE_DOWN), "ls", NOTE_FACE)
    return written(colours, HINT, (WIDTH / 2, HINT_MIDDLE), "mm", HINT_FACE)


def written(colours, text, place, anchor, face):
    picture = Image.new("L", (WIDTH, HEIGHT), 0)
    ImageDraw.Draw(picture).text(place, text, 255, face, anchor=anchor)
    mask = np.asarray(picture)[..., None] / 255
    return colours * (1 - mask) + WHITE * mask
