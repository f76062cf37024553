// Renders the desktop program at work into one PNG file: a page of the example, and the dialog that
// translates it.
//
//     session_picture FILE
#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QTest>
#include <cstdio>

#include "platform/window/qt/WindowHandle.h"
#include "tests/desktop/Program.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

namespace {

constexpr QSize kWindow(1120, 780);
constexpr QSize kDialog(728, 400);
constexpr QPoint kPlace(366, 330);  // of the dialog in the picture

QImage Compose(QWidget& window, QWidget& dialog) {
    QImage picture = window.grab().toImage();
    const QRect place(kPlace, kDialog);
    QPainter painter(&picture);
    for (int width = 8; width > 0; --width)
        painter.fillRect(place.adjusted(-width, -width, width, width), QColor(0, 0, 0, 12));
    painter.drawPixmap(place, dialog.grab());
    painter.setPen(QColor(0x60, 0x60, 0x60));
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
    return picture;
}

bool Render(const QString& file) {
    Program program;
    program.window.resize(kWindow);
    program.window.GetFiles().Open(program.Example("block_pages.dxf"));
    program.desktop.SetLanguage(program.Active(), 1);
    program.ClickPage("PAG02");
    bool saved = false;
    Usuario user;
    user.Entao([](CWnd& dialog) { Clicar(dialog, kBotaoLer); })
        .EntaoNoQt([](QWidget& chooser) {
            ClickNamed("all")(chooser);
            QTest::keyClick(&chooser, Qt::Key_Return);
        })
        .Entao([&](CWnd& dialog) {
            Escolher(dialog, kListaDestino, "Deutsch");
            Clicar(dialog, kBotaoCarregar);
            dialog.SetWindowPos(nullptr, 0, 0, kDialog.width(), kDialog.height(),
                                SWP_NOMOVE | SWP_NOZORDER);
            saved = Compose(program.window, *WidgetOf(&dialog)).save(file, nullptr, 0);
            Clicar(dialog, kBotaoFechar);
        })
        .EntaoNoQt(ClickBox(QMessageBox::No));  // whether the lines are to be kept
    user.Durante([&] { program.Press(Qt::Key_F9); });
    return saved;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    if (argc != 2) {
        std::fputs("usage: session_picture FILE\n", stderr);
        return 2;
    }
    return Render(argv[1]) && !testing::Test::HasFailure() ? 0 : 1;
}
