#!/usr/bin/python3
"""What ezdxf's drawing add-on paints of the model space of a drawing, as JSON on stdout.

ezdxf_drawing.py DRAWING: {"extents": [left, bottom, right, top] of all but letters and endless lines,
or null; "words": [[word, x, y, height], ...] where each word's baseline begins and how high its
capitals are}. Exit status 3, with the reason on stderr, for a drawing that ezdxf cannot draw.

Texts are measured with the Liberation fonts, straight from the font files.
"""
import functools
import json
import pathlib
import re
import sys

import ezdxf
from ezdxf import recover
from ezdxf.addons.drawing import Frontend, RenderContext
from ezdxf.addons.drawing.backend import Backend
from ezdxf.addons.drawing.config import Configuration, HatchPolicy, LinePolicy, ProxyGraphicPolicy
from ezdxf.lldxf.encoding import decode_dxf_unicode
from ezdxf.math import Vec3
from ezdxf.tools import fonts
from ezdxf.tools.text import has_inline_formatting_codes
from ezdxf.tools.fonts import FontMeasurements
from fontTools.ttLib import TTFont

FONTS = pathlib.Path("/usr/share/fonts/truetype/liberation")
FAMILIES = (("arialn", "LiberationSansNarrow"), ("narrow", "LiberationSansNarrow"),
            ("times", "LiberationSerif"), ("cour", "LiberationMono"), ("mono", "LiberationMono"),
            ("consola", "LiberationMono"))
UNREADABLE = 3


class Measures:
    """Widths of letters over the height of the capitals."""

    def __init__(self, path):
        font = TTFont(path)
        self.cap = font["OS/2"].sCapHeight
        self.descender = -font["hhea"].descent / self.cap
        self.x_height = font["OS/2"].sxHeight / self.cap
        self.glyphs, self.advances = font.getBestCmap(), font["hmtx"]

    def knows(self, text):
        return all(ord(letter) in self.glyphs for letter in text)

    def width(self, text):
        return sum(self.advances[self.glyphs.get(ord(letter), ".notdef")][0]
                   for letter in text) / self.cap


@functools.lru_cache(maxsize=None)
def load(family, style):
    return Measures(FONTS / f"{family}-{style}.ttf")


def measures(face):
    if isinstance(face, str):  # the name of a file
        face = fonts.FontFace(ttf=face)
    names = (f"{face.ttf} {face.family}" if face else "").lower()
    family = next((family for part, family in FAMILIES if part in names), "LiberationSans")
    bold = face is not None and (face.weight in ("bold", "700") or "bd." in face.ttf.lower())
    italic = face is not None and face.is_italic
    return load(family, {(False, False): "Regular", (True, False): "Bold",
                         (False, True): "Italic", (True, True): "BoldItalic"}[bold, italic])


class LayoutFont(fonts.AbstractFont):
    """What formatted multi-line texts are laid out with; their style's width is told aside."""

    style_width = 1

    def __init__(self, face, cap_height, width_factor):
        super().__init__(FontMeasurements(0, cap_height, cap_height * 0.7, cap_height * 0.3))
        self.measures = measures(face)
        self.scale = cap_height * width_factor * LayoutFont.style_width

    def text_width(self, text):
        return self.measures.width(text) * self.scale

    def space_width(self):
        return self.text_width(" ")


# The layout finds its fonts by file names, which are those of the machine.
fonts.find_ttf_path = lambda face, default=None: face
fonts.make_font = LayoutFont


class Recorder(Backend):
    """Keeps what it is told to paint."""

    # What is drawn in part or not at all: where there is some of it, extents tell nothing.
    HALF_DRAWN = ("MULTILEADER", "ACAD_TABLE", "MESH", "MPOLYGON", "SURFACE", "HELIX")

    def __init__(self):
        super().__init__()
        self.points, self.words = [], []

    def add(self, *points):
        if self.current_entity.dxftype() not in ("RAY", "XLINE"):
            self.points += (Vec3(point) for point in points)

    def draw_point(self, pos, properties):
        self.add(pos)

    def draw_line(self, start, end, properties):
        self.add(start, end)

    def draw_filled_polygon(self, points, properties):
        self.add(*points)

    def draw_path(self, path, properties):
        self.add(*path.flattening(0.01))

    def draw_filled_paths(self, paths, holes, properties):
        for path in (*paths, *holes):
            self.add(*path.flattening(0.01))

    def enter_entity(self, entity, properties):
        super().enter_entity(entity, properties)
        style = entity.doc and entity.dxftype() == "MTEXT" and entity.doc.styles.get(entity.dxf.style)
        LayoutFont.style_width = style.dxf.width if style else 1

    def width_factor(self):
        """Of the style, which holds for texts of several lines."""
        formatted = self.current_entity.dxftype() != "MTEXT" or has_inline_formatting_codes(
            self.current_entity.text)
        return 1 if formatted else LayoutFont.style_width

    def draw_text(self, text, transform, properties, cap_height):
        font = measures(properties.font)
        text = decode_dxf_unicode(text).replace("\u00a0", " ")
        factor = self.width_factor()
        height = transform.transform_direction((0, cap_height, 0)).magnitude
        before = ""
        for word in text.split(" "):
            if word and font.knows(before + word):
                place = transform.transform((font.width(before) * cap_height * factor, 0, 0))
                self.words.append((word, place.x, place.y, height))
            before += word + " "

    def get_font_measurements(self, cap_height, font=None):
        found = measures(font)
        return FontMeasurements(0, cap_height, found.x_height * cap_height,
                                found.descender * cap_height)

    def get_text_line_width(self, text, cap_height, font=None):
        return measures(font).width(text) * cap_height * self.width_factor()

    def set_background(self, color):
        pass

    def clear(self):
        pass

    def finalize(self):
        pass


def read(path):
    try:
        return ezdxf.readfile(path)
    except (IOError, ezdxf.DXFError):
        return recover.readfile(path)[0]


def prepare(document):
    """Characters by number, which multi-line texts keep as codes, and formatted texts without a
    width, where the layout would begin a line with every word.
    """
    for entity in document.entitydb.values():
        if entity.dxftype() != "MTEXT":
            continue
        entity.text = re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda code: chr(int(code[1], 16)),
                             entity.text).replace("\\~", "\u00a0")
        if not entity.dxf.get("width", 0) and entity.dxf.get("attachment_point", 1) in (1, 4, 7):
            entity.dxf.width = 1000 * entity.dxf.get("char_height", 1)


def paint(path):
    document = read(path)
    prepare(document)
    recorder = Recorder()
    config = Configuration.defaults().with_changes(
        show_defpoints=True, line_policy=LinePolicy.SOLID, hatch_policy=HatchPolicy.SHOW_OUTLINE,
        proxy_graphic_policy=ProxyGraphicPolicy.IGNORE)
    Frontend(RenderContext(document), recorder, config).draw_layout(document.modelspace())
    if any(entity.dxftype() in Recorder.HALF_DRAWN for entity in document.entitydb.values()):
        recorder.points.clear()
    return recorder


def main():
    try:
        recorder = paint(sys.argv[1])
    except Exception as error:  # whatever a damaged drawing makes it raise
        print(f"{type(error).__name__}: {error}", file=sys.stderr)
        return UNREADABLE
    xs, ys = [p.x for p in recorder.points], [p.y for p in recorder.points]
    extents = [min(xs), min(ys), max(xs), max(ys)] if xs else None
    print(json.dumps({"extents": extents, "words": recorder.words}))
    return 0


if __name__ == "__main__":
    sys.exit(main())
