// IEdicaoDicionario: the dictionary editor, one grid row per term. The grid is the only working
// copy: what a save writes is worked out from the rows and the terms as they were read.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/window/CButton.h"
#include "translator/langdb/IBDIdiomas.h"
#include "translator/listview/CIListViewEdit.h"
#include "translator/listview/CIResizableDialog.h"

class IEdicaoDicionario : public CIResizableDialog {
    DECLARE_DYNAMIC(IEdicaoDicionario)

  public:
    explicit IEdicaoDicionario(CWnd* pai);

    virtual void OnSize(UINT tipo, int cx, int cy);

  protected:
    void DoDataExchange(CDataExchange* troca) override;
    void OnOK() override {
    }  // Enter ends the edit of a cell, never the dialog with its unsaved work
    BOOL OnInitDialog() override;
    DECLARE_MESSAGE_MAP()

  private:
    using structTermo = traducaoTQ::IBDIdiomas::structTermo;
    using structTraducoes = traducaoTQ::IBDIdiomas::structTraducoes;
    struct Diferencas;

    static constexpr char16_t kChaveNova[] = u"-1";  // of a row that has no term yet

    static std::unique_ptr<structTraducoes> DicionarioVazio();

    void CarregarTextos();
    void PreencherLista();
    void AcrescentarLinha(const TQString& chave, const std::vector<TQString>& textos, int limite);
    Diferencas CompararComLista() const;
    bool LinhaDifere(int linha, const structTermo& termo) const;
    void LerLinha(int linha, structTermo& termo) const;
    void SalvarAlteracoes();
    void BotaoOK();
    void BotaoAplicar();
    void BotaoCancelar();
    void Adicionar();
    void Remover();
    void OrdenarColuna(NMHDR* aviso, LRESULT* resultado);
    static int CompararLinhas(LPARAM a, LPARAM b, LPARAM coluna);

    static bool ordemCrescente;
    static CListCtrl* listaOrdenada;

    // Last client width and height, then x and y of 209, 211, 210, 219 and 220.
    int32_t layout[12] = {};
    CString perguntaRemover;
    CButton btnOk, btnAplicar, btnCancelar, btnAdicionar, btnRemover;
    ListView::CIListViewEdit lista;
    std::unique_ptr<structTraducoes> traducoes;  // as read for the present fill; never null then
};
