// The roles of groups, by code, type of record and place.
#include "platform/drawing/GroupRoles.h"

using dxf::Group;
using dxf::RecordType;

namespace {

struct NameRow {
    std::string_view type;
    int code;
    Role role;
};
constexpr NameRow kNames[] = {
    {"ACAD_TABLE", 2, Role::Block},
    {"ACAD_TABLE", 7, Role::TextStyle},
    {"ARC_DIMENSION", 2, Role::Block},
    {"ARC_DIMENSION", 3, Role::DimStyle},
    {"ATTDEF", 7, Role::TextStyle},
    {"ATTRIB", 7, Role::TextStyle},
    {"DIMENSION", 2, Role::Block},
    {"DIMENSION", 3, Role::DimStyle},
    {"INSERT", 2, Role::Block},
    {"LARGE_RADIAL_DIMENSION", 2, Role::Block},
    {"LARGE_RADIAL_DIMENSION", 3, Role::DimStyle},
    {"LAYER", 6, Role::Linetype},
    {"LEADER", 3, Role::DimStyle},
    {"MTEXT", 7, Role::TextStyle},
    {"TEXT", 7, Role::TextStyle},
    {"TOLERANCE", 3, Role::DimStyle},
};

bool isHandleCode(int code) {
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) ||
           (code >= 480 && code <= 481);
}

}  // namespace

bool IsPointer(Role role) {
    return role == Role::Soft || role == Role::Hard || role == Role::Owned ||
           role == Role::Extension || role == Role::Reactor || role == Role::DataHandle;
}

bool IsSymbolName(Role role) { return role >= Role::Application; }

RoleReader::RoleReader(const dxf::Store& store, dxf::RecordIndex index)
    : reader(store.Groups(index)),
      type(store.TypeName(index)),
      recordType(store.At(index).type),
      entity(store.At(index).section == dxf::Section::Blocks ||
             store.At(index).section == dxf::Section::Entities),
      marked(store.FileVersion() >= dxf::Version::R13) {}

bool RoleReader::Next(Group& group, Role& role) {
    if (!reader.Next(group)) return false;
    role = roleOf(group);
    return true;
}

Role RoleReader::roleOf(const Group& group) {
    const int code = group.code;
    if (code == 0) return Role::Type;
    if (code == 101) embedded = true;
    if (code >= 1000) {
        data = true;
        return code == 1001   ? Role::Application
               : code == 1003 ? Role::DataLayer
               : code == 1005 ? Role::DataHandle
                              : Role::Plain;
    }
    if (code == 102) return roleOfControl(group);
    if (code == 100) {
        ++subclasses;
        subclass = group.value;
        return Role::Plain;
    }
    const int handleCode = recordType == RecordType::DimStyle ? 105 : 5;
    if (code == handleCode && subclasses == 0) return Role::Handle;
    if (isHandleCode(code)) return roleOfPointer(code);
    return embedded ? Role::Plain : roleOfName(code);
}

Role RoleReader::roleOfControl(const Group& group) {
    if (!group.value.starts_with('{')) {
        const bool inside = control != Control::None;
        control = Control::None;
        return inside ? Role::ControlEnd : Role::Plain;
    }
    control = group.value.starts_with("{ACAD_REACTORS")      ? Control::Reactors
              : group.value.starts_with("{ACAD_XDICTIONARY") ? Control::Extension
                                                             : Control::Other;
    return Role::ControlBegin;
}

Role RoleReader::roleOfPointer(int code) {
    if (control == Control::Reactors) return Role::Reactor;
    if (control == Control::Extension) return Role::Extension;
    if (code == 330 && control == Control::None && subclasses == 0 && !owned) {
        owned = true;
        return Role::Owner;
    }
    if (code < 330) return Role::Plain;  // taken as it is, whatever it names
    if (code < 340) return Role::Soft;
    if (code < 350 || code >= 390) return Role::Hard;
    return Role::Owned;
}

Role RoleReader::roleOfName(int code) const {
    if (control != Control::None) return Role::Plain;
    const bool common = !marked || subclasses <= 1;
    if (entity && code == 8) return Role::Layer;
    if (entity && code == 6 && common) return Role::Linetype;
    if (recordType == RecordType::Dictionary && code == 3) return Role::EntryName;
    for (const NameRow& row : kNames) {
        if (row.code == code && row.type == type) return row.role;
    }
    return Role::Plain;
}
