// Reading the tables of a drawing.
#include "apps/painter/Tables.h"

#include "apps/painter/Colours.h"
#include "platform/text/Conversion.h"

namespace painter {

namespace {

constexpr uint32_t kUnknown = ~uint32_t{0};

// A pattern that begins with a gap is turned to begin with its first dash; points become short
// dashes. Signs tell dashes from gaps.
DashPattern Normalised(const std::vector<double>& lengths, double total) {
    DashPattern pattern;
    size_t first = 0;
    while (first < lengths.size() && lengths[first] < 0) ++first;
    if (first == lengths.size()) return {};
    const double dot = std::max(total, 1e-9) * 0.02;
    for (size_t i = 0; i < lengths.size(); ++i) {
        const double length = lengths[(first + i) % lengths.size()];
        const bool gap = length < 0;
        const bool wantsGap = pattern.size() % 2 == 1;
        const double drawn = gap ? -length : std::max(length, dot);
        if (gap == wantsGap) {
            pattern.push_back(drawn);
        } else {
            pattern.back() += drawn;  // two of a kind in a row
        }
    }
    if (pattern.size() % 2 == 1) pattern.push_back(0);
    return pattern;
}

}  // namespace

Tables::Tables(const dxf::Store& store, Fonts& fonts) : store(store), fonts(fonts) {
    AddLayer(u"0");
    std::vector<dxf::RecordIndex> layerRecords;  // read last, since they name line types
    for (auto i = store.First(); i != dxf::kNoRecord; i = store.Next(i)) {
        const dxf::Record& record = store.At(i);
        if (record.section == dxf::Section::Header) ReadHeader(i);
        if (record.section > dxf::Section::Tables) break;
        if (record.section != dxf::Section::Tables || record.flags & dxf::kErased) continue;
        if (record.type == dxf::RecordType::Layer) {
            layerRecords.push_back(i);
        } else {
            ReadRecord(i);
        }
    }
    Tags tags;
    for (const auto record : layerRecords) {
        tags.Read(store, record);
        ReadLayer(tags);
    }
    layerOfSpelling.assign(store.LayerCount(), kUnknown);
}

void Tables::ReadHeader(dxf::RecordIndex section) {
    auto reader = store.Groups(section);
    dxf::Group group;
    while (reader.Next(group)) {
        if (group.code != 9 || group.value != "$LTSCALE") continue;
        if (reader.Next(group) && group.code == 40) lineTypeScale = RealOf(group);
        return;
    }
}

void Tables::ReadRecord(dxf::RecordIndex record) {
    const std::string_view type = store.TypeName(record);
    if (type != "LTYPE" && type != "STYLE") return;
    Tags tags;
    tags.Read(store, record);
    if (type == "LTYPE") {
        ReadLineType(tags);
    } else {
        ReadStyle(tags);
    }
}

void Tables::ReadLineType(const Tags& tags) {
    std::vector<double> lengths;
    double total = 0;
    for (const dxf::Group& group : tags.All()) {
        if (group.code != 49) continue;
        lengths.push_back(RealOf(group));
        total += std::abs(lengths.back());
    }
    if (patterns.size() >= kLineTypeByBlock) return;
    DashPattern pattern = total > 0 ? Normalised(lengths, total) : DashPattern();
    LineType number = kContinuous;
    if (!pattern.empty()) {
        number = static_cast<LineType>(patterns.size());
        patterns.push_back(std::move(pattern));
    }
    lineTypes.try_emplace(Key(tags.Raw(2)), number);
}

void Tables::ReadStyle(const Tags& tags) {
    TextStyle style;
    style.font = fonts.OfFile(store.Codec().Decode(tags.Raw(3)));
    style.height = std::max(tags.Real(40), 0.0);
    style.width = tags.Real(41, 1);
    style.oblique = tags.Real(50);
    styles.try_emplace(Key(tags.Raw(2)), style);
}

void Tables::ReadLayer(const Tags& tags) {
    Layer& layer = layers[AddLayer(store.Codec().Decode(tags.Raw(2)))];
    const Colour colour = ColourOf(tags, kForeground);
    layer.colour = colour == kByLayer || colour == kByBlock ? kForeground : colour;
    layer.off = tags.Int(62) < 0;
    layer.frozen = tags.Int(70) & 1;
    const LineType lineType = LineTypeOf(tags.Raw(6));
    layer.lineType = lineType >= kLineTypeByBlock ? kContinuous : lineType;
}

uint32_t Tables::AddLayer(const std::u16string& name) {
    const auto number = static_cast<uint32_t>(layers.size());
    const auto [place, added] = layerNumbers.try_emplace(text::FoldCase(name), number);
    if (added) layers.push_back({name});
    return place->second;
}

uint32_t Tables::LayerOf(dxf::RecordIndex entity) {
    const uint32_t spelling = store.At(entity).layer;
    if (spelling == dxf::kNoLayer) return kLayerZero;
    if (spelling >= layerOfSpelling.size()) layerOfSpelling.resize(spelling + 1, kUnknown);
    uint32_t& number = layerOfSpelling[spelling];
    if (number == kUnknown) number = AddLayer(store.Codec().Decode(store.LayerName(spelling)));
    return number;
}

LineType Tables::LineTypeOf(std::string_view raw) const {
    if (raw.empty()) return kLineTypeByLayer;
    const std::u16string key = Key(raw);
    if (key == u"bylayer") return kLineTypeByLayer;
    if (key == u"byblock") return kLineTypeByBlock;
    const auto found = lineTypes.find(key);
    return found == lineTypes.end() ? kContinuous : found->second;
}

const TextStyle& Tables::FindStyle(std::string_view raw) const {
    for (const std::u16string& key : {Key(raw), std::u16string(u"standard")}) {
        const auto found = styles.find(key);
        if (found != styles.end()) return found->second;
    }
    return plain;
}

std::u16string Tables::Key(std::string_view raw) const {
    return text::FoldCase(store.Codec().Decode(raw));
}

}  // namespace painter
