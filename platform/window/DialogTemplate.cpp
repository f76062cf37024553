// The templates known at present.
#include "platform/window/DialogTemplate.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<const DialogTemplate*>& Known() {
    static std::vector<const DialogTemplate*> templates;
    return templates;
}

}  // namespace

DialogResource::DialogResource(const DialogTemplate& table) : table(table) {
    Known().push_back(&table);
}

DialogResource::~DialogResource() { std::erase(Known(), &table); }

const DialogTemplate* FindDialogTemplate(UINT id) {
    const auto& known = Known();
    const auto found =
        std::find_if(known.rbegin(), known.rend(), [id](auto* one) { return one->id == id; });
    return found == known.rend() ? nullptr : *found;
}
