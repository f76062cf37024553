#!/usr/bin/python3
"""Prints what can be translated in a drawing, to be held against what `kelvara texts` prints.

ezdxf reads the tags of the file, ASCII or binary; what is done with them is written anew here, so
that a fault of the program is not repeated. One line each: kind, key, text, separated by tabs. The
key is "-" where the file gives the object no handle of its own.
"""
import argparse
import re
import sys
from itertools import takewhile

from ezdxf.filemanagement import dxf_file_info
from ezdxf.lldxf.tagger import ascii_tags_loader, binary_tags_loader
from ezdxf.lldxf.validator import is_binary_dxf_file
from ezdxf.tools.codepage import toencoding

WIRE, VIRTUAL, SCHEME = "VRN_TQ_WIRE", "VRN_TQ_ATT_VIRTUAL", "ESQ_VIRTUAL_TQ"
NEVER_PAGES = ("0", "tq_freeze")
SUFFIXES = ("DE", "SELO", "FORMATO")
BLANKS = "\t\n\v\f\r \x85\xa0\u1680\u2028\u2029\u202f\u205f\u3000" + "".join(
    map(chr, range(0x2000, 0x200B)))
DOUBLE_BYTE = {"1": "cp932", "2": "cp950", "3": "cp949", "4": "johab", "5": "cp936"}


# --- text -------------------------------------------------------------------------------------

def decoded(raw):
    """\\U+XXXX and \\M+nXXXX first, then the caret for control characters."""
    text = re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda m: chr(int(m[1], 16)), raw)
    text = re.sub(r"\\M\+([1-5])([0-9A-Fa-f]{4})", multibyte, text)
    text = re.sub(r"\^([@-_ ])", lambda m: "^" if m[1] == " " else chr(ord(m[1]) - 64), text)
    return text.encode("utf-16", "surrogatepass").decode("utf-16", "surrogatepass")


def multibyte(match):
    data = bytes.fromhex(match[2])
    try:
        return (data if data[0] else data[1:]).decode(DOUBLE_BYTE[match[1]])
    except UnicodeDecodeError:
        return match[0]


def shown(text):
    for plain, escape in (("\\", "\\\\"), ("\t", "\\t"), ("\r", "\\r"), ("\n", "\\n")):
        text = text.replace(plain, escape)
    return "".join("\ufffd" if 0xD800 <= ord(c) < 0xE000 else c for c in text)


def tokens(text):
    return [token for token in text.split("\f") if token]


# --- objects ----------------------------------------------------------------------------------

class Object:
    """One object of the file: its tags in order and what stands at the surface of it."""

    def __init__(self, tags):
        self.type = tags[0].value
        body = list(takewhile(lambda tag: tag.code != 1001, tags[1:]))
        self.xdata = tags[1 + len(body):]
        self.body = list(takewhile(lambda tag: tag.code != 101, body))
        self.handle = self.first(105 if self.type == "DIMSTYLE" else 5)
        self.attributes = []
        self.unique = True

    def first(self, code, default=None):
        return next((tag.value for tag in self.body if tag.code == code), default)

    def owner(self):
        group = False
        for code, value in self.body:
            if code == 102:
                group = value.startswith("{")
            elif code == 330 and not group:
                return number(value)
        return None

    def key(self):
        return f"{number(self.handle):X}" if self.handle and self.unique else "-"

    def text(self):
        return decoded(self.first(1, "")).strip(BLANKS)

    def contents(self, encoding):
        """A multi-line text; a piece of it may end inside a character, so bytes are joined."""
        joined = "".join(tag.value for tag in self.body if tag.code in (1, 3))
        raw = joined.encode(encoding, "surrogateescape")
        return decoded(raw.decode(encoding, "surrogateescape")).strip(BLANKS)

    def chain(self, application):
        """The entries of an application's extended data, its own entry first."""
        entries, inside = [], False
        for code, value in self.xdata:
            if code == 1001:
                inside = value.casefold() == application.casefold()
            if inside:
                entries.append((code, decoded(value) if isinstance(value, str) else value))
        return entries


