// Chains of entries read from records and written as groups.
#pragma once

#include <string>
#include <string_view>

#include "platform/drawing/ResBuf.h"
#include "platform/drawing/dxf/Store.h"

// Whether a group of that code holds y or z of the point whose x is of the former code.
bool IsCoordinateOf(int former, int code);

class ResBufReader {
  public:
    // The groups from `from` up to `to` of a record; null when there are none.
    static OdResBufPtr Read(const dxf::Store& store, dxf::RecordIndex index, uint32_t from,
                            uint32_t to);
};

class ResBufWriter {
  public:
    ResBufWriter(const dxf::Store& store, dxf::RecordIndex neighbour, uint64_t handle,
                 size_t stringLimit, const char16_t* what);
    // Raises OdError: eInvalidResBuf for a value that its code does not take, eStringTooLong.
    void Write(const OdResBuf& entry);
    std::string Take() { return writer.Take(); }

  private:
    void WriteValue(const OdResBuf& entry);
    void WriteString(const OdResBuf& entry);
    void WritePoint(const OdResBuf& entry);
    [[noreturn]] void Refuse(const OdResBuf& entry) const;

    const dxf::Store& store;
    dxf::GroupWriter writer;
    uint64_t handle;
    size_t stringLimit;
    const char16_t* what;  // for messages: "an extended data string"
};
