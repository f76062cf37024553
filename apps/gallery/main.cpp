// Renders pictures of the controls into PNG files, in a light and in a dark palette.
//
//     gallery FOLDER
//
// The scale is that of QT_SCALE_FACTOR. Nothing is shown on the screen.
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <cstdio>

#include "apps/gallery/Samples.h"
#include "platform/window/CComboBox.h"
#include "platform/window/qt/WindowHandle.h"

namespace {

constexpr int32_t kPlain = 1;  // the column of cells at rest

QPalette DarkPalette() {
    QPalette palette(QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Highlight, QColor(38, 79, 120));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(120, 180, 255));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(140, 140, 140));
    return palette;
}

// The window and whatever has dropped down over it.
QImage PictureOf(QWidget& window) {
    QApplication::processEvents();
    QRect whole = window.geometry();
    QWidget* popup = QApplication::activePopupWidget();
    if (popup) whole |= popup->geometry();
    const qreal scale = window.devicePixelRatio();
    QImage picture(whole.size() * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::gray);
    QPainter painter(&picture);
    painter.drawPixmap(window.geometry().topLeft() - whole.topLeft(), window.grab());
    if (popup) painter.drawPixmap(popup->geometry().topLeft() - whole.topLeft(), popup->grab());
    return picture;
}

class Gallery {
  public:
    explicit Gallery(QString folder) : folder(std::move(folder)) { QDir().mkpath(this->folder); }

    bool Save(const CWnd& window, const QString& name) {
        const QString file = folder + "/" + name + ".png";
        const bool saved = PictureOf(*WidgetOf(&window)).save(file);
        std::fprintf(saved ? stdout : stderr, "%s%s\n", saved ? "" : "cannot write ",
                     qPrintable(file));
        return saved;
    }

  private:
    QString folder;
};

void Activate(CWnd& window) {
    window.ShowWindow(SW_SHOW);
    WidgetOf(&window)->activateWindow();
    QApplication::processEvents();
}

bool SaveList(Gallery& gallery) {
    ListSample sample;
    Activate(sample);
    bool saved = gallery.Save(sample, "list");

    CRect cell;
    sample.list.GetSubItemRect(kTextRow, kPlain, LVIR_LABEL, cell);
    const CPoint center = cell.CenterPoint();
    QCursor::setPos(WidgetOf(&sample.list)->mapToGlobal(QPoint(center.x, center.y)));
    saved &= gallery.Save(sample, "list-hovered");
    QCursor::setPos(0, 0);

    sample.list.SetItemState(kProposalsRow, LVIS_SELECTED, LVIS_SELECTED);
    saved &= gallery.Save(sample, "list-selected");
    sample.list.EnableWindow(FALSE);
    saved &= gallery.Save(sample, "list-disabled");
    sample.list.EnableWindow(TRUE);
    sample.list.bloqueado = true;
    sample.list.Invalidate();
    return gallery.Save(sample, "list-locked") && saved;
}

bool SaveEditors(Gallery& gallery) {
    const std::pair<int32_t, const char*> editors[] = {
        {kTextRow, "edit-text"},           {kOptionsRow, "edit-options"},
        {kProposalsRow, "edit-proposals"}, {kColourRow, "edit-colour"},
        {kFileRow, "edit-file"},           {kPathRow, "edit-path"},
    };
    bool saved = true;
    for (const auto& [row, name] : editors) {
        ListSample sample;
        Activate(sample);
        sample.list.BeginEdit(row, kPlain);
        if (row == kProposalsRow) static_cast<CComboBox*>(CWnd::GetFocus())->ShowDropDown();
        saved &= gallery.Save(sample, name);
    }
    return saved;
}

bool SaveResizable(Gallery& gallery) {
    ResizableSample sample;
    Activate(sample);
    bool saved = gallery.Save(sample, "resizable");
    sample.SetWindowPos(nullptr, 0, 0, 700, 520, SWP_NOMOVE | SWP_NOZORDER);
    return gallery.Save(sample, "resizable-large") && saved;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: gallery FOLDER\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    const std::pair<const char*, QPalette> palettes[] = {
        {"light", QApplication::style()->standardPalette()}, {"dark", DarkPalette()}};
    bool saved = true;
    for (const auto& [name, palette] : palettes) {
        QApplication::setPalette(palette);
        Gallery gallery(QString("%1/%2-%3x").arg(argv[1], name).arg(qApp->devicePixelRatio()));
        saved &= SaveList(gallery);
        saved &= SaveEditors(gallery);
        saved &= SaveResizable(gallery);
    }
    return saved ? 0 : 1;
}
