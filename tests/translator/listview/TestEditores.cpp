// The editors other than that of text: options, proposals, colours, files.
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

#include "platform/window/CComboBox.h"
#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/listview/Bancada.h"
#include "translator/listview/CIListViewEditItem.h"
#include "translator/listview/Cores.h"

using namespace bancada;
using namespace ListView;
using Ouvido = std::vector<std::string>;

class Editores : public Bancada {
  protected:
    CComboBox& Combo() { return static_cast<CComboBox&>(*combo()); }
    CWnd* combo() { return lista.GetDlgItem(1020); }

    // What an edit-combo leaves of the proposals when that text is typed.
    std::string Propostas(const char* typed) {
        Clicar(lista.GetItemCount() - 1, 1);
        Digitar(typed);
        dialogo.antes.SetFocus();
        std::string joined;
        for (const TQString& text : lista.Celula(lista.GetItemCount() - 1, 1)->valores)
            joined += Estreito(text) + "|";
        return joined + std::to_string(lista.GetIndice(lista.GetItemCount() - 1, 1));
    }

    // Answers the file dialog that is about to open; an empty name cancels it.
    void ResponderArquivo(const QString& name) {
        QTimer::singleShot(0, [this, name] {
            auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            pastaVista = box->directory().path();
            filtroVisto = box->nameFilters().join(";;");
            if (name.isEmpty()) return box->reject();
            box->findChild<QLineEdit*>("fileNameEdit")->setText(name);
            QMetaObject::invokeMethod(box, "accept");
        });
    }
    QString pastaVista, filtroVisto;
    const QString desenho = KV_SOURCE_DIR "/tests/fixtures/ascii_r12_tail.dxf";
};

TEST_F(Editores, OptionsAreToldAtEachChoiceAndAtTheEnd) {
    Linha(LISTA, Valores({u"a", u"b", u"c"}), 9, 1, 1);
    Clicar(0, 1);
    ASSERT_NE(combo(), nullptr);
    EXPECT_EQ(Combo().GetCurSel(), 1);
    EXPECT_TRUE(Combo().GetDroppedState());
    Tecla(Qt::Key_End);
    Tecla(Qt::Key_Return);
    EXPECT_EQ(lista.GetIndice(0, 1), 2);
    dialogo.antes.SetFocus();
    EXPECT_EQ(combo(), nullptr);
    EXPECT_EQ(Texto(0), "c");
    EXPECT_EQ(dialogo.ouvido[0], "begin");
    EXPECT_EQ(dialogo.ouvido[1], "edited 0,1 c");
    EXPECT_EQ(dialogo.ouvido[2], "selchange");
    EXPECT_EQ(*(dialogo.ouvido.end() - 2), "end");
    EXPECT_EQ(dialogo.ouvido.back(), "key 13");
    EXPECT_EQ(lista.editando, 0);
}

TEST_F(Editores, AListWithoutOptionsOpensNothingAndStaysInEdit) {
    Linha(LISTA, Valores({u"a"}));
    lista.ClearValores(0, 1);
    EXPECT_TRUE(lista.BeginEdit(0, 1));
    EXPECT_EQ(combo(), nullptr);
    EXPECT_EQ(lista.editando, 1);
}

TEST_F(Editores, OptionsGoToTheirRowOnceMoreWithTheSelection) {
    for (int row = 0; row < 2; ++row) Linha(LISTA, Valores({u"a", u"b"}));
    lista.linhasSelecionadas = {0, 1};
    lista.BeginEdit(1, 1);
    Combo().SetCurSel(1);
    dialogo.antes.SetFocus();
    EXPECT_EQ(dialogo.ouvido,
              (Ouvido{"begin", "edited 1,1 b", "edited 0,1 b", "edited 1,1 b", "end"}));
}

TEST_F(Editores, ProposalsKeepTheTextTypedLastAtTheirHead) {
    Linha(TEXTO_PROPOSTAS, Valores({u"a", u"b"}));
    EXPECT_EQ(Propostas("new"), "new|a|b|0");
    EXPECT_EQ(Propostas("b"), "new|a|b|2");
    EXPECT_EQ(Texto(0), "b");
    Linha(TEXTO_PROPOSTAS, Valores({u""}));
    lista.ClearValores(1, 1);
    EXPECT_EQ(Propostas("first"), "first|0");
    lista.manterPrimeiro = true;
    Linha(TEXTO_PROPOSTAS, Valores({u"a", u"b", u"c"}));
    EXPECT_EQ(Propostas("new"), "a|new|1");
    Linha(TEXTO_PROPOSTAS, Valores({u"a"}), 3);
    EXPECT_EQ(Propostas("toolong"), "a|too|1");
    Linha(TEXTO_PROPOSTAS, Valores({u"longer"}), 3);
    Clicar(4, 1);
    EXPECT_EQ(TextoDoEditor(), "longer") << "the limit is for what is typed";
}

TEST_F(Editores, ProposalsNavigateLikeTheOthers) {
    Linha(TEXTO_PROPOSTAS, Valores({u"a", u"b"}));
    Linha(TEXTO, Valores({u"below"}));
    Clicar(0, 1);
    Digitar("x");
    QTest::keyClick(QApplication::focusWidget(), '(', Qt::ShiftModifier);
    Tecla(Qt::Key_Down);
    EXPECT_EQ(Texto(0), "x(");
    EXPECT_EQ(TextoDoEditor(), "below");
}

