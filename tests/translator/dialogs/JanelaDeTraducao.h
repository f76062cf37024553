// The project translation dialog, filled as its command fills it, and what a user does in it.
#pragma once

#include "tests/translator/dialogs/Projeto.h"
#include "tests/translator/dialogs/Usuario.h"
#include "translator/dialogs/ui/ITradutorProj.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

inline constexpr int kEstado = 0, kOriginal = 1, kTraducao = 2;  // columns

CListCtrl& Linhas(CWnd& janela);
// The translation in the list; "no such line" where no row has the original.
std::string TraducaoDe(CWnd& janela, const char* original);
std::vector<std::string> ColunaDe(CWnd& janela, int coluna);
void Filtrar(CWnd& janela, bool naoTraduzido, bool automatica, bool manual, bool importado);
// Over the translation of the row with that original.
void Traduzir(CWnd& janela, const char* original, const char* traducao);

void EscreverArquivo(const QString& caminho, const QByteArray& bytes);
QByteArray LerArquivo(const QString& caminho);

class JanelaDeTraducao : public testing::Test {
  protected:
    static constexpr int kFicouAberta = -1;

    // A new dialog as after a scan of PAG01.
    void Ler(const char16_t* idiomaProjeto = u"1");
    void UsarIdioma(const char16_t* chave, bool usar);  // in the database
    // Shows the dialog and lets the user act; its result.
    int Mostrar(const std::function<void(CWnd& janela)>& ato);
    // Also in the file dialog that the act opens; an empty path cancels it.
    int Mostrar(const std::function<void(CWnd& janela)>& ato, const QString& caminho);

    const traducaoTQ::structExpressao& Expressao(const char16_t* original);
    size_t Termos();  // of the dictionary in the database
    // What the drawing remembers of the object in each language, joined by "|".
    static std::string Registrados(const char16_t* chave);

    Projeto projeto{"block_pages.dxf"};
    std::unique_ptr<ITradutorProj> janela;
};
