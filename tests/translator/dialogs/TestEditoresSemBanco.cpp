// A dictionary that goes away while its editor is open: the program goes on, the grid keeps what
// was typed until it is saved, and every write that failed stands in the log with its values.
#include <gmock/gmock.h>

#include <QFile>
#include <any>

#include "host/Dictionary.h"
#include "tests/support/Permissions.h"
#include "tests/support/PostgresServer.h"
#include "tests/translator/dialogs/Editores.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kMudados = 12;
constexpr std::chrono::milliseconds kPaciencia{300};
const std::string kLongo(230, 'x');  // so many of them that the file must grow

struct Falta {
    const char* nome;
    Onde onde;
    // Takes the database away for as long as the result lives.
    std::function<std::shared_ptr<void>(Dicionario&)> tirar;
    const char* motivo;                     // stands in the log
    enum { Nada, Antes, Digitado } mostra;  // what a reading finds meanwhile
};

QString ArquivoDe(const Dicionario& dicionario) {
    return dicionario.pasta.filePath("dictionary.sqlite");
}

template <class Devolver>
std::shared_ptr<void> NoFim(Devolver devolver) {
    return std::shared_ptr<void>(nullptr, [devolver](void*) { devolver(); });
}

std::shared_ptr<void> Remover(Dicionario& dicionario) {
    const QString arquivo = ArquivoDe(dicionario);
    EXPECT_TRUE(QFile::rename(arquivo, arquivo + ".away"));
    return NoFim([arquivo] { EXPECT_TRUE(QFile::rename(arquivo + ".away", arquivo)); });
}

std::shared_ptr<void> Trancar(Dicionario& dicionario) {
    auto outro = std::make_shared<host::SqlConnection>(host::ParseDatabaseUrl(dicionario.url),
                                                       host::OnMissing::Refuse);
    EXPECT_FALSE(outro->Begin().isValid());
    return outro;
}

std::shared_ptr<void> Proteger(Dicionario& dicionario) {
    struct Protegido {
        explicit Protegido(const Dicionario& dicionario)
            : arquivo(ArquivoDe(dicionario)), pasta(dicionario.pasta.path()) {}
        ReadOnly arquivo, pasta;
        OrdinaryUser usuario;
    };
    return std::make_shared<Protegido>(dicionario);
}

std::shared_ptr<void> Encher(Dicionario& dicionario) {
    return std::make_shared<FullDisk>(QFile(ArquivoDe(dicionario)).size());
}

std::shared_ptr<void> Parar(Dicionario&) {
    PostgresServer::Shared().Stop();
    return NoFim([] { PostgresServer::Shared().Start(); });
}

class SemBanco : public testing::TestWithParam<Falta> {
  protected:
    static std::string Termo(int i) { return "termo" + std::to_string(i); }
    void Editar(const Usuario::Ato& ato) {
        Usuario usuario;
        usuario.Entao(ato);
        usuario.Durante([this] { dicionario.Executar("KVTRANSLATEEDITDIC"); });
    }
    void SetUp() override {
        for (int i = 0; i < kMudados; ++i) {
            dicionario.Sql(QStringLiteral("INSERT INTO BDTRANSLATOR (LANGUAGE1, LANGUAGE2, "
                                          "LANGUAGE3) VALUES ('termo%1', '', '')")
                               .arg(i));
        }
    }
    // Every term changed, one added, one removed.
    void Digitacao(CWnd& editor) {
        for (int i = 0; i < kMudados; ++i) {
            Mudar(editor, Termo(i).c_str(), 1, (kLongo + std::to_string(i)).c_str());
        }
        Acrescentar(editor, {"novo", "new", "neu"});
        dicionario.caixas.respostas = {kButtonYes};
        Retirar(editor, "Motor");
    }
    void EsperarFalhas() {
        const std::vector<std::string> falhas = dicionario.Falhas();
        for (int i = 0; i < kMudados; ++i) {
            EXPECT_THAT(falhas, Contains(testing::AllOf(
                                    HasSubstr("update BDTRANSLATOR"), HasSubstr(GetParam().motivo),
                                    HasSubstr("\"" + Termo(i) + "\", \"" + kLongo +
                                              std::to_string(i) + "\", \"\""))));
        }
        EXPECT_THAT(falhas, Contains(testing::AllOf(HasSubstr("INSERT INTO BDTRANSLATOR"),
                                                    HasSubstr("\"novo\", \"new\", \"neu\""))));
        EXPECT_THAT(falhas, Contains(HasSubstr("DELETE FROM BDTRANSLATOR WHERE TRANS_KEY = :key; "
                                               "values: \"1\"")));
    }

