// A folder for each running program, by which those are known that ended without tidying up.
#pragma once

#include <QString>
#include <memory>
#include <vector>

namespace desktop {

// Locked as long as the object lives. The system releases the lock when the program ends, however
// that happens, so neither dates nor process numbers are asked.
class SessionFolder {
  public:
    // A new folder below the parent, which is made if need be. Throws host::Error.
    static std::unique_ptr<SessionFolder> Create(const QString& parent);
    // Those whose programs have ended, locked now for this one. Throws host::Error.
    static std::vector<std::unique_ptr<SessionFolder>> Abandoned(const QString& parent);

    ~SessionFolder();  // removes the folder if nothing was left in it
    SessionFolder(const SessionFolder&) = delete;
    SessionFolder& operator=(const SessionFolder&) = delete;

    QString File(const QString& name) const { return path + u'/' + name; }
    const QString& Path() const { return path; }

  private:
    SessionFolder(const QString& path, int lock) : path(path), lock(lock) {}

    QString path;
    int lock;
};

}  // namespace desktop
