// What the dialect does, as sources and the values that they give.
#include "tests/host/lisp/Support.h"

using namespace lisp::test;

TEST(LispReader, ReadsEveryKindOfValue) {
    ExpectResults({
        {u"", "nil"},
        {u"'(1 -2 +3 2147483647 -2147483648)", "(1 -2 3 2147483647 -2147483648)"},
        {u"2147483648", "2.14748e+09"},
        {u"'(1.5 .5 -2e3 1. 1e-7)", "(1.5 0.5 -2000.0 1.0 1e-07)"},
        {u"'(a B 1+ - e5 1x ção ß)", "(A B 1+ - E5 1X ÇÃO ß)"},
        {u"'nil", "nil"},
        {u"'(a . (b . (c . d)))", "(A B C . D)"},
        {u"''a", "(QUOTE A)"},
        {u"'(a'b\"c\"d)", "(A (QUOTE B) \"c\" D)"},
        {u"1 ; one\n;| two\n 2 |; 3", "3"},
        {u"\"a\\tb\\\\\\\"\\101\\U+00e9\\q\"", "\"a\\tb\\\\\\\"Aéq\""},
        {u"\"\\001\\e\"", "\"\\001\\e\""},
        {u"(strlen \"\\U+D83D\\U+DE00\")", "2"},
    });
}

TEST(LispReader, MalformedInputNamesTheLineAndEvaluatesNothing) {
    ExpectResults({
        {u"(+ 1", "error: malformed input in line 1: missing )"},
        {u"\n(list 1))", "error: malformed input in line 2: ) without ("},
        {u"\n\n\"abc\n", "error: malformed input in line 3: string without its closing quote"},
        {u"\"abc\\", "error: malformed input in line 1: string without its closing quote"},
        {u"'", "error: malformed input in line 1: nothing behind the quote"},
        {u"(a ')", "error: malformed input in line 1: nothing behind the quote"},
        {u"(. a)", "error: malformed input in line 1: misplaced dot"},
        {u"'(a . )", "error: malformed input in line 1: misplaced dot"},
        {u"'(a . b c)", "error: malformed input in line 1: misplaced dot"},
        {u"'(a . b . c)", "error: malformed input in line 1: misplaced dot"},
        {u".", "error: malformed input in line 1: misplaced dot"},
        {u"\n;| no end", "error: malformed input in line 2: comment ;| without |;"},
        {u"\"\\U+00G0\"", "error: malformed input in line 1: \\U+ without four hexadecimal digits"},
        {u"1e999", "error: number out of range: 1e999"},
    });
    lisp::Interpreter interpreter;
    Result(interpreter, u"(setq a 1) (setq a 2");
    EXPECT_TRUE(interpreter.Get(u"a").IsNil());
}

TEST(LispForms, GiveTheirValues) {
    ExpectResults({
        {u"unbound", "nil"},
        {u"(setq a 1 b (+ a 1)) (list a b (setq))", "(1 2 nil)"},
        {u"(list (if nil 1) (if nil 1 2) (if 0 1 2))", "(nil 2 1)"},
        {u"(list (cond) (cond (nil 1) (2)) (cond (nil 1) (t 2 3)))", "(nil 2 3)"},
        {u"(list (and) (and 1 2) (and 1 nil x) (or) (or nil 5))", "(T T nil nil T)"},
        {u"(setq n 0) (list (while (< n 5) (setq n (1+ n))) n (while nil 1))", "(5 5 nil)"},
        {u"(setq n 0) (list (repeat 3 (setq n (+ n 2))) (repeat -1 1))", "(6 nil)"},
        {u"(setq x 9 s 0) (foreach x '(1 2 3) (setq s (+ s x))) (list x s)", "(9 6)"},
        {u"(progn 1 2)", "2"},
        {u"(list ((lambda (x) (* x x)) 3) (mapcar '(lambda (x y) (+ x y)) '(1 2 3) '(10 20)))",
         "(9 (11 22))"},
        {u"(list (apply '+ '(1 2 3)) (apply (function (lambda (x) x)) '(7)))", "(6 7)"},
        {u"(defun f (n) (if (< n 2) 1 (* n (f (1- n))))) (list (f 10) (type f) (type car))",
         "(3628800 USUBR SUBR)"},
        {u"(list (eval '(+ 1 2)) (read \"(a . b) c\") (read \"\") (eval (read \"(1+ 1)\")))",
         "(3 (A . B) nil 2)"},
        {u"(mapcar 'type (list nil 1 1.0 \"\" 'a '(1) t))", "(nil INT REAL STR SYM LIST SYM)"},
        {u"(set 'a 5) a", "5"},
    });
}

