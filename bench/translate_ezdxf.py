#!/usr/bin/python3
"""Translates a drawing with ezdxf in one pass with a dict: the measure for `kelvara translate`.

It does the same work as well as Python can: the dictionary is read with one query, every text is
looked up once, and the drawing is saved. It compares nothing afterwards.
"""
import argparse
import sqlite3

import ezdxf

WIRE, VIRTUAL, SCHEME = "VRN_TQ_WIRE", "VRN_TQ_ATT_VIRTUAL", "ESQ_VIRTUAL_TQ"
NEVER_PAGES = ("0", "tq_freeze")
FIELD_END = "^L"


def read_dictionary(path, source, target):
    connection = sqlite3.connect(path)
    keys = dict(connection.execute("SELECT LANG_DESCR, LANG_KEY FROM BDLANGUAGE"))
    columns = [f"LANGUAGE{keys.get(name, name)}" for name in (source, target)]
    terms = {}
    for text, translation in connection.execute(
            f"SELECT {columns[0]}, {columns[1]} FROM BDTRANSLATOR ORDER BY TRANS_KEY"):
        terms.setdefault(text, translation)
    return {text: translation for text, translation in terms.items() if translation}


class Translator:
    def __init__(self, doc, terms):
        self.doc = doc
        self.terms = terms
        self.changed = 0
        self.blocks = set()

    def text(self, entity):
        found = self.terms.get(entity.dxf.text.strip())
        if found is not None:
            entity.dxf.text = found
            self.changed += 1

    def mtext(self, entity):
        found = self.terms.get(entity.text.strip())
        if found is not None:
            entity.text = found
            self.changed += 1

    def reference(self, entity):
        for attribute in entity.attribs:
            self.text(attribute)
        if entity.dxf.name not in self.blocks and entity.dxf.name in self.doc.blocks:
            self.blocks.add(entity.dxf.name)
            for inner in self.doc.blocks[entity.dxf.name].query("TEXT"):
                self.text(inner)

    def strings(self, entity, application, skip, field_count):
        """The second field of every string of an application's data behind the first `skip`.

        ezdxf leaves the application's own entry out of its list.
        """
        if not entity.has_xdata(application):
            return
        entries, changed = entity.get_xdata(application), False
        for n in range(skip, len(entries)):
            fields = str(entries[n].value).split(FIELD_END)
            found = self.terms.get(fields[1].strip()) if len(fields) >= field_count else None
            if found is not None:
                fields[1] = found
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


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for name in ("drawing", "database", "source", "target", "out"):
        parser.add_argument(name)
    options = parser.parse_args()
    terms = read_dictionary(options.database, options.source, options.target)
    translator = Translator(ezdxf.readfile(options.drawing), terms)
    translator.run()
    translator.doc.saveas(options.out)
    print(f"{translator.changed} strings changed")


if __name__ == "__main__":
    main()
