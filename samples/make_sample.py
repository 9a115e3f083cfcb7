#!/usr/bin/env python3
"""Writes samples/sample.pdf: eight A4 pages on which print settings show at a glance.

Usage: samples/make_sample.py      (needs rsvg-convert, package librsvg2-bin, and Liberation fonts)

Each page is drawn as SVG in millimetres and all become one PDF. Holes, staples and folds are at
true scale.
"""
import math
import os
import subprocess
import tempfile
from html import escape
from pathlib import Path

HERE = Path(__file__).resolve().parent
W, H = 210, 297
INK, BLUE, ORANGE, SHADE, MUTED = "#1d2733", "#2a6fdb", "#ee8522", "#e8edf4", "#5b6878"
PT = 0.3528  # mm


def text(x, y, points, words, fill=INK, weight="normal", anchor="start", extra=""):
    return (f'<text x="{x}" y="{y}" font-size="{points * PT:.3f}" fill="{fill}" '
            f'font-weight="{weight}" text-anchor="{anchor}" {extra}>{escape(words)}</text>')


def lines(x, y, points, words, leading=1.45, **style):
    return "".join(text(x, y + i * points * PT * leading, points, line, **style)
                   for i, line in enumerate(words))


def rect(x, y, w, h, fill="none", stroke="none", width=0.35, radius=0):
    return (f'<rect x="{x}" y="{y}" width="{w}" height="{h}" rx="{radius}" fill="{fill}" '
            f'stroke="{stroke}" stroke-width="{width}"/>')


def line(x1, y1, x2, y2, stroke=INK, width=0.35, dash=""):
    dashes = f'stroke-dasharray="{dash}"' if dash else ""
    return (f'<line x1="{x1:.3f}" y1="{y1:.3f}" x2="{x2:.3f}" y2="{y2:.3f}" stroke="{stroke}" '
            f'stroke-width="{width}" stroke-linecap="round" {dashes}/>')


def circle(x, y, r, fill="none", stroke="none", width=0.35):
    return f'<circle cx="{x}" cy="{y}" r="{r}" fill="{fill}" stroke="{stroke}" stroke-width="{width}"/>'


def path(d, fill="none", stroke="none", width=0.35):
    return (f'<path d="{d}" fill="{fill}" stroke="{stroke}" stroke-width="{width}" '
            f'stroke-linecap="round" stroke-linejoin="round"/>')


# What every page has: top mark, binding edge, number, title, what to try.

def binding_edge(number):
    """Where odd pages are bound on the left, even ones are on the right: a 2-sided sheet's edge."""
    x, inward = (4.5, 1) if number % 2 else (W - 4.5, -1)
    ticks = "".join(line(x, y, x + inward * (4 if y % 50 == 0 else 2), y, ORANGE, 0.5)
                    for y in range(25, 280, 5))
    turn = -90 if number % 2 else 90
    return line(x, 20, x, 277, ORANGE, 0.9) + ticks + text(
        0, 0, 7, "BINDING EDGE", ORANGE, "bold", "middle",
        f'letter-spacing="0.5" transform="translate({x + inward * 7} 128) rotate({turn})"')


def top_mark():
    return (path(f"M{W / 2 - 4} 11.5 L{W / 2} 5 L{W / 2 + 4} 11.5 Z", INK) +
            text(W / 2, 16, 7, "TOP", INK, "bold", "middle", 'letter-spacing="0.5"'))


def cross(x, y):
    return line(x - 3, y, x + 3, y, INK, 0.2) + line(x, y - 3, x, y + 3, INK, 0.2) + circle(
        x, y, 1.5, stroke=INK, width=0.2)


