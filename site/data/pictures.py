"""Small PNG pictures, drawn pixel by pixel: a figure on a coloured tile with round corners."""

import colorsys
import math
import struct
import zlib

SIZE = 64


def png(pixels):
    """PNG of SIZE by SIZE pixels; `pixels` are bytes, four a pixel: red, green, blue, opacity."""

    def chunk(kind, content):
        checksum = zlib.crc32(kind + content)
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", checksum)

    stride = SIZE * 4
    lines = b"".join(b"\0" + pixels[start : start + stride] for start in range(0, len(pixels), stride))
    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(lines, 9))
        + chunk(b"IEND", b"")
    )


# Distances from the edge of a figure, in pixels, negative inside. (x, y) counts from the middle of the tile.


def box(x, y, half_width, half_height, corner):
    across, down = abs(x) - half_width + corner, abs(y) - half_height + corner
    return math.hypot(max(across, 0), max(down, 0)) + min(max(across, down), 0) - corner


def ring(x, y, radius, thickness):
    return abs(math.hypot(x, y) - radius) - thickness / 2


def leaf(x, y):
    along, aside = (x - y) * math.sqrt(0.5), abs((x + y) * math.sqrt(0.5))
    return math.hypot(along, aside + 14) - 23


def bean(x, y):
    stretched = math.hypot(x * 1.25, y) - 19
    return max(stretched, 2 - abs(x - 3 * math.sin(y / 6)))


def pot(x, y):
    return min(box(x + 3, y - 5, 14, 11, 7), ring(x - 13, y - 4, 7, 4), box(x + 3, y + 11, 4, 3, 2))


def cup(x, y):
    return min(box(x + 3, y, 13, 12, 5), ring(x - 11, y + 1, 7, 4))


def sheet(x, y):
    lines = min(box(x, y + 8, 9, 1.5, 1), box(x, y, 9, 1.5, 1), box(x + 3, y - 8, 6, 1.5, 1))
    return max(box(x, y, 15, 19, 3), -lines)


def pen(x, y):
    along, aside = (x - y) * math.sqrt(0.5), (x + y) * math.sqrt(0.5)
    return min(box(along - 4, aside, 15, 4, 1.5), max(abs(aside) - (along + 25) * 0.5, along + 13))


def cloth(x, y):
    return max(box(x, y, 17, 17, 2), 1.2 - abs((x + y) % 9 - 4.5), 1.2 - abs((x - y) % 9 - 4.5))


def jar(x, y):
    return min(box(x, y - 5, 14, 15, 5), box(x, y + 15, 12, 3, 1.5))


def person(x, y):
    return min(math.hypot(x, y + 8) - 10, max(math.hypot(x, y - 26) - 20, -y))


FIGURES = [leaf, bean, pot, cup, sheet, pen, cloth, jar]


def tile(figure, hue):
    """The picture of `figure` on a tile of the colour `hue` (0 to 1, around the colour circle)."""
    background = [255 * part for part in colorsys.hls_to_rgb(hue, 0.82, 0.38)]
    foreground = [255 * part for part in colorsys.hls_to_rgb(hue, 0.36, 0.42)]
    pixels = bytearray()
    for row in range(SIZE):
        for column in range(SIZE):
            x, y = column - SIZE / 2 + 0.5, row - SIZE / 2 + 0.5
            cover = min(max(0.5 - figure(x, y), 0), 1)
            opacity = min(max(0.5 - box(x, y, SIZE / 2, SIZE / 2, 14), 0), 1)
            mixed = [back + (front - back) * cover for back, front in zip(background, foreground)]
            pixels += bytes([*(round(part) for part in mixed), round(255 * opacity)])
    return png(bytes(pixels))
