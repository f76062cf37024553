// What a keeper of the dictionary should look at.
#include <QHash>

#include "host/Dictionary.h"
#include "host/Schema.h"

namespace host {

namespace {

using Kind = DictionaryFinding::Kind;
using Findings = std::vector<DictionaryFinding>;

// Inserting a term counts the language columns by position, reading goes by key: with other keys
// than 1 to n the two differ.
void CheckLanguages(const std::vector<Language>& languages, SqlConnection& connection,
                    Findings& findings) {
    for (size_t i = 0; i < languages.size(); ++i) {
        const Language& language = languages[i];
        const int expected = static_cast<int>(i) + 1;
        if (language.key != QString::number(expected)) {
            findings.push_back(
                {Kind::LanguageKey, 0, language.description,
                 QStringLiteral("language %1 has the key %2 in place %3; keys must be 1 "
                                "to n without gaps")
                     .arg(language.description, language.key)
                     .arg(expected)});
        }
        const QString column = LanguageColumn(language.key.toInt());
        if (!HasColumn(connection, "BDTRANSLATOR", column)) {
            findings.push_back(
                {Kind::MissingColumn, 0, language.description,
                 QStringLiteral("language %1 has no column %2").arg(language.description, column)});
        }
    }
}

// Dialogs and tables name languages by their names.
void CheckNames(const std::vector<Language>& languages, Findings& findings) {
    for (size_t i = 0; i < languages.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            const QString& name = languages[i].description;
            if (name.compare(languages[j].description, Qt::CaseInsensitive) != 0) continue;
            findings.push_back({Kind::DoubledLanguage, 0, name,
                                QStringLiteral("languages %1 and %2 have the same name \"%3\"")
                                    .arg(languages[j].key, languages[i].key, name)});
            break;
        }
    }
}

void CheckText(const Terms::Term& term, const Language& language, const QString& text, int length,
               Findings& findings) {
    if (text.isEmpty()) {
        findings.push_back(
            {Kind::EmptyText, term.key, language.description,
             QStringLiteral("term %1 has no text in %2").arg(term.key).arg(language.description)});
    } else if (length > 0 && text.size() > length) {
        findings.push_back({Kind::TooLong, term.key, language.description,
                            QStringLiteral("term %1 has %2 characters in %3, the column holds %4")
                                .arg(term.key)
                                .arg(text.size())
                                .arg(language.description)
                                .arg(length)});
    }
}

// The first language is the one that imports merge by.
void CheckDoubled(const Terms& terms, Findings& findings) {
    QHash<QString, int> keyOf;
    for (const Terms::Term& term : terms.terms) {
        const QString& source = term.texts.front();
        if (source.isEmpty()) continue;
        const auto first = keyOf.constFind(source);
        if (first == keyOf.constEnd()) {
            keyOf.insert(source, term.key);
            continue;
        }
        findings.push_back({Kind::DoubledSource, term.key, terms.languages.front().description,
                            QStringLiteral("terms %1 and %2 have the same text in %3: \"%4\"")
                                .arg(*first)
                                .arg(term.key)
                                .arg(terms.languages.front().description, source)});
    }
}

}  // namespace

Findings Dictionary::Check() {
    Findings findings;
    const std::vector<Language> languages = Languages();
    CheckLanguages(languages, connection, findings);
    CheckNames(languages, findings);
    for (const DictionaryFinding& finding : findings) {
        if (finding.kind == Kind::MissingColumn) return findings;  // the terms cannot be read
    }
    const Terms terms = ReadTerms();
    if (terms.languages.empty()) return findings;
    std::vector<int> lengths;
    for (const Language& language : terms.languages) {
        lengths.push_back(
            DeclaredColumnSize(connection, "BDTRANSLATOR", LanguageColumn(language.key.toInt())));
    }
    for (const Terms::Term& term : terms.terms) {
        for (size_t i = 0; i < terms.languages.size(); ++i) {
            CheckText(term, terms.languages[i], term.texts[i], lengths[i], findings);
        }
    }
    CheckDoubled(terms, findings);
    return findings;
}

}  // namespace host