def try_box(settings):
    rows = "".join(
        circle(27, 256.1 + 6.2 * i, 1, ORANGE) +
        f'<text x="31" y="{257.3 + 6.2 * i}" font-size="{9.5 * PT:.3f}" fill="{INK}">'
        f'<tspan font-weight="bold">{escape(name)}</tspan><tspan dx="1.4">{escape(effect)}</tspan></text>'
        for i, (name, effect) in enumerate(settings))
    return (rect(20, 242, 170, 36, SHADE, radius=2) +
            text(26, 249.5, 8, "TRY ON THIS PAGE", MUTED, "bold", extra='letter-spacing="0.4"') + rows)


def page(number, title, subtitle, settings, drawing):
    corners = "".join(cross(x, y) for x in (14, W - 14) for y in (12, H - 10))
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{W}mm" height="{H}mm" '
            f'viewBox="0 0 {W} {H}" font-family="Liberation Sans">' +
            rect(0, 0, W, H, "#fff") + top_mark() + binding_edge(number) + corners +
            text(20, 41, 27, title, INK, "bold") + text(20, 50, 11.5, subtitle, MUTED) +
            text(190, 50, 88, str(number), BLUE, "bold", "end") +
            line(20, 56, 190, 56, INK, 0.5) + drawing + try_box(settings) +
            text(W / 2, 288, 7.5, f"Kalmo sample document  ·  page {number} of {len(PAGES)}", MUTED,
                 anchor="middle") + "</svg>")


def arrow_up(x, y, width, height, fill):
    half, neck = width / 2, width / 4
    head = y + height * 0.45
    return path(f"M{x} {y} L{x + half} {head} H{x + neck} V{y + height} H{x - neck} V{head} "
                f"H{x - half} Z", fill)


# The pages

def contents():
    rows = "".join(
        rect(20, 66 + 24 * i, 170, 20, SHADE if i % 2 else "#f5f7fa", radius=2) +
        text(36, 80.3 + 24 * i, 26, str(n), BLUE, "bold", "middle") +
        text(50, 74.4 + 24 * i, 13, title, INK, "bold") +
        text(50, 80.8 + 24 * i, 9.5, subtitle, MUTED)
        for i, (n, (title, subtitle, _, _)) in enumerate(list(enumerate(PAGES, 1))[1:]))
    return rows


def directions():
    labels = (text(105, 68, 12, "top edge", MUTED, "bold", "middle") +
              text(105, 235, 12, "bottom edge", MUTED, "bold", "middle") +
              text(0, 0, 12, "left edge", MUTED, "bold", "middle",
                   'transform="translate(26 150) rotate(-90)"') +
              text(0, 0, 12, "right edge", MUTED, "bold", "middle",
                   'transform="translate(184 150) rotate(90)"'))
    frame = rect(34, 73, 142, 154, "none", SHADE, 1.2, 3)
    return (frame + labels + arrow_up(105, 80, 78, 112, BLUE) +
            text(105, 152, 30, "UP", "#fff", "bold", "middle") +
            lines(105, 204, 11, ["Held against the light, the crosses in the corners of",
                                 "page 1 and page 2 lie on each other."],
                  fill=MUTED, anchor="middle"))


HOLES = {"2 holes": (BLUE, (-40, 40)), "3 holes": (ORANGE, (-108, 0, 108)),
         "4 holes": (INK, (-120, -40, 40, 120))}
STAPLES = {"1 staple": ((0.12, 0.09, -45),), "2 staples": ((0.05, 0.3, -90), (0.05, 0.7, -90)),
           "4 staples": tuple((0.05, share, -90) for share in (0.14, 0.38, 0.62, 0.86))}


def holes_at_true_scale():
    """Punched holes have their centres 12 mm from the edge and are 5.5 mm wide."""
    drawn = ""
    for label, (colour, distances) in reversed(HOLES.items()):
        shift = 3.5 if label == "4 holes" else 0
        drawn += "".join(
            circle(12, H / 2 + d, 2.75, "#fff", colour, 0.6) + cross_small(12, H / 2 + d, colour) +
            text(17, H / 2 + d + 1 + shift, 7, label[0], colour, "bold") for d in distances)
    return drawn


