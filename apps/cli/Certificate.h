// The certificate of a saved drawing: what in the new file differs from the file before.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/dxf/Store.h"

namespace cli {

// A text that the new file is to hold in place of another one. There are hundreds of thousands.
struct ExpectedText {
    uint64_t handle = 0;  // of the object that bears it, also one given in memory only
    // Somebody else's.
    const std::u16string* before = nullptr;  // without outer blanks
    const std::u16string* after = nullptr;
    bool xdata = false;  // a field of an xdata string, else the text of the object itself
};

struct Expectation {
    std::vector<ExpectedText> texts;  // in any order; the certificate sorts them
    // Entries of the root dictionary under which objects may come, change and go.
    std::vector<std::u16string> recordKeys;
    dxf::RecordIndex root = dxf::kNoRecord;  // that dictionary in the file before; found if needed
    bool wires = false;  // a missing xdata application of the product may have been registered
};

struct Certificate {
    size_t strings = 0;      // expected texts that the new file holds changed
    size_t records = 0;      // objects written below the record keys, counters and registrations
    size_t others = 0;       // any other value that differs, and expected texts that are missing
    std::string firstOther;  // where the first of these is, for the message

    bool Holds() const { return others == 0; }
    std::string Line() const;  // "N strings changed, 0 other values changed"
};

// Told how much of the file before is compared, from 0 to 1.
using CertificateProgress = std::function<void(double)>;

// Compares every group of the file that the store was read from with the new file. The store's
// edits are not looked at: only the bytes it was read from, and where its records begin.
Certificate Certify(const dxf::Store& before, std::string_view after, Expectation expected,
                    const CertificateProgress& progress = {});

// The same for a file on disk, which is mapped and dropped piece by piece. Throws cli::Error when
// it cannot be read.
Certificate CertifyFile(const dxf::Store& before, const std::string& afterPath,
                        Expectation expected, const CertificateProgress& progress = {});

}  // namespace cli
