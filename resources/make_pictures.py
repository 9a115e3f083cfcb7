#!/usr/bin/env python3
"""Writes the pictures of the panels Paper/Output and Special Pages, of their dialogs, of the fax
dialogs and of the About box from the shapes and tables below.

Usage: resources/make_pictures.py        (Python 3, nothing else; writes into the source tree)

A picture is a run of shapes on a 64 x 64 grid, back to front, with 2-unit round strokes and five
colours; papers add the colours they come in. Only what SVG Tiny 1.2 can do is used, since that is
all the panel draws: no clip paths, no style sheets, no fonts.
"""
from pathlib import Path
from xml.sax.saxutils import escape

FOLDER = Path(__file__).resolve().parent / "KalmoFeatures.plugin/Contents/Resources"

INK, PAPER, BLUE, ORANGE, SHADE = "#46596b", "#fdfdfb", "#2f7fd6", "#f08a2c", "#c7d2dc"

# Shapes. Each gives SVG text. What names no stroke is outlined in ink; what names no fill has none.


def shape(kind, **attributes):
    told = "".join(f' {name.replace("_", "-")}="{value:g}"' if isinstance(value, (int, float))
                   else f' {name.replace("_", "-")}="{value}"'
                   for name, value in attributes.items() if value is not None)
    return f"<{kind}{told}/>"


def path(d, fill=None, dash=None):
    return shape("path", d=d, fill=fill, stroke_dasharray=dash)


def line(d, stroke=SHADE, width=None, dash=None):
    return shape("path", d=d, stroke=stroke, stroke_width=width, stroke_dasharray=dash)


def disc(x, y, r, fill, stroke=None):
    return shape("circle", cx=x, cy=y, r=r, fill=fill, stroke=stroke)


def box(x, y, w, h, fill=PAPER, rx=2, stroke=None):
    return shape("rect", x=x, y=y, width=w, height=h, rx=rx, fill=fill, stroke=stroke)


def sheet(x, y, w, h, fill=PAPER, corner=SHADE, fold=10):
    """Paper with its upper right corner folded over."""
    return (path(f"M{x} {y}h{w - fold}l{fold} {fold}v{h - fold}h{-w}z", fill) +
            path(f"M{x + w - fold} {y}v{fold}h{fold}z", corner))


def text_lines(x, y, widths, stroke=SHADE, step=7):
    return line("".join(f"M{x} {y + step * row}h{w}" for row, w in enumerate(widths)), stroke)


def arrow_down(x, y, length, stroke=ORANGE):
    return line(f"M{x} {y}v{length}m-6 -6l6 6l6 -6", stroke, 4)


def printer(x, y, w):
    """As high as wide, with the sheet before and after."""
    u = w / 24
    return (box(x + 5 * u, y, 14 * u, 12 * u, PAPER, 0) +
            box(x, y + 7 * u, 24 * u, 11 * u, SHADE, 1.5 * u) +
            box(x + 4 * u, y + 14 * u, 16 * u, 10 * u, PAPER, 0) +
            disc(x + 20.5 * u, y + 10.5 * u, .6 * u, ORANGE, ORANGE))


# Letters and digits in a box 7 high: strokes from the upper left corner, and the width.
GLYPHS = {
    "T": ("h4m-2 0v7", 4),
    "I": ("v7", 0),
    "F": ("m0 7v-7h3.8m-3.8 3.4h3", 3.8),
    "P": ("m0 7v-7h2.2a1.9 1.9 0 0 1 0 3.8h-2.2", 4),
    "D": ("v7h1a3.5 3.5 0 0 0 0 -7z", 4.5),
    "R": ("m0 7v-7h2.2a1.9 1.9 0 0 1 0 3.8h-2.2m2.2 0l2 3.2", 4.2),
    "1": ("m0 1.8l2 -1.8v7", 2),
    "2": ("m0 1.9a1.9 1.9 0 1 1 3.5 1l-3.5 4.1h4", 4),
    "4": ("m3 7v-7l-3 4.8h4.2", 4.2),
}


