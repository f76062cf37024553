// Plain text of several lines that claims the height it needs: the toolkit's layouts cut it.
#pragma once

#include <QLabel>

namespace desktop {

class WrappedLabel : public QLabel {
  public:
    explicit WrappedLabel(const QString& text = {}, QWidget* parent = nullptr)
        : QLabel(text, parent) {
        setTextFormat(Qt::PlainText);
        setWordWrap(true);
    }
    void Show(const QString& text) {
        setText(text);
        show();
        ClaimHeight();
    }
    // Layouts that ask for heights by width do not ask again when the text changes.
    bool hasHeightForWidth() const override { return false; }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        ClaimHeight();
    }

  private:
    void ClaimHeight() { setMinimumHeight(heightForWidth(width())); }
};

}  // namespace desktop
