"""A paint box for seamless heights.

A pattern is drawn as an array of heights on a grid OVERSAMPLE times finer than its pixels, so that
edges come out smooth. Lengths are in pixels of the finished tile. Everything here repeats after
SIZE pixels by construction: noise is filtered on the torus, distances take the shorter way round.
"""

import numpy as np
from PIL import Image

SIZE = 256
OVERSAMPLE = 2
FINE = SIZE * OVERSAMPLE


# ---- numbers and places ----------------------------------------------------------------------

def smoothstep(low, high, value):
    t = np.clip((value - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def rounded(t):
    """A shoulder: a quarter of a circle from (0, 0) to (1, 1)."""
    return np.sqrt(1 - (1 - np.clip(t, 0, 1)) ** 2)


def places():
    """The coordinates x and y of the fine grid's points."""
    return np.meshgrid(*[(np.arange(FINE) + 0.5) / OVERSAMPLE] * 2)


def wrapped(distance):
    """The shorter way round from one place of the tile to another."""
    return (distance + SIZE / 2) % SIZE - SIZE / 2


def sampled(image, x, y):
    """The image at any places, bilinear; the tile goes on for ever."""
    column, row = x * OVERSAMPLE - 0.5, y * OVERSAMPLE - 0.5
    left, top = np.floor(column).astype(int), np.floor(row).astype(int)
    across, down = column - left, row - top
    left, top, right, bottom = left % FINE, top % FINE, (left + 1) % FINE, (top + 1) % FINE
    upper = image[top, left] * (1 - across) + image[top, right] * across
    lower = image[bottom, left] * (1 - across) + image[bottom, right] * across
    return upper * (1 - down) + lower * down


# ---- noise -----------------------------------------------------------------------------------

def frequencies():
    """Cycles per pixel across and down, in the order of the Fourier transform."""
    return np.meshgrid(*[np.fft.fftfreq(FINE, 1 / OVERSAMPLE)] * 2)


def blur(image, sigma):
    """Gaussian blur on the torus; sigma is one number or (down, across)."""
    down, across = np.broadcast_to(sigma, 2)
    fx, fy = frequencies()
    response = np.exp(-2 * np.pi ** 2 * ((fx * across) ** 2 + (fy * down) ** 2))
    return np.fft.ifft2(np.fft.fft2(image) * response).real


def noise(grain, seed):
    """Smooth noise with mean 0 and deviation 1; grain is its size, or (down, across)."""
    field = blur(np.random.default_rng(seed).standard_normal((FINE, FINE)), grain)
    return (field - field.mean()) / field.std()


def fractal(coarsest, finest, seed, gain=0.5):
    """Noise of all sizes between two, each half as coarse one weaker by the gain."""
    total, weight, grain = 0, 1.0, coarsest
    while grain >= finest:
        total = total + weight * noise(grain, seed)
        weight, grain, seed = weight * gain, grain / 2, seed + 1000
    return total / total.std()


def waves(length, spread, seed):
    """Strength and phase of waves of about a length that roll down the tile, with forks."""
    fx, fy = frequencies()
    across, down = np.broadcast_to(spread, 2)
    band = np.exp(-0.5 * ((fx / across) ** 2 + ((fy - 1 / length) / down) ** 2))
    white = np.random.default_rng(seed).standard_normal((FINE, FINE))
    field = np.fft.ifft2(np.fft.fft2(white) * band)
    return np.abs(field) / np.abs(field).mean(), np.angle(field)


# ---- cells -----------------------------------------------------------------------------------

class Cells:
    """A Voronoi diagram on the torus of rows x columns points, each strewn about its own square.

    Owner is each place's cell, dx and dy lead from the cell's point to the place. Squash is the
    metric's weight of the vertical: below 1 it makes tall cells. Places can be bent beforehand.
    """

    def __init__(self, rows, columns, seed, jitter=0.9, squash=1.0, bend=(0, 0), stagger=0.0):
        rng = np.random.default_rng(seed)
        self.rows, self.columns, self.squash = rows, columns, squash
        spots = np.stack(np.meshgrid(np.arange(columns), np.arange(rows)), -1) + 0.5
        spots[1::2, :, 0] += stagger
        spots += jitter * rng.uniform(-0.5, 0.5, spots.shape)
        self.points = (spots * [SIZE / columns, SIZE / rows]).reshape(-1, 2)
        x, y = places()
        self.x, self.y = x + bend[0], y + bend[1]
        self._find_owners()

    @property
    def count(self):
        return self.rows * self.columns

    def near(self):
        """The cells around each place, one array of indexes after the other, and the way there."""
        row = np.floor(self.y * self.rows / SIZE).astype(int)
        column = np.floor(self.x * self.columns / SIZE).astype(int)
        for down in range(-2, 3):
            for across in range(-2, 3):
                index = (row + down) % self.rows * self.columns + (column + across) % self.columns
                yield (index, wrapped(self.x - self.points[index, 0]),
                       wrapped(self.y - self.points[index, 1]) * self.squash)

    def _find_owners(self):
        nearest = np.full(self.x.shape, np.inf)
        self.owner = np.zeros(self.x.shape, int)
        self.dx, self.dy = np.zeros_like(nearest), np.zeros_like(nearest)
        for index, dx, dy in self.near():
            square = dx * dx + dy * dy
            closer = square < nearest
            nearest = np.where(closer, square, nearest)
            for name, value in (("owner", index), ("dx", dx), ("dy", dy)):
                setattr(self, name, np.where(closer, value, getattr(self, name)))

    def border(self, softness=1.0):
        """The distance to the cell's border; its corners are rounded by the softness."""
        pull = np.zeros(self.x.shape)
        for index, dx, dy in self.near():
            away_x, away_y = self.dx - dx, self.dy - dy
            length = np.hypot(away_x, away_y)
            middle = (dx + self.dx) * away_x + (dy + self.dy) * away_y
            gap = -middle / np.maximum(2 * length, 1e-6)
            pull += np.where(index == self.owner, 0, np.exp(-gap / softness))
        return -softness * np.log(np.maximum(pull, 1e-30))

    def each(self, low, high, seed):
        """A random number for every cell, at all its places."""
        return np.random.default_rng(seed).uniform(low, high, self.count)[self.owner]


# ---- pictures --------------------------------------------------------------------------------

def shrink(image):
    """From the fine grid to pixels."""
    return image.reshape(SIZE, OVERSAMPLE, SIZE, OVERSAMPLE).mean((1, 3))


def pixels(heights):
    """The heights as bytes over the whole range.

    Half a level of noise hides the steps that wide, gentle ramps have in eight bits.
    """
    heights = shrink(heights)
    low, high = np.percentile(heights, (0.4, 99.6))
    level = np.clip((heights - low) / (high - low), 0, 1)
    dither = np.random.default_rng(900).uniform(-0.5, 0.5, level.shape)
    return np.clip(np.rint(3 + 249 * level + dither), 0, 255).astype(np.uint8)


def lit(tile, intensity=4.0):
    """The bytes as a relief so many pixels high, in light from the upper left."""
    height = np.asarray(tile, float) / 256 * intensity
    across = np.roll(height, 1, 1) - np.roll(height, -1, 1)
    down = np.roll(height, 1, 0) - np.roll(height, -1, 0)
    x = (np.roll(across, 1, 0) + 2 * across + np.roll(across, -1, 0)) / 8
    y = (np.roll(down, 1, 1) + 2 * down + np.roll(down, -1, 1)) / 8
    length = np.sqrt(x * x + y * y + 1)
    facing = np.clip((np.sqrt(0.5) - 0.5 * x - 0.5 * y) / length, 0, 1)
    shine = np.clip((0.924 - 0.271 * x - 0.271 * y) / length, 0, 1) ** 40
    bright = 0.10 + 0.66 * facing + 0.14 * shine
    return Image.fromarray(np.trunc(np.clip(bright, 0, 1) * 255 + 0.5).astype(np.uint8))
