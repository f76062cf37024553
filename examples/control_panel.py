#!/usr/bin/python3
"""Writes the two example projects, control_panel.dxf and block_pages.dxf, beside this script.

A rerun gives the same bytes. Needs ezdxf (Debian: python3-ezdxf).
"""
import pathlib
import sys

import ezdxf

import pages
import symbols
from sheet import FIELD_END, WIRE_APP, BlockSheet, Sheet

HERE = pathlib.Path(__file__).resolve().parent
VIRTUAL_APP = "VRN_TQ_ATT_VIRTUAL"
VIRTUAL_SCHEME = "ESQ_VIRTUAL_TQ"

# The devices that stand in lists and not in a page: name, text and a third field of each string.
VIRTUAL_DEVICES = {
    "EV0001": (("FUNCAO", "Bomba de recalque 1", "PAG03"),
               ("DESCRICAO", "Motor trifásico", "PAG03")),
    "EV0002": (("FUNCAO", "Bomba de recalque 2", "PAG03"),
               ("DESCRICAO", "Motor trifásico", "PAG03")),
    "EV0003": (("FUNCAO", "Sensor de nível ultrassônico", "PAG05"),
               ("FABRICANTE", "", "PAG05")),
    "EV0004": (("FUNCAO", "Transmissor de pressão", "PAG05"),
               ("LOCAL", "Casa de bombas", "PAG05")),
    "EV0005": (("FUNCAO", "Painel de comando", "PAG01"),
               ("LOCAL", "Sala elétrica", "PAG01")),
}


def new_drawing(version):
    doc = ezdxf.new(version, units=4)
    doc.styles.add("KV", font="arial.ttf").dxf.width = 0.85
    doc.layers.remove("Defpoints")
    doc.layers.add("tq_freeze").freeze()
    for app in (WIRE_APP, VIRTUAL_APP):
        doc.appids.add(app)
    for name in ("ACDBPLACEHOLDER", "LAYOUT"):  # ezdxf would add them in the order of a set
        doc.classes.add_class(name)
    symbols.define(doc)
    return doc


def add_virtual_scheme(doc):
    scheme = doc.rootdict.add_new_dict(VIRTUAL_SCHEME)
    for key, attributes in VIRTUAL_DEVICES.items():
        strings = [(1000, FIELD_END.join(fields)) for fields in attributes]
        scheme.add_xrecord(key).set_xdata(VIRTUAL_APP, strings)


def add_untranslated_layers(doc):
    """What lies on "0" and "tq_freeze" belongs to no page."""
    space = doc.modelspace()
    space.add_text("Área de rascunho", height=4, dxfattribs={"style": "KV", "insert": (0, -20)})
    space.add_text("Notas internas do projetista", height=4,
                   dxfattribs={"style": "KV", "layer": "tq_freeze", "insert": (0, -30)})


def write(name, version, sheet_class):
    doc = new_drawing(version)
    for number, draw in enumerate(pages.PAGES, 1):
        draw(sheet_class(doc, number, len(pages.PAGES)))
    add_virtual_scheme(doc)
    add_untranslated_layers(doc)
    doc.set_modelspace_vport(height=320, center=(225, 150))
    report = doc.audit()
    if report.errors or report.fixes:
        sys.exit(f"{name}: " + "; ".join(error.message for error in report.errors + report.fixes))
    doc.saveas(HERE / name)


if __name__ == "__main__":
    ezdxf.options.write_fixed_meta_data_for_testing = True  # no date and no random number
    write("control_panel.dxf", "R2018", Sheet)
    write("block_pages.dxf", "R2010", BlockSheet)
