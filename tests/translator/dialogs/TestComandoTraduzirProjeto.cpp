// KVTRANSLATEPROJ as a user runs it: real windows, a real dictionary, a real drawing.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <map>
#include <set>

#include "platform/drawing/DbDictionary.h"
#include "tests/translator/dialogs/JanelaDeTraducao.h"

namespace {

constexpr int kIdiomas = 5;
constexpr const char* kNomes[kIdiomas] = {"Português", "English", "Deutsch", "Español", "Français"};
constexpr int kEnglish = 1, kDeutsch = 2;

using Termo = std::array<std::string, kIdiomas>;
using Termos = std::map<std::string, Termo>;  // by the Portuguese text

Termos TermosDe(Projeto& projeto) {
    const std::string json = projeto.Kelvara({"--json", "db", "terms"});
    Termos termos;
    for (const QJsonValue& linha :
         QJsonDocument::fromJson(QByteArray::fromStdString(json)).array()) {
        Termo termo;
        for (int i = 0; i < kIdiomas; ++i) termo[i] = linha[kNomes[i]].toString().toStdString();
        termos.emplace(termo[0], termo);
    }
    return termos;
}

struct Linha {
    std::string tipo, chave, texto;
};

std::vector<Linha> LinhasDe(const std::string& saida) {
    std::vector<Linha> linhas;
    for (const QString& linha : QString::fromStdString(saida).split('\n', Qt::SkipEmptyParts)) {
        const QStringList campos = linha.split('\t');
        linhas.push_back(
            {campos[0].toStdString(), campos[1].toStdString(), campos[2].toStdString()});
    }
    return linhas;
}

// A drawing before its translation: every text of it, and which of them the scan of PAG01 finds.
class Antes {
  public:
    explicit Antes(Projeto& projeto) : termos(TermosDe(projeto)) {
        const QString desenho = projeto.Arquivo("block_pages.dxf");
        textos = LinhasDe(projeto.Kelvara({"texts", desenho}));
        for (const Linha& linha :
             LinhasDe(projeto.Kelvara({"texts", desenho, "--pages", "PAG01"}))) {
            if (termos.count(linha.texto)) naPagina[linha.chave] = linha.texto;
        }
    }
    void Acrescentar(const Termo& termo) {
        for (const Linha& linha : textos) {
            if (linha.texto == termo[0] && linha.tipo == "block-text") {
                naPagina[linha.chave] = termo[0];
            }
        }
        termos[termo[0]] = termo;
    }

    // What all texts must be, those of the page in the first of the languages that has a text.
    std::string TextosEm(std::initializer_list<int> idiomas) const {
        std::string saida;
        for (const auto& [tipo, chave, texto] : textos) {
            const auto traduzido = naPagina.find(chave);
            std::string novo;
            for (const int idioma : idiomas) {
                if (traduzido == naPagina.end() || !novo.empty()) break;
                novo = termos.at(traduzido->second)[idioma];
            }
            saida += tipo + "\t" + chave + "\t" + (novo.empty() ? texto : novo) + "\n";
        }
        return saida;
    }
    // What the drawing must remember, and nothing else.
    std::set<std::string> Registros() const {
        std::set<std::string> registros;
        for (const auto& [chave, texto] : naPagina) {
            for (int i = 0; i < kIdiomas; ++i) {
                registros.insert(chave + "\t" + std::to_string(i + 1) + "\t" + termos.at(texto)[i]);
            }
        }
        return registros;
    }

  private:
    Termos termos;
    std::vector<Linha> textos;
    std::map<std::string, std::string> naPagina;  // text by key
};

// The first line that is not the same in both, and how many lines there are.
std::string Diferencas(const std::string& achado, const std::string& esperado) {
    if (achado == esperado) return {};
    const QStringList a = QString::fromStdString(achado).split('\n');
    const QStringList b = QString::fromStdString(esperado).split('\n');
    qsizetype i = 0;
    while (i < std::min(a.size(), b.size()) && a[i] == b[i]) ++i;
    return QString("%1 and %2 lines, \"%3\" for \"%4\"")
        .arg(a.size())
        .arg(b.size())
        .arg(a.value(i), b.value(i))
        .toStdString();
}

// As ezdxf reads them.
std::set<std::string> RegistrosDe(Projeto& projeto, const QString& desenho) {
    const std::string saida = projeto.Python("extract_records.py", {desenho});
    std::set<std::string> registros;
    for (const QString& linha : QString::fromStdString(saida).split('\n', Qt::SkipEmptyParts)) {
        registros.insert(linha.toStdString());
    }
    return registros;
}

}  // namespace

