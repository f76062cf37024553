// Attributes that are made: their properties, and how they enter a drawing.
#include "platform/drawing/NewAttribute.h"

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/GroupList.h"
#include "platform/drawing/Groups.h"
#include "platform/drawing/Transform.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbAttribute, OdDbText)

using dxf::kNoRecord;
using dxf::RecordIndex;
using dxf::RecordType;

namespace {

constexpr int64_t kConstant = 2;
constexpr int kOtherProperties[] = {60, 284, 347, 348, 390};

int intOf(const dxf::Store& store, RecordIndex index, int code) {
    const auto group = groups::Find(store, index, code);
    return group ? static_cast<int>(group->AsInt()) : 0;
}

void writePoint(dxf::GroupWriter& writer, int code, const OdGePoint3d& point) {
    writer.Double(code, point.x).Double(code + 10, point.y).Double(code + 20, point.z);
}

void writeProperties(const NewAttribute& attribute, const dxf::Store& store,
                     dxf::GroupWriter& writer) {
    const dxf::TextCodec& codec = store.Codec();
    writer.String(8, codec.Encode(attribute.layer.text()));
    if (attribute.linetype.iCompare(u"BYLAYER") != 0) {
        writer.String(6, codec.Encode(attribute.linetype.text()));
    }
    if (attribute.color.colorIndex != 256) writer.Int(62, attribute.color.colorIndex);
    if (attribute.color.rgb) writer.Int(420, *attribute.color.rgb);
    if (!attribute.color.name.isEmpty()) {
        writer.String(430, codec.Encode(attribute.color.name.text()));
    }
    if (attribute.transparency != 0) writer.Int(440, attribute.transparency);
    if (attribute.lineWeight != -1) writer.Int(370, attribute.lineWeight);
    if (attribute.linetypeScale != 1) writer.Double(48, attribute.linetypeScale);
    writer.Raw(attribute.otherProperties);
}

void writeText(const NewAttribute& attribute, const dxf::Store& store, dxf::GroupWriter& writer) {
    const dxf::TextCodec& codec = store.Codec();
    const TextGeometry& geometry = attribute.geometry;
    if (geometry.thickness != 0) writer.Double(39, geometry.thickness);
    writePoint(writer, 10, geometry.position);
    writer.Double(40, geometry.height).String(1, codec.Encode(attribute.text.text()));
    if (geometry.rotation != 0) writer.Double(50, geometry.rotation);
    if (geometry.widthFactor != 1) writer.Double(41, geometry.widthFactor);
    if (geometry.oblique != 0) writer.Double(51, geometry.oblique);
    if (!attribute.textStyle.isEmpty()) writer.String(7, codec.Encode(attribute.textStyle.text()));
    if (attribute.generation != 0) writer.Int(71, attribute.generation);
    if (attribute.horizontalMode != 0) writer.Int(72, attribute.horizontalMode);
    if (attribute.aligned) writePoint(writer, 11, geometry.alignment);
    if (!(geometry.normal == OdGeVector3d::kZAxis)) {
        const OdGeVector3d& normal = geometry.normal;
        writePoint(writer, 210, {normal.x, normal.y, normal.z});
    }
}

}  // namespace

void NewAttribute::write(const dxf::Store& store, dxf::GroupWriter& writer) const {
    const bool marked = store.FileVersion() >= dxf::Version::R13;
    if (marked) writer.String(100, "AcDbEntity");
    writeProperties(*this, store, writer);
    if (marked) writer.String(100, "AcDbText");
    writeText(*this, store, writer);
    if (marked) writer.String(100, "AcDbAttribute");
    if (version) writer.Int(280, *version);
    writer.String(2, store.Codec().Encode(tag.text())).Int(70, flags);
    if (fieldLength != 0) writer.Int(73, fieldLength);
    if (verticalMode != 0) writer.Int(74, verticalMode);
    if (lock) writer.Int(280, *lock);
    if (paragraphs.empty()) return;
    constexpr int kHoldsParagraphs = 2;
    writer.Int(71, kHoldsParagraphs).Int(72, 0);
    writePoint(writer, 11, geometry.alignment);
    writer.Raw(paragraphs);
}

