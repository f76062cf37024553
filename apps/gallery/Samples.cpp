// The dialogs that the gallery takes pictures of.
#include "apps/gallery/Samples.h"

#include <array>

#include "platform/window/CComboBox.h"
#include "platform/window/CDataExchange.h"

using namespace ListView;

namespace {

constexpr UINT kList = 221, kCaption = 265, kOk = 209, kCancel = 210, kCombo = 222, kCheck = 224,
               kField = 240, kGroup = 270;

const DialogControl kListControls[] = {
    {ControlKind::LeftText, kCaption, u"Every kind of cell, in every state:", 7, 7, 200, 8},
    {ControlKind::ListView, kList, u"", 7, 18, 430, 145},
    {ControlKind::DefPushButton, kOk, u"OK", 333, 170, 50, 14},
    {ControlKind::PushButton, kCancel, u"Cancelar", 387, 170, 50, 14},
};
const DialogTemplate kListTemplate = {9001, u"List", 444, 191, WS_CAPTION, kListControls};
const DialogResource kListResource(kListTemplate);

const DialogControl kSizedControls[] = {
    {ControlKind::GroupBox, kGroup, u"Configurações:", 7, 7, 286, 56},
    {ControlKind::LeftText, kCaption, u"Traduzir para:", 16, 20, 66, 8},
    {ControlKind::DropDownList, kCombo, u"", 16, 30, 84, 60},
    {ControlKind::LeftText, kCaption + 1, u"Procurar:", 112, 20, 64, 8},
    {ControlKind::EditText, kField, u"", 112, 30, 80, 12},
    {ControlKind::AutoCheckBox, kCheck, u"Não Traduzido", 204, 20, 82, 10},
    {ControlKind::AutoCheckBox, kCheck + 1, u"Tradução Automática", 204, 34, 86, 10},
    {ControlKind::AutoCheckBox, kCheck + 2, u"Tradução Manual", 204, 48, 86, 10, WS_DISABLED},
    {ControlKind::ListView, kList, u"", 7, 70, 286, 90},
    {ControlKind::DefPushButton, kOk, u"OK", 189, 168, 50, 14},
    {ControlKind::PushButton, kCancel, u"Cancelar", 243, 168, 50, 14},
};
const DialogTemplate kSizedTemplate = {
    9002, u"Resizable", 300, 189, WS_CAPTION | WS_THICKFRAME, kSizedControls};
const DialogResource kSizedResource(kSizedTemplate);

TQStringList Values(std::initializer_list<const char16_t*> texts) {
    return TQStringList(std::vector<TQString>(texts.begin(), texts.end()));
}

void MakeRowsHigher(CListCtrl& list) {
    CImageList images;
    images.Create(1, 16, ILC_COLOR, 0, 0);
    list.SetImageList(&images, LVSIL_SMALL);
}

// The states, one for each column behind the first.
constexpr std::array kStates = {u"At rest", u"Bold", u"Highlighted", u"Disabled", u"Read-only"};

}  // namespace

ListSample::ListSample() { CDialog::Create(kListTemplate.id); }
ListSample::~ListSample() { DestroyWindow(); }

void ListSample::DoDataExchange(CDataExchange* exchange) { DDX_Control(exchange, kList, list); }

