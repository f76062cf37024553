// Native functions of the interpreter.
#include "host/Natives.h"

#include "host/CommandRunner.h"
#include "host/lisp/Interpreter.h"

namespace host {

namespace {

lisp::Value ListOf(const std::vector<std::u16string>& texts) {
    std::vector<lisp::Value> items;
    items.reserve(texts.size());
    for (const std::u16string& text : texts) items.push_back(lisp::Value::String(text));
    return lisp::Value::List(items);
}

lisp::Value ChoosePages(Document& document, const PageChooser& choosePages) {
    if (!choosePages) throw lisp::Error(u"tq_seleciona_paginas: this program cannot ask for pages");
    document.Pages().Refresh(document.GetDwgDatabase());
    const auto chosen = choosePages(document, document.Pages().Pages());
    return chosen ? ListOf(*chosen) : lisp::Value();
}

void MarkForRedraw(Document& document) {
    document.GetDisplayObject()->Redraw(document.GetDisplayTarget());
}

}  // namespace

void InstallNatives(Document& document, const PageChooser& choosePages,
                    const std::u16string& networkFolder) {
    using Arguments = std::span<const lisp::Value>;
    lisp::Interpreter& lisp = document.Lisp().Interpreter();
    lisp.Define(
        u"tq_seleciona_paginas",
        [&document, choosePages](lisp::Interpreter&, Arguments) {
            return ChoosePages(document, choosePages);
        },
        0, 0);
    lisp.Define(
        u"atualizarpaginas",
        [&document](lisp::Interpreter&, Arguments) {
            document.Pages().Refresh(document.GetDwgDatabase());
            MarkForRedraw(document);
            return lisp::Value();
        },
        0, 0);
    lisp.Define(
        u"atualizaDescrPags",
        [&document](lisp::Interpreter&, Arguments) {
            document.Pages().RefreshDescriptions(document.GetDwgDatabase());
            MarkForRedraw(document);
            return lisp::Value();
        },
        0, 0);
    if (!networkFolder.empty()) {
        lisp.Set(u"*DIRETORIO_REDE*", lisp::Value::String(networkFolder));
    }
}

void InstallCommandNative(Document& document, CommandRunner& runner) {
    const auto run = [&runner](lisp::Interpreter& lisp, std::span<const lisp::Value> names) {
        for (const lisp::Value& name : names) {
            if (!name.Is(lisp::Kind::String))
                throw lisp::Error(u"command: not the name of a command: " + lisp.Print(name));
            const CommandOutcome outcome = runner.Run(name.AsString());
            if (!outcome.done) throw lisp::Error(name.AsString() + u" : " + outcome.failure);
        }
        return lisp::Value();
    };
    document.Lisp().Interpreter().Define(u"command", run, 1);
}

}  // namespace host
