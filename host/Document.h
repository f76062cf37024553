// An open document: one drawing, its interpreter, its pages and its display.
#pragma once

#include <QString>
#include <functional>
#include <map>
#include <optional>

#include "host/ConsoleServices.h"
#include "host/LispEngine.h"
#include "host/Pages.h"
#include "platform/drawing/DbDatabase.h"
#include "platform/kernel/MxDocument.h"

namespace host {

// Marks the document as one to be drawn anew; who shows it takes the mark away.
class Display : public CMxDisplayObject {
  public:
    void Redraw(CMxDisplayTarget* target) override;
    int Redraws() const { return redraws; }
    bool TakeMark();                 // true once after one or more redraws
    std::function<void()> onRedraw;  // may be empty; a program with windows draws here

  private:
    int redraws = 0;
    bool marked = false;
};

class Registry : public CMxDocumentRegistry {
  public:
    void registarDocumento(const OdString& name, int64_t value) override;
    void retirarDocumento(const OdString& name) override;
    std::optional<int64_t> Value(const OdString& name) const;

  private:
    std::map<OdString, int64_t> values;
};

// Views, ids and projects of it must not be used once it is closed. Main thread only.
class Document : public CMxDocument {
  public:
    // Without a drawing yet; fileName is a native path, empty for a drawing without a file.
    Document(std::string fileName, TextSink print);

    void SetDatabase(OdDbDatabasePtr drawing);  // reads the pages too
    const std::string& FileName() const { return fileName; }
    OdDbDatabase& Drawing() { return *drawing; }  // once it has been set
    LispEngine& Lisp() { return lisp; }
    Display& Screen() { return display; }
    PageTable& Pages() { return pages; }
    void SetColorPicker(CMxColorPicker& picker) { colorPicker = &picker; }  // not owned

    // Of whole commands. The name of the command that was undone or redone; empty when there is
    // none.
    OdString Undo();
    OdString Redo();

    // Saves under the name, which becomes the document's. As OdDbDatabase::writeFile.
    void Save(const std::string& nativePath, bool force = false);

    CMxDisplayObject* GetDisplayObject() override { return &display; }
    OdDbDatabase* GetDwgDatabase() override { return drawing.get(); }
    CMxLispEngine* GetLispEngine() override { return &lisp; }
    CMxDisplayTarget* GetDisplayTarget() override { return &target; }
    CMxDocumentRegistry* GetRegistry() override { return &registry; }
    CMxColorPicker* GetColorPicker() override { return colorPicker; }
    OdString GetFileName() const override { return fileName.c_str(); }

  private:
    std::string fileName;
    OdDbDatabasePtr drawing;
    LispEngine lisp;
    PageTable pages;
    Display display;
    CMxDisplayTarget target;
    Registry registry;
    ConsoleColorPicker consoleColorPicker;
    CMxColorPicker* colorPicker = &consoleColorPicker;
};

}  // namespace host
