// The project of a document and the language it is in.
#pragma once

#include <map>
#include <memory>

#include "host/DocumentManager.h"
#include "host/Settings.h"
#include "platform/kernel/KVProject.h"

namespace host {

// The language stands in the drawing: in its named objects dictionary the dictionary "KV_PROJECT"
// holds the xrecord "LANGUAGE" with the number in group 90. Drawings of R12 and older have no
// dictionaries; there it stands in the settings under the drawing's file.
inline constexpr char16_t kProjectDictionary[] = u"KV_PROJECT";
inline constexpr char16_t kLanguageRecord[] = u"LANGUAGE";

class LanguageSetting : public CKVLanguageSetting {
  public:
    LanguageSetting(Document& document, Settings& settings);
    int32_t GetLanguage() const override;
    void SetLanguage(const int& language) override;

  private:
    Document& document;
    Settings& settings;
};

class Project : public CKVProject, public CKVProjectSettings {
  public:
    Project(Document& document, Settings& settings);
    CKVProjectSettings* GetSettings() override { return this; }
    bool PrepareApplication(const OdString& application) override;
    std::shared_ptr<CKVLanguageSetting> GetLanguageSetting() override { return language; }

  private:
    Document& document;
    std::shared_ptr<LanguageSetting> language;
};

// Gives the project of an open document; projects hold nothing of their own.
class ProjectManager : public CKVProjectManager {
  public:
    ProjectManager(DocumentManager& documents, Settings& settings);
    std::shared_ptr<CKVProject> GetProject(CMxDocument* document) override;

  private:
    DocumentManager& documents;
    Settings& settings;
};

}  // namespace host