TEST_F(Editores, ColoursTakeThreeCharactersOfNumbers) {
    Linha(COR, Valores({u"7"}));
    Clicar(0, 1);
    Digitar("a1-2.34");
    EXPECT_EQ(TextoDoEditor(), "12.");
    Tecla(Qt::Key_Backspace);
    Digitar("8");
    const QRgb pixel =
        WidgetOf(Editor())->grab().toImage().pixel(WidgetOf(Editor())->width() - 6, 6);
    EXPECT_EQ(RGB(qRed(pixel), qGreen(pixel), qBlue(pixel)), ToCor(u"128"));
    dialogo.antes.SetFocus();
    EXPECT_EQ(Texto(0), "128");
    lista.SetValor(0, 1, u"70000");
    Clicar(0, 1);
    Digitar("1");
    dialogo.antes.SetFocus();
    EXPECT_EQ(Texto(0), "70000") << "longer than can be typed, and kept";
}

TEST_F(Editores, TheColourButtonAsksTheHost) {
    ScriptedDocument& document = services.AddDocument();
    document.colors = {42};
    bool disabled = false;
    document.whilePicking = [&] { disabled = !dialogo.IsWindowEnabled(); };
    Linha(COR, Valores({u"300"}));
    Clicar(0, 1);
    ClicarBotaoDoEditor();
    EXPECT_EQ(document.colorsAsked, std::vector<int>{256}) << "brought into the range";
    EXPECT_TRUE(disabled);
    EXPECT_TRUE(dialogo.IsWindowEnabled());
    EXPECT_EQ(TextoDoEditor(), "42") << "open, with the focus back in its field";
    Tecla(Qt::Key_F4);  // cancelled: there is no answer left
    EXPECT_EQ(TextoDoEditor(), "42");
    dialogo.antes.SetFocus();
    EXPECT_EQ(dialogo.ouvido, (Ouvido{"begin", "before 0,1 300", "after 0,1 300", "before 0,1 300",
                                      "after 0,1 300", "edited 0,1 42", "end"}));
}

TEST_F(Editores, TheFileButtonWritesTheName) {
    lista.pastaBase = KV_SOURCE_DIR;
    Linha(ARQUIVO, Valores({u"\\docs\\old.dwg"}));
    Clicar(0, 1);
    ResponderArquivo(desenho);
    ClicarBotaoDoEditor();
    EXPECT_EQ(filtroVisto.toStdString(), "Drawings( *.dwg );;");
    EXPECT_EQ(pastaVista.toStdString(), KV_SOURCE_DIR "/docs") << "a path of the file system";
    EXPECT_EQ(TextoDoEditor(), "ascii_r12_tail") << "still open, without path and ending";
    EXPECT_EQ(dialogo.ouvido, Ouvido{"begin"});
    ResponderArquivo({});
    ClicarBotaoDoEditor();
    EXPECT_EQ(TextoDoEditor(), "ascii_r12_tail");
    dialogo.antes.SetFocus();
    EXPECT_EQ(dialogo.ouvido, (Ouvido{"begin", "edited 0,1 ascii_r12_tail", "end"}));

    Linha(ARQUIVO_COMPLETO, Valores({u""}), 500);
    Clicar(1, 1);
    ResponderArquivo(desenho);
    ClicarBotaoDoEditor();
    EXPECT_EQ(TextoDoEditor(), QString(desenho).replace('/', '\\').toStdString());
}

TEST_F(Editores, AreReadAsTheirColumn) {
    for (const int32_t kind : {LISTA, TEXTO, ARQUIVO, TEXTO_PROPOSTAS, COR}) {
        Linha(kind, Valores({u"1"}));
        Clicar(lista.GetItemCount() - 1, 1);
        for (const UINT id : {kIdCombo, kIdEdit, kIdBotao}) {
            CWnd* part = lista.GetDlgItem(id);
            EXPECT_EQ(part ? WidgetOf(part)->accessibleName() : "Value", "Value") << kind;
        }
        EXPECT_NE(Editor(), nullptr);
        dialogo.antes.SetFocus();
    }
}

// The button belongs to the editor: the focus may go there, and from there to anywhere else it
// ends.
TEST_F(Editores, LeavingTheirButtonEndsThem) {
    for (const int32_t kind : {ARQUIVO, ARQUIVO_COMPLETO, COR}) {
        const int row = lista.GetItemCount();
        Linha(kind, Valores({u""}));
        for (CWnd* next : {static_cast<CWnd*>(&lista), static_cast<CWnd*>(&dialogo.depois)}) {
            Clicar(row, 1);
            Digitar("12");
            lista.GetDlgItem(kIdBotao)->SetFocus();
            EXPECT_NE(lista.GetDlgItem(kIdEdit), nullptr);
            next->SetFocus();
            EXPECT_EQ(lista.GetDlgItem(kIdEdit), nullptr);
            EXPECT_EQ(lista.GetDlgItem(kIdBotao), nullptr);
            EXPECT_EQ(Texto(row), "12");
            EXPECT_EQ(lista.editando, 0);
        }
    }
}

TEST_F(Editores, AFileNameThatIsTooLongIsRefused) {
    Linha(ARQUIVO, Valores({u"old"}), 10);
    Clicar(0, 1);
    ResponderArquivo(desenho);
    ClicarBotaoDoEditor();
    dialogo.antes.SetFocus();
    ASSERT_EQ(services.boxes.size(), 1u);
    EXPECT_EQ(services.boxes[0].buttons, kButtonOk);
    EXPECT_EQ(Texto(0), "old");
    EXPECT_EQ(lista.editando, 1);
    EXPECT_EQ(dialogo.ouvido, (Ouvido{"begin", "end"}));
}
