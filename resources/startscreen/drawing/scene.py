"""The relief: the evening star over hills and water, under an arch, framed like a medal."""

import numpy as np

from .toolkit import (X, Y, Relief, blur, colour, noise, plaque_distance, shoulder, smoothstep,
                      wavy)

SLAB = (4, 4, 656, 916)         # left, top, right, bottom
SCENE = (32, 32, 628, 440)      # the same of the picture in its frame
ARCH = 977                      # the radius of the slab's top, with the scene's around one centre
HORIZON = 318
STAR = (330, 150)

SKY_HIGH, SKY_LOW = colour("#566078"), colour("#a8948a")
FAR, MIDDLE, NEAR = colour("#8b858c"), colour("#8b8068"), colour("#6f6750")
WATER, GOLD, PINE = colour("#647c86"), colour("#f5d794"), colour("#57604f")
SAIL, HULL = colour("#cdc3ae"), colour("#5d4c3e")
FRAME, SLATE = colour("#a08258"), colour("#161618")


def star_height(points, tip, notch, rise, turn=0.0):
    """A faceted star: a ridge runs to every tip, a valley to every notch."""
    dx, dy = X - STAR[0], Y - STAR[1]
    sector = np.pi / points
    angle = np.abs((np.arctan2(dx, -dy) + turn + sector) % (2 * sector) - sector)
    # The straight edge from the tip at angle 0 to the notch at the sector's end.
    across, along = notch * np.sin(sector), notch * np.cos(sector)
    edge_x, edge_y = across, along - tip
    reach = tip * edge_x / (edge_x * np.cos(angle) - edge_y * np.sin(angle))
    return rise * (1 - np.hypot(dx, dy) / reach)


def sky(relief):
    """Rings around the star, cut ever more shallow, and its fine rays."""
    distance = np.hypot(X - STAR[0], Y - STAR[1])
    fade = np.exp(-distance / 150) * smoothstep(40, 80, distance)
    rings = 1.0 * np.cos(2 * np.pi * distance / 16) * fade
    level = smoothstep(40, HORIZON, Y)[..., None]
    tone = SKY_HIGH + (SKY_LOW - SKY_HIGH) * level
    tone = tone + 0.16 * np.exp(-(distance / 120) ** 2)[..., None] * GOLD
    relief.place(np.ones_like(X), rings, tone)


def star(relief):
    small = star_height(4, 50, 17, 10, np.pi / 4)
    large = star_height(4, 104, 19, 19)
    height = np.maximum(small, large)
    mask = smoothstep(-0.15, 0.15, height)
    relief.place(mask, 1.5 + np.maximum(height, 0), GOLD)


PEAKS = ((26, 238, 0.8), (64, 256, 0.8), (112, 202, 1.0), (156, 242, 0.8), (196, 262, 0.7),
         (236, 282, 0.55), (280, 299, 0.4), (384, 296, 0.4), (424, 274, 0.6), (462, 246, 0.75),
         (508, 216, 0.95), (548, 250, 0.75), (590, 194, 1.0), (636, 230, 0.8))


def mountains(relief):
    """A far range on both sides, lower where the star stands: from each summit a ridge comes down,
    and spurs leave it on both sides."""
    rng = np.random.default_rng(5)
    bend = 3.2 * noise(11, 31) + 1.6 * noise(3.5, 32)
    height, top = np.full(X.shape, -1e3), np.full(X.shape, -1e3)
    for place, summit, steepness in PEAKS:
        ridge = place + bend + (Y - summit) * rng.uniform(-0.4, 0.4)
        aside = np.abs(X - ridge)
        fall = Y - summit - steepness * aside
        top = np.maximum(top, fall)
        spurs = np.abs((aside - 0.6 * (Y - summit) + 60 * rng.random()) % 24 - 12)
        height = np.maximum(height, 0.75 * fall - 0.6 * spurs * smoothstep(4, 34, fall))
    mask = smoothstep(-0.5, 0.5, top)
    rise = 30 * np.tanh(np.maximum(height, 0) / 44) + 0.3 * noise((4, 2.5), 33)
    snow = smoothstep(-0.25, 0.25, 0.9 - top / 17 + 0.35 * noise(3, 34))
    haze = smoothstep(215, HORIZON, Y)[..., None]
    tone = FAR * (1 - 0.18 * haze) + 0.17 * snow[..., None] * (1 - 0.8 * haze)
    relief.place(mask, 2 + shoulder(top, 4, 2) + rise, tone)


def water(relief):
    """Waves that grow towards the viewer, and the star's broken image in them."""
    depth = np.maximum(Y - HORIZON, 0)
    length = 3.6 + depth * 0.085
    phase = 2 * np.pi * np.log(length / 3.6) / 0.085
    waves = np.sin(phase + 1.9 * noise((3, 30), 41) + 0.9 * noise((1.5, 11), 42))
    column = np.exp(-(np.abs(X - STAR[0]) / (9 + depth * 0.26)) ** 3)
    height = length * 0.085 * waves * (1 + 0.9 * column)
    mask = smoothstep(HORIZON - 0.5, HORIZON + 0.5, Y)
    relief.place(mask, height, WATER * (1 - 0.18 * (depth / 130)[..., None]))
    glints = column * smoothstep(0.1, 0.75, waves + 0.35 * noise((2, 9), 43))
    relief.tint(mask * 0.8 * glints, GOLD)


