// TQStringList: strings in the order of their insertion.
#pragma once

#include <list>
#include <memory>
#include <vector>

#include "platform/text/CStringList.h"
#include "translator/cad/TQString.h"

// A doubly linked list: push_back appends, insert puts in before a position, clear empties.
class TQStringList : public std::list<TQString> {
  public:
    TQStringList() = default;
    explicit TQStringList(const CStringList* list);  // null gives an empty list
    explicit TQStringList(const std::vector<TQString>& texts);

    // Copies; an empty string where the list has no such element.
    TQString at(size_t index) const;
    TQString Front() const;

    std::unique_ptr<CStringList> ToCStringList() const;
};
