// ComandoEdicaoIdiomas: the command KVCFGTRADELANG, the editor of the list of languages.
#pragma once

void ComandoEdicaoIdiomas();
