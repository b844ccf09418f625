#!/usr/bin/env python3
"""Draws the program's icon for the applications menu into icons/, as vantrellion-<size>.png at
the sizes of the hicolor theme. The drawing is the main window's icon (resource 101) of
desktop/resources/draw_icons.py, painted again at each size so that it stays sharp.

Run it again after changing that drawing: python3 draw_app_icons.py
"""
import os
import struct
import sys
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "desktop", "resources"))
import draw_icons  # noqa: E402

SIZES = [16, 22, 24, 32, 48, 64, 128, 256]
DESIGN = 32  # the drawings are made on a 32-unit square


class SizedCanvas:
    """Coverage samples of one size; at most 512 samples along each side."""

    def __init__(self, size):
        self.size = size
        self.ss = max(2, 512 // size)
        self.n = size * self.ss
        self.px = [[(0, 0, 0, 0)] * self.n for _ in range(self.n)]

    def paint(self, inside, color):
        unit = DESIGN / self.n
        for j in range(self.n):
            y = (j + 0.5) * unit
            row = self.px[j]
            for i in range(self.n):
                if inside((i + 0.5) * unit, y):
                    row[i] = color

    def png(self, path):
        ss, size = self.ss, self.size
        raw = bytearray()
        for y in range(size):
            raw.append(0)
            for x in range(size):
                r = g = b = a = 0
                for j in range(y * ss, (y + 1) * ss):
                    for pr, pg, pb, pa in self.px[j][x * ss:(x + 1) * ss]:
                        r += pr * pa
                        g += pg * pa
                        b += pb * pa
                        a += pa
                raw += bytes((r // a, g // a, b // a, a // (ss * ss))) if a else bytes(4)

        def chunk(kind, data):
            body = kind + data
            return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

        header = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
        with open(path, "wb") as f:
            f.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                    chunk(b"IDAT", zlib.compress(bytes(raw), 9)) + chunk(b"IEND", b""))


def main():
    out = os.path.join(HERE, "icons")
    os.makedirs(out, exist_ok=True)
    for size in SIZES:
        c = SizedCanvas(size)
        draw_icons.icon_main(c)
        c.png(os.path.join(out, "vantrellion-%d.png" % size))


if __name__ == "__main__":
    main()
