// Making, finding and locking the folders.
#include "apps/desktop/recovery/SessionFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <cerrno>
#include <cstring>

#include "host/Error.h"

namespace desktop {

namespace {

constexpr const char* kLockName = "lock";

[[noreturn]] void Fail(const QString& path, int error) {
    throw host::Error(QStringLiteral("recovery folder %1: %2; without it unsaved work does not "
                                     "survive a crash: check the folder and its permissions")
                          .arg(path, QString::fromLocal8Bit(std::strerror(error))));
}

// The lock's descriptor, or -1 when another program holds it. Programs that are started from here
// do not inherit it.
int Lock(const QString& file, int how) {
    const int lock =
        ::open(QFile::encodeName(file).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (lock < 0) Fail(file, errno);
    if (::flock(lock, how) == 0) return lock;
    const int error = errno;
    ::close(lock);
    if (error != EWOULDBLOCK) Fail(file, error);
    return -1;
}

// Held while folders are made, looked through and removed, so that no program takes a folder that
// another one is just making.
class ParentLock {
  public:
    explicit ParentLock(const QString& parent) {
        if (!QDir().mkpath(parent)) Fail(parent, errno);
        lock = Lock(parent + u'/' + kLockName, LOCK_EX);
    }
    ~ParentLock() { ::close(lock); }
    ParentLock(const ParentLock&) = delete;
    ParentLock& operator=(const ParentLock&) = delete;

  private:
    int lock;
};

}  // namespace

std::unique_ptr<SessionFolder> SessionFolder::Create(const QString& parent) {
    const ParentLock creating(parent);
    const QDir folder(parent);
    for (int number = 1;; ++number) {
        const QString path = folder.filePath(QString::number(number));
        if (QFile::exists(path)) continue;
        if (!folder.mkdir(QString::number(number))) Fail(path, errno);
        const int lock = Lock(path + u'/' + kLockName, LOCK_EX | LOCK_NB);
        return std::unique_ptr<SessionFolder>(new SessionFolder(path, lock));
    }
}

std::vector<std::unique_ptr<SessionFolder>> SessionFolder::Abandoned(const QString& parent) {
    const ParentLock looking(parent);
    std::vector<std::unique_ptr<SessionFolder>> abandoned;
    for (const QString& name : QDir(parent).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString path = QDir(parent).filePath(name);
        const int lock = Lock(path + u'/' + kLockName, LOCK_EX | LOCK_NB);
        if (lock >= 0) abandoned.emplace_back(new SessionFolder(path, lock));
    }
    return abandoned;
}

SessionFolder::~SessionFolder() {
    try {
        const QDir folder(path);
        const ParentLock removing(QFileInfo(path).path());
        if (folder.entryList(QDir::Files) == QStringList(kLockName)) QDir(path).removeRecursively();
    } catch (const host::Error&) {
        // The folder stays, empty; the next program that starts removes it.
    }
    ::close(lock);
}

}  // namespace desktop
