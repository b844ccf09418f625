#!/usr/bin/env python3
"""Draws the program's icons as 32 x 32 PNG files into icons/, using only the standard library.

Each icon is painted on an 8-times larger canvas of coverage samples and averaged down, which
gives smooth edges. Run it again after changing a drawing: python3 draw_icons.py
"""
import math
import os
import struct
import zlib

SIZE = 32
SS = 8  # samples per pixel along each axis
N = SIZE * SS


class Canvas:
    def __init__(self):
        self.px = [[(0, 0, 0, 0)] * N for _ in range(N)]

    def paint(self, inside, color):
        """Sets every sample whose centre (in pixel units) satisfies inside(x, y)."""
        for j in range(N):
            y = (j + 0.5) / SS
            row = self.px[j]
            for i in range(N):
                if inside((i + 0.5) / SS, y):
                    row[i] = color

    def png(self, path):
        raw = bytearray()
        for y in range(SIZE):
            raw.append(0)
            for x in range(SIZE):
                r = g = b = a = 0
                for j in range(y * SS, (y + 1) * SS):
                    for i in range(x * SS, (x + 1) * SS):
                        pr, pg, pb, pa = self.px[j][i]
                        r += pr * pa
                        g += pg * pa
                        b += pb * pa
                        a += pa
                if a:
                    raw += bytes((r // a, g // a, b // a, a // (SS * SS)))
                else:
                    raw += bytes(4)

        def chunk(kind, data):
            body = kind + data
            return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

        header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
        with open(path, "wb") as f:
            f.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                    chunk(b"IDAT", zlib.compress(bytes(raw), 9)) + chunk(b"IEND", b""))


def rgb(h, a=255):
    return (int(h[1:3], 16), int(h[3:5], 16), int(h[5:7], 16), a)


def circle(cx, cy, r):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def ring(cx, cy, r_out, r_in):
    return lambda x, y: r_in * r_in <= (x - cx) ** 2 + (y - cy) ** 2 <= r_out * r_out


def rect(x0, y0, x1, y1):
    return lambda x, y: x0 <= x <= x1 and y0 <= y <= y1


def rounded(x0, y0, x1, y1, r):
    def inside(x, y):
        if not (x0 <= x <= x1 and y0 <= y <= y1):
            return False
        cx = min(max(x, x0 + r), x1 - r)
        cy = min(max(y, y0 + r), y1 - r)
        return (x - cx) ** 2 + (y - cy) ** 2 <= r * r
    return inside


def polygon(points):
    def inside(x, y):
        hit = False
        n = len(points)
        for k in range(n):
            (xa, ya), (xb, yb) = points[k], points[(k + 1) % n]
            if (ya > y) != (yb > y) and x < xa + (y - ya) * (xb - xa) / (yb - ya):
                hit = not hit
        return hit
    return inside


def line(xa, ya, xb, yb, w):
    dx, dy = xb - xa, yb - ya
    length = math.hypot(dx, dy)
    def inside(x, y):
        t = max(0.0, min(1.0, ((x - xa) * dx + (y - ya) * dy) / (length * length)))
        return math.hypot(x - (xa + t * dx), y - (ya + t * dy)) <= w / 2
    return inside


# A 5 x 7 pixel font for the few characters drawn on icons.
GLYPHS = {
    "1": ["..#..", ".##..", "..#..", "..#..", "..#..", "..#..", ".###."],
    "2": [".###.", "#...#", "....#", "...#.", "..#..", ".#...", "#####"],
    "3": ["####.", "....#", "....#", ".###.", "....#", "....#", "####."],
    "4": ["...#.", "..##.", ".#.#.", "#..#.", "#####", "...#.", "...#."],
    "5": ["#####", "#....", "####.", "....#", "....#", "#...#", ".###."],
    "6": [".###.", "#....", "#....", "####.", "#...#", "#...#", ".###."],
    "7": ["#####", "....#", "...#.", "..#..", ".#...", ".#...", ".#..."],
    "8": [".###.", "#...#", "#...#", ".###.", "#...#", "#...#", ".###."],
    "?": [".###.", "#...#", "....#", "...#.", "..#..", ".....", "..#.."],
    "i": ["..#..", ".....", ".##..", "..#..", "..#..", "..#..", ".###."],
    "V": ["#...#", "#...#", "#...#", "#...#", ".#.#.", ".#.#.", "..#.."],
}


def glyph(ch, x0, y0, cell):
    rows = GLYPHS[ch]
    def inside(x, y):
        c = int((x - x0) // cell)
        r = int((y - y0) // cell)
        return 0 <= r < 7 and 0 <= c < 5 and rows[r][c] == "#"
    return inside


def centred_glyph(ch, cx, cy, cell):
    """A glyph of whole-pixel cells centred on (cx, cy), snapped to the pixel grid."""
    return glyph(ch, round(cx - 2.5 * cell), round(cy - 3.5 * cell), cell)


def gear(cx, cy, r_body, r_teeth, teeth, r_hole):
    def inside(x, y):
        d = math.hypot(x - cx, y - cy)
        if d < r_hole:
            return False
        if d <= r_body:
            return True
        if d > r_teeth:
            return False
        a = (math.atan2(y - cy, x - cx) / (2 * math.pi) * teeth) % 1.0
        return 0.25 <= a <= 0.75
    return inside


def page(c, x0, y0, x1, y1):
    fold = 6
    outline = [(x0, y0), (x1 - fold, y0), (x1, y0 + fold), (x1, y1), (x0, y1)]
    c.paint(polygon(outline), rgb("#5a6470"))
    inner = [(x0 + 1.2, y0 + 1.2), (x1 - fold - 0.5, y0 + 1.2), (x1 - 1.2, y0 + fold + 0.5),
             (x1 - 1.2, y1 - 1.2), (x0 + 1.2, y1 - 1.2)]
    c.paint(polygon(inner), rgb("#ffffff"))
    c.paint(polygon([(x1 - fold, y0), (x1 - fold, y0 + fold), (x1, y0 + fold)]), rgb("#c8ced6"))


def text_lines(c, x0, x1, ys, color):
    for y in ys:
        c.paint(rect(x0, y, x1, y + 1.4), color)


def board(c, lit):
    """The relay board: a rounded panel with two rows of four lights."""
    c.paint(rounded(1, 3, 31, 29, 4), rgb("#1d3b5c"))
    c.paint(rounded(2.2, 4.2, 29.8, 27.8, 3), rgb("#2b5580"))
    for k in range(8):
        x = 7 + (k % 4) * 6
        y = 11 if k < 4 else 21
        c.paint(circle(x, y, 2.8), rgb("#0f2236"))
        c.paint(circle(x, y, 2.2), rgb("#46d35a") if k in lit else rgb("#9aa4ae"))
        c.paint(circle(x - 0.7, y - 0.8, 0.7), rgb("#ffffff", 170))


def icon_main(c):
    board(c, {0, 2, 5, 7})


def icon_stop(c):
    pts = [(16 + 15 * math.cos(math.radians(22.5 + 45 * k)),
            16 + 15 * math.sin(math.radians(22.5 + 45 * k))) for k in range(8)]
    c.paint(polygon(pts), rgb("#ffffff"))
    pts = [(16 + 13.3 * math.cos(math.radians(22.5 + 45 * k)),
            16 + 13.3 * math.sin(math.radians(22.5 + 45 * k))) for k in range(8)]
    c.paint(polygon(pts), rgb("#d32222"))
    c.paint(rect(7, 13.5, 25, 18.5), rgb("#ffffff"))


RELAY_COLOURS = ["#d9534f", "#f0ad4e", "#e6c229", "#5cb85c", "#2aa198", "#428bca", "#6f5bd6",
                 "#c45ab3"]


def icon_relay(n):
    def draw(c):
        c.paint(circle(16, 16, 14.5), rgb("#ffffff"))
        c.paint(circle(16, 16, 13.2), rgb(RELAY_COLOURS[n - 1]))
        c.paint(centred_glyph(str(n), 16, 16, 3), rgb("#ffffff"))
    return draw


def icon_about(c):
    c.paint(circle(16, 16, 14.5), rgb("#2f6fb3"))
    c.paint(centred_glyph("i", 16, 16, 3), rgb("#ffffff"))


def icon_configuration(c):
    c.paint(gear(16, 16, 10, 14, 8, 4.5), rgb("#56616d"))
    c.paint(ring(16, 16, 10, 8.8), rgb("#7b8794"))


def icon_help_configuration(c):
    c.paint(gear(16, 16, 10.5, 14.5, 8, 0), rgb("#56616d"))
    c.paint(circle(16, 16, 8.5), rgb("#e08a1e"))
    c.paint(centred_glyph("?", 16, 16, 2.0), rgb("#ffffff"))


def icon_help_general(c):
    c.paint(circle(16, 16, 14.5), rgb("#2e9d5b"))
    c.paint(centred_glyph("?", 16, 16, 3), rgb("#ffffff"))


def icon_log_delete(c):
    page(c, 5, 2, 25, 30)
    text_lines(c, 8, 20, [9, 13, 17, 21], rgb("#9aa4ae"))
    c.paint(circle(23, 23, 8), rgb("#ffffff"))
    c.paint(circle(23, 23, 7), rgb("#d32222"))
    c.paint(line(19.5, 19.5, 26.5, 26.5, 2.2), rgb("#ffffff"))
    c.paint(line(26.5, 19.5, 19.5, 26.5, 2.2), rgb("#ffffff"))


def icon_log_path(c):
    c.paint(rounded(2, 6, 14, 12, 1.5), rgb("#c98a12"))
    c.paint(rounded(2, 9, 30, 27, 2), rgb("#c98a12"))
    c.paint(rounded(3.2, 11.5, 28.8, 25.8, 1.5), rgb("#f2b53a"))
    c.paint(rect(3.2, 11.5, 28.8, 13), rgb("#f7cd6b"))


def icon_log_viewer(c):
    page(c, 4, 2, 24, 30)
    text_lines(c, 7, 19, [9, 13, 17, 21, 25], rgb("#2f6fb3"))
    c.paint(ring(22, 21, 6.5, 4.6), rgb("#37414b"))
    c.paint(circle(22, 21, 4.6), rgb("#d8ecff", 200))
    c.paint(line(26.5, 25.5, 30, 29, 3), rgb("#37414b"))


def icon_splash(c):
    c.paint(rounded(1, 1, 31, 31, 6), rgb("#1d3b5c"))
    c.paint(rounded(2.2, 2.2, 29.8, 29.8, 5), rgb("#2b5580"))
    c.paint(centred_glyph("V", 16, 13, 3), rgb("#ffffff"))
    for k in range(4):
        c.paint(circle(8.5 + k * 5, 26, 1.8), rgb("#46d35a") if k % 2 == 0 else rgb("#9aa4ae"))


def icon_time(c):
    c.paint(circle(16, 16, 14.8), rgb("#37414b"))
    c.paint(circle(16, 16, 12.8), rgb("#ffffff"))
    for k in range(12):
        a = math.radians(30 * k)
        r0 = 10 if k % 3 == 0 else 11
        c.paint(line(16 + r0 * math.sin(a), 16 - r0 * math.cos(a),
                     16 + 12 * math.sin(a), 16 - 12 * math.cos(a), 1.2), rgb("#37414b"))
    c.paint(line(16, 16, 16, 7.5, 2.2), rgb("#37414b"))
    c.paint(line(16, 16, 22, 19, 1.8), rgb("#37414b"))
    c.paint(circle(16, 16, 1.6), rgb("#d32222"))


ICONS = {
    101: icon_main,
    110: icon_stop,
    200: icon_about,
    205: icon_configuration,
    210: icon_help_configuration,
    215: icon_help_general,
    225: icon_log_delete,
    230: icon_log_path,
    235: icon_log_viewer,
    250: icon_splash,
    255: icon_time,
}
for n in range(1, 9):
    ICONS[120 + n] = icon_relay(n)


def main():
    out = os.path.join(os.path.dirname(os.path.abspath(__file__)), "icons")
    os.makedirs(out, exist_ok=True)
    for ident, draw in sorted(ICONS.items()):
        c = Canvas()
        draw(c)
        c.png(os.path.join(out, "%d.png" % ident))


if __name__ == "__main__":
    main()
