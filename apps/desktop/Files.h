// Opening, saving and closing, with the questions that belong to them.
#pragma once

#include <functional>

#include "apps/desktop/Desktop.h"
#include "apps/painter/DisplayList.h"

class QMenu;

namespace desktop {

QString NameOf(const host::Document& document);  // its file without the folder

class Files {
  public:
    Files(Desktop& desktop, QWidget& window) : desktop(desktop), window(window) {}

    void Open();  // asks which; several may be chosen
    // A drawing that is open already comes to the front. False when it was not opened: the user has
    // been told, or has cancelled.
    bool Open(const QString& path);

    // False when it was not saved.
    bool Save(host::Document& document);
    bool SaveAs(host::Document& document);
    // Asks about unsaved work. False when the document stays open.
    bool Close(host::Document& document);
    bool CloseAll();  // all of them or none

    void FillRecent(QMenu& menu);

    // Makes a document of a drawing whose view is prepared.
    std::function<void(OdDbDatabasePtr, const QString& path,
                       std::shared_ptr<const painter::DisplayList>)>
        onLoaded;

  private:
    bool Load(const QString& file);
    void TellConverted(const QString& name);
    bool Write(host::Document& document, const QString& path, bool force);
    bool MayClose(host::Document& document);
    bool MayOverwrite(const QString& reason);
    void Remember(const QString& path);

    Desktop& desktop;
    QWidget& window;
};

}  // namespace desktop
