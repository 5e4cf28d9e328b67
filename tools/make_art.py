#!/usr/bin/env python3
"""Draws the vector art of Tavlon12 into data/art: the two built-in piece sets, the toolbar images, the application
icon and the emblem of the window, with the resource list art.qrc.

The output depends on nothing but this file, so a second run writes the same bytes. The drawings keep to what Qt's SVG
renderer does exactly: paths, gradients, transforms and opacity of single shapes. They use no filters, masks, clips,
style sheets or text.

Usage: tools/make_art.py [target folder]
"""

import math
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
    """One element. Underscores in attribute names stand for hyphens; numbers are written short; None is left out."""
    parts = [name]
    for key, value in attributes.items():
        if value is None:
            continue
        text = num(value) if isinstance(value, (int, float)) else value
        parts.append(f"{key.rstrip('_').replace('_', '-')}={quoteattr(text)}")
    head = " ".join(parts)
    return f"<{head}/>" if content is None else f"<{head}>{content}</{name}>"


def circle(radius, cx=0, cy=0, **attributes):
    return tag("circle", cx=cx, cy=cy, r=radius, **attributes)


def path(d, **attributes):
    return tag("path", d=d, **attributes)


def group(content, transform):
    return tag("g", "\n" + "\n".join(content) + "\n", transform=transform)


class Drawing:
    """Collects the shapes and gradients of one file."""

    def __init__(self, width, height):
        self.width = width
        self.height = height
        self.gradients = []
        self.shapes = []

    def add(self, *shapes):
        self.shapes.extend(shapes)

    def _gradient(self, kind, stops, **attributes):
        name = f"g{len(self.gradients) + 1}"
        inner = "".join(
            tag("stop", offset=stop[0], stop_color=stop[1], stop_opacity=stop[2] if len(stop) > 2 else None)
            for stop in stops
        )
        self.gradients.append(tag(kind, inner, id=name, gradientUnits="userSpaceOnUse", **attributes))
        return f"url(#{name})"

    def linear(self, start, end, *stops):
        """A paint that runs from start to end. A stop is (offset, colour) or (offset, colour, opacity)."""
        return self._gradient("linearGradient", stops, x1=start[0], y1=start[1], x2=end[0], y2=end[1])

    def radial(self, centre, radius, *stops):
        return self._gradient(
            "radialGradient", stops, cx=centre[0], cy=centre[1], r=radius, fx=centre[0], fy=centre[1]
        )

    def text(self):
        head = '<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
        head += f'width="{self.width}" height="{self.height}" viewBox="0 0 {self.width} {self.height}">'
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


def crown_shapes(drawing, material, width, outline, fine):
    """A crown centred on the origin."""
    unit = width / 50
    at = lambda x, y: f"{num(x * unit)},{num(y * unit)}"  # noqa: E731
    gold = drawing.linear((0, -20 * unit), (0, 20 * unit), (0, material.crown_lit), (1, material.crown))
    look = dict(fill=gold, stroke=material.crown_outline, stroke_width=outline, stroke_linejoin="round")
    points = [(-19, 9), (-23, -11), (-10.5, -1), (0, -18), (10.5, -1), (23, -11), (19, 9)]
    shapes = [path("M" + " L".join(at(x, y) for x, y in points) + " Z", **look)]
    shapes += [circle(3.6 * unit, x * unit, y * unit, **look) for x, y in ((-23, -12), (0, -19), (23, -12))]
    band = f"M{at(-19.5, 10)} L{at(19.5, 10)} L{at(19.5, 19)} L{at(-19.5, 19)} Z"
    shapes.append(path(band, **look))
    if fine:
        shapes += [
            circle(2.1 * unit, x * unit, 14.5 * unit, fill=colour)
            for x, colour in ((-10, "#fff6d8"), (0, "#b3261e"), (10, "#fff6d8"))
        ]
    return shapes


def disc_side(drawing, material, cx, cy, rx, ry, height, outline):
    """The wall of a disc whose face is the ellipse round (cx, cy)."""
    wall = drawing.linear(
        (cx - rx, 0), (cx + rx, 0),
        (0, material.side), (0.28, material.side_lit), (0.6, material.shade), (1, material.side),
    )  # fmt: skip
    arc = f"A{num(rx)},{num(ry)} 0 0 0 "
    d = f"M{num(cx - rx)},{num(cy)} V{num(cy + height)} {arc}{num(cx + rx)},{num(cy + height)} "
    d += f"V{num(cy)} {arc}{num(cx - rx)},{num(cy)} Z"
    return path(d, fill=wall, stroke=material.outline, stroke_width=outline, stroke_linejoin="round")


