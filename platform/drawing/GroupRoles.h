// GroupRoles: what the groups of a record refer to.
#pragma once

#include "platform/drawing/dxf/Store.h"

enum class Role {
    Plain,
    Type,
    Handle,
    Owner,
    ControlBegin,  // 102 {NAME
    ControlEnd,    // 102 }
    Reactor,       // an object that is told of changes
    Extension,     // the dictionary that belongs to the object
    EntryName,     // of the entry of a dictionary
    Soft,          // a pointer to what may go away
    Hard,          // a pointer to what the object needs
    Owned,         // a pointer to what belongs to the object
    DataHandle,    // a handle in extended data
    Application,
    DataLayer,  // the name of a layer in extended data
    Layer,
    Linetype,
    TextStyle,
    DimStyle,
    Block
};

bool IsPointer(Role role);
bool IsSymbolName(Role role);

// Walks the groups of one record.
class RoleReader {
  public:
    RoleReader(const dxf::Store& store, dxf::RecordIndex index);
    bool Next(dxf::Group& group, Role& role);
    // The subclasses met so far; 0 in drawings that mark none.
    int Subclasses() const { return subclasses; }
    std::string_view Subclass() const { return subclass; }
    bool InEmbedded() const { return embedded; }

  private:
    Role roleOf(const dxf::Group& group);
    Role roleOfControl(const dxf::Group& group);
    Role roleOfName(int code) const;
    Role roleOfPointer(int code);

    enum class Control { None, Reactors, Extension, Other };

    dxf::GroupReader reader;
    std::string_view type;
    dxf::RecordType recordType;
    bool entity, marked;
    Control control = Control::None;
    int subclasses = 0;
    std::string_view subclass;
    bool embedded = false, owned = false, data = false;
};
