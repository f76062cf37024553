// What became of cloned objects.
#include "platform/drawing/DbIdMapping.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbIdMapping, OdRxObject)

OdDbObjectId OdDbIdMapping::valueOf(const OdDbObjectId& key) const {
    const auto found = byKey.find(key);
    return found == byKey.end() ? OdDbObjectId() : all[found->second].value;
}

void OdDbIdMapping::assign(const OdDbIdPair& pair) {
    const auto [place, added] = byKey.try_emplace(pair.key, all.size());
    if (added) {
        all.push_back(pair);
    } else {
        all[place->second].value = pair.value;
    }
}
