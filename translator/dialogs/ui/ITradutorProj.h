// ITradutorProj: the project translation dialog, the main window of the translator. One list line
// per distinct text of the project; the command handler fills it between two runs of DoModal.
#pragma once

#include <optional>
#include <vector>

#include "platform/window/CButton.h"
#include "platform/window/CComboBox.h"
#include "platform/window/CDialog.h"
#include "translator/dialogs/AcoesSobreLinhas.h"
#include "translator/engine/ListaTraduziveis.h"
#include "translator/langdb/IBDIdiomas.h"
#include "translator/listview/CIListViewEdit.h"

// The lines and the dictionary belong to the table base class, the objects of the lines to
// `objetos`.
class ITradutorProj : public CDialog,
                      public ListView::ListViewEditListener,
                      public traducaoTQ::ITabelaExpressoes {
    DECLARE_DYNAMIC(ITradutorProj)

  public:
    using structIdioma = traducaoTQ::IBDIdiomas::structIdioma;

    // What DoModal gives beside IDOK, which the list of actions calls "Ler" too, and IDCANCEL.
    enum Resultado : int { Fechado = 0, LerDeNovo = 1, IniciarAssistente = 42 };

    explicit ITradutorProj(CWnd* pai);
    ~ITradutorProj() override;

    // The key of the chosen target language, "-1" while there is none.
    TQString GetIdiomaDestino() const { return idiomaDestino; }

    std::vector<structIdioma> idiomas;     // all languages, in use or not
    TQString idiomaProjeto = u"-1";        // key of the project's language
    traducaoTQ::ListaTraduziveis objetos;  // of the last scan; null before the first one
    bool projetoLido = false;              // a scan found objects
    bool buscarTextos = true;              // what the next scan looks for
    bool buscarAtributos = true;

    void OnCelulaEditada(int linha, int coluna) override;
    void OnSize(UINT tipo, int cx, int cy);
    void OnSizing(UINT lado, RECT* retangulo);

  protected:
    void DoDataExchange(CDataExchange* troca) override;
    BOOL OnInitDialog() override;
    DECLARE_MESSAGE_MAP()

  private:
    // Texts, controls
    void CarregarTextos();
    void HabilitarTrabalho();
    void DesabilitarTrabalho();
    void PreencherIdiomas();
    void SelecionarIdiomaDoProjeto();

    // List
    void PreencherLista(bool novasColunas);
    void AcrescentarLinha(int linha, const traducaoTQ::structExpressao& expressao);
    void PreencherDestino();
    uint32_t MascaraFiltro() const;
    void AtualizarDasListas();
    void OnFiltro();
    void OnColunaClicada(NMHDR* aviso, LRESULT* resultado);
    static int CompararLinhas(LPARAM a, LPARAM b, LPARAM coluna);

    // Languages and scope
    void OnIdiomaAlterado();
    void OnEscopoAlterado();

    // Actions
    void CarregarDicionario();
    void CarregarDicionarioProjeto();
    void SalvarDicionarioProjeto(bool silencioso);
    void SalvarDicionario(bool silencioso);
    bool TemIdiomaEmUso() const;
    std::optional<traducaoTQ::structColunas> ColunasDe(
        const std::optional<TQString>& origem, const std::optional<TQString>& destino) const;
    std::optional<traducaoTQ::structColunas> ColunasDoProjeto() const;
    std::optional<traducaoTQ::structColunas> ColunasDoDicionario() const;
    void OnSalvarProjeto() { SalvarDicionarioProjeto(false); }
    void OnSalvarDicionario() { SalvarDicionario(false); }
    void Traduzir();
    void Substituir();
    void Fechar();
    void Ler();
    void Exportar();
    void Importar();

    TQString tituloEstado, tituloOriginal, tituloDestino;
    TQString perguntaSalvar, avisoSalvo;
    TQString rotuloCsv, tituloImportar, avisoImportado, tituloExportar, avisoExportado;
    int32_t larguraMinima = 0;  // smallest track size, learnt at the first size
    int32_t alturaMinima = 0;
    traducaoTQ::TermosFeitos termosFeitos;  // terms made for a line live as long as the dialog
    bool alterado = false;                  // unsaved work from a dictionary load or an import
    TQString idiomaDestino = u"-1";
    int32_t indiceIdiomaProjeto = 0;  // position of the project's language among all languages

    ListView::CIListViewEdit lista;
    CComboBox listaOrigem, listaDestino;
    CButton filtroNaoTraduzido, filtroAutomatica, filtroManual, filtroImportado;
    CButton escopoTextos, escopoAtributos;
};
