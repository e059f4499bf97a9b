"""The props: a lantern, a barrel and a toadstool in pixel art."""

import numpy as np
from PIL import Image

from .toolkit import (AMBER, OVERSAMPLE, Canvas, blob, blur, both_sides, box, circle, ellipse,
                      mix, moved, normal_map, polygon, puff, rgb, rivet, smoothstep, star,
                      stroke, tint)


def lantern():
    c = Canvas(112, 176)
    x, brass = 56, tint("#b98239", 0.04 * c.noise(3, 21))
    ring = np.abs(circle(c, x, 22, 14)) - 3
    c.part(ring, brass, swell=0.9)
    c.part(box(c, x, 39, 7, 5, 3), brass, swell=0.8, base=4)
    draw_glass(c, x)
    for side in (-1, 1):
        c.part(stroke(c, [(x + 30 * side, 76), (x + 34 * side, 132)], [3]), brass, swell=0.9, ink=1)
    roof = blob(c, moved(both_sides([(0, -18), (8, -17), (17, -4), (36, 8), (40, 14), (34, 17),
                                     (0, 19)]), x, 60))
    verdigris = mix(brass, "#4f7f78", 0.3 * smoothstep(0.8, 2.2, c.noise(6, 22)))
    c.part(roof, verdigris, swell=0.62, base=5)
    for bend in (-0.42, 0.42):
        c.groove(np.where(roof < -3, c.x - x - bend * (c.y - 40), 9), 0.7, 1)
    c.part(box(c, x, 75, 37, 4.5, 3.5), brass, swell=1, base=7)
    c.part(box(c, x, 134, 39, 5, 4), brass, swell=1, base=7)
    foot = blob(c, moved(both_sides([(0, -14), (34, -14), (36, -8), (30, 4), (38, 14), (38, 18),
                                     (0, 18)]), x, 150))
    c.part(foot, verdigris, swell=0.5, base=5)
    c.part(box(c, x, 165, 41, 5, 4), brass, swell=1, base=5)
    for i in (-1, 0, 1):
        rivet(c, x + 18 * i, 149, 3, AMBER)
    return c.finish()


def draw_glass(c, x):
    glass = polygon(c, [(x - 29, 70), (x + 29, 70), (x + 34, 136), (x - 34, 136)])
    far = np.hypot(c.x - x, c.y - 105)
    dusk = mix("#e58a45", "#6d3152", smoothstep(16, 44, far))
    c.part(glass, dusk, swell=0.35, ink=0.5)
    d = star(c, x, 105, 27, waist=0.3)
    c.paint(far - 20, "#ffc766", soft=18, opacity=0.75)
    c.paint(d - 2, "#ffe08a", soft=4, opacity=0.9)
    c.part(d, mix("#fffbe8", "#ffe9ad", smoothstep(-5, 0, d)), swell=0, ink=0, contact=0,
           detail=0.5 * np.maximum(-d, 0))


def bulge(t):
    return np.clip(np.sin(np.pi * t), 0, 1) ** 0.85


def barrel():
    c = Canvas(128, 152)
    x, top, bottom = 64, 22, 134
    down = np.clip((c.y - top) / (bottom - top), 0, 1)
    half = 44 + 12 * bulge(down)
    across = np.clip((c.x - x) / half, -1, 1)
    bow = 11 * np.sqrt(1 - across ** 2)
    ys = np.linspace(0, 1, 24)
    right = [(44 + 12 * bulge(t), top + t * (bottom - top)) for t in ys]
    foot = [(44 * np.cos(a), bottom + 11 * np.sin(a)) for a in np.linspace(0.1, np.pi / 2, 10)]
    outline = polygon(c, moved(both_sides(right + foot), x, 0))
    turn = np.arcsin(across) / np.pi * 9 + 0.5
    stave, within = np.floor(turn), np.abs(turn % 1 - 0.5)
    shade = np.random.default_rng(31).uniform(-0.13, 0.13, 12)[(stave % 12).astype(int)]
    grain = c.noise((9, 0.6), 32)
    wood = mix(tint("#9a6238", shade), "#4a2a28", 0.35 * smoothstep(0.6, 1.8, grain))
    gap = smoothstep(0.41, 0.5, within)
    wood = mix(wood, "#341f2a", 0.75 * gap)
    curved = 0.5 * half * np.sqrt(1 - across ** 2)
    c.part(outline, wood, swell=0, base=0, detail=curved + 0.22 * grain - 1.5 * gap)
    draw_lid(c, x, top)
    for y, width in ((top + 17, 6), (top + 38, 4), (top + 72, 4), (top + 93, 6)):
        draw_hoop(c, x, y, width, outline, bow, half, curved)
    return c.finish()


