// What happens between the user's wish and the file.
#include "apps/desktop/Files.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include "apps/desktop/Guard.h"
#include "apps/desktop/Loading.h"
#include "apps/desktop/Texts.h"
#include "platform/drawing/OdError.h"

namespace desktop {

namespace {

constexpr int kMostRecent = 10;

QString Filter() { return Say("Drawings (*.dxf *.DXF *.dwg *.DWG)") + ";;" + Say("All files (*)"); }

// Beside the DWG file. No name where there is such a file already: saving asks for one then.
QString NameOfConverted(const QString& dwg) {
    const QFileInfo file(dwg);
    const QString name = file.path() + u'/' + file.completeBaseName() + ".dxf";
    return QFileInfo::exists(name) ? QString() : name;
}

bool SameFile(const std::string& a, const QString& b) {
    return QFileInfo(QString::fromStdString(a)) == QFileInfo(b);
}

}  // namespace

QString NameOf(const host::Document& document) {
    const QString name = QFileInfo(QString::fromStdString(document.FileName())).fileName();
    return name.isEmpty() ? Say("Drawing") : name;
}

void Files::Open() {
    const QStringList recent = desktop.Settings().RecentFiles();
    const QString folder = recent.isEmpty() ? QString() : QFileInfo(recent.front()).path();
    for (const QString& path :
         QFileDialog::getOpenFileNames(&window, Plain(Say("&Open…")), folder, Filter()))
        Open(path);
}

bool Files::Open(const QString& path) {
    for (const auto& document : desktop.Host().Documents().Documents()) {
        if (!SameFile(document->FileName(), path)) continue;
        desktop.Activate(*document);
        return true;
    }
    const QString absolute = QFileInfo(path).absoluteFilePath();
    if (!Load(absolute)) return false;
    Remember(absolute);
    return true;
}

bool Files::Load(const QString& file) {
    bool loaded = false;
    Guarded(Say("Open %1").arg(QFileInfo(file).fileName()), [&] {
        const host::DwgConverter converter{desktop.Settings().DwgConverter(),
                                           std::chrono::seconds(desktop.Settings().DwgSeconds())};
        auto drawing = LoadDrawing(&window, file.toStdString(), converter);
        if (!drawing) return;
        onLoaded(std::move(drawing->drawing), drawing->converted ? NameOfConverted(file) : file,
                 std::move(drawing->list));
        loaded = true;
        if (drawing->converted) TellConverted(QFileInfo(file).fileName());
    });
    return loaded;
}

void Files::TellConverted(const QString& name) {
    QMessageBox::information(
        &window, Plain(Say("&Open…")),
        Say("%1 was converted from DWG. Kinds of objects that the converter does not know may be "
            "missing. The drawing is saved as DXF; the DWG file stays as it is.")
            .arg(name));
}

bool Files::Save(host::Document& document) {
    if (document.FileName().empty()) return SaveAs(document);
    return Write(document, QString::fromStdString(document.FileName()), false);
}

bool Files::SaveAs(host::Document& document) {
    QFileDialog dialog(&window, Plain(Say("Save &as…")),
                       QString::fromStdString(document.FileName()), Filter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("dxf");
    dialog.selectFile(NameOf(document));
    if (dialog.exec() != QDialog::Accepted) return false;
    const QString path = dialog.selectedFiles().value(0);
    if (!Write(document, path, false)) return false;
    Remember(path);
    return true;
}

bool Files::Write(host::Document& document, const QString& path, bool force) {
    const QString what = Say("Save %1").arg(QFileInfo(path).fileName());
    bool saved = false;
    Guarded(what, [&] {
        try {
            desktop.Save(document, path.toStdString(), force);
            saved = true;
        } catch (const OdError& error) {
            if (error.code() != eFileChanged) throw;
            const QString reason = QString::fromStdU16String(error.description().text());
            saved = MayOverwrite(reason) && Write(document, path, true);
        }
    });
    return saved;
}

bool Files::MayOverwrite(const QString& reason) {
    QMessageBox box(QMessageBox::Warning, Say("Save"),
                    Say("Another program has changed the file meanwhile. Overwrite its changes?"),
                    QMessageBox::Yes | QMessageBox::No, &window);
    box.setInformativeText(reason);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

bool Files::MayClose(host::Document& document) {
    if (!document.Drawing().isModified()) return true;
    desktop.Activate(document);
    QMessageBox box(QMessageBox::Question, Plain(Say("&Close")),
                    Say("Save the changes to %1?").arg(NameOf(document)),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    if (answer == QMessageBox::Cancel) return false;
    return answer == QMessageBox::Discard || Save(document);
}

bool Files::Close(host::Document& document) {
    if (desktop.IsBusy() || !MayClose(document)) return false;
    desktop.Close(document);
    return true;
}

bool Files::CloseAll() {
    if (desktop.IsBusy()) return false;
    const auto& documents = desktop.Host().Documents().Documents();
    for (const auto& document : documents) {
        if (!MayClose(*document)) return false;
    }
    while (!documents.empty()) desktop.Close(*documents.back());
    return true;
}

void Files::Remember(const QString& path) {
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList recent = desktop.Settings().RecentFiles();
    recent.removeAll(absolute);
    recent.prepend(absolute);
    Guarded(Say("Recent files"),
            [&] { desktop.Settings().SetRecentFiles(recent.mid(0, kMostRecent)); });
}

void Files::FillRecent(QMenu& menu) {
    menu.clear();
    for (const QString& path : desktop.Settings().RecentFiles()) {
        QString shown = QDir::toNativeSeparators(path);
        menu.addAction(shown.replace("&", "&&"), &window, [this, path] { Open(path); });
    }
    menu.setEnabled(!menu.isEmpty());
}

}  // namespace desktop
