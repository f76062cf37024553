// Texts: one line, several lines, attributes and their definitions.
#include "platform/drawing/DbText.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbAttributeDefinition.h"
#include "platform/drawing/DbMText.h"
#include "platform/drawing/TextChunks.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbText, OdDbEntity)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbMText, OdDbEntity)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbAttribute, OdDbText)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbAttributeDefinition, OdDbText)

namespace {

constexpr int kText = 1;
constexpr int kTag = 2;
constexpr int kPrompt = 3;
constexpr int kFlags = 70;
constexpr int64_t kInvisible = 1;
constexpr int64_t kConstant = 2;

using dxf::RecordIndex;
using dxf::Store;

// The hint leads to the first 1 or 3; in a definition that may be the prompt.
std::optional<dxf::Group> textGroup(const Store& store, RecordIndex index) {
    const uint32_t hint = store.At(index).text;
    return hint ? groups::Find(store, index, kText, hint) : std::nullopt;
}

OdString textOf(const Store& store, RecordIndex index) {
    const auto group = textGroup(store, index);
    return group ? groups::Decode(store, group->value) : OdString();
}

// Where a text without its group gets one: behind the height, which every text has.
uint32_t placeForText(const Store& store, RecordIndex index) {
    const auto height = groups::Find(store, index, 40);
    return height ? static_cast<uint32_t>(height->end) : groups::LayoutOf(store, index).ownEnd;
}

std::string encodedText(const Store& store, RecordIndex index, const OdString& text) {
    std::string encoded = store.Codec().Encode(text.text());
    groups::CheckLength(u"a text", store.At(index).handle, encoded.size(),
                        groups::TextLimit(store));
    return encoded;
}

groups::Edit textEdit(const Store& store, RecordIndex index, const OdString& text) {
    std::string encoded = encodedText(store, index, text);
    if (const auto group = textGroup(store, index)) {
        return groups::ValueEdit(store, index, *group, std::move(encoded));
    }
    const uint32_t place = placeForText(store, index);
    return {place, place, store.NewWriter(index).String(kText, encoded).Take()};
}

// A raw line feed has no place in a text of several lines; its code for a new line has.
std::u16string withParagraphs(const std::u16string& text) {
    std::u16string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
        if (text[i] == u'\n') {
            result += u"\\P";
        } else {
            result += text[i];
        }
    }
    return result;
}

ChunkRun contentsOf(const Store& store, RecordIndex index) {
    const uint32_t hint = store.At(index).text;
    if (hint == 0) return {};
    return ReadChunks(store, index, hint, groups::LayoutOf(store, index).ownEnd);
}

// The text of several lines inside an attribute or its definition.
ChunkRun embeddedContentsOf(const Store& store, RecordIndex index) {
    const groups::Layout layout = groups::LayoutOf(store, index);
    if (layout.embeddedEnd == 0) return {};
    return ReadChunks(store, index, layout.embeddedBegin, layout.embeddedEnd);
}

bool hasEmbedded(const Store& store, RecordIndex index) {
    return (store.At(index).flags & dxf::kHasEmbedded) != 0;
}

void setBothTexts(Store& store, RecordIndex index, const OdString& text) {
    if (textGroup(store, index) && textOf(store, index) == text) return;
    std::vector<groups::Edit> edits{textEdit(store, index, text)};
    const ChunkRun inside = embeddedContentsOf(store, index);
    for (auto& edit : ChunkEdits(store, index, inside, withParagraphs(text.text()))) {
        edits.push_back(std::move(edit));
    }
    groups::Apply(store, index, edits);
}

int64_t attributeFlags(const Store& store, RecordIndex index) {
    const auto flags = groups::Find(store, index, kFlags);
    return flags ? flags->AsInt() : 0;
}

}  // namespace

OdString OdDbText::textString() const { return textOf(core().store, record()); }

void OdDbText::setTextString(const OdString& text) {
    Store& store = editable().store;
    const RecordIndex index = record();
    const auto present = textGroup(store, index);
    if (!present) return groups::Apply(store, index, {textEdit(store, index, text)});
    if (store.Codec().Decode(present->value) == text.text()) return;
    store.ReplaceValue(index, *present, encodedText(store, index, text));
}

OdString OdDbMText::contents() const { return OdString(contentsOf(core().store, record()).text); }

void OdDbMText::setContents(const OdString& contents) {
    Store& store = editable().store;
    const ChunkRun present = contentsOf(store, record());
    if (!present.places.empty() && present.text == contents.text()) return;
    const std::u16string text = withParagraphs(contents.text());
    std::vector<groups::Edit> edits = ChunkEdits(store, record(), present, text);
    if (edits.empty()) {
        dxf::GroupWriter writer = store.NewWriter(record());
        WriteChunks(writer, ChunksOf(store.Codec(), text));
        const uint32_t place = placeForText(store, record());
        edits.push_back({place, place, writer.Take()});
    }
    groups::Apply(store, record(), edits);
}

OdString OdDbAttribute::tag() const { return groups::Text(core().store, record(), kTag); }
bool OdDbAttribute::isInvisible() const {
    return attributeFlags(core().store, record()) & kInvisible;
}
bool OdDbAttribute::isConstant() const {
    return attributeFlags(core().store, record()) & kConstant;
}
bool OdDbAttribute::isMTextAttribute() const { return hasEmbedded(core().store, record()); }

void OdDbAttribute::setInvisible(bool invisible) {
    Store& store = editable().store;
    if (isInvisible() == invisible) return;
    const int64_t flags = attributeFlags(store, record()) ^ kInvisible;
    const auto present = groups::Find(store, record(), kFlags);
    const auto tag = groups::Find(store, record(), kTag);
    const auto behind = tag ? static_cast<uint32_t>(tag->end) : placeForText(store, record());
    const auto begin = present ? static_cast<uint32_t>(present->begin) : behind;
    const auto end = present ? static_cast<uint32_t>(present->end) : behind;
    groups::Apply(store, record(),
                  {{begin, end, store.NewWriter(record()).Int(kFlags, flags).Take()}});
}

void OdDbAttribute::setTextString(const OdString& text) {
    if (!isMTextAttribute()) return OdDbText::setTextString(text);
    setBothTexts(editable().store, record(), text);
}

OdString OdDbAttributeDefinition::tag() const { return groups::Text(core().store, record(), kTag); }
OdString OdDbAttributeDefinition::prompt() const {
    return groups::Text(core().store, record(), kPrompt);
}
bool OdDbAttributeDefinition::isInvisible() const {
    return attributeFlags(core().store, record()) & kInvisible;
}
bool OdDbAttributeDefinition::isConstant() const {
    return attributeFlags(core().store, record()) & kConstant;
}
bool OdDbAttributeDefinition::isMTextAttributeDefinition() const {
    return hasEmbedded(core().store, record());
}

void OdDbAttributeDefinition::setTextString(const OdString& text) {
    if (!isMTextAttributeDefinition()) return OdDbText::setTextString(text);
    setBothTexts(editable().store, record(), text);
}
