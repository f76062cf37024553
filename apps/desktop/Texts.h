// The texts of the program in the languages that it has.
#pragma once

#include <QString>
#include <span>

namespace desktop {

// The English text is the key. Texts of other interface languages, and those that a language lacks,
// are English.
QString Say(const char* english);

// Without mnemonic and dots, as a title has it.
QString Plain(QString menuText);

// From now on, for the whole process: the texts of the program, of the services' windows and of the
// toolkit's buttons. index: of the interface language, 0 to 24.
void InstallTexts(int languageIndex);

struct TextRow {
    const char *english, *german, *portuguese;
};
std::span<const TextRow> AllTexts();

}  // namespace desktop
