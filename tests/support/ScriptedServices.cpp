// The small interfaces behind the scripted services.
#include "tests/support/ScriptedServices.h"

#include <algorithm>

void ScriptedDocument::registarDocumento(const OdString& name, int64_t value) {
    registered[name] = value;
}

int ScriptedDocument::PickColor(WindowHandle*, int index, int* chosen) {
    colorsAsked.push_back(index);
    if (whilePicking) whilePicking();
    if (colors.empty()) return kLispCancelled;
    *chosen = colors.front();
    colors.pop_front();
    return kLispNormal;
}

namespace {

// A project gives everything of itself.
class ScriptedProject : public CKVProject, public CKVProjectSettings {
  public:
    explicit ScriptedProject(ScriptedServices& script) : script(script) {}
    CKVProjectSettings* GetSettings() override { return this; }
    bool PrepareApplication(const OdString& application) override {
        script.preparedApplications.push_back(application.narrowText());
        return true;
    }
    std::shared_ptr<CKVLanguageSetting> GetLanguageSetting() override {
        struct Setting : CKVLanguageSetting {
            explicit Setting(ScriptedServices& script) : script(script) {}
            int32_t GetLanguage() const override { return script.language; }
            void SetLanguage(const int& language) override {
                script.calls.push_back("SetLanguage " + std::to_string(language));
                script.language = language;
            }
            ScriptedServices& script;
        };
        return std::make_shared<Setting>(script);
    }

  private:
    ScriptedServices& script;
};

}  // namespace

class ScriptedServices::Parts : public CMxDocumentManager,
                                public CMxApplicationInfo,
                                public CMxMainWindowService,
                                public CMxHostAppServices,
                                public CMxMessageBoxService,
                                public CKVCommandManager,
                                public CKVProjectManager,
                                public CKVDataManager {
  public:
    explicit Parts(ScriptedServices& script) : script(script) {}

    int GetDocumentCount() const override { return static_cast<int>(script.documents.size()); }
    CMxDocument* GetDocument(int16_t index) override { return script.documents.at(index).get(); }
    CMxDocument* GetActiveDocument() override { return script.active; }
    void AddReactor(CMxDocumentManagerReactor* reactor) override {
        script.calls.push_back("AddReactor");
        script.reactors.push_back(reactor);
    }
    void RemoveReactor(CMxDocumentManagerReactor* reactor) override {
        script.calls.push_back("RemoveReactor");
        std::erase(script.reactors, reactor);
    }
    void PushResourceHandle(void* handle) override { script.resourceScopes.push_back(handle); }
    void PopResourceHandle() override { script.resourceScopes.pop_back(); }

    OdString GetApplicationName() const override { return u"Scripted"; }
    QWidget* GetMainWidget() override { return script.mainWidget; }
    int32_t GetLanguageIndex() const override { return script.languageIndex; }
    OdSmartPtr<OdDbDatabase> readFile(const OdString& path, bool, bool, int,
                                      const OdString&) override {
        script.calls.push_back("readFile " + path.narrowText());
        return OdDbDatabase::readFile(path.narrowText());
    }
    int Show(Kind kind, QWidget*, const OdString& title, const CMxString& text, int buttons,
             int defaultButton) override {
        script.boxes.push_back({kind, title.narrowText(), text.ansi_str(), buttons, defaultButton});
        if (script.answers.empty()) return defaultButton;
        const int answer = script.answers.front();
        script.answers.pop_front();
        return answer;
    }

    void AddCommand(std::shared_ptr<CKVCommand> command) override {
        script.calls.push_back("AddCommand " + command->GetName().narrowText());
        script.commands.push_back(std::move(command));
    }
    void RemoveCommand(OdString name) override {
        script.calls.push_back("RemoveCommand " + name.narrowText());
        std::erase_if(script.commands,
                      [&](const auto& command) { return command->GetName() == name; });
    }
    std::shared_ptr<CKVProject> GetProject(CMxDocument* document) override {
        return document ? std::make_shared<ScriptedProject>(script) : nullptr;
    }
    std::shared_ptr<CKVDatabase> GetDatabase() override { return script.database; }

  private:
    ScriptedServices& script;
};

ScriptedServices::ScriptedServices() : parts(std::make_unique<Parts>(*this)) {
    InstallMxSystemServices(this);
    InstallElectricalServices(this);
}

ScriptedServices::~ScriptedServices() {
    InstallElectricalServices(nullptr);
    InstallMxSystemServices(nullptr);
}

ScriptedDocument& ScriptedServices::AddDocument(OdDbDatabasePtr drawing) {
    documents.push_back(std::make_unique<ScriptedDocument>(std::move(drawing)));
    active = documents.back().get();
    return *documents.back();
}

void ScriptedServices::RemoveDocuments() {
    active = nullptr;
    documents.clear();
}

CMxDocumentManager* ScriptedServices::GetDocumentManager() {
    return hasDocumentManager ? parts.get() : nullptr;
}
CMxApplicationInfo* ScriptedServices::GetApplicationInfo() { return parts.get(); }
CMxMainWindowService* ScriptedServices::GetMainWindowService() { return parts.get(); }
CMxHostAppServices* ScriptedServices::GetHostAppServices() { return parts.get(); }
CMxMessageBoxService* ScriptedServices::GetMessageBoxService() { return parts.get(); }
CKVCommandManager* ScriptedServices::GetCommandManager() { return parts.get(); }
CKVProjectManager* ScriptedServices::GetProjectManager() { return parts.get(); }
CKVDataManager* ScriptedServices::GetDataManager() { return parts.get(); }

void ScriptedServices::WriteLog(const CMxString& line, const CMxDocument* document) {
    log.push_back(line.ansi_str());
    loggedTo.push_back(document);
}
