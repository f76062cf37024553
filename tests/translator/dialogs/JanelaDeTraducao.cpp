// The project translation dialog, filled as its command fills it.
#include "tests/translator/dialogs/JanelaDeTraducao.h"

#include "platform/text/Conversion.h"
#include "translator/engine/ITradCad.h"
#include "translator/engine/RegistrosTraducao.h"

using traducaoTQ::IBDIdiomas;

CListCtrl& Linhas(CWnd& janela) { return ListaDe(janela, kListaExpressoes); }

std::string TraducaoDe(CWnd& janela, const char* original) {
    const int linha = LinhaCom(Linhas(janela), kOriginal, original);
    return linha < 0 ? "no such line" : TextoDe(Linhas(janela), linha, kTraducao);
}

std::vector<std::string> ColunaDe(CWnd& janela, int coluna) {
    const CListCtrl& lista = Linhas(janela);
    std::vector<std::string> textos;
    for (int linha = 0; linha < lista.GetItemCount(); ++linha) {
        textos.push_back(TextoDe(lista, linha, coluna));
    }
    return textos;
}

void Filtrar(CWnd& janela, bool naoTraduzido, bool automatica, bool manual, bool importado) {
    Marcar(janela, kFiltroNaoTraduzido, naoTraduzido);
    Marcar(janela, kFiltroAutomatica, automatica);
    Marcar(janela, kFiltroManual, manual);
    Marcar(janela, kFiltroImportado, importado);
}

void Traduzir(CWnd& janela, const char* original, const char* traducao) {
    CListCtrl& lista = Linhas(janela);
    Digitar(lista, LinhaCom(lista, kOriginal, original), kTraducao, traducao);
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

void JanelaDeTraducao::Ler(const char16_t* idiomaProjeto) {
    projeto.paginas = {u"PAG01"};
    janela = std::make_unique<ITradutorProj>(nullptr);
    janela->idiomas = IBDIdiomas().GetAllLang();
    janela->idiomaProjeto = idiomaProjeto;
    janela->projetoLido = true;
    janela->objetos =
        traducaoTQ::ITradCad().BuscarTraduziveis(true, true, true, true, false, false, true);
    janela->AgruparExpressoes(*janela->objetos);
    projeto.caixas.textos.clear();
}

void JanelaDeTraducao::UsarIdioma(const char16_t* chave, bool usar) {
    for (IBDIdiomas::structIdioma idioma : IBDIdiomas().GetAllLang()) {
        if (!(idioma.key == chave)) continue;
        idioma.use = usar ? u"1" : u"0";
        IBDIdiomas().UpdateLang(idioma);
    }
}

int JanelaDeTraducao::Mostrar(const std::function<void(CWnd&)>& ato) {
    int resultado = 0;
    Usuario usuario;
    usuario.Entao([&](CWnd& dialogo) {
        ato(dialogo);
        if (dialogo.IsWindowVisible()) janela->EndDialog(kFicouAberta);
    });
    usuario.Durante([&] { resultado = janela->DoModal(); });
    return resultado;
}

int JanelaDeTraducao::Mostrar(const std::function<void(CWnd&)>& ato, const QString& caminho) {
    int resultado = 0;
    Usuario usuario;
    usuario
        .Entao([&](CWnd& dialogo) {
            ato(dialogo);
            janela->EndDialog(kFicouAberta);
        })
        .EntaoNoQt([&](QWidget& dialogo) { EscolherArquivo(dialogo, caminho); });
    usuario.Durante([&] { resultado = janela->DoModal(); });
    return resultado;
}

const traducaoTQ::structExpressao& JanelaDeTraducao::Expressao(const char16_t* original) {
    for (const auto& expressao : *janela->expressoes) {
        if (expressao->original == original) return *expressao;
    }
    throw std::out_of_range("no line has this original");
}

size_t JanelaDeTraducao::Termos() { return IBDIdiomas().GetTerms()->terms.size(); }

std::string JanelaDeTraducao::Registrados(const char16_t* chave) {
    std::string juntos;
    const auto registros = traducaoTQ::ReadObjectRecords(CString(chave));
    for (const auto& [idioma, texto] : *registros) {
        juntos += text::NarrowFromWide(idioma + u"=" + texto) + "|";
    }
    return juntos;
}
