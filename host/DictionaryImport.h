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
    ImportReport Write();  // what the rows taken have added and changed, in their order

  private:
    struct Known {
        int key;            // 0 for a term that no row of the table holds yet
        QStringList texts;  // in the order of the header
        int row = 0;        // that brought or last changed it; 0 for a term of the dictionary
        bool changed = false;
    };

    int PlaceOf(const std::vector<Language>& languages, const QString& name) const;
    void FindColumns(const std::vector<Language>& languages, const QStringList& header);
    bool TooLong(const QStringList& texts) const;
    void Merge(Known& known, const QStringList& texts);
    void Update(const std::vector<const Known*>& terms);
    void Insert(const std::vector<const Known*>& terms);

    SqlConnection& connection;
    QString url;
    std::vector<int> places;  // of the header's languages among those of the dictionary
    QStringList columns;
    std::vector<int> lengths;
    std::vector<Known> known;
    QHash<QString, size_t> bySource;  // place in known
    ImportReport report;
    int row = 0;
};

}  // namespace host
