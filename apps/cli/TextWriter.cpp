// The writing of translations.
#include "apps/cli/TextWriter.h"

#include <algorithm>

#include "apps/cli/Output.h"
#include "apps/cli/Places.h"
#include "apps/cli/ReadBack.h"
#include "apps/cli/SecondThread.h"
#include "apps/cli/StandIns.h"
#include "platform/drawing/OdError.h"
#include "platform/drawing/SecondThread.h"

namespace cli {

namespace {

using traducaoTQ::ETraduzivel;

// The drops leave gaps.
void DropUntranslated(std::span<std::unique_ptr<structExpressao>> lines) {
    for (auto& line : lines) {
        if (IsTranslated(*line)) continue;
        for (const ETraduzivel* object : line->objetos) delete object;
        line.reset();
    }
}

// The objects of the dropped lines go too; the table's list holds the others. Memory mostly goes
// back to the thread that took it, which made the same half of the lines.
void DropUntranslatedLines(TranslationTable& table) {
    auto& lines = *table.table.expressoes;
    table.objects->clear();  // every object is an object of one line
    const std::span all(lines);
    const size_t half = all.size() / 2;
    SideBySide([&] { DropUntranslated(all.first(half)); },
               [&] { DropUntranslated(all.subspan(half)); });
    std::erase(lines, nullptr);
    for (const auto& line : lines) {
        table.objects->insert(table.objects->end(), line->objetos.begin(), line->objetos.end());
    }
}

// What all writers share, and none changes.
struct Writing {
    const dxf::Store& store;  // asked for once: the drawing writes its dictionaries out for it
    const OnWritten& onWritten;
    const Lines& lines;
    const StandIns& standIns;
};

class TextWriter {
  public:
    explicit TextWriter(const Writing& writing) : writing(writing) {}

    void Write(std::span<const Place> places) {
        for (size_t i = 0; i < places.size(); ++i) {
            FetchAhead(places, i);
            Write(places[i]);
        }
    }
    // Beside another writer that has other objects: what only one may write at a time is left for
    // later.
    void WriteBeside(std::span<const Place> places) {
        for (size_t i = 0; i < places.size(); ++i) {
            FetchAhead(places, i);
            CanBeBeside(places[i]) ? Write(places[i]) : later.push_back(places[i]);
        }
    }
    void WriteLater() { Write(std::exchange(later, {})); }

    // Takes over what the other one has written.
    void Add(TextWriter& other) {
        std::ranges::copy(other.texts, std::back_inserter(texts));
        std::ranges::move(other.reports, std::back_inserter(reports));
        other.texts = {};
    }
    void Expect(size_t count) { texts.reserve(count); }

    Written Take() {
        std::ranges::sort(reports, {}, [](const auto& report) { return InLines(report.first); });
        Written written{std::move(texts), {}};
        for (auto& [place, report] : reports) written.unwritten.push_back(std::move(report));
        return written;
    }

  private:
    // Neighbours in the file are far apart in memory: the lines of the places ahead, and then the
    // texts of those lines, are fetched while others are written.
    void FetchAhead(std::span<const Place> places, size_t next) const {
        constexpr size_t kLine = 16, kText = 8;
        if (next + kLine >= places.size()) return;
        const structExpressao& line = *writing.lines[places[next + kLine].line];
        __builtin_prefetch(&line.original);
        __builtin_prefetch(&line.objetos);
        __builtin_prefetch(writing.lines[places[next + kText].line]->traducao.data());
    }

    bool CanBeBeside(const Place& place) const {
        constexpr uint32_t kinds =
            traducaoTQ::TipoTexto | traducaoTQ::TipoAtributo | traducaoTQ::TipoFio;
        if ((place.object->GetTipo() & kinds) == 0) return false;
        const dxf::RecordIndex record = writing.store.FindHandle(place.handle);
        return record != dxf::kNoRecord && writing.store.CanChangeBeside(record);
    }

    void Write(const Place& place) {
        ETraduzivel& object = *place.object;
        const structExpressao& line = *writing.lines[place.line];
        try {
            const ReadBack written(writing.store, object, place.handle, line);
            object.SetTexto(line.traducao);
            if (!written.Holds()) return Report(place, ReasonNotFound(object));
        } catch (const OdError& error) {
            if (error.code() != eStringTooLong) throw;
            writing.standIns.PutBack(object, line);
            return Report(place, error.description().narrowText());
        }
        texts.push_back({place.handle, IsXdata(object), line.original, line.traducao});
        const std::string remark =
            writing.onWritten ? writing.onWritten(object, line) : std::string();
        if (!remark.empty()) Report(place, remark);
    }

    static const char* ReasonNotFound(const ETraduzivel& object) {
        switch (object.GetTipo()) {
            case traducaoTQ::TipoBlocoTexto:
                return "not found again: the text in the block has blanks around it";
            case traducaoTQ::TipoFio:
                return "not found again: its first field has blanks before it, or is that of "
                       "another string of the wire";
            default:
                return "not found again in the data of its object";
        }
    }

    void Report(const Place& place, const std::string& reason) {
        const ETraduzivel& object = *place.object;
        reports.push_back(
            {place,
             {std::string(traducaoTQ::NomeTipo(object.GetTipo())), Utf8(object.GetChave()),
              Utf8(writing.lines[place.line]->original), reason}});
    }

    const Writing& writing;
    std::vector<ExpectedText> texts;
    std::vector<std::pair<Place, Unwritten>> reports;
    std::vector<Place> later;
};

// Records are made in the order of the lines, from which they have their handles.
Written WriteInOrder(const Writing& writing, Places places, Progress& progress) {
    std::vector<Place> all = std::move(places.plain);
    std::ranges::copy(places.inBlocks, std::back_inserter(all));
    std::ranges::sort(all, {}, InLines);
    Parts parts(all);
    TextWriter writer(writing);
    for (auto part = parts.Take(); !part.empty(); part = parts.Take()) {
        writer.Write(part);
        progress.Reached(parts.Taken());
    }
    return writer.Take();
}

Written WriteSideBySide(const Writing& writing, const Places& places, Progress& progress) {
    Parts parts(places.plain);
    TextWriter writer(writing), other(writing);
    writer.Expect(places.plain.size() + places.inBlocks.size());
    SideBySide(
        [&] {
            for (auto part = parts.Take(); !part.empty(); part = parts.Take()) {
                writer.WriteBeside(part);
                progress.Reached(parts.Taken());
            }
        },
        [&] {
            const OdDbSecondThread second;
            for (auto part = parts.Take(); !part.empty(); part = parts.Take()) {
                other.WriteBeside(part);
            }
        });
    writer.WriteLater();
    other.WriteLater();
    writer.Write(places.inBlocks);
    writer.Add(other);
    return writer.Take();
}

}  // namespace

Written WriteTexts(TranslationTable& table, OdDbDatabase& drawing, const OnWritten& onWritten,
                   Progress& progress) {
    DropUntranslatedLines(table);
    Places places = PlacesOf(table.Lines(), table.objects->size());
    const StandIns standIns(table.Lines(), places.inBlocks);
    const Writing writing{drawing.store(), onWritten, table.Lines(), standIns};
    return onWritten ? WriteInOrder(writing, std::move(places), progress)
                     : WriteSideBySide(writing, places, progress);
}

}  // namespace cli
