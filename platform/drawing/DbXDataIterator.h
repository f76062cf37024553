// OdDbXDataIterator: a walk over the extended data of an object where they stand.
#pragma once

#include "platform/drawing/DbObject.h"
#include "platform/drawing/dxf/Store.h"

// The entries of one application as a chain would hold them, its own entry first, each read only
// when it is asked for: a chain costs several times as much. Valid while the object is open and
// nobody else changes it.
class OdDbXDataIterator {
  public:
    // Done at once when the object has no such data.
    OdDbXDataIterator(const OdDbObject& object, const OdString& application);

    bool done() const { return !store; }
    void next();
    int restype() const { return group.code; }
    OdString getString() const;  // of an entry without text an empty one
    // Gives an entry of a string type another text, and ends the walk. Raises what setXData raises.
    void setString(const OdString& text);

  private:
    const OdDbObject& object;
    dxf::Store* store = nullptr;  // null once done
    dxf::RecordIndex index = dxf::kNoRecord;
    uint32_t end = 0;
    dxf::GroupReader reader;
    dxf::Group group;
};
