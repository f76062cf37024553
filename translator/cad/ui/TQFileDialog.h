// The one place where the translator asks the user for a file.
#pragma once

#include "translator/cad/TQString.h"

// A filter in pair notation, "Drawings|*.dwg||", as Qt writes it, "Drawings( *.dwg );;". A
// description that names its patterns itself, in brackets, is taken as it is; a description
// without a pattern is dropped.
TQString FiltroQt(const TQString& filter);

// Shows the dialog on the host's main widget and waits. The result is kLispNormal with the path in
// backslashes, or kLispCancelled with an empty path. path is where the dialog starts, title may be
// empty. Writes two lines to the log; a failure is logged and thrown on.
int TQFileDialog(TQString& result, bool open, const TQString& filter, const TQString& path,
                 const TQString& title);
