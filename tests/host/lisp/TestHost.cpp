// What the host does with an interpreter: values, variables and functions of its own.
#include <limits>
#include <memory>
#include <random>

#include "host/lisp/LetterCase.h"
#include "tests/host/lisp/Support.h"

using namespace lisp::test;
using lisp::Interpreter;
using lisp::Kind;
using lisp::Value;

TEST(LispHost, SetsAndReadsVariablesInAnyCase) {
    Interpreter interpreter;
    EXPECT_TRUE(interpreter.Get(u"*diretorio_rede*").IsNil());
    interpreter.Set(u"*Diretorio_Rede*", Value::String(u"\\\\server\\x"));
    EXPECT_EQ(Result(interpreter, u"*DIRETORIO_REDE*"), "\"\\\\\\\\server\\\\x\"");
    EXPECT_EQ(interpreter.Get(u"*DIRETORIO_REDE*").AsString(), u"\\\\server\\x");
    EXPECT_THROW(interpreter.Set(u"t", Value()), lisp::Error);
    EXPECT_TRUE(interpreter.Get(u"t").Is(Kind::Symbol));
}

TEST(LispHost, DefinesFunctionsThatThrowWhatTheyLike) {
    struct Foreign {};
    Interpreter interpreter;
    interpreter.Define(
        u"soma",
        [](Interpreter&, std::span<const Value> args) {
            return Value::Integer(args[0].AsInteger() + args[1].AsInteger());
        },
        2, 2);
    interpreter.Define(u"falha", [](Interpreter&, auto) -> Value { throw Foreign(); });
    EXPECT_EQ(Result(interpreter, u"(soma 2 3)"), "5");
    EXPECT_EQ(Result(interpreter, u"(soma 2)"), "error: too few arguments for SOMA");
    EXPECT_EQ(Result(interpreter, u"(soma 2 3 4)"), "error: too many arguments for SOMA");
    EXPECT_THROW(interpreter.Evaluate(u"((lambda (x) (falha)) 1)"), Foreign);
    EXPECT_EQ(Result(interpreter, u"x"), "nil");
}

TEST(LispHost, AFunctionMayCallTheInterpreterAndReplaceItself) {
    Interpreter interpreter;
    interpreter.Define(u"outra", [](Interpreter& lisp, std::span<const Value> args) {
        const auto alive = std::make_shared<int>(7);
        lisp.Define(u"outra", [alive](Interpreter&, auto) { return Value::Integer(*alive); });
        return lisp.Apply(args[0], args.subspan(1));
    });
    EXPECT_EQ(Result(interpreter, u"(outra '(lambda (x) (list x (outra))) 1)"), "(1 7)");
}

TEST(LispHost, ValuesOutliveTheirInterpreterAndPassToAnother) {
    Value value;
    {
        Interpreter first;
        value = first.Evaluate(u"(defun f (x) x) (list 'only-here \"text\" f car 'car '(1 . 2))");
    }
    EXPECT_EQ(value.Head().SymbolName(), u"ONLY-HERE");
    Interpreter second;
    second.Set(u"v", value);
    second.Set(u"only-here", Value::Integer(9));
    value = Value();
    EXPECT_EQ(
        Result(second, u"(list (eval (car v)) (apply (nth 2 v) '(5)) (apply (nth 4 v) '((1))))"),
        "(9 5 1)");
}

TEST(LispHost, MakesListsOfItsOwn) {
    const Value items[] = {Value::String(u"P1"), Value::Integer(-1), Value::Real(0.5), Value()};
    Interpreter interpreter;
    EXPECT_EQ(Narrow(interpreter.Print(Value::Cons(Value::List(items), Value::Integer(1)))),
              "((\"P1\" -1 0.5 nil) . 1)");
    EXPECT_TRUE(Value::List({}).IsNil());
}

// What Print writes reads back as the same value: random trees of integers, strings and symbols.
TEST(LispHost, PrintedValuesReadBackTheSame) {
    Interpreter interpreter;
    std::mt19937 random(7);
    const auto leaf = [&]() -> Value {
        if (random() % 3 == 0) return Value::Integer(static_cast<std::int32_t>(random()));
        if (random() % 2 == 0) return interpreter.Intern(random() % 2 ? u"NAME" : u"A:B-1+");
        std::u16string text;
        for (unsigned n = random() % 6; n > 0; --n)
            text += static_cast<char16_t>(1 + random() % 300);
        return Value::String(text);
    };
    for (int i = 0; i < 2000; ++i) {
        Value tree = leaf();
        for (unsigned n = random() % 12; n > 0; --n)
            tree = random() % 2 ? Value::Cons(leaf(), tree) : Value::Cons(tree, leaf());
        interpreter.Set(u"tree", tree);
        const std::u16string source = u"(equal tree '" + interpreter.Print(tree) + u")";
        ASSERT_EQ(Result(interpreter, source), "T") << Narrow(source);
    }
}

TEST(LispHost, CaseIsOneToOne) {
    for (unsigned code = 0; code < 0x10000; ++code) {
        const auto c = static_cast<char16_t>(code);
        if (lisp::ToLower(c) != c) {
            EXPECT_EQ(lisp::ToUpper(lisp::ToLower(c)), c) << code;
        }
        if (lisp::ToUpper(c) != c) {
            EXPECT_EQ(lisp::ToLower(lisp::ToUpper(c)), c) << code;
        }
    }
}
