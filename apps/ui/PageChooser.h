// The dialog in which the user chooses the pages that a command works on.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/Pages.h"

class QWidget;

namespace ui {

using PageNames = std::vector<std::u16string>;

// A list with descriptions, a field that filters it, buttons that tick all rows shown or none.
// Ticked at first: `ticked`, those that are there. Gives the names in the order of the pages, also
// none at all; nothing when the user cancelled.
std::optional<PageNames> ChoosePages(QWidget* owner, const std::vector<host::Page>& pages,
                                     const PageNames& ticked);

}  // namespace ui
