// OdError: what the drawing database raises.
#pragma once

#include "platform/drawing/OdResult.h"
#include "platform/text/OdString.h"

class OdRxObject;
class OdRxClass;

// description() is one line for the user: what, where, why. It is not a std::exception, so that a
// handler for those does not take it by accident.
class OdError {
  public:
    explicit OdError(OdResult result);
    explicit OdError(const OdString& text) : OdError(eGeneralError, text) {}
    OdError(OdResult result, const OdString& text) : result(result), text(text) {}
    virtual ~OdError() = default;

    OdResult code() const { return result; }
    const OdString& description() const { return text; }

  private:
    OdResult result;
    OdString text;
};

// An object is not of the class that its use requires. The description names the handle of the
// object, the class found and the class expected.
class OdError_NotThatKindOfClass : public OdError {
  public:
    OdError_NotThatKindOfClass(const OdRxObject* object, const OdRxClass* expected);

    const OdRxClass* fromClass() const { return found; }
    const OdRxClass* toClass() const { return expected; }
    uint64_t handle() const { return number; }  // of the object; 0 when it stands in no drawing

  private:
    uint64_t number;
    const OdRxClass* found;
    const OdRxClass* expected;
};

class OdError_NotOpenForWrite : public OdError {
  public:
    explicit OdError_NotOpenForWrite(const OdString& object);
};

class OdError_InvalidIndex : public OdError {
  public:
    OdError_InvalidIndex() : OdError(eInvalidIndex) {}
};
