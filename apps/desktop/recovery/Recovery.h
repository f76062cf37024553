// Unsaved work survives the end of the program: copies in intervals, and what earlier programs
// left.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "apps/desktop/recovery/RecoveryFiles.h"
#include "apps/desktop/recovery/SessionFolder.h"
#include "host/Document.h"
#include "host/WorkQueue.h"

namespace desktop {

// Work of a program that ended without saving it. Whoever lets go of it without adopting or
// discarding it leaves it for the next program.
struct LeftWork {
    std::string fileName;        // of the drawing, a native path; may be empty
    OdDbDatabasePtr drawing;     // null when no copy can be read
    std::u16string problem;      // why, in one line
    bool changedOnDisk = false;  // the file is not the one that the work began with

    RecoveryFiles files;
    std::shared_ptr<SessionFolder> folder;
};

// Copies of such work, before anybody has read them.
struct LeftFiles {
    RecoveryFiles files;
    std::shared_ptr<SessionFolder> folder;
};

// Reads the copies: on any thread, for it may take as long as opening a drawing. Nothing when they
// are no work: they say what their drawing says by now. They are removed then.
std::optional<LeftWork> Judged(const LeftFiles& left);

struct RecoveryOptions {
    QString folder;
    std::chrono::milliseconds interval = std::chrono::minutes(1);
    std::function<std::chrono::steady_clock::time_point()> clock = std::chrono::steady_clock::now;
    std::function<void(const QString&)> log = {};  // called on other threads too
};

// Main thread only; the disk takes the copies on another one. Nothing is thrown: a copy that cannot
// be written, or a folder that cannot be used, is logged, and the work goes on without.
class Recovery {
  public:
    explicit Recovery(RecoveryOptions options);
    ~Recovery();  // waits for the disk; what nobody forgot stays, for the next program

    // What programs left that have ended, and what of it is work.
    std::vector<LeftFiles> Found();
    std::vector<LeftWork> Left();
    // The document was opened on the work's drawing: it counts as not saved, and the work's copy as
    // this program's copy of it.
    void Adopt(const LeftWork& work, const host::Document& document);
    void Discard(const LeftWork& work);

    // To be called often: once in an interval writes copies of the documents that have changed
    // since their last one, and removes those of documents that are saved.
    void Tick(const std::vector<std::unique_ptr<host::Document>>& documents);
    // The document was saved, or is about to be closed. Waits for the disk.
    void Forget(const host::Document& document);

    void WaitForDisk();  // returns when every copy so far is written, or in the log

  private:
    struct Kept;

    std::shared_ptr<Kept> NewEntry(const host::Document& document, const Description& description);
    void Copy(host::Document& document);
    template <class Work>
    void Guarded(const Work& work) const;  // what the work throws goes to the log

    RecoveryOptions options;
    std::unique_ptr<SessionFolder> folder;  // null when it cannot be used
    std::chrono::steady_clock::time_point last;
    int lastNumber = 0;
    std::map<const host::Document*, std::shared_ptr<Kept>> kept;
    host::WorkQueue disk;  // last: its thread uses all of the others
};

}  // namespace desktop
