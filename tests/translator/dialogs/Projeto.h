// The example project in a host, with its dictionary, and the module as the library that it is.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <deque>
#include <string>
#include <vector>

#include "host/Host.h"

// Remembers the boxes and answers them: the first of the answers, Ok without one.
class CaixasRoteiro : public CMxMessageBoxService {
  public:
    int Show(Kind kind, QWidget* parent, const OdString& title, const CMxString& text, int buttons,
             int defaultButton) override;

    std::vector<std::string> textos;
    std::deque<int> respostas;
};

class Projeto {
  public:
    // A copy of a drawing of the examples, a dictionary filled from theirs, language 1 (Português).
    // The first interface language of a process stays: catalogues are read once.
    explicit Projeto(const char* desenho, int32_t idiomaDaInterface = 0);

    QString Arquivo(const QString& nome) const { return pasta.filePath(nome); }
    host::CommandOutcome Executar(const char* comando);
    std::string Bytes();  // what a save would write
    void Salvar(const QString& nome);
    QString Registro();  // the log

    // Output of a program; its status must be 0. kelvara gets the project's dictionary.
    std::string Kelvara(QStringList argumentos);
    std::string Python(const QString& programa, QStringList argumentos);

    QTemporaryDir pasta;
    CaixasRoteiro caixas;
    std::vector<std::u16string> paginas;  // what the user chooses, all when empty
    host::Host anfitriao;
    host::Document* documento = nullptr;

  private:
    host::HostOptions Opcoes();
};