def word(text, x, y, height, stroke=PAPER, width=2.4, gap=2.6):
    """Centred on x, y."""
    scale, left, strokes = height / 7, 0, ""
    for c in text:
        strokes += f"M{left:.1f} 0{GLYPHS[c][0]}"
        left += GLYPHS[c][1] + gap
    at = f"translate({x - (left - gap) * scale / 2:.1f} {y - height / 2:.1f}) scale({scale:.2f})"
    return shape("path", transform=at, d=strokes, stroke=stroke,
                 stroke_width=round(width / scale, 2))


# Job types.


def page():
    """The sheet that leaves room for a mark at the lower right."""
    return sheet(6, 4, 36, 48) + text_lines(13, 15, (14, 22, 22, 12, 12))


def sample_set():
    others = "".join(path(f"M{x} {y}h34v44h-34z", SHADE, "1 4") for x, y in ((26, 3), (17, 9)))
    return (others + sheet(6, 15, 34, 45) + text_lines(13, 26, (12, 20, 12, 12)) +
            disc(46, 46, 14, BLUE) + line("M40 46l5 5l8 -9", PAPER, 4))


def background_form():
    layer = "l28 15l-28 15l-28 -15z"
    return (path("M32 31" + layer, PAPER) +
            line("M18 38.5l28 15M11 42l28 15M46 38.5l-28 15", BLUE) +
            path("M32 4" + layer, SHADE) + line("M20 19l13 -7M26 22l15 -8M32 25l8 -4", ORANGE, 3))


def fax():
    return (path("M30 26V5h24v21", PAPER) + text_lines(36, 12, (12, 12)) +
            box(16, 24, 44, 34, SHADE, 4) + box(30, 31, 24, 7, PAPER, 1) +
            line("M32 45h.1M42 45h.1M52 45h.1M32 52h.1M42 52h.1", INK, 4) +
            line("M52 52h.1", ORANGE, 4) +
            path("M4 22a5 5 0 0 1 5 -5h6a5 5 0 0 1 5 5v9h-5v14h5v9a5 5 0 0 1 -5 5h-6"
                 "a5 5 0 0 1 -5 -5z", BLUE))


def saved_job():
    return (path("M5 54V14h18l5 6h31v34", SHADE) + sheet(15, 4, 34, 40) +
            text_lines(22, 13, (12, 20)) + box(5, 29, 54, 29, BLUE) + arrow_down(32, 35, 16, PAPER))


JOB_TYPES = {
    "NormalPrint": ("Printed at once", printer(5, 5, 54) + text_lines(22, 44, (20, 12))),
    "HoldJob": ("Held", page() + disc(45, 45, 15, ORANGE) + line("M40 40v10M50 40v10", PAPER, 5)),
    "SavedJob": ("Stored in a folder", saved_job()),
    "Fax": ("Sent as a fax", fax()),
    "SecurePrint": ("Held until a passcode is typed",
                    page() + line("M36 40v-6a9 9 0 0 1 18 0v6", INK, 5) +
                    box(30, 38, 30, 22, ORANGE, 3) + disc(45, 47, 2, INK) +
                    line("M45 47v6", INK, 3)),
    "DelayPrint": ("Printed later",
                   page() + disc(44, 44, 16, PAPER) +
                   line("M44 32v1M44 55v1M32 44h1M55 44h1", INK) +
                   line("M44 36v8l6 5", ORANGE, 3)),
    "SampleSet": ("One set to check, the others after it", sample_set()),
    "BackgroundForm": ("Printed onto a stored form", background_form()),
}


def job_format(rows, colour, motif, behind=""):
    height = 13 * len(rows) + 1
    label = box(5, 55 - height, 54, height, colour)
    words = (word(row, 32, 55 - height + 7 + 13 * n, 8) for n, row in enumerate(rows))
    return behind + sheet(12, 5, 38, 56) + motif + label + "".join(words)


HILLS = path("M16 40v-6l9 -10l7 7l5 -5l9 9v5z", SHADE) + disc(23, 17, 2.5, ORANGE, ORANGE)
MORE_SHEETS = box(24, 1, 36, 40) + box(18, 3.5, 38, 45)


def dots(rows):
    return line("".join(f"M{x} {15 + 8 * row}h.1" for row in range(rows) for x in (19, 26, 33)),
                INK, 4)


