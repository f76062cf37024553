// Texts: one line, several lines, attributes and their definitions.
#include "platform/drawing/DbText.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbMText.h"
#include "platform/drawing/GroupList.h"
#include "platform/drawing/NewAttribute.h"
#include "platform/drawing/TextChunks.h"
#include "platform/drawing/Transform.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbText, OdDbEntity)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbMText, OdDbEntity)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbAttributeDefinition, OdDbText)

using dxf::RecordIndex;
using dxf::Store;

namespace {

constexpr int kText = 1;
constexpr int kTag = 2;
constexpr int kPrompt = 3;
constexpr int kFlags = 70;
constexpr int64_t kInvisible = 1;
constexpr int64_t kConstant = 2;

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

int intOf(const Store& store, RecordIndex index, int code) {
    const auto group = groups::Find(store, index, code);
    return group ? static_cast<int>(group->AsInt()) : 0;
}

double doubleOf(const Store& store, RecordIndex index, int code, double absent) {
    const auto group = groups::Find(store, index, code);
    return group ? group->AsDouble() : absent;
}

bool hasEmbedded(const Store& store, RecordIndex index) {
    return (store.At(index).flags & dxf::kHasEmbedded) != 0;
}

void setBothTexts(Store& store, RecordIndex index, const OdString& text) {
    if (textGroup(store, index) && textOf(store, index) == text) return;
    std::vector<groups::Edit> edits{textEdit(store, index, text)};
    const ChunkRun inside = embeddedContentsOf(store, index);
    for (auto& edit : ChunkEdits(store, index, inside, WithParagraphs(text.text()))) {
        edits.push_back(std::move(edit));
    }
    groups::Apply(store, index, edits);
}

// Contents that are one group, and stay one, get another value.
bool replacedInPlace(Store& store, RecordIndex index, const ChunkRun& present,
                     std::u16string_view text) {
    const auto whole = textGroup(store, index);
    if (!whole || present.places.size() != 1) return false;
    const std::vector<std::string> chunks = ChunksOf(store.Codec(), text);
    if (chunks.size() != 1) return false;
    store.ReplaceValue(index, *whole, chunks[0]);
    return true;
}

int64_t attributeFlags(const Store& store, RecordIndex index) {
    const auto flags = groups::Find(store, index, kFlags);
    return flags ? flags->AsInt() : 0;
}

}  // namespace

double OdDbText::height() const { return doubleOf(core().store, record(), 40, 0); }
double OdDbText::rotation() const { return doubleOf(core().store, record(), 50, 0); }
double OdDbText::thickness() const { return doubleOf(core().store, record(), 39, 0); }
double OdDbText::widthFactor() const { return doubleOf(core().store, record(), 41, 1); }
OdString OdDbText::textStyle() const { return groups::Text(core().store, record(), 7); }
int OdDbText::horizontalMode() const { return intOf(core().store, record(), 72); }
int OdDbText::verticalMode() const { return intOf(core().store, record(), 73); }
OdGeVector3d OdDbText::normal() const { return NormalOf(GroupList(core().store, record())); }

OdString OdDbText::textString() const { return textOf(core().store, record()); }

void OdDbText::setTextString(const OdString& text) {
    Store& store = editable().store;
    const RecordIndex index = record();
    const auto present = textGroup(store, index);
    if (!present) return groups::Apply(store, index, {textEdit(store, index, text)});
    if (store.Codec().Reads(present->value, text.text())) return;
    store.ReplaceValue(index, *present, encodedText(store, index, text));
}

OdRxObjectPtr OdDbMText::clone() const {
    if (database()) return OdDbEntity::clone();
    OdDbMTextPtr copy(new OdDbMText);
    copy->groups = groups;
    copy->text = text;
    return copy;
}

OdString OdDbMText::contents() const {
    if (!database()) return text;
    return OdString(contentsOf(core().store, record()).text);
}

void OdDbMText::setContents(const OdString& contents) {
    Store& store = editable().store;
    const ChunkRun present = contentsOf(store, record());
    if (!present.places.empty() && present.text == contents.text()) return;
    const std::u16string text = WithParagraphs(contents.text());
    if (replacedInPlace(store, record(), present, text)) return;
    std::vector<groups::Edit> edits = ChunkEdits(store, record(), present, text);
    if (edits.empty()) {
        dxf::GroupWriter writer = store.NewWriter(record());
        WriteChunks(writer, ChunksOf(store.Codec(), text));
        const uint32_t place = placeForText(store, record());
        edits.push_back({place, place, writer.Take()});
    }
    groups::Apply(store, record(), edits);
}

OdString OdDbAttribute::tag() const {
    return pending ? pending->tag : groups::Text(core().store, record(), kTag);
}
bool OdDbAttribute::isInvisible() const {
    return (pending ? pending->flags : attributeFlags(core().store, record())) & kInvisible;
}
bool OdDbAttribute::isConstant() const {
    return (pending ? pending->flags : attributeFlags(core().store, record())) & kConstant;
}
bool OdDbAttribute::isMTextAttribute() const {
    return pending ? !pending->paragraphs.empty() : hasEmbedded(core().store, record());
}
int OdDbAttribute::verticalMode() const { return intOf(core().store, record(), 74); }

void OdDbAttribute::setInvisible(bool invisible) {
    if (isInvisible() == invisible) return;
    if (pending) {
        pending->flags ^= kInvisible;
        return;
    }
    Store& store = editable().store;
    const int64_t flags = attributeFlags(store, record()) ^ kInvisible;
    const auto present = groups::Find(store, record(), kFlags);
    const auto tag = groups::Find(store, record(), kTag);
    const auto behind = tag ? static_cast<uint32_t>(tag->end) : placeForText(store, record());
    const auto begin = present ? static_cast<uint32_t>(present->begin) : behind;
    const auto end = present ? static_cast<uint32_t>(present->end) : behind;
    groups::Apply(store, record(),
                  {{begin, end, store.NewWriter(record()).Int(kFlags, flags).Take()}});
}

OdString OdDbAttribute::textString() const {
    return pending ? pending->text : OdDbText::textString();
}

void OdDbAttribute::setTextString(const OdString& text) {
    if (pending) {
        pending->text = text;
        return;
    }
    if (!isMTextAttribute()) return OdDbText::setTextString(text);
    setBothTexts(editable().store, record(), text);
}

int OdDbAttributeDefinition::fieldLength() const { return intOf(core().store, record(), 73); }
int OdDbAttributeDefinition::verticalMode() const { return intOf(core().store, record(), 74); }

OdDbMTextPtr OdDbAttributeDefinition::getMTextAttributeDefinition() const {
    const Store& store = core().store;
    const groups::Layout layout = groups::LayoutOf(store, record());
    if (layout.embeddedEnd == 0) return OdDbMTextPtr();
    OdDbMTextPtr inside(new OdDbMText);
    inside->groups = store.Bytes(record()).substr(layout.embeddedBegin,
                                                  layout.embeddedEnd - layout.embeddedBegin);
    inside->text = OdString(embeddedContentsOf(store, record()).text);
    return inside;
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
