// kelvara run: evaluates a LISP expression in the interpreter of a drawing's document.
#include <atomic>
#include <csignal>

#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"
#include "apps/cli/Progress.h"
#include "apps/cli/Session.h"

namespace cli {

namespace {

struct Arguments {
    std::string drawing;
    std::string expression;
};

// While it lives, Ctrl-C ends the evaluation and not the program.
class InterruptByUser {
  public:
    explicit InterruptByUser(lisp::Interpreter& interpreter) {
        Target() = &interpreter;
        former = std::signal(SIGINT, [](int) { Target().load()->Interrupt(); });
    }
    ~InterruptByUser() { std::signal(SIGINT, former); }
    InterruptByUser(const InterruptByUser&) = delete;
    InterruptByUser& operator=(const InterruptByUser&) = delete;

  private:
    static std::atomic<lisp::Interpreter*>& Target() {
        static std::atomic<lisp::Interpreter*> target = nullptr;
        return target;
    }

    void (*former)(int);
};

void Run(const GeneralOptions& general, const Arguments& arguments) {
    Progress progress(general);
    Session session(general);
    Output output(general);
    session.PrintTo([&](std::u16string_view text) {
        const std::string utf8 = Utf8(text);
        std::fwrite(utf8.data(), 1, utf8.size(), output.Result());
        std::fflush(output.Result());  // a program may run for long after it printed
    });
    progress.Phase("reading");
    session.OpenDrawing(arguments.drawing);
    progress.End();
    lisp::Interpreter& interpreter = session.Document().Lisp().Interpreter();
    try {
        const InterruptByUser interrupt(interpreter);
        interpreter.Evaluate(Utf16(arguments.expression));
    } catch (const lisp::Error& error) {
        output.Finish();
        throw Error(std::string("the expression failed: ") + error.what());
    }
    output.Finish();
}

}  // namespace

void RegisterRun(CommandLine& line) {
    auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.Add(line.app, "run",
                                 "Evaluates a LISP expression in the drawing's document and prints "
                                 "what it prints; a program "
                                 "that asks for pages gets all; nothing is saved",
                                 [&line, arguments] { Run(line.general, *arguments); });
    AddDrawing(*command, arguments->drawing);
    command->add_option("--lisp", arguments->expression, "The expression")->required();
}

}  // namespace cli
