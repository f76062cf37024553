// Tables of languages and code pages.
#include "apps/desktop/SettingsChoices.h"

namespace desktop {

namespace {

// English stands twice, as the catalogues number their languages.
constexpr InterfaceLanguage kLanguages[] = {
    {"en", "English"},  {"de", "Deutsch"},    {"en", "English (2)"}, {"tr", "Türkçe"},
    {"hu", "Magyar"},   {"pl", "Polski"},     {"jp", "日本語"},      {"fr", "Français"},
    {"cn", "简体中文"}, {"zh", "繁體中文"},   {"it", "Italiano"},    {"es", "Español"},
    {"el", "Ελληνικά"}, {"ko", "한국어"},     {"vi", "Tiếng Việt"},  {"ca", "Català"},
    {"th", "ไทย"},      {"nl", "Nederlands"}, {"ru", "Русский"},     {"pt", "Português"},
    {"cs", "Čeština"},  {"bg", "Български"},  {"sk", "Slovenčina"},  {"sv", "Svenska"},
    {"no", "Norsk"},
};

constexpr ExchangePage kPages[] = {
    {1252, "Western European"}, {1250, "Central European"}, {1251, "Cyrillic"},   {1253, "Greek"},
    {1254, "Turkish"},          {1257, "Baltic"},           {1258, "Vietnamese"}, {874, "Thai"},
};

}  // namespace

std::span<const InterfaceLanguage> InterfaceLanguages() { return kLanguages; }

std::span<const ExchangePage> ExchangePages() { return kPages; }

}  // namespace desktop
