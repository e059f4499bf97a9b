"""The characters: a fox, a robot and a ghost."""

import numpy as np

from .toolkit import (AMBER, Canvas, blob, both_sides, box, circle, curve, ellipse, faceted_star,
                      join, mix, moved, rivet, shiny_dot, smoothstep, star, stroke, tint)

GLOW = "#ffe6a3"
CREAM = "#f6e7cd"
INDIGO = "#46518f"
PLUM = "#4b2b3d"


def fox():
    c = Canvas(192, 192)
    fur = tint("#d96f35", 0.05 * c.noise((5, 1.2), 1) - 0.001 * (c.y - 90))
    x, ruff = 84, 0.25 * c.noise((3, 1), 2)
    draw_tail(c, fur, ruff)
    body = join(ellipse(c, x, 154, 37, 28), ellipse(c, x, 124, 25, 30), 16)
    c.part(body, fur, swell=0.6, base=3, detail=0.7 * ruff)
    chest = blob(c, moved(both_sides([(0, -26), (18, -22), (20, -2), (14, 6), (13, 15), (6, 20),
                                      (0, 28)]), x, 134))
    c.part(chest, tint(CREAM, 0.03 * c.noise((4, 1), 3)), swell=0.25, ink=0.8, contact=0.1,
           detail=ruff)
    for side in (-1, 1):
        c.part(ellipse(c, x + 29 * side, 163, 15, 19), fur, swell=0.5, detail=ruff)
        draw_foot(c, x + 33 * side, 179, 13, 6)
    for side in (-1, 1):
        leg = stroke(c, [(x + 11 * side, 146), (x + 10 * side, 176)], [7.5, 8.5])
        sock = mix(fur, PLUM, smoothstep(152, 162, c.y + 1.5 * c.noise((4, 1), 4)))
        c.part(leg, sock, swell=0.8, base=13)
        draw_foot(c, x + 10 * side, 179, 10.5, 6)
    draw_scarf(c, x)
    draw_fox_head(c, x, 73, fur, ruff)
    return c.finish()


def draw_tail(c, fur, ruff):
    spine = curve([(104, 170), (140, 173), (166, 150), (162, 118), (166, 96), (180, 82)])
    tail = stroke(c, spine, [8, 15, 19, 20, 15, 9, 2])
    edge = c.y - 0.5 * (c.x - 160) + 4 * np.abs((c.x / 7) % 2 - 1)
    colour = mix(CREAM, fur, smoothstep(108, 110, edge))
    c.part(tail, colour, swell=0.7, detail=0.8 * ruff)


def draw_foot(c, x, y, width, height):
    c.part(ellipse(c, x, y, width, height), PLUM, swell=0.6, base=14)
    for toe in (-0.32, 0.32):
        c.groove(stroke(c, [(x + toe * width, y + 1), (x + toe * width, y + 5)], [0.3]), 0.8, 0.9)


def draw_scarf(c, x):
    cloth = tint(INDIGO, 0.06 * c.noise((1, 5), 5))
    end = blob(c, moved([(-6, 0), (8, 0), (12, 18), (14, 36), (3, 38), (-5, 34), (-4, 16)],
                        x - 22, 116))
    c.part(end, cloth, swell=0.4, base=20)
    for i in range(3):
        c.paint(box(c, x - 18 + i, 142 + 3.4 * i - 2, 12, 0.9), AMBER, opacity=0.8 * (end < -1.6))
    wrap = stroke(c, curve([(x - 23, 112), (x - 13, 118), (x, 120), (x + 13, 118), (x + 23, 112)]),
                  [7, 9, 9, 9, 7])
    folds = 0.5 * np.sin(c.y * 1.1 + 0.004 * (c.x - x) ** 2)
    c.part(wrap, cloth, swell=0.7, base=20, detail=folds)
    faceted_star(c, x, 125, 12, AMBER, height=1.1)


