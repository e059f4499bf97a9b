#!/usr/bin/python3
"""Writes the scalable icons of application and project file, as draw_icons.py renders them.

    python3 resources/icons/draw_scalable_icons.py

It writes packaging/icons/Vesperine.svg and VEP.svg, in plain SVG 1.1 without filters. The ball's
shades are sampled along the line through its middle towards the light; its shine lies on them.
"""

import numpy as np

from draw_icons import BOTTOM, CLAY, EDGE, FOLD, PACKAGED, SKY, STAR, SUN, TOP

LIGHT = np.array((-0.72, -0.66, 0.16))
STOPS = 24


def code(colour):
    return "#" + "".join(f"{round(255 * min(max(part, 0), 1)):02x}" for part in colour)


def stop(offset, colour, opacity=1.0):
    shown = "" if opacity == 1 else f' stop-opacity="{opacity:.3f}"'
    return f'<stop offset="{offset:.3f}" stop-color="{code(colour)}"{shown}/>'


def shade(place):
    """The ball's colour at a place from -1, the dark edge, to 1, the lit one."""
    light = LIGHT / np.linalg.norm(LIGHT)
    z = np.sqrt(max(1 - place * place, 0))
    facing = place * np.hypot(light[0], light[1]) + z * light[2]
    diffuse = np.clip((facing + 0.06) / 1.06, 0, 1) ** 0.9
    dusk = SKY * (0.55 + 0.45 * z) * (1 - diffuse)
    return CLAY * SUN * diffuse + dusk


def gradients(middle, radius, star_size):
    """The paints of ground, ball and halo, in a square of 100."""
    x, y = middle
    away = LIGHT[:2] / np.hypot(*LIGHT[:2]) * radius
    rim = 0.70711 * radius
    ball = "".join(stop(i / STOPS, shade(2 * i / STOPS - 1)) for i in range(STOPS + 1))
    shine = "".join(stop(i / 8, STAR, 0.6 * np.exp(-(i / 8 * 2) ** 2)) for i in range(8))
    halo = "".join(stop(i / 8, STAR, 0.5 * np.exp(-(i / 8 * 1.2 / 0.55) ** 2)) for i in range(8))
    return (f'<linearGradient id="ground" gradientUnits="userSpaceOnUse" x1="0" y1="0" x2="0" '
            f'y2="100">{stop(0, TOP)}{stop(1, BOTTOM)}</linearGradient>'
            f'<linearGradient id="ball" gradientUnits="userSpaceOnUse" '
            f'x1="{x - away[0]:.2f}" y1="{y - away[1]:.2f}" '
            f'x2="{x + away[0]:.2f}" y2="{y + away[1]:.2f}">{ball}</linearGradient>'
            f'<radialGradient id="shine" gradientUnits="userSpaceOnUse" '
            f'cx="{x + 0.7 * away[0]:.2f}" cy="{y + 0.7 * away[1]:.2f}" r="{0.55 * radius:.2f}">'
            f'{shine}{stop(1, STAR, 0.0)}</radialGradient>'
            f'<radialGradient id="halo" gradientUnits="userSpaceOnUse" cx="{x - rim:.2f}" '
            f'cy="{y - rim:.2f}" r="{1.2 * star_size:.2f}">{halo}{stop(1, STAR, 0.0)}'
            f'</radialGradient>')


def star(x, y, size):
    """Four points whose sides are parabolas, the curve of equal sums of square roots."""
    turns = ((0, -size), (size, 0), (0, size), (-size, 0))
    path = "".join(f" Q{x:.2f} {y:.2f} {x + dx:.2f} {y + dy:.2f}" for dx, dy in turns)
    return f'<path fill="{code(STAR)}" d="M{x - size:.2f} {y:.2f}{path}Z"/>'


def icon(ground, middle, radius, star_size):
    """The ground's outline is also where the halo ends."""
    rim = 0.70711 * radius
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="128" height="128" '
            f'viewBox="0 0 100 100"><defs>{gradients(middle, radius, star_size)}</defs>'
            f'{ground}<circle cx="{middle[0]}" cy="{middle[1]}" r="{radius}" fill="url(#ball)"/>'
            f'<circle cx="{middle[0]}" cy="{middle[1]}" r="{radius}" fill="url(#shine)"/>'
            f'<circle cx="{middle[0] - rim:.2f}" cy="{middle[1] - rim:.2f}" '
            f'r="{1.2 * star_size:.2f}" fill="url(#halo)"/>'
            f'{star(middle[0] - rim, middle[1] - rim, star_size)}</svg>\n').replace("><", ">\n<")


def application_icon():
    ground = ('<rect x="3" y="3" width="94" height="94" rx="20" fill="url(#ground)"/>'
              f'<path fill="none" stroke="{code(EDGE)}" stroke-opacity="0.5" stroke-width="0.8" '
              'd="M9.14 9.14A19.6 19.6 0 0 1 23 3.4H77A19.6 19.6 0 0 1 90.86 9.14"/>')
    return icon(ground, (54, 55), 31.5, 21.5)


def project_icon():
    ground = (f'<path fill="url(#ground)" stroke="{code(FOLD)}" stroke-width="1.2" '
              'd="M21 3.6H65L86.4 25V89A7.4 7.4 0 0 1 79 96.4H21A7.4 7.4 0 0 1 13.6 89V11'
              'A7.4 7.4 0 0 1 21 3.6Z"/>'
              f'<path fill="{code(FOLD)}" d="M65 3.6V25H86.4Z"/>')
    return icon(ground, (52.5, 60), 25, 17.5)


def main():
    for name, draw in (("Vesperine", application_icon), ("VEP", project_icon)):
        (PACKAGED / f"{name}.svg").write_text(draw(), encoding="utf-8")


if __name__ == "__main__":
    main()
