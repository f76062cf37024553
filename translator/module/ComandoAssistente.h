// ComandoAssistente: the command KVTRANSLATEASSIST, the wizard without a language chosen
// beforehand.
#pragma once

void ComandoAssistente();
