// What the host application says of itself: title, main window, interface language, drawings.
#pragma once

#include <cstdint>

#include "platform/drawing/SmartPtr.h"
#include "platform/text/OdString.h"

class OdDbDatabase;
class QWidget;

class CMxApplicationInfo {
  public:
    virtual OdString GetApplicationName() const = 0;  // the title of message boxes
    virtual ~CMxApplicationInfo() = default;
};

class CMxMainWindowService {
  public:
    virtual QWidget* GetMainWidget() = 0;  // null in a program without windows; not owned
    virtual ~CMxMainWindowService() = default;
};

class CMxHostAppServices {
  public:
    // Index of the interface language in the table of language codes, 0 to 24.
    virtual int32_t GetLanguageIndex() const = 0;

    // Reads a drawing that belongs to no document. Throws OdError with the reason when it cannot be
    // read. The other arguments change nothing: text of every code page is converted, a drawing is
    // always read whole and into memory, and none has a password.
    virtual OdSmartPtr<OdDbDatabase> readFile(const OdString& path, bool allowCPConversion,
                                              bool partialLoad, int shareMode,
                                              const OdString& password) = 0;

    virtual ~CMxHostAppServices() = default;
};