JOB_FORMATS = {
    "TIFF": ("One picture of each page", job_format(["TIFF"], BLUE, HILLS)),
    "MTIFF": ("All pages in one picture file", job_format(["TIFF"], BLUE, HILLS, MORE_SHEETS)),
    "PDF": ("A PDF document", job_format(["PDF"], ORANGE, text_lines(19, 17, (13, 24, 24)))),
    "FRF": ("Raster of this printer", job_format(["FRF"], INK, dots(3))),
    "FRFDRI": ("Raster of all printers of the series",
               job_format(["FRF", "DRI"], INK, dots(2))),
}

# Sides: page 1 and page 2, and the edge that they turn on.


def numbered(x, y, w, h, digit):
    return box(x, y, w, h, PAPER, 1) + word(digit, x + w / 2, y + h / 2, 14, INK, 3)


SIDES = {
    "1Sided": ("Each page on a sheet of its own",
               sheet(26, 4, 32, 42) + word("2", 46, 27, 14, INK, 3) +
               sheet(6, 18, 32, 42) + word("1", 21, 41, 14, INK, 3)),
    "2Sided": ("Turned like a book",
               numbered(3, 20, 29, 40, "2") + numbered(32, 20, 29, 40, "1") +
               line("M32 17v46", ORANGE, 3) +
               line("M49 14c-4 -12 -28 -12 -34 -1m-1 -8l1 8l8 -1", BLUE, 3)),
    "2SidedFlip": ("Turned like a calendar",
                   numbered(5, 3, 38, 29, "2") + numbered(5, 32, 38, 29, "1") +
                   line("M2 32h44", ORANGE, 3) +
                   line("M49 50c12 -4 12 -28 1 -34m8 -1l-8 1l1 8", BLUE, 3)),
}

# Colours of the print: a flower, in colour and in greys.


def flower(fills):
    around = ((32, 21), (43, 29), (39, 42), (25, 42), (21, 29))
    petals = (disc(x, y, 7.5, fill) for (x, y), fill in zip(around, fills))
    return sheet(10, 3, 44, 58) + "".join(petals) + disc(32, 33, 6, PAPER)


FIVE = (ORANGE, "#f4c542", "#5cb56a", BLUE, "#e0689a")
GREYS = (SHADE, PAPER, INK, SHADE, "#8394a3")

OUTPUT_COLORS = {
    "Color": ("In colour", flower(FIVE)),
    "BlackandWhite": ("In black and white", flower(GREYS)),
    "PrnDef": ("The printer decides", flower(FIVE[:2] + GREYS[2:]) + printer(34, 34, 28)),
}

# Finishing: staples and holes at the left edge, folds seen from above, booklets from outside.

STAPLES = {
    "1St": ("One staple", "M14 14l8 -8"),
    "2St": ("Two staples", "M17 14v9M17 39v9"),
    "4St": ("Four staples", "M17 8v5M17 20v5M17 32v5M17 44v5"),
}
HOLES = {
    "2Hp": ("two holes", (20, 42)),
    "3Hp": ("three holes", (18, 32, 46)),
    "4Hp": ("four holes", (17, 27, 37, 47)),
}


def sheets():
    return box(16, 8, 38, 52, SHADE, 0) + sheet(11, 3, 38, 52)


def staples(d):
    return line(d, INK, 6) + line(d, ORANGE, 3)


def holes(x, rows):
    return "".join(disc(x, y, 3.2, BLUE) for y in rows)


def staples_and_holes():
    blank = sheets() + text_lines(33, 17, (9, 11, 11, 7, 11))
    for staple, (text, d) in STAPLES.items():
        yield staple, text, blank + staples(d)
        for punch, (also, rows) in HOLES.items():
            yield f"{staple}&{punch}", f"{text}, {also}", blank + staples(d) + holes(25, rows)
    for punch, (text, rows) in HOLES.items():
        yield punch, text.capitalize(), blank + holes(19, rows)


def z_fold(left, middle, right, content):
    """Seen from above its upper edge; the panel at the back reaches from `left` to `right`."""
    corners = ((left, 7), (right, 7), (middle, 23), (right, 23))
    panels = (path(f"M{x} {y}L{to_x} {to_y}v34L{x} {y + 34}z", PAPER if y == to_y else SHADE)
              for (x, y), (to_x, to_y) in zip(corners, corners[1:]))
    edge = "M" + "L".join(f"{x} {y}" for x, y in corners)
    return "".join(panels) + content + line(edge, BLUE, 4)


