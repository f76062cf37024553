// CIListViewEdit: a report list whose editable cells read like links and open an editor at a click.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <vector>

#include "platform/window/CFont.h"
#include "platform/window/CListCtrl.h"
#include "translator/cad/TQString.h"
#include "translator/cad/TQStringList.h"
#include "translator/listview/CIListViewPropriedadeItem.h"
#include "translator/listview/ListViewEditListener.h"

namespace ListView {

struct structFimIndice;

// The value of a cell lives in a record of its row, the control's text only shows it. Rows and
// columns count from 0. Operations on a row without data do nothing and give the value told
// beside them; a column that the row does not have throws CInvalidArgException.
class CIListViewEdit : public CListCtrl {
    DECLARE_DYNAMIC(CIListViewEdit)

  public:
    CIListViewEdit() = default;
    ~CIListViewEdit() override;  // ends an open editor, which still delivers its value

    // What owners may set; it counts from the next drawing or edit on.
    bool bloqueado = false;                  // read-only as a whole
    TQString pastaBase;                      // base folder of file cells
    std::vector<int32_t> linhasSeparadoras;  // rows drawn as a horizontal line
    std::vector<int32_t> linhasTitulo;       // rows drawn as a centred title
    bool manterPrimeiro = false;             // proposals: the first stays, the typed text is second

    // The number of the new column in the control. Its index is asked for as the count of all
    // columns ever added, which never shrinks: after a deletion the control appends it.
    // Read-only cells of a dark column are drawn in button-text colour instead of grey.
    int AddColumn(const TQString& title, int32_t width, bool dark);
    int GetColumnCount() const;  // of all columns ever added

    // Append a row; the first cell, null without columns. The description is not kept. A cell
    // without values cannot be edited.
    CIListViewPropriedadeItem* AddItem(const TQString& key, const TQString& description,
                                       const TQString& value, int32_t limit, int32_t kind,
                                       int32_t format, bool editable, int32_t index);
    CIListViewPropriedadeItem* AddItem(const TQString& key, const TQString& description,
                                       const TQStringList& values, int32_t limit, int32_t kind,
                                       int32_t format, bool editable, int32_t index);

    // Set a cell of a row that exists; the cell, or null.
    CIListViewPropriedadeItem* SetSubItem(int32_t row, int32_t col, const TQString& key,
                                          const TQString& description, const TQString& value,
                                          int32_t limit, int32_t kind, int32_t format,
                                          bool editable, int32_t index);
    CIListViewPropriedadeItem* SetSubItem(int32_t row, int32_t col, const TQString& key,
                                          const TQString& description, const TQStringList& values,
                                          int32_t limit, int32_t kind, int32_t format,
                                          bool editable, int32_t index);

    // The record of a cell; null for a row without data. Valid until its row is deleted.
    CIListViewPropriedadeItem* Celula(int32_t row, int32_t col) const;

    int32_t SetEditavel(int32_t row, int32_t col, bool editable);       // 0, or -1
    int32_t SetValor(int32_t row, int32_t col, const TQString& value);  // 1, or 0
    int32_t SetIndice(int32_t row, int32_t col, int32_t index);         // 0, or -1
    TQString GetValor(int32_t row, int32_t col, int32_t index) const;   // empty out of range
    TQString GetChave(int32_t row, int32_t col) const;                  // empty
    int32_t GetIndice(int32_t row, int32_t col) const;                  // -1
    int32_t GetTipo(int32_t row, int32_t col) const;                    // -1
    int32_t GetLimite(int32_t row, int32_t col) const;                  // -1
    int32_t GetFormato(int32_t row, int32_t col) const;                 // -1
    int32_t ClearValores(int32_t row, int32_t col);                     // 0

    // Not owned; told in the order of registration. A listener may remove itself or others while
    // it is told of something; who is removed hears nothing more.
    void AddListener(ListViewEditListener* listener);
    void RemoveListener(ListViewEditListener* listener);
    using AvisoOuvinte = void (ListViewEditListener::*)(int32_t row, int32_t col);
    void AvisarOuvintes(AvisoOuvinte aviso, int32_t row, int32_t col);

    // Opens the editor of a cell. A row outside the list means that the user has walked off it:
    // the focus goes to the next control, for a negative row to the one before. True if an edit
    // has begun.
    bool BeginEdit(int32_t row, int32_t col);

    // F2 opens the first editable cell of the focused row, and in an editor the next one.
    BOOL PreTranslateMessage(MSG* message) override;

