// Undo, redraw and saving of a document.
#include "host/Document.h"

namespace host {

void Display::Redraw(CMxDisplayTarget*) {
    ++redraws;
    marked = true;
    if (onRedraw) onRedraw();
}

bool Display::TakeMark() { return std::exchange(marked, false); }

void Registry::registarDocumento(const OdString& name, int64_t value) { values[name] = value; }

void Registry::retirarDocumento(const OdString& name) { values.erase(name); }

std::optional<int64_t> Registry::Value(const OdString& name) const {
    const auto found = values.find(name);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

Document::Document(std::string fileName, TextSink print)
    : fileName(std::move(fileName)), lisp(std::move(print)) {}

void Document::SetDatabase(OdDbDatabasePtr newDrawing) {
    drawing = std::move(newDrawing);
    pages.Refresh(drawing);
}

OdString Document::Undo() {
    if (!drawing->hasUndo()) return {};
    const OdString name = drawing->undoName();
    drawing->undo();
    display.Redraw(&target);
    return name;
}

OdString Document::Redo() {
    if (!drawing->hasRedo()) return {};
    const OdString name = drawing->redoName();
    drawing->redo();
    display.Redraw(&target);
    return name;
}

void Document::Save(const std::string& nativePath, bool force) {
    drawing->writeFile(nativePath, force);
    fileName = nativePath;
}

}  // namespace host
