// Registers the messages once, when the library is loaded.
#include "translator/listview/MensagensLista.h"

namespace ListView {

const UINT WM_LIST_PROPRIEDADE_BEGINEDIT = RegisterWindowMessageW(u"WM_LIST_PROPRIEDADE_BEGINEDIT");
const UINT WM_LIST_PROPRIEDADE_ENDEDIT = RegisterWindowMessageW(u"WM_LIST_PROPRIEDADE_ENDEDIT");
const UINT WM_LIST_PROPRIEDADE_SELCHANGE = RegisterWindowMessageW(u"WM_LIST_PROPRIEDADE_SELCHANGE");
const UINT WM_EDIT_ENDEDIT = RegisterWindowMessageW(u"WM_EDIT_ENDEDIT");
const UINT WM_COMBO_ENDEDIT = RegisterWindowMessageW(u"WM_COMBO_ENDEDIT");
const UINT WM_COMBO_SELCHANGE = RegisterWindowMessageW(u"WM_COMBO_SELCHANGE");
const UINT WM_FINDFILE_ENDEDIT = RegisterWindowMessageW(u"WM_FINDFILE_ENDEDIT");
const UINT WM_COLOR_ENDEDIT = RegisterWindowMessageW(u"WM_COLOR_ENDEDIT");

}  // namespace ListView
