#!/usr/bin/env python3
"""tools/make_skins.py [folder]: draws the skins into data/skins, or into the folder: four characters in both sizes of board.

A picture is a list of layers, each a procedure that gives a colour and how much it covers at a point of a square from
(-1, -1) to (1, 1); the script samples them nine times a pixel. Standard library."""

import math
import pathlib
import struct
import sys
import zlib

SIZES = {"Small": (38, 0), "Medium": (54, 2)}  # pixels of a square, and the number of the board's geometry
SAMPLES = 3
PIECES = [(side, kind) for side in ("white", "black") for kind in ("man", "king")]


# --- Points, colours, layers ---------------------------------------------------------------------------------------------


def mix(a, b, share):
    return tuple(x + (y - x) * share for x, y in zip(a, b))


def colour(text):
    return tuple(int(text[i:i + 2], 16) for i in (0, 2, 4))


def smooth(low, high, x):
    share = min(1.0, max(0.0, (x - low) / (high - low)))
    return share * share * (3 - 2 * share)


def lattice(x, y, seed):
    number = (x * 374761393 + y * 668265263 + seed * 974634777) & 0xFFFFFFFF
    number = ((number ^ (number >> 13)) * 1274126177) & 0xFFFFFFFF
    return ((number ^ (number >> 16)) & 0xFFFF) / 65535


def noise(x, y, seed):
    """Smooth noise from 0 to 1 over a lattice of whole numbers."""
    left, below = math.floor(x), math.floor(y)
    u, v = smooth(0, 1, x - left), smooth(0, 1, y - below)
    rows = [lattice(left, below + d, seed) * (1 - u) + lattice(left + 1, below + d, seed) * u for d in (0, 1)]
    return rows[0] * (1 - v) + rows[1] * v


def plain(shade):
    return lambda x, y: (shade, 1.0)


def wood(dark, light, seed):
    def layer(x, y):
        grain = noise(1.6 * x + 9, 14 * y + 2.5 * noise(1.3 * x, 2 * y, seed), seed)
        return mix(dark, light, 0.25 + 0.5 * grain + 0.25 * noise(30 * y, 3 * x, seed + 1)), 1.0
    return layer


def marble(ground, vein, seed):
    def layer(x, y):
        bend = 1.8 * noise(2 * x + 5, 2 * y + 5, seed) + 0.7 * noise(5 * x, 5 * y, seed + 1)
        line = 1 - smooth(0.0, 0.16, abs(math.sin(2.2 * (x - 0.6 * y + bend))))
        return mix(ground, vein, 0.15 * noise(4 * x, 4 * y, seed + 2) + 0.6 * line), 1.0
    return layer


def hatched(paper, ink):
    return lambda x, y: (ink if math.floor((x + y) * 7) % 2 == 0 else paper, 1.0)


def disc(radius, shade, centre=(0.0, 0.0), light=0.0, dark=0.0):
    """A round face, brighter towards the upper left and darker towards its rim."""
    def layer(x, y):
        dx, dy = x - centre[0], y - centre[1]
        distance = math.hypot(dx, dy) / radius
        if distance > 1:
            return shade, 0.0
        face = mix(shade, (255, 255, 255), light * max(0.0, 0.6 - 0.5 * (dx + dy) / radius) * (1 - distance ** 4))
        return mix(face, (0, 0, 0), dark * distance ** 6), 1.0
    return layer


def ring(outer, inner, shade, cover=1.0, centre=(0.0, 0.0)):
    def layer(x, y):
        return shade, cover if inner <= math.hypot(x - centre[0], y - centre[1]) <= outer else 0.0
    return layer


def shadow(radius):
    def layer(x, y):
        return (0, 0, 0), 0.45 * (1 - smooth(radius * 0.86, radius * 1.12, math.hypot(x - 0.06, y - 0.08)))
    return layer


def crown(shade, size=0.46):
    """Three points over a band."""
    def layer(x, y):
        u, v = x / size, y / size
        band = abs(u) <= 0.8 and 0.5 <= v <= 0.8
        points = abs(u) <= 0.85 and abs(math.sin(math.pi * u / 0.85)) - 0.75 <= v <= 0.4
        return shade, 1.0 if band or points else 0.0
    return layer


# --- Skins -----------------------------------------------------------------------------------------------------------------


def turned(face, rim, groove, mark, king):
    """A man turned on a lathe; a king bears a crown."""
    layers = [shadow(0.82), disc(0.8, rim, dark=0.5), disc(0.74, face, light=0.45, dark=0.35)]
    if king:
        return layers + [ring(0.62, 0.57, groove, 0.7), crown(mark)]
    return layers + [ring(r, r - 0.05, groove, 0.6) for r in (0.6, 0.42, 0.24)]


def bold(face, edge, mark, king):
    layers = [disc(0.86, edge), disc(0.7, face)]
    return layers + ([crown(mark, 0.58)] if king else [ring(0.34, 0.2, edge)])