def boat(relief, across, down, tall):
    """A small boat under two sails."""
    x, y = (X - across) / tall, (down - Y) / tall
    hull = np.minimum(0.13 - np.abs(y + 0.02), 0.5 - 0.9 * (0.11 - y) - np.abs(x))
    main = np.minimum(0.46 * (1.1 - y) - x, np.minimum(x - 0.03, y - 0.2))
    jib = np.minimum(0.40 * (0.95 - y) + x, np.minimum(-x - 0.03, y - 0.2))
    for shape, tone, bulge in ((hull, HULL, 5), (main, SAIL, 9), (jib, SAIL, 9)):
        mask = smoothstep(-0.4, 0.4, shape * tall)
        relief.place(mask, 4 + bulge * np.tanh(np.maximum(shape, 0) * 5), tone)
    wake = np.exp(-((X - across) / (0.4 * tall)) ** 2) * smoothstep(0, 2, Y - down - 0.1 * tall)
    wake = wake * np.exp(-np.maximum(Y - down, 0) / (0.35 * tall)) * (np.sin(Y * 1.5) > -0.2)
    relief.tint(0.35 * wake, SAIL)


def hill(relief, crest, rise, tone, seed, furrow):
    """A rounded hill below a line, with furrows along its crest and folds down its flank."""
    fall = Y - crest[None, :]
    mask = smoothstep(-0.5, 0.5, fall)
    folds = blur(noise((40, 12), seed), 1.0)
    body = rise * (1 - np.exp(-np.maximum(fall, 0) / 20)) + 3.0 * folds * smoothstep(0, 50, fall)
    lines = np.cos(2 * np.pi * np.maximum(fall + 3 * folds, 0) / furrow)
    body = body + furrow * 0.075 * lines * smoothstep(2, 12, fall) * (0.55 + 0.45 * np.tanh(folds))
    relief.place(mask, 3 + body, tone * (0.94 + 0.06 * folds[..., None]))


def hills(relief):
    reach = SCENE[3] - HORIZON
    left = HORIZON - 30 + (reach + 40) * smoothstep(30, 325, X[0]) ** 1.6 + wavy(6, 160, 51)
    right = HORIZON - 36 + (reach + 46) * smoothstep(634, 352, X[0]) ** 1.7 + wavy(6, 150, 52)
    hill(relief, left, 9, MIDDLE, 54, 8)
    hill(relief, right, 9, MIDDLE, 55, 8)
    near_left = SCENE[3] - 66 + 94 * smoothstep(20, 225, X[0]) ** 1.3 + wavy(4, 140, 56)
    near_right = SCENE[3] - 74 + 102 * smoothstep(642, 424, X[0]) ** 1.3 + wavy(4, 130, 57)
    hill(relief, near_left, 11, NEAR, 58, 9)
    hill(relief, near_right, 11, NEAR, 59, 9)
    return near_left, near_right


def pine(relief, foot_x, foot_y, tall):
    """A pine of three tiers."""
    up = (foot_y - Y) / tall
    tier = (up * 3.4) % 1
    width = tall * (0.30 * (1 - up) + 0.07) * (1.12 - 0.55 * tier)
    aside = np.abs(X - foot_x)
    inside = np.where((up > 0.06) & (up < 1), width * np.clip((1 - up) * 6, 0, 1) - aside, -1)
    trunk = np.where((up > -0.04) & (up <= 0.1), tall * 0.035 - aside, -1)
    inside = np.maximum(inside, trunk)
    mask = smoothstep(-0.3, 0.5, inside)
    relief.place(mask, 15 + 6 * np.tanh(np.maximum(inside, 0) / 5) - 1.5 * tier, PINE)


def pines(relief, left, right):
    for crest, places in ((left, ((52, 64), (76, 84), (100, 56), (127, 68), (158, 48))),
                          (right, ((608, 72), (583, 92), (553, 60), (526, 70), (490, 48)))):
        for place, tall in places:
            foot = np.interp(place, X[0], crest) + 10
            pine(relief, place, foot, tall)


def frame(relief, scene):
    """Sets the scene, sunk, into a slab with a moulding around it."""
    distance = plaque_distance(*SCENE, 14, ARCH + SLAB[1] - SCENE[1])
    slab = plaque_distance(*SLAB, 24, ARCH)
    relief.height = np.full_like(X, 9.0)
    inside = smoothstep(0.5, -0.5, distance)
    relief.place(inside, scene.height - 4, scene.albedo)
    around = smoothstep(-0.5, 0.5, distance) * smoothstep(13.5, 12.5, distance)
    moulding = 9 + 5.5 * np.sqrt(np.clip(1 - ((distance - 6.5) / 6.5) ** 2, 0, 1))
    relief.place(around, moulding, FRAME)
    relief.height += shoulder(-slab, 8, 8) - 8
    return slab


def cavities(relief, strength):
    """Darkens what lies deep and lightens what stands out, as wear does to bronze."""
    stands_out = relief.height - blur(relief.height, 7)
    relief.albedo *= (1 + strength * np.tanh(stands_out / 5))[..., None]


def build():
    """The slab with its scene; returns it with the distance to its outline, negative inside."""
    scene = Relief(SKY_HIGH)
    sky(scene)
    mountains(scene)
    water(scene)
    boat(scene, 262, 352, 30)
    near = hills(scene)
    pines(scene, *near)
    cavities(scene, 0.28)
    scene.albedo *= (1 + 0.025 * noise(0.7, 61) + 0.02 * noise(5, 62))[..., None]
    scene.height += 0.04 * noise(0.9, 63)
    star(scene)
    relief = Relief(SLATE)
    outline = frame(relief, scene)
    return relief, outline