def c_fold(content):
    return (path("M14 6H48v18H14a9 9 0 0 1 0 -18z", SHADE) +
            path("M56 24v34H14a9 9 0 0 1 -9 -9V15a9 9 0 0 0 9 9z", PAPER) + content +
            line("M24 15H48a4.5 4.5 0 0 0 0 -9H14a9 9 0 0 0 0 18H56", BLUE, 4))


def loose():
    turned = (f'<g transform="rotate({turn} 32 60)">{box(14, 8, 36, 48, fill, 0)}</g>'
              for turn, fill in ((14, SHADE), (-10, SHADE), (2, PAPER)))
    return "".join(turned) + text_lines(22, 20, (12, 20, 20, 12))


LINES = text_lines(18, 33, (16, 28, 28), step=8)
LAST_AND_FIRST = word("4", 18, 32, 16, INK, 3) + word("1", 46, 32, 16, INK, 3)
BOOKLET = (path("M32 17L9 22v38l23 -5l23 5V22z", SHADE) + path("M32 7L5 13v42l27 -6z", SHADE) +
           path("M32 7l27 6v42l-27 -6z", PAPER))
SPINE = staples("M32 17v7M32 34v7")

FINISHINGS = {
    "OfficeFinishing_None": ("Loose sheets", loose()),
    "OfficeFinishing_CFold": ("Both ends folded inwards", c_fold(LINES)),
    "OfficeFinishing_ZFold": ("Folded like a Z", z_fold(10, 10, 54, LINES)),
    "ProductionFinishing_ZFold_Half_Left": (
        "The right half folded like a Z",
        z_fold(5, 33, 59, text_lines(11, 15, (15, 15, 12)) + text_lines(39, 33, (14, 14, 8)))),
    "OfficeFinishing_Bklt_Layout": (
        "Pages in the order of a booklet",
        box(3, 11, 58, 42, PAPER, 0) + LAST_AND_FIRST + line("M32 13v38", BLUE, 2, "2 5")),
    "OfficeFinishing_Bklt_Fold": ("Folded", BOOKLET),
    "OfficeFinishing_Bklt_Fold_Layout": ("A booklet", BOOKLET + LAST_AND_FIRST),
    "OfficeFinishing_BKlt_Fold&Stple": ("Folded and stapled", BOOKLET + SPINE),
    "OfficeFinishing_Bklt_Fold&Stpl_Layout": ("A stapled booklet",
                                              BOOKLET + LAST_AND_FIRST + SPINE),
}

# Output trays: one machine, an arrow to where the sheets come to rest.


def machine(x):
    return (box(x, 2, 36, 10, PAPER, 3) + box(x + 28, 12, 8, 22, SHADE, 0) +
            box(x, 34, 36, 27, SHADE, 3) + line(f"M{x + 7} 43h22M{x + 7} 52h22", INK))


def pile(x, bottom, w, count):
    return "".join(box(x, bottom - 5 * n, w, 5, BLUE, 1) for n in range(1, count + 1))


OUTPUT_TRAYS = {
    "Default": ("The tray in the middle", machine(16) + pile(9, 34, 33, 1) +
                line("M39 21H24m6 -6l-6 6l6 6", ORANGE, 4)),
    "Face": ("The tray at the side", machine(3) + path("M39 41l20 -8v-7l-20 8z", BLUE) +
             line("M39 45l22 -9", INK, 4) + line("M44 16h15m-6 -6l6 6l-6 6", ORANGE, 4)),
    "Stacker": ("The stacker", machine(3) + pile(42, 58, 19, 5) + line("M40 60h22", INK, 4) +
                arrow_down(51, 8, 18)),
}

# Papers: the sheet, and what is darker on it.

PAPER_COLORS = {
    "White": (PAPER, SHADE),
    "Blue": ("#b5d2f3", "#7ba9dd"),
    "Green": ("#bfe3b9", "#82bd7c"),
    "Pink": ("#f8c6d8", "#dd8fac"),
    "Yellow": ("#fcf09a", "#d9c54b"),
    "Red": ("#ee8277", "#c25248"),
    "Goldenrod": ("#f0bf3c", "#c2922a"),
    "Buff": ("#e8d2a6", "#bfa06a"),
    "Ivory": ("#f8f0d0", "#d3c596"),
    "Gray": ("#c3c7cb", "#8f969d"),
    "Orange": ("#fab26c", "#d28438"),
    "Other": ("url(#c)", "#9aa9b6"),
}


