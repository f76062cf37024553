// Runs of the program as a separate process, each test in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <string>

struct CliResult {
    int status = -1;  // -1: ended by a signal
    std::string out, err;
};

class CliTest : public testing::Test {
  protected:
    // The program with the folder as its home and its current folder.
    CliResult Run(const QStringList& arguments, const std::string& input = {});
    void Start(QProcess& process, const QStringList& arguments);  // without waiting

    std::string Path(const std::string& name) const;
    void Write(const std::string& name, const std::string& bytes);
    std::string Read(const std::string& name);  // fails the test when it cannot be read
    QStringList Files() const;                  // all that stands in the folder, sorted

    // A dictionary Português, English, Deutsch with a few terms, as "sqlite:d.sqlite".
    void MakeDictionary(const std::string& csv);
    // What no command does to a database in a file.
    void Change(const char* database, const char* statement);

    QTemporaryDir folder;
};

// Exactly one line, from the program itself.
bool IsOneErrorLine(const std::string& err);

// Bytes of a file anywhere; fails the test when it cannot be read.
std::string ReadFile(const std::string& path);

// All drawings that tests read: the folder in KV_DRAWINGS, or the project's fixtures; always with
// the examples.
QStringList Drawings();
