// Shows Qt's file dialogs; the filter and the result are rewritten between the two notations.
#include "translator/cad/ui/TQFileDialog.h"

#include <QFileDialog>

#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxLispEngine.h"
#include "platform/kernel/MxSystemServices.h"
#include "translator/cad/Guarded.h"
#include "translator/cad/TQStringList.h"
#include "translator/cad/ui/ParentWindow.h"

namespace {

void Registrar(const TQString& line) { electricalLog(line, ACTIVE_DOCUMENT()); }

QString PerguntarArquivo(bool open, const TQString& filter, const QString& path,
                         const QString& title) {
    QWidget* parent = MainWidget();
    const QString filters = FiltroQt(filter);
    return open ? QFileDialog::getOpenFileName(parent, title, path, filters)
                : QFileDialog::getSaveFileName(parent, title, path, filters);
}

}  // namespace

TQString FiltroQt(const TQString& filter) {
    TQString filters;
    const TQStringList tokens = filter.Tokenize(u"|");
    for (auto token = tokens.begin(); token != tokens.end(); ++token) {
        const TQString& description = *token;
        if (++token == tokens.end()) break;
        if (description.Contains(u"(") && description.Contains(u")"))
            filters += description + u";;";
        else
            filters += description + u"( " + *token + u" );;";
    }
    return filters;
}

int TQFileDialog(TQString& result, bool open, const TQString& filter, const TQString& path,
                 const TQString& title) {
    return Guarded(u"TQFileDialog", [&] {
        Registrar(TQString(open ? u"OPEN" : u"SAVE") + u" file dialog, filter=" + filter +
                  u", path=" + path);
        result = PerguntarArquivo(open, filter, path, title);
        Registrar(u"File dialog result: " + result);
        if (result.IsEmpty()) return kLispCancelled;
        result.Replace(u"/", u"\\");
        return kLispNormal;
    });
}
