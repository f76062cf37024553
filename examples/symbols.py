"""The symbols of the example projects as block definitions: lines, texts and attribute definitions.

Lengths are millimetres. A symbol's origin is its upper connection, and it hangs down from there.
Three-pole symbols have their poles at x = 0, 8 and 16.
"""
from ezdxf.enums import TextEntityAlignment as Align

POLES = (0, 8, 16)
LENGTH = 16  # of a contact, a coil or a lamp, from connection to connection


class Symbol:
    """A block definition under construction."""

    def __init__(self, doc, name):
        self.block = doc.blocks.new(name)

    def lines(self, *strokes):
        for start, end in strokes:
            self.block.add_line(start, end)
        return self

    def polygon(self, *points, closed=True):
        self.block.add_lwpolyline(points, close=closed)
        return self

    def circle(self, centre, radius):
        self.block.add_circle(centre, radius)
        return self

    def arc(self, centre, radius, start, end):
        self.block.add_arc(centre, radius, start, end)
        return self

    def text(self, text, place, height=1.8, align=Align.LEFT):
        entity = self.block.add_text(text, height=height, dxfattribs={"style": "KV"})
        entity.set_placement(place, align=align)
        return self

    def attribute(self, tag, place, height=2.0, prompt=""):
        attdef = self.block.add_attdef(tag, place, height=height, dxfattribs={"style": "KV"})
        attdef.dxf.prompt = prompt or tag.capitalize()
        return self

    def labels(self, x, y=-5):
        """Name, description and function, one below the other."""
        self.attribute("TAG", (x, y), 2.5, "Identificação")
        self.attribute("DESCRICAO", (x, y - 4), 2.0, "Descrição")
        return self.attribute("FUNCAO", (x, y - 7.5), 2.0, "Função")


def open_contact(symbol, x=0):
    symbol.lines(((x, 0), (x, -5)), ((x, -11), (x - 3, -5.5)), ((x, -11), (x, -LENGTH)))


def closed_contact(symbol, x=0):
    symbol.lines(((x, 0), (x, -5)), ((x, -5), (x + 2.8, -5)), ((x, -11), (x + 2.5, -4.2)),
                 ((x, -11), (x, -LENGTH)))


def breaker_cross(symbol, x):
    symbol.lines(((x - 1, -4), (x + 1, -6)), ((x - 1, -6), (x + 1, -4)))


def contactor_arc(symbol, x):
    symbol.arc((x, -6), 1, 90, 270)


def power_switch(doc, name, mark, poles=POLES):
    symbol = Symbol(doc, name)
    for x in poles:
        open_contact(symbol, x)
        mark(symbol, x)
    symbol.lines(((-1.5, -8.2), (poles[-1] - 1.5, -8.2)))
    return symbol.labels(poles[-1] + 4)


def motor_breaker(doc):
    symbol = power_switch(doc, "DISJ_MOTOR", breaker_cross)
    for x in POLES:
        symbol.polygon((x - 1.5, -12), (x + 1.5, -12), (x + 1.5, -14), (x - 1.5, -14))


def fuse(doc, name, poles):
    symbol = Symbol(doc, name)
    for x in poles:
        symbol.lines(((x, 0), (x, -LENGTH)))
        symbol.polygon((x - 1.5, -4), (x + 1.5, -4), (x + 1.5, -12), (x - 1.5, -12))
    symbol.labels(poles[-1] + 4)


def motor(doc):
    symbol = Symbol(doc, "MOTOR").circle((8, -14), 9)
    symbol.lines(((0, 0), (2.4, -7)), ((8, 0), (8, -5)), ((16, 0), (13.6, -7)))
    symbol.text("M", (8, -13.5), 4, Align.MIDDLE_CENTER)
    symbol.text("3~", (8, -18.5), 2.5, Align.MIDDLE_CENTER)
    symbol.attribute("TAG", (20, -7), 2.5).attribute("POTENCIA", (20, -11), 2.0)
    symbol.attribute("FUNCAO", (-6, -28), 2.2).attribute("DESCRICAO", (-6, -32), 2.0)


def control_contact(doc, name, draw, pins, actuator=()):
    symbol = Symbol(doc, name)
    draw(symbol)
    symbol.lines(*actuator)
    symbol.text(pins[0], (-3.2, -2.5), 1.5).text(pins[1], (-3.2, -14.5), 1.5)
    symbol.labels(4)


