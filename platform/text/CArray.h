// CArray: a growing array with the member names of MFC.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

// The invalid-argument failure of the framework.
class CInvalidArgException : public std::out_of_range {
  public:
    using std::out_of_range::out_of_range;
};

// An index outside the array throws CInvalidArgException. Elements that are pointers are not owned.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
  public:
    int GetSize() const { return static_cast<int>(elements.size()); }
    int GetCount() const { return GetSize(); }
    bool IsEmpty() const { return elements.empty(); }

    const TYPE& GetAt(int index) const { return elements[Checked(index)]; }
    void SetAt(int index, ARG_TYPE value) { elements[Checked(index)] = value; }
    TYPE& operator[](int index) { return elements[Checked(index)]; }
    const TYPE& operator[](int index) const { return elements[Checked(index)]; }

    // The index of the new element.
    int Add(ARG_TYPE value) {
        elements.push_back(value);
        return GetSize() - 1;
    }
    void RemoveAt(int index) { elements.erase(elements.begin() + Checked(index)); }
    void SetSize(int size) { elements.resize(static_cast<size_t>(size)); }
    void RemoveAll() { elements.clear(); }

  private:
    int Checked(int index) const {
        if (index < 0 || index >= GetSize())
            throw CInvalidArgException("index " + std::to_string(index) + " in an array of " +
                                       std::to_string(GetSize()) + " elements");
        return index;
    }

    std::vector<TYPE> elements;
};
