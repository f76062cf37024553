// Values of the dialect: nil, integers, reals, symbols, strings, lists and functions.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/lisp/Heap.h"

namespace lisp {

class Interpreter;
class Value;
struct PairNode;

// A function written in C++: gets its evaluated arguments, gives the value of the call. What it
// throws leaves Interpreter::Evaluate as it is.
using NativeFunction = std::function<Value(Interpreter&, std::span<const Value>)>;

enum class Kind : std::uint8_t {
    Nil,
    Integer,
    Real,
    Symbol,
    String,
    List,
    Function,  // defined by a program
    Native,
    Special,  // a form of the language
};

// Copied at the price of a counter. Values never change once made and a list is made after its
// parts, so no value can hold itself and counting is enough to free all of them; a list is freed
// without recursion, however deep it is. Counters are not atomic: a value stays on the thread of
// its interpreter. It may outlive the interpreter.
class Value {
  public:
    Value() = default;  // nil
    Value(const Value& other) noexcept;
    Value(Value&& other) noexcept;
    Value& operator=(Value other) noexcept;
    ~Value() { Reset(); }

    // Values made by the host. Those that a program makes come from the interpreter, which counts
    // their memory.
    static Value Integer(std::int32_t number);
    static Value Real(double number);
    static Value String(std::u16string_view text);
    static Value Cons(Value head, Value tail);
    static Value List(std::span<const Value> items);

    Kind kind() const { return kind_; }
    bool Is(Kind kind) const { return kind_ == kind; }
    bool IsNil() const { return kind_ == Kind::Nil; }
    bool IsNumber() const { return kind_ == Kind::Integer || kind_ == Kind::Real; }

    // Each of these is asked only of the kind it names; AsReal of both kinds of number.
    std::int32_t AsInteger() const { return static_cast<std::int32_t>(bits_); }
    double AsReal() const {
        return kind_ == Kind::Integer ? AsInteger() : std::bit_cast<double>(bits_);
    }
    const std::u16string& AsString() const;
    const std::u16string& SymbolName() const;
    const Value& Head() const;  // of a list; of a function its parameter list
    const Value& Tail() const;  // of a list; of a function its body

    // The same object: equal numbers of one kind, or one and the same symbol, string or list.
    bool Same(const Value& other) const;

  private:
    friend class Interpreter;

    Value(Kind kind, Node* node);  // takes over one count
    Node* node() const { return reinterpret_cast<Node*>(bits_); }
    bool IsCounted() const { return kind_ >= Kind::Symbol; }
    void Reset();
    PairNode* Release();  // becomes nil; gives the pair that nobody holds any more
    static void FreePairs(PairNode* dead);

    Kind kind_ = Kind::Nil;
    std::uint64_t bits_ = 0;  // of the integer, the real or the node's address
};

using Values = std::vector<Value, CountingAllocator<Value>>;
inline Values NoValues(Heap& heap) { return Values(CountingAllocator<Value>(heap)); }

struct PairNode : Node {
    Value head, tail;
};

struct TextNode : Node {
    std::u16string text;
};

struct SymbolNode : Node {
    std::u16string name;
    std::size_t slot = 0;  // where the interpreter that made the symbol keeps its value
};

struct NativeNode : Node {
    std::u16string name;
    std::size_t least = 0, most = 0;  // number of arguments
    NativeFunction function;
};

// The function of a form gets the list of its arguments as they are written.
struct SpecialNode : Node {
    std::u16string name;
    Value (*function)(Interpreter&, const Value&) = nullptr;
};

// What a node counts for in its heap.
inline std::size_t SizeOf(const PairNode& node) { return sizeof node; }
inline std::size_t SizeOf(const TextNode& node) { return sizeof node + 2 * node.text.size(); }
inline std::size_t SizeOf(const SymbolNode& node) { return sizeof node + 2 * node.name.size(); }

}  // namespace lisp