def disc_edge(drawing, material, cx, cy, rx, ry, turning):
    """The light on the upper edge of the lower disc, which parts the two discs of a king."""
    width = 0.6 * turning.rim
    top = cy + (turning.outline + width) / 2
    shine = drawing.linear(
        (cx - rx, 0), (cx + rx, 0),
        (0, material.rim, 0), (0.3, material.rim, 0.9), (0.7, material.rim, 0.7), (1, material.rim, 0),
    )  # fmt: skip
    d = f"M{num(cx - rx)},{num(top)} A{num(rx)},{num(ry)} 0 0 0 {num(cx + rx)},{num(top)}"
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
        shapes += crown_shapes(drawing, material, turning.crown * r, turning.outline, turning.fine)
    return shapes


def add_piece(drawing, material, turning, king, cx, cy, tilt=1.0):
    """Adds a piece whose lowest face lies round (cx, cy); tilt is the height of a circle's picture to its width."""
    r, h = turning.radius, turning.height
    levels = 2 if king else 1
    for level in range(levels):
        drawing.add(disc_side(drawing, material, cx, cy - (level + 1) * h, r, r * tilt, h, turning.outline))
    if king:
        drawing.add(disc_edge(drawing, material, cx, cy - h, r, r * tilt, turning))
    scale = "" if tilt == 1 else f" scale(1 {num(tilt)})"
    face = face_shapes(drawing, material, turning, king)
    drawing.add(group(face, f"translate({num(cx)} {num(cy - levels * h)}){scale}"))


def piece(material, turning, king):
    """A board image of a piece on a transparent ground."""
    drawing = Drawing(100, 100)
    levels = 2 if king else 1
    ground = 50 + levels * turning.height / 2
    # The shadow has faded out before the edge of the square, or neighbours would show where it is cut off.
    reach = min(48.5, 99.5 - ground - 1)
    dark = drawing.radial(
        (51, ground + 1), reach, (0, "#000000", 0.6), (0.8, "#000000", 0.5), (0.9, "#000000", 0.2), (1, "#000000", 0)
    )
    drawing.add(circle(reach, 51, ground + 1, fill=dark))
    add_piece(drawing, material, turning, king, 50, ground)
    return drawing


# --- Squares ---------------------------------------------------------------------------------------------------------


def wood_square(base, streak, light, strength, seed):
    """A plank cut across the square, with broad soft streaks of grain that run on past both edges."""
    drawing = Drawing(100, 100)
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
    drawing = Drawing(100, 100)
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


# --- Toolbar ---------------------------------------------------------------------------------------------------------

INK = "#34414e"
AMBER = "#e5a233"
CREAM = "#fffaf0"
WEIGHT = 1.7


def outlined(d, fill="none", **attributes):
    attributes = {"stroke": INK, "stroke_width": WEIGHT, **attributes}
    return path(d, fill=fill, stroke_linecap="round", stroke_linejoin="round", **attributes)


def dot(x, y, radius, fill, **attributes):
    return circle(radius, x, y, fill=fill, stroke=INK, stroke_width=WEIGHT, **attributes)


def box(x, y, width, height, radius, fill):
    return tag("rect", x=x, y=y, width=width, height=height, rx=radius, ry=radius, fill=fill, stroke=INK,
               stroke_width=WEIGHT, stroke_linejoin="round")  # fmt: skip


def small_board(x, y, edge, rows):
    """A board of so many rows, light in its upper left corner."""
    cell = edge / rows
    squares = [
        tag("rect", x=x + column * cell, y=y + row * cell, width=cell, height=cell, fill=INK)
        for row in range(rows)
        for column in range(rows)
        if (row + column) % 2 == 1
    ]
    return [tag("rect", x=x, y=y, width=edge, height=edge, fill=CREAM), *squares, box(x, y, edge, edge, 1.2, "none")]


def plus_badge(x, y):
    # The pale ring keeps the badge apart from whatever lies under it.
    return [
        circle(5.6, x, y, fill=CREAM),
        circle(4.7, x, y, fill=AMBER),
        outlined(f"M{num(x - 2.4)},{num(y)} H{num(x + 2.4)} M{num(x)},{num(y - 2.4)} V{num(y + 2.4)}"),
    ]


