// Which entities stand on a page.
#include <algorithm>

#include "apps/painter/ListBuilder.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbLayerTable.h"

namespace painter {

namespace {

constexpr const char16_t* kPageSuffixes[] = {u"", u"$DE", u"$SELO", u"$FORMATO"};

void AddLayer(OdDbDatabase& drawing, OdDbBlockTableRecord& space, const std::u16string& name,
              std::vector<OdDbObjectId>& ids) {
    OdDbLayerTablePtr layers = drawing.getLayerTableId().openObject();
    OdDbLayerTableRecordPtr layer = layers->getAt(OdString(name)).openObject();
    if (!layer.isNull()) space.getEntitiesOnLayer(layer->getName(), ids);
}

}  // namespace

std::vector<dxf::RecordIndex> EntitiesOf(OdDbDatabase& drawing,
                                         const std::optional<std::vector<std::u16string>>& pages) {
    OdDbBlockTableRecordPtr space = drawing.getModelSpaceId().openObject();
    std::vector<OdDbObjectId> ids;
    std::vector<dxf::RecordIndex> records;
    if (pages) {
        for (const std::u16string& page : *pages) {
            for (const char16_t* suffix : kPageSuffixes) {
                AddLayer(drawing, *space, page + suffix, ids);
            }
        }
        for (const OdDbObjectId& id : ids) records.push_back(id.objectIndex());
        std::sort(records.begin(), records.end());
        records.erase(std::unique(records.begin(), records.end()), records.end());
    } else {
        for (auto it = space->newIterator(); !it->done(); it->step()) {
            records.push_back(it->objectId().objectIndex());
        }
    }
    return records;
}

}  // namespace painter
