// kelvara db: keeping of the dictionary.
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include "apps/cli/Csv.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/Paths.h"
#include "apps/cli/Progress.h"
#include "apps/cli/Session.h"
#include "host/Dictionary.h"

namespace cli {

namespace {

QString Url(const GeneralOptions& general) {
    return QString::fromStdString(DatabaseUrlOf(general));
}

QStringList ToQt(const CsvRow& row) {
    QStringList list;
    for (const std::string& cell : row) list << QString::fromStdString(cell);
    return list;
}

// One name a line, or the columns of a table's heading.
QStringList ReadNames(const std::string& path) {
    QStringList names;
    for (const CsvRow& row : ReadCsv(path)) {
        for (const std::string& cell : row) {
            const QString name = QString::fromStdString(cell).trimmed();
            if (!name.isEmpty()) names << name;
        }
    }
    return names;
}

// The user's own folder for data is made when it is first needed; any other must be there.
void MakeDefaultFolder(const GeneralOptions& general) {
    const host::DatabaseUrl url = host::ParseDatabaseUrl(Url(general));
    if (NamesDatabase(general) || url.kind != host::DatabaseUrl::Kind::Sqlite) return;
    QDir().mkpath(QFileInfo(url.file).path());
}

// Makes what is missing: the file, the tables, the languages.
void MakeReady(const GeneralOptions& general, const QStringList& names) {
    host::Dictionary dictionary(Url(general), host::OnMissing::Create);
    QStringList missing = names;
    for (const host::Language& language : dictionary.Languages()) {
        const QString& known = language.description;
        erase_if(missing, [&](const QString& name) {
            return name.compare(known, Qt::CaseInsensitive) == 0;
        });
    }
    dictionary.AddLanguages(missing);
    const QString shown = host::ParseDatabaseUrl(Url(general)).text;  // without a password
    Output(general).Note("dictionary " + shown.toStdString() + " is ready, " +
                         std::to_string(missing.size()) + " languages added");
}

void Init(const GeneralOptions& general, const std::string& languagesFile) {
    const QStringList names = languagesFile.empty() ? QStringList() : ReadNames(languagesFile);
    MakeDefaultFolder(general);
    const QString file = host::ParseDatabaseUrl(Url(general)).file;
    const bool isNew = !QFileInfo::exists(file);
    try {
        MakeReady(general, names);
    } catch (...) {
        if (isNew) QFile::remove(file);
        throw;
    }
}

void PrintLanguages(const GeneralOptions& general, const std::vector<host::Language>& languages) {
    Table table({{"key", true}, {"name"}, {"use"}});
    for (const host::Language& language : languages) {
        table.Add({language.key.toStdString(), language.description.toStdString(),
                   language.inUse ? "in use" : "not in use"});
    }
    Output output(general);
    table.Print(output);
    output.Finish();
}

CsvRow ToCsv(const QStringList& texts) {
    CsvRow row;
    for (const QString& text : texts) row.push_back(text.toStdString());
    return row;
}

// Names, and keys where a name could mean another language too.
CsvRow HeaderOf(const host::Terms& terms) {
    CsvRow header;
    for (const host::Language& language : terms.languages) {
        const QString& name = language.description;
        const auto meant =
            std::count_if(terms.languages.begin(), terms.languages.end(), [&](const auto& other) {
                return other.key == name ||
                       other.description.compare(name, Qt::CaseInsensitive) == 0;
            });
        header.push_back((meant == 1 ? name : language.key).toStdString());
    }
    return header;
}

void PrintTerms(const GeneralOptions& general, const host::Terms& terms) {
    std::vector<Table::Column> columns{{"key", true}};
    for (const std::string& name : HeaderOf(terms)) columns.push_back({name});
    Table table(std::move(columns));
    for (const auto& term : terms.terms) {
        CsvRow row = ToCsv(term.texts);
        row.insert(row.begin(), std::to_string(term.key));
        table.Add(std::move(row));
    }
    Output output(general);
    table.Print(output);
    output.Finish();
}

void ShowTerms(const GeneralOptions& general, const std::string& csvFile) {
    RequireApart({"the table", csvFile}, {{"the dictionary", DatabaseFileOf(general)}});
    Progress progress(general);
    progress.Phase("reading");
    const host::Terms terms = host::Dictionary(Url(general)).ReadTerms();
    progress.End();
    if (csvFile.empty()) return PrintTerms(general, terms);
    std::string table = CsvLine(HeaderOf(terms));
    for (const auto& term : terms.terms) table += CsvLine(ToCsv(term.texts));
    WriteTable(csvFile, table);
    Output(general).Note(std::to_string(terms.terms.size()) + " terms written to " +
                         (csvFile == kStandardStream ? "standard output" : csvFile));
}

QJsonArray ToJson(const std::vector<int>& rows) {
    QJsonArray array;
    for (const int row : rows) array.append(row);
    return array;
}

std::string Listed(const std::vector<int>& rows) {
    constexpr size_t kMost = 10;
    std::string list = std::to_string(rows.size());
    for (size_t i = 0; i < std::min(rows.size(), kMost); ++i) {
        list += (i == 0 ? "  rows " : ", ") + std::to_string(rows[i]);
    }
    return rows.size() > kMost ? list + ", ..." : list;
}

void PrintImport(const GeneralOptions& general, const host::ImportReport& report) {
    Output output(general);
    if (output.Json()) {
        output.Object({{"added", report.added},
                       {"changed", report.changed},
                       {"unchanged", report.unchanged},
                       {"empty", ToJson(report.empty)},
                       {"doubled", ToJson(report.doubled)},
                       {"tooLong", ToJson(report.tooLong)}});
    } else {
        output.Line("added      " + std::to_string(report.added));
        output.Line("changed    " + std::to_string(report.changed));
        output.Line("unchanged  " + std::to_string(report.unchanged));
        output.Line("empty      " + Listed(report.empty));
        output.Line("doubled    " + Listed(report.doubled));
        output.Line("too long   " + Listed(report.tooLong));
    }
    output.Finish();
}

void Import(const GeneralOptions& general, const std::string& csvFile) {
    Progress progress(general);
    progress.Phase("reading");
    std::vector<CsvRow> rows = ReadCsv(csvFile);
    if (rows.empty()) {
        throw Error("the table " + csvFile +
                    " is empty; its first row must hold the names of languages");
    }
    std::vector<QStringList> terms;
    terms.reserve(rows.size() - 1);
    for (size_t i = 1; i < rows.size(); ++i) terms.push_back(ToQt(rows[i]));
    progress.Phase("importing");
    host::Dictionary(Url(general))
        .Import(ToQt(rows[0]), terms, [&](const host::ImportReport& report) {
            progress.End();
            PrintImport(general, report);
        });
}

const char* NameOf(host::DictionaryFinding::Kind kind) {
    using Kind = host::DictionaryFinding::Kind;
    switch (kind) {
        case Kind::DoubledSource:
            return "doubled";
        case Kind::EmptyText:
            return "empty";
        case Kind::TooLong:
            return "too-long";
        case Kind::LanguageKey:
            return "language-key";
        case Kind::DoubledLanguage:
            return "doubled-language";
        case Kind::MissingColumn:
            return "missing-column";
    }
    return "other";
}

void Check(const GeneralOptions& general) {
    Progress progress(general);
    progress.Phase("checking");
    Table table({{"finding"}, {"term", true}, {"language"}, {"text"}});
    const auto findings = host::Dictionary(Url(general)).Check();
    for (const host::DictionaryFinding& finding : findings) {
        table.Add({NameOf(finding.kind), std::to_string(finding.term),
                   finding.language.toStdString(), finding.text.toStdString()});
    }
    progress.End();
    Output output(general);
    table.Print(output);
    output.Note(std::to_string(findings.size()) +
                (findings.size() == 1 ? " finding" : " findings"));
    output.Finish();
}

}  // namespace

void RegisterDb(CommandLine& line) {
    CLI::App* db = line.app.add_subcommand("db", "Keeps the dictionary");
    db->require_subcommand(1);
    db->fallthrough();
    auto file = std::make_shared<std::string>();
    GeneralOptions& general = line.general;

    line.Add(*db, "init", "Makes the tables where there are none, and the languages of a file",
             [&general, file] { Init(general, *file); })
        ->add_option("--languages", *file, "Names of languages, one a line; those there are stay")
        ->check(kNotEmpty);
    line.Add(*db, "languages", "The languages: key, name, in use or not",
             [&general] { PrintLanguages(general, host::Dictionary(Url(general)).Languages()); });
    line.Add(*db, "add-language", "Adds a language under the next number",
             [&general, file] {
                 host::Dictionary(Url(general))
                     .AddLanguage(QString::fromStdString(*file), [&](const host::Language& added) {
                         PrintLanguages(general, {added});
                     });
             })
        ->add_option("NAME", *file, "Its name")
        ->required()
        ->check(kNotEmpty);
    line.Add(*db, "terms", "All terms, one a line", [&general, file] { ShowTerms(general, *file); })
        ->add_option(
            "--to-csv", *file,
            "Write them to a file: UTF-8, with a header of language names; - writes stdout")
        ->check(kNotEmpty);
    line.Add(*db, "import",
             "Takes terms from a table; rows whose first column is known are merged into the term",
             [&general, file] { Import(general, *file); })
        ->add_option("FILE", *file, "UTF-8 CSV with a header of language names; - reads stdin")
        ->required()
        ->check(kNotEmpty);
    line.Add(*db, "check",
             "Doubled sources, empty texts, texts too long, language keys that are not 1 to n",
             [&general] { Check(general); });
}

}  // namespace cli