OdDbAttribute::OdDbAttribute() = default;
OdDbAttribute::~OdDbAttribute() = default;

NewAttribute& OdDbAttribute::fresh() {
    if (database()) {
        throw OdError(eNotApplicable, OdString(u"attribute ") + getDbHandle().ascii() +
                                          u" stands in a drawing; only a new one takes this");
    }
    if (!pending) pending = std::make_unique<NewAttribute>();
    return *pending;
}

void OdDbAttribute::setPropertiesFrom(const OdDbEntity* source, bool) {
    NewAttribute& attribute = fresh();
    if (!source) throw OdError(eInvalidInput, u"there is no entity to take properties from");
    attribute.layer = source->layer();
    attribute.color = source->color();
    attribute.linetype = source->linetype();
    attribute.linetypeScale = source->linetypeScale();
    attribute.lineWeight = source->lineWeight();
    attribute.transparency = source->transparency();
    const dxf::Store& store = source->database()->store();
    const RecordIndex record = store.FindHandle(source->getDbHandle());
    attribute.otherProperties.clear();
    for (const int code : kOtherProperties) {
        const auto group = groups::Find(store, record, code);
        if (!group) continue;
        attribute.otherProperties +=
            store.Bytes(record).substr(group->begin, group->end - group->begin);
    }
}

void OdDbAttribute::setTag(const OdString& tag) { fresh().tag = tag; }
void OdDbAttribute::setHeight(double height) { fresh().geometry.height = height; }
void OdDbAttribute::setRotation(double degrees) { fresh().geometry.rotation = degrees; }
void OdDbAttribute::setTextStyle(const OdString& name) { fresh().textStyle = name; }
void OdDbAttribute::setColor(const OdCmColor& color, bool) { fresh().color = color; }
void OdDbAttribute::setLinetype(const OdString& name, bool) { fresh().linetype = name; }
void OdDbAttribute::setLinetypeScale(double scale, bool) { fresh().linetypeScale = scale; }
void OdDbAttribute::setLineWeight(int lineWeight, bool) { fresh().lineWeight = lineWeight; }
void OdDbAttribute::setNormal(const OdGeVector3d& normal) { fresh().geometry.normal = normal; }
void OdDbAttribute::setThickness(double thickness) { fresh().geometry.thickness = thickness; }
void OdDbAttribute::setTransparency(int value, bool) { fresh().transparency = value; }
void OdDbAttribute::setWidthFactor(double factor) { fresh().geometry.widthFactor = factor; }
void OdDbAttribute::setHorizontalMode(int mode) { fresh().horizontalMode = mode; }
void OdDbAttribute::setVerticalMode(int mode) { fresh().verticalMode = mode; }
void OdDbAttribute::setFieldLength(int length) { fresh().fieldLength = length; }

void OdDbAttribute::setMTextAttribute(const OdDbMText* text) {
    fresh().paragraphs = text ? text->groups : std::string();
}

void OdDbAttribute::setAttributeFromBlock(const OdDbAttributeDefinition* definition,
                                          const OdGeMatrix3d& blockTransform) {
    NewAttribute& attribute = fresh();
    if (!definition || !definition->database()) {
        throw OdError(eInvalidInput, u"there is no attribute definition to follow");
    }
    OdDbDatabaseImpl& drawing = definition->database()->impl();
    const RecordIndex record = drawing.recordOf(definition->objectId().objectIndex());
    const GroupList groups(drawing.store, record);
    attribute.geometry = ReadTextGeometry(groups);
    attribute.aligned = groups.find(11) != GroupList::npos;
    attribute.place = blockTransform;
    attribute.tag = definition->tag();
    attribute.text = definition->textString();
    attribute.textStyle = definition->textStyle();
    attribute.generation = intOf(drawing.store, record, 71);
    attribute.horizontalMode = definition->horizontalMode();
    attribute.verticalMode = definition->verticalMode();
    attribute.fieldLength = definition->fieldLength();
    attribute.flags = intOf(drawing.store, record, 70) & ~kConstant;
    // Newer drawings write 280 ahead of the tag for the version, and behind it for the lock.
    const size_t tag = groups.find(2);
    const size_t version = groups.find(280, 0, tag), lock = groups.find(280, tag);
    attribute.version.reset();
    attribute.lock.reset();
    if (version != GroupList::npos) attribute.version = groups.number(version);
    if (tag != GroupList::npos && lock != GroupList::npos) attribute.lock = groups.number(lock);
}

