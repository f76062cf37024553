// Evaluation: symbols, calls, bindings, and what keeps a program from ending the process.
#include "host/lisp/Interpreter.h"

#include <algorithm>
#include <new>

#include "host/lisp/Builtins.h"
#include "host/lisp/LetterCase.h"
#include "host/lisp/Printer.h"
#include "host/lisp/Reader.h"
#include "host/lisp/Stack.h"

namespace lisp {
namespace {

// Takes over the object, counted in the heap.
template <class T>
T* Counted(std::unique_ptr<T> node, Heap& heap) {
    heap.Take(SizeOf(*node));
    node->heap = &heap;
    return node.release();
}

[[noreturn]] void FailNumberOfArguments(const Value& name, bool few) {
    throw Error((few ? u"too few arguments for " : u"too many arguments for ") + Excerpt(name));
}

}  // namespace

Interpreter::Interpreter(std::size_t memoryLimit) : heap_(new Heap(memoryLimit)) {
    true_ = Intern(u"T");
    slots_[SlotOf(true_)].value = true_;
    DefineBuiltins(*this);
}

Interpreter::~Interpreter() {
    slots_.clear();
    true_ = Value();
    heap_->Abandon();
}

Value Interpreter::Evaluate(std::u16string_view source) {
    struct Running {
        bool& flag;
        const bool outer = flag;
        ~Running() { flag = outer; }
    } running{running_};
    if (!running_) {
        interrupted_ = false;
        lowestFrame_ = LowestUsableFrame();
        running_ = true;
    }
    try {
        Value value;
        for (const Value& form : ReadAll(source)) value = Eval(form);
        return value;
    } catch (const std::bad_alloc&) {
        throw Error(u"out of memory");
    }
}

Values Interpreter::ReadAll(std::u16string_view source) {
    const Heap::Lifted lifted(*heap_);
    Values forms = NoValues(*heap_);
    Reader reader(*this, source);
    while (auto form = reader.Next()) forms.push_back(*form);
    return forms;
}

Value Interpreter::Get(std::u16string_view name) const {
    const auto found = slotOfName_.find(UpperCase(name));
    return found == slotOfName_.end() ? Value() : slots_[found->second].value;
}

void Interpreter::Set(std::u16string_view name, Value value) {
    Assign(Intern(UpperCase(name)), std::move(value));
}

void Interpreter::Define(std::u16string_view name, NativeFunction function,
                         std::size_t leastArguments, std::size_t mostArguments) {
    auto node = std::make_unique<NativeNode>();
    node->name = UpperCase(name);
    node->least = leastArguments;
    node->most = mostArguments;
    node->function = std::move(function);
    Set(name, Value(Kind::Native, node.release()));
}

void Interpreter::DefineSpecial(std::u16string_view name,
                                Value (*function)(Interpreter&, const Value&)) {
    auto node = std::make_unique<SpecialNode>();
    node->name = UpperCase(name);
    node->function = function;
    Set(name, Value(Kind::Special, node.release()));
}

void Interpreter::SetWatch(std::function<void()> watch) { watch_ = std::move(watch); }

std::vector<std::u16string> Interpreter::Names() const {
    std::vector<std::u16string> names;
    for (const Slot& slot : slots_) {
        if (!slot.value.IsNil()) names.push_back(slot.symbol.SymbolName());
    }
    return names;
}

void Interpreter::SetOutput(std::function<void(std::u16string_view)> sink) {
    output_ = std::move(sink);
}

void Interpreter::Write(std::u16string_view text) {
    if (output_) output_(text);
}

std::u16string Interpreter::Print(const Value& value) const {
    std::u16string text;
    if (!AppendPrinted(text, value, Quoting::Readable, heap_->Limit() / sizeof(char16_t)))
        throw Error(u"the text of the value is too long: " + Excerpt(value));
    return text;
}

Value Interpreter::Read(std::u16string_view source) {
    return Reader(*this, source).Next().value_or(Value());
}

Value Interpreter::Cons(Value head, Value tail) {
    auto node = std::make_unique<PairNode>();
    node->head = std::move(head);
    node->tail = std::move(tail);
    return Value(Kind::List, Counted(std::move(node), *heap_));
}

Value Interpreter::List(std::span<const Value> items, Value tail) {
    for (std::size_t i = items.size(); i-- > 0;) tail = Cons(items[i], std::move(tail));
    return tail;
}

Value Interpreter::Function(Value parameters, Value body) {
    Value function = Cons(std::move(parameters), std::move(body));
    function.kind_ = Kind::Function;
    return function;
}

Value Interpreter::String(std::u16string_view text) {
    heap_->CheckRoom(2 * text.size());
    auto node = std::make_unique<TextNode>();
    node->text = text;
    return Value(Kind::String, Counted(std::move(node), *heap_));
}

Value Interpreter::Intern(std::u16string_view name) {
    const auto found = slotOfName_.find(std::u16string(name));
    if (found != slotOfName_.end()) return slots_[found->second].symbol;
    auto node = std::make_unique<SymbolNode>();
    node->name = name;
    node->slot = slots_.size();
    slots_.push_back({Value(Kind::Symbol, Counted(std::move(node), *heap_)), {}});
    slotOfName_.emplace(name, slots_.size() - 1);
    return slots_.back().symbol;
}

std::size_t Interpreter::SlotOf(const Value& symbol) {
    const std::size_t slot = static_cast<SymbolNode*>(symbol.node())->slot;
    if (slot < slots_.size() && slots_[slot].symbol.Same(symbol)) return slot;
    // A symbol of another interpreter, in a value that the host carried over.
    Intern(symbol.SymbolName());
    return slotOfName_.at(symbol.SymbolName());
}

Value Interpreter::ValueOf(const Value& symbol) { return slots_[SlotOf(symbol)].value; }

void Interpreter::Assign(const Value& symbol, Value value) {
    if (!symbol.Is(Kind::Symbol) || symbol.Same(true_))
        throw Error(u"cannot be assigned to: " + Excerpt(symbol));
    // The old value is freed last: it may hold the only other reference to the symbol's form.
    std::swap(slots_[SlotOf(symbol)].value, value);
}

void Interpreter::CheckInterrupt() const {
    constexpr unsigned kStepsBetweenLooks = 4096;
    if (++steps_ % kStepsBetweenLooks == 0 && watch_) watch_();
    if (interrupted_.load(std::memory_order_relaxed)) throw Error(u"interrupted");
}

void Interpreter::CheckStack() const {
    if (reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < lowestFrame_)
        throw Error(u"stack overflow: the recursion is too deep");
}

Value Interpreter::Eval(const Value& form) {
    if (form.Is(Kind::Symbol)) return ValueOf(form);
    if (!form.Is(Kind::List)) return form;
    CheckInterrupt();
    CheckStack();
    return EvalCall(form);
}

Value Interpreter::EvalBody(const Value& forms) {
    Value value;
    const Value* rest = &forms;
    for (; rest->Is(Kind::List); rest = &rest->Tail()) value = Eval(rest->Head());
    if (!rest->IsNil()) throw Error(u"dotted list in place of expressions: " + Excerpt(forms));
    return value;
}

Value Interpreter::EvalCall(const Value& form) {
    const Value& name = form.Head();
    const Value function = name.Is(Kind::Symbol) || name.Is(Kind::List) ? Eval(name) : Value();
    if (function.Is(Kind::Special))
        return static_cast<SpecialNode*>(function.node())->function(*this, form.Tail());
    if (function.IsNil()) throw Error(u"no function definition: " + Excerpt(name));
    const Values arguments = EvalArguments(form.Tail());
    return Call(name, function, arguments);
}

Values Interpreter::EvalArguments(const Value& forms) {
    Values values = NoValues(*heap_);
    const Value* rest = &forms;
    for (; rest->Is(Kind::List); rest = &rest->Tail()) values.push_back(Eval(rest->Head()));
    if (!rest->IsNil()) throw Error(u"dotted list in place of arguments: " + Excerpt(forms));
    return values;
}

Value Interpreter::Apply(const Value& function, std::span<const Value> arguments) {
    CheckInterrupt();
    CheckStack();
    return Call(function, function.Is(Kind::Symbol) ? ValueOf(function) : function, arguments);
}

Value Interpreter::Call(const Value& name, const Value& function,
                        std::span<const Value> arguments) {
    if (function.Is(Kind::Native)) {
        const auto& native = static_cast<const NativeNode&>(*function.node());
        if (arguments.size() < native.least) FailNumberOfArguments(name, true);
        if (arguments.size() > native.most) FailNumberOfArguments(name, false);
        return native.function(*this, arguments);
    }
    if (function.Is(Kind::Function))
        return CallUser(name, function.Head(), function.Tail(), arguments);
    if (function.Is(Kind::List) && function.Head().Is(Kind::Symbol) &&
        function.Head().SymbolName() == u"LAMBDA" && function.Tail().Is(Kind::List))
        return CallUser(name, function.Tail().Head(), function.Tail().Tail(), arguments);
    if (function.IsNil() && name.Is(Kind::Symbol))
        throw Error(u"no function definition: " + Excerpt(name));
    throw Error(u"not a function: " + Excerpt(function.Is(Kind::Special) ? name : function));
}

Value Interpreter::CallUser(const Value& name, const Value& parameters, const Value& body,
                            std::span<const Value> arguments) {
    Bindings bindings(*this);
    bool locals = false;
    const Value* rest = &parameters;
    for (; rest->Is(Kind::List); rest = &rest->Tail()) {
        const Value& parameter = rest->Head();
        if (parameter.Is(Kind::Symbol) && parameter.SymbolName() == u"/") {
            locals = true;
        } else if (locals) {
            bindings.Bind(parameter, {});
        } else {
            if (arguments.empty()) FailNumberOfArguments(name, true);
            bindings.Bind(parameter, arguments.front());
            arguments = arguments.subspan(1);
        }
    }
    if (!rest->IsNil()) throw Error(u"malformed parameter list: " + Excerpt(parameters));
    if (!arguments.empty()) FailNumberOfArguments(name, false);
    return EvalBody(body);
}

Bindings::Bindings(Interpreter& interpreter)
    : interpreter_(interpreter), saved_(CountingAllocator<Saved>(interpreter.heap())) {}

Bindings::~Bindings() {
    for (auto saved = saved_.rbegin(); saved != saved_.rend(); ++saved)
        std::swap(interpreter_.slots_[saved->first].value, saved->second);
}

void Bindings::Bind(const Value& symbol, Value value) {
    if (!symbol.Is(Kind::Symbol) || symbol.Same(interpreter_.True()))
        throw Error(u"cannot be bound: " + Excerpt(symbol));
    const std::size_t slot = interpreter_.SlotOf(symbol);
    saved_.emplace_back(slot, value);
    std::swap(interpreter_.slots_[slot].value, saved_.back().second);
}

}  // namespace lisp
