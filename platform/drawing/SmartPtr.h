// OdSmartPtr: a counted pointer to an OdRxObject.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "platform/drawing/RxObject.h"

// Raises OdError_NotThatKindOfClass.
[[noreturn]] void odrxThrowNotThatKindOfClass(const OdRxObject* object, const OdRxClass* expected);

// Made from, or given, a pointer to another class it checks the class of the object and raises
// OdError_NotThatKindOfClass when it is not a T. Null is always accepted. T::cast gives null
// instead.
template <class T>
class OdSmartPtr {
  public:
    OdSmartPtr() = default;
    OdSmartPtr(std::nullptr_t) {}
    OdSmartPtr(T* object) : object(object) { hold(); }
    OdSmartPtr(const OdSmartPtr& other) : object(other.object) { hold(); }
    OdSmartPtr(OdSmartPtr&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
    template <class U>
    OdSmartPtr(const OdSmartPtr<U>& other) : object(checked(other.get())) {
        hold();
    }
    template <class U, class = std::enable_if_t<std::is_base_of_v<OdRxObject, U> &&
                                                !std::is_base_of_v<T, U>>>
    OdSmartPtr(U* other) : object(checked(other)) {
        hold();
    }
    ~OdSmartPtr() { release(); }

    OdSmartPtr& operator=(const OdSmartPtr& other) {
        OdSmartPtr(other).swap(*this);
        return *this;
    }
    OdSmartPtr& operator=(OdSmartPtr&& other) noexcept {
        OdSmartPtr(std::move(other)).swap(*this);
        return *this;
    }

    T* get() const { return object; }
    T* operator->() const { return object; }
    T& operator*() const { return *object; }
    operator T*() const { return object; }
    bool isNull() const { return !object; }

    void release() {
        if (T* held = std::exchange(object, nullptr)) held->release();
    }
    // Takes over a reference that the caller holds, as one from queryX.
    void attach(T* held) {
        release();
        object = held;
    }
    T* detach() { return std::exchange(object, nullptr); }
    void swap(OdSmartPtr& other) noexcept { std::swap(object, other.object); }

  private:
    template <class U>
    static T* checked(U* other) {
        if constexpr (std::is_base_of_v<T, U>) {
            return other;
        } else {
            if (other && !other->isKindOf(T::desc())) {
                odrxThrowNotThatKindOfClass(other, T::desc());
            }
            return static_cast<T*>(const_cast<OdRxObject*>(static_cast<const OdRxObject*>(other)));
        }
    }
    void hold() {
        if (object) object->addRef();
    }

    T* object = nullptr;
};
