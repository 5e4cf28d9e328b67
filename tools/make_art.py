#!/usr/bin/env python3
"""Draws the two built-in sets of pieces and squares into data/art. The toolbar's images, the icon and the emblem there
are edited by hand.

The output depends on nothing but this file, so a second run writes the same bytes; a test compares them. The drawings
keep to what Qt's SVG renderer does exactly: paths, gradients, transforms and opacity of single shapes.

Usage: tools/make_art.py [target folder]
"""

import random
import sys
from dataclasses import dataclass
from pathlib import Path
from xml.sax.saxutils import quoteattr


# --- Building blocks -------------------------------------------------------------------------------------------------


def num(value):
    """A coordinate with at most two decimals and no trailing zeros."""
    text = f"{value:.2f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def tag(name, content=None, **attributes):
    """One element. Underscores in attribute names are written as hyphens; numbers are written short."""
    parts = [name]
    for key, value in attributes.items():
        text = num(value) if isinstance(value, (int, float)) else value
        parts.append(f"{key.replace('_', '-')}={quoteattr(text)}")
    head = " ".join(parts)
    return f"<{head}/>" if content is None else f"<{head}>{content}</{name}>"


def circle(radius, cx=0, cy=0, **attributes):
    return tag("circle", cx=cx, cy=cy, r=radius, **attributes)


def path(d, **attributes):
    return tag("path", d=d, **attributes)


def polygon(*points, **attributes):
    return path("M" + " L".join(f"{num(x)},{num(y)}" for x, y in points) + " Z", **attributes)


class Drawing:
    """Collects the shapes and gradients of one square, 100 units wide and high."""

    def __init__(self):
        self.gradients = []
        self.shapes = []

    def add(self, *shapes):
        self.shapes.extend(shapes)

    def _gradient(self, kind, stops, **attributes):
        name = f"g{len(self.gradients) + 1}"
        inner = "".join(tag("stop", **dict(zip(("offset", "stop_color", "stop_opacity"), stop))) for stop in stops)
        self.gradients.append(tag(kind, inner, id=name, gradientUnits="userSpaceOnUse", **attributes))
        return f"url(#{name})"

    def linear(self, start, end, *stops):
        """A paint that runs from start to end. A stop is (offset, colour) or (offset, colour, opacity)."""
        return self._gradient("linearGradient", stops, x1=start[0], y1=start[1], x2=end[0], y2=end[1])

    def radial(self, centre, radius, *stops):
        cx, cy = centre
        return self._gradient("radialGradient", stops, cx=cx, cy=cy, r=radius, fx=cx, fy=cy)

    def text(self):
        head = '<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
        head += 'width="100" height="100" viewBox="0 0 100 100">'
        defs = [tag("defs", "\n" + "\n".join(self.gradients) + "\n")] if self.gradients else []
        return "\n".join([head, *defs, *self.shapes, "</svg>"]) + "\n"


# --- Pieces ----------------------------------------------------------------------------------------------------------


@dataclass(frozen=True)
class Material:
    """The colours of a turned piece, lit from the upper left."""

    lit: str  # face, towards the light
    face: str
    shade: str  # face, away from the light
    side_lit: str
    side: str
    outline: str
    rim: str  # the bevelled edge that sets the piece off from its square
    groove_dark: str
    groove_light: str
    sheen: float  # opacity of the reflection
    crown_lit: str
    crown: str
    crown_outline: str


IVORY = Material(
    lit="#fffdf4", face="#f6ead0", shade="#dcc59a", side_lit="#f3e3c0", side="#a98a58", outline="#5d4423",
    rim="#ffffff", groove_dark="#a5854f", groove_light="#fffef8", sheen=0.55,
    crown_lit="#ffc63c", crown="#c07a0a", crown_outline="#4f2d04",
)  # fmt: skip

EBONY = Material(
    lit="#5a4b43", face="#2f2623", shade="#17110f", side_lit="#54453d", side="#0d0908", outline="#080504",
    rim="#d8bd94", groove_dark="#080504", groove_light="#8d7763", sheen=0.26,
    crown_lit="#ffe58e", crown="#e9a71f", crown_outline="#2a1703",
)  # fmt: skip

MARBLE = Material(
    lit="#ffffff", face="#f7f4ea", shade="#dcd8c9", side_lit="#eeeade", side="#8f8c7f", outline="#383a35",
    rim="#ffffff", groove_dark="#8b8775", groove_light="#ffffff", sheen=0.4,
    crown_lit="#ffc22e", crown="#c87800", crown_outline="#4a2600",
)  # fmt: skip

ONYX = Material(
    lit="#4b4d4f", face="#26282a", shade="#121314", side_lit="#4a4c4e", side="#08090a", outline="#050606",
    rim="#d9d7cb", groove_dark="#060707", groove_light="#7f8284", sheen=0.2,
    crown_lit="#ffe27a", crown="#f0ad1c", crown_outline="#201200",
)  # fmt: skip