def draw_fox_head(c, x, y, fur, ruff):
    ear = [(9, -20), (17, -42), (33, -60), (41, -38), (41, -8), (26, -14)]
    for side in (-1, 1):
        d = blob(c, moved(ear, x, y, side))
        c.part(d, mix(PLUM, fur, smoothstep(26, 36, c.y)), swell=0.5, base=12)
        inner = d + 6.5
        c.part(inner, mix("#e9b796", "#8a4a4c", smoothstep(40, 60, c.y)), swell=-0.5, ink=0.6,
               contact=0.15)
    head = blob(c, moved(both_sides([(0, -30), (18, -27), (34, -14), (42, 3), (55, 15), (41, 24),
                                     (25, 31), (9, 38), (0, 39)]), x, y))
    c.part(head, fur, swell=0.72, base=20, detail=0.5 * ruff, contact=0.45, roundness=0.5)
    cheeks = blob(c, moved(both_sides([(0, 4), (5, 7), (13, 15), (26, 13), (60, 15), (44, 28),
                                       (25, 36), (9, 44), (0, 44)]), x, y))
    cheeks = np.maximum(cheeks, head + 1.6)
    c.paint(cheeks, tint(CREAM, 0.03 * c.noise((1, 3), 6)), soft=0.6)
    for side in (-1, 1):
        c.paint(ellipse(c, x + 13 * side, y - 12, 4.6, 3), "#f0a566", soft=1.2)
        c.part(ellipse(c, x + 19 * side, y + 4, 5.4, 6.8), "#2a1a2e", swell=0.7, ink=0,
               contact=0.12)
        shiny_dot(c, x + 19 * side - 1.6, y + 1.4, 1.8)
        c.paint(circle(c, x + 31 * side, y + 17, 4), "#f0b49a", soft=4, opacity=0.7)
    c.part(ellipse(c, x, y + 23, 15, 12), mix(CREAM, "#fff6e6", 0.4), swell=0.75, ink=0,
           contact=0.1)
    c.part(ellipse(c, x, y + 15.5, 6.4, 4.4), "#2a1a2e", swell=0.9, ink=0, contact=0.15)
    for side in (-1, 1):
        smile = curve([(x, y + 20), (x, y + 25), (x + 4 * side, y + 28), (x + 8 * side, y + 26)])
        c.groove(np.maximum(stroke(c, smile, [0.2]), 0), 0.7, 0.8, dark=0.8)


def robot():
    c = Canvas(144, 176)
    teal, steel, dark = "#4f8f95", "#a9b4bd", "#39435a"
    x, worn = 72, 0.05 * c.noise(4, 11)
    draw_limbs(c, x, tint(teal, worn), tint(steel, worn), dark)
    trunk = box(c, x, 122, 33, 27, 19)
    c.part(trunk, tint(teal, worn), swell=0.65, base=4, roundness=0.45)
    plate = box(c, x, 120, 22, 17, 9)
    c.part(plate, tint(CREAM, worn), swell=0.18, ink=1, detail=0.8, contact=0.2)
    faceted_star(c, x, 119, 15, AMBER, height=0.9)
    for side in (-1, 1):
        rivet(c, x + 17.5 * side, 132, 1.7, steel)
    c.part(box(c, x, 94, 15, 6, 4), dark, swell=0.7, base=12)
    draw_antenna(c, x, steel)
    for side in (-1, 1):
        c.part(box(c, x + 45 * side, 62, 8, 13, 6), tint(steel, worn), swell=0.8, base=6)
    head = box(c, x, 60, 44, 34, 27)
    c.part(head, tint(teal, worn), swell=0.68, base=12, contact=0.4, roundness=0.45)
    c.groove(np.where(head < -3, np.abs(c.y - 37 - 0.004 * (c.x - x) ** 2), 9), 0.9, 1.0)
    visor = box(c, x, 63, 33, 20, 15)
    c.part(visor - 3.2, tint(steel, worn), swell=0.05, detail=1.6, contact=0.15)
    c.part(visor, mix("#1d2238", "#303a63", smoothstep(44, 84, c.y)), swell=0.22, ink=0.8,
           contact=0, detail=-1.4)
    for side in (-1, 1):
        eye = ellipse(c, x + 14 * side, 61, 5.6, 8)
        c.paint(eye - 5, AMBER, soft=6, opacity=0.55)
        c.part(eye, mix(GLOW, AMBER, smoothstep(-6, 0, eye)), swell=0.35, ink=0, contact=0)
        rivet(c, x + 34 * side, 41.5, 1.6, steel)
    smile = stroke(c, curve([(x - 6, 74), (x, 77), (x + 6, 74)]), [1.1])
    c.paint(smile, AMBER, soft=0.5)
    return c.finish()


