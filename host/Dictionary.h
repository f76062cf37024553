// The dictionary as its keepers see it: languages, terms, import and checks.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "host/SqlConnection.h"

namespace host {

struct Language {
    QString key;  // LANG_KEY, a number as text
    QString description;
    bool inUse = false;
};

struct Terms {
    std::vector<Language> languages;
    struct Term {
        int key;
        QStringList texts;  // one a language, empty where there is none
    };
    std::vector<Term> terms;  // in ascending key
};

// What became of the rows of an import. Rows are counted from 1.
struct ImportReport {
    int added = 0;
    int changed = 0;
    int unchanged = 0;
    std::vector<int> empty;    // rows without a text in the first column; passed over
    std::vector<int> doubled;  // rows whose first text came in an earlier row; merged into its term
    std::vector<int> tooLong;  // rows with a text over the column's length; passed over
};

struct DictionaryFinding {
    enum class Kind {
        DoubledSource,
        EmptyText,
        TooLong,
        LanguageKey,
        DoubledLanguage,
        MissingColumn
    };
    Kind kind;
    int term = 0;      // key of the term, 0 when it is none's
    QString language;  // description
    QString text;      // one line for the user
};

// A connection of its own, used on one thread. Every operation throws host::Error when it cannot be
// done, and has changed nothing then.
class Dictionary {
  public:
    // Opens the dictionary at the address; with OnMissing::Create it makes an empty one where there
    // is none.
    explicit Dictionary(const QString& url, OnMissing onMissing = OnMissing::Refuse);

    // Is given the result before the change is kept; what it throws takes the change back.
    template <class Result>
    using Tell = std::function<void(const Result&)>;

    // In ascending number. Language keys that are no numbers count as 0.
    std::vector<Language> Languages();
    // The next free number, in use. Refuses an empty name and one that is there already, whatever
    // its case.
    Language AddLanguage(const QString& name, const Tell<Language>& tell = {});
    void AddLanguages(const QStringList& names);  // all of them or none

    Terms ReadTerms();
    // header: keys or names of languages, one a column. A row whose first text a term has already,
    // in that column's language, is merged into it (into the lowest key): texts that are not empty
    // replace the term's. Other rows become new terms.
    ImportReport Import(const QStringList& header, const std::vector<QStringList>& rows,
                        const Tell<ImportReport>& tell = {});

    std::vector<DictionaryFinding> Check();

  private:
    Language Add(const QString& name);

    QString url;  // for messages
    SqlConnection connection;
};

}  // namespace host
