// The dictionary of the editors' tests, and their user.
#include "tests/translator/dialogs/Editores.h"

#include <QApplication>
#include <QSqlRecord>
#include <QTest>

#include "host/Dictionary.h"
#include "tests/support/PostgresServer.h"

int CaixasDosEditores::Show(Kind kind, QWidget* parent, const OdString& title,
                            const CMxString& text, int buttons, int defaultButton) {
    formas.push_back((kind == Kind::Question ? "Question " : "Information ") + title.narrowText() +
                     " " + std::to_string(buttons) + " " + std::to_string(defaultButton));
    return CaixasRoteiro::Show(kind, parent, title, text, buttons, defaultButton);
}

namespace {

const QStringList kIdiomas{"Português", "English", "Deutsch"};

// Notes a write on a table by one of its columns.
QStringList NotasDoArquivo(const QString& tabela, const QString& coluna) {
    QStringList instrucoes;
    for (const QString ato : {"insert", "delete", "update"}) {
        instrucoes << QStringLiteral(
                          "CREATE TRIGGER %1_%2 AFTER %2 ON %1 BEGIN INSERT INTO STEPS (WHAT) "
                          "VALUES ('%2 ' || %3.%4); END")
                          .arg(tabela, ato, QString(ato == "delete" ? "OLD" : "NEW"), coluna);
    }
    return instrucoes;
}

QStringList NotasDoServidor(const QString& tabela, const QString& coluna) {
    return {QStringLiteral(
                "CREATE FUNCTION NOTE_%1() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN IF "
                "TG_OP = 'DELETE' THEN INSERT INTO STEPS (WHAT) VALUES ('delete ' || OLD.%2); "
                "ELSE INSERT INTO STEPS (WHAT) VALUES (lower(TG_OP) || ' ' || NEW.%2); END IF; "
                "RETURN NULL; END $$")
                .arg(tabela, coluna),
            QStringLiteral("CREATE TRIGGER NOTES AFTER INSERT OR UPDATE OR DELETE ON %1 "
                           "FOR EACH ROW EXECUTE FUNCTION NOTE_%1()")
                .arg(tabela)};
}

}  // namespace

Dicionario::Dicionario(Onde onde, std::initializer_list<Linha> termos,
                       std::chrono::milliseconds paciencia) {
    QFile(pasta.path()).setPermissions(QFile::Permissions(0x7777));  // also for an ordinary user
    url = onde == Onde::Arquivo ? "sqlite:" + pasta.filePath("dictionary.sqlite")
                                : PostgresServer::Shared().NewDatabase();
    host::Dictionary dicionario(url, host::OnMissing::Create);
    dicionario.AddLanguages(kIdiomas);
    std::vector<QStringList> linhas;
    for (const Linha& termo : termos) {
        QStringList& linha = linhas.emplace_back();
        for (const std::string& texto : termo) linha << QString::fromStdString(texto);
    }
    dicionario.Import(kIdiomas, linhas);
    Abrir(paciencia);
}

Dicionario::Dicionario(const QString& url) : url(url) { Abrir(host::kBusyTimeout); }

void Dicionario::Abrir(std::chrono::milliseconds paciencia) {
    host::HostOptions opcoes;
    opcoes.settingsFile = pasta.filePath("settings.ini");
    opcoes.logFile = pasta.filePath("log.txt");
    opcoes.databaseUrl = url;
    opcoes.databasePatience = paciencia;
    opcoes.messageBoxes = &caixas;
    anfitriao = std::make_unique<host::Host>(opcoes);
    anfitriao->Modules().Load(KV_BINARY_DIR "/lib/TQTradutor.so");
}

void Dicionario::Executar(const char* comando) {
    const host::CommandOutcome fim = anfitriao->Runner().Run(OdString(comando));
    EXPECT_TRUE(fim.done) << QString::fromStdU16String(fim.failure).toStdString();
    EXPECT_TRUE(anfitriao->Documents().ResourceScopes().empty());
}

QString Dicionario::Sql(const QString& instrucao) const {
    return host::SqlConnection(host::ParseDatabaseUrl(url), host::OnMissing::Refuse)
        .Value(instrucao);
}

