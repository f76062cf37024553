// LISP values as chains of nodes.
#include "host/LispEngine.h"

#include <deque>
#include <string>
#include <vector>

#include "platform/drawing/OdError.h"
#include "platform/text/Conversion.h"

namespace host {

struct LispEngine::Chain {
    std::deque<CMxValueNode> nodes;  // addresses stay the same as it grows
    std::deque<std::u16string> texts;

    void Add(const lisp::Value& value);
    CMxValueNode& Node(int16_t type);

  private:
    void AddAtom(const lisp::Value& value);
    void AddText(int16_t type, const std::u16string& text);
};

CMxValueNode& LispEngine::Chain::Node(int16_t type) {
    CMxValueNode& node = nodes.emplace_back();
    if (nodes.size() > 1) nodes[nodes.size() - 2].next = &node;
    node.type = type;
    return node;
}

void LispEngine::Chain::AddText(int16_t type, const std::u16string& text) {
    Node(type).value.string = texts.emplace_back(text).c_str();
}

void LispEngine::Chain::AddAtom(const lisp::Value& value) {
    switch (value.kind()) {
        case lisp::Kind::Nil:
            Node(kLispNil);
            break;
        case lisp::Kind::Integer:
            Node(kLispInteger).value.integer = value.AsInteger();
            break;
        case lisp::Kind::Real:
            Node(kLispReal).value.real = value.AsReal();
            break;
        case lisp::Kind::String:
            AddText(kLispString, value.AsString());
            break;
        case lisp::Kind::Symbol:
            if (value.SymbolName() == u"T")
                Node(kLispTrue);
            else
                AddText(kLispSymbol, value.SymbolName());
            break;
        default:
            Node(kLispOther);
    }
}

// Lists may be nested a million deep: what is left of the outer ones waits on a stack of its own.
void LispEngine::Chain::Add(const lisp::Value& value) {
    if (!value.Is(lisp::Kind::List)) {
        if (!value.IsNil()) AddAtom(value);
        return;
    }
    std::vector<lisp::Value> rest{value};
    while (!rest.empty()) {
        const lisp::Value list = rest.back();
        if (!list.Is(lisp::Kind::List)) {
            if (!list.IsNil()) AddAtom(list);  // the end of a dotted pair
            rest.pop_back();
            if (!rest.empty()) Node(kLispListEnd);
            continue;
        }
        rest.back() = list.Tail();
        if (list.Head().Is(lisp::Kind::List)) {
            Node(kLispListBegin);
            rest.push_back(list.Head());
        } else {
            AddAtom(list.Head());
        }
    }
}

LispEngine::LispEngine(TextSink print) : print(std::move(print)) {
    interpreter.SetOutput([this](std::u16string_view text) {
        if (this->print) this->print(text);
    });
}

LispEngine::~LispEngine() = default;

int LispEngine::EvaluateLisp(const char16_t* expression, CMxValueNode** result) {
    if (result) *result = nullptr;
    std::u16string failure;
    try {
        const lisp::Value value = interpreter.Evaluate(expression ? expression : u"");
        if (result) {
            auto chain = std::make_unique<Chain>();
            chain->Add(value);
            *result = Keep(std::move(chain));
        }
        return kLispNormal;
    } catch (const OdError& error) {
        failure = error.description().text();
    } catch (const std::exception& error) {
        failure = text::WideFromNarrow(error.what());
    }
    PrintText((u"; " + failure + u"\n").c_str());
    return kLispError;
}

int LispEngine::GetLispVariable(const char16_t* name, CMxValueNode** result) {
    *result = nullptr;
    const lisp::Value value = interpreter.Get(name ? name : u"");
    if (value.IsNil()) return kLispError;
    auto chain = std::make_unique<Chain>();
    chain->Add(value);
    *result = Keep(std::move(chain));
    return kLispNormal;
}

CMxValueNode* LispEngine::Keep(std::unique_ptr<Chain> chain) {
    if (chain->nodes.empty()) return nullptr;
    CMxValueNode* first = &chain->nodes.front();
    chains.emplace(first, std::move(chain));
    return first;
}

void LispEngine::ReleaseValueChain(CMxValueNode* chain) { chains.erase(chain); }

void LispEngine::PrintText(const char16_t* text) {
    if (print && text) print(text);
}

}  // namespace host
