// The writing of translations.
#include "apps/cli/TextWriter.h"

#include <algorithm>
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

class TextWriter {
  public:
    TextWriter(OdDbDatabase& drawing, const OnWritten& onWritten,
               const traducaoTQ::ITabelaExpressoes::ListaExpressoes& lines, size_t count)
        : store(drawing.store()), onWritten(onWritten), standIns(lines) {
        result.texts.reserve(count);
    }

    void Write(ETraduzivel& object, const structExpressao& line) {
        // References of one block show the same text.
        const TQString& key = object.GetChave();
        if (IsBlockText(object) && !blockTexts.insert(key).second) return;
        try {
            const ReadBack place(store, object, line);
            object.SetTexto(line.traducao);
            if (!place.Holds()) return Report(object, line, ReasonNotFound(object));
        } catch (const OdError& error) {
            if (error.code() != eStringTooLong) throw;
            standIns.PutBack(object, line);
            return Report(object, line, error.description().narrowText());
        }
        result.texts.push_back({HandleOf(object), IsXdata(object), line.original, line.traducao});
        const std::string remark = onWritten ? onWritten(object, line) : std::string();
        if (!remark.empty()) Report(object, line, remark);
    }

    Written Take() { return std::move(result); }

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

    void Report(const ETraduzivel& object, const structExpressao& line, const std::string& reason) {
        result.unwritten.push_back({std::string(traducaoTQ::NomeTipo(object.GetTipo())),
                                    Utf8(object.GetChave()), Utf8(line.original), reason});
    }

    const dxf::Store& store;  // asked for once: the drawing writes its dictionaries out for it
    const OnWritten& onWritten;
    const StandIns standIns;
    std::unordered_set<std::u16string> blockTexts;  // keys
    Written result;
};

// An object and the line that it is an object of.
struct Place {
    uint64_t handle;
    ETraduzivel* object;
    const structExpressao* line;
};

std::vector<Place> PlacesOf(const TranslationTable& table) {
    std::vector<Place> places;
    places.reserve(table.objects->size());
    for (const auto& line : table.Lines()) {
        for (ETraduzivel* object : line->objetos) {
            places.push_back({HandleOf(*object), object, line.get()});
        }
    }
    return places;
}

}  // namespace

Written WriteTexts(TranslationTable& table, OdDbDatabase& drawing, const OnWritten& onWritten,
                   Progress& progress) {
    DropUntranslatedLines(table);
    std::vector<Place> places = PlacesOf(table);
    // In the order of their coming they stand side by side in the file. Records are made in the
    // order of the lines, from which they have their handles.
    if (!onWritten) std::ranges::stable_sort(places, {}, &Place::handle);
    TextWriter writer(drawing, onWritten, table.Lines(), places.size());
    for (size_t done = 0; done < places.size(); ++done) {
        writer.Write(*places[done].object, *places[done].line);
        if (done % 1024 == 0) {
            progress.Reached(static_cast<double>(done) / static_cast<double>(places.size()));
        }
    }
    return writer.Take();
}

}  // namespace cli
