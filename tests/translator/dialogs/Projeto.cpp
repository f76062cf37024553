// The example project of the dialog tests.
#include "tests/translator/dialogs/Projeto.h"

#include <QProcess>

namespace {

std::string Saida(const QString& programa, const QStringList& argumentos) {
    QProcess processo;
    processo.start(programa, argumentos);
    EXPECT_TRUE(processo.waitForFinished(-1)) << programa.toStdString();
    EXPECT_EQ(processo.exitCode(), 0) << processo.readAllStandardError().toStdString();
    return processo.readAllStandardOutput().toStdString();
}

}  // namespace

int CaixasRoteiro::Show(Kind, QWidget*, const OdString&, const CMxString& text, int, int) {
    textos.push_back(text.ansi_str());
    if (respostas.empty()) return kButtonOk;
    const int resposta = respostas.front();
    respostas.pop_front();
    return resposta;
}

host::HostOptions Projeto::Opcoes() {
    host::HostOptions opcoes;
    opcoes.settingsFile = Arquivo("settings.ini");
    opcoes.logFile = Arquivo("log.txt");
    opcoes.databaseUrl = "sqlite:" + Arquivo("dictionary.db");
    opcoes.messageBoxes = &caixas;
    opcoes.choosePages = [this](host::Document&, const std::vector<host::Page>& todas) {
        auto escolhidas = paginas;
        if (escolhidas.empty()) {
            for (const host::Page& pagina : todas) escolhidas.push_back(pagina.name);
        }
        return std::optional(escolhidas);
    };
    return opcoes;
}

Projeto::Projeto(const char* desenho, int32_t idiomaDaInterface) : anfitriao(Opcoes()) {
    anfitriao.GetSettings().SetLanguageIndex(idiomaDaInterface);
    const QString exemplos = KV_SOURCE_DIR "/examples/";
    Kelvara({"db", "init", "--languages", exemplos + "languages.txt"});
    Kelvara({"db", "import", exemplos + "dictionary.csv"});
    const QString copia = Arquivo(desenho);
    QFile::copy(exemplos + desenho, copia);
    documento = &anfitriao.Documents().Open(copia.toStdString());
    anfitriao.SetProjectLanguage(*documento, 1);
    anfitriao.Modules().Load(KV_BINARY_DIR "/lib/TQTradutor.so");
}

host::CommandOutcome Projeto::Executar(const char* comando) {
    return anfitriao.Runner().Run(OdString(comando));
}

std::string Projeto::Bytes() { return documento->GetDwgDatabase()->toBytes(); }

void Projeto::Salvar(const QString& nome) { documento->Save(Arquivo(nome).toStdString()); }

QString Projeto::Registro() {
    QFile arquivo(Arquivo("log.txt"));
    EXPECT_TRUE(arquivo.open(QIODevice::ReadOnly));
    return QString::fromUtf8(arquivo.readAll());
}

std::string Projeto::Kelvara(QStringList argumentos) {
    argumentos << "--database"
               << "sqlite:" + Arquivo("dictionary.db");
    return Saida(KV_BINARY_DIR "/bin/kelvara", argumentos);
}

std::string Projeto::Python(const QString& programa, QStringList argumentos) {
    argumentos.prepend(KV_SOURCE_DIR "/tests/tools/" + programa);
    return Saida("/usr/bin/python3", argumentos);
}
