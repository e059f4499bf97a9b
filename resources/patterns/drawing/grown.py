"""What grows and weathers: stone, wood, bark, scales, leather, sand."""

import numpy as np

from .toolkit import (SIZE, Cells, blur, fractal, noise, places, rounded, sampled, smoothstep,
                      waves, wrapped)


def facets(count, steepness, seed):
    """Planes that meet in ridges, hollow between them, about as deep as steep and wide."""
    bend = [0.10 * SIZE / count * noise(0.3 * SIZE / count, seed + i) for i in (1, 2)]
    cells = Cells(count, count, seed, bend=bend)
    rng = np.random.default_rng(seed)
    angle, lean = rng.uniform(0, 2 * np.pi, cells.count), rng.uniform(0.3, 0.75, cells.count)
    lowest = np.full(cells.x.shape, np.inf)
    for index, dx, dy in cells.near():
        plane = lean[index] * (np.cos(angle[index]) * dx + np.sin(angle[index]) * dy)
        lowest = np.minimum(lowest, steepness * (np.hypot(dx, dy) + plane))
    return lowest


def stone():
    """A wall of fitted stones, roughly hewn, no two alike."""
    bend = [2.0 * noise(8, 130 + i) + 0.9 * noise(2.2, 132 + i) for i in range(2)]
    cells = Cells(8, 6, 134, jitter=0.85, squash=1.15, bend=bend, stagger=0.5)
    gap = cells.border(1.6)
    body = rounded((gap - 1.0) / 6.5)
    tilt = cells.each(-0.013, 0.013, 135) * cells.dx + cells.each(-0.013, 0.013, 136) * cells.dy
    hewn = facets(19, 0.6, 100)
    hewn = (hewn - blur(hewn, 7)) / hewn.std()
    pits = smoothstep(1.5, 2.4, noise(1.5, 137))
    face = (0.9 + cells.each(-0.14, 0.14, 138) + tilt + 0.12 * hewn - 0.14 * pits
            + 0.045 * fractal(4, 0.8, 139, 0.8))
    return body * face + (1 - body) * (0.05 * noise(1.3, 140) + 0.06 * noise(4, 141))


KNOTS = ((74, 66, 10.5, 0.3), (200, 188, 7.0, 2.0), (150, 118, 4.5, 1.0))


def wood_grain():
    """A weathered board: hard lines of growth stand out, and flow around its knots."""
    x, y = places()
    line = y + 7 * noise((30, 60), 200) + 1.0 * noise((7, 30), 201)
    core, knots = 0, 0
    for kx, ky, radius, turn in KNOTS:
        dx, dy = wrapped(x - kx) / 1.6, wrapped(y - ky)
        far = np.hypot(dx, dy) + 0.4 * noise(4, 202)
        bow = (radius / np.maximum(far, radius)) ** 1.5 * np.exp(-(far / (5 * radius)) ** 2)
        line = line - dy * bow
        inside = smoothstep(radius + 0.6, radius - 0.8, far)
        angle = np.arctan2(dy, dx)
        rings = 0.16 * np.cos(2 * np.pi * far / 3.3) + 0.45 * rounded((radius - far) / radius)
        split = smoothstep(0.26, 0.05, np.abs(np.sin(angle - turn)) * (far + 2) / radius)
        knots = knots * (1 - inside) + inside * (0.3 + rings - 0.4 * split)
        knots = knots - 0.35 * np.exp(-((far - radius - 0.3) / 1.2) ** 2)
        core = core + inside
    uneven = line + 4.5 * np.sin(2 * np.pi * 3 * line / SIZE) + 2.5 * np.sin(
        2 * np.pi * 5 * line / SIZE + 1)
    ring = uneven * 26 / SIZE % 1
    growth = ring ** 1.3 * smoothstep(1.0, 0.72, ring) * 1.4
    growth = growth + 0.09 * np.cos(2 * np.pi * uneven * 78 / SIZE)
    fibre = sampled(noise((0.9, 26), 203), x, line)
    pore = smoothstep(1.5, 2.4, sampled(noise((0.8, 9), 204), x, line))
    board = growth + 0.14 * fibre - 0.35 * pore + 0.10 * noise((22, 50), 205)
    return board * (1 - core) + knots + 0.03 * noise(1.2, 206)


