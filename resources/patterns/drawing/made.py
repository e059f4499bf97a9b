"""What hands and machines make: bricks, cloth, mail, tiles, beaten and scratched metal."""

import numpy as np

from .toolkit import SIZE, Cells, blur, fractal, noise, places, rounded, smoothstep, wrapped


def brick():
    """A running bond of old bricks with worn edges, in sandy mortar."""
    rows, columns = 8, 4
    width, height = SIZE / columns, SIZE / rows
    x, y = places()
    rng = np.random.default_rng(10)
    row = np.floor(y / height).astype(int)
    column = np.floor(x / width - 0.5 * (row % 2)).astype(int) % columns
    own = row * columns + column
    shift, grow, tilt = rng.uniform(-1, 1, (3, 2, rows * columns))
    level = rng.uniform(-1, 1, rows * columns)
    dx = wrapped(x - (column + 0.5 + 0.5 * (row % 2)) * width) - 0.8 * shift[0][own]
    dy = y - (row + 0.5) * height - 0.6 * shift[1][own]
    ragged = 0.7 * noise(5, 11) + 0.4 * noise(1.6, 12)
    chips = 4.5 * smoothstep(1.3, 2.6, noise(4.5, 13))
    px = np.abs(dx) - (width / 2 - 6.2 + grow[0][own])
    py = np.abs(dy) - (height / 2 - 5.8 + 0.6 * grow[1][own])
    outside = np.hypot(np.maximum(px, 0), np.maximum(py, 0)) + np.minimum(np.maximum(px, py), 0)
    inside = 3.4 - outside + ragged - chips
    pits = smoothstep(1.5, 2.3, noise(1.6, 14)) + 0.7 * smoothstep(1.6, 2.6, noise(3.2, 15))
    face = (0.18 * level[own] + (0.0035 * tilt[0][own] * dx + 0.009 * tilt[1][own] * dy)
            + 0.05 * fractal(6, 0.8, 16, 0.7) - 0.28 * pits)
    mortar = 0.08 * noise(1.2, 17) + 0.05 * noise(5, 18)
    body = rounded(inside / 4.5)
    return mortar * (1 - body) + body * (1 + face)


def woven_cloth():
    """A plain weave of twisted threads, none quite like the next."""
    count = 16
    pitch = SIZE / count
    x, y = places()
    x, y = x + 0.9 * noise((26, 7), 20), y + 0.9 * noise((7, 26), 21)

    def threads(across, along, side, seed):
        """The heights of threads that run along, and lie on that side of the first they cross."""
        rng = np.random.default_rng(seed)
        index = np.floor(across / pitch).astype(int)
        from_axis = across / pitch - index - 0.5
        index %= count
        thick = rng.uniform(0.43, 0.49, count)[index]
        section = rounded((1 - np.abs(from_axis) / thick) * 0.9)
        over = side * np.sin(np.pi * (along / pitch + index))
        turn = 1.25 * along / pitch + side * 1.7 * np.arcsin(np.clip(from_axis / thick, -1, 1)) / 2
        fibre = np.abs(np.sin(np.pi * (turn + rng.random(count)[index])))
        return np.where(section > 0, 0.75 * section + 0.42 * over + 0.13 * fibre * section, -1)

    warp, weft = threads(x, y, 1, 23), threads(y, x, -1, 24)
    return np.maximum(np.maximum(warp, weft), 0.12) + 0.02 * noise(1.1, 25)


def chain_mail():
    """Rings of which each holds four; the rows lean to the left and to the right in turn."""
    rows, columns, radius, wire = 14, 8, 14.4, 3.0
    pitch, step = SIZE / rows, SIZE / columns
    x, y = places()
    loose = np.random.default_rng(30).normal(0, 1, (4, rows, columns))
    top = -3.0 + 0.15 * noise(2.0, 31)
    for row in range(rows):
        for column in range(columns):
            own = loose[:, row, column]
            dx = wrapped(x - (column + 0.5 * (row % 2)) * step - 0.35 * own[0])
            dy = wrapped(y - (row + 0.5) * pitch - 0.35 * own[1])
            length = np.hypot(dx, dy)
            lean = (1 if row % 2 else -1) * (2.0 + 0.2 * own[2])
            middle = (lean * dx + 0.4 * own[3] * dy) / np.maximum(length, 1)
            gap = np.abs(length - radius) / wire
            ring = middle + 3.0 * (1 - gap ** 2.4)
            top = np.where(gap < 1, np.maximum(top, ring), top)
    return blur(top, 0.6) + 0.06 * noise(1.3, 32)


def hexagons():
    """Plates with a rounded edge and a line cut along it."""
    rows, columns = 8, 7
    pitch, width = SIZE / rows, SIZE / columns
    x, y = places()
    best = np.full(x.shape, np.inf)
    for row in range(-1, rows + 1):
        dy = y - (row + 0.5) * pitch
        start = 0.5 * (row % 2)
        dx = x - (np.rint(x / width - 0.5 - start) + 0.5 + start) * width
        slanted = np.abs(dx) * 0.5 + np.abs(dy) * np.sqrt(0.75)
        best = np.minimum(best, np.maximum(np.abs(dx), slanted))
    inside = width / 2 - best
    plate = rounded((inside - 1.0) / 4.6)
    line = np.exp(-((inside - 8.6) / 1.3) ** 2)
    cushion = smoothstep(9, 19, inside)
    return blur(plate - 0.35 * line + 0.55 * cushion, 0.6) + 0.02 * noise(1.2, 41)


def hammered_metal():
    """Hollows of a round hammer, side by side, with the ridges between them polished soft."""
    cells = Cells(10, 10, 50, jitter=0.95, stagger=0.5)
    depth = np.random.default_rng(51).uniform(-90, 90, cells.count)
    softness, pull = 26.0, 0
    for index, dx, dy in cells.near():
        pull = pull + np.exp(-(dx * dx + dy * dy + depth[index]) / softness)
    bowls = -softness * np.log(pull)
    bowls = np.minimum(bowls, 330 + 0.2 * (bowls - 330))
    return bowls + 3.0 * noise(1.4, 52) + 5.0 * noise((2.5, 2.5), 53) + 14 * noise(9, 54)


def scratches():
    """Worn metal: many fine scratches, some deep ones with raised burrs."""
    x, y = places()
    rng = np.random.default_rng(60)
    total = 0.02 * noise(1.2, 61) + 0.07 * noise(5, 62) + 0.02 * noise((0.9, 20), 63)
    for number in range(320):
        deep = number % 16 == 0
        angle = rng.normal(-0.7, 0.5) if number % 2 else rng.uniform(0, np.pi)
        length = rng.uniform(30, 75) if deep else rng.uniform(6, 44)
        thick = rng.uniform(1.2, 1.7) if deep else rng.uniform(0.6, 1.1)
        depth = rng.uniform(0.45, 0.65) if deep else 0.42 * rng.uniform(0.3, 1) ** 2
        dx, dy = wrapped(x - rng.uniform(0, SIZE)), wrapped(y - rng.uniform(0, SIZE))
        along = (dx * np.cos(angle) + dy * np.sin(angle)) / length
        aside = dy * np.cos(angle) - dx * np.sin(angle) + rng.normal(0, 2.5) * along ** 2
        end = smoothstep(1, -0.2, along) * smoothstep(-1, -0.7, along)
        gap = aside / (thick * (0.45 + 0.55 * end))
        groove = -np.exp(-gap * gap) + 0.33 * np.exp(-(np.abs(gap) - 1.9) ** 2 * 1.6)
        total = total + depth * end * groove
    return total
