// The LISP interface of scripted documents.
#include "platform/text/Conversion.h"
#include "tests/support/ScriptedServices.h"

int ScriptedLisp::EvaluateLisp(const char16_t* expression, CMxValueNode** result) {
    evaluated.push_back(text::NarrowFromWide(expression));
    if (result) *result = nullptr;
    return kLispNormal;
}

int ScriptedLisp::GetLispVariable(const char16_t* name, CMxValueNode** result) {
    const std::string narrow = text::NarrowFromWide(name);
    asked.push_back(narrow);
    *result = nullptr;
    std::vector<CMxValueNode> nodes;
    if (const auto raw = rawVariables.find(narrow); raw != rawVariables.end()) nodes = raw->second;
    if (const auto list = variables.find(narrow); list != variables.end()) {
        for (const std::u16string& text : list->second) {
            CMxValueNode& node = nodes.emplace_back();
            node.type = kLispString;
            node.value.string = text.c_str();
        }
    }
    if (nodes.empty()) return kLispError;
    std::vector<CMxValueNode>& chain = chains.emplace_back(std::move(nodes));
    for (size_t i = 1; i < chain.size(); ++i) chain[i - 1].next = &chain[i];
    *result = chain.data();
    return kLispNormal;
}

void ScriptedLisp::ReleaseValueChain(CMxValueNode*) { ++released; }

void ScriptedLisp::PrintText(const char16_t* text) {
    printed.push_back(text::NarrowFromWide(text));
}
