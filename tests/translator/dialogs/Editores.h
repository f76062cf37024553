// A dictionary in a file or on a server, the host on it, and what users do in the two editors.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <initializer_list>
#include <string>
#include <vector>

#include "host/Host.h"
#include "tests/translator/dialogs/Projeto.h"
#include "tests/translator/dialogs/Usuario.h"
#include "translator/dialogs/ui/ControlesDosEditores.h"

enum class Onde { Arquivo, Servidor };

// Boxes that also tell how they were shown.
struct CaixasDosEditores : CaixasRoteiro {
    int Show(Kind kind, QWidget* parent, const OdString& title, const CMxString& text, int buttons,
             int defaultButton) override;

    std::vector<std::string> formas;  // "Question TITLE BUTTONS DEFAULT"
};

using Linha = std::vector<std::string>;
using Linhas = std::vector<Linha>;

// With the languages Português, English and Deutsch (1 to 3), all in use.
class Dicionario {
  public:
    Dicionario(Onde onde, std::initializer_list<Linha> termos,
               std::chrono::milliseconds paciencia = host::kBusyTimeout);
    // One of that address, in this program's host: the second program of a test has it so.
    explicit Dicionario(const QString& url);

    void Executar(const char* comando);  // and it must succeed
    // A statement as another program runs it: the first column of the first row.
    QString Sql(const QString& instrucao) const;
    std::vector<std::string> Ler(const QString& selecao) const;  // rows, blanks between the columns
    // Every write on the tables of terms and languages is noted from now on.
    void AnotarEscritas();
    std::vector<std::string> Escritas() const;  // "insert Motor", in the order of the database
    Linhas Termos() const;                      // of all languages, in ascending key and without it
    std::vector<std::string> Idiomas() const;   // "key description use"
    void Esperar() const;                     // until everything submitted is stored, or in the log
    std::vector<std::string> Falhas() const;  // lines of the log: what was not written, or not read

    QTemporaryDir pasta;
    QString url;
    CaixasDosEditores caixas;
    std::unique_ptr<host::Host> anfitriao;

  private:
    void Abrir(std::chrono::milliseconds paciencia);
};

class TesteDeEditor : public testing::TestWithParam<Onde> {};

// The suites whose names begin with Server share one server in one process.
#define NO_ARQUIVO_E_NO_SERVIDOR(teste)                                    \
    INSTANTIATE_TEST_SUITE_P(File, teste, testing::Values(Onde::Arquivo)); \
    INSTANTIATE_TEST_SUITE_P(Server, teste, testing::Values(Onde::Servidor))

CListCtrl& Grade(CWnd& editor);     // of terms
Linhas LinhasDe(CListCtrl& lista);  // what it shows
std::vector<std::string> Coluna(CListCtrl& lista, int coluna);
int LinhaDe(CWnd& editor, const char* primeiroTexto);
void Acrescentar(CWnd& editor, std::initializer_list<const char*> textos);
void Retirar(CWnd& editor, const char* primeiroTexto);  // the answer is laid ready by the test
void Mudar(CWnd& editor, const char* primeiroTexto, int coluna, const char* texto);
