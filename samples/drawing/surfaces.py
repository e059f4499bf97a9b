"""The opaque surfaces: a seamless tile of cobbles and a plaque of stone."""

import numpy as np
from PIL import Image

from .toolkit import (AMBER, INK, Canvas, box, circle, grow, mix, puff, shrink, smoothstep, star,
                      tint)


def stone_centres(count, size, seed):
    """Points spread evenly on a tile without borders, by a few rounds of relaxation."""
    points = np.random.default_rng(seed).uniform(0, size, (count, 2))
    grid = np.stack(np.meshgrid(np.arange(size), np.arange(size)), -1).reshape(-1, 1, 2) + 0.5
    for _ in range(6):
        offset = (grid - points + size / 2) % size - size / 2
        nearest = (offset ** 2).sum(-1).argmin(1)
        points = np.array([(points[i] + offset[nearest == i, i].mean(0)) % size
                           for i in range(count)])
    return points


def cobbles():
    size, count = 128, 20
    c = Canvas(size, size, wraps=True)
    warp = [1.5 * c.noise(7, seed) for seed in (41, 42)]
    position = np.stack([c.x + warp[0], c.y + warp[1]], -1)
    points = stone_centres(count, size, 40)
    offset = [(position - p + size / 2) % size - size / 2 for p in points]
    square = [(o ** 2).sum(-1) for o in offset]
    order = np.argsort(square, 0)
    owner = order[0]
    gap = seam_distance(points, position, owner, size)
    profile = np.sqrt(np.clip(1 - (1 - np.clip((gap - 0.6) / 12, 0, 1)) ** 2, 0, 1))
    rng = np.random.default_rng(43)
    lean = rng.normal(0, 0.05, (count, 2))
    lift, tone = rng.uniform(-1, 1, (2, count))
    own = np.take_along_axis(np.stack(offset), owner[None, ..., None], 0)[0]
    rough = c.noise(1.2, 44)
    height = profile * (7 + lift[owner] + (own * lean[owner]).sum(-1)) + 0.14 * rough * profile
    base = mix("#8288a0", "#9c9084", 0.5 + 0.5 * tone[owner])
    stone = tint(base, 0.10 * tone[(owner + 7) % count] + 0.05 * rough + 0.05 * c.noise(4, 45))
    stone = mix(stone, "#3a3a52", 0.75 * smoothstep(5, 0.5, gap))
    moss_here = smoothstep(0.3, 0.9, 0.8 * c.noise(11, 46) + 1.5 * smoothstep(7, 0, gap) - 0.6
                           + 0.25 * c.noise(1.3, 47))
    tuft = c.noise(1.3, 48)
    moss = mix("#3f5d3c", "#86a356", np.clip(0.5 + 0.32 * tuft + 0.1 * c.noise(5, 49), 0, 1))
    c.colour, c.alpha[:] = mix(stone, moss, 0.92 * moss_here), 1
    c.emboss(height * (1 - 0.25 * moss_here) + moss_here * (1.9 + 0.4 * tuft))
    c.crevices()
    sprite = Image.fromarray(c.pixels()).convert("RGB")
    return sprite, c.normals(np.full((size, size), 255))


def seam_distance(points, position, owner, size):
    """Distance of every place to the border of its own stone, with rounded corners."""
    pull, softness = np.zeros(owner.shape), 1.5
    home = points[owner]
    for p in points:
        away = (p - home + size / 2) % size - size / 2
        length = np.hypot(away[..., 0], away[..., 1])
        own = (position - home + size / 2) % size - size / 2
        along = (own * away).sum(-1) / np.maximum(length, 1e-6)
        pull += np.where(length > 0, np.exp((along - length / 2) / softness), 0)
    return -softness * np.log(pull)


def plaque():
    """Evening star and crescent over hills and water, a painted relief in a wall of stone."""
    c = Canvas(256, 256)
    x = y = 128
    mottle = 0.03 * c.noise(0.8, 61) + 0.06 * c.noise(10, 62)
    c.colour, c.alpha[:] = tint("#9b93a0", mottle), 1
    c.emboss(10 + 0.12 * c.noise(1.8, 63) + 0.25 * c.noise(5, 64))
    slab = box(c, x, y, 118, 118, 16)
    c.emboss(5 * smoothstep(3.5, -3.5, slab))
    c.paint(-slab, "#6f6880", soft=4, opacity=0.6)
    for sx in (-1, 1):
        for sy in (-1, 1):
            d = star(c, x + 94 * sx, y + 94 * sy, 19)
            c.paint(d - 3, INK, soft=4, opacity=0.35)
            c.paint(d, tint("#d9a95c", mottle), soft=0.6)
            c.emboss(1.1 * np.maximum(-d, 0))
    face = circle(c, x, y, 100)
    carve_scene(c, x, y, face + 20, mottle)
    carve_frame(c, x, y, face, mottle)
    c.crevices(4, 0.06)
    c.crevices(1.5, 0.06)
    sprite = Image.fromarray(c.pixels()).convert("RGB")
    return sprite, c.normals(np.full(c.relief.shape, 255), sigma=0.7)


