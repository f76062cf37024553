// TQStringList: from and to the platform's list, and reading by number.
#include "translator/cad/TQStringList.h"

#include <iterator>

TQStringList::TQStringList(const CStringList* list) {
    if (!list) return;
    for (POSITION position = list->GetHeadPosition(); position;) {
        push_back(list->GetNext(position));
    }
}

TQStringList::TQStringList(const std::vector<TQString>& texts)
    : std::list<TQString>(texts.begin(), texts.end()) {}

TQString TQStringList::at(size_t index) const {
    return index < size() ? *std::next(begin(), index) : TQString();
}

TQString TQStringList::Front() const { return at(0); }

std::unique_ptr<CStringList> TQStringList::ToCStringList() const {
    auto list = std::make_unique<CStringList>(10);
    for (const TQString& text : *this) list->AddTail(text);
    return list;
}
