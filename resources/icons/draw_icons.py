#!/usr/bin/python3
"""Renders the icons of application and project file: a ball half in the evening star's light.

Needs Python 3 with NumPy and Pillow (Debian: python3-numpy, python3-pil). Run

    python3 resources/icons/draw_icons.py

It writes icons/application/*-256.png, which the program shows, and, in packaging/icons, PNGs of
both icons from 16 to 512 pixels, VEP.ico and, for macOS, an .icns of both. Each size is rendered on
its own: the small ones have a larger ball and a plainer star.
"""

from pathlib import Path

import numpy as np
from PIL import Image

HERE = Path(__file__).resolve().parent
COMPILED = HERE / "application"
PACKAGED = HERE.parent.parent / "packaging" / "icons"
SIZES = (16, 24, 32, 48, 64, 128, 256, 512)
ICO_SIZES = (16, 24, 32, 48, 64, 256)
ICNS_SIZES = (16, 32, 64, 128, 256)

TOP, BOTTOM = np.array([58, 58, 64]) / 255, np.array([27, 27, 31]) / 255
EDGE = np.array([92, 92, 100]) / 255
FOLD = np.array([132, 132, 142]) / 255
CLAY = np.array([1.0, 0.775, 0.46])                # the ball's own colour
SUN, SKY = np.array([1.12, 1.05, 0.95]), np.array([0.155, 0.175, 0.25])
STAR = np.array([1.0, 0.955, 0.85])


class Canvas:
    """Linear coverage painting in the unit square, x to the right and y down."""

    def __init__(self, size, oversample):
        self.size, self.oversample = size, oversample
        fine = size * oversample
        self.x, self.y = np.meshgrid(*[(np.arange(fine) + 0.5) / fine] * 2)
        self.colour = np.zeros((fine, fine, 3))
        self.alpha = np.zeros((fine, fine))

    def paint(self, colour, coverage):
        """Lays a colour, one or an image, over what is there."""
        alpha = coverage + self.alpha * (1 - coverage)
        own = (self.alpha * (1 - coverage))[..., None] * self.colour
        mixed = own + coverage[..., None] * colour
        self.colour = mixed / np.maximum(alpha, 1e-9)[..., None]
        self.alpha = alpha

    def glow(self, colour, strength):
        """Adds light where something is painted already."""
        self.colour = 1 - (1 - self.colour) * (1 - strength[..., None] * colour)

    def image(self):
        """Shrunk to its size with colours weighted by their alpha."""
        def shrink(values):
            blocks = values.reshape(self.size, self.oversample, self.size, self.oversample, -1)
            return blocks.mean((1, 3))
        alpha = shrink(self.alpha)
        colour = shrink(np.clip(self.colour, 0, 1) * self.alpha[..., None])
        pixels = np.concatenate([colour / np.maximum(alpha, 1e-9), alpha], 2)
        return Image.fromarray(np.rint(pixels * 255).astype(np.uint8), "RGBA")


def box_distance(x, y, left, top, right, bottom, radius):
    """The distance to a rounded box, negative inside."""
    across = np.abs(x - (left + right) / 2) - (right - left) / 2 + radius
    down = np.abs(y - (top + bottom) / 2) - (bottom - top) / 2 + radius
    outside = np.hypot(np.maximum(across, 0), np.maximum(down, 0))
    return outside + np.minimum(np.maximum(across, down), 0) - radius


def panel(canvas):
    """The dark rounded square with a fine lighter edge at its top."""
    margin = 0.03
    distance = box_distance(canvas.x, canvas.y, margin, margin, 1 - margin, 1 - margin, 0.2)
    canvas.paint(TOP + (BOTTOM - TOP) * canvas.y[..., None], (distance < 0).astype(float))
    if canvas.size >= 48:
        rim = (distance < 0) & (distance > -0.008)
        canvas.paint(EDGE, rim * np.clip(0.8 - canvas.y, 0, 1))