def cross_small(x, y, colour):
    return line(x - 4, y, x + 4, y, colour, 0.15) + line(x, y - 4, x, y + 4, colour, 0.15)


def small_sheet(x, y, label):
    return rect(x, y, 24, 34, "#f5f7fa", INK, 0.3, 1) + text(x + 12, y + 40, 9, label, INK,
                                                           anchor="middle")


def staple(x, y, angle):
    return (f'<g transform="translate({x} {y}) rotate({angle})">' +
            path("M-2 0.9 V0 H2 V0.9", stroke=INK, width=0.7) + "</g>")


def finishing():
    drawn = holes_at_true_scale() + text(24, 70, 11, "Hole punch", INK, "bold")
    for i, (label, (colour, distances)) in enumerate(HOLES.items()):
        drawn += small_sheet(24 + 29 * i, 74, label) + "".join(
            circle(27 + 29 * i, 91 + d * 34 / H, 0.9, "#fff", colour, 0.5) for d in distances)
    drawn += text(24, 129, 11, "Staples", INK, "bold")
    for i, (label, places) in enumerate(STAPLES.items()):
        drawn += small_sheet(24 + 29 * i, 133, label) + "".join(
            staple(24 + 29 * i + 24 * x, 133 + 34 * y, angle) for x, y, angle in places)
    drawn += lines(24, 190, 10, ["The circles along the orange edge are", "the holes at true scale: a punched A4",
                                 "sheet shows paper inside none of them.", "",
                                 "Blue: 2 holes, 80 mm apart.", "Orange: 3 holes, 108 mm apart.",
                                 "Black: 4 holes, with the blue ones."], fill=MUTED)
    return drawn + folds()


def folds():
    drawn = text(122, 70, 11, "Fold", INK, "bold")
    for i, (name, shares) in enumerate([("C fold", (1 / 3, 2 / 3)), ("Z fold", (1 / 3, 2 / 3)),
                                        ("Single fold", (1 / 2,))]):
        y = 76 + 54 * i
        drawn += rect(122, y, 68, 38, "#f5f7fa", INK, 0.3, 1)
        drawn += "".join(line(122 + 68 * s, y - 2, 122 + 68 * s, y + 40, BLUE, 0.5, "2 1.6")
                         for s in shares)
        drawn += text(122, y + 46, 9, name, INK) + fold_profile(name, 176, y + 45.5)
    return drawn


def fold_profile(name, x, y):
    shapes = {"C fold": f"M{x} {y} H{x + 14} L{x} {y - 2} L{x + 13} {y - 3.2}",
              "Z fold": f"M{x} {y} H{x + 14} L{x} {y - 2.4} H{x + 14}",
              "Single fold": f"M{x + 14} {y} H{x} L{x + 14} {y - 2.6}"}
    return path(shapes[name], stroke=ORANGE, width=0.6)


def gradient(name, stops, vertical=True):
    x2, y2 = (0, 1) if vertical else (1, 0)
    inner = "".join(f'<stop offset="{o}" stop-color="{c}"/>' for o, c in stops)
    return f'<linearGradient id="{name}" x1="0" y1="0" x2="{x2}" y2="{y2}">{inner}</linearGradient>'


def landscape():
    """A photograph's colours without a photograph: evening sky, hills, water."""
    hills = [(118, "#7d8fb3"), (124, "#566f94"), (131, "#37506f")]
    ridges = "".join(
        path(f"M20 {y} " + " ".join(
            f"Q{x + 8} {y - 7 - 3 * math.sin(x * 0.21 + i * 2)} {x + 17} {y + 2 * math.cos(x + i)}"
            for x in range(20, 190, 17)) + " V150 H20 Z", fill)
        for i, (y, fill) in enumerate(hills))
    return (f'<defs><clipPath id="photo">{rect(20, 63, 170, 84, "#000", radius=2)}</clipPath>' +
            gradient("sky", [(0, "#1d3f77"), (0.45, "#7b78b0"), (0.75, "#f2a07b"), (1, "#ffd9a0")]) +
            gradient("sea", [(0, "#d98f6a"), (0.3, "#6d6d8f"), (1, "#16263f")]) + "</defs>" +
            '<g clip-path="url(#photo)">' + rect(20, 63, 170, 70, "url(#sky)") +
            circle(128, 112, 9, "#fff1cf") + ridges + rect(20, 131, 170, 17, "url(#sea)") +
            "".join(line(128 - 9 + i, 133.5 + 2 * i, 128 + 9 - i, 133.5 + 2 * i, "#ffe3b0", 0.6)
                    for i in range(7)) + "</g>")


