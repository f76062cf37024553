// Drawings for the tests: files, and small ones written in the test.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/drawing/dxf/Store.h"

namespace samples {

inline std::string ReadBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::vector<std::filesystem::path> DrawingsIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".dxf" || entry.path().extension() == ".dxb")
            found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

inline std::filesystem::path FixtureFolder() {
    return std::filesystem::path(KV_SOURCE_DIR) / "tests" / "fixtures";
}

using Groups = std::initializer_list<std::pair<int, const char*>>;

inline std::string Lines(Groups groups, const std::string& lineEnd = "\n") {
    std::string text;
    for (const auto& [code, value] : groups)
        text += std::to_string(code) + lineEnd + value + lineEnd;
    return text;
}

// An ENTITIES section around the groups, and EOF.
inline std::string Drawing(Groups groups, const std::string& version = "AC1015") {
    return Lines({{0, "SECTION"}, {2, "HEADER"}, {9, "$ACADVER"}, {1, version.c_str()}}) +
           Lines({{0, "ENDSEC"}, {0, "SECTION"}, {2, "ENTITIES"}}) + Lines(groups) +
           Lines({{0, "ENDSEC"}, {0, "EOF"}});
}

// The first record of a type; fails loudly when there is none.
inline dxf::RecordIndex Find(const dxf::Store& store, std::string_view typeName) {
    for (auto i = store.First(); i != dxf::kNoRecord; i = store.Next(i))
        if (store.TypeName(i) == typeName) return i;
    throw std::runtime_error("no record " + std::string(typeName));
}

}  // namespace samples