def coil(doc, name, diagonal=False):
    symbol = Symbol(doc, name).lines(((0, 0), (0, -5)), ((0, -11), (0, -LENGTH)))
    symbol.polygon((-4, -5), (4, -5), (4, -11), (-4, -11))
    if diagonal:
        symbol.lines(((-4, -11), (4, -5)))
    symbol.text("A1", (-3.2, -3), 1.5).text("A2", (-3.2, -14.5), 1.5)
    symbol.labels(6)


def lamp(doc):
    symbol = Symbol(doc, "SINALEIRO").circle((0, -8), 3.5)
    symbol.lines(((0, 0), (0, -4.5)), ((0, -11.5), (0, -LENGTH)),
                 ((-2.5, -10.5), (2.5, -5.5)), ((-2.5, -5.5), (2.5, -10.5)))
    symbol.text("X1", (-3.6, -3), 1.5).text("X2", (-3.6, -14.5), 1.5)
    symbol.labels(6)


def horn(doc):
    symbol = Symbol(doc, "SIRENE").lines(((0, 0), (0, -5)), ((0, -11), (0, -LENGTH)))
    symbol.polygon((-3, -5), (3, -5), (3, -11), (-3, -11)).polygon(
        (-3, -6), (-6, -4), (-6, -12), (-3, -10), closed=False)
    symbol.labels(6)


def device_box(doc, name, width, height, title, feet):
    """A device drawn as a box with a title inside and connections above and below."""
    symbol = Symbol(doc, name)
    symbol.polygon((-6, -4), (width - 6, -4), (width - 6, -4 - height), (-6, -4 - height))
    for x, label, upper in feet:
        end, pin = (0, -6.8) if upper else (-8 - height, -2.8 - height)
        symbol.lines(((x, end), (x, -4 if upper else -4 - height)))
        symbol.text(label, (x, pin), 1.6, Align.CENTER)
    middle = (width / 2 - 6, -4 - height / 2)
    symbol.text(title, middle, 2.2, Align.MIDDLE_CENTER)
    symbol.labels(width - 4)


def transformer(doc):
    symbol = Symbol(doc, "TRAFO").circle((4, -9), 5).circle((4, -16), 5)
    symbol.lines(((0, 0), (0, -6)), ((8, 0), (8, -6)), ((0, -19), (0, -25)), ((8, -19), (8, -25)))
    symbol.labels(13, -9)


def surge_arrester(doc):
    symbol = Symbol(doc, "DPS")
    for x in POLES:
        symbol.lines(((x, 0), (x, -4)), ((x, -12), (x, -LENGTH)), ((x, -5.5), (x, -8)))
        symbol.polygon((x - 2, -4), (x + 2, -4), (x + 2, -12), (x - 2, -12))
        symbol.polygon((x, -10), (x - 1, -8), (x + 1, -8))
    symbol.lines(((0, -LENGTH), (16, -LENGTH)))
    symbol.labels(20)


def terminal(doc):
    Symbol(doc, "BORNE").circle((0, 0), 1.2).attribute("NUMERO", (1.8, 0.8), 1.8)


def terminal_row(doc):
    """A line of a terminal table; its columns are those of the page that draws it."""
    symbol = Symbol(doc, "LINHA_BORNE").polygon((0, 0), (186, 0), (186, -8), (0, -8))
    symbol.lines(*(((x, 0), (x, -8)) for x in (16, 46, 80, 104))).circle((4, -4), 1.5)
    for tag, x in (("NUMERO", 8), ("ORIGEM", 18), ("DESTINO", 48), ("CABO", 82), ("FUNCAO", 106)):
        symbol.attribute(tag, (x, -5.2), 2.2)


def earth(doc):
    Symbol(doc, "TERRA").lines(((0, 0), (0, -4)), ((-3, -4), (3, -4)),
                               ((-2, -5.2), (2, -5.2)), ((-1, -6.4), (1, -6.4)))


def io_card(doc, name, title, letter):
    """A PLC card over the whole page with eight channels, 47 mm from one to the next."""
    symbol = Symbol(doc, name).polygon((0, 0), (385, 0), (385, -28), (0, -28))
    symbol.text(title, (192, -6), 3.5, Align.MIDDLE_CENTER)
    symbol.attribute("TAG", (3, -7), 3.0).attribute("DESCRICAO", (30, -7), 2.2)
    symbol.attribute("TIPO", (330, -7), 2.2)
    for channel in range(8):
        x = 15 + 47 * channel
        symbol.circle((x, -28), 1)
        symbol.text(f"{letter}0.{channel}", (x, -25), 2.5, Align.CENTER)
        symbol.attribute(f"CANAL{channel}", (x - 12, -19), 2.0)