def colour():
    pure = [("Cyan", "#00a0e3"), ("Magenta", "#e5007d"), ("Yellow", "#ffec00"), ("Black", "#000"),
            ("Red", "#e2001a"), ("Green", "#009640"), ("Blue", "#312783"), ("Orange", "#ee8522")]
    swatches = "".join(
        rect(20 + 21.6 * i, 154, 18.8, 18, fill, radius=1.5) +
        text(29.4 + 21.6 * i, 177.5, 8, name, MUTED, anchor="middle")
        for i, (name, fill) in enumerate(pure))
    skins = ["#f8dcc8", "#e9bd9c", "#c98f6b", "#9c6644", "#6b4229", "#3f261a"]
    faces = "".join(rect(20 + 14.4 * i, 183, 12.4, 12, f, radius=1.5) for i, f in enumerate(skins))
    rainbow = [(i / 6, c) for i, c in enumerate(
        ["#e2001a", "#ffec00", "#009640", "#00a0e3", "#312783", "#e5007d", "#e2001a"])]
    hues = ("<defs>" + gradient("hues", rainbow, vertical=False) + "</defs>" +
            rect(110, 183, 80, 12, "url(#hues)", radius=1.5))
    told = (rect(20, 202, 82, 34, "#f5f7fa", radius=2) + rect(108, 202, 82, 34, "#f5f7fa", radius=2) +
            text(24, 211, 10, "In black and white these two", MUTED) +
            text(24, 216.5, 10, "can hardly be told apart:", MUTED) +
            text(24, 229, 22, "red", "#e2001a", "bold") + text(48, 229, 22, "green", "#00803a", "bold") +
            text(112, 211, 10, "Text in color and pure black:", MUTED) +
            text(112, 220, 13, "Kalmo", BLUE, "bold") + text(132, 220, 13, "Kalmo", ORANGE, "bold") +
            text(152, 220, 13, "Kalmo", "#000", "bold") +
            line(112, 227, 186, 227, "#777", 0.5) + line(112, 231, 186, 231, "#bbb", 0.5))
    return landscape() + swatches + faces + hues + told


def toner():
    steps = "".join(
        rect(20 + 15.45 * i, 72, 15.45, 26, f"rgb({v},{v},{v})") +
        text(27.7 + 15.45 * i, 103, 8, f"{i * 10} %", MUTED, anchor="middle")
        for i, v in enumerate(round(255 * (10 - i) / 10) for i in range(11)))
    ramp = ("<defs>" + gradient("ramp", [(0, "#fff"), (1, "#000")], vertical=False) + "</defs>" +
            rect(20, 108, 170, 14, "url(#ramp)", INK, 0.2))
    solids = (rect(20, 132, 52, 52, "#000") + rect(79, 132, 52, 52, BLUE) +
              rect(138, 132, 52, 52, ORANGE) +
              text(46, 160, 13, "white on black", "#fff", "bold", "middle") +
              text(105, 160, 13, "white on blue", "#fff", "bold", "middle") +
              text(164, 160, 13, "white on orange", "#fff", "bold", "middle"))
    pale = (text(20, 196, 10, "How pale may it be and still be read?", MUTED) +
            "".join(text(20 + 42.5 * i, 208, 16, f"{p} % black", grey, "bold")
                    for i, (p, grey) in enumerate([(10, "#e6e6e6"), (20, "#ccc"), (40, "#999"),
                                                   (60, "#666")])))
    lights = "".join(rect(20 + 28.6 * i, 216, 26, 20, f"hsl(215,{70}%,{96 - 9 * i}%)", radius=1.5)
                     for i in range(6))
    return text(20, 68, 10, "Gray from 0 to 100 %", MUTED) + steps + ramp + solids + pale + lights


