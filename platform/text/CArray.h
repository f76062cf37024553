// CArray: a growing array with the member names of MFC.
#pragma once

#include <vector>

// An index outside the array throws std::out_of_range. Elements that are pointers are not owned.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
  public:
    int GetSize() const { return static_cast<int>(elements.size()); }
    int GetCount() const { return GetSize(); }
    bool IsEmpty() const { return elements.empty(); }

    const TYPE& GetAt(int index) const { return elements.at(index); }
    void SetAt(int index, ARG_TYPE value) { elements.at(index) = value; }
    TYPE& operator[](int index) { return elements.at(index); }
    const TYPE& operator[](int index) const { return elements.at(index); }

    // The index of the new element.
    int Add(ARG_TYPE value) {
        elements.push_back(value);
        return GetSize() - 1;
    }
    void RemoveAt(int index) {
        elements.at(index);
        elements.erase(elements.begin() + index);
    }
    void RemoveAll() { elements.clear(); }

  private:
    std::vector<TYPE> elements;
};
