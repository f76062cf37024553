// DictionaryCache: the entries of dictionaries, read once and written back late.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/drawing/Groups.h"

// Finds entries by their names without regard to case: places in a list, scattered by the name.
// Large dictionaries are asked for every object of a drawing, and made of a node for each name they
// would take longer and three times the memory.
class NameIndex {
  public:
    // The first place whose entry bears the name, as `bears(place)` tells; nothing for none.
    template <class Bears>
    std::optional<uint32_t> find(std::u16string_view name, const Bears& bears) const {
        for (size_t slot = home(name); !slots.empty() && slots[slot] != 0; slot = next(slot)) {
            if (bears(slots[slot] - 1)) return slots[slot] - 1;
        }
        return std::nullopt;
    }
    void add(std::u16string_view name, uint32_t place);  // behind those of its name
    bool full() const { return (used + 1) * 2 > slots.size(); }
    void clear(size_t room);  // for that many places

  private:
    size_t home(std::u16string_view name) const;
    size_t next(size_t slot) const { return (slot + 1) & (slots.size() - 1); }

    std::vector<uint32_t> slots;  // places from 1 on; 0 is free
    size_t used = 0;
};

// The entries of one dictionary record. Changes stand here until they are flushed into the record.
class DictionaryEntries {
  public:
    struct Entry {
        std::u16string name;
        uint64_t handle;
        int place;  // which pair of the record it is; -1 for one that the record does not show yet
        bool changed = false;
        bool removed = false;
        bool hidden = false;  // an entry ahead of it has the same name
    };

    DictionaryEntries(dxf::Store& store, dxf::RecordIndex record);

    const Entry* find(std::u16string_view name) const;  // without regard to case; null for none
    const Entry* findHandle(uint64_t handle) const;     // looks at every entry
    // Those that find can give, in the order of their coming or by key without regard to case.
    std::vector<const Entry*> standing(bool sorted) const;
    size_t pairs() const { return entries.size(); }
    size_t count() const { return live; }
    bool hardOwner() const { return hard; }
    bool isDirty() const { return dirty; }

    void set(std::u16string_view name, uint64_t handle);  // a known name keeps its spelling
    void remove(std::u16string_view name);
    void flush();  // rewrites the entries in the record that have changed, and no others

  private:
    void read();
    std::string pair(const Entry& entry) const;
    void settle();
    std::optional<uint32_t> placeOf(std::u16string_view name) const;
    void append(Entry entry);

    dxf::Store& store;
    dxf::RecordIndex record;
    std::vector<Entry> entries;
    NameIndex byName;         // of the first entry of each name, and of removed ones
    size_t live = 0;          // entries that find can give
    bool duplicates = false;  // the file has two pairs of one name
    bool hard = false;
    bool dirty = false;
};

// The groups of a new dictionary behind its owner.
void WriteNewDictionary(const dxf::Store& store, dxf::GroupWriter& writer);

// A dictionary as its record stands, also for several threads that read at the same time. Of two
// entries with one name the first counts.
void ForEachEntry(const dxf::Store& store, dxf::RecordIndex dictionary,
                  const std::function<void(std::u16string name, uint64_t handle)>& visit);
uint64_t FindEntry(const dxf::Store& store, dxf::RecordIndex dictionary,
                   std::u16string_view name);  // the handle, 0 for none: looks at every entry

class DictionaryCache {
  public:
    explicit DictionaryCache(dxf::Store& store) : store(store) {}

    DictionaryEntries& entries(dxf::RecordIndex record);
    // The handle under a key, 0 for none. A small dictionary that nobody has opened is looked
    // through as it stands, and not kept.
    uint64_t find(dxf::RecordIndex record, std::u16string_view name);
    void flush(dxf::RecordIndex record);  // before anybody reads the record's bytes
    void flushAll();
    void forget(dxf::RecordIndex record);  // its bytes are others now
    // A view on the dictionary has ended: small ones are written and dropped, big ones are kept.
    void leave(dxf::RecordIndex record);

  private:
    static constexpr size_t kSmall = 64;
    static constexpr uint32_t kSmallRecord = 1024;  // bytes

    dxf::Store& store;
    std::unordered_map<dxf::RecordIndex, std::unique_ptr<DictionaryEntries>> cache;
};
