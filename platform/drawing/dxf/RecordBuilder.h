// Fills the index entry of one record from its groups.
#pragma once

#include <string_view>

#include "platform/drawing/dxf/Group.h"
#include "platform/drawing/dxf/LayerNames.h"
#include "platform/drawing/dxf/Record.h"

namespace dxf {

// What a group means to the index.
enum class Action : uint8_t {
    None,
    Zero,
    Text,
    Handle,
    Layer,
    PaperSpace,
    Embedded,
    Control,
    DimStyleHandle,
    Owner,
    Xdata,
    Exact  // only the exact parser can tell
};

constexpr Action ActionOfCode(int code) {
    switch (code) {
        case 0:
            return Action::Zero;
        case 1:
        case 3:
            return Action::Text;
        case 5:
            return Action::Handle;
        case 8:
            return Action::Layer;
        case 67:
            return Action::PaperSpace;
        case 101:
            return Action::Embedded;
        case 102:
            return Action::Control;
        case 105:
            return Action::DimStyleHandle;
        case 330:
            return Action::Owner;
        case 1001:
            return Action::Xdata;
        default:
            return Action::None;
    }
}

RecordType TypeOfName(std::string_view name);
Section SectionOfName(std::string_view name);

// One record after the other: Begin, Take for each further group, End.
class RecordBuilder {
  public:
    RecordBuilder(Format format, LayerNames& layers) : format(format), layers(layers) {}

    void Begin(uint64_t offset, std::string_view typeName, Section section);
    // action: any but None, Zero and Exact. offset counts as in Begin.
    void Take(Action action, std::string_view value, uint64_t offset);
    Record End(uint64_t offset);  // throws Error for a record of 4 GB and more

  private:
    // Between 102 { and 102 } applications keep what they like under the same codes.
    static constexpr bool IsOwn(Action action) {
        return action != Action::Control && action != Action::Xdata && action != Action::Embedded;
    }
    bool IsOne(std::string_view value) const;

    Format format;
    LayerNames& layers;
    Record record;
    bool hasLayer = false;   // a record of this section has a layer in its group 8
    bool inControl = false;  // between 102 { and 102 }
};

inline void RecordBuilder::Take(Action action, std::string_view value, uint64_t offset) {
    if (record.xdata != 0 || (record.flags & kHasEmbedded)) {
        // Behind an embedded object only the extended data still belong to the record itself.
        if (action == Action::Xdata && record.xdata == 0)
            record.xdata = uint32_t(offset - record.offset);
        return;
    }
    if (inControl && IsOwn(action)) return;
    switch (action) {
        case Action::Text:
            if (record.text == 0) record.text = uint32_t(offset - record.offset);
            break;
        case Action::Handle:
            if (record.handle == 0 && record.type != RecordType::DimStyle)
                record.handle = ParseHandle(value);
            break;
        case Action::DimStyleHandle:
            if (record.handle == 0 && record.type == RecordType::DimStyle)
                record.handle = ParseHandle(value);
            break;
        case Action::Layer:
            if (hasLayer && record.layer == kNoLayer) record.layer = layers.Intern(value);
            break;
        case Action::PaperSpace:
            if (IsOne(value)) record.flags |= kPaperSpace;
            break;
        case Action::Embedded:
            record.flags |= kHasEmbedded;
            break;
        case Action::Control:
            inControl = !value.empty() && value.front() == '{';
            break;
        case Action::Owner:
            if (record.owner == 0) record.owner = ParseHandle(value);
            break;
        case Action::Xdata:
            record.xdata = uint32_t(offset - record.offset);
            break;
        default:
            break;
    }
}

}  // namespace dxf
