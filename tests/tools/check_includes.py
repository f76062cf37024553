#!/usr/bin/env python3
"""Holds the layers: which folder may include which, and where Qt's windows may appear."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

# A folder may include itself and what stands here; the longest matching folder rules.
ALLOWED = {
    "platform/text": [],
    "platform/win32": ["platform/text"],
    "platform/drawing/dxf": ["platform/text"],
    "platform/drawing": ["platform/drawing/dxf", "platform/text"],
    "platform/window": ["platform/text", "platform/win32"],
    "platform/kernel": ["platform/drawing", "platform/text", "platform/win32"],
    "host": ["platform", "host/lisp"],
    "host/lisp": [],
    "translator/cad": ["platform"],
    "translator/cad/ui": ["platform", "translator/cad"],
    "translator/messages": ["platform", "translator/cad"],
    "translator/langdb": ["platform", "translator/cad"],
    "translator/engine": ["platform", "translator/cad", "translator/langdb"],
    "translator/listview": ["platform", "translator/cad", "translator/messages"],
    "translator/dialogs": ["platform", "translator"],
    "translator/module": ["platform", "translator"],
    "apps": ["platform", "host", "translator"],
    "apps/painter": ["platform"],
    "apps/render": ["platform", "apps/painter"],
    "apps/ui": ["platform", "host", "apps/painter"],
    "apps/desktop": ["platform", "host", "apps/painter", "apps/ui", "apps/desktop/recovery"],
    "apps/desktop/recovery": ["platform", "host"],
}
WIDGETS = re.compile(r"<(QtWidgets|QWidget|QApplication|QDialog|QFileDialog|QMessageBox)\b")
WIDGETS_NEVER = "apps/desktop/recovery/"
WIDGETS_ALLOWED = ("platform/window/qt/", "apps/ui/", "apps/desktop/", "apps/gallery/",
                   "translator/cad/ui/")
GUI = re.compile(r"<(QtGui|QPainter)\b")
GUI_ALLOWED = (*WIDGETS_ALLOWED, "apps/painter/", "apps/render/")


def layer_of(path):
    parts = path.split("/")
    for length in range(len(parts) - 1, 0, -1):
        name = "/".join(parts[:length])
        if name in ALLOWED:
            return name
    return None


def within(path, folder):
    return path.startswith(folder + "/")


def problems_of(relative, text):
    layer = layer_of(relative)
    for number, line in enumerate(text.splitlines(), 1):
        where = f"{relative}:{number}"
        windowed = relative.startswith(WIDGETS_ALLOWED) and not relative.startswith(WIDGETS_NEVER)
        if WIDGETS.search(line) and not windowed:
            yield f"{where}: a window class of Qt in a layer without windows"
        if GUI.search(line) and not relative.startswith(GUI_ALLOWED):
            yield f"{where}: a painting class of Qt in a layer that does not paint"
        match = re.match(r'\s*#\s*include\s+"([^"]+)"', line)
        if not match or layer is None:
            continue
        target = match.group(1)
        if target.startswith("pch_"):
            continue
        target_layer = layer_of(target)
        if target_layer is None:
            yield f"{where}: includes are written from the root of the repository: {target}"
        elif not (ROOT / target).exists():
            yield f"{where}: no such file: {target}"
        elif target_layer != layer and not any(within(target, folder) for folder in ALLOWED[layer]):
            yield f"{where}: {layer} may not include {target_layer}"


def self_test():
    """The check must be able to fail."""
    cases = [
        ("platform/drawing/X.h", '#include "host/Host.h"'),
        ("host/X.cpp", '#include "translator/cad/TQString.h"'),
        ("translator/engine/X.h", '#include "translator/dialogs/Linhas.h"'),
        ("platform/drawing/dxf/X.h", '#include "platform/drawing/DbText.h"'),
        ("platform/kernel/X.h", "#include <QWidget>"),
        ("apps/painter/X.h", "#include <QWidget>"),
        ("apps/cli/X.cpp", "#include <QPainter>"),
        ("apps/desktop/recovery/X.h", "#include <QDialog>"),
        ("apps/desktop/recovery/X.h", '#include "apps/desktop/Desktop.h"'),
        ("apps/painter/X.h", '#include "host/Host.h"'),
        ("apps/desktop/X.h", '#include "translator/cad/TQString.h"'),
        ("apps/ui/X.h", '#include "apps/desktop/Desktop.h"'),
        ("host/X.h", '#include "Host.h"'),
    ]
    return [f"not noticed: {line} in {path}" for path, line in cases
            if not list(problems_of(path, line))]


def main():
    problems = self_test()
    count = 0
    for folder in ("platform", "host", "translator", "apps"):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                count += 1
                relative = path.relative_to(ROOT).as_posix()
                problems += problems_of(relative, path.read_text(encoding="utf-8"))
    print("\n".join(problems) if problems else f"include directions hold in {count} files")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
