#!/usr/bin/python3
"""Switches a drawing to another language with ezdxf in one pass over its texts, from the records in
the drawing: the measure for `kelvara switch`.

It does what has to be done and no more: every recorded text is replaced, the one it replaces is
recorded, the project's language is set, the drawing is saved. It tries no way back and compares
nothing.
"""
import argparse

import ezdxf
from ezdxf.lldxf.types import DXFTag

from translate_ezdxf import FIELD_END, NEVER_PAGES, SCHEME, VIRTUAL, WIRE

RECORDS, PROJECT, LANGUAGE, MARK = "VRN_TQ_OBJS_TRADS", "KV_PROJECT", "LANGUAGE", "EObjString"
LONGEST = 250


class Switch:
    def __init__(self, doc, source, target):
        self.doc = doc
        self.source = source
        self.target = target
        self.records = doc.rootdict[RECORDS]
        self.blocks = set()
        self.changed = 0

    def recorded(self, records, language):
        record = records.get(language)
        if record is None:
            return None
        tags = [tag.value for tag in record.tags if tag.code in (1, 3)]
        return "".join(tags[1:])

    def record(self, records, text):
        record = records.get(self.source)
        if record is None:
            record = self.doc.objects.new_entity("XRECORD", {"owner": records.dxf.handle})
            records[self.source] = record
        chunks = [text[n:n + LONGEST] for n in range(0, len(text), LONGEST)] or [""]
        record.tags[:] = [DXFTag(1, MARK), *(DXFTag(3, chunk) for chunk in chunks[:-1]),
                          DXFTag(1, chunks[-1])]

    def switched(self, key, text, alone=True):
        """The text in the new language, recorded what it replaces; None where it stays."""
        text = text.strip()
        records = self.records.get(key) if text else None
        if records is None:
            return None
        new = self.recorded(records, self.target)
        if new is None or new in ("", " "):
            return None
        if not alone and self.recorded(records, self.source) != text:
            return None
        self.record(records, text)
        self.changed += 1
        return new

    def text(self, entity):
        new = self.switched(entity.dxf.handle, entity.dxf.text)
        if new is not None:
            entity.dxf.text = new

    def mtext(self, entity):
        new = self.switched(entity.dxf.handle, entity.text)
        if new is not None:
            entity.text = new

    def reference(self, entity):
        for attribute in entity.attribs:
            self.text(attribute)
        if entity.dxf.name not in self.blocks and entity.dxf.name in self.doc.blocks:
            self.blocks.add(entity.dxf.name)
            for inner in self.doc.blocks[entity.dxf.name].query("TEXT"):
                self.text(inner)

    def strings(self, entity, application, skip, key_of):
        if not entity.has_xdata(application):
            return
        entries, changed = entity.get_xdata(application), False
        alone = len(entries) - skip == 1
        for n in range(skip, len(entries)):
            fields = str(entries[n].value).split(FIELD_END)
            if len(fields) < 2:
                continue
            new = self.switched(key_of(fields[0]), fields[1], alone)
            if new is not None:
                fields[1] = new
                entries[n] = (1000, FIELD_END.join(fields))
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
                self.strings(entity, WIRE, 2, lambda name, handle=entity.dxf.handle: handle)
        for _, entry in self.doc.rootdict.get(SCHEME, {}).items():
            handle = entry.dxf.handle
            self.strings(entry, VIRTUAL, 0, lambda name, handle=handle: f"{handle}_{name}")
        for tag_at, tag in enumerate(self.doc.rootdict[PROJECT][LANGUAGE].tags):
            if tag.code == 90:
                self.doc.rootdict[PROJECT][LANGUAGE].tags[tag_at] = DXFTag(90, int(self.target))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for name in ("drawing", "source", "target", "out"):
        parser.add_argument(name, help="a path" if name in ("drawing", "out") else "a key")
    options = parser.parse_args()
    switch = Switch(ezdxf.readfile(options.drawing), options.source, options.target)
    switch.run()
    switch.doc.saveas(options.out)
    print(f"{switch.changed} strings changed")


if __name__ == "__main__":
    main()
