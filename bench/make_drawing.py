#!/usr/bin/python3
"""Writes a project drawing of any size for measuring: ASCII DXF, the same bytes at every run.

The drawing is a row of equal groups, each the neighbourhood of one device: two lines, a circle, a
polyline, a wire with its data, a symbol with five attributes and a text in its block, two texts;
now and then a multi-line text, a title block and a virtual device. Lines, circles and polylines
make up about 38 % of the bytes.
"""
import argparse
import csv
import random

OBJECTS_PER_GROUP = 10.33  # translatables, the rarer ones counted in
BLOCKS = 40
KNOWN = 0.8  # part of the texts that the dictionary holds

LANGUAGES = ("Português", "English", "Deutsch", "Español", "Français")
DEVICES = (
    ("Bomba", "Pump", "Pumpe", "Bomba", "Pompe"),
    ("Válvula", "Valve", "Ventil", "Válvula", "Vanne"),
    ("Motor", "Motor", "Motor", "Motor", "Moteur"),
    ("Disjuntor", "Circuit breaker", "Leistungsschalter", "Interruptor", "Disjoncteur"),
    ("Contator", "Contactor", "Schütz", "Contactor", "Contacteur"),
    ("Relé", "Relay", "Relais", "Relé", "Relais"),
    ("Sensor", "Sensor", "Sensor", "Sensor", "Capteur"),
    ("Sinaleiro", "Indicator light", "Leuchtmelder", "Piloto", "Voyant"),
    ("Borne", "Terminal", "Klemme", "Borne", "Borne"),
    ("Transformador", "Transformer", "Transformator", "Transformador", "Transformateur"),
)
PLACES = (
    ("da estação de água", "water station", "Wasserwerk", "de la estación de agua",
     "station d'eau"),
    ("do painel", "panel", "Schaltschrank", "del tablero", "armoire"),
    ("da linha de produção", "production line", "Fertigungslinie", "de la línea de producción",
     "ligne de production"),
    ("de reserva", "standby", "Reserve", "de reserva", "de secours"),
    ("da casa de máquinas", "machine room", "Maschinenraum", "de la sala de máquinas",
     "salle des machines"),
)


def term(number):
    """The text of a term in every language; different numbers give different texts."""
    rest, device = divmod(number, len(DEVICES))
    count, place = divmod(rest, len(PLACES))
    return tuple(f"{DEVICES[device][n]} {PLACES[place][n]} {count + 1}"
                 for n in range(len(LANGUAGES)))


class Writer:
    """Gathers the groups of a file and hands out handles and texts."""

    def __init__(self, options, groups):
        self.random = random.Random(20240318)
        self.pages = options.pages
        self.terms = options.terms
        self.groups = groups
        self.handle = 0x1000
        self.virtual = []

    def next_handle(self):
        self.handle += 1
        return f"{self.handle:X}"

    def text(self):
        if self.random.random() < KNOWN:
            return term(self.random.randrange(self.terms))[0]
        return f"-X{self.random.randrange(400)}:{self.handle}"

    def page(self, group):
        return f"PAG{group * self.pages // self.groups + 1:03d}"


def tags(*pairs):
    return "".join(f"{code:3d}\n{value}\n" for code, value in pairs)


def entity(kind, handle, layer, owner="1F"):
    return f"  0\n{kind}\n  5\n{handle}\n330\n{owner}\n100\nAcDbEntity\n  8\n{layer}\n"


def line(w, layer, x, y):
    dx, dy = w.random.choice(((w.random.uniform(5, 60), 0.0), (0.0, w.random.uniform(5, 60))))
    return entity("LINE", w.next_handle(), layer) + (
        f"100\nAcDbLine\n 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n"
        f" 11\n{x + dx:.6f}\n 21\n{y + dy:.6f}\n 31\n0.0\n")


def circle(w, layer, x, y):
    return entity("CIRCLE", w.next_handle(), layer) + (
        f"100\nAcDbCircle\n 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 40\n1.2\n")


