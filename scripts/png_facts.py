"""Reads a PNG (8-bit RGB or RGBA, as GDI+ writes them) without third-party
modules and tells whether it shows something: a picture of a window that
was never drawn is one colour, or black."""
import struct
import zlib


def pixels(path):
    with open(path, "rb") as f:
        data = f.read()
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError("%s is not a PNG" % path)
    pos, idat, header = 8, b"", None
    while pos < len(data):
        length, kind = struct.unpack(">I4s", data[pos:pos + 8])
        body = data[pos + 8:pos + 8 + length]
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            idat += body
        pos += 12 + length
    width, height, depth, colour = header[:4]
    if depth != 8 or colour not in (2, 6):
        raise ValueError("%s: only 8-bit RGB or RGBA is read here" % path)
    step = 3 if colour == 2 else 4
    raw = zlib.decompress(idat)
    stride = width * step
    rows, previous = [], bytearray(stride)
    for y in range(height):
        kind = raw[y * (stride + 1)]
        line = bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for x in range(stride):
            a = line[x - step] if x >= step else 0
            b = previous[x]
            c = previous[x - step] if x >= step else 0
            if kind == 1:
                line[x] = (line[x] + a) & 255
            elif kind == 2:
                line[x] = (line[x] + b) & 255
            elif kind == 3:
                line[x] = (line[x] + (a + b) // 2) & 255
            elif kind == 4:
                p = a + b - c
                pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                line[x] = (line[x] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255
        rows.append(bytes(line))
        previous = line
    return width, height, step, rows


def looks_blank(path):
    """True when one colour covers nearly all of the picture, or black most of it."""
    width, height, step, rows = pixels(path)
    counts = {}
    for row in rows[::4]:
        for x in range(0, width * step, step * 4):
            key = row[x:x + 3]
            counts[key] = counts.get(key, 0) + 1
    total = sum(counts.values())
    top = max(counts.values())
    black = counts.get(b"\x00\x00\x00", 0)
    return len(counts) < 8 or top > 0.97 * total or black > 0.5 * total