TEST(LispForms, ScopeIsDynamicAndBindingsAreUndone) {
    ExpectResults({
        {u"(defun g () x) (defun f (x / y) (setq y 1) (g)) (setq y 7) (list (f 5) x y)",
         "(5 nil 7)"},
        {u"(defun f (x / x) x) (setq x 1) (list (f 2) x)", "(nil 1)"},
        {u"(defun f (/ f) (setq f 3)) (list (f) (f))", "(3 3)"},
        {u"(defun f () (setq f nil) (+ 1 1)) (f)", "2"},
    });
    lisp::Interpreter interpreter;
    EXPECT_EQ(Result(interpreter, u"(setq x 1) ((lambda (x / z) (setq z 1 kept 2) (car x)) 5)"),
              "error: CAR: a list expected, not 5");
    EXPECT_EQ(Result(interpreter, u"(list x z kept)"), "(1 nil 2)");
}

TEST(LispFunctions, Numbers) {
    ExpectResults({
        {u"(list (+) (+ 1 2) (+ 1 2.5) (-) (- 5) (- 5 1 1) (*) (* 2 3.0) (/ 7 2) (/ 7 2.0))",
         "(0 3 3.5 0 -5 3 0 6.0 3 3.5)"},
        {u"(list (+ 2147483647 1) (* 65536 65536) (- -2147483648) (/ -2147483648 -1))",
         "(-2147483648 0 -2147483648 -2147483648)"},
        {u"(list (rem -7 3) (rem 7.5 2) (rem -2147483648 -1) (abs -3) (abs -2.5) (min 3 1 2)"
         u" (max 1 2.5))",
         "(-1 1.5 0 3 2.5 1 2.5)"},
        {u"(list (fix -2.7) (fix 3e10) (float 2) (sqrt 16) (1+ 1.5) (1- 1))",
         "(-2 3e+10 2.0 4.0 2.5 0)"},
        {u"(/ 1 0)", "error: /: division by zero"},
        {u"(/ 1.0 0.0)", "error: /: division by zero"},
        {u"(rem 1 0)", "error: REM: division by zero"},
        {u"(+ 1 \"a\")", "error: +: a number expected, not \"a\""},
        {u"(sqrt -1)", "error: SQRT: the number is negative"},
    });
}

TEST(LispFunctions, Comparison) {
    ExpectResults({
        {u"(list (= 1 1.0) (= \"a\" \"a\") (= 'a 'a) (= 1 \"1\") (/= 1 2 1) (< 1 2 3) (< 1 3 2))",
         "(T T T nil T T nil)"},
        {u"(list (<= 1 1) (> 2 1) (>= 1 2) (< \"a\" \"b\") (> \"b\" \"a\"))", "(T T nil T T)"},
        {u"(list (eq 1 1) (eq 1 1.0) (eq 'a 'a) (eq '(1) '(1)) (setq a '(1)) (eq a a))",
         "(T nil T nil (1) T)"},
        {u"(list (equal '(1 (2 \"x\")) '(1 (2 \"x\"))) (equal '(1) '(1 2)) (equal 1 1.01 0.1))",
         "(T nil T)"},
        {u"(list (null nil) (not 1) (atom 'a) (atom '(1)) (atom nil) (listp nil) (listp 1)"
         u" (numberp 1.0) (numberp \"1\") (zerop 0.0) (minusp -1))",
         "(T nil T nil T T nil T nil T T)"},
        {u"(< 1 \"a\")", "error: <: a number expected, not \"a\""},
    });
}

TEST(LispFunctions, Strings) {
    ExpectResults({
        {u"(list (strcat) (strcat \"a\" \"\" \"b\") (strlen) (strlen \"ab\" \"c\"))",
         "(\"\" \"ab\" 0 3)"},
        {u"(list (substr \"abc\" 2) (substr \"abc\" 2 1) (substr \"abc\" 4) (substr \"abc\" 9 2))",
         "(\"bc\" \"b\" \"\" \"\")"},
        {u"(list (strcase \"ação ÿ ж σ ď\") (strcase \"AÇÃO Ÿ Ж Σ Ď ×\" t))",
         "(\"AÇÃO Ÿ Ж Σ Ď\" \"ação ÿ ж σ ď ×\")"},
        {u"(list (itoa -5) (atoi \" 12ab\") (atoi \"x\") (atoi \"+7\") (atoi \"-99999999999\"))",
         "(\"-5\" 12 0 7 -2147483648)"},
        {u"(list (atof \"2.5m\") (atof \"-.5\") (atof \"nan\") (atof \"\"))", "(2.5 -0.5 0.0 0.0)"},
        {u"(list (rtos 2.5) (rtos 2.345 2 1) (rtos 1500 1 2) (rtos -1 2 0))",
         "(\"2.5000\" \"2.3\" \"1.50E+03\" \"-1\")"},
        {u"(list (ascii \"A\") (chr 233) (strlen (rtos 1e300 2 16)))", "(65 \"é\" 318)"},
        {u"(substr \"abc\" 0)", "error: SUBSTR: the start must be 1 or more"},
        {u"(substr \"abc\" 1 -1)", "error: SUBSTR: the length must not be negative"},
        {u"(rtos 1 4)", "error: RTOS: the mode must be 1 (scientific) or 2 (decimal)"},
        {u"(rtos 1 2 99999)", "error: RTOS: the places must be 0 to 16"},
        {u"(chr 0)", "error: CHR: the code must be 1 to 65535"},
        {u"(strcat \"a\" 1)", "error: STRCAT: a string expected, not 1"},
    });
}