def polyline(w, layer, x, y, count):
    points = "".join(f" 10\n{x + 5 * n:.6f}\n 20\n{y + w.random.uniform(0, 20):.6f}\n"
                     for n in range(count))
    return entity("LWPOLYLINE", w.next_handle(), layer) + (
        f"100\nAcDbPolyline\n 90\n{count}\n 70\n0\n{points}")


def wire(w, layer, x, y):
    return polyline(w, layer, x, y, 4) + (
        f"1001\nVRN_TQ_WIRE\n1000\nFIO\n1070\n2\n"
        f"1000\nDESCRICAO^L{w.text()}\n1000\nDESTINO^L{w.text()}\n")


def text(w, layer, x, y):
    return entity("TEXT", w.next_handle(), layer) + (
        f"100\nAcDbText\n 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 40\n2.5\n  1\n{w.text()}\n"
        f"  7\nStandard\n100\nAcDbText\n")


def mtext(w, layer, x, y, formatted):
    contents = f"{{\\fArial|b1|i0;{w.text()}}}\\P{w.text()}" if formatted else w.text()
    return entity("MTEXT", w.next_handle(), layer) + (
        f"100\nAcDbMText\n 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 40\n2.5\n 41\n80.0\n 71\n1\n"
        f" 72\n5\n  1\n{contents}\n  7\nStandard\n 73\n1\n 44\n1.0\n")


def reference(w, block, layer, x, y, attributes):
    insert = w.next_handle()
    out = [entity("INSERT", insert, layer),
           f"100\nAcDbBlockReference\n 66\n1\n  2\n{block}\n 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n"]
    for n, (tag, value) in enumerate(attributes):
        out.append(entity("ATTRIB", w.next_handle(), layer, insert))
        out.append(f"100\nAcDbText\n 10\n{x:.6f}\n 20\n{y - 4 * n:.6f}\n 30\n0.0\n 40\n2.0\n"
                   f"  1\n{value}\n  7\nStandard\n100\nAcDbAttribute\n280\n0\n  2\n{tag}\n"
                   f" 70\n0\n280\n1\n")
    out.append(entity("SEQEND", w.next_handle(), layer, insert))
    return "".join(out)


