// Programs that would end a careless process: each must end in a value or in a message.
#include <csignal>
#include <memory>
#include <random>
#include <thread>

#include "tests/host/lisp/Support.h"

using namespace lisp::test;
using lisp::Interpreter;
using lisp::Value;

namespace {

constexpr int million = 1'000'000;
constexpr const char* outOfMemory =
    "error: out of memory: the values of the program exceed 4096 KB";

std::u16string Repeated(std::u16string_view text, int count) {
    std::u16string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

}  // namespace

TEST(LispLimits, AListNestedAMillionDeepIsReadPrintedComparedAndFreed) {
    Interpreter interpreter;
    const std::u16string deep = Repeated(u"(", million) + Repeated(u")", million);
    const Value value = interpreter.Evaluate(u"'" + deep);
    EXPECT_TRUE(interpreter.Print(value) ==
                Repeated(u"(", million - 1) + u"nil" + Repeated(u")", million - 1));
    interpreter.Set(u"a", value);
    interpreter.Set(u"b", interpreter.Evaluate(u"'" + deep));
    EXPECT_EQ(Result(interpreter, u"(list (equal a b) (equal a (list b)))"), "(T nil)");
    // As a program it is evaluated from the outside in.
    EXPECT_EQ(Result(interpreter, deep), "error: stack overflow: the recursion is too deep");
    EXPECT_EQ(Result(interpreter, Repeated(u"(car ", million) + Repeated(u")", million)),
              "error: stack overflow: the recursion is too deep");
    EXPECT_EQ(Result(interpreter, Repeated(u"(", million)),
              "error: malformed input in line 1: missing )");
    EXPECT_EQ(Result(interpreter, Repeated(u"'", million)),
              "error: malformed input in line 1: nothing behind the quote");
    EXPECT_EQ(Result(interpreter, u"(+ 1 1)"), "2");
}

TEST(LispLimits, AMillionElementsAreNoTrouble) {
    Interpreter interpreter;
    EXPECT_EQ(Result(interpreter,
                     u"(setq i 0) (repeat 1000000 (setq l (cons i l) i (1+ i)))"
                     u"(list (length (append l l)) (apply '+ (mapcar '1- (reverse l)))"
                     u"      (car (member 0 l)) (nth 999999 l) (last l))"),
              "(2000000 1782293664 0 0 0)");
    EXPECT_EQ(Result(interpreter, u"(setq l nil i nil)"), "nil");
    // Shared parts: every list is held twice by the next one.
    EXPECT_EQ(Result(interpreter, u"(repeat 1000000 (setq l (cons l l))) (setq l nil)"), "nil");
}

TEST(LispLimits, EndlessRecursionIsAMessageOnEveryRoad) {
    const char16_t* const sources[] = {
        u"(defun f () (f)) (f)",
        u"(defun f (x) (+ 1 (f (list x x)))) (f 1)",
        u"(defun f (x / y) (cond ((and x (or nil (progn (if x (f x)))))))) (f 1)",
        u"(defun f (x) (mapcar 'f (list x))) (f 1)",
        u"(defun f () (apply 'f nil)) (f)",
        u"(setq e '(eval e)) (eval e)",
        u"(defun f () (foreach x '(1) (while t (repeat 1 (f))))) (f)",
        u"(defun f (x) ((lambda (y) (f y)) x)) (f 1)",
        u"(repeat 100000 (setq l (list 'apply l))) (apply 'apply l)",
        u"(native)",
    };
    for (const char16_t* source : sources) {
        Interpreter interpreter;
        interpreter.Define(u"native",
                           [](Interpreter& lisp, auto) { return lisp.Evaluate(u"(native)"); });
        EXPECT_EQ(Result(interpreter, source), "error: stack overflow: the recursion is too deep")
            << Narrow(source);
        EXPECT_EQ(Result(interpreter, u"(+ 1 1)"), "2") << Narrow(source);
    }
}

TEST(LispLimits, TheDepthFollowsTheStackOfTheThread) {
    std::string result;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 256 << 10);
    const auto run = [](void* out) -> void* {
        *static_cast<std::string*>(out) = Result(u"(defun f (x) (+ 1 (f x))) (f 1)");
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &result), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(result, "error: stack overflow: the recursion is too deep");
}

TEST(LispLimits, AnEndlessLoopEndsWhenItIsInterrupted) {
    const char16_t* const sources[] = {
        u"(begin) (while t)",
        u"(begin) (while t (setq a 1))",
        u"(begin) (while t (repeat 2000000000))",
        u"(begin) (defun f (l) (foreach x l (f l))) (while t (mapcar 'car '(nil)))",
        u"(repeat 100 (setq a (cons a a) b (cons b b))) (begin) (equal a b)",
    };
    for (const char16_t* source : sources) {
        Interpreter interpreter;
        std::atomic<bool> begun = false;
        interpreter.Define(u"begin", [&begun](Interpreter&, auto) {
            begun = true;
            begun.notify_one();
            return Value();
        });
        std::thread other([&] {
            begun.wait(false);
            interpreter.Interrupt();
        });
        EXPECT_EQ(Result(interpreter, source), "error: interrupted") << Narrow(source);
        other.join();
        EXPECT_EQ(Result(interpreter, u"(+ 1 1)"), "2");
    }
}

