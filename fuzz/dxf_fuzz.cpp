// Feeds arbitrary bytes to the drawing store: what it accepts must come out again byte for byte,
// before edits and after they were undone.
#include <cstdint>
#include <cstdlib>

#include "platform/drawing/dxf/Store.h"

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

void DecodeAll(const dxf::Store& store) {
    dxf::GroupReader groups = store.OriginalGroups();
    dxf::Group group;
    while (groups.Next(group)) {
        if (!group.IsString()) {
            group.AsInt();
            group.AsDouble();
            continue;
        }
        const std::u16string text = store.Codec().Decode(group.value);
        Require(store.Codec().Decode(store.Codec().Encode(text)) == text);
    }
}

void EditAndUndo(dxf::Store& store, const std::string& bytes) {
    store.BeginRecording();
    for (dxf::RecordIndex i = 0; i < store.FileCount(); ++i) {
        if (i % 3 == 0) store.SetErased(i, true);
        if (i % 3 == 1) store.Replace(i, store.NewWriter(i).String(0, "TEXT").Int(67, 1).Take());
        if (i % 3 == 2) {
            const uint64_t handle = store.NewHandle();
            store.InsertAfter(i, store.NewWriter(i).String(0, "X").Handle(5, handle).Take());
        }
    }
    store.ToBytes();
    const auto redo = store.Restore(store.EndRecording());
    Require(store.ToBytes() == bytes && !store.Modified());
    store.Restore(redo);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    try {
        const auto store = dxf::Store::Parse(bytes);
        Require(store->ToBytes() == bytes);
        DecodeAll(*store);
        for (dxf::RecordIndex i = 0; i < store->Count(); ++i) store->Groups(i, store->At(i).text);
        if (!store->ReadOnly()) EditAndUndo(*store, bytes);
    } catch (const dxf::Error&) {
    }
    return 0;
}