def draw_antenna(c, x, steel):
    c.part(stroke(c, [(x, 30), (x, 17)], [2.2, 1.6]), steel, swell=1, base=8)
    c.part(box(c, x, 27, 7, 4, 3), steel, swell=0.8, base=8)
    d = star(c, x, 15, 12, waist=0.42)
    c.part(d - 0.8, mix(GLOW, AMBER, smoothstep(-4, 0, d)), swell=0, base=8, ink=0.9,
           detail=np.maximum(-d, 0) * 1.1)


def draw_limbs(c, x, plate, steel, dark):
    for side in (-1, 1):
        c.part(stroke(c, [(x + 16 * side, 142), (x + 17 * side, 160)], [8]), dark, swell=0.7)
        c.part(box(c, x + 19 * side, 163, 15, 9, 8), steel, swell=0.7, base=4)
        c.groove(np.where(np.abs(c.x - x - 19 * side) < 13, np.abs(c.y - 166), 9), 0.8, 0.9)
        arm = curve([(x + 33 * side, 110), (x + 47 * side, 118), (x + 49 * side, 134)])
        c.part(stroke(c, arm, [6.5, 6]), dark, swell=0.7)
        rings = 0.6 * np.sin(c.y * 1.5)
        c.emboss(np.where(stroke(c, arm, [6.5, 6]) < -1, rings, 0))
        c.part(circle(c, x + 35 * side, 110, 10), plate, swell=0.7, base=4)
        c.part(ellipse(c, x + 49 * side, 139, 9.5, 10.5), plate, swell=0.7, base=4)


def ghost():
    c = Canvas(128, 160)
    x = 62
    sway = 7 * np.sin((c.y - 60) / 26) * smoothstep(70, 150, c.y)
    hem = 8 * np.sin((c.x - 12) / 8.2) + 5 * np.sin((c.x + 9) / 15)
    veil = Canvas(128, 160)
    veil.x = c.x - sway
    body = blob(veil, moved(both_sides([(0, -56), (24, -50), (39, -28), (42, 0), (43, 30), (47, 66),
                                        (0, 82)]), x, 70))
    body = join(body, stroke(c, [(26, 90), (16, 98)], [13, 9]), 12)
    body = join(body, stroke(c, [(100, 86), (110, 76)], [13, 9]), 12)
    colour = mix("#eef0ff", "#8fa0dc", smoothstep(60, 150, c.y + 0.4 * hem))
    colour = mix(colour, "#a9b0e6", smoothstep(-12, 1, body))
    folds = np.sin((c.x - sway - 14) / 5.6) * smoothstep(88, 140, c.y)
    c.part(body, tint(colour, 0.05 * folds), swell=0.42, ink=0, detail=1.5 * folds)
    for side in (-1, 1):
        c.part(ellipse(c, x + 14 * side, 56, 5.6, 8.6), "#2b2c52", swell=-0.25, ink=0, contact=0)
        shiny_dot(c, x + 14 * side - 1.6, 52.4, 2)
        c.paint(ellipse(c, x + 25 * side, 70, 5, 3), "#e9a3bd", soft=3, opacity=0.8)
    c.part(ellipse(c, x, 73, 4.6, 5.6), "#2b2c52", swell=-0.3, ink=0, contact=0)
    soft = smoothstep(0, 7, -body) ** 0.8
    fade = smoothstep(150, 100, c.y + hem)
    c.alpha = np.where(body < 0, 0.92, 0) * soft * fade
    return c.finish(rim=(1.5, 6), sigma=1.0)
