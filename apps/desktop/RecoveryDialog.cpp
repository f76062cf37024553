// The list of drawings with unsaved work.
#include "apps/desktop/RecoveryDialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "apps/desktop/Texts.h"
#include "apps/desktop/WrappedLabel.h"

namespace desktop {

namespace {

constexpr int kWork = Qt::UserRole;  // index of the row's work

QString StateOf(const LeftWork& work) {
    if (work.drawing.isNull())
        return Say("cannot be read: %1").arg(QString::fromStdU16String(work.problem));
    if (work.changedOnDisk) return Say("can be opened; the drawing on disk has changed since");
    return Say("can be opened");
}

}  // namespace

RecoveryDialog::RecoveryDialog(const std::vector<LeftWork>& works, QWidget* parent)
    : QDialog(parent), works(works), list(new QTreeWidget) {
    setWindowTitle(Say("Unsaved work"));
    auto* question = new WrappedLabel(
        Say("The program ended before this work was saved. Opened work is not saved until you "
            "save it; the drawings on disk are as they were."));
    list->setObjectName("works");
    list->setRootIsDecorated(false);
    list->setHeaderLabels({Say("Drawing"), Say("Folder"), Say("State")});
    list->setTextElideMode(Qt::ElideMiddle);
    for (const LeftWork& work : works) Add(work);
    list->header()->resizeSections(QHeaderView::ResizeToContents);
    connect(list, &QTreeWidget::itemChanged, this, &RecoveryDialog::UpdateButtons);

    auto* buttons = new QDialogButtonBox;
    open = buttons->addButton(Say("&Open"), QDialogButtonBox::AcceptRole);
    discard = buttons->addButton(Say("&Discard…"), QDialogButtonBox::DestructiveRole);
    buttons->addButton(Say("&Later"), QDialogButtonBox::RejectRole);
    open->setObjectName("open");
    discard->setObjectName("discard");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(discard, &QPushButton::clicked, this, &RecoveryDialog::Discard);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(question);
    layout->addWidget(list, 1);
    layout->addWidget(buttons);
    resize(720, 320);
    UpdateButtons();
}

void RecoveryDialog::Add(const LeftWork& work) {
    const QFileInfo file(QString::fromStdString(work.fileName));
    const bool named = !work.fileName.empty();
    auto* item = new QTreeWidgetItem(
        list, {named ? file.fileName() : Say("Drawing"),
               named ? QDir::toNativeSeparators(file.path()) : QString(), StateOf(work)});
    item->setCheckState(0, work.drawing.isNull() ? Qt::Unchecked : Qt::Checked);
    item->setData(0, kWork, int(&work - works.data()));
    for (int column = 0; column < list->columnCount(); ++column)
        item->setToolTip(column, item->text(column));
}

const LeftWork& RecoveryDialog::WorkOf(const QTreeWidgetItem& item) const {
    return works[item.data(0, kWork).toInt()];
}

std::vector<QTreeWidgetItem*> RecoveryDialog::Ticked() const {
    std::vector<QTreeWidgetItem*> ticked;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = list->topLevelItem(row);
        if (item->checkState(0) == Qt::Checked) ticked.push_back(item);
    }
    return ticked;
}

std::vector<const LeftWork*> RecoveryDialog::Chosen() const {
    std::vector<const LeftWork*> chosen;
    for (const QTreeWidgetItem* item : Ticked()) {
        if (!WorkOf(*item).drawing.isNull()) chosen.push_back(&WorkOf(*item));
    }
    return chosen;
}

void RecoveryDialog::Discard() {
    const std::vector<QTreeWidgetItem*> ticked = Ticked();
    const auto answer = QMessageBox::question(
        this, Plain(Say("&Discard…")),
        Say("The unsaved work on %1 drawings will be lost. Discard it?").arg(ticked.size()),
        QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Cancel);
    if (answer != QMessageBox::Discard) return;
    for (QTreeWidgetItem* item : ticked) {
        onDiscard(WorkOf(*item));
        delete item;
    }
    if (list->topLevelItemCount() == 0) return reject();
    UpdateButtons();
}

void RecoveryDialog::UpdateButtons() {
    open->setEnabled(!Chosen().empty());
    discard->setEnabled(!Ticked().empty());
}

}  // namespace desktop
