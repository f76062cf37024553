// The host: owns documents, projects, commands, database, log and settings, and installs them as
// the services that modules reach.
#pragma once

#include <memory>

#include "host/CommandManager.h"
#include "host/CommandRunner.h"
#include "host/ConsoleServices.h"
#include "host/Database.h"
#include "host/DocumentManager.h"
#include "host/Log.h"
#include "host/ModuleLoader.h"
#include "host/Natives.h"
#include "host/Project.h"
#include "host/Settings.h"
#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxSystemServices.h"

namespace host {

// What a program decides. Pointers are not owned and must outlive the host.
struct HostOptions {
    QString settingsFile;  // empty: the user's
    QString logFile;       // empty: none
    Log::Opens logOpens = Log::Opens::AtOnce;
    bool logToStderr = false;
    QString databaseUrl;  // empty: that of the settings
    OnMissing onMissingDatabase = OnMissing::Refuse;
    // For locks of other programs on the database, and for its server to come back.
    std::chrono::milliseconds databasePatience = kBusyTimeout;
    OdString applicationName = u"Kelvara Circuit";
    CMxMainWindowService* mainWindow = nullptr;    // null: a program without windows
    CMxMessageBoxService* messageBoxes = nullptr;  // null: messages go to stderr
    CMxColorPicker* colorPicker = nullptr;         // null: every choice of a colour is cancelled
    PageChooser choosePages;
    Explain explain;       // of failed commands; empty: the user gets their own lines
    TextSink commandLine;  // what LISP programs and PrintText print; empty: it is dropped
};

// One at a time; the program needs a QCoreApplication. Its end stops the modules, closes the
// documents, runs what is queued in the database and takes the services away, in this order.
class Host : private CMxSystemServices,
             private CMxApplicationInfo,
             private CMxHostAppServices,
             private CKVServices,
             private CKVDataManager {
  public:
    explicit Host(HostOptions options);
    ~Host() override;

    DocumentManager& Documents() { return documents; }
    CommandManager& Commands() { return commands; }
    CommandRunner& Runner() { return runner; }
    ModuleLoader& Modules() { return modules; }
    ProjectManager& Projects() { return projects; }
    Settings& GetSettings() { return settings; }
    Log& GetLog() { return log; }
    QString DatabaseUrl() const;

    // Opens the database now. Throws host::Error when it cannot be used; without this call that is
    // logged, and the queries fail.
    void OpenDatabase();
    // Lets go of what its queries have made, ends its thread, and gives back the memory that it
    // holds; the next query opens it again.
    void CloseDatabase(std::shared_ptr<void> made = nullptr);

    // The language of an open document's project, -1 when it has none.
    int32_t ProjectLanguage(Document& document);
    void SetProjectLanguage(Document& document, int32_t language);

  private:
    CMxDocumentManager* GetDocumentManager() override { return &documents; }
    CMxApplicationInfo* GetApplicationInfo() override { return this; }
    CMxMainWindowService* GetMainWindowService() override { return mainWindow; }
    CMxHostAppServices* GetHostAppServices() override { return this; }
    CMxMessageBoxService* GetMessageBoxService() override { return messageBoxes; }

    OdString GetApplicationName() const override { return options.applicationName; }
    int32_t GetLanguageIndex() const override { return settings.LanguageIndex(); }
    OdSmartPtr<OdDbDatabase> readFile(const OdString& path, bool allowCPConversion,
                                      bool partialLoad, int shareMode,
                                      const OdString& password) override;

    CKVCommandManager* GetCommandManager() override { return &commands; }
    CKVProjectManager* GetProjectManager() override { return &projects; }
    CKVDataManager* GetDataManager() override { return this; }
    void WriteLog(const CMxString& line, const CMxDocument* document) override;

    std::shared_ptr<CKVDatabase> GetDatabase() override { return TheDatabase(); }

    const std::shared_ptr<Database>& TheDatabase();
    void PrepareDocument(Document& document);

    HostOptions options;
    Settings settings;
    Log log;
    NoMainWindow noMainWindow;
    ConsoleMessageBoxes consoleMessageBoxes;
    CMxMainWindowService* mainWindow;
    CMxMessageBoxService* messageBoxes;
    std::shared_ptr<Database> database;  // null until it is needed
    DocumentManager documents;
    ProjectManager projects;
    CommandManager commands;
    CommandRunner runner;
    ModuleLoader modules;
};

}  // namespace host
