// When copies are written and removed, and what is offered of them.
#include "apps/desktop/recovery/Recovery.h"

#include <QFile>
#include <atomic>

#include "platform/drawing/OdError.h"
#include "platform/text/Conversion.h"

namespace desktop {

namespace {

// One line for what is being handled.
std::u16string Handled() {
    try {
        throw;
    } catch (const OdError& error) {
        return error.description().text();
    } catch (const std::exception& error) {
        return text::WideFromNarrow(error.what());
    }
}

bool SaysTheSame(const std::string& fileName, const OdDbDatabase& drawing) {
    QFile file(QFile::decodeName(fileName.c_str()));
    const std::string_view copy = drawing.store().Original();
    if (fileName.empty() || file.size() != qint64(copy.size())) return false;
    return file.open(QIODevice::ReadOnly) && file.readAll() == QByteArrayView(copy);
}

bool ChangedSince(const Description& description) {
    dxf::FileIdentity now;
    return description.met && dxf::IdentifyFile(description.fileName, now) &&
           !(now == *description.met);
}

}  // namespace

std::optional<LeftWork> Judged(const LeftFiles& left) {
    const Description description = left.files.Read();
    LeftWork work{description.fileName, {}, {}, false, left.files, left.folder};
    try {
        work.drawing = left.files.ReadCopy();
    } catch (...) {
        work.problem = Handled();
    }
    const bool nothing = work.drawing.isNull() && work.problem.empty();
    if (nothing || (!work.drawing.isNull() && SaysTheSame(work.fileName, *work.drawing))) {
        left.files.Remove();
        return std::nullopt;
    }
    work.changedOnDisk = ChangedSince(description);
    if (!work.drawing.isNull()) work.drawing->standFor(description.fileName, description.met);
    return work;
}

struct Recovery::Kept {
    RecoveryFiles files;
    Description description;
    std::atomic<size_t> written = 0;  // hash of the copy on the disk; set on the disk's thread
    bool described = false;           // used on that thread alone, once the work was adopted
};

Recovery::Recovery(RecoveryOptions given)
    : options(std::move(given)),
      last(options.clock()),
      disk([] { return true; }, std::chrono::seconds(1)) {
    Guarded([&] { folder = SessionFolder::Create(options.folder); });
}

Recovery::~Recovery() = default;

template <class Work>
void Recovery::Guarded(const Work& work) const {
    try {
        work();
    } catch (...) {
        if (options.log) options.log(QString::fromStdU16String(u"recovery: " + Handled()));
    }
}

std::vector<LeftFiles> Recovery::Found() {
    std::vector<LeftFiles> found;
    std::vector<std::unique_ptr<SessionFolder>> abandoned;
    Guarded([&] { abandoned = SessionFolder::Abandoned(options.folder); });
    for (auto& one : abandoned) {
        const std::shared_ptr<SessionFolder> ended = std::move(one);
        for (const int number : RecoveryFiles::NumbersIn(ended->Path()))
            found.push_back({{ended->Path(), number}, ended});
    }
    return found;
}

std::vector<LeftWork> Recovery::Left() {
    std::vector<LeftWork> works;
    for (const LeftFiles& left : Found()) {
        if (auto work = Judged(left)) works.push_back(std::move(*work));
    }
    return works;
}

void Recovery::Adopt(const LeftWork& work, const host::Document& document) {
    if (!folder) return;
    Guarded([&] {
        const auto entry = NewEntry(document, work.files.Read());
        entry->files.TakeFrom(work.files);
        entry->described = true;
    });
}

void Recovery::Discard(const LeftWork& work) { work.files.Remove(); }

void Recovery::Tick(const std::vector<std::unique_ptr<host::Document>>& documents) {
    const auto now = options.clock();
    if (!folder || now - last < options.interval) return;
    last = now;
    for (const auto& document : documents) {
        if (document->Drawing().isModified())
            Guarded([&] { Copy(*document); });
        else
            Forget(*document);
    }
}

std::shared_ptr<Recovery::Kept> Recovery::NewEntry(const host::Document& document,
                                                   const Description& description) {
    return kept[&document] =
               std::shared_ptr<Kept>(new Kept{{folder->Path(), ++lastNumber}, description});
}

// The bytes are taken here, where nobody changes the drawing meanwhile.
void Recovery::Copy(host::Document& document) {
    const Description description{document.FileName(),
                                  document.Drawing().store().Met(document.FileName())};
    const auto known = kept.find(&document);
    if (known != kept.end() && known->second->description != description) Forget(document);
    const bool first = !kept.contains(&document);
    const auto entry = first ? NewEntry(document, description) : kept.at(&document);

    std::string bytes = document.Drawing().toBytes();
    const size_t hash = std::hash<std::string>()(bytes);
    if (hash == entry->written) return;
    disk.Submit([this, entry, hash, bytes = std::move(bytes)] {
        Guarded([&] {
            if (!entry->described) entry->files.Write(entry->description);
            entry->described = true;
            entry->files.WriteCopy(bytes);
            entry->written = hash;
        });
    });
}

void Recovery::Forget(const host::Document& document) {
    const auto known = kept.find(&document);
    if (known == kept.end()) return;
    disk.RunAndWait([&] { known->second->files.Remove(); });
    kept.erase(known);
}

void Recovery::WaitForDisk() {
    disk.RunAndWait([] {});
}

}  // namespace desktop
