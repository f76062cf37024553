// CStringList: a list of CString that is walked by positions.
#pragma once

#include <deque>

#include "platform/text/CString.h"

struct CStringListNode;
using POSITION = const CStringListNode*;  // null behind the last element

struct CStringListNode {
    CString value;
    POSITION next = nullptr;
};

class CStringList {
  public:
    // The block size tells MFC how much to allocate at once; here the storage decides by itself.
    explicit CStringList(int /*blockSize*/ = 10) {}
    CStringList(const CStringList&) = delete;
    CStringList& operator=(const CStringList&) = delete;

    POSITION AddTail(const CString& value);
    POSITION GetHeadPosition() const { return nodes.empty() ? nullptr : &nodes.front(); }

    // The element at position, which moves to the following one.
    const CString& GetNext(POSITION& position) const;

    int GetCount() const { return static_cast<int>(nodes.size()); }
    bool IsEmpty() const { return nodes.empty(); }
    void RemoveAll() { nodes.clear(); }

  private:
    std::deque<CStringListNode> nodes;  // a deque: positions stay good while the list grows
};
