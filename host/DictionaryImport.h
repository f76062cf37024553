// Merging rows of texts into the terms of a dictionary.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

#include "host/Dictionary.h"

namespace host {

// Lives inside one transaction, which its user opens and commits. Throws host::Error.
class DictionaryImport {
  public:
    DictionaryImport(SqlConnection& connection, const QString& url, const Terms& terms,
                     const QStringList& header);
    void Take(const QStringList& row);
    const ImportReport& Report() const { return report; }

  private:
    struct Known {
        int key;
        QStringList texts;  // in the order of the header
        int row;            // that brought or last changed it; 0 for a term of the dictionary
    };

    void FindColumns(const std::vector<Language>& languages, const QStringList& header);
    void PrepareStatements();
    bool TooLong(const QStringList& texts) const;
    void Insert(const QStringList& texts);
    void Merge(Known& known, const QStringList& texts);

    SqlConnection& connection;
    QString url;
    std::vector<int> places;  // of the header's languages among those of the dictionary
    QStringList columns;
    std::vector<int> lengths;
    QHash<QString, Known> bySource;
    QSqlQuery insert;
    QSqlQuery update;
    ImportReport report;
    int row = 0;
};

}  // namespace host