    // With partial a column that is partly in view stays where it is.
    void ScrollToColumn(int32_t col, bool partial);

    struct Posicao {
        int32_t row = -1;
        int32_t col = -1;
        bool operator==(const Posicao&) const = default;
    };
    Posicao HitTest(CPoint point);

    // The rows' records go with the rows. Rows deleted through CListCtrl& keep theirs until the
    // window is gone.
    BOOL DeleteItem(int row);
    BOOL DeleteAllItems();

  protected:
    // The titles of all columns ever added.
    std::unique_ptr<CArray<TQString>> titulos = std::make_unique<CArray<TQString>>();
    // The control's font, taken at the first drawing, and its kin.
    std::unique_ptr<CFont> fonteLista, fonteSublinhada, fonteNegrito, fonteNegritoSublinhada;
    int32_t editando = 0;       // an editor is open
    int32_t linhaEditada = -1;  // its row
    int32_t colunaEditada = -1;
    int32_t ultimaLinha = -1;  // of the last edit begun
    TQString pastaAtual;       // folder in which the file button opens
    std::vector<int32_t> colunasEscuras;
    std::vector<ListViewEditListener*> ouvintes;
    std::list<int32_t> linhasSelecionadas;  // the selection of a multi-selection list at the click
    bool edicaoMultipla = false;            // it was taken at the last click

    void OnNcDestroy();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    void OnMouseHWheel(UINT flags, short delta, CPoint point);
    void OnCustomDraw(NMHDR* header, LRESULT* result);
    void OnHotTrack(NMHDR* header, LRESULT* result);
    void OnBeginLabelEdit(NMHDR* header, LRESULT* result);
    LRESULT OnFimTexto(WPARAM, LPARAM record);
    LRESULT OnFimCombo(WPARAM, LPARAM record);
    LRESULT OnSelecaoCombo(WPARAM, LPARAM record);
    LRESULT OnFimArquivo(WPARAM, LPARAM record);
    LRESULT OnFimCor(WPARAM, LPARAM record);
    DECLARE_MESSAGE_MAP()

  private:
    CELstPropriedadeSubItem* Linha(int32_t row) const;
    CELstPropriedadeSubItem& NovaLinha();
    // Values are one text or a list of them.
    template <class Valores>
    CIListViewPropriedadeItem* AcrescentarItem(const TQString& key, const Valores& values,
                                               int32_t limit, int32_t kind, int32_t format,
                                               bool editable, int32_t index);
    template <class Valores>
    CIListViewPropriedadeItem* PorCelula(int32_t row, int32_t col, const TQString& key,
                                         const Valores& values, int32_t limit, int32_t kind,
                                         int32_t format, bool editable, int32_t index);
    void MostrarValor(int32_t row, int32_t col, const CIListViewPropriedadeItem& cell);

    // To read; null for a row without data.
    const CIListViewPropriedadeItem* Ver(int32_t row, int32_t col) const;
    // Null also for a column that a row does not have since it was added before the column.
    const CIListViewPropriedadeItem* VerSeHouver(int32_t row, int32_t col) const;

    void FocarVizinho(bool forwards);
    void EditarPeloTeclado();
    void AbrirEditor(int32_t row, int32_t col);
    bool IniciarNoPonto(CPoint point);
    void GuardarSelecao();
    bool NaSelecao(int32_t row) const;
    void AplicarTexto(int32_t row, int32_t col, const TQString& text);
    void AplicarIndice(int32_t row, int32_t col, int32_t index);
    void AplicarIndice(const structFimIndice& end);
    void AvisarPai(UINT message);

    LRESULT DesenharLinha(const NMLVCUSTOMDRAW& draw, int32_t row);
    LRESULT DesenharCelula(NMLVCUSTOMDRAW& draw, int32_t row, int32_t col);
    LRESULT DestacarEdicao(NMLVCUSTOMDRAW& draw, int32_t row, int32_t col,
                           const CIListViewPropriedadeItem& cell);
    CFont* FonteDaCelula(bool bold, bool underlined);
    void PrepararFontes();
    Posicao CelulaSobMouse();

    Posicao celulaSobMouse;                                        // during a drawing
    std::vector<std::unique_ptr<CELstPropriedadeSubItem>> linhas;  // owner of all item data
    // Of rows that are gone, for those to come: filters fill a list again and again.
    std::vector<std::unique_ptr<CELstPropriedadeSubItem>> livres;
};

}  // namespace ListView
