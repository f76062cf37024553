// LISP values as chains, and what happens when an expression fails.
#include "host/LispEngine.h"
#include "tests/host/Support.h"

namespace {

std::string Spelled(const CMxValueNode* chain) {
    std::string text;
    for (; chain; chain = chain->next) {
        switch (chain->type) {
            case kLispString:
                text += '"' + OdString(chain->value.string).narrowText() + '"';
                break;
            case kLispSymbol:
                text += OdString(chain->value.string).narrowText();
                break;
            case kLispInteger:
                text += std::to_string(chain->value.integer);
                break;
            case kLispReal:
                text += std::to_string(chain->value.real).substr(0, 3);
                break;
            case kLispListBegin:
                text += '(';
                break;
            case kLispListEnd:
                text += ')';
                break;
            case kLispNil:
                text += "nil";
                break;
            case kLispTrue:
                text += "T";
                break;
            default:
                text += '?';
        }
        text += ' ';
    }
    return text;
}

TEST(LispEngine, ValuesAreChains) {
    host::LispEngine engine({});
    const struct {
        const char16_t* expression;
        const char* chain;
    } cases[] = {{u"\"text\"", "\"text\" "},
                 {u"(list \"a\" 1 \"b\" 2.5 nil T 'sym)", "\"a\" 1 \"b\" 2.5 nil T SYM "},
                 {u"'(1 (\"x\" (2)) 3)", "1 ( \"x\" ( 2 ) ) 3 "},
                 {u"'(1 . 2)", "1 2 "},
                 {u"'((1 . 2) 3)", "( 1 2 ) 3 "},
                 {u"nil", ""},
                 {u"car", "? "}};
    for (const auto& c : cases) {
        CMxValueNode* chain = nullptr;
        EXPECT_EQ(engine.EvaluateLisp(c.expression, &chain), kLispNormal);
        EXPECT_EQ(Spelled(chain), c.chain);
        engine.ReleaseValueChain(chain);
    }
}

TEST(LispEngine, UnsetVariableHasNoValue) {
    host::LispEngine engine({});
    CMxValueNode* chain = nullptr;
    EXPECT_EQ(engine.GetLispVariable(u"unset", &chain), kLispError);
    EXPECT_EQ(chain, nullptr);
    engine.ReleaseValueChain(nullptr);
}

TEST(LispEngine, ChainsThatNeverComeBackEndWithTheEngine) {
    host::LispEngine engine({});
    engine.Interpreter().Evaluate(u"(setq v '(\"a\" \"b\"))");
    CMxValueNode* first = nullptr;
    CMxValueNode* second = nullptr;
    engine.GetLispVariable(u"v", &first);
    engine.GetLispVariable(u"v", &second);
    engine.ReleaseValueChain(second);
    EXPECT_EQ(Spelled(first), "\"a\" \"b\" ");
}

TEST(LispEngine, FailuresAreMessages) {
    std::u16string printed;
    host::LispEngine engine([&](std::u16string_view text) { printed += text; });
    engine.Interpreter().Define(u"raise", [](lisp::Interpreter&, auto) -> lisp::Value {
        throw OdError(u"drawing is gone");
    });
    for (const char16_t* expression : {u"(/ 1 0)", u"(", u"(raise)", u"(undefined-function 1)"}) {
        printed.clear();
        CMxValueNode* chain = nullptr;
        EXPECT_EQ(engine.EvaluateLisp(expression, &chain), kLispError);
        EXPECT_EQ(chain, nullptr);
        EXPECT_EQ(printed.substr(0, 2), u"; ") << OdString(expression).narrowText();
        EXPECT_EQ(printed.back(), u'\n');
    }
    engine.PrintText(u"shown");
    EXPECT_EQ(printed.substr(printed.size() - 5), u"shown");
}

TEST(LispEngine, ListNestedAMillionDeepBecomesAChain) {
    host::LispEngine engine({});
    lisp::Value deep = lisp::Value::Integer(1);
    for (int i = 0; i < 1000000; ++i) deep = lisp::Value::Cons(deep, {});
    engine.Interpreter().Set(u"deep", deep);
    CMxValueNode* chain = nullptr;
    EXPECT_EQ(engine.GetLispVariable(u"deep", &chain), kLispNormal);
    size_t length = 0;
    for (const CMxValueNode* node = chain; node; node = node->next) ++length;
    EXPECT_EQ(length, 2 * 999999u + 1);
}

}  // namespace
