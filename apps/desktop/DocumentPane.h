// One document on the screen: the list of its pages beside the view.
#pragma once

#include <QSplitter>
#include <QTimer>

#include "apps/ui/DrawingView.h"
#include "apps/ui/PageChooser.h"
#include "host/Document.h"

class QLineEdit;
class QTreeWidget;

namespace desktop {

// The document must outlive it.
class DocumentPane : public QSplitter {
  public:
    DocumentPane(host::Document& document, std::shared_ptr<const painter::DisplayList> whole);
    ~DocumentPane() override;

    host::Document& Document() { return document; }
    ui::DrawingView& View() { return *view; }
    QTreeWidget& PageList() { return *pages; }

    // The list and the view as the drawing is now. Many calls before the next turn of the event
    // loop are one.
    void RefreshSoon() { refresh.start(); }

    std::function<void(const QString&)> onNote;  // about what is under the mouse

  private:
    QWidget* MakePageSide();
    void FillPages();
    void Refresh();
    void ShowPages();
    ui::PageNames SelectedPages() const;  // empty: the whole drawing
    void Describe(uint64_t handle);

    host::Document& document;
    QTreeWidget* pages;
    QLineEdit* filter;
    ui::DrawingView* view;
    QTimer refresh;
    ui::PageNames shown;
    bool filling = false;
};

}  // namespace desktop
