// What a command that failed leaves behind, as it must: no leak to the leak check.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:NovaJanela\nleak:NovoAssistente\n";
}
