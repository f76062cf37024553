// Putting the services together and taking them down.
#include "host/Host.h"

#include "host/Error.h"
#include "platform/win32/CodePages.h"
#include "platform/win32/Paths.h"

namespace host {

namespace {

QString OrElse(const QString& text, const QString& otherwise) {
    return text.isEmpty() ? otherwise : text;
}

}  // namespace

Host::Host(HostOptions given)
    : options(std::move(given)),
      settings(OrElse(options.settingsFile, Settings::DefaultFileName())),
      log(options.logFile, options.logToStderr, options.logOpens),
      mainWindow(options.mainWindow ? options.mainWindow : &noMainWindow),
      messageBoxes(options.messageBoxes ? options.messageBoxes : &consoleMessageBoxes),
      documents(options.commandLine, [this](Document& document) { PrepareDocument(document); }),
      projects(documents, settings),
      runner(
          commands, documents,
          [this] {
              if (database) database->Commit();
          },
          options.explain),
      modules([](const OdString& line) { electricalLog(line.text(), nullptr); }) {
    if (GetMxSystemServices()) throw Error("host: there is one already in this program");
    try {
        SetAnsiCodePage(settings.CodePage());
    } catch (const std::exception& error) {
        throw Error(QStringLiteral("settings: exchange code page %1: %2; name another one")
                        .arg(settings.CodePage())
                        .arg(QString::fromUtf8(error.what())));
    }
    InstallMxSystemServices(this);
    InstallElectricalServices(this);
}

Host::~Host() {
    modules.UnloadAll();
    documents.CloseAll();
    database.reset();
    InstallElectricalServices(nullptr);
    InstallMxSystemServices(nullptr);
}

QString Host::DatabaseUrl() const { return OrElse(options.databaseUrl, settings.DatabaseUrl()); }

const std::shared_ptr<Database>& Host::TheDatabase() {
    if (!database) {
        database = std::make_shared<Database>(
            DatabaseUrl(), options.onMissingDatabase,
            [this](const QString& line) { log.Write(line); }, options.databasePatience);
    }
    return database;
}

void Host::OpenDatabase() { TheDatabase()->Open(); }

void Host::CloseDatabase(std::shared_ptr<void> made) {
    if (database) database->LetGo(std::move(made));
    database.reset();
}

int32_t Host::ProjectLanguage(Document& document) {
    return projects.GetProject(&document)->GetSettings()->GetLanguageSetting()->GetLanguage();
}

void Host::SetProjectLanguage(Document& document, int32_t language) {
    projects.GetProject(&document)->GetSettings()->GetLanguageSetting()->SetLanguage(language);
}

OdSmartPtr<OdDbDatabase> Host::readFile(const OdString& path, bool, bool, int, const OdString&) {
    return OdDbDatabase::readFile(NativePath(path.text()));
}

void Host::WriteLog(const CMxString& line, const CMxDocument* document) {
    const OdString file = document ? document->GetFileName() : OdString();
    log.Write(line, QString::fromStdString(file.narrowText()));
}

void Host::PrepareDocument(Document& document) {
    if (options.colorPicker) document.SetColorPicker(*options.colorPicker);
    InstallNatives(document, options.choosePages, settings.NetworkFolder().toStdU16String());
    InstallCommandNative(document, runner);
}

}  // namespace host
