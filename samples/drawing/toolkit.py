"""A small paint box for sprites: signed-distance shapes, height fields, normal maps.

A canvas keeps its colour OVERSAMPLE times finer than the sprite, so that edges come out smooth,
and its relief (heights in sprite pixels) at the size of the sprite. Shapes are arrays of signed
distances in sprite pixels, negative inside.
"""

import numpy as np
from PIL import Image

OVERSAMPLE = 3
INK = "#231a35"
AMBER = "#f2b155"
STEEPEST = 2.6  # slopes approach this value and never pass it


# ---- numbers and colours -------------------------------------------------------------------

def rgb(colour):
    """A colour as floats 0..1, from "#rrggbb" or from an array, which passes through."""
    if not isinstance(colour, str):
        return np.asarray(colour, np.float32)
    return np.array([int(colour[i:i + 2], 16) for i in (1, 3, 5)], np.float32) / 255


def smoothstep(low, high, value):
    t = np.clip((value - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def mix(first, second, amount):
    amount = np.asarray(amount, np.float32)
    amount = amount[..., None] if amount.ndim == 2 else amount
    return rgb(first) * (1 - amount) + rgb(second) * amount


def tint(colour, brightness):
    """The colour, brighter or darker by a share that may vary over the picture."""
    brightness = np.asarray(brightness, np.float32)
    factor = 1 + (brightness[..., None] if brightness.ndim == 2 else brightness)
    return np.clip(rgb(colour) * factor, 0, 1)


def deep(colour):
    """The dark, cool variant of a colour that its contour is drawn in."""
    return mix(colour, INK, 0.72)


def blur(image, sigma, wraps=False):
    """Gaussian blur; sigma is one number or (down, across)."""
    for axis, width in enumerate(np.broadcast_to(sigma, 2)):
        reach = int(3 * width + 1)
        kernel = np.exp(-0.5 * (np.arange(-reach, reach + 1) / max(width, 1e-3)) ** 2)
        kernel /= kernel.sum()
        margin = [(reach, reach) if a == axis else (0, 0) for a in range(2)]
        padded = np.pad(image, margin, mode="wrap" if wraps else "edge")
        length = image.shape[axis]
        image = sum(weight * np.take(padded, np.arange(i, i + length), axis)
                    for i, weight in enumerate(kernel))
    return image


def shrink(image):
    """From the fine grid of the colours to the pixels of the sprite."""
    n = OVERSAMPLE
    rows, columns = image.shape[0] // n, image.shape[1] // n
    return image.reshape(rows, n, columns, n, -1).mean((1, 3)).squeeze()


def grow(image):
    return image.repeat(OVERSAMPLE, 0).repeat(OVERSAMPLE, 1)


# ---- shapes ----------------------------------------------------------------------------------

def ellipse(c, x, y, rx, ry):
    px, py = (c.x - x) / rx, (c.y - y) / ry
    length = np.hypot(px, py)
    steepness = np.hypot(px / rx, py / ry)
    return length * (length - 1) / np.maximum(steepness, 1e-6)


def circle(c, x, y, r):
    return np.hypot(c.x - x, c.y - y) - r


def box(c, x, y, half_width, half_height, rounding=0.0):
    px = np.abs(c.x - x) - half_width + rounding
    py = np.abs(c.y - y) - half_height + rounding
    return np.hypot(np.maximum(px, 0), np.maximum(py, 0)) + np.minimum(
        np.maximum(px, py), 0) - rounding


def stroke(c, points, radii):
    """A brush stroke through the points; its radius runs evenly through the radii."""
    points = np.asarray(points, float)
    widths = np.interp(np.linspace(0, 1, len(points)), np.linspace(0, 1, len(radii)), radii)
    distance = np.full_like(c.x, np.inf)
    for a, b, ra, rb in zip(points, points[1:], widths, widths[1:]):
        edge = b - a
        t = ((c.x - a[0]) * edge[0] + (c.y - a[1]) * edge[1]) / (edge @ edge)
        t = np.clip(t, 0, 1)
        gap = np.hypot(c.x - a[0] - t * edge[0], c.y - a[1] - t * edge[1])
        distance = np.minimum(distance, gap - (ra + t * (rb - ra)))
    return distance


def polygon(c, points):
    points = np.asarray(points, np.float32)
    nearest = np.full_like(c.x, np.inf)
    inside = np.zeros(c.x.shape, bool)
    for a, b in zip(points, np.roll(points, -1, 0)):
        edge = b - a
        px, py = c.x - a[0], c.y - a[1]
        t = np.clip((px * edge[0] + py * edge[1]) / max(edge @ edge, 1e-9), 0, 1)
        nearest = np.minimum(nearest, (px - t * edge[0]) ** 2 + (py - t * edge[1]) ** 2)
        if a[1] != b[1]:
            crosses = (a[1] > c.y) != (b[1] > c.y)
            inside ^= crosses & (px < edge[0] * py / edge[1])
    return np.where(inside, -1, 1) * np.sqrt(nearest)


def curve(points, closed=False, steps=6):
    """Points on a Catmull-Rom spline through the given ones."""
    p = np.asarray(points, float)
    p = np.vstack([p[-1:], p, p[:2]]) if closed else np.vstack([p[:1], p, p[-1:]])
    t = np.linspace(0, 1, steps, endpoint=False)[:, None]
    pieces = [0.5 * (2 * b + (d - a) * t + (2 * a - 5 * b + 4 * d - e) * t ** 2
                     + (3 * b - a - 3 * d + e) * t ** 3)
              for a, b, d, e in zip(p, p[1:], p[2:], p[3:])]
    return np.vstack(pieces if closed else pieces + [p[-1:]])


def blob(c, points):
    return polygon(c, curve(points, closed=True))


def both_sides(right_half):
    """A symmetric outline from its right half, given from the top to the bottom."""
    left = [(-x, y) for x, y in reversed(right_half) if x != 0]
    return list(right_half) + left


def moved(points, x, y, mirror=1):
    return [(x + mirror * px, y + py) for px, py in points]


def star(c, x, y, radius, points=4, waist=0.36, turn=0.0):
    """The evening star: slim points around a narrow waist."""
    corners = []
    for i in range(2 * points):
        r = radius * (waist if i % 2 else 1)
        angle = turn + np.pi * (i / points - 0.5)
        corners.append((x + r * np.cos(angle), y + r * np.sin(angle)))
    return polygon(c, corners)


def join(first, second, softness):
    """Union of two shapes that flow into each other."""
    h = np.clip(0.5 + 0.5 * (second - first) / softness, 0, 1)
    return second * (1 - h) + first * h - softness * h * (1 - h)


# ---- heights ---------------------------------------------------------------------------------

def _membrane(mask):
    """Solves a membrane under even pressure, held at the border of the mask, coarse to fine."""
    rows, columns = mask.shape
    u = np.zeros((rows + 2, columns + 2))
    if min(rows, columns) > 12:
        even = np.pad(mask, ((0, rows % 2), (0, columns % 2)))
        coarse = _membrane(even.reshape(even.shape[0] // 2, 2, even.shape[1] // 2, 2).mean((1, 3)))
        u[1:-1, 1:-1] = 4 * coarse.repeat(2, 0).repeat(2, 1)[:rows, :columns]
    for _ in range(60):
        around = u[:-2, 1:-1] + u[2:, 1:-1] + u[1:-1, :-2] + u[1:-1, 2:]
        u[1:-1, 1:-1] = mask * (around / 4 + 1)
    return u[1:-1, 1:-1]


def puff(mask, roundness=0.3):
    """Inflates a mask; a disc becomes half a ball whose rim is eased by the roundness."""
    u = _membrane(mask)
    ease = roundness * np.sqrt(u.max() + 1e-9)
    return np.sqrt(u + ease ** 2) - ease


def noise(shape, grain, seed, wraps=True):
    """Smooth noise with deviation 1; grain is its size in pixels, or (down, across)."""
    field = np.random.default_rng(seed).standard_normal(shape)
    field = blur(field, grain, wraps)
    return ((field - field.mean()) / field.std()).astype(np.float32)


def slopes(heights, wraps=False):
    """Slopes across and down by a 3x3 Sobel filter; positive faces right and down."""
    h = np.pad(heights, 1, mode="wrap" if wraps else "edge")
    across = h[:, :-2] - h[:, 2:]
    down = h[:-2] - h[2:]
    x = (across[:-2] + 2 * across[1:-1] + across[2:]) / 8
    y = (down[:, :-2] + 2 * down[:, 1:-1] + down[:, 2:]) / 8
    eased = 1 / np.sqrt(1 + (x * x + y * y) / STEEPEST ** 2)
    return x * eased, y * eased


def normal_map(heights, alpha, wraps=False):
    """8-bit normals, red right, green up; flat where the sprite is fully transparent."""
    x, y = slopes(heights, wraps)
    x, y = np.where(alpha > 0, x, 0), np.where(alpha > 0, y, 0)
    length = np.sqrt(x * x + y * y + 1)
    channels = [np.trunc(x / length * 127 + 127.5), np.trunc(-y / length * 127 + 127.5),
                np.trunc(255 / length + 0.5), np.full_like(x, 255)]
    return np.stack(channels, -1).astype(np.uint8)


# ---- canvas ----------------------------------------------------------------------------------

class Canvas:
    """A sprite in the making: colour, coverage and relief, built up part by part."""

    def __init__(self, width, height, wraps=False):
        self.wraps = wraps
        columns = (np.arange(width * OVERSAMPLE, dtype=np.float32) + 0.5) / OVERSAMPLE
        rows = (np.arange(height * OVERSAMPLE, dtype=np.float32) + 0.5) / OVERSAMPLE
        self.x, self.y = np.meshgrid(columns, rows)
        self.colour = np.zeros(self.x.shape + (3,), np.float32)
        self.alpha = np.zeros_like(self.x)
        self.outline = np.full_like(self.x, np.inf)
        self.relief = np.zeros((height, width))

    def noise(self, grain, seed):
        return noise(self.x.shape, np.multiply(grain, OVERSAMPLE), seed)

    def _cover(self, coverage, colour):
        alpha = coverage + self.alpha * (1 - coverage)
        share = (coverage / np.maximum(alpha, 1e-6))[..., None]
        self.colour = rgb(colour) * share + self.colour * (1 - share)
        self.alpha = alpha

    def paint(self, shape, colour, soft=0.3, opacity=1.0):
        """Colour on what is there already, without a change of relief."""
        coverage = smoothstep(soft, -soft, shape) * opacity * (self.alpha > 0)
        self.colour = mix(self.colour, colour, coverage)

    def part(self, shape, colour, swell=0.4, base=None, ink=1.3, contact=0.3, detail=0.0,
             roundness=0.3):
        """Adds a rounded part: with a base at that height, without one riding on what is below.

        Ink is the width of its contour, contact the strength of the shade that it lays around
        itself, detail a relief (fine grid) that is added to its own.
        """
        self.paint(shape - 3, INK, soft=4, opacity=contact)
        coverage = smoothstep(0.25, -0.25, shape)
        painted = np.broadcast_to(rgb(colour), self.colour.shape)
        if ink:
            painted = mix(painted, deep(painted), smoothstep(-ink - 0.7, -ink + 0.4, shape))
        self._cover(coverage, painted)
        self.outline = np.minimum(self.outline, shape)
        mask = shrink(coverage)
        ground = blur(self.relief, 1.5) if base is None else base
        detail = shrink(np.broadcast_to(detail, shape.shape))
        height = ground + swell * puff(mask, roundness) + detail
        self.relief = self.relief * (1 - mask) + height * mask

    def emboss(self, heights):
        """Adds heights, given on the fine grid."""
        self.relief = self.relief + shrink(heights)

    def groove(self, shape, depth=1.0, width=1.2, dark=0.55):
        """Cuts a line along the border of a shape."""
        line = np.exp(-(shape / width) ** 2)
        self.emboss(-depth * line)
        self.paint(np.abs(shape) - width * 0.45, INK, soft=0.7, opacity=dark)

    def crevices(self, reach=3.0, strength=0.05):
        """Darkens hollows and lightens ridges a little, whatever the direction of the light."""
        hollow = blur(self.relief, reach, self.wraps) - self.relief
        self.colour = tint(self.colour, grow(-strength * np.clip(hollow, -3, 4)))

    def round_rim(self, depth, width):
        """Bends the relief down over the last pixels before the silhouette.

        Beyond the silhouette the relief goes on at the height of the rim, so that a part that
        lies high above the ground does not end in a cliff.
        """
        inside = -shrink(self.outline)
        whole = inside > 0.75
        near = blur(whole * 1.0, 1.2)
        rim = blur(self.relief * whole, 1.2) / np.maximum(near, 1e-6)
        thin = self.relief / np.maximum(shrink(self.alpha), 0.1)
        self.relief = np.where(whole, self.relief, np.where(near > 0.01, rim, thin))
        self.relief = self.relief - depth * np.clip(1 - inside / width, 0, 1.6) ** 2

    def pixels(self):
        """The sprite as straight RGBA bytes."""
        alpha = shrink(self.alpha)
        colour = shrink(self.colour * self.alpha[..., None]) / np.maximum(alpha, 1e-6)[..., None]
        image = np.dstack([colour, alpha])
        return np.trunc(np.clip(image, 0, 1) * 255 + 0.5).astype(np.uint8)

    def finish(self, rim=(2.2, 5), sigma=0.6):
        """The sprite and its normal map; the rim is given by its depth and width."""
        self.round_rim(*rim)
        self.crevices()
        sprite = self.pixels()
        sprite[sprite[..., 3] == 0] = 0
        return Image.fromarray(sprite), self.normals(sprite[..., 3], sigma)

    def normals(self, alpha, sigma=0.6):
        return Image.fromarray(normal_map(blur(self.relief, sigma, self.wraps), alpha, self.wraps))


# ---- ornaments -------------------------------------------------------------------------------

def shiny_dot(c, x, y, r):
    """The painted catchlight of an eye."""
    c.paint(circle(c, x, y, r), "#ffffff", soft=0.4)


def faceted_star(c, x, y, radius, colour, height=0.8, **shape):
    """A cut star: its relief rises in facets from the contour to the ridges."""
    d = star(c, x, y, radius, **shape)
    c.part(d, colour, swell=0, ink=0.9, detail=0.6 + height * np.maximum(-d, 0))


def rivet(c, x, y, r, colour):
    c.part(circle(c, x, y, r), colour, swell=0.9, ink=0.2, contact=0.3)


# ---- preview ---------------------------------------------------------------------------------

def lit(sprite, normals, light):
    """The sprite under one light with some ambient light and a small highlight."""
    colour = np.asarray(sprite.convert("RGBA"), float) / 255
    n = np.asarray(normals.convert("RGB"), float)
    n = np.dstack([(n[..., 0] - 127) / 127, (n[..., 1] - 127) / 127, n[..., 2] / 255])
    n /= np.linalg.norm(n, axis=-1, keepdims=True)
    light = np.array(light, float) / np.linalg.norm(light)
    halfway = light + [0, 0, 1]
    halfway /= np.linalg.norm(halfway)
    bright = 0.35 + 0.85 * np.clip(n @ light, 0, 1)
    shine = 0.18 * np.clip(n @ halfway, 0, 1) ** 28
    shown = np.clip(colour[..., :3] * bright[..., None] + shine[..., None], 0, 1)
    picture = np.dstack([shown, colour[..., 3]])
    return Image.fromarray(np.trunc(picture * 255 + 0.5).astype(np.uint8))


def contact_sheet(pictures, zoom=2, gap=12, widest=2820):
    """All pictures on dark grey: texture, normal map, lit from the upper left and the right."""
    sheet = Image.new("RGB", (widest, 4000), "#2d2d30")
    x, y, row_height = gap, gap, 0
    for sprite, normals in pictures:
        cells = [sprite, normals, lit(sprite, normals, (-0.6, 0.6, 0.55)),
                 lit(sprite, normals, (0.85, 0.1, 0.5))]
        width, height = sprite.width * zoom, sprite.height * zoom
        if x + 4 * (width + gap) > widest:
            x, y, row_height = gap, y + row_height + gap, 0
        for cell in cells:
            big = cell.convert("RGBA").resize((width, height), Image.NEAREST)
            sheet.paste(big, (x, y), big)
            x += width + gap
        row_height = max(row_height, height)
    return sheet.crop((0, 0, widest, y + row_height + gap))
