// Languages and terms by SQL.
#include "host/Dictionary.h"

#include <QVariant>
#include <algorithm>

#include "host/DictionaryImport.h"
#include "host/Error.h"
#include "host/Schema.h"

namespace host {

Dictionary::Dictionary(const QString& url, OnMissing onMissing)
    : url(ParseDatabaseUrl(url).text), connection(ParseDatabaseUrl(url), onMissing) {}

std::vector<Language> Dictionary::Languages() {
    std::vector<Language> languages;
    QSqlQuery query =
        connection.Run(QStringLiteral("SELECT LANG_KEY, LANG_DESCR, LANG_USE FROM BDLANGUAGE "
                                      "ORDER BY CAST(LANG_KEY AS INTEGER)"));
    while (query.next()) {
        languages.push_back({connection.Text(query, 0), connection.Text(query, 1),
                             connection.Text(query, 2) == QLatin1String("1")});
    }
    return languages;
}

Language Dictionary::AddLanguage(const QString& name, const Tell<Language>& tell) {
    SqlTransaction transaction(connection);
    const Language added = Add(name);
    if (tell) tell(added);
    transaction.Commit();
    return added;
}

void Dictionary::AddLanguages(const QStringList& names) {
    SqlTransaction transaction(connection);
    for (const QString& name : names) Add(name);
    transaction.Commit();
}

Language Dictionary::Add(const QString& name) {
    const QString description = name.trimmed();
    if (description.isEmpty()) {
        throw Error(QStringLiteral("database %1: a language needs a name").arg(url));
    }
    int last = 0;
    for (const Language& language : Languages()) {
        last = std::max(last, language.key.toInt());
        if (language.description.compare(description, Qt::CaseInsensitive) == 0) {
            throw Error(QStringLiteral("database %1: there is a language %2 already (key %3)")
                            .arg(url, language.description, language.key));
        }
    }
    const Language added{QString::number(last + 1), description, true};
    AddLanguageColumn(connection, last + 1);
    QSqlQuery insert(connection.Handle());
    insert.prepare(QStringLiteral(
        "INSERT INTO BDLANGUAGE (LANG_KEY, LANG_DESCR, LANG_USE) VALUES (?, ?, '1')"));
    insert.addBindValue(added.key);
    insert.addBindValue(added.description);
    connection.Run(insert);
    return added;
}

Terms Dictionary::ReadTerms() {
    Terms result{Languages(), {}};
    QStringList columns{QStringLiteral("TRANS_KEY")};
    for (const Language& language : result.languages) {
        columns << LanguageColumn(language.key.toInt());
    }
    QSqlQuery query = connection.Run(
        QStringLiteral("SELECT %1 FROM BDTRANSLATOR ORDER BY TRANS_KEY").arg(columns.join(u',')));
    while (query.next()) {
        Terms::Term& term = result.terms.emplace_back();
        term.key = query.value(0).toInt();
        term.texts.reserve(columns.size() - 1);
        for (int i = 1; i < columns.size(); ++i) term.texts << connection.Text(query, i);
    }
    return result;
}

ImportReport Dictionary::Import(const QStringList& header, const std::vector<QStringList>& rows,
                                const Tell<ImportReport>& tell) {
    SqlTransaction transaction(connection);
    const Terms terms = ReadTerms();
    DictionaryImport import(connection, url, terms, header);
    for (const QStringList& row : rows) import.Take(row);
    ImportReport report = import.Write();
    if (tell) tell(report);
    transaction.Commit();
    return report;
}

}  // namespace host
