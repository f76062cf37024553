// Grouping and matching for the commands.
#include "apps/cli/TranslationTable.h"

#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/ReadBack.h"
#include "platform/text/Conversion.h"

namespace cli {

namespace {

using structTraducoes = traducaoTQ::IBDIdiomas::structTraducoes;

void KeepColumns(structTraducoes& dictionary, const std::vector<TQString>& languages) {
    if (dictionary.languages == languages) return;
    std::vector<size_t> columns;
    for (const TQString& language : languages) {
        const auto found =
            std::find(dictionary.languages.begin(), dictionary.languages.end(), language);
        if (found == dictionary.languages.end()) return;
        columns.push_back(static_cast<size_t>(found - dictionary.languages.begin()));
    }
    dictionary.languages = languages;
    for (auto& term : dictionary.terms) {
        std::vector<TQString> kept;
        kept.reserve(columns.size());
        for (const size_t column : columns) kept.push_back(std::move(term.translations[column]));
        term.translations = std::move(kept);
    }
}

std::vector<Language> InUseOf(std::vector<Language> languages) {
    std::erase_if(languages, [](const Language& language) { return !InUse(language); });
    return languages;
}

void ChooseLanguages(TranslationTable& table, const LanguageOptions& options, int projectLanguage) {
    const Languages languages;
    table.from = languages.Source(options.from, projectLanguage);
    if (!options.to.empty()) table.to = languages.Find(options.to);
    if (table.to && table.to->key == table.from.key) {
        throw Error("source and target are both " + Utf8(table.from.descr) +
                    "; name two languages with --from and --to");
    }
}

}  // namespace

Awaited<Dictionary> ReadDictionary(Session& session, const LanguageOptions& options, Keep keep) {
    session.OpenDatabase();
    return OnSecondThread([&session, options, keep] {
        const Languages languages;
        Dictionary dictionary{languages.All(), nullptr};
        const bool bothNamed = !options.from.empty() && !options.to.empty();
        auto columns = keep == Keep::SourceAndTarget && bothNamed
                           ? std::vector{languages.Find(options.from), languages.Find(options.to)}
                           : InUseOf(languages.All());
        for (Language& column : columns) column.descr = column.key;
        dictionary.terms = traducaoTQ::IBDIdiomas().GetTerms(std::move(columns));
        if (!dictionary.terms) session.RequireReadableTerms();
        return dictionary;
    });
}

TranslationTable MakeTable(Session& session, Dictionary dictionary,
                           traducaoTQ::ListaTraduziveis objects, const LanguageOptions& options,
                           Keep keep) {
    TranslationTable table;
    table.languages = std::move(dictionary.languages);
    table.table.traducoes = std::move(dictionary.terms);
    ChooseLanguages(table, options, session.ProjectLanguage());
    if (keep == Keep::SourceAndTarget && table.to && table.table.traducoes) {
        KeepColumns(*table.table.traducoes, {table.from.key, table.to->key});
    }
    table.objects = std::move(objects);
    table.table.fazerAmbos = SideBySide<std::function<void()>, std::function<void()>>;
    table.table.AgruparExpressoes(*table.objects,
                                  traducaoTQ::ITabelaExpressoes::Textos::VaoParaAsLinhas);
    table.table.AtualizarExpressoes(
        table.from.key, table.to ? std::optional<TQString>(table.to->key) : std::nullopt);
    return table;
}

TranslationTable ReadTable(Session& session, const std::string& drawing, const ScanOptions& scan,
                           const LanguageOptions& options, Progress& progress) {
    progress.Phase("reading");
    auto dictionary = ReadDictionary(session, options, Keep::SourceAndTarget);
    session.OpenDrawing(drawing);
    progress.Phase("scanning");
    auto objects = Scan(session, scan).Run();
    progress.Phase("matching");
    return MakeTable(session, dictionary.Get(), std::move(objects), options, Keep::SourceAndTarget);
}

const char* StateOf(const structExpressao& line) {
    switch (line.estado) {
        case traducaoTQ::Automatica:
            return "automatic";
        case traducaoTQ::Manual:
            return "manual";
        case traducaoTQ::Importado:
            return "imported";
        default:
            return "untranslated";
    }
}

bool IsTranslated(const structExpressao& line) {
    return line.estado != traducaoTQ::NaoTraduzido && !text::TrimLeft(line.traducao).empty();
}

}  // namespace cli
