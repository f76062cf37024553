// IEdicaoIdiomas: the language editor. Renames languages and says which are in use; the set of
// languages is fixed.
#pragma once

#include <vector>

#include "platform/window/CDialog.h"
#include "translator/langdb/IBDIdiomas.h"
#include "translator/listview/CIListViewEdit.h"

class IEdicaoIdiomas : public CDialog {
    DECLARE_DYNAMIC(IEdicaoIdiomas)

  public:
    explicit IEdicaoIdiomas(CWnd* pai = nullptr);

  protected:
    // Sets the whole dialog up: no other code asks for an exchange.
    void DoDataExchange(CDataExchange* troca) override;
    void OnOK() override {
    }  // Enter ends the edit of a cell, never the dialog with its unsaved work
    DECLARE_MESSAGE_MAP()

  private:
    void CarregarTextos();
    void PreencherLista();
    void SalvarIdiomas();
    void BotaoOK();
    void BotaoAplicar();
    void BotaoCancelar();

    CString rotuloNaoUsado, rotuloUsado;
    CString tituloIdioma, tituloUso;
    ListView::CIListViewEdit lista;
    // As read, kept in step with what was saved. Position i is row i of the list.
    std::vector<traducaoTQ::IBDIdiomas::structIdioma> idiomas;
};
