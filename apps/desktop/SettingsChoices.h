// What the form of the settings offers.
#pragma once

#include <span>

namespace desktop {

struct InterfaceLanguage {
    const char* code;  // of the catalogues
    const char* name;  // in the language itself
};
std::span<const InterfaceLanguage> InterfaceLanguages();  // by the index of the settings

struct ExchangePage {
    int number;
    const char* name;
};
std::span<const ExchangePage> ExchangePages();  // the usual ones; others can be typed

}  // namespace desktop