def printed(face, king):
    ink = (20, 20, 20)
    places = [(0.0, 0.14), (0.0, -0.14)] if king else [(0.0, 0.0)]
    radius = 0.62 if king else 0.7
    return [layer for place in places
            for layer in (disc(radius, ink, place), disc(radius - 0.09, (245, 245, 240) if face != ink else face, place),
                          ring(radius - 0.16, radius - 0.2, (245, 245, 240), 1.0 if face == ink else 0.0, place))]


def walnut_piece(side, king):
    if side == "white":
        return turned(colour("E9CF9F"), colour("B98F57"), colour("A87C46"), colour("7A4A1C"), king)
    return turned(colour("3A2A20"), colour("1B120D"), colour("8A6A4A"), colour("D9B36A"), king)


def marble_piece(side, king):
    if side == "white":
        return turned(colour("F4EFE4"), colour("BDB4A2"), colour("A89C86"), colour("8C6B2F"), king)
    return turned(colour("7B1F24"), colour("3C0D10"), colour("C97F7F"), colour("F0C24B"), king)


def bold_piece(side, king):
    if side == "white":
        return bold((255, 255, 255), (0, 0, 0), (0, 0, 0), king)
    return bold((0, 0, 0), (255, 225, 0), (255, 225, 0), king)


def printed_piece(side, king):
    return printed((255, 255, 255) if side == "white" else (20, 20, 20), king)


# Name: dark square, light square, pieces, colours of the boxes on dark and on light squares.
SKINS = {
    "Walnut": (wood(colour("5A3A22"), colour("85583A"), 3), wood(colour("D2AC79"), colour("EBCFA2"), 8), walnut_piece,
               ("FFE36A", "7A3B12")),
    "Marble": (marble(colour("5E7468"), colour("B9C9BF"), 5), marble(colour("EDEBE6"), colour("A9A7A4"), 9), marble_piece,
               ("FFF07A", "8A1A1A")),
    "High Contrast": (plain(colour("2B62B8")), plain((255, 255, 255)), bold_piece, ("FFFF00", "D00000")),
    "Printed Diagram": (hatched(colour("F5F5F0"), colour("A9A9A4")), plain(colour("F5F5F0")), printed_piece,
                        ("C00000", "C00000")),
}


# --- Pictures ------------------------------------------------------------------------------------------------------------------


def sample(layers, x, y):
    """Colour and cover of the layers over each other at a point."""
    shade, cover = (0.0, 0.0, 0.0), 0.0
    for layer in layers:
        above, share = layer(x, y)
        if share == 0:
            continue
        total = share + cover * (1 - share)
        shade = tuple((a * share + s * cover * (1 - share)) / total for a, s in zip(above, shade))
        cover = total
    return shade, cover


def pixel(layers, column, row, size):
    red = green = blue = cover = 0.0
    for i in range(SAMPLES * SAMPLES):
        x = (column + (i % SAMPLES + 0.5) / SAMPLES) / size * 2 - 1
        y = (row + (i // SAMPLES + 0.5) / SAMPLES) / size * 2 - 1
        shade, share = sample(layers, x, y)
        red, green, blue, cover = red + shade[0] * share, green + shade[1] * share, blue + shade[2] * share, cover + share
    whole = cover or 1.0
    return bytes((round(red / whole), round(green / whole), round(blue / whole), round(255 * cover / SAMPLES ** 2)))


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(layers, size):
    rows = b"".join(b"\0" + b"".join(pixel(layers, column, row, size) for column in range(size)) for row in range(size))
    head = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")


def box_number(text):
    red, green, blue = colour(text)
    return red + 256 * green + 65536 * blue


def write_skin(folder, name, size_name):
    size, geometry = SIZES[size_name]
    dark, light, piece, boxes = SKINS[name]
    pictures = folder / f"{name} {size_name}"
    pictures.mkdir(parents=True, exist_ok=True)
    lines = [f"{name} {size_name}", f"BoardCustomSize={geometry}", f"dark_highlight={box_number(boxes[0])}",
             f"light_highlight={box_number(boxes[1])}"]

    def draw(key, layers):
        (pictures / f"{key}.png").write_bytes(png(layers, size))
        lines.append(f"{key}={key}.png")

    for ground, square in (("dark", dark), ("light", light)):
        draw(f"{ground}_square", [square])
        for side, kind in PIECES:
            draw(f"{ground}_{side}_{kind}", [square] + piece(side, kind == "king"))
    for side, kind in PIECES:
        draw(f"{side}_{kind}_ico", piece(side, kind == "king"))
    (folder / f"{name} {size_name}.ini").write_bytes("\r\n".join(lines + ["END", ""]).encode("ascii"))


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else root / "data" / "skins"
    for name in SKINS:
        for size_name in SIZES:
            write_skin(folder, name, size_name)


if __name__ == "__main__":
    main()
