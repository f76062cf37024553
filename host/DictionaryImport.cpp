// The rules of the merge: the first column decides which term a row belongs to.
#include "host/DictionaryImport.h"

#include <QSqlQuery>
#include <QVariant>
#include <algorithm>

#include "host/Error.h"
#include "host/Schema.h"

namespace host {

namespace {

constexpr size_t kRowsAtATime = 100;  // of one statement, since a server may be far away

QString NamesOf(const std::vector<Language>& languages) {
    QStringList names;
    for (const Language& language : languages) names << language.description;
    return names.join(QLatin1String(", "));
}

// The languages that a heading may mean: the one of that key, else all of that name.
std::vector<int> PlacesOf(const std::vector<Language>& languages, const QString& keyOrName) {
    const QString wanted = keyOrName.trimmed();
    std::vector<int> named;
    for (int i = 0; i < static_cast<int>(languages.size()); ++i) {
        if (languages[i].key == wanted) return {i};
        if (languages[i].description.compare(wanted, Qt::CaseInsensitive) == 0) named.push_back(i);
    }
    return named;
}

// An empty text is bound as such: a null string would become NULL.
void Bind(QSqlQuery& query, const QStringList& texts) {
    for (const QString& text : texts) query.addBindValue(text.isNull() ? QString("") : text);
}

}  // namespace

DictionaryImport::DictionaryImport(SqlConnection& connection, const QString& url,
                                   const Terms& terms, const QStringList& header)
    : connection(connection), url(url) {
    FindColumns(terms.languages, header);
    for (const Terms::Term& term : terms.terms) {
        QStringList texts;
        for (int place : places) texts << term.texts[place];
        // Of several terms with one source the first is the one that translations use.
        if (texts[0].isEmpty() || bySource.contains(texts[0])) continue;
        bySource.insert(texts[0], known.size());
        known.push_back({term.key, texts});
    }
}

int DictionaryImport::PlaceOf(const std::vector<Language>& languages, const QString& name) const {
    const std::vector<int> found = PlacesOf(languages, name);
    if (found.size() == 1) return found.front();
    throw Error(
        found.empty()
            ? QStringLiteral("database %1: there is no language \"%2\" (there are: %3); add it "
                             "with kelvara db add-language")
                  .arg(url, name, NamesOf(languages))
            : QStringLiteral("import into %1: several languages are named \"%2\"; write their "
                             "keys in the first row")
                  .arg(url, name));
}

void DictionaryImport::FindColumns(const std::vector<Language>& languages,
                                   const QStringList& header) {
    for (const QString& name : header) {
        const int place = PlaceOf(languages, name);
        if (std::find(places.begin(), places.end(), place) != places.end()) {
            throw Error(
                QStringLiteral("import into %1: the language \"%2\" has two columns; keep one")
                    .arg(url, name));
        }
        const QString column = LanguageColumn(languages[place].key.toInt());
        places.push_back(place);
        columns << column;
        lengths.push_back(DeclaredColumnSize(connection, "BDTRANSLATOR", column));
    }
    if (places.empty()) {
        throw Error(QStringLiteral("import into %1: the file has no header of languages").arg(url));
    }
}

void DictionaryImport::Take(const QStringList& given) {
    ++row;
    QStringList texts = given.mid(0, columns.size());
    while (texts.size() < columns.size()) texts << QString();
    if (texts[0].isEmpty()) {
        report.empty.push_back(row);
    } else if (TooLong(texts)) {
        report.tooLong.push_back(row);
    } else if (const auto found = bySource.constFind(texts[0]); found != bySource.constEnd()) {
        Merge(known[*found], texts);
    } else {
        bySource.insert(texts[0], known.size());
        known.push_back({0, texts, row});
        ++report.added;
    }
}

bool DictionaryImport::TooLong(const QStringList& texts) const {
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (lengths[i] > 0 && texts[i].size() > lengths[i]) return true;
    }
    return false;
}

void DictionaryImport::Merge(Known& term, const QStringList& texts) {
    if (term.row > 0) report.doubled.push_back(row);
    QStringList merged = term.texts;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (!texts[i].isEmpty()) merged[i] = texts[i];
    }
    const bool changed = merged != term.texts;
    if (term.row == 0) ++(changed ? report.changed : report.unchanged);
    term.row = row;
    term.changed |= changed;
    term.texts = merged;
}

ImportReport DictionaryImport::Write() {
    std::vector<const Known*> changed;
    std::vector<const Known*> added;
    for (const Known& term : known) {
        if (term.key == 0) {
            added.push_back(&term);
        } else if (term.changed) {
            changed.push_back(&term);
        }
    }
    Update(changed);
    Insert(added);
    return report;
}

void DictionaryImport::Update(const std::vector<const Known*>& terms) {
    QSqlQuery update(connection.Handle());
    update.prepare(QStringLiteral("UPDATE BDTRANSLATOR SET %1 = ? WHERE TRANS_KEY = ?")
                       .arg(columns.join(QLatin1String(" = ?, "))));
    for (const Known* term : terms) {
        Bind(update, term->texts);
        update.addBindValue(term->key);
        connection.Run(update);
    }
}

void DictionaryImport::Insert(const std::vector<const Known*>& terms) {
    const QString row = u'(' + QStringList(columns.size(), "?").join(u',') + u')';
    QSqlQuery insert(connection.Handle());
    size_t prepared = 0;
    for (size_t begin = 0; begin < terms.size(); begin += prepared) {
        const size_t count = std::min(kRowsAtATime, terms.size() - begin);
        if (count != prepared) {
            insert.prepare(QStringLiteral("INSERT INTO BDTRANSLATOR (%1) VALUES %2")
                               .arg(columns.join(u','), QStringList(count, row).join(u',')));
            prepared = count;
        }
        for (size_t i = begin; i < begin + count; ++i) Bind(insert, terms[i]->texts);
        connection.Run(insert);
    }
}

}  // namespace host
