"""One pass over the texts of a drawing with ezdxf, for the programs that measure kelvara.

A Walk asks `new_text(entity, text)` about every text and writes what it answers, unless that is
None. The strings of wires and of virtual attributes come with their name and with whether they are
the only one of their entity.
"""
WIRE, VIRTUAL, SCHEME = "VRN_TQ_WIRE", "VRN_TQ_ATT_VIRTUAL", "ESQ_VIRTUAL_TQ"
NEVER_PAGES = ("0", "tq_freeze")
FIELD_END = "^L"


class Walk:
    def __init__(self, doc):
        self.doc = doc
        self.blocks = set()
        self.changed = 0

    def text(self, entity):
        new = self.new_text(entity, entity.dxf.text)
        if new is not None:
            entity.dxf.text = new
            self.changed += 1

    def mtext(self, entity):
        new = self.new_text(entity, entity.text)
        if new is not None:
            entity.text = new
            self.changed += 1

    def reference(self, entity):
        for attribute in entity.attribs:
            self.text(attribute)
        name = entity.dxf.name
        if name in self.blocks:
            return
        self.blocks.add(name)
        for inner in self.doc.blocks.get(name) or ():
            if inner.dxftype() == "TEXT":
                self.text(inner)

    def strings(self, entity, application, skip, field_count):
        """The second field of every string of an application's data behind the first `skip`.

        ezdxf leaves the application's own entry out of its list.
        """
        if not entity.has_xdata(application):
            return
        entries, changed = entity.get_xdata(application), False
        alone = len(entries) == skip + 1
        for n in range(skip, len(entries)):
            fields = str(entries[n].value).split(FIELD_END)
            if len(fields) < field_count:
                continue
            new = self.new_string(entity, application, fields[0], fields[1], alone)
            if new is not None:
                fields[1] = new
                entries[n] = (1000, FIELD_END.join(fields))
                self.changed += 1
                changed = True
        if changed:
            entity.set_xdata(application, entries)

    def run(self):
        for entity in self.doc.modelspace():
            kind = entity.dxftype()
            if entity.dxf.layer in NEVER_PAGES:
                continue
            if kind == "INSERT":
                self.reference(entity)
            elif kind == "TEXT":
                self.text(entity)
            elif kind == "MTEXT":
                self.mtext(entity)
            elif kind == "LWPOLYLINE":
                self.strings(entity, WIRE, 2, 2)
        for _, entry in self.doc.rootdict.get(SCHEME, {}).items():
            self.strings(entry, VIRTUAL, 0, 3)
