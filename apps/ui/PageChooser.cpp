// A list of pages with boxes, a filter and buttons.
#include "apps/ui/PageChooser.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/ui/Owner.h"
#include "apps/ui/PageRows.h"

namespace ui {

namespace {

QString Say(const char* text) { return QCoreApplication::translate("PageChooser", text); }

class ChooserDialog : public QDialog {
  public:
    ChooserDialog(QWidget* owner, const std::vector<host::Page>& pages, const PageNames& ticked)
        : QDialog(owner),
          filter(new QLineEdit(this)),
          list(new QTreeWidget(this)),
          count(new QLabel(this)) {
        setWindowTitle(Say("Choose pages"));
        FillPageRows(*list, pages);
        for (QTreeWidgetItem* row : Rows()) {
            const bool on = std::count(ticked.begin(), ticked.end(), PageOfRow(*row)) > 0;
            row->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
        }
        Arrange();
        connect(list, &QTreeWidget::itemChanged, this, [this] { Count(); });
        connect(filter, &QLineEdit::textChanged, this,
                [this](const QString& text) { FilterPageRows(*list, text); });
        list->resizeColumnToContents(0);  // with its boxes
        list->setCurrentItem(list->topLevelItem(0));
        Count();
        resize(520, 460);
        filter->setFocus();
    }

    PageNames Ticked() const {
        PageNames names;
        for (const QTreeWidgetItem* row : Rows()) {
            if (row->checkState(0) == Qt::Checked) names.push_back(PageOfRow(*row));
        }
        return names;
    }

  private:
    // Styles take the frame of a box from the window's colour, which vanishes in a dark palette.
    void ShowBoxes() {
        QPalette colours = list->palette();
        const QColor text = colours.color(QPalette::Text), base = colours.color(QPalette::Base);
        colours.setColor(QPalette::Window,
                         QColor((text.red() + base.red()) / 2, (text.green() + base.green()) / 2,
                                (text.blue() + base.blue()) / 2));
        list->setPalette(colours);
    }

    void Arrange() {
        ShowBoxes();
        filter->setObjectName("filter");
        filter->setPlaceholderText(Say("Filter by name or description"));
        filter->setClearButtonEnabled(true);
        auto* line = new QHBoxLayout;
        line->addWidget(Button("all", Say("&All"), Qt::Checked));
        line->addWidget(Button("none", Say("&None"), Qt::Unchecked));
        line->addWidget(count, 1);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* column = new QVBoxLayout(this);
        column->addWidget(filter);
        column->addWidget(list, 1);
        column->addLayout(line);
        column->addWidget(buttons);
    }

    QPushButton* Button(const char* name, const QString& text, Qt::CheckState state) {
        auto* button = new QPushButton(text, this);
        button->setObjectName(name);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, state] {
            for (QTreeWidgetItem* row : Rows()) {
                if (!row->isHidden()) row->setCheckState(0, state);
            }
        });
        return button;
    }

    std::vector<QTreeWidgetItem*> Rows() const {
        std::vector<QTreeWidgetItem*> rows;
        rows.reserve(list->topLevelItemCount());
        for (int i = 0; i < list->topLevelItemCount(); ++i) rows.push_back(list->topLevelItem(i));
        return rows;
    }

    void Count() {
        count->setText(Say("%1 of %2 chosen").arg(Ticked().size()).arg(list->topLevelItemCount()));
    }

    QLineEdit* filter;
    QTreeWidget* list;
    QLabel* count;
};

}  // namespace

PageNames NamesOf(const std::vector<host::Page>& pages) {
    PageNames names;
    for (const host::Page& page : pages) names.push_back(page.name);
    return names;
}

std::optional<PageNames> ChoosePages(QWidget* owner, const std::vector<host::Page>& pages,
                                     const PageNames& ticked) {
    ChooserDialog dialog(OwnerOf(owner), pages, ticked);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Ticked();
}

}  // namespace ui
