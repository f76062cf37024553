// The records of an editable list: columns, rows, cells, and who is told of edits.
#include "translator/listview/CIListViewEdit.h"

#include <algorithm>
#include <iterator>

namespace ListView {
namespace {

constexpr int kFormatoColuna = 8;  // the format code of every column

// The part up to the last backslash, without it; empty where there is none.
TQString PastaDoValor(const TQString& value) {
    const size_t slash = value.rfind(u'\\');
    return slash == TQString::npos ? TQString() : TQString(value.substr(0, slash));
}

// In place: the memory of former values serves again.
void PorValores(TQStringList& values, const TQString& value) { values.assign(1, value); }
void PorValores(TQStringList& values, const TQStringList& all) { values = all; }

// Null for an index out of range.
const TQString* ValorEm(const CIListViewPropriedadeItem& cell, int32_t index) {
    if (index < 0 || index >= static_cast<int32_t>(cell.valores.size())) return nullptr;
    return &*std::next(cell.valores.begin(), index);
}

template <class Valores>
void Preencher(CIListViewPropriedadeItem& cell, const TQString& key, const Valores& values,
               int32_t limit, int32_t kind, int32_t format, bool editable, int32_t index) {
    cell.chave = key;
    PorValores(cell.valores, values);
    cell.indice = index;
    cell.tipo = kind;
    cell.formato = format;
    cell.limite = limit;
    cell.editavel = editable && !cell.valores.empty();
}

void Escolher(CIListViewPropriedadeItem& cell, int32_t index) {
    cell.indiceAnterior = cell.indice;
    cell.indice = index;
}

const TQString& Primeiro(const TQString& value) { return value; }
const TQString& Primeiro(const TQStringList& values) {
    static const TQString none;
    return values.empty() ? none : values.front();
}

}  // namespace

// While this is still whole: an open editor sends its value when its window goes.
CIListViewEdit::~CIListViewEdit() { DestroyWindow(); }

int CIListViewEdit::AddColumn(const TQString& title, int32_t width, bool dark) {
    if (!titulos) return -1;
    SetExtendedStyle(LVS_EX_DOUBLEBUFFER | LVS_EX_INFOTIP | LVS_EX_FULLROWSELECT);
    ModifyStyle(0, LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS);
    const int column = InsertColumn(titulos->GetSize(), title, kFormatoColuna, width);
    if (dark) colunasEscuras.push_back(column);
    titulos->Add(title);
    return column;
}

int CIListViewEdit::GetColumnCount() const { return titulos ? titulos->GetSize() : 0; }

CIListViewPropriedadeItem* CIListViewEdit::AddItem(const TQString& key, const TQString&,
                                                   const TQString& value, int32_t limit,
                                                   int32_t kind, int32_t format, bool editable,
                                                   int32_t index) {
    return AcrescentarItem(key, value, limit, kind, format, editable, index);
}

CIListViewPropriedadeItem* CIListViewEdit::AddItem(const TQString& key, const TQString&,
                                                   const TQStringList& values, int32_t limit,
                                                   int32_t kind, int32_t format, bool editable,
                                                   int32_t index) {
    return AcrescentarItem(key, values, limit, kind, format, editable, index);
}

CELstPropriedadeSubItem& CIListViewEdit::NovaLinha() {
    if (livres.empty())
        return *linhas.emplace_back(std::make_unique<CELstPropriedadeSubItem>(GetColumnCount()));
    linhas.push_back(std::move(livres.back()));
    livres.pop_back();
    linhas.back()->Reiniciar(GetColumnCount());
    return *linhas.back();
}

template <class Valores>
CIListViewPropriedadeItem* CIListViewEdit::AcrescentarItem(const TQString& key,
                                                           const Valores& values, int32_t limit,
                                                           int32_t kind, int32_t format,
                                                           bool editable, int32_t index) {
    const int row = InsertItem(GetItemCount(), Primeiro(values));
    if (row < 0) return nullptr;
    CELstPropriedadeSubItem& cells = NovaLinha();
    SetItemData(row, reinterpret_cast<LPARAM>(&cells));
    if (cells.IsEmpty()) return nullptr;
    CIListViewPropriedadeItem& cell = cells.ParaPorValores(0);
    Preencher(cell, key, values, limit, kind, format, editable, index);
    return &cell;
}

CIListViewPropriedadeItem* CIListViewEdit::SetSubItem(int32_t row, int32_t col, const TQString& key,
                                                      const TQString&, const TQString& value,
                                                      int32_t limit, int32_t kind, int32_t format,
                                                      bool editable, int32_t index) {
    return PorCelula(row, col, key, value, limit, kind, format, editable, index);
}

CIListViewPropriedadeItem* CIListViewEdit::SetSubItem(int32_t row, int32_t col, const TQString& key,
                                                      const TQString&, const TQStringList& values,
                                                      int32_t limit, int32_t kind, int32_t format,
                                                      bool editable, int32_t index) {
    return PorCelula(row, col, key, values, limit, kind, format, editable, index);
}

template <class Valores>
CIListViewPropriedadeItem* CIListViewEdit::PorCelula(int32_t row, int32_t col, const TQString& key,
                                                     const Valores& values, int32_t limit,
                                                     int32_t kind, int32_t format, bool editable,
                                                     int32_t index) {
    CELstPropriedadeSubItem* cells = Linha(row);
    if (!cells) return nullptr;
    CIListViewPropriedadeItem& cell = cells->ParaPorValores(col);
    Preencher(cell, key, values, limit, kind, format, editable, index);
    const TQString& value = Primeiro(cell.valores);
    SetItemText(row, col, value);
    if (kind == ARQUIVO) pastaAtual = pastaBase + PastaDoValor(value);
    return &cell;
}

CELstPropriedadeSubItem* CIListViewEdit::Linha(int32_t row) const {
    if (row < 0 || row >= GetItemCount()) return nullptr;
    return reinterpret_cast<CELstPropriedadeSubItem*>(GetItemData(row));
}

CIListViewPropriedadeItem* CIListViewEdit::Celula(int32_t row, int32_t col) const {
    CELstPropriedadeSubItem* cells = Linha(row);
    return cells ? cells->GetAt(col) : nullptr;
}

const CIListViewPropriedadeItem* CIListViewEdit::Ver(int32_t row, int32_t col) const {
    const CELstPropriedadeSubItem* cells = Linha(row);
    return cells ? &cells->Ver(col) : nullptr;
}

const CIListViewPropriedadeItem* CIListViewEdit::VerSeHouver(int32_t row, int32_t col) const {
    const CELstPropriedadeSubItem* cells = Linha(row);
    return cells && col >= 0 && col < cells->GetSize() ? &cells->Ver(col) : nullptr;
}

int32_t CIListViewEdit::SetEditavel(int32_t row, int32_t col, bool editable) {
    CIListViewPropriedadeItem* cell = Celula(row, col);
    if (!cell) return -1;
    cell->editavel = editable;
    return 0;
}

int32_t CIListViewEdit::SetValor(int32_t row, int32_t col, const TQString& value) {
    CIListViewPropriedadeItem* cell = Celula(row, col);
    if (!cell) return 0;
    cell->valores.assign(1, value);
    Escolher(*cell, 0);
    MostrarValor(row, col, *cell);
    return 1;
}

int32_t CIListViewEdit::SetIndice(int32_t row, int32_t col, int32_t index) {
    CIListViewPropriedadeItem* cell = Celula(row, col);
    if (!cell) return -1;
    Escolher(*cell, index);
    MostrarValor(row, col, *cell);
    return 0;
}

void CIListViewEdit::MostrarValor(int32_t row, int32_t col, const CIListViewPropriedadeItem& cell) {
    const TQString* value = ValorEm(cell, cell.indice);
    SetItemText(row, col, value ? value->c_str() : u"");
}

TQString CIListViewEdit::GetValor(int32_t row, int32_t col, int32_t index) const {
    const CIListViewPropriedadeItem* cell = Ver(row, col);
    const TQString* value = cell ? ValorEm(*cell, index) : nullptr;
    return value ? *value : TQString();
}

TQString CIListViewEdit::GetChave(int32_t row, int32_t col) const {
    const CIListViewPropriedadeItem* cell = Ver(row, col);
    return cell ? cell->chave : TQString();
}

int32_t CIListViewEdit::GetIndice(int32_t row, int32_t col) const {
    const CIListViewPropriedadeItem* cell = Ver(row, col);
    return cell ? cell->indice : -1;
}

int32_t CIListViewEdit::GetTipo(int32_t row, int32_t col) const {
    const CIListViewPropriedadeItem* cell = Ver(row, col);
    return cell ? cell->tipo : -1;
}

int32_t CIListViewEdit::GetLimite(int32_t row, int32_t col) const {
    const CIListViewPropriedadeItem* cell = Ver(row, col);
    return cell ? cell->limite : -1;
}

int32_t CIListViewEdit::GetFormato(int32_t row, int32_t col) const {
    const CIListViewPropriedadeItem* cell = Ver(row, col);
    return cell ? cell->formato : -1;
}

int32_t CIListViewEdit::ClearValores(int32_t row, int32_t col) {
    if (CIListViewPropriedadeItem* cell = Celula(row, col)) cell->valores.clear();
    return 0;
}

void CIListViewEdit::AddListener(ListViewEditListener* listener) { ouvintes.push_back(listener); }

void CIListViewEdit::RemoveListener(ListViewEditListener* listener) {
    std::erase(ouvintes, listener);
}

void CIListViewEdit::AvisarOuvintes(AvisoOuvinte aviso, int32_t row, int32_t col) {
    const std::vector<ListViewEditListener*> told = ouvintes;  // the calls may change ouvintes
    for (ListViewEditListener* listener : told)
        if (std::find(ouvintes.begin(), ouvintes.end(), listener) != ouvintes.end())
            (listener->*aviso)(row, col);
}

BOOL CIListViewEdit::DeleteItem(int row) {
    CELstPropriedadeSubItem* data = Linha(row);
    const BOOL deleted = CListCtrl::DeleteItem(row);
    if (deleted && data)
        std::erase_if(linhas, [&](const auto& owned) { return owned.get() == data; });
    return deleted;
}

BOOL CIListViewEdit::DeleteAllItems() {
    const BOOL deleted = CListCtrl::DeleteAllItems();
    if (deleted) {
        livres.insert(livres.end(), std::make_move_iterator(linhas.rbegin()),
                      std::make_move_iterator(linhas.rend()));
        linhas.clear();
    }
    linhasSelecionadas.clear();
    return deleted;
}

// The object may get another window, as a dialog can be shown again. Columns ever added stay
// counted.
void CIListViewEdit::OnNcDestroy() {
    linhas.clear();
    livres.clear();
    linhasSelecionadas.clear();
    fonteLista.reset();
    editando = 0;
    CListCtrl::OnNcDestroy();
}

}  // namespace ListView