def draw_lid(c, x, y):
    lid = ellipse(c, x, y, 44, 12)
    c.part(lid, "#b07a4a", swell=0, base=23, contact=0)
    inner = ellipse(c, x, y + 1, 38, 8.5)
    plank = np.abs((c.x - x) / 11 % 1 - 0.5)
    seam = smoothstep(0.42, 0.5, plank)
    grain = c.noise((0.6, 5), 33)
    colour = mix(tint("#7d4d30", 0.08 * grain), "#341f2a", 0.7 * seam)
    c.part(inner, colour, swell=0, base=21, contact=0, detail=0.2 * grain - 0.8 * seam)


def draw_hoop(c, x, y, width, outline, bow, half, curved):
    d = np.maximum(np.abs(c.y - y - bow) - width, outline)
    steel = mix(tint("#77839a", 0.07 * c.noise((0.8, 6), 34)), "#8a5440",
                0.5 * smoothstep(0.9, 2.0, c.noise(3, 35)))
    edge = 1.5 * smoothstep(0, 1.6, -np.abs(c.y - y - bow) + width)
    c.part(d, steel, swell=0, base=0, ink=1, contact=0.35, detail=curved + edge)
    if width < 5:
        return
    span = float(half[int((y + 8) * OVERSAMPLE), 0])
    for angle in np.radians((-60, -30, 0, 30, 60)):
        c.part(ellipse(c, x + span * np.sin(angle), y + 11 * np.cos(angle),
                       2.3 * np.cos(angle) + 0.4, 2.3), "#a7b1c2", swell=0.9, ink=0.3)


TOADSTOOL = """
................................
................................
...........oooooooooo...........
........ooollllllllllooo........
......ooLLllllsssslllllLoo......
.....oLLlllllssssssllllllLo.....
....oLlllllllssssssllllssslo....
...oLllssllllstsssslllssssslo...
...oLlssssllllttttllllssssslo...
..oLlsssssslllllllllllsssssllo..
..oLlsssssslllllllllllttsstllo..
..oLltsssstlllllllllllltttlllo..
..oLllttttllllssslllllllllllLo..
..ordllllllllsssssllllssslllro..
..orrdllllllltsssslllsssssdrro..
...orrrdlllllltttlllltssstrro...
....oorrrrddlllllllddtttrroo....
......ooorrrrrrrrrrrrrrooo......
.........oogvgvgvgvgvgoo........
..........ouwwwwwwwwwwuo........
..........owwwwwwwwwwwwo........
.........ovwweewwwweewwvo.......
.........ovwweewwwweewwvo.......
.........ovwpwwweewwwpwvo.......
.........ovwwwwwwwwwwwwvo.......
.........ouvwwwwwwwwwwvuo.......
..........ouvvwwwwwwvvuo........
....m.....oouuvvvvvvuuoo..m.....
...mnm.mmnnnoouuuuuuoonnmmnm.m..
..mnnmmnnnnnnnoooooonnnnnnnmmnm.
...nnnnnnnnnnnnnnnnnnnnnnnnnnn..
................................
""".split()

TOADSTOOL_PALETTE = {
    "o": "#2a1a35", "l": "#8a4fa0", "L": "#a873b4", "r": "#5f3580", "d": "#723f90",
    "s": "#ffe3a6", "t": "#e0ac6a", "g": "#54395f", "v": "#d9bfa6", "u": "#a58390",
    "w": "#f6e7cd", "e": "#2a1a35", "p": "#e59a9a", "m": "#8fb35c", "n": "#4c7550",
}


def toadstool():
    letters = np.array([list(row) for row in TOADSTOOL])
    names = sorted(TOADSTOOL_PALETTE)
    indices = np.zeros(letters.shape, np.uint8)
    for i, name in enumerate(names):
        indices[letters == name] = i + 1
    sprite = Image.fromarray(indices, "P")
    colours = ["#000000"] + [TOADSTOOL_PALETTE[name] for name in names]
    sprite.putpalette([int(v) for c in colours for v in np.round(rgb(c) * 255)])
    sprite.info["transparency"] = 0
    filled = indices > 0
    rows = np.arange(32)[:, None]
    cap, moss = filled & (rows < 18), filled & (rows > 26)
    stem = filled & ~cap & (rows < 28)
    dots = np.isin(letters, ["s", "t"])
    heights = np.where(stem, 0.6 * puff(stem * 1.0), 0)
    heights = np.where(cap, 2.5 + 0.55 * puff(cap * 1.0) + 0.5 * puff(dots * 1.0), heights)
    heights = np.where(moss, 1 + 0.7 * puff(moss * 1.0), heights)
    heights = blur(heights - 0.6 * (letters == "e"), 0.5)
    return sprite, Image.fromarray(normal_map(heights, filled * 255))
