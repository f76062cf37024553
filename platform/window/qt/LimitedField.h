// A field whose limit of characters binds the user and not the program.
#pragma once

#include <QLineEdit>

// maxLength of the toolkit would cut what the program puts in. A text that is too long already
// stays so, but does not grow by typing.
class LimitedField : public QLineEdit {
  public:
    explicit LimitedField(QWidget* parent);

    int limit = 0;  // in 16-bit units; 0: none

  protected:
    bool event(QEvent* event) override;

  private:
    void CutEntered();

    qsizetype length = 0, before = 0;
};
