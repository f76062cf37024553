// Start of the host for one command.
#include "apps/cli/Session.h"

#include <QString>
#include <cstdio>
#include <cstdlib>

#include "host/DatabaseUrl.h"
#include "host/Dictionary.h"
#include "host/Error.h"
#include "host/Host.h"

namespace cli {

namespace {

std::vector<std::u16string> NamesOf(const std::vector<host::Page>& pages) {
    std::vector<std::u16string> names;
    names.reserve(pages.size());
    for (const host::Page& page : pages) names.push_back(page.name);
    return names;
}

}  // namespace

bool NamesDatabase(const GeneralOptions& options) {
    return !options.database.empty() || !qEnvironmentVariableIsEmpty("KELVARA_DATABASE");
}

std::string DatabaseUrlOf(const GeneralOptions& options) {
    if (!options.database.empty()) return options.database;
    if (NamesDatabase(options)) return qEnvironmentVariable("KELVARA_DATABASE").toStdString();
    return host::Settings(host::Settings::DefaultFileName()).DatabaseUrl().toStdString();
}

std::string DatabaseFileOf(const GeneralOptions& options) {
    return host::ParseDatabaseUrl(QString::fromStdString(DatabaseUrlOf(options)))
        .file.toStdString();
}

Session::Session(const GeneralOptions& options) : options(options) {
    host::HostOptions hostOptions;
    hostOptions.logFile = host::Log::DefaultFileName();
    hostOptions.logOpens = host::Log::Opens::ForTheFirstLine;
    hostOptions.logToStderr = options.verbose;
    hostOptions.databaseUrl = QString::fromStdString(DatabaseUrlOf(options));
    hostOptions.choosePages = [this](host::Document&, const std::vector<host::Page>& all) {
        return std::optional(pages ? *pages : NamesOf(all));
    };
    hostOptions.commandLine = [this](std::u16string_view text) {
        if (sink) sink(text);
    };
    host = std::make_unique<host::Host>(std::move(hostOptions));
}

Session::~Session() = default;

void EndProcess() {
#ifndef __SANITIZE_ADDRESS__
    std::fflush(nullptr);
    std::_Exit(0);
#endif
}

void Session::OpenDatabase() { host->OpenDatabase(); }

void Session::CloseDatabase(std::shared_ptr<void> made) { host->CloseDatabase(std::move(made)); }

void Session::RequireReadableTerms() const {
    try {
        host::Dictionary(QString::fromStdString(DatabaseUrlOf(options))).ReadTerms();
    } catch (const host::Error& error) {
        throw host::Error(std::string(error.what()) + "; 'kelvara db check' may tell more");
    }
}

OdDbDatabase& Session::OpenDrawing(const std::string& nativePath) {
    document = &host->Documents().Open(nativePath);
    return document->Drawing();
}

OdDbDatabase& Session::Drawing() { return document->Drawing(); }

host::Document& Session::Document() { return *document; }

void Session::AnswerPages(std::vector<std::u16string> answer) { pages = std::move(answer); }

void Session::PrintTo(host::TextSink newSink) { sink = std::move(newSink); }

int Session::ProjectLanguage() { return host->ProjectLanguage(*document); }

void Session::SetProjectLanguage(int key) { host->SetProjectLanguage(*document, key); }

void Session::RememberLanguageOf(const std::string& nativePath, int key) {
    host->GetSettings().SetProjectLanguage(nativePath, key);
}

}  // namespace cli