def star(x, y, radius, rays):
    wedge = math.pi / rays
    point = lambda a: f"{x + radius * math.cos(a):.3f} {y + radius * math.sin(a):.3f}"
    return path(" ".join(f"M{x} {y} L{point(2 * i * wedge)} L{point((2 * i + 1) * wedge)} Z"
                         for i in range(rays)), INK)


def line_pairs(y, width):
    count = round(24 / (2 * width))
    bars = "".join(line(95 + 2 * width * i, y, 95 + 2 * width * i, y + 9, INK, width)
                   .replace("round", "butt") for i in range(count))
    return bars + text(92, y + 6, 8, f"{width} mm", MUTED, anchor="end")


def resolution():
    rings = "".join(circle(159, 98, 1.3 + 0.9 * i, stroke=INK, width=0.15) for i in range(34))
    pairs = "".join(line_pairs(68 + 12 * i, w) for i, w in enumerate([0.05, 0.1, 0.15, 0.25, 0.4]))
    small = "".join(text(20, y, p, f"{p} pt  The quick brown fox jumps over the lazy dog. 0123456789")
                    for p, y in [(2, 141), (3, 144), (4, 148), (5, 152.5), (6, 157.5), (8, 163.5),
                                 (10, 170.5), (12, 178.5)])
    slanted = "".join(line(20, 190 + 0.6 * i, 190, 186 + 2.6 * i, INK, 0.08 + 0.03 * i)
                      for i in range(12))
    thin = "".join(rect(20, 222 + 3.2 * i, 170, w, INK) for i, w in enumerate([0.03, 0.06, 0.12, 0.25, 0.5]))
    return star(48, 98, 28, 48) + pairs + rings + small + slanted + thin


def orientation_of_image():
    left = rect(20, 64, 82, 110, "#fff", INK, 0.5, 2) + text(61, 159.5, 320, "F", INK, "bold", "middle")
    right = rect(108, 64, 82, 110, INK, radius=2) + text(149, 159.5, 320, "R", "#fff", "bold", "middle")
    words = lines(20, 186, 12, ["In a mirror image these lines read from right to left,",
                                "as for film or iron-on paper. In a negative, the paper is",
                                "dark and the letters are light: the two halves above",
                                "change places, and blue turns into orange."], fill=INK)
    colours = rect(20, 216, 82, 20, BLUE, radius=2) + rect(108, 216, 82, 20, ORANGE, radius=2)
    return left + right + words + colours


