// The writing of translations.
#include "apps/cli/TextWriter.h"

#include <algorithm>
#include <atomic>

#include "apps/cli/Output.h"
#include "apps/cli/Places.h"
#include "apps/cli/ReadBack.h"
#include "apps/cli/SecondThread.h"
#include "apps/cli/StandIns.h"
#include "platform/drawing/OdError.h"
#include "translator/dialogs/AnteciparMemoria.h"
#include "translator/dialogs/EmPartes.h"

namespace cli {

namespace {

using traducaoTQ::AnteciparMemoria;
using traducaoTQ::ETraduzivel;

// What all writers share, and none changes.
struct Writing {
    const dxf::Store& store;  // asked for once: the drawing writes its dictionaries out for it
    const OnWritten& onWritten;
    const Lines& lines;
    const StandIns& standIns;
    std::span<Place> places;
};

class TextWriter {
  public:
    // texts: what was written, by place.
    TextWriter(const Writing& writing, std::span<ExpectedText> texts)
        : writing(writing), texts(texts), file(writing.store.Original().data()) {}

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
        constexpr size_t kOwner = 24, kLine = 16, kText = 8;
        FetchObjectAhead(places, next);
        if (next + kOwner >= places.size()) return;
        AnteciparMemoria(&writing.lines[places[next + kOwner].line]);
        const structExpressao& line = *writing.lines[places[next + kLine].line];
        AnteciparMemoria(&line.original);
        AnteciparMemoria(&line.objetos);
        const TQString& translation = writing.lines[places[next + kText].line]->traducao;
        AnteciparMemoria(translation.data());
        AnteciparMemoria(translation.data() + translation.size());
        const dxf::RecordIndex record = writing.store.FindHandle(places[next + kText].handle);
        if (record >= writing.store.FileCount()) return;
        const dxf::Record& ahead = writing.store.At(record);
        AnteciparMemoria(file + ahead.offset + std::max(ahead.text, ahead.xdata));
    }

    bool CanBeBeside(const Place& place) const {
        constexpr uint32_t kinds =
            traducaoTQ::TipoTexto | traducaoTQ::TipoAtributo | traducaoTQ::TipoFio;
        if ((place.object->GetTipo() & kinds) == 0) return false;
        const dxf::RecordIndex record = writing.store.FindHandle(place.handle);
        return record != dxf::kNoRecord &&
               writing.store.CanChangeBeside(record, writing.lines[place.line]->traducao);
    }

    // The objects go when their texts are written, since the edits need their memory.
    void Write(Place& place) {
        WriteObject(place);
        place.object.reset();
    }

    void WriteObject(const Place& place) {
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
        texts[static_cast<size_t>(&place - writing.places.data())] = {
            place.handle, &line.original, &line.traducao, IsXdata(object)};
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
            {InLines(place),
             {std::string(traducaoTQ::NomeTipo(object.GetTipo())), Utf8(object.GetChave()),
              Utf8(writing.lines[place.line]->original), reason}});
    }

    const Writing& writing;
    const std::span<ExpectedText> texts;
    const char* const file;
    std::vector<Place*> later;
    Reports reports;
};

constexpr size_t kPart = 1024;

// Records are made in the order of the lines, from which they have their handles.
TextWriter::Reports WriteInOrder(const Writing& writing, std::span<ExpectedText> texts,
                                 Progress& progress) {
    const std::span<Place> places = writing.places;
    TextWriter writer(writing, texts);
    for (size_t begin = 0; begin < places.size(); begin += kPart) {
        const size_t end = std::min(begin + kPart, places.size());
        writer.Write(places.subspan(begin, end - begin));
        progress.Reached(static_cast<double>(end) / static_cast<double>(places.size()));
    }
    return writer.TakeReports();
}

TextWriter::Reports WriteSideBySide(const Writing& writing, std::span<ExpectedText> texts,
                                    Progress& progress) {
    const std::span<Place> places = writing.places;
    TextWriter writer(writing, texts), other(writing, texts);
    std::atomic<size_t> done = 0;
    const auto write = [&](TextWriter& by, size_t begin, size_t end) {
        begin = BehindObject(places, begin);
        end = BehindObject(places, end);
        by.WriteBeside(places.subspan(begin, end - begin));
        done += end - begin;
        progress.Reached(static_cast<double>(done) / static_cast<double>(places.size()));
    };
    traducaoTQ::EmPartes(
        places.size(), kPart, SideBySideInTheDrawing,
        [&](size_t begin, size_t end) { write(writer, begin, end); },
        [&](size_t begin, size_t end) { write(other, begin, end); });
    writer.WriteLater();
    other.WriteLater();
    auto reports = writer.TakeReports();
    std::ranges::move(other.TakeReports(), std::back_inserter(reports));
    return reports;
}

}  // namespace

Written WriteTexts(TranslationTable& table, OdDbDatabase& drawing, const OnWritten& onWritten,
                   Progress& progress) {
    std::vector<Place> places = TakePlaces(table);
    const StandIns standIns(table.Lines(), places);
    if (onWritten) std::ranges::sort(places, {}, InLines);
    const Writing writing{drawing.store(), onWritten, table.Lines(), standIns, places};
    Written written;
    written.texts.resize(places.size());
    auto reports = (onWritten ? WriteInOrder : WriteSideBySide)(writing, written.texts, progress);
    if (!reports.empty()) {
        std::erase_if(written.texts, [](const ExpectedText& text) { return !text.before; });
    }
    std::ranges::sort(reports, {}, &TextWriter::Reports::value_type::first);
    for (auto& [place, report] : reports) written.unwritten.push_back(std::move(report));
    std::erase(*table.table.expressoes, nullptr);
    return written;
}

}  // namespace cli
