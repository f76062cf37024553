// The LISP interface of a document and the chain of nodes in which it hands out values.
#pragma once

#include <cstdint>

// Status numbers of the LISP interface.
inline constexpr int kLispNormal = 5100;      // normal result
inline constexpr int kLispError = -5001;      // the expression failed; the reason has been printed
inline constexpr int kLispCancelled = -5002;  // the user cancelled

// Type codes of the nodes of a value chain.
inline constexpr int16_t kLispReal = 5001;       // value.real
inline constexpr int16_t kLispInteger = 5003;    // value.integer
inline constexpr int16_t kLispString = 5005;     // value.string
inline constexpr int16_t kLispListBegin = 5016;  // no value
inline constexpr int16_t kLispListEnd = 5017;    // no value
inline constexpr int16_t kLispNil = 5019;        // no value: nil inside a list
inline constexpr int16_t kLispTrue = 5021;       // no value
inline constexpr int16_t kLispSymbol = 5022;     // value.string holds its name
inline constexpr int16_t kLispOther = 5000;      // no value: a function or the like

// One node of a value chain. The chain and its strings belong to the engine that gave it.
struct CMxValueNode {
    union Value {
        const char16_t* string;  // terminated
        double real;
        int32_t integer;
    };

    CMxValueNode* next = nullptr;
    int16_t type = kLispOther;
    Value value{};
};

// The LISP interpreter of one document. For the main thread only.
class CMxLispEngine {
  public:
    // Runs one expression at once and to its end, also when it opens a selection of its own.
    // result may be null; otherwise it receives the value's chain, null for nil and after an error.
    // Gives kLispNormal or kLispError; never throws for what the expression does.
    virtual int EvaluateLisp(const char16_t* expression, CMxValueNode** result) = 0;

    // kLispNormal and the chain of the variable's value, or kLispError and null when it is not set.
    // A string is one node; the elements of a list follow each other without outer markers.
    virtual int GetLispVariable(const char16_t* name, CMxValueNode** result) = 0;

    // Gives a chain back. Null is allowed. A chain that never comes back lives as long as the
    // engine.
    virtual void ReleaseValueChain(CMxValueNode* chain) = 0;

    // Shows the text on the host's command line, without adding a line end.
    virtual void PrintText(const char16_t* text) = 0;

    virtual ~CMxLispEngine() = default;
};