@dataclass(frozen=True)
class Turning:
    """How a piece is turned, in hundredths of the square's edge."""

    radius: float
    height: float  # of one disc; a king is two discs high
    outline: float
    rim: float
    grooves: tuple  # radii of the grooves in the face of a man, as shares of the piece's radius
    king_grooves: tuple
    groove: float
    crown: float  # width of the crown as a share of the piece's radius
    fine: bool  # sheen, jewels and a double line in each groove


BOLD = Turning(
    radius=40, height=6, outline=2.6, rim=3.4, grooves=(0.5,), king_grooves=(), groove=3.2, crown=1.24, fine=False
)
RICH = Turning(
    radius=40, height=6, outline=1.7, rim=2.2, grooves=(0.7, 0.56, 0.24), king_grooves=(0.79,), groove=1.5,
    crown=1.12, fine=True,
)  # fmt: skip


def crown_shapes(drawing, material, turning):
    """A crown centred on the origin."""
    unit = turning.crown * turning.radius / 50
    gold = drawing.linear((0, -20 * unit), (0, 20 * unit), (0, material.crown_lit), (1, material.crown))
    look = dict(fill=gold, stroke=material.crown_outline, stroke_width=turning.outline, stroke_linejoin="round")
    at = lambda *points: [(x * unit, y * unit) for x, y in points]  # noqa: E731
    shapes = [polygon(*at((-19, 9), (-23, -11), (-10.5, -1), (0, -18), (10.5, -1), (23, -11), (19, 9)), **look)]
    shapes += [circle(3.6 * unit, x, y, **look) for x, y in at((-23, -12), (0, -19), (23, -12))]
    shapes.append(polygon(*at((-19.5, 10), (19.5, 10), (19.5, 19), (-19.5, 19)), **look))
    if turning.fine:
        jewels = zip(at((-10, 14.5), (0, 14.5), (10, 14.5)), ("#fff6d8", "#b3261e", "#fff6d8"))
        shapes += [circle(2.1 * unit, x, y, fill=colour) for (x, y), colour in jewels]
    return shapes


def disc_side(drawing, material, turning, cy):
    """The wall of a disc whose face is the circle round (50, cy)."""
    r, left, right = turning.radius, 50 - turning.radius, 50 + turning.radius
    wall = drawing.linear(
        (left, 0), (right, 0),
        (0, material.side), (0.28, material.side_lit), (0.6, material.shade), (1, material.side),
    )  # fmt: skip
    arc = f"A{num(r)},{num(r)} 0 0 0 "
    d = f"M{num(left)},{num(cy)} V{num(cy + turning.height)} {arc}{num(right)},{num(cy + turning.height)} "
    d += f"V{num(cy)} {arc}{num(left)},{num(cy)} Z"
    return path(d, fill=wall, stroke=material.outline, stroke_width=turning.outline, stroke_linejoin="round")


def disc_edge(drawing, material, turning, cy):
    """The light on the upper edge of the lower disc, which parts the two discs of a king."""
    r, left, right = turning.radius, 50 - turning.radius, 50 + turning.radius
    width = 0.6 * turning.rim
    top = cy + (turning.outline + width) / 2
    shine = drawing.linear(
        (left, 0), (right, 0),
        (0, material.rim, 0), (0.3, material.rim, 0.9), (0.7, material.rim, 0.7), (1, material.rim, 0),
    )  # fmt: skip
    d = f"M{num(left)},{num(top)} A{num(r)},{num(r)} 0 0 0 {num(right)},{num(top)}"
    return path(d, fill="none", stroke=shine, stroke_width=width)


def face_shapes(drawing, material, turning, king):
    """The upper face of a piece, seen from straight above and centred on the origin."""
    r = turning.radius
    towards, away = (-0.7 * r, -0.7 * r), (0.7 * r, 0.7 * r)
    body = drawing.radial(
        (-0.4 * r, -0.45 * r), 1.55 * r, (0, material.lit), (0.45, material.face), (1, material.shade)
    )
    shapes = [circle(r, fill=body, stroke=material.outline, stroke_width=turning.outline)]
    edge = drawing.linear(towards, away, (0, material.rim, 1), (0.5, material.rim, 0.8), (1, material.rim, 0.55))
    rim_radius = r - (turning.outline + turning.rim) / 2
    shapes.append(circle(rim_radius, fill="none", stroke=edge, stroke_width=turning.rim))

    # A groove shows a dark wall towards the light and a bright one away from it.
    for share in turning.king_grooves if king else turning.grooves:
        wall = drawing.linear(
            towards, away, (0, material.groove_dark), (0.45, material.groove_dark, 0.8), (1, material.groove_light)
        )
        shapes.append(circle(share * r, fill="none", stroke=wall, stroke_width=turning.groove))
        if turning.fine:
            lip = drawing.linear(towards, away, (0, material.groove_light, 0.8), (1, material.groove_dark, 0.5))
            shapes.append(circle(share * r + turning.groove, fill="none", stroke=lip, stroke_width=0.8))

    if turning.fine:
        glow = drawing.radial((-0.36 * r, -0.46 * r), 0.6 * r, (0, "#ffffff", material.sheen), (1, "#ffffff", 0))
        shapes.append(circle(0.6 * r, -0.36 * r, -0.46 * r, fill=glow))
    if king:
        shapes += crown_shapes(drawing, material, turning)
    return shapes


