// Whether a text that was written stands in the drawing: some places pass a text over in silence.
#pragma once

#include "apps/cli/TranslationTable.h"
#include "platform/drawing/dxf/Store.h"

namespace cli {

bool IsXdata(const traducaoTQ::ETraduzivel& object);  // a wire's or a virtual attribute's
bool IsBlockText(const traducaoTQ::ETraduzivel& object);
uint64_t HandleOf(const traducaoTQ::ETraduzivel& object);

// Made before the text is written, asked afterwards.
class ReadBack {
  public:
    // handle: HandleOf the object.
    ReadBack(const dxf::Store& store, const traducaoTQ::ETraduzivel& object, uint64_t handle,
             const structExpressao& line);
    bool Holds() const;

  private:
    bool BlockTextHolds() const;
    bool HasChanged() const;

    const dxf::Store& store;
    const traducaoTQ::ETraduzivel& object;
    const structExpressao& line;
    const uint64_t handle;
    dxf::RecordIndex record = dxf::kNoRecord;  // of a string of extended data
    uint32_t changesBefore = 0;
};

}  // namespace cli
