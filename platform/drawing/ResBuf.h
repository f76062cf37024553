// OdResBuf: one entry of a chain of values, as xdata and xrecords hold them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/drawing/DbHandle.h"
#include "platform/drawing/GePoint3d.h"
#include "platform/drawing/RxObject.h"
#include "platform/drawing/dxf/Group.h"
#include "platform/drawing/dxf/TextCodec.h"

class OdResBuf;
using OdResBufPtr = OdSmartPtr<OdResBuf>;

// An entry read from a drawing keeps the bytes it was read from, and gives them back unchanged when
// the chain is written, unless a set... function was called on it; setString with the text that
// stands there already changes nothing. Comments behind an entry go back with it in any case. A
// chain owns its later entries.
// A point is one entry, under the code of its x. Reading an entry as what it is not gives an empty
// text, 0, or no bytes.
class OdResBuf : public OdRxObject {
  public:
    ODRX_DECLARE_MEMBERS(OdResBuf);
    enum {
        kDxfXdAsciiString = 1000,
        kDxfRegAppName = 1001,
        kDxfXdControlString = 1002,
        kDxfXdLayerName = 1003,
        kDxfXdBinaryChunk = 1004,
        kDxfXdHandle = 1005,
        kDxfXdXCoord = 1010,
        kDxfXdReal = 1040,
        kDxfXdInteger16 = 1070,
        kDxfXdInteger32 = 1071
    };

    static OdResBufPtr newRb(int restype);
    static OdResBufPtr newRb(int restype, const OdString& text);
    static OdResBufPtr newRb(int restype, const char16_t* text);
    static OdResBufPtr newRb(int restype, double number);
    static OdResBufPtr newRb(int restype, int number);
    static OdResBufPtr newRb(int restype, const OdDbHandle& handle);
    static OdResBufPtr newRb(int restype, const OdGePoint3d& point);
    ~OdResBuf() override;

    int restype() const { return type; }
    OdResBufPtr next() const { return following; }
    OdResBufPtr last();
    void setNext(const OdResBuf* next);        // null ends the chain here
    OdResBufPtr insert(const OdResBuf* next);  // behind this entry; returns next

    OdString getString() const;  // text, names, handles as they are written
    double getDouble() const;
    int16_t getInt16() const { return static_cast<int16_t>(getInt64()); }
    int32_t getInt32() const { return static_cast<int32_t>(getInt64()); }
    int64_t getInt64() const;
    bool getBool() const { return getInt64() != 0; }
    OdDbHandle getHandle() const;
    OdGePoint3d getPoint3d() const;
    std::string getBinaryChunk() const;

    void setRestype(int restype);
    void setString(const OdString& text);
    void setDouble(double number);
    void setInt16(int16_t number) { setInt64(number); }
    void setInt32(int32_t number) { setInt64(number); }
    void setInt64(int64_t number);
    void setBool(bool value) { setInt64(value); }
    void setHandle(const OdDbHandle& handle);
    void setPoint3d(const OdGePoint3d& point);
    void setBinaryChunk(std::string bytes);

    void addRef() override { ++references; }
    void release() override;
    long numRefs() const override { return references; }

  private:
    friend class ResBufReader;
    friend class ResBufWriter;

    // The groups that the entries of one chain were read from, copied out of the drawing.
    struct Source {
        std::string bytes;
        dxf::TextCodec codec;
        const void* store;  // where the bytes may go back to as they are
        long references = 0;

        void addRef() { ++references; }
        void release() {
            if (--references == 0) delete this;
        }
    };
    using Value = std::variant<std::monostate, std::u16string, double, int64_t, OdDbHandle,
                               OdGePoint3d, std::string>;

    explicit OdResBuf(int restype) : type(restype) {}
    std::string_view sourceBytes() const;  // the groups as they were read; empty for a made entry
    std::string_view commentsFor(const void* store) const;  // behind the value, from that store
    void leaveSource();
    void setValue(Value newValue);

    long references = 0;
    int type;
    OdResBufPtr following;
    OdSmartPtr<Source> source;  // null for an entry that was made or changed
    OdSmartPtr<Source> former;  // the source of one that was changed
    dxf::Group group;           // its first group in the source
    uint32_t valueEnd = 0;      // where its value ends in the source
    uint32_t end = 0;           // where the comments behind it end
    Value value;
};
