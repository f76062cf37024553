// KVTRANSLATEPROJ as a user runs it: real windows, a real dictionary, a real drawing.
#include "tests/translator/dialogs/Projeto.h"
#include "tests/translator/dialogs/Usuario.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

namespace {

constexpr int kOriginal = 1, kTraducao = 2;

CListCtrl& Linhas(CWnd& janela) { return ListaDe(janela, kListaExpressoes); }

std::string TraducaoDe(CWnd& janela, const char* original) {
    const int linha = LinhaCom(Linhas(janela), kOriginal, original);
    return linha < 0 ? "no such line" : TextoDe(Linhas(janela), linha, kTraducao);
}

void Filtrar(CWnd& janela, bool naoTraduzido, bool automatica, bool manual, bool importado) {
    Marcar(janela, kFiltroNaoTraduzido, naoTraduzido);
    Marcar(janela, kFiltroAutomatica, automatica);
    Marcar(janela, kFiltroManual, manual);
    Marcar(janela, kFiltroImportado, importado);
}

void EscreverArquivo(const QString& caminho, const QByteArray& bytes) {
    QFile arquivo(caminho);
    ASSERT_TRUE(arquivo.open(QIODevice::WriteOnly));
    arquivo.write(bytes);
}

QByteArray LerArquivo(const QString& caminho) {
    QFile arquivo(caminho);
    EXPECT_TRUE(arquivo.open(QIODevice::ReadOnly)) << caminho.toStdString();
    return arquivo.readAll();
}

}  // namespace

TEST(ComandoTraduzirProjeto, FromTheEmptyDialogToASavedDrawing) {
    Projeto projeto("block_pages.dxf");
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
    const QStringList alvo{"texts", projeto.Arquivo("traduzido.dxf"), "--pages", "PAG01"};
    const QString textos = QString::fromStdString(projeto.Kelvara(alvo));
    for (const char* esperado : {"\t60 Hertz\n", "\t380 Volt\n", "\tBemessungsspannung\n"}) {
        EXPECT_TRUE(textos.contains(esperado)) << esperado;
    }
    EXPECT_FALSE(textos.contains("Tensão nominal"));
    const QStringList traduzido{projeto.Arquivo("traduzido.dxf")};
    const std::string ezdxf = projeto.Python("extract_texts.py", traduzido);
    EXPECT_EQ(projeto.Kelvara({"texts", traduzido[0]}), ezdxf);
    const QString registros =
        QString::fromStdString(projeto.Python("extract_records.py", traduzido));
    EXPECT_TRUE(registros.contains("\t3\tBemessungsspannung\n"));
    EXPECT_TRUE(registros.contains("\t1\tTensão nominal\n"));
    EXPECT_TRUE(registros.contains("\t3\t60 Hertz\n"));
    EXPECT_TRUE(QString::fromStdString(projeto.Kelvara({"db", "terms"})).contains("60 Hertz"));
}

TEST(ComandoTraduzirProjeto, EndsWithTheRecordsWrittenAndTheWizardShown) {
    Projeto projeto("block_pages.dxf");
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
    const QString registros = QString::fromStdString(
        projeto.Python("extract_records.py", {projeto.Arquivo("registrado.dxf")}));
    EXPECT_TRUE(registros.contains("\t3\tBemessungsspannung\n"));
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
    EXPECT_TRUE(falha.contains("OdDbBlockReference")) << falha.toStdString();
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
