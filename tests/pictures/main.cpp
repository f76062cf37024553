// Renders the dialogs into PNG files, as a user meets them in the example project.
//
//     dialog_pictures FOLDER LANGUAGE
//
// LANGUAGE is the number of the interface language. Gives 1, and a line for each, when a text does
// not fit its control or has a letter that no font shows.
#include <QApplication>
#include <QDir>
#include <cstdio>

#include "platform/window/qt/WindowHandle.h"
#include "tests/pictures/CutTexts.h"
#include "tests/translator/dialogs/Projeto.h"
#include "tests/translator/dialogs/Usuario.h"
#include "translator/dialogs/ui/Mensagens.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

namespace {

constexpr int kAvancar = 12324;                             // of the wizard
constexpr int kBotaoAdicionar = 219, kBotaoCancelar = 210;  // of the editors

class Pictures {
  public:
    explicit Pictures(const QString& folder) : folder(folder) { QDir().mkpath(folder); }

    void Save(CWnd& window, const char* name) {
        const QString file = folder + "/" + name + ".png";
        complete &= WidgetOf(&window)->grab().save(file);
        std::printf("%s\n", qPrintable(file));
        for (const QString& text : CutTexts(*WidgetOf(&window))) Report(name, text);
        font = WidgetOf(&window)->font();
    }
    // A text of the catalogue that stands in a list, which elides it beyond that many pixels.
    void CheckInList(int number, int width) {
        const QString text = Mensagem(number);
        const bool fits = QFontMetrics(font).horizontalAdvance(text) <= width;
        if (!fits || !HasLetters(font, text)) Report("list", text);
    }
    bool complete = true;

  private:
    void Report(const char* name, const QString& text) {
        std::fprintf(stderr, "%s: cut: %s\n", name, qPrintable(text));
        complete = false;
    }

    QString folder;
    QFont font;  // of the dialogs
};

void Resize(CWnd& window, int width, int height) {
    window.SetWindowPos(nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
}

void TranslationDialog(Projeto& project, Pictures& pictures) {
    Usuario user;
    user.Entao([&](CWnd& dialog) {
            pictures.Save(dialog, "translation-empty");
            Clicar(dialog, kBotaoLer);
        })
        .Entao([&](CWnd& dialog) {
            Escolher(dialog, kListaDestino, "Deutsch");
            Clicar(dialog, kBotaoCarregar);
            pictures.Save(dialog, "translation-filled");
            Marcar(dialog, kFiltroAutomatica, false);
            CListCtrl& list = ListaDe(dialog, kListaExpressoes);
            Digitar(list, 1, 2, "60 Hertz");
            Marcar(dialog, kFiltroNaoTraduzido, false);
            pictures.Save(dialog, "translation-filtered");
            Marcar(dialog, kFiltroNaoTraduzido, true);
            AbrirEditor(list, 2, 2);
            pictures.Save(dialog, "translation-edit");
            Resize(dialog, 728, 538);
            pictures.Save(dialog, "translation-narrow");
            Resize(dialog, 1200, 700);
            pictures.Save(dialog, "translation-wide");
            Clicar(dialog, kBotaoTraduzir);
        })
        .Entao([&](CWnd& wizard) {
            pictures.Save(wizard, "wizard-1");
            Clicar(wizard, kAvancar);
        })
        .Entao([&](CWnd& wizard) {
            pictures.Save(wizard, "wizard-2");
            Clicar(wizard, kAvancar);
        })
        .Entao([&](CWnd& wizard) {
            pictures.Save(wizard, "wizard-3");
            Clicar(wizard, IDCANCEL);
        });
    user.Durante([&] { project.Executar("KVTRANSLATEPROJ"); });
}

void Editors(Projeto& project, Pictures& pictures, const char* filled) {
    Usuario user;
    user.Entao([&](CWnd& dialog) {
        pictures.Save(dialog, (std::string("dictionary-") + filled).c_str());
        Clicar(dialog, kBotaoAdicionar);
        pictures.Save(dialog, (std::string("dictionary-new-row-") + filled).c_str());
        Clicar(dialog, kBotaoCancelar);
    });
    user.Durante([&] { project.Executar("KVTRANSLATEEDITDIC"); });
    user.Entao([&](CWnd& dialog) {
        pictures.Save(dialog, (std::string("languages-") + filled).c_str());
        Clicar(dialog, kBotaoCancelar);
    });
    user.Durante([&] { project.Executar("KVCFGTRADELANG"); });
}

void Lists(Pictures& pictures) {
    constexpr int kColumn = 100 - 2 * 4;  // between the margins of a cell
    constexpr int kSteps = 130;
    for (int number : {23, 24, 26, 47, 50, 51, 52, 53}) pictures.CheckInList(number, kColumn);
    for (int number : {67, 68, 69}) pictures.CheckInList(number, kSteps);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    if (argc != 3) {
        std::fputs("usage: dialog_pictures FOLDER LANGUAGE\n", stderr);
        return 2;
    }
    Pictures pictures(argv[1]);
    Projeto project("block_pages.dxf", QString(argv[2]).toInt());
    TranslationDialog(project, pictures);
    Editors(project, pictures, "filled");
    Lists(pictures);
    return pictures.complete && !testing::Test::HasFailure() ? 0 : 1;
}
