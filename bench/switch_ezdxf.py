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

from walk_ezdxf import VIRTUAL, Walk

RECORDS, PROJECT, LANGUAGE, MARK = "VRN_TQ_OBJS_TRADS", "KV_PROJECT", "LANGUAGE", "EObjString"
LONGEST = 250


class Switch(Walk):
    def __init__(self, doc, source, target):
        super().__init__(doc)
        self.source = source
        self.target = target
        self.records = doc.rootdict[RECORDS]

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
        return new

    def new_text(self, entity, text):
        return self.switched(entity.dxf.handle, text)

    def new_string(self, entity, application, name, text, alone):
        handle = entity.dxf.handle
        return self.switched(f"{handle}_{name}" if application == VIRTUAL else handle, text, alone)

    def run(self):
        super().run()
        language = self.doc.rootdict[PROJECT][LANGUAGE].tags
        for at, tag in enumerate(language):
            if tag.code == 90:
                language[at] = DXFTag(90, int(self.target))


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