TEST(ComandoTraduzirProjeto, FromTheEmptyDialogToASavedDrawing) {
    Projeto projeto("block_pages.dxf");
    Antes antes(projeto);
    projeto.paginas = {u"PAG01"};
    const QString csv = projeto.Arquivo("troca.csv");
    projeto.caixas.respostas = {kButtonOk, kButtonOk, kButtonOk, kButtonOk, kButtonYes, kButtonOk};
    Usuario usuario;
    usuario
        .Entao([](CWnd& janela) {
            EXPECT_EQ(Linhas(janela).GetHeaderCtrl()->GetItemCount(), 0);
            EXPECT_FALSE(janela.GetDlgItem(kBotaoTraduzir)->IsWindowEnabled());
            EXPECT_TRUE(EntradasDe(janela, kListaDestino).empty());
            Clicar(janela, kBotaoLer);
        })
        .Entao([&](CWnd& janela) {
            EXPECT_EQ(TextoDe(janela, kListaOrigem), "Português");
            EXPECT_EQ(EntradasDe(janela, kListaDestino),
                      (std::vector<std::string>{"English", "Deutsch", "Español", "Français"}));
            Escolher(janela, kListaDestino, "Deutsch");
            EXPECT_EQ(TraducaoDe(janela, "Tensão nominal"), "");
            Clicar(janela, kBotaoCarregar);
            EXPECT_EQ(TraducaoDe(janela, "Tensão nominal"), "Bemessungsspannung");
            // An editor that is opened and left commits what it was opened with.
            CListCtrl& lista = Linhas(janela);
            const int linha = LinhaCom(lista, kOriginal, "Tensão nominal");
            const std::string estado = TextoDe(lista, linha, 0);
            AbrirEditor(lista, linha, kTraducao);
            Digitar(lista, LinhaCom(lista, kOriginal, "10 kA"), kTraducao, "");
            EXPECT_EQ(TextoDe(lista, linha, 0), estado);
            EXPECT_EQ(TraducaoDe(janela, "Tensão nominal"), "Bemessungsspannung");

            Filtrar(janela, false, false, false, false);
            EXPECT_EQ(Linhas(janela).GetItemCount(), 0);
            Filtrar(janela, true, false, false, false);
            EXPECT_EQ(LinhaCom(Linhas(janela), kOriginal, "Tensão nominal"), -1);
            Digitar(Linhas(janela), LinhaCom(Linhas(janela), kOriginal, "60 Hz"), kTraducao,
                    "60 Hertz");
            EXPECT_EQ(TraducaoDe(janela, "60 Hz"), "60 Hertz");
            Filtrar(janela, true, false, false, false);
            Clicar(janela, kBotaoExportar);
            EXPECT_TRUE(LerArquivo(csv).startsWith("380 V;\r\n"));
            QByteArray editado = LerArquivo(csv);
            EscreverArquivo(csv, editado.replace("380 V;\r\n", "380 V;380 Volt\r\n"));
            Clicar(janela, kBotaoImportar);
            Filtrar(janela, true, true, true, true);
            EXPECT_EQ(TraducaoDe(janela, "380 V"), "380 Volt");
            EXPECT_EQ(TraducaoDe(janela, "60 Hz"), "60 Hertz");

            Clicar(janela, kBotaoSalvar);
            Clicar(janela, kBotaoSalvarProjeto);
            Clicar(janela, kBotaoSubstituir);
            EXPECT_EQ(Linhas(janela).GetItemCount(), 0);
            EXPECT_FALSE(janela.GetDlgItem(kListaDestino)->IsWindowEnabled());
            Clicar(janela, kBotaoFechar);
        });
    const auto escolher = [&](QWidget& dialogo) { EscolherArquivo(dialogo, csv); };
    usuario.EntaoNoQt(escolher).EntaoNoQt(escolher);
    usuario.Durante([&] { EXPECT_TRUE(projeto.Executar("KVTRANSLATEPROJ").done); });
    EXPECT_EQ(projeto.caixas.textos.size(), 6u);

    projeto.Salvar("traduzido.dxf");
    antes.Acrescentar({"60 Hz", "", "60 Hertz", "", ""});
    antes.Acrescentar({"380 V", "", "380 Volt", "", ""});
    const QString traduzido = projeto.Arquivo("traduzido.dxf");
    EXPECT_EQ(Diferencas(projeto.Kelvara({"texts", traduzido}), antes.TextosEm({kDeutsch})), "");
    EXPECT_EQ(
        Diferencas(projeto.Python("extract_texts.py", {traduzido}), antes.TextosEm({kDeutsch})),
        "");
    EXPECT_EQ(RegistrosDe(projeto, traduzido), antes.Registros());
    EXPECT_EQ(TermosDe(projeto)["60 Hz"], (Termo{"60 Hz", "", "60 Hertz", "", ""}));
    // kelvara reads the records too: they give the page in English.
    const QString ingles = projeto.Arquivo("ingles.dxf");
    projeto.Kelvara({"switch", traduzido, "--to", "English", "-o", ingles});
    EXPECT_EQ(Diferencas(projeto.Python("extract_texts.py", {ingles}),
                         antes.TextosEm({kEnglish, kDeutsch})),
              "");
}

