// kelvara pages: the pages of a project with what stands on them.
#include <algorithm>

#include "apps/cli/Output.h"
#include "apps/cli/Progress.h"
#include "apps/cli/Scan.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "translator/engine/ITradCad.h"

namespace cli {

namespace {

size_t EntitiesOn(OdDbDatabase& drawing, const std::u16string& page) {
    OdDbBlockTableRecordPtr space = drawing.getModelSpaceId().openObject();
    std::vector<OdDbObjectId> ids;
    space->getEntitiesOnLayer(page, ids);
    return ids.size();
}

// Virtual attributes stand on no page.
size_t TextsOn(const std::u16string& page) {
    traducaoTQ::ITradCad::Pedido request;
    request.paginas.push_back(page);
    const auto objects = traducaoTQ::ITradCad().BuscarTraduziveisMistos(request);
    return static_cast<size_t>(std::count_if(
        objects->begin(), objects->end(),
        [](const auto* object) { return object->GetTipo() != traducaoTQ::TipoAtributoVirtual; }));
}

void Run(const GeneralOptions& general, const std::string& path) {
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    OdDbDatabase& drawing = session.OpenDrawing(path);
    progress.Phase("counting");
    Table table({{"name"}, {"description"}, {"entities", true}, {"texts", true}});
    for (const host::Page& page : session.Document().Pages().Pages()) {
        table.Add({Utf8(page.name), Utf8(page.description),
                   std::to_string(EntitiesOn(drawing, page.name)),
                   std::to_string(TextsOn(page.name))});
    }
    progress.End();
    Output output(general);
    table.Print(output);
    output.Finish();
}

}  // namespace

void RegisterPages(CommandLine& line) {
    auto drawing = std::make_shared<std::string>();
    CLI::App* command =
        line.Add(line.app, "pages", "One page a line: name, description, entities, texts",
                 [&line, drawing] { Run(line.general, *drawing); });
    AddDrawing(*command, *drawing);
}

}  // namespace cli
