// ComandoTraduzirProjeto: the command KVTRANSLATEPROJ, the translation of the project.
#pragma once

void ComandoTraduzirProjeto();
