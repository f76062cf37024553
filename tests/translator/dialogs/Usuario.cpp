// The user of the dialog tests.
#include "tests/translator/dialogs/Usuario.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "platform/text/Conversion.h"
#include "platform/window/CButton.h"
#include "platform/window/CComboBox.h"
#include "platform/window/CPropertySheet.h"
#include "platform/window/qt/WindowHandle.h"

namespace {

// Turns of the event loop without a window to act on; a window manager takes its time.
constexpr int kMuitasOciosas = 20000, kMuitasSemFoco = 2000000;

std::string Estreito(const CString& texto) { return text::NarrowFromWide(texto.Text()); }

}  // namespace

Usuario& Usuario::EntaoNoQt(AtoQt ato) {
    passos.push_back(std::move(ato));
    return *this;
}

Usuario& Usuario::Entao(Ato ato) {
    return EntaoNoQt([ato = std::move(ato)](QWidget& janela) {
        WindowHandle* handle = HandleOf(&janela);
        ASSERT_TRUE(handle) << janela.metaObject()->className();
        ato(*CWnd::FromHandle(handle));
    });
}

void Usuario::Durante(const std::function<void()>& comando) {
    acabou = false;
    Agendar();
    comando();
    acabou = true;
    EXPECT_TRUE(passos.empty()) << passos.size() << " steps found no window";
    passos.clear();
    QCoreApplication::processEvents();
}

void Usuario::Agendar() {
    QTimer::singleShot(0, qApp, [this] { Agir(); });
}

void Usuario::Agir() {
    QCoreApplication::sendPostedEvents();  // what the step before has left to be done
    if (acabou) return;
    Agendar();  // first: a step may show a window of its own
    QWidget* janela = QApplication::activeModalWidget();
    if (janela && !janela->isActiveWindow() && ociosas % kMuitasOciosas == 0)
        janela->activateWindow();
    if (janela && janela->isActiveWindow() && !passos.empty()) {
        ociosas = 0;
        AtoQt ato = std::move(passos.front());
        passos.pop_front();
        ato(*janela);
        return;
    }
    if (++ociosas < (passos.empty() ? kMuitasOciosas : kMuitasSemFoco) || !janela) return;
    ociosas = 0;
    ADD_FAILURE() << "a window waits and no step is left for it: "
                  << janela->windowTitle().toStdString();
    janela->close();
}

void Clicar(CWnd& janela, int id) {
    QWidget* controle = WidgetOf(janela.GetDlgItem(id));
    ASSERT_TRUE(controle) << "no control " << id;
    QTest::mouseClick(controle, Qt::LeftButton, {}, QPoint(8, controle->height() / 2));
}

void Marcar(CWnd& janela, int id, bool marcado) {
    if ((janela.IsDlgButtonChecked(id) == BST_CHECKED) != marcado) Clicar(janela, id);
    EXPECT_EQ(janela.IsDlgButtonChecked(id) == BST_CHECKED, marcado);
}

void Escolher(CWnd& janela, int id, const char* texto) {
    QWidget* lista = WidgetOf(janela.GetDlgItem(id));
    lista->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    const size_t entradas = EntradasDe(janela, id).size();
    for (size_t i = 0; i < entradas && TextoDe(janela, id) != texto; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    }
    EXPECT_EQ(TextoDe(janela, id), texto);
}

void AbrirEditor(CListCtrl& lista, int linha, int coluna) {
    lista.EnsureVisible(linha, FALSE);
    CRect celula;
    ASSERT_TRUE(lista.GetSubItemRect(linha, coluna, LVIR_LABEL, celula));
    QWidget* area = HandleOf(WidgetOf(&lista))->client;
    const QPoint meio(celula.CenterPoint().x, celula.CenterPoint().y);
    QTest::mouseClick(area, Qt::LeftButton, {},
                      area->mapFromGlobal(WidgetOf(&lista)->mapToGlobal(meio)));
}

void Digitar(CListCtrl& lista, int linha, int coluna, const char* texto) {
    AbrirEditor(lista, linha, coluna);
    QTest::keyClicks(QApplication::focusWidget(), texto);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
}

void ClicarTitulo(CListCtrl& lista, int coluna) {
    RECT titulo;
    ASSERT_TRUE(lista.GetHeaderCtrl()->GetItemRect(coluna, &titulo));
    auto* cabecalho = WidgetOf(&lista)->findChild<QWidget*>("header");
    ASSERT_TRUE(cabecalho);
    QTest::mouseClick(cabecalho, Qt::LeftButton, {}, QPoint(titulo.left + 20, titulo.top + 5));
}

void EscolherArquivo(QWidget& dialogo, const QString& caminho) {
    auto* escolha = qobject_cast<QFileDialog*>(&dialogo);
    ASSERT_TRUE(escolha) << dialogo.metaObject()->className();
    auto* nome = escolha->findChild<QLineEdit*>("fileNameEdit");
    ASSERT_TRUE(nome);
    nome->setText(caminho);
    QTest::keyClick(nome, Qt::Key_Return);
}

CWnd& PaginaDe(CWnd& assistente) {
    return *dynamic_cast<CPropertySheet&>(assistente).GetActivePage();
}

CListCtrl& ListaDe(CWnd& janela, int id) {
    return dynamic_cast<CListCtrl&>(*janela.GetDlgItem(id));
}

std::string TextoDe(CWnd& janela, int id) {
    return Estreito(janela.GetDlgItem(id)->GetWindowText());
}

std::string TextoDe(const CListCtrl& lista, int linha, int coluna) {
    return Estreito(lista.GetItemText(linha, coluna));
}

std::vector<std::string> EntradasDe(CWnd& janela, int id) {
    auto& lista = dynamic_cast<CComboBox&>(*janela.GetDlgItem(id));
    std::vector<std::string> entradas;
    for (int i = 0; i < lista.GetCount(); ++i) {
        CString texto;
        lista.GetLBText(i, texto);
        entradas.push_back(Estreito(texto));
    }
    return entradas;
}

int LinhaCom(const CListCtrl& lista, int coluna, const char* texto) {
    for (int linha = 0; linha < lista.GetItemCount(); ++linha) {
        if (TextoDe(lista, linha, coluna) == texto) return linha;
    }
    return -1;
}
