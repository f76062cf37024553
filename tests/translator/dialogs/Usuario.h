// A user before modal windows: what it is told to do happens with real events, one step whenever a
// window waits for it.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>

#include "platform/window/CListCtrl.h"

class QString;
class QWidget;

class Usuario {
  public:
    using Ato = std::function<void(CWnd& janela)>;
    using AtoQt = std::function<void(QWidget& janela)>;

    Usuario& Entao(Ato ato);        // on the dialog of the module that waits then
    Usuario& EntaoNoQt(AtoQt ato);  // on a window of the toolkit's own, a file dialog
    // Runs what shows the windows. Every step must have been taken, and no window may be left
    // waiting, when it ends; such a window is closed, so that the test goes on.
    void Durante(const std::function<void()>& comando);

  private:
    void Agendar();
    void Agir();

    std::deque<AtoQt> passos;
    bool acabou = false;
    int ociosas = 0;
};

void Clicar(CWnd& janela, int id);
void Marcar(CWnd& janela, int id, bool marcado);         // clicks the box when it stands otherwise
void Escolher(CWnd& janela, int id, const char* texto);  // in a drop-down list, by the arrow keys
void AbrirEditor(CListCtrl& lista, int linha, int coluna);                 // by a click
void Digitar(CListCtrl& lista, int linha, int coluna, const char* texto);  // over the cell's text
void ClicarTitulo(CListCtrl& lista, int coluna);
void EscolherArquivo(QWidget& dialogo, const QString& caminho);  // an empty path cancels

CWnd& PaginaDe(CWnd& assistente);  // the one that the wizard shows
CListCtrl& ListaDe(CWnd& janela, int id);
std::string TextoDe(CWnd& janela, int id);
std::string TextoDe(const CListCtrl& lista, int linha, int coluna);
std::vector<std::string> EntradasDe(CWnd& janela, int id);            // of a drop-down list
int LinhaCom(const CListCtrl& lista, int coluna, const char* texto);  // -1 for none