def person(x, fill):
    return [
        outlined(f"M{num(x - 4)},18.8 V17.2 C{num(x - 4)},11.5 {num(x + 4)},11.5 {num(x + 4)},17.2 V18.8 Z", fill),
        dot(x, 7.2, 2.9, fill),
    ]


def computer(x, fill):
    return [
        outlined(f"M{num(x)},14.5 V18.8 M{num(x - 2.7)},18.8 H{num(x + 2.7)}"),
        box(x - 4.7, 6, 9.4, 8.2, 1.2, fill),
    ]


def triangle(tip, base):
    return outlined(f"M{num(base)},5.5 L{num(tip)},12 L{num(base)},18.5 Z", AMBER)


def arc_arrow(cx, cy, radius, start, end):
    """An arc from one angle to the other, in degrees clockwise from the right, with an arrow head at its end."""
    at = lambda degrees, r: (  # noqa: E731
        cx + r * math.cos(math.radians(degrees)),
        cy + r * math.sin(math.radians(degrees)),
    )
    (x1, y1), (x2, y2) = at(start, radius), at(end, radius)
    inner, outer = at(end - 24, radius - 3.2), at(end - 24, radius + 3.2)
    arc = f"M{num(x1)},{num(y1)} A{num(radius)},{num(radius)} 0 0 1 {num(x2)},{num(y2)} "
    head = f"M{num(inner[0])},{num(inner[1])} L{num(x2)},{num(y2)} L{num(outer[0])},{num(outer[1])}"
    return outlined(arc + head)