def labels(fill, dark):
    grid = ((x, y) for y in (11, 27, 43) for x in (13, 34))
    return box(8, 5, 48, 54, SHADE) + "".join(box(x, y, 17, 11, fill, 3, dark) for x, y in grid)


def punched(fill, dark):
    return sheet(12, 5, 40, 54, fill, dark) + "".join(disc(20, y, 3.2, INK) for y in (15, 32, 49))


def letterhead(fill, dark):
    return (sheet(12, 5, 40, 54, fill, dark) + disc(20, 14, 3, BLUE, BLUE) +
            line("M27 12h9M27 16h9M17 22h30", BLUE) + text_lines(18, 32, (14, 28, 28, 20), dark, 6))


def tabs(fill, dark):
    return "".join(path(f"M{x} {y}h36v{top - y}h7v13h-7V{y + 48}h-36z", fill)
                   for x, y, top in ((13, 4, 9), (10, 8, 25), (7, 12, 41)))


def envelope(fill, dark):
    return (box(4, 14, 56, 38, fill) + line("M5 51l20 -18M59 51L39 33", dark) +
            path("M5 15l27 22l27 -22", fill))


def cardstock(fill, dark):
    return path("M10 4h40l5 5v52H15l-5 -5z", dark) + box(10, 4, 40, 52, fill, 0)


def glossy(fill, dark):
    shine = shape("path", d="M11 47V37L40 8v10zM11 58v-6L42 21v6z", stroke="none", fill_opacity=.7,
                  fill=dark if fill == PAPER else PAPER)
    return (sheet(10, 7, 40, 54, fill, dark) + shine +
            path("M51 3l2.5 7.5l7.5 2.5l-7.5 2.5l-2.5 7.5l-2.5 -7.5l-7.5 -2.5l7.5 -2.5z",
                 ORANGE))


PAPER_KINDS = {
    "Plain": lambda fill, dark: sheet(12, 5, 40, 54, fill, dark),
    "Labels": labels, "Punched": punched, "Letterhead": letterhead, "Tab": tabs,
    "Envelope": envelope, "CardStock": cardstock, "Glossy": glossy,
}


def stripes(colours):
    """The fill "url(#c)": as many stripes across the paper."""
    width = 1 / len(colours)
    stops = (shape("stop", offset=(n + side) * width, stop_color=colour)
             for n, colour in enumerate(colours) for side in (0, 1))
    return ('<linearGradient id="c" gradientUnits="userSpaceOnUse" x1="8" y1="8" x2="56" y2="56">'
            f'{"".join(stops)}</linearGradient>')


SEVERAL = stripes([PAPER_COLORS[name][0] for name in ("Pink", "Yellow", "Green", "Blue")])


def papers():
    for kind, draw in PAPER_KINDS.items():
        for colour, (fill, dark) in PAPER_COLORS.items():
            yield (f"Paper_{kind}-{colour}", f"{kind}, {colour.lower()}",
                   (SEVERAL if colour == "Other" else "") + draw(fill, dark))
    yield "Paper_Transparency", "Transparency", (
        box(4, 30, 32, 28, ORANGE, 3) +
        shape("path", d="M16 5h28l12 12v40H16z", fill="#d5e6f9", fill_opacity=.7) +
        path("M44 5v12h12z", PAPER) + line("M23 22l9 -9M23 33l17 -17", PAPER, 3))


# Special pages: three sheets behind each other, and layers that are drawn over one another.

NEAR, MIDDLE, FAR = (3, 24), (19, 14), (35, 4)
COVER, INSERTED = PAPER_COLORS["Blue"][0], PAPER_COLORS["Yellow"][0]


def leaf(place, fill, content=""):
    return box(*place, 26, 36, fill, 0) + content


def written(place, digit=""):
    x, y = place
    return leaf(place, PAPER, word(digit, x + 18, y + 18, 12, INK, 2.4) if digit else
                text_lines(x + 6, y + 9, (14, 10, 14), step=8))


