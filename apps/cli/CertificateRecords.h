// Which objects of a drawing may be written beside the texts: those below given entries of the root
// dictionary, and what the file itself counts or registers for them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/cli/Certificate.h"
#include "apps/cli/CertificateItems.h"
#include "platform/drawing/dxf/Store.h"

namespace cli {

// Gathers the records that a save added, took away or changed and tells, once all are known, which
// of them stand where they may.
class WrittenRecords {
  public:
    WrittenRecords(const dxf::Store& before, const Expectation& expected);

    // Each tells whether the difference may stand as far as can be said now. Added, removed and
    // changed objects are judged once more by Misplaced.
    bool Added(const RawRecord& record);
    bool Removed(const RawRecord& record);
    bool Changed(const RawRecord& before, const RawRecord& after);

    void Add(const WrittenRecords& behind);  // what another one gathered further on in the file

    // After the last difference: handles of objects that stand outside the allowed entries.
    std::vector<uint64_t> Misplaced() const;
    size_t Count() const { return count; }
    bool CountersAlone() const { return counters && count == 0; }

  private:
    bool IsKey(std::string_view rawName) const;
    bool IsRegistration(const RawRecord& record) const;
    bool Note(const RawRecord& record);
    bool RootChanged(const RawRecord& before, const RawRecord& after);
    void ReadEntries(const RawRecord& root);
    bool StandsBelowKey(uint64_t handle) const;
    uint64_t OwnerOf(uint64_t handle) const;

    const dxf::Store& store;
    std::vector<std::u16string> keys;
    bool wires;
    size_t count = 0;
    bool counters = false;  // the header or a table counts other objects than before
    uint64_t root = 0;      // 0: the file before had none
    std::unordered_set<uint64_t> entryPoints;           // the objects under the keys
    std::unordered_map<uint64_t, uint64_t> ownerOfNew;  // owners of the objects noted
};

}  // namespace cli
