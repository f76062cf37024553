// The files of one document's unsaved work: copies of the drawing, the latest with the highest
// number, and a description that says which drawing they belong to.
//
// Each is written in one step. A description is written before its first copy and removed after the
// last, and an older copy only goes when a newer one is there: a program that is killed at any
// moment leaves a copy that can be read, once there was one.
#pragma once

#include <QString>
#include <optional>
#include <string>

#include "platform/drawing/DbDatabase.h"

namespace desktop {

struct Description {
    std::string fileName;                  // the document's, a native path; may be empty
    std::optional<dxf::FileIdentity> met;  // of that file when the document last read or saved it
    bool operator==(const Description&) const = default;
};

// Throws dxf::Error when a file cannot be written, and OdError when one cannot be read.
class RecoveryFiles {
  public:
    RecoveryFiles(const QString& folder, int number) : folder(folder), number(number) {}

    static QList<int> NumbersIn(const QString& folder);  // of the documents described there

    void Write(const Description& description) const;
    Description Read() const;
    void WriteCopy(std::string_view bytes) const;
    // The latest copy that can be read, null when there are none; raises why the latest cannot be
    // read when none can.
    OdDbDatabasePtr ReadCopy() const;
    void TakeFrom(const RecoveryFiles& other) const;  // its copies become these ones
    void Remove() const;
    qint64 Size() const;  // of its copies, in bytes

  private:
    QString DescriptionName() const;
    QString CopyName(int generation) const;
    QList<int> Generations() const;  // of the copies, the latest first

    QString folder;
    int number;
};

}  // namespace desktop
