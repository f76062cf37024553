// OdRxClass: the descriptor of a class, with its name, its base and how to make one.
#pragma once

#include "platform/text/OdString.h"

template <class T>
class OdSmartPtr;
class OdRxObject;

// One per class and process: classes are compared by the address of their descriptor.
class OdRxClass {
  public:
    using Creator = OdSmartPtr<OdRxObject> (*)();

    OdRxClass(OdString name, OdRxClass* parent, Creator creator);
    OdRxClass(const OdRxClass&) = delete;
    OdRxClass& operator=(const OdRxClass&) = delete;

    const OdString& name() const { return className; }
    OdRxClass* myParent() const { return parent; }
    bool isDerivedFrom(const OdRxClass* ancestor) const;  // a class derives from itself
    // A new object without a database; null for a class of which none can be made by itself.
    OdSmartPtr<OdRxObject> create() const;

  private:
    OdString className;
    OdRxClass* parent;
    Creator creator;
};
