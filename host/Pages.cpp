// Reading the layers and the title blocks of a drawing.
#include "host/Pages.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DbLayerTable.h"

namespace host {

namespace {

// Tags under which title blocks carry the title of the page, the preferred one first.
constexpr const char16_t* kTitleTags[] = {u"DESCRICAO", u"DESCRIPTION", u"TITULO", u"TITLE"};

// Empty for none.
std::u16string AttributeOf(OdDbBlockReference& reference, const OdString& tag) {
    for (auto it = reference.attributeIterator(); !it->done(); it->step()) {
        OdDbAttributePtr attribute = OdDbAttribute::cast(it->entity());
        if (!attribute.isNull() && attribute->tag().iCompare(tag) == 0) {
            return attribute->textString().text();
        }
    }
    return {};
}

std::u16string TitleOnLayer(OdDbBlockTableRecord& space, const std::u16string& layer) {
    std::vector<OdDbObjectId> ids;
    space.getEntitiesOnLayer(layer, ids);
    std::u16string found;
    size_t worse = std::size(kTitleTags);  // the tags from here on need not be looked for
    for (const OdDbObjectId& id : ids) {
        OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.openObject());
        for (size_t tag = 0; !reference.isNull() && tag < worse; ++tag) {
            std::u16string title = AttributeOf(*reference, kTitleTags[tag]);
            if (title.empty()) continue;
            found = std::move(title);
            worse = tag;
        }
        if (worse == 0) break;
    }
    return found;
}

}  // namespace

bool IsPageLayer(std::u16string_view layer) {
    const OdString name{std::u16string(layer)};
    return layer != u"0" && name.iCompare(u"tq_freeze") != 0;
}

std::vector<Page> WholePages(const std::vector<Page>& pages) {
    std::set<std::u16string> parts;
    for (const Page& page : pages) {
        for (const char16_t* part : {u"$SELO", u"$FORMATO", u"$DE"}) parts.insert(page.name + part);
    }
    std::vector<Page> whole;
    std::copy_if(pages.begin(), pages.end(), std::back_inserter(whole),
                 [&](const Page& page) { return !parts.contains(page.name); });
    return whole;
}

void PageTable::Refresh(OdDbDatabase* drawing) {
    pages.clear();
    if (!drawing) return;
    OdDbLayerTablePtr layers = drawing->getLayerTableId().openObject();
    for (auto it = layers->newIterator(); !it->done(); it->step()) {
        std::u16string name = it->getRecord()->getName().text();
        if (IsPageLayer(name)) pages.push_back({std::move(name), {}});
    }
    RefreshDescriptions(drawing);
}

void PageTable::RefreshDescriptions(OdDbDatabase* drawing) {
    if (!drawing) return;
    OdDbLayerTablePtr layers = drawing->getLayerTableId().openObject();
    OdDbBlockTableRecordPtr space = drawing->getModelSpaceId().openObject();
    for (Page& page : pages) {
        OdDbLayerTableRecordPtr layer = layers->getAt(page.name).openObject();
        page.description = layer.isNull() ? std::u16string() : layer->description().text();
        if (page.description.empty()) page.description = TitleOnLayer(*space, page.name + u"$SELO");
        if (page.description.empty()) page.description = TitleOnLayer(*space, page.name);
    }
}

}  // namespace host
