#!/usr/bin/env python3
"""Draws the PNG icons from the same shapes as data/desktop/halyard.svg (no image tools needed).

Usage: draw_icon.py OUTDIR  -> OUTDIR/halyard-48.png, -128.png, -256.png
"""
import struct
import sys
import zlib

BACK, POLE, FLAG = (0x1F, 0x3B, 0x5C), (0xE8, 0xE2, 0xCF), (0xD9, 0xA2, 0x27)


def inside_rounded(x, y):
    r, lo, hi = 40, 8, 248
    if not (lo <= x <= hi and lo <= y <= hi):
        return False
    cx = min(max(x, lo + r), hi - r)
    cy = min(max(y, lo + r), hi - r)
    return (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def inside_flag(x, y):
    # Triangle (78,48) (208,88) (78,128): right of the pole, between the two slanted edges.
    if x < 78:
        return False
    t = (x - 78) / 130.0
    return 48 + 40 * t <= y <= 128 - 40 * t


def colour_at(x, y):
    if not inside_rounded(x, y):
        return None
    if 66 <= x <= 78 and 30 <= y <= 230:
        return POLE
    if inside_flag(x, y):
        return FLAG
    return BACK


def pixel(size, px, py, samples=4):
    hits = []
    for sy in range(samples):
        for sx in range(samples):
            x = (px + (sx + 0.5) / samples) * 256.0 / size
            y = (py + (sy + 0.5) / samples) * 256.0 / size
            hits.append(colour_at(x, y))
    shown = [c for c in hits if c]
    if not shown:
        return (0, 0, 0, 0)
    rgb = tuple(sum(c[i] for c in shown) // len(shown) for i in range(3))
    return rgb + (255 * len(shown) // len(hits),)


def png(size):
    rows = b"".join(b"\0" + bytes(v for px in range(size) for v in pixel(size, px, py))
                    for py in range(size))

    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF))

    header = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


if __name__ == "__main__":
    for size in (48, 128, 256):
        with open(f"{sys.argv[1]}/halyard-{size}.png", "wb") as out:
            out.write(png(size))