def frame(doc):
    """The A3 sheet: border, eight columns and six rows."""
    symbol = Symbol(doc, "FORMATO_A3")
    symbol.polygon((5, 5), (415, 5), (415, 292), (5, 292))
    symbol.polygon((10, 10), (410, 10), (410, 287), (10, 287))
    for column in range(8):
        x = 10 + 50 * column
        symbol.lines(((x, 287), (x, 292)))
        symbol.text(str(column + 1), (x + 25, 289.5), 2.5, Align.MIDDLE_CENTER)
    for row, letter in enumerate("ABCDEF"):
        y = 287 - 277 / 6 * row
        symbol.lines(((5, y), (10, y)))
        symbol.text(letter, (7.5, y - 277 / 12), 2.5, Align.MIDDLE_CENTER)


TITLE_FIELDS = (  # label, attribute, x, y, height of the attribute
    ("Cliente:", "CLIENTE", 12, 26, 3.0), ("Projeto:", "PROJETO", 12, 12, 3.0),
    ("Descrição da página:", "DESCRICAO", 130, 26, 4.0),
    ("Local de instalação:", "LOCAL", 130, 12, 3.0),
    ("Desenhado por:", "DESENHADO", 262, 26, 2.5), ("Verificado por:", "VERIFICADO", 262, 12, 2.5),
    ("Data:", "DATA", 312, 26, 2.5), ("Revisão:", "REVISAO", 312, 12, 2.5),
    ("Página:", "PAGINA", 362, 26, 4.0), ("Página seguinte:", "PROXIMA", 362, 12, 3.0),
)


def title_block(doc):
    symbol = Symbol(doc, "SELO").lines(((10, 38), (410, 38)), ((10, 24), (410, 24)))
    symbol.lines(*(((x, 10), (x, 38)) for x in (128, 260, 310, 360)))
    for label, tag, x, y, height in TITLE_FIELDS:
        symbol.text(label, (x, y + 8), 1.8)
        symbol.attribute(tag, (x, y + 1), height)


def page_references(doc):
    """Where a signal comes from and where it goes on; the texts stand above the line."""
    for name, tip, text, x in (("DE_PAGINA", 0, "Vem da página", 2),
                               ("PARA_PAGINA", 5, "Continua na página", -39)):
        symbol = Symbol(doc, name).polygon((tip - 5, 2), (tip - 5, -2), (tip, 0))
        symbol.text(text, (x, 1.2), 2.0).attribute("PAGINA", (x + 30, 1.2))
        symbol.attribute("SINAL", (x, 4.6))


def define(doc):
    """Defines every symbol in a new drawing."""
    power_switch(doc, "DISJ3", breaker_cross)
    power_switch(doc, "DISJ2", breaker_cross, POLES[:2])
    power_switch(doc, "CONT3", contactor_arc)
    for build in (motor_breaker, motor, lamp, horn, transformer, surge_arrester, terminal,
                  terminal_row, earth, frame, title_block, page_references):
        build(doc)
    fuse(doc, "FUSIVEL3", POLES)
    fuse(doc, "FUSIVEL1", (0,))
    button = (((-3, -8.2), (-6, -8.2)), ((-6, -7), (-6, -9.4)))
    control_contact(doc, "NA", open_contact, ("13", "14"))
    control_contact(doc, "NF", closed_contact, ("21", "22"))
    control_contact(doc, "BOTAO_NA", open_contact, ("3", "4"), button)
    control_contact(doc, "BOTAO_NF", closed_contact, ("1", "2"),
                    button + (((-3, -8.2), (1, -8.2)),))
    control_contact(doc, "CHAVE", open_contact, ("13", "14"),
                    button + (((-6, -9.4), (-7.5, -9.4)), ((-6, -7), (-4.5, -7))))
    coil(doc, "BOBINA")
    coil(doc, "VALVULA", diagonal=True)
    device_box(doc, "RELE_FASE", 28, 22, "Falta de fase",
               ((0, "L1", True), (8, "L2", True), (16, "L3", True),
                (0, "15", False), (16, "18", False)))
    device_box(doc, "FONTE", 32, 26, "Fonte 24 Vcc",
               ((0, "L", True), (8, "N", True), (0, "L+", False), (8, "M", False)))
    io_card(doc, "CLP_ENTRADAS", "Entradas digitais", "E")
    io_card(doc, "CLP_SAIDAS", "Saídas digitais", "S")
