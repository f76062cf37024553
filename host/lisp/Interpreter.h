// The interpreter of the CAD dialect of LISP: one namespace, dynamic scope, unbound reads as nil.
#pragma once
#include <atomic>
#include <cstddef>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/lisp/Error.h"
#include "host/lisp/Value.h"

namespace lisp {

inline constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

// Integers have 32 bits and wrap, as in CAD programs; a literal beyond them reads as a real.
// Symbols are upper-cased when read. Whatever a program does ends in a value or in an Error: the
// depth of evaluation is bound by the stack of the calling thread, the memory by a limit, and a
// loop without end by Interrupt.
class Interpreter {
  public:
    explicit Interpreter(std::size_t memoryLimit = std::size_t{512} << 20);
    ~Interpreter();
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    // Reads the whole source before it evaluates any of it, and gives the value of the last
    // expression, nil for an empty source. May be called again from a native function.
    Value Evaluate(std::u16string_view source);

    // The value of a variable or function; nil when it has none. Names in any case.
    Value Get(std::u16string_view name) const;
    void Set(std::u16string_view name, Value value);
    void Define(std::u16string_view name, NativeFunction function, std::size_t leastArguments = 0,
                std::size_t mostArguments = anyNumber);

    // Ends the evaluation that is running with an Error; without one it does nothing. The only
    // operation for other threads; also safe in a signal handler.
    void Interrupt() noexcept { interrupted_.store(true, std::memory_order_relaxed); }

    // Called now and then while a program runs, on its thread: a program with windows lives on in
    // it. It may call Interrupt, and must not throw.
    void SetWatch(std::function<void()> watch);

    // Everything that has a value, in no order.
    std::vector<std::u16string> Names() const;

    // Takes what a program prints. Without a sink the text is dropped.
    void SetOutput(std::function<void(std::u16string_view)> sink);

    // The value as a program would write it, strings in quotes. Raises Error when the text would
    // exceed the memory limit.
    std::u16string Print(const Value& value) const;

    // The rest serves native functions and the forms of the language.
    Value Eval(const Value& form);
    Value EvalBody(const Value& forms);  // the value of the last, nil of none
    Value Apply(const Value& function, std::span<const Value> arguments);
    Value Read(std::u16string_view source);  // the first expression

    Value Cons(Value head, Value tail);
    Value List(std::span<const Value> items, Value tail = {});
    Value String(std::u16string_view text);
    Value Function(Value parameters, Value body);
    Value Intern(std::u16string_view name);  // kept as long as the interpreter
    const Value& True() const { return true_; }
    Value Bool(bool truth) const { return truth ? true_ : Value(); }

    Value ValueOf(const Value& symbol);
    void Assign(const Value& symbol, Value value);  // raises Error unless given a symbol but T
    void Write(std::u16string_view text);
    void DefineSpecial(std::u16string_view name, Value (*function)(Interpreter&, const Value&));

    // Called wherever a program can go on for ever. Raises Error after an Interrupt.
    void CheckInterrupt() const;
    Heap& heap() const { return *heap_; }

  private:
    friend class Bindings;
    struct Slot {
        Value symbol, value;
    };

    std::size_t SlotOf(const Value& symbol);
    Values ReadAll(std::u16string_view source);
    Value EvalCall(const Value& form);
    Values EvalArguments(const Value& forms);
    Value Call(const Value& name, const Value& function, std::span<const Value> arguments);
    Value CallUser(const Value& name, const Value& parameters, const Value& body,
                   std::span<const Value> arguments);
    void CheckStack() const;

    Heap* heap_;  // deletes itself with the last value
    std::unordered_map<std::u16string, std::size_t> slotOfName_;
    std::vector<Slot> slots_;
    Value true_;
    std::function<void(std::u16string_view)> output_;
    std::function<void()> watch_;
    mutable unsigned steps_ = 0;
    std::atomic<bool> interrupted_ = false;
    bool running_ = false;
    std::uintptr_t lowestFrame_ = 0;  // evaluation goes no deeper than this address
};

// Gives symbols other values for the life of this object: parameters, locals, loop variables.
class Bindings {
  public:
    explicit Bindings(Interpreter& interpreter);
    ~Bindings();
    Bindings(const Bindings&) = delete;
    Bindings& operator=(const Bindings&) = delete;
    void Bind(const Value& symbol, Value value);

  private:
    using Saved = std::pair<std::size_t, Value>;

    Interpreter& interpreter_;
    std::vector<Saved, CountingAllocator<Saved>> saved_;
};

}  // namespace lisp
