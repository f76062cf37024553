#!/usr/bin/python3
"""Times ezdxf on a drawing: load, walk of texts and wires, edit, save. Prints seconds and the
number of texts as JSON."""
import json
import sys
import time

import ezdxf

WIRE = "VRN_TQ_WIRE"


def walk(doc):
    """Every entity that bears text and every wire, in the blocks: the layouts are blocks too."""
    texts, wires = [], []
    for layout in doc.blocks:
        for entity in layout:
            kind = entity.dxftype()
            if kind in ("TEXT", "ATTDEF"):
                texts.append((entity, entity.dxf.text))
            elif kind == "MTEXT":
                texts.append((entity, entity.text))
            elif kind == "INSERT":
                texts += [(attribute, attribute.dxf.text) for attribute in entity.attribs]
            elif kind == "LWPOLYLINE" and entity.has_xdata(WIRE):
                wires.append((entity, entity.get_xdata(WIRE)))
    return texts, wires


def edit(texts):
    for n, (entity, _) in enumerate(texts[::10]):
        if entity.dxftype() == "MTEXT":
            entity.text = f"Uebersetzung {n}"
        else:
            entity.dxf.text = f"Uebersetzung {n}"


def main():
    drawing, out = sys.argv[1:]
    marks = [time.perf_counter()]

    def mark(result=None):
        marks.append(time.perf_counter())
        return result

    doc = mark(ezdxf.readfile(drawing))
    texts, _ = mark(walk(doc))
    mark(edit(texts))
    mark(doc.saveas(out))
    spans = [end - begin for begin, end in zip(marks, marks[1:])]
    print(json.dumps({**dict(zip(("load", "walk", "edit", "save"), spans)), "texts": len(texts)}))


if __name__ == "__main__":
    main()