def page(canvas):
    """A dark sheet with a folded corner and a fine lighter edge."""
    x, y = canvas.x, canvas.y
    left, top, right, bottom, fold = 0.13, 0.03, 0.87, 0.97, 0.22
    box = box_distance(x, y, left, top, right, bottom, 0.08)
    distance = np.maximum(box, ((x - right + fold) - (y - top)) * 0.70711)
    edge = max(0.012, 0.75 / canvas.size)
    canvas.paint(FOLD, (distance < 0).astype(float))
    canvas.paint(TOP + (BOTTOM - TOP) * y[..., None], (distance < -edge).astype(float))
    flap = (distance < 0) & (x > right - fold) & (y < top + fold)
    canvas.paint(FOLD, flap.astype(float))


def ball(canvas, middle, radius, towards_light):
    """A ball that the light meets from one side; its other side has the sky only."""
    x, y = (canvas.x - middle[0]) / radius, (canvas.y - middle[1]) / radius
    square = x * x + y * y
    z = np.sqrt(np.clip(1 - square, 0, 1))
    light = np.array(towards_light) / np.linalg.norm(towards_light)
    facing = x * light[0] + y * light[1] + z * light[2]
    diffuse = np.clip((facing + 0.06) / 1.06, 0, 1) ** 0.9
    shine = np.clip(facing * z * 2 - light[2], 0, 1) ** 18
    rim = (1 - z) ** 3 * 0.10
    dusk = SKY * (0.55 + 0.45 * z[..., None]) * (1 - diffuse[..., None])
    colour = CLAY * SUN * diffuse[..., None] + dusk
    colour = colour + 0.25 * shine[..., None] + rim[..., None] * np.array([0.8, 0.9, 1.2])
    canvas.paint(np.clip(colour, 0, 1), (square < 1).astype(float))


def star(canvas, middle, size, waist, halo):
    """A star with four long points, brightest in the middle, and its halo."""
    x, y = np.abs(canvas.x - middle[0]) / size, np.abs(canvas.y - middle[1]) / size
    distance = np.hypot(x, y)
    if halo:
        canvas.glow(STAR, 0.5 * np.exp(-(distance / 0.55) ** 2) * (canvas.alpha > 0))
    canvas.paint(STAR, (x ** waist + y ** waist < 1).astype(float))


def application_icon(size):
    canvas = Canvas(size, max(4, 1024 // size if size < 128 else 4))
    small = size < 48
    panel(canvas)
    radius = 0.335 if small else 0.315
    middle = (0.54, 0.55)
    ball(canvas, middle, radius, (-0.72, -0.66, 0.16))
    rim = 0.70711 * radius
    star(canvas, (middle[0] - rim, middle[1] - rim), 0.25 if small else 0.215,
         0.6 if small else 0.5, not small)
    return canvas.image()


def project_icon(size):
    canvas = Canvas(size, max(4, 1024 // size if size < 128 else 4))
    small = size < 48
    page(canvas)
    middle, radius = (0.525, 0.6), 0.27 if small else 0.25
    ball(canvas, middle, radius, (-0.72, -0.66, 0.16))
    rim = 0.70711 * radius
    star(canvas, (middle[0] - rim, middle[1] - rim), 0.2 if small else 0.175,
         0.6 if small else 0.5, not small)
    return canvas.image()


def main():
    COMPILED.mkdir(exist_ok=True)
    PACKAGED.mkdir(parents=True, exist_ok=True)
    for name, draw in (("Vesperine", application_icon), ("VEP", project_icon)):
        icons = {size: draw(size) for size in SIZES}
        for size, icon in icons.items():
            icon.save(PACKAGED / f"{name}-{size}.png", optimize=True)
        icons[256].save(COMPILED / f"{name}-256.png", optimize=True)
        icons[512].save(PACKAGED / f"{name}.icns",
                        append_images=[icons[size] for size in SIZES if size in ICNS_SIZES])
        if name == "VEP":
            others = [icons[size] for size in ICO_SIZES[:-1]]
            icons[256].save(PACKAGED / "VEP.ico", sizes=[(size, size) for size in ICO_SIZES],
                            append_images=others)


if __name__ == "__main__":
    main()
