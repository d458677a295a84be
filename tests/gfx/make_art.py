"""Writes the test art of the graphics tests into a folder.

Every picture is defined here pixel by pixel, so a test can say exactly
which colour it expects where.
"""
import os
import struct
import sys
import zlib

MAGENTA = (255, 0, 255)
# The four icons of a strip: red, green, blue, yellow.
STRIP = [(220, 20, 20), (20, 200, 20), (20, 20, 220), (230, 200, 10)]


def bmp(path, width, height, bits, pixel):
    """pixel(x, y) gives (r, g, b) or (r, g, b, a); rows stored bottom-up."""
    palette = b""
    if bits == 8:
        colours = sorted({pixel(x, y)[:3] for y in range(height) for x in range(width)})
        index = {c: i for i, c in enumerate(colours)}
        palette = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in colours)
    stride = (width * bits // 8 + 3) & ~3
    rows = []
    for y in reversed(range(height)):
        row = b""
        for x in range(width):
            p = pixel(x, y)
            if bits == 8:
                row += bytes([index[p[:3]]])
            elif bits == 24:
                row += bytes([p[2], p[1], p[0]])
            else:
                row += bytes([p[2], p[1], p[0], p[3] if len(p) > 3 else 255])
        rows.append(row + b"\0" * (stride - len(row)))
    data = b"".join(rows)
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, len(data), 2835, 2835,
                         len(palette) // 4, 0)
    offset = 14 + len(header) + len(palette)
    with open(path, "wb") as f:
        f.write(b"BM" + struct.pack("<IHHI", offset + len(data), 0, 0, offset))
        f.write(header + palette + data)


def png(path, width, height, pixel):
    raw = b"".join(b"\0" + b"".join(bytes(pixel(x, y)) for x in range(width)) for y in range(height))

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n")
        f.write(chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)))
        f.write(chunk(b"IDAT", zlib.compress(raw)))
        f.write(chunk(b"IEND", b""))


def ico(path, size, pixel):
    xor = b"".join(b"".join(bytes([pixel(x, y)[2], pixel(x, y)[1], pixel(x, y)[0], pixel(x, y)[3]])
                            for x in range(size)) for y in reversed(range(size)))
    mask_stride = ((size + 31) // 32) * 4
    mask = b"\0" * (mask_stride * size)
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(xor) + len(mask), 0, 0, 0, 0)
    image = header + xor + mask
    with open(path, "wb") as f:
        f.write(struct.pack("<HHH", 0, 1, 1))
        f.write(struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), 6 + 16))
        f.write(image)


def strip(scale):
    cell = 16 * scale

    def pixel(x, y):
        return STRIP[x // cell]
    return pixel


def main(folder):
    os.makedirs(folder, exist_ok=True)
    bmp(os.path.join(folder, "strip16.bmp"), 64, 16, 24, strip(1))
    bmp(os.path.join(folder, "strip32.bmp"), 128, 32, 24, strip(2))
    # Left half magenta, right half grey: for masking.
    half = lambda x, y: MAGENTA if x < 2 else (128, 128, 128)
    bmp(os.path.join(folder, "pal8.bmp"), 4, 4, 8, half)
    bmp(os.path.join(folder, "rgb24.bmp"), 4, 4, 24, half)
    # Opaque red on the left, half-transparent green on the right.
    bmp(os.path.join(folder, "alpha32.bmp"), 16, 16, 32,
        lambda x, y: (255, 0, 0, 255) if x < 8 else (0, 255, 0, 128))
    # Pure red, green, blue and white, for luminance.
    colours = [(255, 0, 0, 255), (0, 255, 0, 255), (0, 0, 255, 255), (255, 255, 255, 255)]
    png(os.path.join(folder, "colours.png"), 4, 1, lambda x, y: colours[x])
    ico(os.path.join(folder, "alpha.ico"), 16, lambda x, y: (0, 0, 255, 255) if y < 8 else (255, 0, 0, 64))
    # Three 20-pixel cells, red, green and blue, for PNG toolbars.
    rgb = [(255, 0, 0, 255), (0, 255, 0, 255), (0, 0, 255, 255)]
    png(os.path.join(folder, "strip20.png"), 60, 20, lambda x, y: rgb[x // 20])
    # Sixteen toolbar buttons at 16 and 32 pixels, for the benchmarks.
    bmp(os.path.join(folder, "toolbar16.bmp"), 256, 16, 24, lambda x, y: STRIP[(x // 16) % len(STRIP)])
    bmp(os.path.join(folder, "toolbar32.bmp"), 512, 32, 24, lambda x, y: STRIP[(x // 32) % len(STRIP)])
    with open(os.path.join(folder, "toolbar.svg"), "w") as f:
        f.write('<svg xmlns="http://www.w3.org/2000/svg" width="256" height="16">'
                + "".join('<circle cx="%d" cy="8" r="6" fill="currentColor"/><rect x="%d" y="2" width="4" height="12"/>'
                          % (16 * i + 8, 16 * i + 2) for i in range(16))
                + "</svg>")
    with open(os.path.join(folder, "strip.svg"), "w") as f:
        f.write('<svg xmlns="http://www.w3.org/2000/svg" width="64" height="16">'
                + "".join('<rect x="%d" y="0" width="16" height="16" fill="currentColor"/>' % (16 * i)
                          for i in range(4))
                + "</svg>")


if __name__ == "__main__":
    main(sys.argv[1])
