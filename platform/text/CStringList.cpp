// CStringList: nodes that know the one behind them.
#include "platform/text/CStringList.h"

POSITION CStringList::AddTail(const CString& value) {
    CStringListNode* last = nodes.empty() ? nullptr : &nodes.back();
    nodes.push_back({value, nullptr});
    if (last) last->next = &nodes.back();
    return &nodes.back();
}

const CString& CStringList::GetNext(POSITION& position) const {
    const CString& value = position->value;
    position = position->next;
    return value;
}
