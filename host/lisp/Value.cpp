// Counting, comparing and freeing of values.
#include "host/lisp/Value.h"

#include <utility>

namespace lisp {
namespace {

template <class T>
void FreeCounted(T* node) {
    Heap* heap = node->heap;
    const std::size_t size = SizeOf(*node);
    delete node;
    if (heap) heap->Give(size);
}

void FreeLeaf(Kind kind, Node* node) {
    switch (kind) {
        case Kind::Symbol:
            return FreeCounted(static_cast<SymbolNode*>(node));
        case Kind::String:
            return FreeCounted(static_cast<TextNode*>(node));
        case Kind::Native:
            delete static_cast<NativeNode*>(node);
            return;
        case Kind::Special:
            delete static_cast<SpecialNode*>(node);
            return;
        default:
            return;
    }
}

}  // namespace

Value::Value(Kind kind, Node* node) : kind_(kind), bits_(reinterpret_cast<std::uintptr_t>(node)) {}

Value::Value(const Value& other) noexcept : kind_(other.kind_), bits_(other.bits_) {
    if (IsCounted()) ++node()->references;
}

Value::Value(Value&& other) noexcept
    : kind_(std::exchange(other.kind_, Kind::Nil)), bits_(other.bits_) {}

Value& Value::operator=(Value other) noexcept {
    std::swap(kind_, other.kind_);
    std::swap(bits_, other.bits_);
    return *this;
}

Value Value::Integer(std::int32_t number) {
    Value value;
    value.kind_ = Kind::Integer;
    value.bits_ = static_cast<std::uint32_t>(number);
    return value;
}

Value Value::Real(double number) {
    Value value;
    value.kind_ = Kind::Real;
    value.bits_ = std::bit_cast<std::uint64_t>(number);
    return value;
}

Value Value::String(std::u16string_view text) {
    auto node = std::make_unique<TextNode>();
    node->text = text;
    return Value(Kind::String, node.release());
}

Value Value::Cons(Value head, Value tail) {
    auto node = std::make_unique<PairNode>();
    node->head = std::move(head);
    node->tail = std::move(tail);
    return Value(Kind::List, node.release());
}

Value Value::List(std::span<const Value> items) {
    Value list;
    for (std::size_t i = items.size(); i-- > 0;) list = Cons(items[i], std::move(list));
    return list;
}

const std::u16string& Value::AsString() const { return static_cast<TextNode*>(node())->text; }
const std::u16string& Value::SymbolName() const { return static_cast<SymbolNode*>(node())->name; }
const Value& Value::Head() const { return static_cast<PairNode*>(node())->head; }
const Value& Value::Tail() const { return static_cast<PairNode*>(node())->tail; }

bool Value::Same(const Value& other) const {
    if (kind_ != other.kind_) return false;
    if (kind_ == Kind::Real) return AsReal() == other.AsReal();
    return IsNil() || bits_ == other.bits_;
}

PairNode* Value::Release() {
    const Kind kind = std::exchange(kind_, Kind::Nil);
    if (kind < Kind::Symbol || --node()->references > 0) return nullptr;
    if (kind == Kind::List || kind == Kind::Function) return static_cast<PairNode*>(node());
    FreeLeaf(kind, node());
    return nullptr;
}

void Value::Reset() {
    if (PairNode* pair = Release()) FreePairs(pair);
}

void Value::FreePairs(PairNode* dead) {
    dead->next = nullptr;
    while (dead) {
        PairNode* pair = dead;
        dead = static_cast<PairNode*>(pair->next);
        for (Value* part : {&pair->head, &pair->tail}) {
            if (PairNode* orphan = part->Release()) {
                orphan->next = dead;
                dead = orphan;
            }
        }
        FreeCounted(pair);
    }
}

}  // namespace lisp