TEST(ComandoTraduzirProjeto, EndsWithTheRecordsWrittenAndTheWizardShown) {
    Projeto projeto("block_pages.dxf");
    const Antes antes(projeto);
    const std::string textos = projeto.Kelvara({"texts", projeto.Arquivo("block_pages.dxf")});
    projeto.paginas = {u"PAG01"};
    Usuario usuario;
    usuario.Entao([](CWnd& janela) { Clicar(janela, kBotaoLer); })
        .Entao([](CWnd& janela) {
            Escolher(janela, kListaDestino, "Deutsch");
            Clicar(janela, kBotaoCarregar);
            Clicar(janela, kBotaoTraduzir);
        })
        .Entao([](CWnd& assistente) {
            EXPECT_EQ(TextoDe(PaginaDe(assistente), 252), "Deutsch") << "the dialog's target";
            Clicar(assistente, IDCANCEL);
        });
    usuario.Durante([&] { EXPECT_TRUE(projeto.Executar("KVTRANSLATEPROJ").done); });
    projeto.Salvar("registrado.dxf");
    const QString registrado = projeto.Arquivo("registrado.dxf");
    EXPECT_EQ(RegistrosDe(projeto, registrado), antes.Registros());
    EXPECT_EQ(Diferencas(projeto.Python("extract_texts.py", {registrado}), textos), "");
    EXPECT_EQ(projeto.anfitriao.ProjectLanguage(*projeto.documento), 1);
}

// The scan of the commands wants block references where attributes are asked for.
TEST(ComandoTraduzirProjeto, StopsAtALooseTextUnlessAttributesAreLeftOut) {
    Projeto projeto("control_panel.dxf");
    const std::string antes = projeto.Bytes();
    Usuario usuario;
    usuario.Entao([](CWnd& janela) { Clicar(janela, kBotaoLer); });
    host::CommandOutcome fim;
    usuario.Durante([&] { fim = projeto.Executar("KVTRANSLATEPROJ"); });
    EXPECT_FALSE(fim.done);
    const QString falha = QString::fromStdU16String(fim.failure);
    // The first entity of the first page that is no block reference.
    for (const char* parte : {"OdDbBlockReference", "OdDbText", "213"}) {
        EXPECT_TRUE(falha.contains(parte)) << falha.toStdString();
    }
    EXPECT_TRUE(projeto.Registro().contains(falha));
    EXPECT_EQ(projeto.Bytes(), antes);

    usuario
        .Entao([](CWnd& janela) {
            Marcar(janela, kEscopoAtributos, false);
            Clicar(janela, kBotaoLer);
        })
        .Entao([](CWnd& janela) {
            EXPECT_GT(Linhas(janela).GetItemCount(), 10);
            EXPECT_EQ(janela.IsDlgButtonChecked(kEscopoAtributos), UINT{BST_UNCHECKED});
            Clicar(janela, kBotaoFechar);
        });
    usuario.Durante([&] { EXPECT_TRUE(projeto.Executar("KVTRANSLATEPROJ").done); });
}