TEST(LispLimits, AWatchIsCalledWhileAProgramRunsAndCanInterruptIt) {
    Interpreter interpreter;
    int looks = 0;
    interpreter.SetWatch([&] {
        if (++looks == 3) interpreter.Interrupt();
    });
    EXPECT_EQ(Result(interpreter, u"(while t (setq a 1))"), "error: interrupted");
    EXPECT_EQ(looks, 3);
    interpreter.SetWatch({});
    EXPECT_EQ(Result(interpreter, u"(repeat 100000 (setq a 2))"), "2");
}

TEST(LispLimits, ASignalHandlerCanInterrupt) {
    static Interpreter* running;
    Interpreter interpreter;
    running = &interpreter;
    const auto former = std::signal(SIGINT, [](int) { running->Interrupt(); });
    interpreter.Define(u"signal", [](Interpreter&, auto) {
        std::raise(SIGINT);
        return Value();
    });
    EXPECT_EQ(Result(interpreter, u"(signal) (while t)"), "error: interrupted");
    std::signal(SIGINT, former);
}

TEST(LispLimits, MemoryWithoutEndIsAMessage) {
    const Case cases[] = {
        {u"(while t (setq l (cons 1 l)))", outOfMemory},
        {u"(setq s \"ab\") (while t (setq s (strcat s s)))", outOfMemory},
        {u"(setq s (list 1 2 3)) (while t (setq s (append s s)))", outOfMemory},
        // Each level of the recursion holds twenty thousand arguments.
        {u"(repeat 20000 (setq l (cons 1 l))) (defun f () (apply 'native l)) (f)", outOfMemory},
        {u"(repeat 200 (setq l (list l l))) (princ (car l))", "error: PRINC: the text is too long"},
    };
    for (const Case& c : cases) {
        Interpreter interpreter(4 << 20);
        interpreter.Define(u"native",
                           [](Interpreter& lisp, auto) { return lisp.Evaluate(u"(f)"); });
        EXPECT_TRUE(Result(interpreter, c.source).starts_with(c.result)) << Narrow(c.source);
        EXPECT_EQ(Result(interpreter, u"(setq l nil s nil) (length (list 1 2))"), "2");
    }
}

// Symbols live as long as their interpreter, so that here nothing is left for the next program.
TEST(LispLimits, SymbolsWithoutEndAreAMessage) {
    Interpreter interpreter(4 << 20);
    EXPECT_EQ(Result(interpreter,
                     u"(setq n 0) (while t (read (strcat \"name\" (itoa (setq n (1+ n))))))"),
              outOfMemory);
}

// All of the memory comes back: the same work can be done in a small heap for ever.
TEST(LispLimits, WhatIsNotHeldIsFreed) {
    Interpreter interpreter(2 << 20);
    EXPECT_EQ(Result(interpreter,
                     u"(defun f (x / y) (setq y (list x x (strcat \"a\" \"b\"))) y)"
                     u"(repeat 200000 (setq v (mapcar 'f '(1 2 3)))) (length v)"),
              "3");
    for (int i = 0; i < 1000; ++i) Result(interpreter, u"(f '(1 2 3) (list 1 2 (car 5)))");
    EXPECT_EQ(Result(interpreter, u"(length v)"), "3");
}

TEST(LispLimits, RandomInputGivesAValueOrAMessage) {
    static constexpr const char16_t* tokens[] = {
        u"(",       u"(",        u"(",      u")",       u")",         u")",       u"'",
        u".",       u" ",        u"1",      u"2.5",     u"\"s\"",     u"nil",     u"t",
        u"a",       u"b",        u"setq ",  u"defun ",  u"lambda ",   u"if ",     u"cond ",
        u"repeat ", u"foreach ", u"car ",   u"cons ",   u"list ",     u"append ", u"apply ",
        u"mapcar ", u"eval ",    u"read ",  u"strcat ", u"substr ",   u"+ ",      u"/ ",
        u"= ",      u"equal ",   u"assoc ", u"/ ",      u";",         u"\n",      u"\\",
        u"\"",      u"rtos ",    u"nth ",   u"quote ",  u"function ", u"set ",    u"and ",
        u"type "};
    std::mt19937 random(20240607);
    int values = 0;
    for (int i = 0; i < 5000; ++i) {
        std::u16string source;
        for (unsigned length = random() % 30; length > 0; --length)
            source.append(tokens[random() % std::size(tokens)]).append(u" ");
        Interpreter interpreter(1 << 20);
        values += !Result(interpreter, source).starts_with("error: ");
    }
    EXPECT_GT(values, 100);
    EXPECT_LT(values, 4900);
}
