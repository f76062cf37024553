// The host without a window around one drawing.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/cli/Options.h"
#include "host/Document.h"
#include "platform/drawing/DbDatabase.h"

namespace host {
class Host;
}

namespace cli {

// Its services are those that the engine works with as long as it lives; there is one at a time.
class Session {
  public:
    explicit Session(const GeneralOptions& options);
    ~Session();

    // The dictionary that the options name. Throws host::Error when it cannot be used.
    void OpenDatabase();
    // Once nothing more is read: the memory of its thread, and of what it has made, is of use to
    // the drawing's edits.
    void CloseDatabase(std::shared_ptr<void> made);

    // The store gives no terms for an empty dictionary and for one that it cannot read: throws
    // host::Error in the second case.
    void RequireReadableTerms() const;

    // Throws OdError or host::Error when the drawing cannot be read.
    OdDbDatabase& OpenDrawing(const std::string& nativePath);
    OdDbDatabase& Drawing();  // once it is open
    host::Document& Document();

    // What a program of the document is answered when it asks the user for pages; all until then.
    void AnswerPages(std::vector<std::u16string> pages);
    // Where programs of the document print; nowhere until it is set.
    void PrintTo(host::TextSink sink);

    int ProjectLanguage();  // -1 until it is set
    void SetProjectLanguage(int key);
    // The language of a drawing that is too old to hold one.
    void RememberLanguageOf(const std::string& nativePath, int key);

  private:
    GeneralOptions options;
    std::optional<std::vector<std::u16string>> pages;
    host::TextSink sink;
    std::unique_ptr<host::Host> host;
    host::Document* document = nullptr;
};

// Whether the options or the environment name a dictionary.
bool NamesDatabase(const GeneralOptions& options);

// The URL that a command works on: the option, $KELVARA_DATABASE, the settings, the user's folder.
std::string DatabaseUrlOf(const GeneralOptions& options);

// The file of that dictionary; empty where a server keeps it. Throws host::Error for no URL.
std::string DatabaseFileOf(const GeneralOptions& options);

// Ends the process with success, after everything was written that is to be: the memory of a large
// drawing goes back as a whole, which takes a fraction of the time that freeing it takes. Returns
// where a sanitizer is to look for leaks.
void EndProcess();

}  // namespace cli
