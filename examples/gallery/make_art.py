"""Writes the gallery's toolbar bitmaps: four 24 x 24 cells and the same at
48 x 48, one shape each on a magenta (transparent) background. They match
the SVG toolbar's 24-pixel icons: the menus take all command images at the
first toolbar's size.

Usage: make_art.py FOLDER
"""
import os
import struct
import sys

MAGENTA = (255, 0, 255)
COLOURS = [(52, 152, 219), (46, 204, 113), (231, 76, 60), (155, 89, 182)]


def inside(shape, u, v):
    # u, v in 0..1 across one cell.
    if shape == 0:  # a square
        return 0.2 <= u <= 0.8 and 0.2 <= v <= 0.8
    if shape == 1:  # a disc
        return (u - 0.5) ** 2 + (v - 0.5) ** 2 <= 0.12
    if shape == 2:  # a triangle
        return v >= 0.2 and v <= 0.85 and abs(u - 0.5) <= (v - 0.2) * 0.6
    return abs(u - 0.5) + abs(v - 0.5) <= 0.35  # a diamond


def write_bmp(path, cell):
    # 8 bits with a palette: the library masks magenta out of palette art.
    palette = [MAGENTA] + COLOURS
    width, height = 4 * cell, cell
    stride = (width + 3) & ~3
    rows = []
    for y in range(height - 1, -1, -1):
        row = bytearray()
        for x in range(width):
            shape = x // cell
            u, v = (x % cell + 0.5) / cell, (y + 0.5) / cell
            row.append(1 + shape if inside(shape, u, v) else 0)
        rows.append(bytes(row) + b"\0" * (stride - width))
    data = b"".join(rows)
    colours = b"".join(bytes((b, g, r, 0)) for r, g, b in palette)
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 8, 0, len(data), 2835, 2835, len(palette), 0)
    offset = 14 + len(header) + len(colours)
    with open(path, "wb") as f:
        f.write(b"BM" + struct.pack("<IHHI", offset + len(data), 0, 0, offset))
        f.write(header + colours + data)


def write_watermark(path, scale=1.0):
    # The wizard's watermark: the library's blue, lighter towards the bottom,
    # with a white band. The wizard draws it pixel for pixel, so there is
    # one for each DPI the gallery is shown at.
    width, height = int(164 * scale), int(314 * scale)
    band = (int(40 * scale), int(48 * scale))
    stride = (width * 3 + 3) & ~3
    rows = []
    for y in range(height - 1, -1, -1):
        t = y / (height - 1)
        colour = (int(20 + 60 * t), int(60 + 100 * t), int(120 + 100 * t))
        row = bytearray()
        for x in range(width):
            r, g, b = (250, 250, 250) if band[0] <= y < band[1] else colour
            row += bytes((b, g, r))
        rows.append(bytes(row) + b"\0" * (stride - width * 3))
    data = b"".join(rows)
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    with open(path, "wb") as f:
        f.write(b"BM" + struct.pack("<IHHI", 14 + len(header) + len(data), 0, 0, 14 + len(header)))
        f.write(header + data)


def main(folder):
    os.makedirs(folder, exist_ok=True)
    write_bmp(os.path.join(folder, "toolbar24.bmp"), 24)
    write_bmp(os.path.join(folder, "toolbar48.bmp"), 48)
    write_watermark(os.path.join(folder, "watermark.bmp"))
    write_watermark(os.path.join(folder, "watermark144.bmp"), 1.5)
    write_watermark(os.path.join(folder, "watermark192.bmp"), 2.0)


if __name__ == "__main__":
    main(sys.argv[1])