TOOLBAR = {
    "new_game": [*small_board(2.6, 2.6, 15.6, 3), *plus_badge(17.8, 17.8)],
    "new_variant": [
        outlined("M5,2.4 H13 L17.6,7 V20 C17.6,20.9 17,21.5 16.1,21.5 H5 C4.1,21.5 3.5,20.9 3.5,20 V3.9 "
                 "C3.5,3 4.1,2.4 5,2.4 Z", CREAM),
        outlined("M13,2.6 V7 H17.4", AMBER),
        outlined("M7,11 H12.5 M7,14.5 H10.5 M7,18 H9.5"),
        *plus_badge(17.8, 17.8),
    ],
    "open": [
        outlined("M2.6,18.5 V6 C2.6,5.2 3.2,4.6 4,4.6 H8.6 L11,7.4 H17.6 C18.4,7.4 19,8 19,8.8 V10.6", CREAM),
        outlined("M2.7,18.9 L5.8,11.4 C6,10.9 6.5,10.6 7,10.6 H21.4 L18.3,18.3 C18.1,19 17.6,19.4 16.9,19.4 H3.2 Z",
                 AMBER),
    ],
    "save": [
        outlined("M3.2,4.6 C3.2,3.8 3.8,3.2 4.6,3.2 H16.8 L20.8,7.2 V19.4 C20.8,20.2 20.2,20.8 19.4,20.8 H4.6 "
                 "C3.8,20.8 3.2,20.2 3.2,19.4 Z", AMBER),
        outlined("M7.4,3.4 V8.6 H15.4 V3.4", CREAM),
        outlined("M6.8,20.6 V13.2 H17.2 V20.6", CREAM),
    ],
    "compute": [
        outlined("M8.5,2.6 V5 M12,2.6 V5 M15.5,2.6 V5 M8.5,19 V21.4 M12,19 V21.4 M15.5,19 V21.4 "
                 "M2.6,8.5 H5 M2.6,12 H5 M2.6,15.5 H5 M19,8.5 H21.4 M19,12 H21.4 M19,15.5 H21.4"),
        box(5.2, 5.2, 13.6, 13.6, 1.6, CREAM),
        outlined("M10,8.8 L15.2,12 L10,15.2 Z", AMBER, stroke_width=1.3),
    ],
    "cancel": [
        outlined("M8.2,2.8 H15.8 L21.2,8.2 V15.8 L15.8,21.2 H8.2 L2.8,15.8 V8.2 Z", INK),
        outlined("M8.6,8.6 L15.4,15.4 M15.4,8.6 L8.6,15.4", stroke=CREAM, stroke_width=2.4),
    ],
    "first": [outlined("M3.4,5.5 V18.5"), triangle(6.2, 12.6), triangle(13.8, 20.6)],
    "back": [triangle(6, 17)],
    "forward": [triangle(18, 7)],
    "last": [triangle(10.2, 3.4), triangle(17.8, 11.4), outlined("M20.6,5.5 V18.5")],
    "draw": [
        outlined("M3.6,6.2 L6.8,3.8 V12", stroke_width=2),
        outlined("M17.6,4.2 L6.4,19.8", stroke=AMBER, stroke_width=2),
        outlined("M13.8,14.6 C14.2,11.6 19.6,11.4 19.8,14.6 C19.9,16.8 14.6,18.6 13.8,20.6 H20.2", stroke_width=2),
    ],
    "resign": [
        outlined("M5.4,4.2 C9,2.2 12.2,6 15.6,4.8 C17.2,4.3 18.8,3.9 20.4,4.4 L18.2,8.9 L20.4,13.6 "
                 "C16.8,12.6 15,14.6 11.8,14.2 C9,13.8 8,12.4 5.4,13.6 Z", CREAM),
        outlined("M5.4,3 V21.4"),
    ],
    "hint": [
        outlined("M9.2,16.4 C9.2,13.8 5.8,12.8 5.8,8.8 C5.8,5.2 8.6,2.6 12,2.6 C15.4,2.6 18.2,5.2 18.2,8.8 "
                 "C18.2,12.8 14.8,13.8 14.8,16.4 Z", AMBER),
        outlined("M9.4,19 H14.6 M10.8,21.5 H13.2"),
        outlined("M9,8.8 C9,7.2 10.2,5.8 12,5.7", stroke=CREAM),
    ],
    "computer_player": [*computer(6.1, CREAM), *person(18, AMBER)],
    "player_player": [*person(6.4, CREAM), *person(17.6, AMBER)],
    "computer_computer": [*computer(6.1, CREAM), *computer(17.9, AMBER)],
    "options": [
        outlined("M3,6 H21 M3,12 H21 M3,18 H21"),
        dot(15.6, 6, 2.5, AMBER),
        dot(7.4, 12, 2.5, AMBER),
        dot(13, 18, 2.5, AMBER),
    ],
    "analyze": [
        outlined("M15.4,15.4 L21,21", stroke_width=2.8),
        dot(10, 10, 7.2, CREAM),
        outlined("M7,13.2 V10.8 M10,13.2 V6.6 M13,13.2 V9", stroke=AMBER, stroke_width=2),
    ],
    "turn_board": [
        *small_board(8, 8, 8, 2),
        arc_arrow(12, 12, 9.4, 195, 325),
        arc_arrow(12, 12, 9.4, 15, 145),
    ],
}  # fmt: skip


def toolbar_image(shapes):
    drawing = Drawing(24, 24)
    drawing.add(*shapes)
    return drawing


# --- Icon and emblem -------------------------------------------------------------------------------------------------

WALNUT = "#8f5c37"
MAPLE = "#efd6a8"
FRAME = "#4b2c18"


def icon():
    """The application icon: an ebony king on the corner of a board."""
    drawing = Drawing(256, 256)
    frame = drawing.linear((0, 8), (0, 248), (0, "#75472a"), (1, FRAME))
    drawing.add(tag("rect", x=4, y=4, width=248, height=248, rx=46, ry=46, fill=frame))
    wood = drawing.linear((0, 16), (0, 240), (0, "#a66c43"), (1, WALNUT))
    maple = drawing.linear((0, 16), (0, 240), (0, "#fae8c4"), (1, MAPLE))
    drawing.add(tag("rect", x=16, y=16, width=224, height=224, rx=35, ry=35, fill=maple))
    drawing.add(path("M128,16 H205 A35,35 0 0 1 240,51 V128 H128 Z", fill=wood))
    drawing.add(path("M128,240 H51 A35,35 0 0 1 16,205 V128 H128 Z", fill=wood))
    shadow = drawing.radial((132, 142), 98, (0, "#000000", 0.6), (0.84, "#000000", 0.5), (1, "#000000", 0))
    drawing.add(circle(98, 132, 142, fill=shadow))
    turning = Turning(
        radius=84, height=14, outline=3.5, rim=6, grooves=(), king_grooves=(0.8,), groove=2.4, crown=1.26, fine=True
    )
    add_piece(drawing, EBONY, turning, True, 128, 142)
    return drawing


