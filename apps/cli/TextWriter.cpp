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

// The objects of the dropped lines go too; the table's list holds the others. Memory mostly goes
// back to the thread that took it, which made about the same of the lines.
void DropUntranslatedLines(TranslationTable& table) {
    auto& lines = *table.table.expressoes;
    table.objects->clear();  // every object is an object of one line
    const auto drop = [&](size_t begin, size_t end) {
        for (auto& line : std::span(lines).subspan(begin, end - begin)) {
            if (IsTranslated(*line)) continue;
            for (const ETraduzivel* object : line->objetos) delete object;
            line.reset();
        }
    };
    constexpr size_t kPart = 4096;
    traducaoTQ::EmPartes(lines.size(), kPart, table.table.fazerAmbos, drop);
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
    explicit TextWriter(const Writing& writing)
        : writing(writing), file(writing.store.Original().data()) {}

    void Write(std::span<Place> places) {
        for (size_t i = 0; i < places.size(); ++i) {
            FetchAhead(places, i);
            Write(places[i]);
        }
    }
    // Beside another writer that has other objects: what only one may write at a time is left for
    // later.
    void WriteBeside(std::span<Place> places) {
        for (size_t i = 0; i < places.size(); ++i) {
            FetchAhead(places, i);
            CanBeBeside(places[i]) ? Write(places[i]) : later.push_back(&places[i]);
        }
    }
    void WriteLater() {
        for (Place* place : std::exchange(later, {})) Write(*place);
    }

    // By the place in the lines.
    using Reports = std::vector<std::pair<std::pair<uint32_t, uint32_t>, Unwritten>>;
    Reports TakeReports() { return std::move(reports); }

  private:
    // Neighbours in the file are far apart in memory: the lines of the places ahead, and then the
    // texts of those lines and of the file, are fetched while others are written.
    void FetchAhead(std::span<const Place> places, size_t next) const {
        constexpr size_t kLine = 16, kText = 8;
        FetchObjectAhead(places, next);
        if (next + kLine >= places.size()) return;
        const structExpressao& line = *writing.lines[places[next + kLine].line];
        __builtin_prefetch(&line.original);
        __builtin_prefetch(&line.objetos);
        const TQString& translation = writing.lines[places[next + kText].line]->traducao;
        __builtin_prefetch(translation.data());
        __builtin_prefetch(translation.data() + translation.size());
        const dxf::RecordIndex record = writing.store.FindHandle(places[next + kText].handle);
        if (record >= writing.store.FileCount()) return;
        const dxf::Record& ahead = writing.store.At(record);
        __builtin_prefetch(file + ahead.offset + std::max(ahead.text, ahead.xdata));
    }

    bool CanBeBeside(const Place& place) const {
        constexpr uint32_t kinds =
            traducaoTQ::TipoTexto | traducaoTQ::TipoAtributo | traducaoTQ::TipoFio;
        if ((place.object->GetTipo() & kinds) == 0) return false;
        const dxf::RecordIndex record = writing.store.FindHandle(place.handle);
        return record != dxf::kNoRecord && writing.store.CanChangeBeside(record);
    }

    void Write(Place& place) {
        ETraduzivel& object = *place.object;
        const structExpressao& line = *writing.lines[place.line];
        try {
            const ReadBack written(writing.store, object, place.handle, line);
            object.SetTexto(line.traducao);
            if (!written.Holds()) return Refuse(place, ReasonNotFound(object));
        } catch (const OdError& error) {
            if (error.code() != eStringTooLong) throw;
            writing.standIns.PutBack(object, line);
            return Refuse(place, error.description().narrowText());
        }
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

    void Refuse(Place& place, const std::string& reason) {
        Report(place, reason);
        place.object = nullptr;
    }

    void Report(const Place& place, const std::string& reason) {
        const ETraduzivel& object = *place.object;
        reports.push_back(
            {InLines(place),
             {std::string(traducaoTQ::NomeTipo(object.GetTipo())), Utf8(object.GetChave()),
              Utf8(writing.lines[place.line]->original), reason}});
    }

    const Writing& writing;
    const char* const file;
    std::vector<Place*> later;
    Reports reports;
};

Written WrittenOf(std::span<const Place> places, const Lines& lines, TextWriter::Reports reports) {
    Written written;
    written.texts.reserve(places.size());
    for (size_t i = 0; i < places.size(); ++i) {
        FetchObjectAhead(places, i);
        const Place& place = places[i];
        const structExpressao& line = *lines[place.line];
        if (!place.object) continue;
        written.texts.push_back(
            {place.handle, &line.original, &line.traducao, IsXdata(*place.object)});
    }
    std::ranges::sort(reports, {}, &TextWriter::Reports::value_type::first);
    for (auto& [place, report] : reports) written.unwritten.push_back(std::move(report));
    return written;
}

// Records are made in the order of the lines, from which they have their handles.
TextWriter::Reports WriteInOrder(const Writing& writing, std::span<Place> places,
                                 Progress& progress) {
    std::ranges::sort(places, {}, InLines);
    Parts parts(places);
    TextWriter writer(writing);
    for (auto part = parts.Take(); !part.empty(); part = parts.Take()) {
        writer.Write(part);
        progress.Reached(parts.Taken());
    }
    return writer.TakeReports();
}

TextWriter::Reports WriteSideBySide(const Writing& writing, std::span<Place> places,
                                    Progress& progress) {
    Parts parts(places);
    TextWriter writer(writing), other(writing);
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
    auto reports = writer.TakeReports();
    std::ranges::move(other.TakeReports(), std::back_inserter(reports));
    return reports;
}

}  // namespace

Written WriteTexts(TranslationTable& table, OdDbDatabase& drawing, const OnWritten& onWritten,
                   Progress& progress) {
    DropUntranslatedLines(table);
    std::vector<Place> places = PlacesOf(table.Lines(), table.objects->size());
    const StandIns standIns(table.Lines(), places);
    const Writing writing{drawing.store(), onWritten, table.Lines(), standIns};
    const auto write = onWritten ? WriteInOrder : WriteSideBySide;
    auto reports = write(writing, places, progress);
    return WrittenOf(places, table.Lines(), std::move(reports));
}

}  // namespace cli
