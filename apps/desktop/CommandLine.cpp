// Entering, completing, repeating.
#include "apps/desktop/CommandLine.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStringListModel>
#include <QTextBlock>
#include <QToolButton>
#include <QVBoxLayout>

#include "apps/desktop/Texts.h"

namespace desktop {

namespace {

constexpr int kMostLines = 10000;  // of output that is kept

// Where the word at the end of a line begins: a command's name, or a symbol of a program.
qsizetype BeginOfWord(const QString& line) {
    qsizetype begin = line.size();
    while (begin > 0 && !line[begin - 1].isSpace() &&
           !QStringLiteral("()'\"").contains(line[begin - 1]))
        --begin;
    return begin;
}

// Completes the last word and keeps what stands before it.
class WordCompleter : public QCompleter {
  public:
    WordCompleter(QAbstractItemModel* model, QLineEdit* field)
        : QCompleter(model, field), field(field) {
        setCaseSensitivity(Qt::CaseInsensitive);
        setModelSorting(QCompleter::CaseInsensitivelySortedModel);
    }

    QStringList splitPath(const QString& line) const override {
        constexpr qsizetype kLeast = 2;  // letters; after one the list would be no help
        const QString word = line.mid(BeginOfWord(line));
        return {word.size() < kLeast ? QStringLiteral("\n") : word};
    }
    QString pathFromIndex(const QModelIndex& index) const override {
        const QString line = field->text();
        return line.left(BeginOfWord(line)) + QCompleter::pathFromIndex(index);
    }

  private:
    QLineEdit* field;
};

}  // namespace

CommandField::CommandField(QWidget* parent) : QLineEdit(parent), words(new QStringListModel(this)) {
    setCompleter(new WordCompleter(words, this));
    setAccessibleName(Say("Command line"));
    setPlaceholderText(Say("A command, or LISP in parentheses"));
}

void CommandField::SetWords(const QStringList& newWords) { words->setStringList(newWords); }

QString CommandField::Take() {
    const QString line = text().trimmed();
    if (!line.isEmpty() && (history.isEmpty() || history.back() != line)) history.push_back(line);
    place = history.size();
    clear();
    return line;
}

void CommandField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            return Recall(place - 1);
        case Qt::Key_Down:
            return Recall(place + 1);
        case Qt::Key_Escape:
            place = history.size();
            return clear();
        default:
            QLineEdit::keyPressEvent(event);
    }
}

void CommandField::Recall(qsizetype wanted) {
    if (wanted < 0 || wanted > history.size()) return;
    place = wanted;
    setText(history.value(place));
}

CommandLine::CommandLine(QWidget* parent)
    : QWidget(parent),
      output(new QPlainTextEdit(this)),
      field(new CommandField(this)),
      stop(new QToolButton(this)) {
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    output->setObjectName("output");
    output->setAccessibleName(Say("Output"));
    output->setReadOnly(true);
    output->setFont(fixed);
    output->setMaximumBlockCount(kMostLines);
    field->setObjectName("command");
    field->setFont(fixed);
    field->installEventFilter(this);
    stop->setObjectName("interrupt");
    stop->setText(Say("Interrupt"));
    stop->setEnabled(false);
    connect(stop, &QToolButton::clicked, this, [this] {
        if (onInterrupt) onInterrupt();
    });
    connect(field, &QLineEdit::returnPressed, this, [this] { Enter(); });
    auto* line = new QHBoxLayout;
    line->addWidget(field, 1);
    line->addWidget(stop);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2, 2, 2, 2);
    column->addWidget(output, 1);
    column->addLayout(line);
}

void CommandLine::Print(std::u16string_view text) {
    QTextCursor end(output->document());
    end.movePosition(QTextCursor::End);
    end.insertText(QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
    output->moveCursor(QTextCursor::End);
}

QString CommandLine::Printed() const { return output->toPlainText(); }

void CommandLine::SetRunning(bool running) { stop->setEnabled(running); }

QWidget* CommandLine::StopButton() { return stop; }

bool CommandLine::eventFilter(QObject* target, QEvent* event) {
    if (event->type() == QEvent::FocusIn && words) field->SetWords(words());
    return QWidget::eventFilter(target, event);
}

// An empty line repeats the one before.
void CommandLine::Enter() {
    QString line = field->Take();
    if (line.isEmpty()) line = last;
    if (line.isEmpty()) return;
    last = line;
    const bool inLine = !output->document()->lastBlock().text().isEmpty();
    Print((QLatin1String(inLine ? "\n> " : "> ") + line + "\n").toStdU16String());
    if (onEntered) onEntered(line);
    if (words) field->SetWords(words());  // the line may have defined some
}

}  // namespace desktop
