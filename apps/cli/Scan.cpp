// Choice of the pages, and the two scans.
#include "apps/cli/Scan.h"

#include <algorithm>
#include <span>

#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/SecondThread.h"
#include "platform/drawing/OdError.h"
#include "platform/text/Conversion.h"
#include "translator/cad/CICad.h"
#include "translator/dialogs/EmPartes.h"
#include "translator/engine/ITradCad.h"

namespace cli {

namespace {

std::vector<std::u16string> ChosenPages(const std::vector<std::u16string>& layers,
                                        const std::string& list) {
    std::vector<std::u16string> pages;
    for (const std::string& name : SplitList(list)) {
        const std::u16string wide = Utf16(name);
        if (std::find(layers.begin(), layers.end(), wide) == layers.end()) {
            throw Error("the drawing has no page \"" + name +
                        "\"; names are those of its layers, see 'kelvara pages'");
        }
        if (std::find(pages.begin(), pages.end(), wide) == pages.end()) pages.push_back(wide);
    }
    return pages;
}

// The scan of mixed pages, by two threads.
traducaoTQ::ListaTraduziveis RunParts(const traducaoTQ::ITradCad::Pedido& request) {
    using traducaoTQ::ITradCad;
    constexpr size_t kPart = 4096;
    ITradCad scan;
    const std::vector<OdDbObjectId> ids = scan.BuscarObjetosMistos(request);
    const std::span<const OdDbObjectId> all(ids);
    std::vector<ITradCad::Colheita> parts(all.size() / kPart + 1);
    const auto collect = [&](size_t begin, size_t end) {
        parts[begin / kPart] = ITradCad::ColherMistos(request, all.subspan(begin, end - begin));
    };
    traducaoTQ::EmPartes(all.size(), kPart, SideBySideInTheDrawing, collect);
    return scan.JuntarColheitas(std::move(parts));
}

}  // namespace

std::vector<std::u16string> PagesOf(OdDbDatabase& drawing, bool withLayer0) {
    std::vector<std::u16string> pages;
    for (const TQString& layer : tq::CICad().GetLayers(&drawing)) {
        const bool passedOver = (!withLayer0 && text::CompareNoCase(layer, u"0") == 0) ||
                                text::CompareNoCase(layer, u"tq_freeze") == 0;
        if (!passedOver) pages.push_back(layer);
    }
    return pages;
}

Scan::Scan(Session& session, const ScanOptions& options)
    : session(session), options(options), pages(PagesOf(session.Drawing(), options.layer0)) {
    if (SplitList(options.pages).empty()) return;
    pages = ChosenPages(pages, options.pages);
    withPageLayers = true;
    const bool has0 = std::find(pages.begin(), pages.end(), u"0") != pages.end();
    if (options.layer0 && !has0) pages.push_back(u"0");
}

traducaoTQ::ListaTraduziveis Scan::Run() const {
    if (options.strict) return RunStrict();
    traducaoTQ::ITradCad::Pedido request;
    for (const std::u16string& page : pages) request.paginas.push_back(page);
    request.atributos = !options.noAttributes;
    request.textos = !options.noTexts;
    request.camadasDePagina = withPageLayers;
    request.incluirCamada0 = options.layer0;
    return RunParts(request);
}

// The scan of the commands, which asks for the pages through LISP: the session answers.
traducaoTQ::ListaTraduziveis Scan::RunStrict() const {
    session.AnswerPages(pages);
    const bool attributes = !options.noAttributes, texts = !options.noTexts;
    try {
        return traducaoTQ::ITradCad().BuscarTraduziveis(attributes, texts, attributes, texts, false,
                                                        false, withPageLayers);
    } catch (const OdError& error) {
        throw Error(error.description().narrowText() +
                    "; --strict takes pages of block references alone: leave it out, or add "
                    "--no-attributes");
    }
}

}  // namespace cli
