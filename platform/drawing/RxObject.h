// OdRxObject: the root of all classes that are counted and know their class at run time.
#pragma once

#include "platform/drawing/RxClass.h"

template <class T>
class OdSmartPtr;
class OdRxObject;
using OdRxObjectPtr = OdSmartPtr<OdRxObject>;

namespace OdRx {
enum Ordering { kLessThan = -1, kEqual = 0, kGreaterThan = 1, kNotOrderable = 2 };
enum DictIterType { kDictCollated = 0, kDictSorted = 1 };
}  // namespace OdRx

// Counting is left to the derived class: OdRxObjectImpl counts and deletes, OdStaticRxObject does
// neither. A counted object starts at 0 references; OdSmartPtr takes one. Main thread only.
class OdRxObject {
  public:
    virtual ~OdRxObject() = default;

    // This object with one reference taken for the caller, or null when it is not of that class.
    virtual OdRxObject* queryX(const OdRxClass* requested) const;
    // A protocol extension of that class; there is none here, so null.
    virtual OdRxObject* x(const OdRxClass* requested) const;
    virtual OdRxClass* isA() const;
    virtual void addRef() = 0;
    virtual void release() = 0;
    virtual long numRefs() const = 0;
    virtual OdRxObjectPtr clone() const;             // raises eNotApplicable where not overridden
    virtual void copyFrom(const OdRxObject* other);  // likewise
    virtual OdRx::Ordering comparedTo(const OdRxObject* other) const;
    virtual bool isEqualTo(const OdRxObject* other) const;

    bool isKindOf(const OdRxClass* expected) const { return isA()->isDerivedFrom(expected); }

    static OdRxClass* desc();
    static OdRxObjectPtr cast(const OdRxObject* object);

  protected:
    OdRxObject() = default;
    OdRxObject(const OdRxObject&) = default;
    OdRxObject& operator=(const OdRxObject&) = default;
};

#include "platform/drawing/SmartPtr.h"

// desc(), cast() (null for null and for other classes) and isA() of a class.
#define ODRX_DECLARE_MEMBERS(Class)                          \
  public:                                                    \
    static OdRxClass* desc();                                \
    static OdSmartPtr<Class> cast(const OdRxObject* object); \
    OdRxClass* isA() const override

#define ODRX_DEFINE_CLASS(Class, Base, creator)                                         \
    OdRxClass* Class::desc() {                                                          \
        static OdRxClass descriptor(u"" #Class, Base::desc(), creator);                 \
        return &descriptor;                                                             \
    }                                                                                   \
    OdSmartPtr<Class> Class::cast(const OdRxObject* object) {                           \
        if (!object || !object->isKindOf(desc())) return OdSmartPtr<Class>();           \
        return OdSmartPtr<Class>(static_cast<Class*>(const_cast<OdRxObject*>(object))); \
    }                                                                                   \
    OdRxClass* Class::isA() const { return desc(); }

// In one .cpp file: a class that cannot be made through its descriptor.
#define ODRX_NO_CONS_DEFINE_MEMBERS(Class, Base) ODRX_DEFINE_CLASS(Class, Base, nullptr)

// In one .cpp file: a class with `static OdSmartPtr<Class> createObject()`, defined here too.
#define ODRX_CONS_DEFINE_MEMBERS(Class, Base)                                    \
    ODRX_DEFINE_CLASS(Class, Base, [] { return OdRxObjectPtr(createObject()); }) \
    OdSmartPtr<Class> Class::createObject() { return OdSmartPtr<Class>(new Class); }

// Counts references and deletes the object with the last one.
template <class T>
class OdRxObjectImpl : public T {
  public:
    using T::T;
    void addRef() override { ++references; }
    void release() override {
        if (--references == 0) delete this;
    }
    long numRefs() const override { return references; }

  private:
    long references = 0;
};
