// Reading and changing the groups of a record.
#include "platform/drawing/GroupList.h"

#include <algorithm>

GroupList::GroupList(dxf::Store& store, dxf::RecordIndex index) : store(store), index(index) {
    auto reader = store.Groups(index);
    dxf::Group group;
    own = xdata = npos;
    while (reader.Next(group)) {
        const size_t place = items.size();
        if (group.code == 101 && own == npos) own = place;
        if (group.code >= 1000 && xdata == npos) xdata = place;
        items.push_back({group, {}, {}, 0});
    }
    xdata = std::min(xdata, items.size());
    own = std::min(own, xdata);
}

size_t GroupList::find(int code, size_t from, size_t to) const {
    bool inControl = false;
    for (size_t i = from; i < std::min(to, own); ++i) {
        if (items[i].group.code == code && !inControl) return i;
        if (items[i].group.code == 102) inControl = items[i].group.value.starts_with('{');
    }
    return npos;
}

double GroupList::number(size_t i) const {
    return items[i].bytes.empty() ? items[i].group.AsDouble() : items[i].number;
}

double GroupList::numberOf(int code, double absent) const {
    const size_t i = find(code);
    return i == npos ? absent : number(i);
}

void GroupList::setNumber(size_t i, double value) {
    if (number(i) == value) return;
    items[i].bytes = newWriter().Double(items[i].group.code, value).Take();
    items[i].number = value;
}

bool GroupList::hasZ(size_t i) const { return i + 2 < items.size() && code(i + 2) == code(i) + 20; }

OdGePoint3d GroupList::point(size_t i) const {
    const bool hasY = i + 1 < items.size() && code(i + 1) == code(i) + 10;
    return {number(i), hasY ? number(i + 1) : 0, hasY && hasZ(i) ? number(i + 2) : 0};
}

void GroupList::setPoint(size_t i, const OdGePoint3d& point) {
    setNumber(i, point.x);
    if (i + 1 >= items.size() || code(i + 1) != code(i) + 10) return;
    setNumber(i + 1, point.y);
    if (hasZ(i)) {
        setNumber(i + 2, point.z);
    } else if (point.z != 0 && i + 2 <= own) {
        const std::string z = newWriter().Double(code(i) + 20, point.z).Take();
        items[i + 1].bytes = newWriter().Double(code(i) + 10, point.y).Take() + z;
        items[i + 1].number = point.y;
    }
}

void GroupList::insertBefore(size_t i, const std::string& groups) { items[i].before += groups; }

void GroupList::apply() {
    const std::string_view old = store.Bytes(index);
    std::string bytes;
    size_t done = 0;
    for (const Item& item : items) {
        if (item.before.empty() && item.bytes.empty()) continue;
        bytes += old.substr(done, item.group.begin - done);
        bytes += item.before;
        bytes += item.bytes.empty()
                     ? old.substr(item.group.begin, item.group.end - item.group.begin)
                     : std::string_view(item.bytes);
        done = item.group.end;
    }
    if (done == 0) return;
    bytes += old.substr(done);
    store.Replace(index, std::move(bytes));
}
