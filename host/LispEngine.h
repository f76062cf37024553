// The LISP interpreter of a document behind the kernel's interface.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "host/lisp/Interpreter.h"
#include "platform/kernel/MxLispEngine.h"

namespace host {

using TextSink = std::function<void(std::u16string_view)>;

class LispEngine : public CMxLispEngine {
  public:
    // print takes what programs print and the messages of failed evaluations.
    explicit LispEngine(TextSink print);
    ~LispEngine() override;

    lisp::Interpreter& Interpreter() { return interpreter; }  // raises lisp::Error by itself

    int EvaluateLisp(const char16_t* expression, CMxValueNode** result) override;
    int GetLispVariable(const char16_t* name, CMxValueNode** result) override;
    void ReleaseValueChain(CMxValueNode* chain) override;
    void PrintText(const char16_t* text) override;

  private:
    struct Chain;
    CMxValueNode* Keep(std::unique_ptr<Chain> chain);  // null for an empty chain

    TextSink print;
    lisp::Interpreter interpreter;
    std::unordered_map<CMxValueNode*, std::unique_ptr<Chain>> chains;  // by their first node
};

}  // namespace host
