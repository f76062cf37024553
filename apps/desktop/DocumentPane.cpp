// Pages chosen from the list come into the view.
#include "apps/desktop/DocumentPane.h"

#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "apps/desktop/Guard.h"
#include "apps/desktop/Texts.h"
#include "apps/painter/ListBuilder.h"
#include "apps/ui/PageRows.h"
#include "platform/drawing/DbEntity.h"

namespace desktop {

namespace {

constexpr int kPageSide = 260;  // pixels

bool SamePages(const std::vector<host::Page>& pages, const QTreeWidget& list) {
    if (list.topLevelItemCount() != static_cast<int>(pages.size()) + 1) return false;
    for (size_t i = 0; i < pages.size(); ++i) {
        const QTreeWidgetItem& row = *list.topLevelItem(static_cast<int>(i) + 1);
        if (ui::PageOfRow(row) != pages[i].name ||
            row.text(1) != QString::fromStdU16String(pages[i].description))
            return false;
    }
    return true;
}

}  // namespace

DocumentPane::DocumentPane(host::Document& document,
                           std::shared_ptr<const painter::DisplayList> whole)
    : document(document), pages(new QTreeWidget), filter(new QLineEdit), view(new ui::DrawingView) {
    addWidget(MakePageSide());
    addWidget(view);
    setStretchFactor(1, 1);
    setSizes({kPageSide, width()});
    setChildrenCollapsible(false);
    refresh.setSingleShot(true);
    refresh.callOnTimeout(this,
                          [this] { Guarded(Say("Show the drawing"), [this] { Refresh(); }); });
    document.Screen().onRedraw = [this] { RefreshSoon(); };
    view->onMove = [this](QPointF at) {
        if (onNote) onNote(QStringLiteral("%1, %2").arg(at.x(), 0, 'f', 2).arg(at.y(), 0, 'f', 2));
    };
    view->onPick = [this](uint64_t handle) { Describe(handle); };
    FillPages();
    view->Show(std::move(whole), ui::DrawingView::Place::Fit);
}

DocumentPane::~DocumentPane() { document.Screen().onRedraw = {}; }

QWidget* DocumentPane::MakePageSide() {
    pages->setObjectName("pages");
    pages->setAccessibleName(Say("Pages"));
    pages->setSelectionMode(QAbstractItemView::ExtendedSelection);
    filter->setObjectName("pageFilter");
    filter->setPlaceholderText(Say("Filter by name or description"));
    filter->setClearButtonEnabled(true);
    connect(filter, &QLineEdit::textChanged, this,
            [this](const QString& text) { ui::FilterPageRows(*pages, text); });
    connect(pages, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (!filling) Guarded(Say("Show the drawing"), [this] { ShowPages(); });
    });
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(filter);
    column->addWidget(pages);
    return side;
}

// The first row stands for all pages; the choice stays.
void DocumentPane::FillPages() {
    const std::vector<host::Page> whole = host::WholePages(document.Pages().Pages());
    if (SamePages(whole, *pages)) return;
    filling = true;
    const ui::PageNames before = SelectedPages();
    ui::FillPageRows(*pages, whole);
    auto* all = new QTreeWidgetItem({Say("Whole drawing")});
    pages->insertTopLevelItem(0, all);
    all->setFirstColumnSpanned(true);
    for (int i = 1; i < pages->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = pages->topLevelItem(i);
        row->setSelected(std::count(before.begin(), before.end(), ui::PageOfRow(*row)) > 0);
    }
    if (pages->selectedItems().isEmpty()) all->setSelected(true);
    ui::FilterPageRows(*pages, filter->text());
    filling = false;
}

ui::PageNames DocumentPane::SelectedPages() const {
    ui::PageNames names;
    for (int i = 1; i < pages->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = pages->topLevelItem(i);
        if (row->isSelected()) names.push_back(ui::PageOfRow(*row));
    }
    const QTreeWidgetItem* all = pages->topLevelItem(0);
    return all && all->isSelected() ? ui::PageNames() : names;
}

void DocumentPane::Refresh() {
    FillPages();
    ShowPages();
}

void DocumentPane::ShowPages() {
    painter::BuildOptions options;
    ui::PageNames wanted = SelectedPages();
    if (!wanted.empty()) options.pages = wanted;
    auto list = painter::BuildDisplayList(document.Drawing(), options);
    const bool same = wanted == shown;
    shown = std::move(wanted);
    view->Show(std::make_shared<const painter::DisplayList>(std::move(*list)),
               same ? ui::DrawingView::Place::Keep : ui::DrawingView::Place::Fit);
}

void DocumentPane::Describe(uint64_t handle) {
    if (!handle || !onNote) return;
    OdDbEntityPtr entity =
        OdDbEntity::cast(document.Drawing().getOdDbObjectId(handle).openObject());
    if (entity.isNull()) return;
    onNote(Say("%1 %2 on layer %3")
               .arg(QString::fromStdU16String(entity->dxfName().text()),
                    QString::fromStdU16String(entity->handle().ascii().text()),
                    QString::fromStdU16String(entity->layer().text())));
}

}  // namespace desktop