    Dicionario dicionario{GetParam().onde, {{"Motor", "Engine", "Antrieb"}}, kPaciencia};
};

const Falta kNoArquivo[] = {
    {"Removed", Onde::Arquivo, Remover, "there is no such file", Falta::Nada},
    {"Locked", Onde::Arquivo, Trancar, "locked by another program", Falta::Antes},
    {"ReadOnly", Onde::Arquivo, Proteger, "", Falta::Antes},
    // Only the end of the transaction fails.
    {"DiskFull", Onde::Arquivo, Encher, "check the disk", Falta::Digitado},
};
const Falta kNoServidor[] = {
    {"Locked", Onde::Servidor, Trancar, "locked by another program", Falta::Antes},
    {"Stopped", Onde::Servidor, Parar, "check the address", Falta::Nada},
};
std::string NomeDe(const testing::TestParamInfo<Falta>& caso) { return caso.param.nome; }
INSTANTIATE_TEST_SUITE_P(File, SemBanco, testing::ValuesIn(kNoArquivo), NomeDe);
INSTANTIATE_TEST_SUITE_P(Server, SemBanco, testing::ValuesIn(kNoServidor), NomeDe);

}  // namespace

TEST_P(SemBanco, WhatWasTypedIsInTheGridAndThenInTheLog) {
    const Linhas antes = dicionario.Termos();
    Editar([&](CWnd& editor) {
        Digitacao(editor);
        auto falta = GetParam().tirar(dicionario);
        Mudar(editor, "novo", 2, "neu");  // the editor itself asks nothing of the database
        EXPECT_EQ(Grade(editor).GetItemCount(), kMudados + 1);
        EXPECT_EQ(TextoDe(Grade(editor), kMudados - 1, 1), kLongo + std::to_string(kMudados - 1));
        Clicar(editor, kBotaoAplicar);
        dicionario.Esperar();
        const int linhas[] = {0, kMudados + 1, kMudados + 1};
        EXPECT_EQ(Grade(editor).GetItemCount(), linhas[GetParam().mostra]);
        EXPECT_EQ(LinhasDe(Grade(editor)) == antes, GetParam().mostra == Falta::Antes);
        falta.reset();
        EsperarFalhas();
        // The dictionary is there again, as it was, and takes what is typed now.
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(LinhasDe(Grade(editor)), antes);
        Digitacao(editor);
        Clicar(editor, kBotaoOK);
    });
    EXPECT_EQ(dicionario.Termos().size(), antes.size());
    EXPECT_EQ(dicionario.Termos().back(), (Linha{"novo", "new", "neu"}));
    EXPECT_EQ(dicionario.Termos().front(), (Linha{"termo0", kLongo + "0", ""}));
}

// With the dictionary away at the opening there is no column, and nothing can be typed or lost.
TEST_P(SemBanco, AnEditorOpensAndEndsWithoutIt) {
    auto falta = GetParam().tirar(dicionario);
    Editar([&](CWnd& editor) {
        EXPECT_EQ(Grade(editor).GetItemCount() > 0, GetParam().mostra != Falta::Nada);
        falta.reset();
        dicionario.Esperar();
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(Grade(editor).GetItemCount(), kMudados + 1);
        Clicar(editor, kBotaoOK);
    });
    EXPECT_EQ(dicionario.Termos().front(), (Linha{"Motor", "Engine", "Antrieb"}));
}

class ServidorReiniciado : public TesteDeEditor {};
INSTANTIATE_TEST_SUITE_P(Server, ServidorReiniciado, testing::Values(Onde::Servidor));

TEST_P(ServidorReiniciado, IsFoundAgainUnderAnOpenEditor) {
    Dicionario dicionario(GetParam(), {{"Motor", "Engine", "Antrieb"}, {"Bomba", "Pump", "Pumpe"}});
    Usuario usuario;
    usuario.Entao([&](CWnd& editor) {
        dicionario.caixas.respostas = {kButtonYes};
        Mudar(editor, "Motor", 1, "Motor");
        PostgresServer::Shared().Restart();
        Acrescentar(editor, {"Rel", "Relay", "Relais"});
        Clicar(editor, kBotaoAplicar);
        PostgresServer::Shared().Restart();  // the transaction is open, or has just been committed
        Retirar(editor, "Bomba");
        Clicar(editor, kBotaoOK);
    });
    usuario.Durante([&] { dicionario.Executar("KVTRANSLATEEDITDIC"); });
    EXPECT_EQ(dicionario.Termos(),
              (Linhas{{"Motor", "Motor", "Antrieb"}, {"Rel", "Relay", "Relais"}}));
    EXPECT_THAT(dicionario.Falhas(), IsEmpty());
}