def bark():
    """Tall plates of old bark, flaked in layers, with deep furrows between them."""
    x, y = places()
    bend_x = 5 * noise((30, 12), 300) + 2.0 * noise((6, 4), 301) + 0.8 * noise(1.8, 302)
    bend_y = 7 * noise((14, 9), 303) + 2 * noise(3, 304)
    cells = Cells(4, 10, 315, squash=0.33, bend=(bend_x, bend_y), stagger=0.5)
    plate = rounded((cells.border(1.0) - 1.0) / 8)

    def along_plates(down, across, seed):
        return sampled(noise((down, across), seed), x + bend_x, y + bend_y)

    bulge = fractal(14, 3, 306, 0.7) + 0.5 * along_plates(10, 5, 307)
    layers = sum(smoothstep(-0.09, 0.09, bulge - edge) for edge in (-1.1, -0.4, 0.25, 0.9, 1.5))
    fibre = along_plates(14, 1.3, 308)
    cracks = smoothstep(1.2, 2.0, along_plates(1.2, 4, 309))
    splits = smoothstep(1.1, 1.9, along_plates(13, 1.3, 310))
    surface = (0.12 * layers + 0.14 * fibre - 0.14 * cracks - 0.26 * splits
               + 0.04 * noise(1.3, 311))
    floor = 0.05 * noise((8, 1.3), 312)
    return floor + plate * (0.75 + surface + cells.each(-0.12, 0.12, 313))


def scales():
    """Rows of keeled scales, each lying over the two below it."""
    rows, columns = 12, 8
    pitch, width = SIZE / rows, SIZE / columns
    x, y = places()
    x, y = x + 0.5 * noise(14, 400), y + 0.5 * noise(14, 401)
    rng = np.random.default_rng(402)
    level, longer, lean = rng.uniform(-1, 1, (3, rows, columns))
    total, free = np.zeros(x.shape), np.ones(x.shape, bool)
    start = np.floor(y / pitch).astype(int)
    for back in (-2, -1, 0):
        row = start + back
        column = np.floor(x / width - 0.5 * (row % 2)).astype(int)
        own = row % rows, column % columns
        dx = x - (column + 0.5 + 0.5 * (row % 2)) * width
        dy = y - row * pitch
        tip = 2.15 * pitch + 1.2 * longer[own]
        share = np.clip(dy / tip, 0, 1)
        half = 0.53 * width * np.sqrt(np.clip(1 - share ** 2.6, 0, 1))
        edge = (half - np.abs(dx)) * np.clip(1.15 - 0.5 * share, 0, 1)
        inside = free & (edge > 0)
        keel = np.exp(-(dx / 2.2) ** 2) * smoothstep(0.95, 0.5, share)
        furrows = np.cos(dx / (0.15 + share) * 0.9) * smoothstep(0.35, 0.7, share)
        body = (1.15 * share ** 1.2 + 0.42 * rounded(edge / 8) - 1.2 * (dx / width) ** 2
                + 0.22 * keel + 0.04 * furrows + 0.06 * level[own] + 0.006 * lean[own] * dx)
        total = np.where(inside, body, total)
        free &= ~inside
    return total + 0.015 * noise(1.3, 403)


def leather():
    """Pebbled hide with creases between groups of pebbles, and pores."""
    bend = [1.1 * noise(7, 500 + i) + 0.5 * noise(2, 510 + i) for i in range(2)]
    cells = Cells(26, 26, 502, jitter=0.85, bend=bend)
    gap = cells.border(1.1)
    pebble = rounded((gap - 0.2) / 4.6) * (0.85 + cells.each(-0.2, 0.2, 503))
    wide = [6 * noise(16, 504 + i) + 2 * noise(5, 514 + i) for i in range(2)]
    crease = Cells(6, 6, 506, jitter=1.0, bend=wide).border(1.5)
    depth = smoothstep(-1.0, 0.8, noise(20, 507))
    fold = np.exp(-(crease / 3.0) ** 2) * depth
    pore = smoothstep(1.9, 2.7, noise(1.3, 508))
    return (pebble * (1 - 0.55 * fold) - 0.45 * fold + 0.10 * noise(7, 509) - 0.25 * pore
            + 0.03 * noise(1.3, 520))


def sand():
    """Ripples that the wind has blown, of grains."""
    strength, phase = waves(21, (0.011, 0.008), 600)
    strength = strength / (strength + 0.45)
    phase = phase + 0.25 * noise(5, 601)
    ripple = np.sin(phase + 0.45 * np.sin(phase))
    grains = noise(0.9, 602) + 0.6 * noise(1.7, 603)
    coarse = smoothstep(1.9, 2.8, noise(1.4, 604))
    return strength * ripple + 0.10 * grains + 0.35 * coarse + 0.12 * noise(18, 605)
