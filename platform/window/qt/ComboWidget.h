// ComboWidget: a combo box of the toolkit that keeps a selection as Windows does.
#pragma once

#include <QComboBox>

#include "platform/window/qt/LimitedField.h"
#include "platform/window/qt/WindowHandle.h"

// The differences: nothing is selected until somebody selects, typing in the field takes the
// selection away, and an arrow key in the open list selects at once.
class ComboWidget : public QComboBox {
  public:
    ComboWidget(WindowHandle& handle, QWidget* parent);

    int Insert(int index, const QString& text);
    void Remove(int index);
    void Reset();
    int Selected() const { return typed ? CB_ERR : currentIndex(); }
    void Select(int index);
    LPARAM Data(int index) const;
    bool IsDropped() const { return dropped; }
    void SetText(const QString& text);
    void SetItemHeight(int index, int height);
    QRect Fitted(const QRect& wanted) const;
    bool Answer(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    void showPopup() override;
    void hidePopup() override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class ItemDelegate;

    void MakeField();
    void TellSelection();
    void KeepNothingSelected(const QString& text);
    bool IsSimple() const { return (handle.style & CBS_DROPDOWNLIST) == CBS_SIMPLE; }

    WindowHandle& handle;
    LimitedField* field = nullptr;  // of a kind that can be typed in; a child
    bool typed = false;
    bool dropped = false;
    bool keyInList = false;
    int told = CB_ERR;
    int closedHeight = 0;
    int itemHeight = 0;
};