OdGeMatrix3d OdDbBlockReference::blockTransform() const {
    const OdGeMatrix3d reference = ReferenceMatrix(GroupList(core().store, record()));
    const auto block = OdDbBlockTableRecord::cast(blockTableRecord().openObject());
    if (block.isNull()) return reference;
    return reference * OdGeMatrix3d::translation(block->origin().asVector() * -1.0);
}

// The run of attributes gets its end and its announcement with the first of them.
void OdDbDatabaseImpl::announceAttributes(RecordIndex reference) {
    RecordIndex last = reference;
    for (RecordIndex i = store.Next(last); i != kNoRecord && store.At(i).type == RecordType::Attrib;
         i = store.Next(i)) {
        last = i;
    }
    const RecordIndex end = store.Next(last);
    if (end != kNoRecord && store.At(end).type == RecordType::Seqend) {
        store.SetErased(end, false);
    } else {
        dxf::GroupWriter writer = store.NewWriter(reference);
        writer.String(0, "SEQEND");
        const bool handles = !(store.At(reference).flags & dxf::kMemoryHandle);
        if (handles) writer.Handle(5, newHandle());
        if (handles && writesOwners()) writer.Handle(330, store.At(reference).handle);
        if (writesHandles()) writer.String(100, "AcDbEntity");
        const auto layer = groups::Find(store, reference, 8);
        writer.String(8, layer ? std::string(layer->value) : "0");
        const RecordIndex added = store.InsertAfter(last, writer.Take());
        if (!handles) assignMemoryHandle(added);
    }
    GroupList groups(store, reference);
    const size_t flag = groups.find(66), name = groups.find(2);
    if (flag == GroupList::npos && name != GroupList::npos) {
        groups.insertBefore(name, groups.newWriter().Int(66, 1).Take());
        groups.apply();
    } else if (flag != GroupList::npos && groups.number(flag) != 1) {
        groups.setNumber(flag, 1);
        groups.apply();
    }
}

OdDbObjectId OdDbBlockReference::appendAttribute(OdDbAttribute* attribute) {
    OdDbDatabaseImpl& database = editable();
    if (!attribute) throw OdError(eInvalidInput, u"a block reference takes no null attribute");
    const NewAttribute& made = attribute->fresh();
    dxf::Store& store = database.store;
    groups::CheckLength(u"a text", getDbHandle(), store.Codec().Encode(made.text.text()).size(),
                        groups::TextLimit(store));
    database.announceAttributes(record());
    RecordIndex last = record();
    while (store.At(store.Next(last)).type == RecordType::Attrib) last = store.Next(last);
    const bool handles = !(store.At(record()).flags & dxf::kMemoryHandle);
    dxf::GroupWriter writer = store.NewWriter(record());
    writer.String(0, "ATTRIB");
    if (handles) writer.Handle(5, database.newHandle());
    if (handles && database.writesOwners()) writer.Handle(330, getDbHandle());
    made.write(store, writer);
    const RecordIndex added = store.InsertAfter(last, writer.Take());
    if (!handles) database.assignMemoryHandle(added);
    GroupList groups(store, added);
    TransformText(groups, made.place);
    groups.apply();
    attribute->pending.reset();
    database.adopt(*attribute, added);
    return attribute->objectId();
}