def carve_frame(c, x, y, face, mottle):
    """A torus and a string of beads between the wall and the scene."""
    ring, beads = np.abs(face + 3) - 8, 40
    c.emboss(-4 * smoothstep(-8, -12, face))
    c.paint(np.abs(face + 8) - 14, INK, soft=4, opacity=0.5)
    c.paint(ring, tint("#a97f4a", mottle), soft=0.6)
    c.emboss(6.5 * np.sqrt(np.clip(1 - (np.abs(face + 3) / 8) ** 2, 0, 1)))
    step = 2 * np.pi * 84.5 / beads
    along = (np.arctan2(c.y - y, c.x - x) * beads / (2 * np.pi) % 1 - 0.5) * step
    bead = np.hypot(along, face + 15.5)
    c.paint(bead - 4.2, tint("#dcb470", mottle), soft=0.6)
    c.emboss(3.6 * np.sqrt(np.clip(1 - (bead / 4.4) ** 2, 0, 1)))


def carve_scene(c, x, y, scene, mottle):
    inside = smoothstep(0.5, -0.5, scene)

    def wash(shape, colour, opacity=1.0):
        c.paint(np.maximum(shape, scene), tint(colour, mottle), soft=0.6, opacity=opacity)

    sky = mix(mix("#343a6e", "#8b6a94", smoothstep(60, 128, c.y)), "#e0a184",
              smoothstep(112, 160, c.y))
    wash(scene, sky)
    rays = star(c, x + 16, y - 26, 62, points=8, waist=0.42, turn=np.pi / 8)
    far_hill = ridge(c, y + 16, 11, 26, 0.4)
    wash(rays, mix(sky, "#f2a98f", 0.32))
    c.emboss(1.3 * smoothstep(1.8, -1.8, rays) * inside * smoothstep(0, 3, far_hill))
    moon = np.maximum(circle(c, x - 36, y - 24, 20), -circle(c, x - 27, y - 29, 17.5))
    wash(moon - 2, INK, 0.3)
    wash(moon, "#efe2c4")
    c.emboss(grow(0.9 * puff(shrink(smoothstep(0.3, -0.3, moon)))))
    d = star(c, x + 16, y - 26, 37, waist=0.3)
    wash(d - 2, INK, 0.3)
    wash(d, AMBER)
    c.emboss((1.5 * smoothstep(1, -1, d) + 1.1 * np.maximum(-d, 0)) * inside)
    ridges = [(16, 11, 26, 0.4, "#6d6596"), (30, 9, 19, 2.6, "#4f6a86"),
              (42, 6, 30, 4.4, "#3f6468")]
    for level, swing, length, phase, colour in ridges:
        hill = ridge(c, y + level, swing, length, phase)
        wash(hill - 2, INK, 0.3)
        wash(hill, mix(colour, sky, 0.3 * smoothstep(-6, 0, hill)))
        slope = 4.5 * np.sqrt(np.clip(1 - (1 - np.clip(-hill / 9, 0, 1)) ** 2, 0, 1))
        c.emboss((slope + 0.06 * np.minimum(hill, 0)) * smoothstep(0, -12, scene))
    carve_water(c, x, y + 50, scene, wash)


def ridge(c, level, swing, length, phase):
    """A waving line of hills, negative below it."""
    return level - swing * np.sin((c.x + 20) / length + phase) - c.y


def carve_water(c, x, shore, scene, wash):
    wave = np.sin((c.y - shore) * 0.85 + 0.9 * np.sin(c.x / 10) + 0.5 * np.sin(c.x / 4.3))
    wash(shore - c.y, mix("#4c6f9c", "#86a5c4", 0.5 + 0.4 * wave))
    glitter = np.abs(c.x - x - 16) - 11 + 0.3 * (c.y - shore) + 3 * np.sin(c.y * 1.9)
    wash(np.maximum(np.maximum(glitter, shore + 2 - c.y), -6 * wave), AMBER, 0.75)
    c.emboss(smoothstep(0, 3, c.y - shore) * smoothstep(0, -12, scene) * (1.1 * wave - 6))