def cover_print(place):
    x, y = place
    return disc(x + 19, y + 9, 3.5, ORANGE) + text_lines(x + 17, y + 20, (5, 5), BLUE)


def inserted(place, several):
    x, y = place
    behind = ((x + 6, y - 6), (x + 3, y - 3)) if several else ()
    return "".join(leaf(at, INSERTED) for at in (*behind, place))


def special_pages():
    yield "Pages", "The job's pages", leaf((22, 11), SHADE) + written(MIDDLE)
    for name, place in (("Front", NEAR), ("Back", FAR)):
        yield name + "Blank", f"{name} cover", leaf(place, COVER)
        yield name + "Printed", f"Printed {name.lower()} cover", leaf(place, COVER,
                                                                      cover_print(place))
    for several, name in enumerate(("Insert", "Inserts")):
        yield name + "After", f"{name} after a page", (
            written(FAR) + inserted(MIDDLE, several) + written(NEAR))
        yield name + "Before", f"{name} before page 1", (
            written(FAR, "2") + written(MIDDLE, "1") + inserted(NEAR, several))
    yield "Exception", "Sides as in the job", sheet(10, 3, 32, 42) + text_lines(16, 15,
                                                                                (12, 20, 20, 12))
    yield "OneSided", "One side", box(10, 3, 32, 42, PAPER, 1) + word("1", 26, 24, 18, INK, 3)
    yield "TwoSided", "Both sides, turned like a book", (
        numbered(2, 8, 23, 34, "2") + numbered(25, 8, 23, 34, "1") + line("M25 4v42", ORANGE, 3))
    yield "TwoSidedFlip", "Both sides, turned like a calendar", (
        numbered(8, 2, 34, 22, "2") + numbered(8, 24, 34, 22, "1") + line("M4 24h42", ORANGE, 3))
    yield "ShiftSame", "Moved alike", (
        disc(50, 50, 12, PAPER) + line("M44 56l11 -11m-8 0h8v8", ORANGE, 4))
    yield "ShiftApart", "Moved apart", (
        disc(53, 32, 10, PAPER) + line("M49 36l7 -7m-6 0h6v6", ORANGE, 4) +
        disc(50, 53, 10, BLUE) + line("M46 53h8m-4 -4l4 4l-4 4", PAPER, 4))
    rays = ("M13 41v-1M13 63v-1M2 52h1M23 52h1"
            "M5 44l.5 .5M20.5 59.5l.5 .5M5 60l.5 -.5M20.5 44.5l.5 -.5")
    yield "Lighter", "Lighter", disc(13, 52, 7, PAPER) + line(rays, ORANGE, 3)
    yield "Darker", "Darker", disc(13, 52, 9, INK, PAPER)


# The About box.

BRAND = {
    "Brand_About": ("A printer with a color print",
                    box(2, 2, 60, 60, BLUE, 12) + printer(10, 10, 44) +
                    "".join(disc(x, 44.5, 3.5, fill)
                            for x, fill in zip((23, 32, 41), (ORANGE, "#5cb56a", "#e0689a")))),
}

# Buttons of the Special Pages panel. Their strokes are wide: they are shown small.


def plus(x, y):
    return disc(x, y, 13, BLUE) + line(f"M{x - 6} {y}h12m-6 -6v12", PAPER, 4)


def bin_with(content):
    return (line("M10 16h44M24 16v-6h16v6", INK, 4) +
            path("M15 22h34l-3 36h-28z", PAPER) + content)


def move(d):
    return line("M32 54V14m-16 16l16 -16l16 16" if d < 0 else "M32 10v40m-16 -16l16 16l16 -16",
                BLUE, 8)