def number(handle):
    try:
        return int(handle, 16)
    except (TypeError, ValueError):
        return 0


# --- the drawing ------------------------------------------------------------------------------

class Drawing:
    def __init__(self, path):
        tags, self.encoding = read_tags(path)
        sections = split_sections(tags)
        tables = [Object(tags) for tags in sections.get("TABLES", ())]
        self.layers = {}
        for entry in tables:
            if entry.type == "LAYER" and entry.first(2) is not None:
                self.layers.setdefault(name_key(entry.first(2)), decoded(entry.first(2)))
        blocks = [Object(tags) for tags in sections.get("BLOCKS", ())]
        entities = [Object(tags) for tags in sections.get("ENTITIES", ())]
        self.objects = [Object(tags) for tags in sections.get("OBJECTS", ())]
        mark_duplicates(tables + blocks + entities + self.objects)
        self.blocks = block_contents(blocks)
        papers = paper_records(tables)
        self.model = [entity for entity in grouped(entities) if in_model(entity, papers)]
        for entity in blocks + entities:
            layer = entity.first(8, "0")
            if entity.type not in ("BLOCK", "ENDBLK"):
                self.layers.setdefault(name_key(layer), decoded(layer))

    def layer_of(self, entity):
        return self.layers[name_key(entity.first(8, "0"))]


def read_tags(path):
    if is_binary_dxf_file(path):
        with open(path, "rb") as file:
            tags = list(binary_tags_loader(file.read()))
        return tags, binary_encoding(tags)
    info = dxf_file_info(path)
    with open(path, encoding=info.encoding, errors="surrogateescape") as file:
        return list(ascii_tags_loader(file)), info.encoding


def binary_encoding(tags):
    """ezdxf has decoded the strings already; this is the page it used."""
    found = dict(zip((tag.value for tag in tags[:400]), (tag.value for tag in tags[1:401])))
    if found.get("$ACADVER", "AC1009") >= "AC1021":
        return "utf-8"
    return toencoding(found.get("$DWGCODEPAGE", "ANSI_1252"))


def split_sections(tags):
    sections, objects, current = {}, [], None
    for tag in tags:
        if tag.code == 0:
            current = [tag]
            objects.append(current)
        elif current is not None:
            current.append(tag)
    name = None
    for tags in objects:
        if tags[0].value == "SECTION":
            name = tags[1].value if len(tags) > 1 else None
        elif tags[0].value in ("ENDSEC", "EOF"):
            name = None
        elif name:
            sections.setdefault(name, []).append(tags)
    return sections


def name_key(name):
    return decoded(name).casefold()


def mark_duplicates(objects):
    seen = set()
    for entry in objects:
        value = number(entry.handle)
        entry.unique = value != 0 and value not in seen
        seen.add(value)


def grouped(entities):
    """Attributes stand behind their reference up to its SEQEND, vertices behind their polyline."""
    result, host = [], None
    for entity in entities:
        if entity.type == "ATTRIB" and host is not None and host.type == "INSERT":
            host.attributes.append(entity)
        elif entity.type == "VERTEX" and host is not None and host.type == "POLYLINE":
            continue
        elif entity.type == "SEQEND":
            host = None
        else:
            result.append(entity)
            host = entity if entity.type in ("INSERT", "POLYLINE") else None
    return result


def block_contents(objects):
    blocks, content = {}, None
    for entity in objects:
        if entity.type == "BLOCK":
            content = []
            blocks.setdefault(name_key(entity.first(2, "")), content)
        elif entity.type == "ENDBLK":
            content = None
        elif content is not None:
            content.append(entity)
    return blocks


def paper_records(tables):
    return {number(entry.handle) for entry in tables if entry.type == "BLOCK_RECORD"
            and name_key(entry.first(2, "")).startswith("*paper_space")}