BOOL ListSample::OnInitDialog() {
    CDialog::OnInitDialog();
    MakeRowsHigher(list);
    list.AddColumn(u"Kind", 110, false);
    for (const char16_t* state : kStates) list.AddColumn(state, 104, false);
    const char16_t* number = u"160";
    AddRow(u"Title of the rows below", TEXTO, Values({u""}));
    AddRow(u"Text", TEXTO, Values({u"Disjuntor geral"}));
    AddRow(u"Digits", TEXTO, Values({u"12.5"}));
    AddRow(u"Options", LISTA, Values({u"em uso", u"fora de uso"}));
    AddRow(u"Proposals", TEXTO_PROPOSTAS, Values({u"Motor", u"Bomba", u"Compressor"}));
    AddRow(u"Colour", COR, Values({number}));
    AddRow(u"", TEXTO, Values({u""}));
    AddRow(u"File", ARQUIVO, Values({u"quadro_01"}));
    AddRow(u"Full path", ARQUIVO_COMPLETO, Values({u"C:\\desenhos\\quadro_01.dwg"}));
    AddRow(u"Action", ACAO, Values({u"abrir..."}));
    AddRow(u"Read-only", TEXTO, Values({u"Ação não editável"}));
    for (int32_t col = 1; col <= static_cast<int32_t>(kStates.size()); ++col)
        list.SetEditavel(kReadOnlyRow, col, false);
    list.linhasTitulo = {kTitleRow};
    list.linhasSeparadoras = {kSeparatorRow};
    return TRUE;
}

void ListSample::AddRow(const TQString& name, int32_t kind, const TQStringList& values) {
    const int row = list.GetItemCount();
    list.AddItem(u"", u"", name, 50, TEXTO, 1, false, 0);
    for (int32_t col = 1; col <= static_cast<int32_t>(kStates.size()); ++col) {
        CIListViewPropriedadeItem* cell =
            list.SetSubItem(row, col, u"", u"", values, 50, kind, 1, col < 5, 0);
        cell->complementos = Values({u"M1", u"B2", u"C3"});
        cell->negrito = col == 2;
        cell->destaque = col == 3;
        cell->desabilitado = col == 4;
    }
}

BEGIN_MESSAGE_MAP(ResizableSample, CIResizableDialog)
ON_WM_SIZE()
END_MESSAGE_MAP()

ResizableSample::ResizableSample() : CIResizableDialog(kSizedTemplate.id, nullptr) {
    CDialog::Create(kSizedTemplate.id);
}
ResizableSample::~ResizableSample() { DestroyWindow(); }

void ResizableSample::DoDataExchange(CDataExchange* exchange) {
    DDX_Control(exchange, kList, list);
}

BOOL ResizableSample::OnInitDialog() {
    CIResizableDialog::OnInitDialog();
    MakeRowsHigher(list);
    list.AddColumn(u"Original", 150, false);
    list.AddColumn(u"Deutsch", 150, false);
    const std::pair<const char16_t*, const char16_t*> terms[] = {
        {u"Disjuntor geral", u"Hauptschalter"},
        {u"Botão de emergência", u"Not-Aus-Taster"},
        {u"Motor da bomba", u"Pumpenmotor"},
        {u"Régua de bornes", u"Klemmleiste"}};
    for (int row = 0; const auto& [original, translation] : terms) {
        list.AddItem(u"", u"", TQString(original), 50, TEXTO, 1, false, 0);
        list.SetSubItem(row++, 1, u"", u"", TQString(translation), 50, TEXTO, 1, true, 0);
    }
    auto* combo = static_cast<CComboBox*>(GetDlgItem(kCombo));
    for (const char16_t* language : {u"Deutsch", u"Español"}) combo->AddString(language);
    combo->SetCurSel(0);
    SetDlgItemText(kField, u"bomba");
    CheckDlgButton(kCheck, BST_CHECKED);
    CheckDlgButton(kCheck + 2, BST_CHECKED);
    return TRUE;
}

void ResizableSample::OnSize(UINT type, int cx, int cy) {
    CIResizableDialog::OnSize(type, cx, cy);
    if (!list.m_hWnd) return;
    constexpr UINT keepSize = SWP_NOSIZE | SWP_NOZORDER;
    GetDlgItem(kOk)->SetWindowPos(nullptr, cx - 166, cy - 34, 0, 0, keepSize);
    GetDlgItem(kCancel)->SetWindowPos(nullptr, cx - 85, cy - 34, 0, 0, keepSize);
    list.SetWindowPos(nullptr, 0, 0, cx - 21, cy - 161, SWP_NOMOVE | SWP_NOZORDER);
}
