// An open document as its host shows it: drawing, LISP interpreter, display and registry.
#pragma once

#include <cstdint>

#include "platform/text/OdString.h"

class CMxColorPicker;
class CMxLispEngine;
class OdDbDatabase;

// What a display object is to redraw. A value without content outside the host.
class CMxDisplayTarget {
  public:
    virtual ~CMxDisplayTarget() = default;
};

// The object that redraws a document.
class CMxDisplayObject {
  public:
    virtual void Redraw(CMxDisplayTarget* target) = 0;  // target is that of the same document
    virtual ~CMxDisplayObject() = default;
};

// Names with 64-bit values that modules leave with a document.
class CMxDocumentRegistry {
  public:
    virtual void registarDocumento(const OdString& name,
                                   int64_t value) = 0;        // replaces a former value
    virtual void retirarDocumento(const OdString& name) = 0;  // unknown: nothing
    virtual ~CMxDocumentRegistry() = default;
};

// One document. Everything it gives belongs to it and lives as long as it does.
class CMxDocument {
  public:
    virtual CMxDisplayObject* GetDisplayObject() = 0;  // never null
    virtual OdDbDatabase* GetDwgDatabase() = 0;        // null while no drawing is loaded
    virtual CMxLispEngine* GetLispEngine() = 0;        // may be null
    virtual CMxDisplayTarget* GetDisplayTarget() = 0;  // for Redraw of the display object
    virtual CMxDocumentRegistry* GetRegistry() = 0;    // never null
    virtual CMxColorPicker* GetColorPicker() = 0;      // never null
    virtual OdString GetFileName() const = 0;          // native path, empty for an unnamed drawing

    virtual ~CMxDocument() = default;
};
