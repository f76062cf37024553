#!/usr/bin/python3
"""Prints the translation records of a drawing as ezdxf sees them: handle, language, text.

Ordinary dictionaries and xrecords: the record of a language is an XRECORD whose strings are a mark
and the text in chunks. An audit of the drawing that finds an error fails.
"""
import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1])
if drawing.audit().errors:
    sys.exit("the audit found errors")
for handle, languages in drawing.rootdict["VRN_TQ_OBJS_TRADS"].items():
    for language, record in languages.items():
        mark, *chunks = [tag.value for tag in record.tags if tag.code in (1, 3)]
        if mark != "EObjString":
            sys.exit(f"{handle} {language}: {mark}")
        print(handle, language, "".join(chunks), sep="\t")
