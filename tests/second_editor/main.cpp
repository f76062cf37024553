// A program with the dictionary editor open, which does with real events what its input tells line
// by line, and answers when that is done.
//
// second_editor URL
#include <QApplication>
#include <iostream>

#include "tests/translator/dialogs/Editores.h"
#include "tests/translator/dialogs/OutroEditor.h"

namespace {

// Behind a mark: the output also holds what a failed expectation says.
void Responder(const std::string& resposta) {
    std::cout << OutroEditor::kMarca << resposta << std::endl;
}

void Cumprir(const QStringList& ordem, CWnd& editor, Dicionario& dicionario) {
    const auto texto = [&](int i) { return ordem.value(i).toStdString(); };
    if (ordem[0] == "add") {
        Acrescentar(editor, {texto(1).c_str(), texto(2).c_str(), texto(3).c_str()});
    } else if (ordem[0] == "edit") {
        Mudar(editor, texto(1).c_str(), ordem[2].toInt(), texto(3).c_str());
    } else if (ordem[0] == "remove") {
        dicionario.caixas.respostas = {kButtonYes};
        Retirar(editor, texto(1).c_str());
    } else if (ordem[0] == "sort") {
        ClicarTitulo(Grade(editor), ordem[1].toInt());
    } else if (ordem[0] == "apply") {
        Clicar(editor, kBotaoAplicar);
        dicionario.Esperar();
    }
}

void CumprirAteOk(CWnd& editor, Dicionario& dicionario) {
    Responder("open");
    std::string linha;
    while (std::getline(std::cin, linha)) {
        const QStringList ordem = QString::fromStdString(linha).split('\t');
        if (ordem[0] == "ok") return Clicar(editor, kBotaoOK);
        Cumprir(ordem, editor, dicionario);
        std::string resposta = "done";
        if (ordem[0] == "rows") {
            resposta.clear();
            for (const std::string& texto : Coluna(Grade(editor), 0)) resposta += texto + ";";
        }
        Responder(resposta);
    }
    Clicar(editor, kBotaoCancelar);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::cerr << "usage: second_editor URL\n";
        return 2;
    }
    Dicionario dicionario(QString::fromLocal8Bit(argv[1]));
    Usuario usuario;
    usuario.Entao([&](CWnd& editor) { CumprirAteOk(editor, dicionario); });
    usuario.Durante([&] { dicionario.Executar("KVTRANSLATEEDITDIC"); });
    for (const std::string& falha : dicionario.Falhas()) std::cerr << falha << "\n";
    return dicionario.Falhas().empty() && !testing::Test::HasFailure() ? 0 : 1;
}
