#!/usr/bin/env python3
"""Draws the satellite icon templates of CSatelliteImageLib (Python 3, standard library only).

Each template holds two square frames side by side: the satellite used in the position solution
on the left, not used on the right. Pure green (0, g, 0) is recoloured in the constellation's
colour with g as brightness, magenta (255, 0, 255) is transparent, anything else stays as drawn.

    python3 status/icons/draw_icons.py status/icons
"""
import struct
import sys
import zlib
from pathlib import Path

MAGENTA = (255, 0, 255)
OUTLINE = (24, 28, 32)     # dark, kept as drawn: the icon reads on light and coloured ground
WARNING = (232, 40, 16)    # the scintillation mark, kept as drawn


def green(level):
    return (0, level, 0)


BODY = green(255)          # the constellation's own colour
CORE = green(150)          # a used satellite's body, darker than its disc
PANEL = green(190)
PANEL_GRID = green(120)
HALO = green(255)          # the disc behind a used satellite

# Template numbers by size: (normal, alternate).
TEMPLATES = {16: (3114, 3795), 24: (3842, 3843), 32: (3448, 3796)}


class Canvas:
    def __init__(self, width, height):
        self.width, self.height = width, height
        self.pixels = [[MAGENTA] * width for _ in range(height)]

    def put(self, x, y, colour):
        if 0 <= x < self.width and 0 <= y < self.height:
            self.pixels[y][x] = colour

    def rect(self, x0, y0, x1, y1, colour):
        """Fills columns x0..x1 and rows y0..y1, inclusive."""
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                self.put(x, y, colour)

    def frame(self, x0, y0, x1, y1, colour):
        for x in range(x0, x1 + 1):
            self.put(x, y0, colour)
            self.put(x, y1, colour)
        for y in range(y0, y1 + 1):
            self.put(x0, y, colour)
            self.put(x1, y, colour)

    def disc(self, cx, cy, radius, colour):
        """Every pixel whose centre lies within `radius` of (cx, cy): no blur, no stray pixels."""
        for y in range(self.height):
            for x in range(self.width):
                if (x + 0.5 - cx) ** 2 + (y + 0.5 - cy) ** 2 <= radius * radius:
                    self.put(x, y, colour)

    def png(self):
        raw = b"".join(b"\0" + bytes(c for p in row for c in p) for row in self.pixels)

        def chunk(kind, data):
            body = kind + data
            return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


# Geometry per size, in pixels of one frame: each part as (x0, y0, x1, y1), inclusive. Drawn by
# hand for each size so that every edge falls on a pixel.
LAYOUT = {
    16: dict(panel_l=(0, 5, 4, 10), panel_r=(11, 5, 15, 10), body=(5, 4, 10, 11),
             strut_y=(7, 8), dish=(7, 1, 8, 3), halo=(8, 8, 8.0), zigzag_y=13, stroke=1),
    24: dict(panel_l=(0, 8, 7, 15), panel_r=(16, 8, 23, 15), body=(8, 6, 15, 17),
             strut_y=(11, 12), dish=(10, 2, 13, 5), halo=(12, 12, 12.0), zigzag_y=19, stroke=1),
    32: dict(panel_l=(0, 10, 9, 20), panel_r=(22, 10, 31, 20), body=(10, 7, 21, 23),
             strut_y=(14, 16), dish=(14, 2, 17, 6), halo=(16, 16, 16.0), zigzag_y=25, stroke=2),
}


def panel(c, box, fill):
    x0, y0, x1, y1 = box
    c.rect(x0, y0, x1, y1, OUTLINE)
    if fill:
        c.rect(x0 + 1, y0 + 1, x1 - 1, y1 - 1, PANEL)
        # Cell lines of the solar array.
        for x in range(x0 + 2, x1 - 1, 2 if x1 - x0 < 8 else 3):
            for y in range(y0 + 1, y1):
                c.put(x, y, PANEL_GRID)
    else:
        c.rect(x0 + 1, y0 + 1, x1 - 1, y1 - 1, MAGENTA)
        c.frame(x0, y0, x1, y1, BODY)


def satellite(c, size, used, shift):
    g = LAYOUT[size]

    def moved(box):
        return (box[0], box[1] + shift, box[2], box[3] + shift)

    if used:
        cx, cy, r = g["halo"]
        c.disc(cx, cy + shift, r, HALO)
    sy0, sy1 = g["strut_y"]
    bx0, by0, bx1, by1 = moved(g["body"])
    lx1 = g["panel_l"][2]
    rx0 = g["panel_r"][0]
    strut = BODY if not used else OUTLINE
    c.rect(lx1, sy0 + shift, bx0, sy1 + shift, strut)
    c.rect(bx1, sy0 + shift, rx0, sy1 + shift, strut)
    panel(c, moved(g["panel_l"]), used)
    panel(c, moved(g["panel_r"]), used)
    dx0, dy0, dx1, dy1 = moved(g["dish"])
    if used:
        c.rect(dx0, dy0, dx1, dy1, OUTLINE)
        c.rect(bx0, by0, bx1, by1, OUTLINE)
        c.rect(bx0 + 1, by0 + 1, bx1 - 1, by1 - 1, CORE)
    else:
        c.rect(dx0, dy0, dx1, dy1, BODY)
        c.rect(bx0, by0, bx1, by1, BODY)
        inner = g["stroke"]
        c.rect(bx0 + inner, by0 + inner, bx1 - inner, by1 - inner, MAGENTA)


def zigzag(c, size):
    """The scintillation mark: a jagged line along the bottom, under the satellite."""
    g = LAYOUT[size]
    y0 = g["zigzag_y"]
    amplitude = size - 1 - y0 - (g["stroke"] - 1)
    step = amplitude
    for x in range(size):
        phase = x % (2 * step)
        dy = phase if phase <= step else 2 * step - phase
        for t in range(g["stroke"]):
            c.put(x, y0 + dy + t, WARNING)


def template(size, alternate):
    c = Canvas(2 * size, size)
    for frame, used in ((0, True), (1, False)):
        sub = Canvas(size, size)
        shift = -2 * size // 16 if alternate else 0
        satellite(sub, size, used, shift)
        if alternate:
            zigzag(sub, size)
        for y in range(size):
            for x in range(size):
                c.pixels[y][frame * size + x] = sub.pixels[y][x]
    return c


def main():
    out = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent)
    for size, numbers in TEMPLATES.items():
        for alternate, number in enumerate(numbers):
            (out / f"{number}.png").write_bytes(template(size, bool(alternate)).png())


if __name__ == "__main__":
    main()
