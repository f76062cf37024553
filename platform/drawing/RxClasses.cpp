// The run-time classes: descriptors, the root of objects and the checked conversions.
#include "platform/drawing/OdError.h"
#include "platform/drawing/RxModule.h"
#include "platform/drawing/RxObject.h"

OdRxClass::OdRxClass(OdString name, OdRxClass* parent, Creator creator)
    : className(std::move(name)), parent(parent), creator(creator) {}

bool OdRxClass::isDerivedFrom(const OdRxClass* ancestor) const {
    for (const OdRxClass* c = this; c; c = c->parent) {
        if (c == ancestor) return true;
    }
    return false;
}

OdRxObjectPtr OdRxClass::create() const { return creator ? creator() : OdRxObjectPtr(); }

OdRxClass* OdRxObject::desc() {
    static OdRxClass descriptor(u"OdRxObject", nullptr, nullptr);
    return &descriptor;
}

OdRxObjectPtr OdRxObject::cast(const OdRxObject* object) {
    return OdRxObjectPtr(const_cast<OdRxObject*>(object));
}

OdRxClass* OdRxObject::isA() const { return desc(); }

OdRxObject* OdRxObject::queryX(const OdRxClass* requested) const {
    if (!isKindOf(requested)) return x(requested);
    auto* self = const_cast<OdRxObject*>(this);
    self->addRef();
    return self;
}

OdRxObject* OdRxObject::x(const OdRxClass*) const { return nullptr; }

OdRxObjectPtr OdRxObject::clone() const {
    throw OdError(eNotApplicable, isA()->name() + u" cannot be cloned");
}

void OdRxObject::copyFrom(const OdRxObject*) {
    throw OdError(eNotApplicable, isA()->name() + u" cannot be copied from another object");
}

OdRx::Ordering OdRxObject::comparedTo(const OdRxObject* other) const {
    return other == this ? OdRx::kEqual : OdRx::kNotOrderable;
}

bool OdRxObject::isEqualTo(const OdRxObject* other) const { return other == this; }

ODRX_NO_CONS_DEFINE_MEMBERS(OdRxModule, OdRxObject)

void odrxThrowNotThatKindOfClass(const OdRxObject* object, const OdRxClass* expected) {
    throw OdError_NotThatKindOfClass(object, expected);
}
