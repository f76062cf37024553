// The project of a document and its settings.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/text/OdString.h"

class CMxDocument;

// The language a project is in: the number of a language of the dictionary, -1 until it is set.
class CKVLanguageSetting {
  public:
    virtual int32_t GetLanguage() const = 0;
    // Writes it where the project keeps it; throws OdError when the drawing cannot be changed.
    virtual void SetLanguage(const int& language) = 0;
    virtual ~CKVLanguageSetting() = default;
};

class CKVProjectSettings {
  public:
    virtual std::shared_ptr<CKVLanguageSetting> GetLanguageSetting() = 0;  // never null
    virtual ~CKVProjectSettings() = default;
};

// One drawing is one project.
class CKVProject {
  public:
    virtual CKVProjectSettings* GetSettings() = 0;  // never null; belongs to the project
    // Tells whether the drawing has the xdata application registered. Changes nothing: writing
    // xdata registers the application that it needs.
    virtual bool PrepareApplication(const OdString& application) = 0;
    virtual ~CKVProject() = default;
};

class CKVProjectManager {
  public:
    // Null for a null document and for one that is not open. A project must not outlive its
    // document.
    virtual std::shared_ptr<CKVProject> GetProject(CMxDocument* document) = 0;
    virtual ~CKVProjectManager() = default;
};
