// The page blocks of a project, replaced by those of another language.
#pragma once

#include "platform/text/CString.h"

namespace traducaoTQ {

// Every page group of the database. The store names none (see IBDIdiomas::GetPageGroupKeys), so
// that this only regenerates the display.
void RedefinePageGroups(CString idioma);

// The blocks "FORMATO_A4", "SELO_A4", ... of group "A4", from the files that the database names; a
// block without a file is passed over. Raises what CICad::RedefinirBloco raises.
void RedefinePageGroup(CString idioma, CString grupo);

void RedefineBlock(CString bloco, CString caminho, bool regenerar);

}  // namespace traducaoTQ
