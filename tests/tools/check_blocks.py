#!/usr/bin/python3
"""Looks at drawings with ezdxf and prints what is wrong with the blocks in them; silent when all is
well.

inserted, with lines "OUT, SOURCE, TARGET, BLOCK" separated by tabs on standard input: BLOCK of OUT
holds what the model space of SOURCE holds, and an audit of OUT finds nothing that those of SOURCE
and TARGET did not find.
attributes FILE: every attribute of FILE stands where its definition says, seen through its
reference, and the audit finds nothing.
"""
import collections
import logging
import math
import sys

import ezdxf

POINTS = ("insert", "start", "end", "center", "location", "defpoint", "vtx0", "vtx2", "align_point")
VALUES = ("radius", "text", "rotation", "height", "start_angle", "end_angle")


def findings(doc):
    try:
        audit = doc.audit()
    except KeyError as missing:
        return collections.Counter([f"broken at {missing}"])
    return collections.Counter(str(entry.code) for entry in audit.errors + audit.fixes)


def rounded(value):
    if hasattr(value, "x"):
        return tuple(round(number, 6) for number in value)
    return round(value, 6) if isinstance(value, float) else value


def looks(entity):
    shown = [entity.dxftype()]
    for name in POINTS + VALUES:
        if entity.dxf.hasattr(name):
            shown.append((name, rounded(entity.dxf.get(name))))
    shown += [looks(attribute) for attribute in getattr(entity, "attribs", ())]
    if entity.dxftype() == "POLYLINE":
        shown += [rounded(vertex.dxf.location) for vertex in entity.vertices]
    return shown


def readable(path):
    try:
        return ezdxf.readfile(path)
    except Exception:  # whatever the reader stumbles over
        return None


def check_inserted(out, source, target, block):
    original = readable(source)
    if original is None:
        return
    doc = readable(out)
    if doc is None:
        yield f"{source}: cannot be read once it is a block"
        return
    new = findings(doc) - findings(original) - findings(readable(target))
    if new:
        yield f"{source}: new findings {dict(new)}"
    expected = [looks(entity) for entity in original.modelspace()]
    found = [looks(entity) for entity in doc.blocks[block]]
    # The reader puts the columns of a text together in the model space alone.
    if "MTEXT" in (entity[0] for entity in expected) and len(found) > len(expected):
        return
    for before, after in zip(expected, found):
        if before != after:
            yield f"{source}: {before} became {after}"
            return
    if len(expected) != len(found):
        yield f"{source}: {len(expected)} entities became {len(found)}"


def same_angle(a, b):
    return abs(math.remainder(a - b, 360)) < 1e-4


def check_attribute(reference, attribute, definition):
    placed = definition.copy()
    placed.transform(reference.matrix44())
    for name in ("insert", "align_point", "extrusion"):
        wanted, found = placed.dxf.get(name), attribute.dxf.get(name)
        if found is not None and not found.isclose(wanted, abs_tol=1e-6):
            yield f"{attribute}: {name} is {found}, not {wanted}"
    for name in ("height", "width", "thickness"):
        if abs(placed.dxf.get_default(name) - attribute.dxf.get_default(name)) > 1e-6:
            yield f"{attribute}: {name} is {attribute.dxf.get(name)}, not {placed.dxf.get(name)}"
    for name in ("rotation", "oblique"):
        if not same_angle(placed.dxf.get_default(name), attribute.dxf.get_default(name)):
            yield f"{attribute}: {name} is {attribute.dxf.get(name)}, not {placed.dxf.get(name)}"
    for name in ("halign", "valign", "style", "tag", "layer", "color"):
        if placed.dxf.get_default(name) != attribute.dxf.get_default(name):
            yield f"{attribute}: {name} is {attribute.dxf.get(name)}, not {placed.dxf.get(name)}"
    inside = getattr(definition, "_embedded_mtext", None)
    if inside is not None:
        wanted = reference.matrix44().transform(inside.dxf.insert)
        found = attribute._embedded_mtext.dxf.insert
        if not found.isclose(wanted, abs_tol=1e-6):
            yield f"{attribute}: its lines stand at {found}, not at {wanted}"


def check_attributes(path):
    doc = ezdxf.readfile(path)
    if findings(doc):
        yield f"{path}: {dict(findings(doc))}"
    count = 0
    for reference in doc.modelspace().query("INSERT"):
        definitions = {entity.dxf.tag: entity for entity in
                       doc.blocks[reference.dxf.name].query("ATTDEF")}
        for attribute in reference.attribs:
            count += 1
            yield from check_attribute(reference, attribute, definitions[attribute.dxf.tag])
    if count == 0:
        yield f"{path}: holds no attributes"


def main():
    logging.disable(logging.CRITICAL)
    if sys.argv[1] == "attributes":
        problems = list(check_attributes(sys.argv[2]))
    else:
        cases = [line.rstrip("\n").split("\t") for line in sys.stdin]
        problems = [problem for case in cases for problem in check_inserted(*case)]
    print("\n".join(problems), end="")


if __name__ == "__main__":
    main()