def pages_per_sheet():
    def sheet(x, y, w, h, columns, rows, label):
        cell_w, cell_h = (w - 2) / columns, (h - 2) / rows
        cells = "".join(
            rect(x + 1 + cell_w * (i % columns) + 0.7, y + 1 + cell_h * (i // columns) + 0.7,
                 cell_w - 1.4, cell_h - 1.4, SHADE) +
            text(x + 1 + cell_w * (i % columns + 0.5), y + 1 + cell_h * (i // columns + 0.5) + 2,
                 15, str(i + 1), BLUE, "bold", "middle") for i in range(columns * rows))
        return rect(x, y, w, h, "#fff", INK, 0.4, 1) + cells + text(
            x + w / 2, y + h + 6, 10, label, MUTED, anchor="middle")
    return (sheet(22, 74, 59, 42, 2, 1, "2 pages per sheet") +
            sheet(92, 66, 42, 59, 2, 2, "4 pages per sheet") +
            sheet(145, 66, 42, 59, 2, 4, "8 pages per sheet") +
            line(20, 139, 190, 139, SHADE, 0.6) +
            text(20, 152, 16, "The last page", INK, "bold") +
            lines(20, 161, 11.5, [
                "The document has eight pages: 2, 4 or 8 on a sheet come out even, two-sided it is",
                "four sheets, as a booklet two sheets of A3 or two of A4 with half-size pages.",
                "A slip sheet after each copy, or a back cover, follows this page."], fill=MUTED) +
            copies())


def copies():
    """Copies of four sheets each in the output tray, seen from the front."""
    stack = lambda x, shift: "".join(
        rect(x + shift * (copy % 2), 226 - 5 * (4 * copy + sheet) / 2.5, 52, 1.3,
             BLUE if copy % 2 else INK, radius=0.5) for copy in range(4) for sheet in range(4))
    words = lambda x, name, told: text(x, 184, 11, name, INK, "bold") + text(x, 190, 9.5, told, MUTED)
    return (words(20, "Collated", "each copy runs from 1 to 8") + stack(20, 0) +
            words(110, "With an offset", "each copy lies beside the last") + stack(110, 16) +
            line(15, 229, 92, 229, INK, 0.5) + line(105, 229, 188, 229, INK, 0.5))


PAGES = [
    ("Print me", "One page for each group of settings. Print all, change one thing, print again.",
     [("Copies, page range", "the large blue numbers tell what came out"),
      ("Paper source, front cover", "this is the first page"),
      ("Banner sheet", "comes before it")], contents),
    ("Which way is up", "Orientation, two-sided printing, rotation.",
     [("2-sided", "page 1 has its orange edge on the other side: they meet"),
      ("Flip on short edge", "this page stands on its head behind page 1"),
      ("Landscape, rotate 180 degrees", "follow the arrow")], directions),
    ("Staple, punch, fold", "Positions at true scale on A4.",
     [("Hole punch", "the holes fall on the circles at the orange edge"),
      ("Staples", "one in the corner, two along the edge"),
      ("Fold", "the dashed lines are the creases")], finishing),
    ("Color", "Pure colors, mixed colors, a picture's colors.",
     [("Black and white", "nothing but gray is left"),
      ("Color correction, color spaces", "compare sky and skin tones"),
      ("Pure gray", "the gray lines lose their colored edge")], colour),
    ("Light and dark", "Toner saver and lightness.",
     [("Toner saver", "the solid areas turn pale"),
      ("Lightness", "count the gray steps that can still be told apart"),
      ("Gray lines", "pure black or made of all colors")], toner),
    ("Fine detail", "Resolution and print quality.",
     [("Resolution 600, 1200, 1800 dpi", "the gray core of the star shrinks"),
      ("Print quality", "the smallest line that can be read"),
      ("Toner saver", "the thinnest lines break first")], resolution),
    ("Mirror and negative", "Nothing on this page is symmetric.",
     [("Mirror image", "F and R look the other way"),
      ("Negative image", "black and white change places"),
      ("Both", "the R moves to the left and turns dark")], orientation_of_image),
    ("Many pages, many copies", "Pages per sheet, slip sheets, offset.",
     [("Pages per sheet", "eight pages fill the sheets evenly"),
      ("Slip sheets", "one after each copy, blank or printed"),
      ("Offset, output tray, back cover", "this is the last page")], pages_per_sheet),
]


def main():
    with tempfile.TemporaryDirectory() as folder:
        files = []
        for number, (title, subtitle, settings, drawing) in enumerate(PAGES, 1):
            files.append(Path(folder) / f"{number}.svg")
            files[-1].write_text(page(number, title, subtitle, settings, drawing()), encoding="utf-8")
        # A fixed date: the same drawing gives the same file.
        subprocess.run(["rsvg-convert", "-f", "pdf", "-o", HERE / "sample.pdf", *files], check=True,
                       env=os.environ | {"SOURCE_DATE_EPOCH": "1767225600"})


if __name__ == "__main__":
    main()
