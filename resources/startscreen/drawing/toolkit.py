"""A paint box for reliefs: heights and colours on a grid finer than the picture's pixels.

Lengths are in pixels of the finished picture, x to the right and y down; heights grow towards the
viewer and are in pixels too.
"""

import numpy as np

WIDTH, HEIGHT = 660, 920
OVERSAMPLE = 2
FINE = (HEIGHT * OVERSAMPLE, WIDTH * OVERSAMPLE)

X, Y = np.meshgrid((np.arange(FINE[1]) + 0.5) / OVERSAMPLE, (np.arange(FINE[0]) + 0.5) / OVERSAMPLE)


def colour(code):
    """A colour of the form "#rrggbb" as three numbers from 0 to 1."""
    return np.array([int(code[start:start + 2], 16) / 255 for start in (1, 3, 5)])


def smoothstep(low, high, value):
    t = np.clip((value - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def shoulder(distance, width, height):
    """A rounded edge: a quarter of an ellipse from the distance 0 on, then level."""
    t = np.clip(distance / width, 0, 1)
    return height * np.sqrt(1 - (1 - t) ** 2)


def blur(image, sigma):
    """Gaussian blur; sigma is one number or (down, across). The border is mirrored."""
    for axis, size in zip((0, 1), np.broadcast_to(sigma, 2)):
        fine = size * OVERSAMPLE
        reach = max(1, int(3 * fine + 0.5))
        weights = np.exp(-0.5 * (np.arange(-reach, reach + 1) / fine) ** 2)
        image = np.moveaxis(image, axis, -1)
        padded = np.pad(image, [(0, 0)] * (image.ndim - 1) + [(reach, reach)], mode="reflect")
        length = padded.shape[-1] + 2 * reach
        spectrum = np.fft.rfft(padded, length) * np.fft.rfft(weights / weights.sum(), length)
        sharp = np.fft.irfft(spectrum, length)[..., 2 * reach:2 * reach + image.shape[-1]]
        image = np.moveaxis(sharp, -1, axis)
    return image


def noise(grain, seed):
    """Smooth noise with mean 0 and deviation 1; grain is its size, or (down, across)."""
    field = blur(np.random.default_rng(seed).standard_normal(FINE), grain)
    return (field - field.mean()) / field.std()


def wavy(amplitude, length, seed):
    """A smooth random function of x, by its values on the grid's columns."""
    columns = X[0]
    rng = np.random.default_rng(seed)
    total = np.zeros_like(columns)
    for octave in range(4):
        phases = rng.uniform(0, 2 * np.pi, 3)
        for phase, stretch in zip(phases, (0.83, 1.0, 1.31)):
            turns = columns / length * stretch * 2 ** octave
            total += np.sin(2 * np.pi * turns + phase) * 0.5 ** octave
    return amplitude * total / 3


def box_distance(left, top, right, bottom, radius):
    """The distance to a rounded box, negative inside."""
    across = np.abs(X - (left + right) / 2) - (right - left) / 2 + radius
    down = np.abs(Y - (top + bottom) / 2) - (bottom - top) / 2 + radius
    outside = np.hypot(np.maximum(across, 0), np.maximum(down, 0))
    return outside + np.minimum(np.maximum(across, down), 0) - radius


def plaque_distance(left, top, right, bottom, corner, arch):
    """The distance to a rounded box whose top is an arc of the radius arch, negative inside."""
    box = box_distance(left, 2 * top - bottom, right, bottom, corner)
    across, half = np.abs(X - (left + right) / 2), (right - left) / 2
    down = Y - top - arch
    distance = np.maximum(box, np.hypot(across, down) - arch)
    # Where side and arc meet, the nearest place is on the corner's circle.
    centre = half - corner, -np.sqrt((arch - corner) ** 2 - (half - corner) ** 2)
    beside = across * -centre[1] > -down * centre[0]
    return np.where(beside & (down < centre[1]),
                    np.hypot(across - centre[0], down - centre[1]) - corner, distance)


class Relief:
    """The heights and colours of the picture, built up piece by piece."""

    def __init__(self, ground):
        self.height = np.zeros(FINE)
        self.albedo = np.ones(FINE + (3,)) * ground

    def place(self, mask, height, albedo):
        """Puts a piece where the mask, from 0 to 1, says so."""
        self.height = self.height * (1 - mask) + height * mask
        self.tint(mask, albedo)

    def tint(self, mask, albedo):
        self.albedo = self.albedo * (1 - mask[..., None]) + albedo * mask[..., None]

    def normals(self):
        """The unit normals, x to the right, y up, z to the viewer."""
        down, across = np.gradient(self.height, 1 / OVERSAMPLE)
        vectors = np.stack([-across, down, np.ones(FINE)], -1)
        return vectors / np.linalg.norm(vectors, axis=-1, keepdims=True)


def shrink(values):
    """From the fine grid to the picture's pixels."""
    shape = (HEIGHT, OVERSAMPLE, WIDTH, OVERSAMPLE) + values.shape[2:]
    return values.reshape(shape).mean((1, 3))


def encoded(normals):
    """Normals as the program writes them: green is up, the flat surface is (127, 127, 255)."""
    normals = normals / np.linalg.norm(normals, axis=-1, keepdims=True)
    scaled = np.stack([normals[..., 0] * 127 + 127.5, normals[..., 1] * 127 + 127.5,
                       normals[..., 2] * 255 + 0.5], -1)
    return np.clip(np.trunc(scaled), 0, 255).astype(np.uint8)


def lit(colours, normal_map, light, height, ambient=0.5, brightness=1.0):
    """The picture as the preview shows it; colours are bytes with alpha, the result without."""
    n = normal_map[..., :3] / 255 * 2 - 1
    n = n / np.linalg.norm(n, axis=-1, keepdims=True)
    rows, columns = colours.shape[:2]
    x, y = np.meshgrid(np.arange(columns) + 0.5, np.arange(rows) + 0.5)
    towards = np.stack([light[0] - x, y - light[1], np.full_like(x, height)], -1)
    towards /= np.linalg.norm(towards, axis=-1, keepdims=True)
    facing = np.clip((n * towards).sum(-1), 0, None)
    shown = colours[..., :3] / 255 * (ambient + brightness * facing)[..., None]
    alpha = colours[..., 3:] / 255
    squares = (np.floor(x / 10) + np.floor(y / 10)) % 2
    ground = np.where(squares == 0, 128, 96)[..., None] / 255 * ambient
    mixed = np.clip(shown, 0, 1) * alpha + ground * (1 - alpha)
    return np.rint(mixed * 255).astype(np.uint8)
