// The log of the host: one line each, to a file and on request to stderr.
#pragma once

#include <QFile>
#include <QString>
#include <mutex>

namespace host {

// May be written from every thread. Lines are appended whole, so that several programs share a
// file.
class Log {
  public:
    // A program that is started again and again makes the file when it has something to say.
    enum class Opens { AtOnce, ForTheFirstLine };

    // An empty file name means no file. The folder is made. A file that cannot be opened is said
    // once on stderr, and the lines go there instead.
    Log(const QString& fileName, bool toStderr, Opens opens = Opens::AtOnce);
    static QString DefaultFileName();  // in the user's folder for data

    // A line end inside the text is written as "\n", so that a line stays a line.
    void Write(const QString& text, const QString& drawing = {});

  private:
    void Open();
    void WriteToStderr(const QByteArray& line);

    std::mutex mutex;
    QFile file;
    bool toStderr;
    bool opened = false;  // or tried to
};

}  // namespace host