def piece(material, turning, king):
    """A board image of a piece on a transparent ground."""
    drawing = Drawing()
    h = turning.height
    levels = 2 if king else 1
    ground = 50 + levels * h / 2
    # The shadow has faded out before the edge of the square, or neighbours would show where it is cut off.
    reach = min(48.5, 99.5 - ground - 1)
    dark = drawing.radial(
        (51, ground + 1), reach, (0, "#000000", 0.6), (0.8, "#000000", 0.5), (0.9, "#000000", 0.2), (1, "#000000", 0)
    )
    drawing.add(circle(reach, 51, ground + 1, fill=dark))
    drawing.add(*(disc_side(drawing, material, turning, ground - level * h) for level in range(1, levels + 1)))
    if king:
        drawing.add(disc_edge(drawing, material, turning, ground - h))
    face = "\n".join(["", *face_shapes(drawing, material, turning, king), ""])
    drawing.add(tag("g", face, transform=f"translate(50 {num(ground - levels * h)})"))
    return drawing


# --- Squares ---------------------------------------------------------------------------------------------------------


def wood_square(base, streak, light, strength, seed):
    """A plank cut across the square, with broad soft streaks of grain that run on past both edges."""
    drawing = Drawing()
    drawing.add(tag("rect", x=-20, y=-20, width=140, height=140, fill=base))
    chance = random.Random(seed)
    x = -14.0
    while x < 112:
        width = 3 + 6 * chance.random()
        sway = [(chance.random() - 0.5) * 7 for _ in range(4)]
        swell = [width * (0.45 + 0.8 * chance.random()) for _ in range(4)]
        left = [x + s for s in sway]
        right = [x + s + w for s, w in zip(sway, swell)]
        d = f"M{num(left[0])},-20 C{num(left[1])},27 {num(left[2])},73 {num(left[3])},120 "
        d += f"L{num(right[3])},120 C{num(right[2])},73 {num(right[1])},27 {num(right[0])},-20 Z"
        colour = light if chance.random() < 0.4 else streak
        drawing.add(path(d, fill=colour, fill_opacity=strength * (1 + chance.random())))
        x += width * (0.9 + 0.7 * chance.random())
    return drawing


def stone_square(base, vein, light, seed):
    """Polished stone: two or three faint clouds and veins."""
    drawing = Drawing()
    drawing.add(tag("rect", x=-20, y=-20, width=140, height=140, fill=base))
    chance = random.Random(seed)
    for index in range(4):
        cx, cy = 15 + 70 * chance.random(), 15 + 70 * chance.random()
        radius = 24 + 14 * chance.random()
        colour = light if index % 2 else vein
        cloud = drawing.radial((cx, cy), radius, (0, colour, 0.11), (1, colour, 0))
        drawing.add(circle(radius, cx, cy, fill=cloud))
    for _ in range(2):
        start, end = -10 + 120 * chance.random(), -10 + 120 * chance.random()
        bend = [start + (end - start) * t + 24 * (chance.random() - 0.5) for t in (0.33, 0.67)]
        d = f"M-20,{num(start)} C30,{num(bend[0])} 70,{num(bend[1])} 120,{num(end)}"
        drawing.add(path(d, fill="none", stroke=light, stroke_width=1.6, stroke_opacity=0.14))
    return drawing


# --- Files -----------------------------------------------------------------------------------------------------------


def all_drawings():
    """Every picture by its path below the target folder."""
    drawings = {
        "small/dark_square": stone_square("#5f7d6c", "#3f5a4b", "#8aa493", 5),
        "small/light_square": stone_square("#e2dcc8", "#cbc2a8", "#f6f3e8", 11),
        "medium/dark_square": wood_square("#8f5c37", "#5c341a", "#b27a4c", 0.07, 3),
        "medium/light_square": wood_square("#ead1a4", "#bf935a", "#f8e8c8", 0.045, 8),
    }
    for name, turning, black, white in (("small", BOLD, ONYX, MARBLE), ("medium", RICH, EBONY, IVORY)):
        for side, material in (("black", black), ("white", white)):
            drawings[f"{name}/{side}_man"] = piece(material, turning, False)
            drawings[f"{name}/{side}_king"] = piece(material, turning, True)
    return drawings


def main():
    if len(sys.argv) > 2:
        sys.exit(__doc__.strip().splitlines()[-1])
    target = Path(sys.argv[1]) if len(sys.argv) == 2 else Path(__file__).resolve().parent.parent / "data" / "art"
    drawings = all_drawings()
    for name, drawing in drawings.items():
        file = target / f"{name}.svg"
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(drawing.text(), encoding="utf-8")
    print(f"{len(drawings)} drawings in {target}")


if __name__ == "__main__":
    main()
