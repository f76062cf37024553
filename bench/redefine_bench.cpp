// Measures the replacement of a block's definition with 2,000 and with 20,000 references to it, two
// attributes each: the time must grow as their number. Times of the processor, medians of five
// runs in turns; the exit status is 1 when the bound is missed.
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include "bench/DictionaryTimes.h"
#include "host/Host.h"
#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbBlockReference.h"
#include "tests/translator/DxfDeTeste.h"
#include "translator/cad/CICad.h"

namespace {

using namespace dxfDeTeste;

constexpr int kFew = 2000, kMany = 20000, kRuns = 5;

std::string Hex(int number) { return QString::number(number, 16).toUpper().toStdString(); }

std::string Definition(const std::string& text) {
    return DefAtributo("51", "TAG", "prompt", text) + DefAtributo("52", "OTHER", "prompt", text) +
           Linha("53", "0");
}

std::string Drawing(int references) {
    Desenho drawing;
    drawing.blocos = {{"B", "B0", Definition("old")}};
    for (int i = 0; i < references; ++i) {
        const int handle = 0x1000 + 8 * i;
        drawing.entidades += Insercao(
            Hex(handle), "P", "B",
            {Atributo(Hex(handle + 1), "TAG", "value"), Atributo(Hex(handle + 2), "GONE", "x")});
    }
    return drawing.Dxf();
}

OdDbDatabasePtr Source() {
    Desenho source;
    source.camadas = {"0"};
    source.entidades = Definition("new");
    return OdDbDatabase::fromStore(dxf::Store::Parse(source.Dxf()));
}

void CheckLast(OdDbDatabase& drawing, int references) {
    const OdDbHandle handle(0x1000 + 8 * (references - 1));
    const OdDbBlockReferencePtr reference = drawing.getOdDbObjectId(handle).openObject();
    std::u16string texts;
    for (auto walk = reference->attributeIterator(); !walk->done(); walk->step()) {
        texts += OdDbAttributePtr(walk->entity())->textString().text() + u";";
    }
    if (texts != u"value;new;") throw std::runtime_error("the last reference was not made anew");
}

class Place {
  public:
    Place() : host(Options()) {}

    double Replace(int references) {
        const QString file = folder.filePath("drawing.dxf");
        QFile out(file);
        const std::string bytes = Drawing(references);
        if (!out.open(QIODevice::WriteOnly) || out.write(bytes.data(), qint64(bytes.size())) < 0) {
            throw std::runtime_error("the drawing cannot be written");
        }
        out.close();
        host::Document& document = host.Documents().Open(file.toStdString());
        const OdDbDatabasePtr source = Source();
        const double begin = ProcessorSeconds(RUSAGE_SELF);
        tq::CICad().RedefinirBloco(source, u"B");
        const double time = ProcessorSeconds(RUSAGE_SELF) - begin;
        CheckLast(document.Drawing(), references);
        host.Documents().Close(document);
        return time;
    }

  private:
    host::HostOptions Options() const {
        host::HostOptions options;
        options.settingsFile = folder.filePath("settings.ini");
        options.logToStderr = true;
        return options;
    }

    QTemporaryDir folder;
    host::Host host;
};

bool Measure() {
    Place place;
    std::vector<double> few, many;
    for (int run = 0; run < kRuns; ++run) {
        few.push_back(place.Replace(kFew));
        many.push_back(place.Replace(kMany));
    }
    std::printf("a block is replaced under %d references in %.1f ms, under %d in %.1f ms\n", kFew,
                MedianSeconds(few) * 1e3, kMany, MedianSeconds(many) * 1e3);
    return AtMost("replacing a block, 20,000 references over 2,000",
                  MedianSeconds(many) / MedianSeconds(few), 12);
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    try {
        return Measure() ? 0 : 1;
    } catch (const OdError& error) {
        std::fprintf(stderr, "redefine_bench: %s\n", error.description().narrowText().c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "redefine_bench: %s\n", error.what());
    }
    return 1;
}
