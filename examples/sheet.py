"""A page of a project: a layer, its three companion layers and a place in the model space."""
from ezdxf.enums import TextEntityAlignment as Align
from ezdxf.tools.text import plain_mtext

PITCH = 450  # millimetres from a page to the next
WIRE_APP = "VRN_TQ_WIRE"
FIELD_END = "^L"  # a form feed, as a drawing file writes it


class Sheet:
    """A page with lines, texts and wires of its own in the model space."""

    def __init__(self, doc, number, count):
        self.doc = doc
        self.space = doc.modelspace()
        self.name = f"PAG{number:02d}"
        self.number = number
        self.x0 = (number - 1) * PITCH
        self.next = str(number + 1) if number < count else "-"
        for suffix in ("", "$DE", "$SELO", "$FORMATO"):
            doc.layers.add(self.name + suffix)

    def frame(self, description, project):
        """The sheet and its title block."""
        self.insert("FORMATO_A3", 0, 0, "$FORMATO")
        self.insert("SELO", 0, 0, "$SELO", DESCRICAO=description, PAGINA=str(self.number),
                    PROXIMA=self.next, **project)

    def insert(self, block, x, y, suffix="", **attributes):
        reference = self.space.add_blockref(block, (self.x0 + x, y),
                                            dxfattribs={"layer": self.name + suffix})
        reference.add_auto_attribs(attributes)

    def symbol(self, block, x, y, tag, description="", function="", **more):
        self.insert(block, x, y, TAG=tag, DESCRICAO=description, FUNCAO=function, **more)

    def line(self, *points):
        self._polyline(points)

    def box(self, x, y, width, height):
        self.line((x, y), (x + width, y), (x + width, y - height), (x, y - height), (x, y))

    def text(self, text, x, y, height=2.5, align=Align.LEFT):
        entity = self._target().add_text(text, height=height,
                                         dxfattribs={"layer": self.name, "style": "KV"})
        entity.set_placement(self._place(x, y), align=align)

    def note(self, text, x, y, width, height=2.5):
        self.space.add_mtext(text, dxfattribs={
            "layer": self.name, "style": "KV", "char_height": height, "width": width,
            "insert": self._place(x, y), "attachment_point": 1})

    def dot(self, x, y):
        """A junction."""
        self._target().add_circle(self._place(x, y), 0.7, dxfattribs={"layer": self.name})

    def wire(self, points, **fields):
        """A wire and what is told of it, one string a field: its name, a form feed, its text."""
        wire = self._polyline(points)
        strings = [(1000, name + FIELD_END + text) for name, text in fields.items()]
        wire.set_xdata(WIRE_APP, [(1000, "FIO"), (1070, len(strings)), *strings])

    def _polyline(self, points):
        return self._target().add_lwpolyline([self._place(x, y) for x, y in points],
                                             dxfattribs={"layer": self.name})

    def _target(self):
        return self.space

    def _place(self, x, y):
        return self.x0 + x, y


class BlockSheet(Sheet):
    """A page of block references alone: lines and texts stand in a block of the page."""

    def __init__(self, doc, number, count):
        super().__init__(doc, number, count)
        self.circuit = doc.blocks.new(f"CIRCUITO_{self.name}")
        self.insert(self.circuit.name, 0, 0)

    def note(self, text, x, y, width, height=2.5):
        """Line by line, since a multi-line text inside a block belongs to nobody's translation."""
        for line in plain_mtext(text, split=True):
            self.text(line, x, y - height, height)
            y -= 1.7 * height

    def wire(self, points, **fields):
        self._polyline(points)

    def _target(self):
        return self.circuit

    def _place(self, x, y):
        return x, y
