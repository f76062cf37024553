// The words of what the drawing database raises.
#include "platform/drawing/OdError.h"

#include "platform/drawing/DbObject.h"

namespace {

struct ResultText {
    OdResult result;
    const char16_t* name;
    const char16_t* text;
};
const ResultText kResults[] = {
    {eOk, u"eOk", u"no error"},
    {eGeneralError, u"eGeneralError", u"the drawing database reports an error"},
    {eNotThatKindOfClass, u"eNotThatKindOfClass", u"the object is of another class"},
    {eNotOpenForWrite, u"eNotOpenForWrite", u"the object is not open for write"},
    {eWasErased, u"eWasErased", u"the object is erased"},
    {eNullObjectId, u"eNullObjectId", u"the object id is null"},
    {eNoDatabase, u"eNoDatabase", u"the object belongs to no open drawing"},
    {eInvalidInput, u"eInvalidInput", u"the value is not allowed here"},
    {eInvalidIndex, u"eInvalidIndex", u"the index is out of range"},
    {eInvalidResBuf, u"eInvalidResBuf", u"the chain of values is not allowed here"},
    {eInvalidKey, u"eInvalidKey", u"the key is not allowed here"},
    {eKeyNotFound, u"eKeyNotFound", u"there is no entry of that key"},
    {eDuplicateKey, u"eDuplicateKey", u"there is an entry of that key already"},
    {eCannotScaleNonUniformly, u"eCannotScaleNonUniformly",
     u"the entity cannot be scaled in this way and stay of its type"},
    {eStringTooLong, u"eStringTooLong", u"the text is too long for its place in the drawing"},
    {eNotApplicable, u"eNotApplicable", u"the operation does not apply to this object"},
    {eNoDictionaries, u"eNoDictionaries",
     u"drawings of R12 and older have no dictionaries; save the drawing as R2000 or later first"},
    {eReadOnlyDrawing, u"eReadOnlyDrawing", u"the drawing can be read but not safely edited"},
    {eFileReadError, u"eFileReadError", u"the drawing cannot be read"},
    {eFileWriteError, u"eFileWriteError", u"the drawing cannot be written"},
    {eFileChanged, u"eFileChanged", u"the file changed on disk since it was read or saved"},
};

const ResultText& textOf(OdResult result) {
    for (const ResultText& row : kResults) {
        if (row.result == result) return row;
    }
    return kResults[1];
}

uint64_t handleOf(const OdRxObject* object) {
    OdDbObjectPtr inDrawing = OdDbObject::cast(object);
    return inDrawing.isNull() ? 0 : uint64_t{inDrawing->getDbHandle()};
}

OdString nameObject(const OdRxObject* object) {
    OdDbObjectPtr inDrawing = OdDbObject::cast(object);
    if (inDrawing.isNull() || inDrawing->objectId().isNull()) return object->isA()->name();
    OdString name = OdString(u"object ") + inDrawing->getDbHandle().ascii();
    return name + u" (" + inDrawing->dxfName() + u", " + object->isA()->name() + u")";
}

}  // namespace

const char16_t* odResultName(OdResult result) { return textOf(result).name; }

OdError::OdError(OdResult result) : OdError(result, textOf(result).text) {}

OdError_NotThatKindOfClass::OdError_NotThatKindOfClass(const OdRxObject* object,
                                                       const OdRxClass* expected)
    : OdError(eNotThatKindOfClass, nameObject(object) + u" is not an " + expected->name()),
      number(handleOf(object)),
      found(object->isA()),
      expected(expected) {}

OdError_NotOpenForWrite::OdError_NotOpenForWrite(const OdString& object)
    : OdError(eNotOpenForWrite, object + u" is not open for write") {}