TEST(LispFunctions, Lists) {
    ExpectResults({
        {u"(setq l '((1 2) (3 (4 5)))) (list (caar l) (cadr l) (cdar l) (cadadr l) (cddddr l))",
         "(1 (3 (4 5)) (2) (4 5) nil)"},
        {u"(list (cons 1 2) (cons 1 nil) (list) (car nil) (cdr '(1 . 2)) (cdr '(1)))",
         "((1 . 2) (1) nil nil 2 nil)"},
        {u"(list (append) (append '(1) nil '(2 3)) (append '(1) 2) (reverse '(1 2 3)))",
         "(nil (1 2 3) (1 . 2) (3 2 1))"},
        {u"(list (length nil) (length '(1 2)) (nth 1 '(a b)) (nth 5 '(a)) (last '(1 2)))",
         "(0 2 B nil 2)"},
        {u"(list (member '(2) '(1 (2) 3)) (member 9 '(1)) (assoc \"b\" '((\"a\" . 1) (\"b\" 2))))",
         "(((2) 3) nil (\"b\" 2))"},
        {u"(mapcar 'car '((1) (2) nil))", "(1 2 nil)"},
        {u"(length '(1 . 2))", "error: LENGTH: a list expected, not (1 . 2)"},
        {u"(nth -1 '(1))", "error: NTH: the position must not be negative"},
        {u"(assoc 1 '(1))", "error: ASSOC: a list of lists expected, not (1)"},
        {u"(mapcar '1+ '(1 . 2))", "error: MAPCAR: a list expected, not 2"},
    });
}

TEST(LispErrors, NameTheCauseOfACallThatCannotBe) {
    ExpectResults({
        {u"(nothing 1)", "error: no function definition: NOTHING"},
        {u"(1 2)", "error: no function definition: 1"},
        {u"(apply 'nothing nil)", "error: no function definition: NOTHING"},
        {u"(setq a 5) (a)", "error: not a function: 5"},
        {u"(apply 'if '(1 2))", "error: not a function: IF"},
        {u"(car)", "error: too few arguments for CAR"},
        {u"(car 1 2)", "error: too many arguments for CAR"},
        {u"(defun f (x) x) (f)", "error: too few arguments for F"},
        {u"(defun f (x) x) (f 1 2)", "error: too many arguments for F"},
        {u"(defun f (x . y) x) (f 1)", "error: malformed parameter list: (X . Y)"},
        {u"((lambda (1) 1) 1)", "error: cannot be bound: 1"},
        {u"(defun f (t) 1) (f 1)", "error: cannot be bound: T"},
        {u"(setq t 1)", "error: cannot be assigned to: T"},
        {u"(setq a)", "error: SETQ: malformed form: (A)"},
        {u"(setq 1 2)", "error: cannot be assigned to: 1"},
        {u"(if 1)", "error: IF: malformed form: (1)"},
        {u"(if 1 2 3 4)", "error: IF: malformed form: (1 2 3 4)"},
        {u"(quote)", "error: QUOTE: malformed form: nil"},
        {u"(cond 1)", "error: COND: malformed form: (1)"},
        {u"(repeat \"3\" 1)", "error: REPEAT: malformed form: (\"3\" 1)"},
        {u"(foreach x 5 x)", "error: FOREACH: a list expected, not 5"},
        {u"(progn 1 . 2)", "error: dotted list in place of expressions: (1 . 2)"},
        {u"(list 1 . 2)", "error: dotted list in place of arguments: (1 . 2)"},
        {u"(defun)", "error: DEFUN: malformed form: nil"},
        {u"(lambda)", "error: LAMBDA: malformed form: nil"},
    });
}

TEST(LispOutput, GoesToTheSinkOfTheHost) {
    lisp::Interpreter interpreter;
    std::u16string out;
    interpreter.SetOutput([&out](std::u16string_view text) { out += text; });
    const auto last = interpreter.Evaluate(
        u"(princ \"a\\n\") (prin1 \"b\\n\") (print '(\"c\" 1.0)) (terpri) (prompt \"d\") (princ)");
    EXPECT_EQ(Narrow(out), "a\n\"b\\n\"\n(\"c\" 1.0) \nd");
    EXPECT_EQ(last.SymbolName(), u"");
}
