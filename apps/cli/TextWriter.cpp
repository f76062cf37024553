// The writing of translations.
#include "apps/cli/TextWriter.h"

#include <algorithm>
#include <span>
#include <unordered_set>

#include "apps/cli/Output.h"
#include "apps/cli/ReadBack.h"
#include "apps/cli/SecondThread.h"
#include "apps/cli/StandIns.h"
#include "platform/drawing/OdError.h"
#include "platform/drawing/SecondThread.h"

namespace cli {

namespace {

using traducaoTQ::ETraduzivel;

// Drops the lines and their objects, which leaves gaps.
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

// An object of a translated line; places are numbered in the order of the lines.
struct Place {
    uint64_t handle;
    ETraduzivel* object;
    uint32_t line, number;
};
using Places = std::span<const Place>;
using Reports = std::vector<std::pair<uint32_t, Unwritten>>;  // by the number of the place

std::vector<Place> PlacesOf(const TranslationTable& table, bool byHandle) {
    std::vector<Place> places;
    places.reserve(table.objects->size());
    for (uint32_t line = 0; line < table.Lines().size(); ++line) {
        for (ETraduzivel* object : table.Lines()[line]->objetos) {
            const auto number = static_cast<uint32_t>(places.size());
            places.push_back({HandleOf(*object), object, line, number});
        }
    }
    if (byHandle) {
        std::ranges::sort(places, {}, [](const Place& p) { return std::pair(p.handle, p.number); });
    }
    return places;
}

// Where the places behind the middle begin; those of one object stay together.
size_t MiddleOf(Places places) {
    size_t middle = places.size() / 2;
    while (middle > 0 && middle < places.size() &&
           places[middle].handle == places[middle - 1].handle) {
        ++middle;
    }
    return middle;
}

// What all writers share, and none changes.
struct Writing {
    const dxf::Store& store;  // asked for once: the drawing writes its dictionaries out for it
    const OnWritten& onWritten;
    const traducaoTQ::ITabelaExpressoes::ListaExpressoes& lines;
    const StandIns& standIns;
};

// Told now and then how many places have been written.
using Reached = std::function<void(size_t)>;

// Writes some places, and gives texts[i] what the new file is to hold for places[i]; its handle
// stays 0 where the text could not be written.
class TextWriter {
  public:
    TextWriter(const Writing& writing, Places places, std::span<ExpectedText> texts)
        : writing(writing), places(places), texts(texts) {}

    void WriteAll(const Reached& reached) {
        WriteThose([](const Place&) { return true; }, reached);
    }
    // Beside another writer that has other objects: what only one may write at a time is left for
    // later.
    void WriteBeside(const Reached& reached) {
        WriteThose([this](const Place& place) { return CanBeBeside(place); }, reached);
    }
    void WriteLater() {
        for (const size_t place : later) Write(place);
    }

    Reports TakeReports() { return std::move(reports); }

  private:
    // Neighbours in the file are far apart in memory: the lines of the places ahead, and then the
    // texts of those lines, are fetched while others are written.
    void FetchAhead(size_t next) const {
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

    template <class Chosen>
    void WriteThose(const Chosen& chosen, const Reached& reached) {
        for (size_t i = 0; i < places.size(); ++i) {
            FetchAhead(i);
            chosen(places[i]) ? Write(i) : later.push_back(i);
            if (i % 1024 == 0) reached(i);
        }
    }

    void Write(size_t number) {
        const Place& place = places[number];
        ETraduzivel& object = *place.object;
        const structExpressao& line = *writing.lines[place.line];
        // References of one block show the same text.
        if (IsBlockText(object) && !blockTexts.insert(place.handle).second) return;
        try {
            const ReadBack written(writing.store, object, place.handle, line);
            object.SetTexto(line.traducao);
            if (!written.Holds()) return Report(place, ReasonNotFound(object));
        } catch (const OdError& error) {
            if (error.code() != eStringTooLong) throw;
            writing.standIns.PutBack(object, line);
            return Report(place, error.description().narrowText());
        }
        texts[number] = {place.handle, IsXdata(object), line.original, line.traducao};
        const std::string remark =
            writing.onWritten ? writing.onWritten(object, line) : std::string();
        if (!remark.empty()) Report(place, remark);
    }

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
        reports.push_back(
            {place.number,
             {std::string(traducaoTQ::NomeTipo(object.GetTipo())), Utf8(object.GetChave()),
              Utf8(writing.lines[place.line]->original), reason}});
    }

    const Writing& writing;
    const Places places;
    const std::span<ExpectedText> texts;
    std::unordered_set<uint64_t> blockTexts;  // handles
    std::vector<size_t> later;
    Reports reports;
};

Reports WriteInOrder(const Writing& writing, Places places, std::span<ExpectedText> texts,
                     Progress& progress) {
    TextWriter writer(writing, places, texts);
    const auto all = static_cast<double>(places.size());
    writer.WriteAll([&](size_t done) { progress.Reached(static_cast<double>(done) / all); });
    return writer.TakeReports();
}

Reports WriteInHalves(const Writing& writing, Places places, std::span<ExpectedText> texts,
                      Progress& progress) {
    const size_t middle = MiddleOf(places);
    TextWriter front(writing, places.first(middle), texts.first(middle));
    TextWriter back(writing, places.subspan(middle), texts.subspan(middle));
    const auto half = static_cast<double>(middle);
    const auto tell = [&](size_t done) { progress.Reached(static_cast<double>(done) / half); };
    SideBySide([&] { front.WriteBeside(tell); },
               [&] {
                   const OdDbSecondThread second;
                   back.WriteBeside([](size_t) {});
               });
    front.WriteLater();
    back.WriteLater();
    Reports reports = front.TakeReports();
    std::ranges::move(back.TakeReports(), std::back_inserter(reports));
    return reports;
}

}  // namespace

Written WriteTexts(TranslationTable& table, OdDbDatabase& drawing, const OnWritten& onWritten,
                   Progress& progress) {
    DropUntranslatedLines(table);
    std::optional<StandIns> standIns;
    std::vector<Place> places;
    Written written;
    // In the order of their handles they stand side by side in the file. Records are made in the
    // order of the lines, from which they have their handles.
    SideBySide([&] { standIns.emplace(table.Lines()); },
               [&] {
                   places = PlacesOf(table, !onWritten);
                   written.texts.resize(places.size());
               });
    const Writing writing{drawing.store(), onWritten, table.Lines(), *standIns};
    const auto write = onWritten ? WriteInOrder : WriteInHalves;
    Reports reports = write(writing, places, written.texts, progress);
    std::erase_if(written.texts, [](const ExpectedText& text) { return text.handle == 0; });
    std::ranges::sort(reports, {}, &Reports::value_type::first);
    for (auto& [number, report] : reports) written.unwritten.push_back(std::move(report));
    return written;
}

}  // namespace cli