// The data of a virtual attribute take 255 bytes, a file of translations more.
TEST(ComandoTraduzirProjeto, OneUndoTakesBackAReplacementThatFailedOnItsWay) {
    Projeto projeto("block_pages.dxf");
    const std::string antes = projeto.Bytes();
    const QString csv = projeto.Arquivo("troca.csv");
    EscreverArquivo(csv, "Casa de bombas;" + QByteArray(300, 'x') + "\r\n");
    Usuario usuario;
    usuario.Entao([](CWnd& janela) { Clicar(janela, kBotaoLer); })
        .Entao([](CWnd& janela) {
            Escolher(janela, kListaDestino, "Deutsch");
            Clicar(janela, kBotaoImportar);
            Clicar(janela, kBotaoCarregar);
            Clicar(janela, kBotaoSubstituir);
        })
        .EntaoNoQt([&](QWidget& dialogo) { EscolherArquivo(dialogo, csv); });
    host::CommandOutcome fim;
    usuario.Durante([&] { fim = projeto.Executar("KVTRANSLATEPROJ"); });
    EXPECT_FALSE(fim.done);
    EXPECT_TRUE(QString::fromStdU16String(fim.failure).contains("255"))
        << QString::fromStdU16String(fim.failure).toStdString();
    EXPECT_NE(projeto.Bytes(), antes);
    projeto.documento->Undo();
    EXPECT_EQ(projeto.Bytes(), antes);
}

// A scan that finds nothing shows the dialog again as at first, with the languages it had; one that
// finds something brings those that the dictionary has then.
TEST(ComandoTraduzirProjeto, EachScanSettlesWhatTheDialogShows) {
    Projeto projeto("block_pages.dxf");
    const std::vector<std::string> quatro(kNomes + 1, kNomes + kIdiomas);
    Usuario usuario;
    usuario.Entao([](CWnd& janela) { Clicar(janela, kBotaoLer); })
        .Entao([&](CWnd& janela) {
            EXPECT_EQ(EntradasDe(janela, kListaDestino), quatro);
            projeto.Kelvara({"db", "add-language", "Italiano"});
            projeto.paginas = {u"0"};
            OdDbDictionaryPtr(
                projeto.documento->GetDwgDatabase()->getNamedObjectsDictionaryId().openObject(
                    OdDb::kForWrite))
                ->remove(u"ESQ_VIRTUAL_TQ");
            Clicar(janela, kBotaoLer);
        })
        .Entao([&](CWnd& janela) {
            EXPECT_EQ(Linhas(janela).GetHeaderCtrl()->GetItemCount(), 0);
            EXPECT_FALSE(janela.GetDlgItem(kBotaoTraduzir)->IsWindowEnabled());
            EXPECT_EQ(EntradasDe(janela, kListaDestino), quatro);
            projeto.paginas = {u"PAG02"};
            Clicar(janela, kBotaoLer);
        })
        .Entao([&](CWnd& janela) {
            EXPECT_TRUE(janela.GetDlgItem(kBotaoTraduzir)->IsWindowEnabled());
            EXPECT_EQ(EntradasDe(janela, kListaDestino).back(), "Italiano");
            Clicar(janela, kBotaoFechar);
        });
    usuario.Durante([&] { EXPECT_TRUE(projeto.Executar("KVTRANSLATEPROJ").done); });
}
