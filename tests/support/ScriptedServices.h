// Services for tests: they record what is called and answer from what the test has laid ready.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/drawing/DbDatabase.h"
#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxColorPicker.h"
#include "platform/kernel/MxLispEngine.h"
#include "platform/kernel/MxSystemServices.h"

// Narrow text (UTF-8) in all records, so that a failed expectation can be read.
class ScriptedLisp : public CMxLispEngine {
  public:
    std::vector<std::string> evaluated;
    std::vector<std::string> printed;
    std::vector<std::string> asked;                                 // names of variables
    std::map<std::string, std::vector<std::u16string>> variables;   // lists of strings
    std::map<std::string, std::vector<CMxValueNode>> rawVariables;  // nodes as they stand
    int released = 0;

    int EvaluateLisp(const char16_t* expression, CMxValueNode** result) override;
    int GetLispVariable(const char16_t* name, CMxValueNode** result) override;
    void ReleaseValueChain(CMxValueNode* chain) override;
    void PrintText(const char16_t* text) override;

  private:
    std::deque<std::vector<CMxValueNode>> chains;
};

class ScriptedDocument : public CMxDocument,
                         public CMxDisplayObject,
                         public CMxDocumentRegistry,
                         public CMxColorPicker {
  public:
    explicit ScriptedDocument(OdDbDatabasePtr drawing = {}) : drawing(std::move(drawing)) {}

    OdDbDatabasePtr drawing;
    ScriptedLisp lisp;
    bool hasLisp = true;
    int redraws = 0;
    std::map<OdString, int64_t> registered;
    std::vector<int> colorsAsked;  // the numbers that the picker began with
    std::deque<int> colors;        // to choose, the first one first; without one it is a cancel
    std::function<void()> whilePicking;  // runs inside the picker; may be empty

    CMxDisplayObject* GetDisplayObject() override { return this; }
    OdDbDatabase* GetDwgDatabase() override { return drawing.get(); }
    CMxLispEngine* GetLispEngine() override { return hasLisp ? &lisp : nullptr; }
    CMxDisplayTarget* GetDisplayTarget() override { return &target; }
    CMxDocumentRegistry* GetRegistry() override { return this; }
    CMxColorPicker* GetColorPicker() override { return this; }
    OdString GetFileName() const override { return u"scripted.dxf"; }
    void Redraw(CMxDisplayTarget* given) override { redraws += given == &target; }
    int PickColor(WindowHandle* owner, int index, int* chosen) override;
    void registarDocumento(const OdString& name, int64_t value) override;
    void retirarDocumento(const OdString& name) override { registered.erase(name); }

  private:
    CMxDisplayTarget target;
};

struct ShownBox {
    CMxMessageBoxService::Kind kind;
    std::string title;
    std::string text;
    int buttons;
    int defaultButton;
};

// Installs itself for as long as it lives; one at a time.
class ScriptedServices : public CMxSystemServices, public CKVServices {
  public:
    ScriptedServices();
    ~ScriptedServices() override;

    ScriptedDocument& AddDocument(OdDbDatabasePtr drawing = {});  // and makes it the active one
    void RemoveDocuments();

    // What tests look at and lay ready.
    std::vector<std::string> calls;  // of all services, in order: "AddCommand KVTRANSLATEPROJ"
    std::vector<std::string> log;
    std::vector<const CMxDocument*> loggedTo;  // of each line
    std::vector<ShownBox> boxes;
    QWidget* mainWidget = nullptr;  // not owned
    std::deque<int> answers;        // to boxes, the first one first; without one the default button
    std::vector<std::shared_ptr<CKVCommand>> commands;
    std::vector<CMxDocumentManagerReactor*> reactors;
    std::vector<std::unique_ptr<ScriptedDocument>> documents;
    CMxDocument* active = nullptr;
    std::vector<void*> resourceScopes;
    std::vector<std::string> preparedApplications;
    int language = -1;      // of the project
    int languageIndex = 0;  // of the interface
    std::shared_ptr<CKVDatabase> database;
    bool hasDocumentManager = true;

    CMxDocumentManager* GetDocumentManager() override;
    CMxApplicationInfo* GetApplicationInfo() override;
    CMxMainWindowService* GetMainWindowService() override;
    CMxHostAppServices* GetHostAppServices() override;
    CMxMessageBoxService* GetMessageBoxService() override;
    CKVCommandManager* GetCommandManager() override;
    CKVProjectManager* GetProjectManager() override;
    CKVDataManager* GetDataManager() override;
    void WriteLog(const CMxString& line, const CMxDocument* document) override;

  private:
    class Parts;  // the small interfaces, each telling this object
    std::unique_ptr<Parts> parts;
};