BUTTONS = {
    "AddCovers": ("Add covers", path("M6 8h20v48h-20z", ORANGE) + sheet(14, 8, 34, 48) +
                  text_lines(21, 24, (12, 20)) + plus(49, 47)),
    "AddInserts": ("Add inserts", sheet(4, 4, 30, 42) + text_lines(10, 18, (14, 18)) +
                   box(14, 18, 32, 42, ORANGE, 1) + plus(49, 45)),
    "AddExceptions": ("Add exceptions", sheet(4, 6, 34, 46) +
                      box(4, 24, 34, 15, ORANGE, 0) + text_lines(11, 17, (14,)) +
                      text_lines(11, 45, (20,)) + plus(47, 47)),
    "Edit": ("Edit", path("M12 52l4 -14l28 -28l10 10l-28 28z", ORANGE) +
             path("M12 52l4 -14l10 10z", PAPER) + line("M38 16l10 10", INK)),
    "Delete": ("Delete", bin_with(line("M26 30v20M38 30v20", INK, 4))),
    "DeleteAll": ("Delete all", bin_with(line("M25 33l14 14m0 -14l-14 14", ORANGE, 6))),
    "Undo": ("Undo", line("M16 24h22a14 14 0 0 1 0 28h-14M28 10L14 24l14 14", BLUE, 7)),
    "Move_Up": ("Move up", move(-1)),
    "Move_Down": ("Move down", move(1)),
}


# Buttons of the fax dialogs.


def person(x, y, fill=PAPER, size=1):
    """The head's centre, and the shoulders below it."""
    r = 9 * size
    return (path(f"M{x - 1.9 * r:g} {y + 4 * r:g}v{-.8 * r:g}a{1.9 * r:g} {1.9 * r:g} 0 0 1 "
                 f"{3.8 * r:g} 0v{.8 * r:g}z", fill) + disc(x, y, r, fill))


def address_book():
    tabs = "".join(path(f"M46 {y}h7v10h-7z", fill)
                   for y, fill in ((9, ORANGE), (22, PAPER), (35, SHADE)))
    return (tabs + box(8, 4, 38, 54, BLUE, 3) + line("M15 4v54", INK) +
            person(29, 20, PAPER, .6))


def minus(x, y, fill=ORANGE):
    return disc(x, y, 13, fill) + line(f"M{x - 6} {y}h12", PAPER, 4)


def strike(x, y):
    return disc(x, y, 13, ORANGE) + line(f"M{x - 5} {y - 5}l10 10m0 -10l-10 10", PAPER, 4)


def pencil(x, y):
    return (path(f"M{x} {y}l3 -10l16 -16l7 7l-16 16z", ORANGE) +
            path(f"M{x} {y}l3 -10l7 7z", PAPER))


def people(front=PAPER, behind=SHADE):
    return person(42, 14, behind, .9) + person(22, 18, front)


FAX_BUTTONS = {
    "AddRecipient": ("Add a recipient", person(26, 17) + plus(48, 48)),
    "AddFromAddressBook": ("Add from the address book", address_book() + plus(48, 49)),
    "EditRecipient": ("Edit the recipient", person(26, 17) + pencil(35, 60)),
    "SaveGroup": ("Save as a group", people() + disc(49, 48, 13, BLUE) +
                  line("M49 41v14m-6 -6l6 6l6 -6", PAPER, 4)),
    "RemoveRecipient": ("Remove the recipient", person(26, 17) + minus(48, 48)),
    "RemoveAllRecipients": ("Remove all recipients", people() + strike(48, 49)),
}


def pictures():
    """Name, title and shapes of each."""
    for prefix, table in (("JobType_", JOB_TYPES), ("JobType_JobFormat_", JOB_FORMATS),
                          ("2SidedPrinting_", SIDES), ("OutputColor_", OUTPUT_COLORS),
                          ("", FINISHINGS), ("OutputTray_", OUTPUT_TRAYS), ("", BRAND),
                          ("ButtonGraphic_", BUTTONS), ("ButtonGraphic_", FAX_BUTTONS)):
        for name, (title, shapes) in table.items():
            yield prefix + name, title, shapes
    for name, title, shapes in staples_and_holes():
        yield "OfficeFinishing_" + name, title, shapes
    for name, title, shapes in special_pages():
        yield "SpecialPages_" + name, title, shapes
    yield from papers()


def document(title, shapes):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 64 64" width="64" height="64">\n'
            f"<!-- Written by resources/make_pictures.py. -->\n<title>{escape(title)}</title>\n"
            f'<g stroke="{INK}" stroke-width="2" stroke-linecap="round" stroke-linejoin="round" '
            f'fill="none">\n{shapes}\n</g>\n</svg>\n').replace("/><", "/>\n<")


if __name__ == "__main__":
    for picture, title, shapes in pictures():
        (FOLDER / f"{picture}.svg").write_text(document(title, shapes), encoding="utf-8")