def emblem():
    """The picture of the window: an ivory and an ebony king on a piece of the board, seen aslant."""
    drawing = Drawing(200, 180)
    centre_x, centre_y, half_x, half_y, thick = 100, 100, 96, 60, 17
    tilt = half_y / half_x
    corner = lambda u, v: (  # noqa: E731
        centre_x + (u - v) * half_x / 2,
        centre_y + (u + v - 2) * half_y / 2,
    )

    def patch(points, **look):
        return path("M" + " L".join(f"{num(x)},{num(y)}" for x, y in points) + " Z", **look)

    left, right, front, back = corner(0, 2), corner(2, 0), corner(2, 2), corner(0, 0)
    down = lambda point: (point[0], point[1] + thick)  # noqa: E731
    edge = dict(stroke="#3a2112", stroke_width=2, stroke_linejoin="round")
    drawing.add(patch([left, front, down(front), down(left)], fill="#6b4126", **edge))
    drawing.add(patch([front, right, down(right), down(front)], fill="#4f2f1a", **edge))
    drawing.add(patch([back, right, front, left], fill="#7d4d2d", **edge))
    margin, cells = 0.14, 4
    step = (2 - 2 * margin) / cells
    for row in range(cells):
        for column in range(cells):
            u, v = margin + column * step, margin + row * step
            drawing.add(
                patch([corner(u, v), corner(u + step, v), corner(u + step, v + step), corner(u, v + step)],
                      fill=MAPLE if (row + column) % 2 == 0 else WALNUT)
            )  # fmt: skip

    turning = Turning(
        radius=35, height=16, outline=1.6, rim=2.4, grooves=(), king_grooves=(0.79,), groove=1.3, crown=1.16, fine=True
    )
    for material, x, y in ((EBONY, 124, 86), (IVORY, 76, 116)):
        shade = drawing.radial((0, 0), 40, (0, "#000000", 0.6), (0.8, "#000000", 0.45), (1, "#000000", 0))
        drawing.add(group([circle(40, fill=shade)], f"translate({num(x + 2)} {num(y + 2)}) scale(1 {num(tilt)})"))
        add_piece(drawing, material, turning, True, x, y, tilt)
    return drawing


# --- Files -----------------------------------------------------------------------------------------------------------


def all_drawings():
    """Every picture by its path below the target folder."""
    drawings = {
        "small/dark_square.svg": stone_square("#5f7d6c", "#3f5a4b", "#8aa493", 5),
        "small/light_square.svg": stone_square("#e2dcc8", "#cbc2a8", "#f6f3e8", 11),
        "medium/dark_square.svg": wood_square(WALNUT, "#5c341a", "#b27a4c", 0.07, 3),
        "medium/light_square.svg": wood_square("#ead1a4", "#bf935a", "#f8e8c8", 0.045, 8),
    }
    for name, turning, black, white in (("small", BOLD, ONYX, MARBLE), ("medium", RICH, EBONY, IVORY)):
        for side, material in (("black", black), ("white", white)):
            drawings[f"{name}/{side}_man.svg"] = piece(material, turning, False)
            drawings[f"{name}/{side}_king.svg"] = piece(material, turning, True)
    for name, shapes in TOOLBAR.items():
        drawings[f"toolbar/{name}.svg"] = toolbar_image(shapes)
    drawings["icon.svg"] = icon()
    drawings["emblem.svg"] = emblem()
    return drawings


def resource_list(names):
    files = "".join(f'    <file alias="{name}">{name}</file>\n' for name in sorted(names))
    return f'<!DOCTYPE RCC>\n<RCC version="1.0">\n  <qresource prefix="/art">\n{files}  </qresource>\n</RCC>\n'


def main():
    if len(sys.argv) > 2:
        sys.exit(__doc__.strip().splitlines()[-1])
    target = Path(sys.argv[1]) if len(sys.argv) == 2 else Path(__file__).resolve().parent.parent / "data" / "art"
    drawings = all_drawings()
    for name, drawing in drawings.items():
        file = target / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(drawing.text(), encoding="utf-8")
    (target / "art.qrc").write_text(resource_list(drawings), encoding="utf-8")
    print(f"{len(drawings)} drawings in {target}")


if __name__ == "__main__":
    main()
