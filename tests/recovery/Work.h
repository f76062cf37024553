// Work on a drawing that can be told apart: every text of the model space says the same.
#pragma once

#include <set>
#include <string>

#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DbObjectIterator.h"
#include "platform/drawing/DbText.h"

inline constexpr const char* kExample = KV_SOURCE_DIR "/examples/control_panel.dxf";

// Calls work with each text of the model space.
template <class Work>
void EachText(OdDbDatabase& drawing, OdDb::OpenMode mode, const Work& work) {
    OdDbBlockTableRecordPtr space = drawing.getModelSpaceId().openObject();
    for (auto walk = space->newIterator(); !walk->done(); walk->step()) {
        OdDbTextPtr text = OdDbText::cast(walk->entity(mode));
        if (!text.isNull()) work(*text);
    }
}

inline void Say(OdDbDatabase& drawing, const std::string& words) {
    drawing.startUndoRecord(u"say");
    EachText(drawing, OdDb::kForWrite,
             [&](OdDbText& text) { text.setTextString(OdString(words.c_str())); });
    drawing.endUndoRecord();
}

// What the texts say, those that say the same once.
inline std::set<std::string> Said(OdDbDatabase& drawing) {
    std::set<std::string> said;
    EachText(drawing, OdDb::kForRead,
             [&](OdDbText& text) { said.insert(text.textString().narrowText()); });
    return said;
}
