// The two sides of a second program with an editor.
#include "tests/translator/dialogs/OutroEditor.h"

#include <QCoreApplication>
#include <iostream>

#include "tests/translator/dialogs/Editores.h"

namespace {

constexpr int kPaciencia = 120000;
constexpr char kMarca[] = "answer: ";

// Behind a mark: the output also holds what a failed expectation says.
void Responder(const std::string& resposta) { std::cout << kMarca << resposta << std::endl; }

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

int OutroEditor::Servir(const QString& url) {
    Dicionario dicionario(url);
    Usuario usuario;
    usuario.Entao([&](CWnd& editor) { CumprirAteOk(editor, dicionario); });
    usuario.Durante([&] { dicionario.Executar("KVTRANSLATEEDITDIC"); });
    for (const std::string& falha : dicionario.Falhas()) std::cerr << falha << "\n";
    return dicionario.Falhas().empty() && !testing::Test::HasFailure() ? 0 : 1;
}

OutroEditor::OutroEditor(const QString& url) {
    processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo.start(QCoreApplication::applicationFilePath(), {"--editor", url});
    EXPECT_EQ(Resposta(), "open");
}

OutroEditor::~OutroEditor() {
    Terminar();
    EXPECT_EQ(processo.exitCode(), 0);
}

void OutroEditor::Mandar(const QString& ordem) {
    processo.write(ordem.toUtf8() + '\n');
    EXPECT_TRUE(processo.waitForBytesWritten());
}

std::string OutroEditor::Resposta() {
    while (processo.canReadLine() || processo.waitForReadyRead(kPaciencia)) {
        const QByteArray linha = processo.readLine().trimmed();
        if (linha.startsWith(kMarca)) return linha.mid(sizeof kMarca - 1).toStdString();
        std::cerr << linha.constData() << "\n";
    }
    return "no answer";
}

std::string OutroEditor::Fazer(const QString& ordem) {
    Mandar(ordem);
    return Resposta();
}

void OutroEditor::Terminar() {
    if (processo.state() == QProcess::NotRunning) return;
    processo.closeWriteChannel();
    EXPECT_TRUE(processo.waitForFinished(kPaciencia));
}
