// The command line: a field with history and completion below what commands and programs print.
#pragma once

#include <QLineEdit>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <string_view>

class QCompleter;
class QPlainTextEdit;
class QStringListModel;
class QToolButton;

namespace desktop {

// Up and Down walk through what was entered before; Escape empties the field.
class CommandField : public QLineEdit {
  public:
    explicit CommandField(QWidget* parent);
    void SetWords(const QStringList& words);
    QString Take();  // what stands there, which goes to the history

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Recall(qsizetype place);

    QStringListModel* words;
    QStringList history;
    qsizetype place = 0;  // in the history; its size: a new line
};

class CommandLine : public QWidget {
  public:
    explicit CommandLine(QWidget* parent = nullptr);

    void Print(std::u16string_view text);
    QString Printed() const;
    void SetRunning(bool running);  // a program that can be interrupted
    CommandField& Field() { return *field; }
    QWidget* StopButton();

    std::function<QStringList()> words;  // that can be completed, asked for at each focus
    std::function<void(const QString&)> onEntered;  // never empty
    std::function<void()> onInterrupt;

  protected:
    bool eventFilter(QObject* target, QEvent* event) override;

  private:
    void Enter();

    QPlainTextEdit* output;
    CommandField* field;
    QToolButton* stop;
    QString last;
};

}  // namespace desktop