void Dicionario::AnotarEscritas() {
    const bool servidor = url.startsWith("postgresql");
    Sql(servidor ? "CREATE TABLE STEPS (N SERIAL, WHAT TEXT)"
                 : "CREATE TABLE STEPS (N INTEGER PRIMARY KEY AUTOINCREMENT, WHAT TEXT)");
    const auto notas = servidor ? NotasDoServidor : NotasDoArquivo;
    for (const QString& instrucao :
         notas("BDTRANSLATOR", "LANGUAGE1") + notas("BDLANGUAGE", "LANG_DESCR")) {
        Sql(instrucao);
    }
}

std::vector<std::string> Dicionario::Ler(const QString& selecao) const {
    host::SqlConnection outra(host::ParseDatabaseUrl(url), host::OnMissing::Refuse);
    QSqlQuery lidas = outra.Run(selecao);
    std::vector<std::string> linhas;
    while (lidas.next()) {
        QStringList campos;
        for (int i = 0; i < lidas.record().count(); ++i) campos << outra.Text(lidas, i);
        linhas.push_back(campos.join(' ').toStdString());
    }
    return linhas;
}

std::vector<std::string> Dicionario::Escritas() const {
    return Ler("SELECT WHAT FROM STEPS ORDER BY N");
}

std::vector<std::string> Dicionario::Idiomas() const {
    return Ler("SELECT LANG_KEY, LANG_DESCR, LANG_USE FROM BDLANGUAGE ORDER BY LANG_KEY");
}

Linhas Dicionario::Termos() const {
    Linhas linhas;
    for (const auto& termo : host::Dictionary(url).ReadTerms().terms) {
        Linha& linha = linhas.emplace_back();
        for (const QString& texto : termo.texts) linha.push_back(texto.toStdString());
    }
    return linhas;
}

void Dicionario::Esperar() const {
    static_cast<host::Database&>(*GetElectricalServices()->GetDataManager()->GetDatabase())
        .Commit();
}

std::vector<std::string> Dicionario::Falhas() const {
    QFile arquivo(pasta.filePath("log.txt"));
    EXPECT_TRUE(arquivo.open(QIODevice::ReadOnly));
    std::vector<std::string> falhas;
    for (const QByteArray& linha : arquivo.readAll().split('\n')) {
        if (linha.contains("query failed")) falhas.push_back(linha.toStdString());
    }
    return falhas;
}

CListCtrl& Grade(CWnd& editor) { return ListaDe(editor, kListaTermos); }

Linhas LinhasDe(CListCtrl& lista) {
    Linhas linhas(static_cast<size_t>(lista.GetItemCount()));
    for (int linha = 0; linha < lista.GetItemCount(); ++linha) {
        for (int coluna = 0; coluna < lista.GetHeaderCtrl()->GetItemCount(); ++coluna) {
            linhas[linha].push_back(TextoDe(lista, linha, coluna));
        }
    }
    return linhas;
}

std::vector<std::string> Coluna(CListCtrl& lista, int coluna) {
    std::vector<std::string> textos;
    for (const Linha& linha : LinhasDe(lista)) textos.push_back(linha.at(coluna));
    return textos;
}

int LinhaDe(CWnd& editor, const char* primeiroTexto) {
    const int linha = LinhaCom(Grade(editor), 0, primeiroTexto);
    EXPECT_GE(linha, 0) << primeiroTexto;
    return linha;
}

void Acrescentar(CWnd& editor, std::initializer_list<const char*> textos) {
    Clicar(editor, kBotaoAdicionar);
    const int linha = Grade(editor).GetItemCount() - 1;
    QTest::keyClicks(QApplication::focusWidget(), *textos.begin());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    for (size_t coluna = 1; coluna < textos.size(); ++coluna) {
        Digitar(Grade(editor), linha, static_cast<int>(coluna), textos.begin()[coluna]);
    }
}

void Retirar(CWnd& editor, const char* primeiroTexto) {
    AbrirEditor(Grade(editor), LinhaDe(editor, primeiroTexto), 0);
    Clicar(editor, kBotaoRemover);
}

void Mudar(CWnd& editor, const char* primeiroTexto, int coluna, const char* texto) {
    Digitar(Grade(editor), LinhaDe(editor, primeiroTexto), coluna, texto);
}
