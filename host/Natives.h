// The LISP functions and variables that the host gives to every document.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/Document.h"

namespace host {

class CommandRunner;

// Asks the user which pages to work on: their names, or nothing when the user cancelled.
using PageChooser =
    std::function<std::optional<std::vector<std::u16string>>(Document&, const std::vector<Page>&)>;

// tq_seleciona_paginas  the list of names that the chooser gives, nil when cancelled; an error in a
//                       program that has no chooser
// atualizarpaginas      reads the pages of the drawing again and marks the document for redrawing
// atualizaDescrPags     the same for the descriptions of the pages
// "*DIRETORIO_REDE*"    the network folder, unset when there is none
void InstallNatives(Document& document, const PageChooser& choosePages,
                    const std::u16string& networkFolder);

// (command NAME ...) runs commands one behind the other; one that fails ends the program that
// called it, once its failure has been reported.
void InstallCommandNative(Document& document, CommandRunner& runner);

}  // namespace host
