// The values of chain entries, read lazily from the groups they came from.
#include "platform/drawing/ResBuf.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdResBuf, OdRxObject)

namespace {

std::string bytesOfHex(std::string_view hex) {
    std::string bytes;
    for (size_t i = 0; i + 1 < hex.size(); i += 2) {
        const std::string pair(hex.substr(i, 2));
        bytes += static_cast<char>(std::stoi("0" + pair, nullptr, 16));
    }
    return bytes;
}

}  // namespace

OdResBufPtr OdResBuf::newRb(int restype) { return OdResBufPtr(new OdResBuf(restype)); }

OdResBufPtr OdResBuf::newRb(int restype, const OdString& text) {
    OdResBufPtr entry = newRb(restype);
    entry->setString(text);
    return entry;
}

OdResBufPtr OdResBuf::newRb(int restype, const char16_t* text) {
    return newRb(restype, OdString(text));
}

OdResBufPtr OdResBuf::newRb(int restype, double number) {
    OdResBufPtr entry = newRb(restype);
    entry->setDouble(number);
    return entry;
}

OdResBufPtr OdResBuf::newRb(int restype, int number) {
    OdResBufPtr entry = newRb(restype);
    entry->setInt32(number);
    return entry;
}

OdResBufPtr OdResBuf::newRb(int restype, const OdDbHandle& handle) {
    OdResBufPtr entry = newRb(restype);
    entry->setHandle(handle);
    return entry;
}

OdResBufPtr OdResBuf::newRb(int restype, const OdGePoint3d& point) {
    OdResBufPtr entry = newRb(restype);
    entry->setPoint3d(point);
    return entry;
}

OdResBuf::~OdResBuf() = default;

// A chain ends entry by entry, not one inside the other: a long one would exhaust the stack.
void OdResBuf::release() {
    OdResBuf* entry = this;
    while (entry && --entry->references == 0) {
        OdResBuf* behind = entry->following.detach();
        delete entry;
        entry = behind;
    }
}

OdResBufPtr OdResBuf::last() {
    OdResBuf* entry = this;
    while (entry->following) entry = entry->following;
    return OdResBufPtr(entry);
}

void OdResBuf::setNext(const OdResBuf* next) { following = const_cast<OdResBuf*>(next); }

OdResBufPtr OdResBuf::insert(const OdResBuf* next) {
    OdResBufPtr entry(const_cast<OdResBuf*>(next));
    if (!entry.isNull()) {
        entry->last()->following = following;
        following = entry;
    }
    return entry;
}

std::string_view OdResBuf::sourceBytes() const {
    if (!source) return {};
    return std::string_view(source->bytes).substr(group.begin, end - group.begin);
}

OdString OdResBuf::getString() const {
    if (source) {
        return group.IsString() ? OdString(source->codec.Decode(group.value)) : OdString();
    }
    if (const auto* text = std::get_if<std::u16string>(&value)) return *text;
    if (const auto* handle = std::get_if<OdDbHandle>(&value)) return handle->ascii();
    return OdString();
}

double OdResBuf::getDouble() const {
    if (source) return group.AsDouble();
    if (const auto* number = std::get_if<double>(&value)) return *number;
    return static_cast<double>(getInt64());
}

int64_t OdResBuf::getInt64() const {
    if (source) return group.AsInt();
    const auto* number = std::get_if<int64_t>(&value);
    return number ? *number : 0;
}

OdDbHandle OdResBuf::getHandle() const {
    if (source) return group.IsString() ? OdDbHandle(group.AsHandle()) : OdDbHandle();
    if (const auto* handle = std::get_if<OdDbHandle>(&value)) return *handle;
    const auto* text = std::get_if<std::u16string>(&value);
    return text ? OdDbHandle(text->c_str()) : OdDbHandle();
}

OdGePoint3d OdResBuf::getPoint3d() const {
    const auto* point = std::get_if<OdGePoint3d>(&value);
    return point ? *point : OdGePoint3d();
}

std::string OdResBuf::getBinaryChunk() const {
    if (source) {
        if (dxf::KindOfCode(type) != dxf::ValueKind::Binary) return {};
        const bool ascii = group.format == dxf::Format::Ascii;
        return ascii ? bytesOfHex(group.value) : std::string(group.value);
    }
    const auto* bytes = std::get_if<std::string>(&value);
    return bytes ? *bytes : std::string();
}

std::string_view OdResBuf::commentsFor(const void* store) const {
    if (!former || former->store != store) return {};
    return std::string_view(former->bytes).substr(valueEnd, end - valueEnd);
}

void OdResBuf::leaveSource() {
    if (source) former = std::move(source);
}

void OdResBuf::setRestype(int restype) {
    if (restype == type) return;
    if (source && group.IsString()) setValue(getString().text());
    leaveSource();
    type = restype;
}

void OdResBuf::setValue(Value newValue) {
    leaveSource();
    value = std::move(newValue);
}

void OdResBuf::setString(const OdString& text) {
    const bool same = source && group.IsString() && source->codec.Reads(group.value, text.text());
    if (!same) setValue(text.text());
}

void OdResBuf::setDouble(double number) { setValue(number); }
void OdResBuf::setInt64(int64_t number) { setValue(number); }
void OdResBuf::setHandle(const OdDbHandle& handle) { setValue(handle); }
void OdResBuf::setPoint3d(const OdGePoint3d& point) { setValue(point); }
void OdResBuf::setBinaryChunk(std::string bytes) { setValue(std::move(bytes)); }