def in_model(entity, papers):
    if int(entity.first(67, 0)) != 0 or entity.owner() in papers:
        return False
    return entity.first(410, "Model").casefold() == "model"


# --- the scan ---------------------------------------------------------------------------------

def page_names(drawing, options):
    if options.pages is None:
        names = list(drawing.layers.values())
    else:
        chosen = options.pages.split(",")
        added = [f"{tokens_at_dollar(name)}${suffix}" for name in chosen for suffix in SUFFIXES]
        names = chosen + added[::-1]
        if options.layer_0 and "0" not in names:
            names.append("0")
    never = NEVER_PAGES[1:] if options.layer_0 else NEVER_PAGES
    return [name for name in names if name.casefold() not in never]


def tokens_at_dollar(name):
    return next((token for token in name.split("$") if token), "")


def of_object(drawing, entity, options):
    if options.attributes and entity.type == "INSERT":
        for attribute in entity.attributes:
            yield "attribute", attribute.key(), attribute.text()
    if not options.texts:
        return
    if entity.type in ("TEXT", "ATTDEF", "ATTRIB"):
        yield "text", entity.key(), entity.text()
    elif entity.type == "MTEXT":
        yield "text", entity.key(), entity.contents(drawing.encoding)
    elif entity.type == "INSERT":
        for inner in drawing.blocks.get(name_key(entity.first(2, "")), ()):
            if inner.type == "TEXT" and int(inner.first(67, 0)) == 0:
                yield "block-text", inner.key(), inner.text()


def of_wire(entity):
    for _, value in entity.chain(WIRE)[3:]:
        fields = tokens(value.strip(BLANKS)) if isinstance(value, str) else []
        if len(fields) > 1 and fields[1].strip(BLANKS):
            yield "wire", entity.key(), fields[1]


def entries(dictionary):
    """Name and handle of what a dictionary holds, sorted by name."""
    found, name = {}, None
    for code, value in dictionary.body:
        if code == 3:
            name = decoded(value)
        elif code in (350, 360) and name is not None:
            found.setdefault(name, number(value))
            name = None
    return sorted(found.items(), key=lambda entry: entry[0].casefold())


def of_virtual_scheme(drawing):
    by_handle = {number(entry.handle): entry for entry in drawing.objects if entry.unique}
    dictionaries = [entry for entry in drawing.objects if entry.type == "DICTIONARY"]
    root = min(dictionaries, key=lambda entry: bool(entry.owner()), default=None)
    scheme = by_handle.get(dict(entries(root)).get(SCHEME)) if root else None
    for _, handle in entries(scheme) if scheme else ():
        entry = by_handle.get(handle)
        for code, value in entry.chain(VIRTUAL)[1:] if entry else ():
            fields = tokens(value.replace("\f\f", "\f \f")) if code == 1000 else []
            if len(fields) > 2:
                yield "virtual-attribute", f"{entry.key()}_{fields[0]}", fields[1].strip(BLANKS)


def translatables(drawing, options):
    names = page_names(drawing, options)
    by_layer = {}
    for entity in drawing.model:
        by_layer.setdefault(drawing.layer_of(entity), []).append(entity)
    for name in names:
        for entity in by_layer.get(name, ()):
            yield from of_object(drawing, entity, options)
    for name in names if options.attributes else ():
        for entity in by_layer.get(name, ()):
            if entity.type == "LWPOLYLINE":
                yield from of_wire(entity)
    yield from of_virtual_scheme(drawing)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("drawing")
    parser.add_argument("--pages", help="names separated by commas")
    parser.add_argument("--layer-0", action="store_true")
    parser.add_argument("--no-texts", dest="texts", action="store_false")
    parser.add_argument("--no-attributes", dest="attributes", action="store_false")
    options = parser.parse_args()
    out = open(sys.stdout.fileno(), "w", encoding="utf-8", newline="\n", closefd=False)
    for kind, key, text in translatables(Drawing(options.drawing), options):
        if text:
            print(kind, key, shown(text), sep="\t", file=out)


if __name__ == "__main__":
    main()
