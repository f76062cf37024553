// CObject: the root of the classes that know their own name and base at run time.
#pragma once

class CArchive;
class CDumpContext;

struct CRuntimeClass {
    const char* m_lpszClassName;
    const CRuntimeClass* m_pBaseClass;  // null for CObject

    bool IsDerivedFrom(const CRuntimeClass* base) const {
        const CRuntimeClass* type = this;
        while (type && type != base) type = type->m_pBaseClass;
        return type;
    }
};

class CObject {
  public:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    static const CRuntimeClass* GetThisClass();
    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;
    virtual void Serialize(CArchive&) {}  // there is no archive that an object could go into
    virtual void AssertValid() const {}
    virtual void Dump(CDumpContext&) const {}
    bool IsKindOf(const CRuntimeClass* type) const {
        return GetRuntimeClass()->IsDerivedFrom(type);
    }
};

#define RUNTIME_CLASS(className) (className::GetThisClass())

#define DECLARE_DYNAMIC(className)              \
  public:                                       \
    static const CRuntimeClass* GetThisClass(); \
    const CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_DYNAMIC(className, baseName)                                 \
    const CRuntimeClass* className::GetThisClass() {                           \
        static const CRuntimeClass type{#className, baseName::GetThisClass()}; \
        return &type;                                                          \
    }                                                                          \
    const CRuntimeClass* className::GetRuntimeClass() const { return GetThisClass(); }
