// Which class views which object.
#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbAttributeDefinition.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTable.h"
#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbLayerTable.h"
#include "platform/drawing/DbMText.h"
#include "platform/drawing/DbPolyline.h"
#include "platform/drawing/DbRegAppTable.h"
#include "platform/drawing/DbXrecord.h"
#include "platform/drawing/EObjString.h"
#include "platform/drawing/TextChunks.h"

using dxf::RecordIndex;
using dxf::RecordType;
using dxf::Section;

OdDbObject* OdDbDatabaseImpl::makeView(uint32_t index) {
    if (const VirtualObject* object = virtualObject(index)) return makeVirtualView(*object);
    return makeRecordView(index);
}

OdDbObject* OdDbDatabaseImpl::makeVirtualView(const VirtualObject& object) {
    switch (object.kind) {
        case VirtualObject::Kind::RootDictionary:
            return new OdDbDictionary;
        case VirtualObject::Kind::BlockTable:
            return new OdDbBlockTable;
        case VirtualObject::Kind::LayerTable:
            return new OdDbLayerTable;
        case VirtualObject::Kind::RegAppTable:
            return new OdDbRegAppTable;
        case VirtualObject::Kind::ModelSpace:
            return new OdDbBlockTableRecord;
        case VirtualObject::Kind::Layer:
            return new OdDbLayerTableRecord;
    }
    return new OdDbObject;
}

OdDbObject* OdDbDatabaseImpl::makeRecordView(RecordIndex index) {
    switch (store.At(index).type) {
        case RecordType::Text:
            return new OdDbText;
        case RecordType::Mtext:
            return new OdDbMText;
        case RecordType::Attrib:
            return new OdDbAttribute;
        case RecordType::Attdef:
            return new OdDbAttributeDefinition;
        case RecordType::Insert:
            return new OdDbBlockReference;
        case RecordType::LwPolyline:
            return new OdDbPolyline;
        case RecordType::Dictionary:
            return new OdDbDictionary;
        case RecordType::Xrecord:
            if (IsStringXrecord(store, index)) return new EObjString;
            return new OdDbXrecord;
        case RecordType::Layer:
            return new OdDbLayerTableRecord;
        case RecordType::AppId:
            return new OdDbRegAppTableRecord;
        case RecordType::BlockRecord:
            return new OdDbBlockTableRecord;
        case RecordType::Block:
            if (blocks.isBlockRecord(index)) return new OdDbBlockTableRecord;
            return new OdDbEntity;
        case RecordType::Table:
            return makeTableView(index);
        default:
            return makeOtherView(index);
    }
}

OdDbObject* OdDbDatabaseImpl::makeTableView(RecordIndex index) {
    if (index == recordOf(layerTable)) return new OdDbLayerTable;
    if (index == recordOf(blockTable)) return new OdDbBlockTable;
    if (index == recordOf(regAppTable)) return new OdDbRegAppTable;
    return new OdDbSymbolTable;
}

OdDbObject* OdDbDatabaseImpl::makeOtherView(RecordIndex index) {
    switch (store.At(index).section) {
        case Section::Entities:
        case Section::Blocks:
            return new OdDbEntity;
        case Section::Tables:
            return new OdDbSymbolTableRecord;
        default:
            break;
    }
    if (store.TypeName(index) == "ACDBDICTIONARYWDFLT") return new OdDbDictionary;
    return new OdDbObject;
}
