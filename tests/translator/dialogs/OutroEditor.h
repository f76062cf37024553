// A second program with the dictionary editor open.
#pragma once

#include <QProcess>
#include <QString>
#include <string>

class OutroEditor {
  public:
    explicit OutroEditor(const QString& url);  // its editor is open when this returns
    ~OutroEditor();

    // "add\ttext\ttext...", "edit\tfirst text\tcolumn\ttext", "remove\tfirst text", "sort\tcolumn",
    // "rows", "apply", "ok". Gives the answer: the texts of column 0 after "rows".
    std::string Fazer(const QString& ordem);
    void Mandar(const QString& ordem);  // without waiting for
    std::string Resposta();
    void Terminar();  // after "ok": everything is stored then

    static constexpr char kMarca[] = "answer: ";  // before each answer in its output

  private:
    QProcess processo;
};