def group(w, number):
    layer = w.page(number)
    x, y = 40.0 * (number % 500), 60.0 * (number // 500)
    parts = [line(w, layer, x + 2 * n, y) for n in range(2)]
    parts += [circle(w, layer, x, y), polyline(w, layer, x, y, 5), wire(w, layer, x, y)]
    parts.append(reference(w, f"SIMBOLO{number % BLOCKS}", layer, x, y, (
        ("TAG", f"-K{number}"), ("DESCRICAO", w.text()), ("FUNCAO", w.text()),
        ("LOCAL", w.text()), ("CODIGO", f"{7000000 + number}"))))
    parts += [text(w, layer, x, y + 10), text(w, layer, x, y + 14)]
    if number % 4 == 0:
        parts.append(mtext(w, layer, x, y + 30, number % 8 == 0))
    if number % 100 == 0:
        parts.append(line(w, layer + "$FORMATO", x, y))
        parts.append(reference(w, "SIMBOLO0", layer + "$SELO", x, y, (
            ("PROJETO", w.text()), ("DESCRICAO", w.text()), ("PAGINA", layer))))
    if number % 50 == 0:
        w.virtual.append((w.next_handle(), w.text(), w.text()))
    return "".join(parts)


# --- what stands around the entities ----------------------------------------------------------

def table(name, handle, *entries):
    head = tags((0, "TABLE"), (2, name), (5, handle), (330, 0), (100, "AcDbSymbolTable"),
                (70, len(entries)))
    if name == "DIMSTYLE":
        head += tags((100, "AcDbDimStyleTable"))
    return head + "".join(entries) + tags((0, "ENDTAB"))


def record(w, kind, table_handle, subclass, name, *more, handle=None):
    code = 105 if kind == "DIMSTYLE" else 5
    return tags((0, kind), (code, handle or w.next_handle()), (330, table_handle),
                (100, "AcDbSymbolTableRecord"), (100, subclass), (2, name), *more)


def layer_names(pages):
    for number in range(1, pages + 1):
        for suffix in ("", "$DE", "$SELO", "$FORMATO"):
            yield f"PAG{number:03d}{suffix}"


def tables(w, pages, blocks):
    plain = (70, 0)
    layers = [record(w, "LAYER", "2", "AcDbLayerTableRecord", name, plain, (62, 7),
                     (6, "Continuous"), (390, "F")) for name in ("0", "tq_freeze",
                                                                *layer_names(pages))]
    ltypes = [record(w, "LTYPE", "5", "AcDbLinetypeTableRecord", name, plain, (3, ""), (72, 65),
                     (73, 0), (40, 0.0)) for name in ("ByBlock", "ByLayer", "Continuous")]
    apps = [record(w, "APPID", "9", "AcDbRegAppTableRecord", name, plain)
            for name in ("ACAD", "VRN_TQ_WIRE", "VRN_TQ_ATT_VIRTUAL")]
    style = record(w, "STYLE", "3", "AcDbTextStyleTableRecord", "Standard", plain, (40, 0.0),
                   (41, 1.0), (50, 0.0), (71, 0), (42, 2.5), (3, "txt"), (4, ""))
    dimstyle = record(w, "DIMSTYLE", "A", "AcDbDimStyleTableRecord", "Standard", plain)
    view = record(w, "VPORT", "8", "AcDbViewportTableRecord", "*Active", plain, (10, 0.0),
                  (20, 0.0), (11, 1.0), (21, 1.0), (12, 10000.0), (22, 5000.0), (40, 12000.0),
                  (41, 1.5))
    records = [record(w, "BLOCK_RECORD", "1", "AcDbBlockTableRecord", name, (340, layout),
                      handle=handle) for name, handle, layout in blocks]
    return (table("VPORT", "8", view) + table("LTYPE", "5", *ltypes) + table("LAYER", "2", *layers)
            + table("STYLE", "3", style) + table("VIEW", "6") + table("UCS", "7")
            + table("APPID", "9", *apps) + table("DIMSTYLE", "A", dimstyle)
            + table("BLOCK_RECORD", "1", *records))


def block(w, name, handle, content=""):
    begin = entity("BLOCK", w.next_handle(), "0", handle) + tags(
        (100, "AcDbBlockBegin"), (2, name), (70, 2 if content else 0), (10, 0.0), (20, 0.0),
        (30, 0.0), (3, name), (1, ""))
    end = entity("ENDBLK", w.next_handle(), "0", handle) + tags((100, "AcDbBlockEnd"))
    return begin + content + end


def symbol(w, name, handle):
    content = line(w, "0", 0, 0) + circle(w, "0", 0, 0) + text(w, "0", 0, 0)
    for n, tag in enumerate(("TAG", "DESCRICAO", "FUNCAO")):
        content += entity("ATTDEF", w.next_handle(), "0") + tags(
            (100, "AcDbText"), (10, 0.0), (20, -4.0 * n), (30, 0.0), (40, 2.0), (1, ""),
            (7, "Standard"), (100, "AcDbAttributeDefinition"), (280, 0), (3, tag), (2, tag),
            (70, 0), (280, 1))
    return block(w, name, handle, content.replace("330\n1F\n", f"330\n{handle}\n"))


def dictionary(handle, owner, *entries):
    pairs = [pair for name, target in entries for pair in ((3, name), (350, target))]
    return tags((0, "DICTIONARY"), (5, handle), (330, owner), (100, "AcDbDictionary"), (281, 1),
                *pairs)


def layout(handle, name, order, record_handle):
    return tags((0, "LAYOUT"), (5, handle), (330, "D1"), (100, "AcDbPlotSettings"), (1, ""),
                (4, "A3"), (6, ""), (40, 7.5), (41, 20.0), (42, 7.5), (43, 20.0), (44, 420.0),
                (45, 297.0), (70, 1024 if name == "Model" else 688), (72, 1), (73, 0), (74, 5),
                (7, ""), (75, 16), (100, "AcDbLayout"), (1, name), (70, 1), (71, order),
                (330, record_handle))


def objects(w):
    devices = [(f"EV{n:05d}", handle) for n, (handle, *_) in enumerate(w.virtual)]
    out = [dictionary("C", "0", ("ACAD_GROUP", "D0"), ("ACAD_LAYOUT", "D1"),
                      ("ACAD_PLOTSTYLENAME", "E"), ("ESQ_VIRTUAL_TQ", "D2")),
           dictionary("D0", "C"), dictionary("D1", "C", ("Layout1", "D4"), ("Model", "D3")),
           dictionary("D2", "C", *devices),
           tags((0, "ACDBDICTIONARYWDFLT"), (5, "E"), (330, "C"), (100, "AcDbDictionary"),
                (281, 1), (3, "Normal"), (350, "F"), (100, "AcDbDictionaryWithDefault"),
                (340, "F")),
           tags((0, "ACDBPLACEHOLDER"), (5, "F"), (330, "E")),
           layout("D3", "Model", 0, "1F"), layout("D4", "Layout1", 1, "1B")]
    for handle, first, second in w.virtual:
        out.append(tags((0, "XRECORD"), (5, handle), (330, "D2"), (100, "AcDbXrecord"), (280, 1),
                        (1001, "VRN_TQ_ATT_VIRTUAL"), (1000, f"FUNCAO^L{first}^L0"),
                        (1000, f"LOCAL^L{second}^L1")))
    return "".join(out)


def section(name, content):
    return tags((0, "SECTION"), (2, name)) + content + tags((0, "ENDSEC"))


def write_drawing(options, groups):
    w = Writer(options, groups)
    symbols = [(f"SIMBOLO{n}", w.next_handle(), "0") for n in range(BLOCKS)]
    spaces = [("*Model_Space", "1F", "D3"), ("*Paper_Space", "1B", "D4")]
    front = section("CLASSES", "") + section("TABLES", tables(w, options.pages, spaces + symbols))
    front += section("BLOCKS", "".join(block(w, name, handle) for name, handle, _ in spaces)
                     + "".join(symbol(w, name, handle) for name, handle, _ in symbols))
    entities = "".join(group(w, number) for number in range(groups))
    back = section("ENTITIES", entities) + section("OBJECTS", objects(w)) + tags((0, "EOF"))
    header = section("HEADER", tags(
        (9, "$ACADVER"), (1, options.dxf_version), (9, "$DWGCODEPAGE"), (3, "ANSI_1252"),
        (9, "$HANDSEED"), (5, f"{w.handle + 1:X}"), (9, "$INSUNITS"), (70, 4)))
    with open(options.out, "w", encoding="utf-8", newline="\n") as file:
        file.writelines((header, front, back))


def group_size(options):
    """Bytes of an average group, measured on a hundred of them."""
    w = Writer(options, 100)
    return sum(len(group(w, number).encode()) for number in range(100)) / 100


def write_dictionary(path, terms):
    with open(path, "w", encoding="utf-8", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(LANGUAGES)
        writer.writerows(term(number) for number in range(terms))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("size", type=float, help="megabytes of 1,000,000 bytes")
    parser.add_argument("out")
    parser.add_argument("--objects", type=int, help="translatables, in place of the size")
    parser.add_argument("--pages", type=int, default=100)
    parser.add_argument("--terms", type=int, default=10000)
    parser.add_argument("--dictionary", help="writes the terms as CSV to this file")
    parser.add_argument("--dxf-version", default="AC1024", choices=("AC1021", "AC1024", "AC1027",
                                                                    "AC1032"))
    options = parser.parse_args()
    groups = options.objects / OBJECTS_PER_GROUP if options.objects else (
        options.size * 1e6 / group_size(options))
    write_drawing(options, max(1, round(groups)))
    if options.dictionary:
        write_dictionary(options.dictionary, options.terms)


if __name__ == "__main__":
    main()
