// The writing of translations.
#include "apps/cli/TextWriter.h"

#include <algorithm>
#include <future>
#include <unordered_set>

#include "apps/cli/Output.h"
#include "apps/cli/ReadBack.h"
#include "apps/cli/StandIns.h"
#include "platform/drawing/OdError.h"

namespace cli {

namespace {

using traducaoTQ::ETraduzivel;

// The objects of the dropped lines go too; the table's list holds the others.
void DropUntranslatedLines(TranslationTable& table) {
    auto& lines = *table.table.expressoes;
    table.objects->clear();  // every object is an object of one line
    std::erase_if(lines, [](const auto& line) {
        if (IsTranslated(*line)) return false;
        for (const ETraduzivel* object : line->objetos) delete object;
        return true;
    });
    for (const auto& line : lines) {
        table.objects->insert(table.objects->end(), line->objetos.begin(), line->objetos.end());
    }
}

// An object of a translated line; places are numbered in the order of the lines.
struct Place {
    uint64_t handle;
    ETraduzivel* object;
    uint32_t line, number;
};

void Collect(const TranslationTable& table, bool byHandle, std::vector<Place>& places) {
    for (uint32_t line = 0; line < table.Lines().size(); ++line) {
        for (ETraduzivel* object : table.Lines()[line]->objetos) {
            const auto number = static_cast<uint32_t>(places.size());
            places.push_back({HandleOf(*object), object, line, number});
        }
    }
    if (byHandle) {
        std::ranges::sort(places, {}, [](const Place& p) { return std::pair(p.handle, p.number); });
    }
}

class TextWriter {
  public:
    TextWriter(OdDbDatabase& drawing, const OnWritten& onWritten,
               const traducaoTQ::ITabelaExpressoes::ListaExpressoes& lines, size_t count)
        : store(drawing.store()), onWritten(onWritten), lines(lines), standIns(lines) {
        result.texts.reserve(count);
    }

    // Neighbours in the file are far apart in memory: the lines of the places ahead, and then the
    // texts of those lines, are fetched while others are written.
    void FetchAhead(const std::vector<Place>& places, size_t next) const {
        constexpr size_t kLine = 16, kText = 8;
        if (next + kLine >= places.size()) return;
        const structExpressao& line = *lines[places[next + kLine].line];
        __builtin_prefetch(&line.original);
        __builtin_prefetch(&line.objetos);
        __builtin_prefetch(lines[places[next + kText].line]->traducao.data());
    }

    void Write(const Place& place) {
        ETraduzivel& object = *place.object;
        const structExpressao& line = *lines[place.line];
        // References of one block show the same text.
        if (IsBlockText(object) && !blockTexts.insert(place.handle).second) return;
        try {
            const ReadBack written(store, object, line);
            object.SetTexto(line.traducao);
            if (!written.Holds()) return Report(place, ReasonNotFound(object));
        } catch (const OdError& error) {
            if (error.code() != eStringTooLong) throw;
            standIns.PutBack(object, line);
            return Report(place, error.description().narrowText());
        }
        result.texts.push_back({place.handle, IsXdata(object), line.original, line.traducao});
        const std::string remark = onWritten ? onWritten(object, line) : std::string();
        if (!remark.empty()) Report(place, remark);
    }

    Written Take() {
        std::ranges::sort(reports, {}, &std::pair<uint32_t, Unwritten>::first);
        for (auto& [number, report] : reports) result.unwritten.push_back(std::move(report));
        return std::move(result);
    }

  private:
    static const char* ReasonNotFound(const ETraduzivel& object) {
        switch (object.GetTipo()) {
            case traducaoTQ::TipoBlocoTexto:
                return "not found again: the text in the block has blanks around it";
            case traducaoTQ::TipoFio:
                return "not found again: another string of the wire has the same first field";
            default:
                return "not found again in the data of its object";
        }
    }

    void Report(const Place& place, const std::string& reason) {
        const ETraduzivel& object = *place.object;
        reports.push_back({place.number,
                           {std::string(traducaoTQ::NomeTipo(object.GetTipo())),
                            Utf8(object.GetChave()), Utf8(lines[place.line]->original), reason}});
    }

    const dxf::Store& store;  // asked for once: the drawing writes its dictionaries out for it
    const OnWritten& onWritten;
    const traducaoTQ::ITabelaExpressoes::ListaExpressoes& lines;
    const StandIns standIns;
    std::unordered_set<uint64_t> blockTexts;              // handles
    std::vector<std::pair<uint32_t, Unwritten>> reports;  // by the number of the place
    Written result;
};

}  // namespace

Written WriteTexts(TranslationTable& table, OdDbDatabase& drawing, const OnWritten& onWritten,
                   Progress& progress) {
    DropUntranslatedLines(table);
    // In the order of their handles they stand side by side in the file. Records are made in the
    // order of the lines, from which they have their handles.
    std::vector<Place> places;
    places.reserve(table.objects->size());
    auto collecting = std::async(std::launch::async, [&] { Collect(table, !onWritten, places); });
    TextWriter writer(drawing, onWritten, table.Lines(), table.objects->size());
    collecting.get();
    for (size_t done = 0; done < places.size(); ++done) {
        writer.FetchAhead(places, done);
        writer.Write(places[done]);
        if (done % 1024 == 0) {
            progress.Reached(static_cast<double>(done) / static_cast<double>(places.size()));
        }
    }
    return writer.Take();
}

}  // namespace cli
