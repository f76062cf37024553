// What the tests of the host share: a folder of their own, queries from text, small drawings.
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QTemporaryDir>
#include <QVariantList>
#include <memory>
#include <string>
#include <vector>

#include "platform/drawing/DbDatabase.h"
#include "platform/kernel/KVQuery.h"
#include "tests/support/Permissions.h"

// Where the dictionary of a test is: what must hold for a file must hold on a server too.
enum class Where { File, Server };

// A folder that other users can reach too (see OrdinaryUser), removed at the end.
class Folder {
  public:
    Folder();
    QString File(const QString& name) const { return folder.filePath(name); }
    QString Database() const { return "sqlite:" + File("dictionary.sqlite"); }

  private:
    QTemporaryDir folder;
};

// A test on both: TEST_P, and ON_FILE_AND_SERVER(Test) once.
class DictionaryPlace : public testing::TestWithParam<Where> {
  protected:
    QString Url();  // of this test's database, which is empty at first
    // Statements as another program runs them.
    void RunRaw(const QStringList& statements);

    Folder folder;

  private:
    QString server;
};

#define ON_FILE_AND_SERVER(test)                                        \
    INSTANTIATE_TEST_SUITE_P(File, test, testing::Values(Where::File)); \
    INSTANTIATE_TEST_SUITE_P(Server, test, testing::Values(Where::Server))

// Statements on a file as a program other than this one would run them.
void RunRaw(const QString& file, const QStringList& statements);

class TextQuery : public CKVQuery {
  public:
    TextQuery(const QString& statement, QVariantList values = {})
        : statement(statement), values(std::move(values)) {}
    bool IsReadOnly() const override { return statement.startsWith("select", Qt::CaseInsensitive); }
    std::string GetCacheKey() const override { return {}; }
    bool IsDatabaseQuery() const override { return true; }
    QSqlQuery Prepare(QSqlDatabase database) const override;

  private:
    QString statement;
    QVariantList values;
};
std::shared_ptr<CKVQuery> Query(const QString& statement, QVariantList values = {});

// The message of the host::Error that the work throws; empty when it throws none.
template <class Work>
std::string ErrorOf(Work work);

std::string SmallDrawing(
    const std::string& version = "AC1015");  // one TEXT, handle A1, layer PAG01
std::string SmallDrawingR12();               // the same without handles
OdDbDatabasePtr Parsed(const std::string& bytes);
void WriteFile(const QString& path, const std::string& bytes);
std::string ReadFile(const QString& path);

#include "host/Error.h"

template <class Work>
std::string ErrorOf(Work work) {
    try {
        work();
    } catch (const host::Error& error) {
        return error.what();
    }
    return {};
}
