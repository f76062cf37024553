// What the program says, in the order in which a user meets it.
#include "apps/desktop/Texts.h"

namespace desktop {

namespace {

constexpr TextRow kTexts[] = {
    // Menu
    {"&File", "&Datei", "&Arquivo"},
    {"&Open…", "&Öffnen…", "&Abrir…"},
    {"&Recent files", "&Zuletzt geöffnet", "Arquivos &recentes"},
    {"&Save", "&Speichern", "Sal&var"},
    {"Save &as…", "Speichern &unter…", "Salvar &como…"},
    {"&Close", "S&chließen", "&Fechar"},
    {"&Quit", "&Beenden", "&Sair"},
    {"&Edit", "&Bearbeiten", "&Editar"},
    {"&Undo", "&Rückgängig", "&Desfazer"},
    {"&Redo", "&Wiederholen", "&Refazer"},
    {"Project &language…", "Projekt&sprache…", "&Idioma do projeto…"},
    {"&View", "&Ansicht", "E&xibir"},
    {"&Fit in window", "&Einpassen", "&Ajustar à janela"},
    {"Zoom &in", "&Vergrößern", "A&mpliar"},
    {"Zoom &out", "Ver&kleinern", "&Reduzir"},
    {"&Command line", "&Befehlszeile", "&Linha de comando"},
    {"&Translate", "Ü&bersetzen", "&Traduzir"},
    {"&Translate project…", "Projekt ü&bersetzen…", "&Traduzir projeto…"},
    {"&Switch language…", "&Sprache umschalten…", "Trocar &idioma…"},
    {"Translate in &batch…", "Im S&tapel übersetzen…", "Traduzir em &lote…"},
    {"Edit &dictionary…", "&Wörterbuch bearbeiten…", "Editar &dicionário…"},
    {"Edit &languages…", "S&prachen bearbeiten…", "&Editar idiomas…"},
    {"&Help", "&Hilfe", "Aj&uda"},
    {"Show &log", "&Protokoll zeigen", "Mostrar &registro"},
    {"&About", "Ü&ber", "&Sobre"},
    {"Tools", "Werkzeuge", "Ferramentas"},
    {"Translates the texts of electrical drawings, and changes nothing else.",
     "Übersetzt die Texte von Elektroplänen und ändert sonst nichts.",
     "Traduz os textos de desenhos elétricos e não altera mais nada."},

    // Window
    {"Drawing", "Zeichnung", "Desenho"},
    {"Pages", "Seiten", "Páginas"},
    {"Page", "Seite", "Página"},
    {"Description", "Beschreibung", "Descrição"},
    {"Whole drawing", "Ganze Zeichnung", "Desenho inteiro"},
    {"Filter by name or description", "Nach Name oder Beschreibung filtern",
     "Filtrar por nome ou descrição"},
    {"Show the drawing", "Zeichnung zeigen", "Mostrar o desenho"},
    {"%1 %2 on layer %3", "%1 %2 auf Layer %3", "%1 %2 na camada %3"},
    {"Project language", "Projektsprache", "Idioma do projeto"},
    {"Language not set", "Sprache nicht gesetzt", "Idioma não definido"},
    {"Language %1", "Sprache %1", "Idioma %1"},

    // Files
    {"Drawings (*.dxf *.DXF *.dwg *.DWG)", "Zeichnungen (*.dxf *.DXF *.dwg *.DWG)",
     "Desenhos (*.dxf *.DXF *.dwg *.DWG)"},
    {"All files (*)", "Alle Dateien (*)", "Todos os arquivos (*)"},
    {"Recent files", "Zuletzt geöffnet", "Arquivos recentes"},
    {"Open %1", "%1 öffnen", "Abrir %1"},
    {"Save %1", "%1 speichern", "Salvar %1"},
    {"%1 can be read but not edited", "%1 kann gelesen, aber nicht bearbeitet werden",
     "%1 pode ser lido, mas não editado"},
    {"%1 saved", "%1 gespeichert", "%1 salvo"},
    {"Reading %1…", "%1 wird gelesen…", "Lendo %1…"},
    {"Preparing the view of %1…", "Ansicht von %1 wird vorbereitet…",
     "Preparando a exibição de %1…"},
    {"Save the changes to %1?", "Änderungen an %1 speichern?", "Salvar as alterações de %1?"},
    {"Another program has changed the file meanwhile. Overwrite its changes?",
     "Ein anderes Programm hat die Datei inzwischen geändert. Dessen Änderungen überschreiben?",
     "Outro programa alterou o arquivo nesse meio-tempo. Sobrescrever as alterações dele?"},
    {"%1 is there already. Replace it?", "%1 gibt es schon. Ersetzen?",
     "%1 já existe. Substituir?"},

    // Choosing pages
    {"Choose pages", "Seiten auswählen", "Escolher páginas"},
    {"&All", "&Alle", "&Todas"},
    {"&None", "&Keine", "&Nenhuma"},
    {"%1 of %2 chosen", "%1 von %2 gewählt", "%1 de %2 escolhidas"},

    // Command line
    {"Command line", "Befehlszeile", "Linha de comando"},
    {"Output", "Ausgabe", "Saída"},
    {"A command, or LISP in parentheses", "Ein Befehl, oder LISP in Klammern",
     "Um comando, ou LISP entre parênteses"},
    {"Interrupt", "Abbrechen", "Interromper"},
    {"Open a drawing first.", "Zuerst eine Zeichnung öffnen.", "Abra um desenho primeiro."},
    {"%1: not done", "%1: nicht ausgeführt", "%1: não executado"},
    {"%1: not possible now", "%1: jetzt nicht möglich", "%1: não é possível agora"},
    {"%1: unknown command", "%1: unbekannter Befehl", "%1: comando desconhecido"},

    // Failures
    {"Unexpected failure", "Unerwarteter Fehler", "Falha inesperada"},
    {"The translation commands are not available.",
     "Die Befehle zum Übersetzen stehen nicht zur Verfügung.",
     "Os comandos de tradução não estão disponíveis."},
    {"The page \"%1\" holds more than block references. The first other object is %2 "
     "%3%4.\n\nAttributes can only be read on pages of block references alone. Untick "
     "\"%5\" in the dialog and read again, or take \"%6\" from the menu, which reads "
     "such pages too. \"kelvara switch\" changes the language of such a drawing.",
     "Auf der Seite „%1“ stehen nicht nur Blockreferenzen. Das erste andere Objekt ist %2 "
     "%3%4.\n\nAttribute lassen sich nur auf Seiten lesen, auf denen nichts als "
     "Blockreferenzen "
     "steht. Entfernen Sie im Dialog das Häkchen bei „%5“ und lesen Sie noch einmal, oder "
     "wählen Sie im Menü „%6“, womit sich auch solche Seiten lesen lassen. Die Sprache einer "
     "solchen Zeichnung wechselt „kelvara switch“.",
     "A página \"%1\" contém mais do que referências de bloco. O primeiro outro objeto é %2 "
     "%3%4.\n\nOs atributos só podem ser lidos em páginas que contenham apenas referências de "
     "bloco. Desmarque \"%5\" no diálogo e leia novamente, ou use \"%6\" no menu, que também "
     "lê essas páginas. \"kelvara switch\" troca o idioma de um desenho assim."},

    // Batch
    {"The batch works on the saved file. Save %1 first?",
     "Der Stapel arbeitet mit der gespeicherten Datei. %1 zuerst speichern?",
     "O lote trabalha com o arquivo salvo. Salvar %1 primeiro?"},
    {"&From:", "&Von:", "&De:"},
    {"&To:", "&Nach:", "&Para:"},
    {"&Pages:", "&Seiten:", "Pá&ginas:"},
    {"All pages", "Alle Seiten", "Todas as páginas"},
    {"%1 of %2 pages", "%1 von %2 Seiten", "%1 de %2 páginas"},
    {"Search in:", "Suchen in:", "Buscar em:"},
    {"Texts", "Texte", "Textos"},
    {"Attributes", "Attribute", "Atributos"},
    {"Layer 0", "Layer 0", "Camada 0"},
    {"Write the table of lines beside it, as CSV",
     "Die Tabelle der Zeilen als CSV daneben schreiben",
     "Gravar a tabela de linhas ao lado, em CSV"},
    {"&New drawing:", "N&eue Zeichnung:", "&Novo desenho:"},
    {"Choose a file", "Datei auswählen", "Escolher um arquivo"},
    {"Record the translations in the drawing", "Übersetzungen in der Zeichnung aufzeichnen",
     "Registrar as traduções no desenho"},
    {"Open the result", "Ergebnis öffnen", "Abrir o resultado"},
    {"Report", "Bericht", "Relatório"},
    {"reading", "Lesen", "lendo"},
    {"scanning", "Suchen", "buscando"},
    {"matching", "Zuordnen", "associando"},
    {"writing texts", "Texte schreiben", "gravando textos"},
    {"saving", "Speichern", "salvando"},
    {"certifying", "Prüfen", "certificando"},
    {"Objects", "Objekte", "Objetos"},
    {"Lines", "Zeilen", "Linhas"},
    {"Translated", "Übersetzt", "Traduzidas"},
    {"Not translated", "Nicht übersetzt", "Não traduzidas"},
    {"Written", "Geschrieben", "Gravados"},
    {"Not written: %1 %2 \"%3\": %4\n", "Nicht geschrieben: %1 %2 „%3“: %4\n",
     "Não gravado: %1 %2 \"%3\": %4\n"},
    {"Certificate: %1 texts changed, %2 other values changed",
     "Zertifikat: %1 Texte geändert, %2 andere Werte geändert",
     "Certificado: %1 textos alterados, %2 outros valores alterados"},
    {"Choose another file than the drawing that is open.",
     "Bitte eine andere Datei als die geöffnete Zeichnung wählen.",
     "Escolha um arquivo diferente do desenho aberto."},
    {"Cancelled; nothing was written.", "Abgebrochen; nichts wurde geschrieben.",
     "Cancelado; nada foi gravado."},

    // Colours
    {"Color", "Farbe", "Cor"},
    {"Colors", "Farben", "Cores"},
    {"&Number:", "&Nummer:", "&Número:"},
    {"By block", "Von Block", "Por bloco"},
    {"By layer", "Von Layer", "Por camada"},

    // Settings
    {"Se&ttings…", "Ei&nstellungen…", "Con&figurações…"},
    {"Settings", "Einstellungen", "Configurações"},
    {"Interface", "Oberfläche", "Interface"},
    {"&Language:", "&Sprache:", "&Idioma:"},
    {"A new interface language shows after a restart.",
     "Eine neue Sprache der Oberfläche erscheint nach einem Neustart.",
     "Um novo idioma da interface aparece depois de reiniciar o programa."},
    {"Dictionary", "Wörterbuch", "Dicionário"},
    {"&Address:", "&Adresse:", "&Endereço:"},
    {"Browse…", "Suchen…", "Procurar…"},
    {"sqlite:FILE, or postgresql://USER@SERVER/NAME for a team. Another dictionary is used "
     "after a restart.",
     "sqlite:DATEI, oder postgresql://BENUTZER@SERVER/NAME für ein Team. Ein anderes "
     "Wörterbuch gilt nach einem Neustart.",
     "sqlite:ARQUIVO, ou postgresql://USUÁRIO@SERVIDOR/NOME para uma equipe. Outro dicionário "
     "passa a valer depois de reiniciar o programa."},
    {"Dictionaries (*.sqlite)", "Wörterbücher (*.sqlite)", "Dicionários (*.sqlite)"},
    {"&Test", "&Testen", "&Testar"},
    {"Connecting…", "Verbindung wird aufgebaut…", "Conectando…"},
    {"There is no such file yet; it is made when the dictionary is first used.",
     "Diese Datei gibt es noch nicht; sie entsteht, wenn das Wörterbuch zum ersten Mal "
     "gebraucht wird.",
     "Esse arquivo ainda não existe; ele é criado no primeiro uso do dicionário."},
    {"It works: %1 languages, %2 terms.", "Es funktioniert: %1 Sprachen, %2 Begriffe.",
     "Funciona: %1 idiomas, %2 termos."},
    {"Files", "Dateien", "Arquivos"},
    {"&Code page of the exchange file:", "&Codepage der Austauschdatei:",
     "Página de &código do arquivo de intercâmbio:"},
    {"PROGRAM {in} {out}", "PROGRAMM {in} {out}", "PROGRAMA {in} {out}"},
    {"Con&verter for DWG:", "&Konverter für DWG:", "Con&versor para DWG:"},
    {"&Seconds that it may take:", "S&ekunden, die er brauchen darf:",
     "&Segundos que ele pode levar:"},
    {"A program that reads the DWG file {in} and writes the DXF file {out}. Empty: DWG files "
     "are not opened.",
     "Ein Programm, das die DWG-Datei {in} liest und die DXF-Datei {out} schreibt. Leer: "
     "DWG-Dateien werden nicht geöffnet.",
     "Um programa que lê o arquivo DWG {in} e grava o arquivo DXF {out}. Vazio: arquivos DWG "
     "não são abertos."},
    {"&Network folder:", "&Netzwerkordner:", "Pasta de &rede:"},
    {"Network folder", "Netzwerkordner", "Pasta de rede"},
    {"&Remove", "Ent&fernen", "Rem&over"},
    {"C&lear", "&Leeren", "&Limpar"},
    {"The converter needs {in} and {out} among its arguments.",
     "Der Konverter braucht {in} und {out} unter seinen Argumenten.",
     "O conversor precisa de {in} e {out} entre os argumentos."},
    {"The exchange file needs a code page of single bytes, such as 1252.",
     "Die Austauschdatei braucht eine Codepage mit einzelnen Bytes, etwa 1252.",
     "O arquivo de intercâmbio precisa de uma página de código de um byte, como 1252."},
    {"Western European", "Westeuropäisch", "Europa ocidental"},
    {"Central European", "Mitteleuropäisch", "Europa central"},
    {"Cyrillic", "Kyrillisch", "Cirílico"},
    {"Greek", "Griechisch", "Grego"},
    {"Turkish", "Türkisch", "Turco"},
    {"Baltic", "Baltisch", "Báltico"},
    {"Vietnamese", "Vietnamesisch", "Vietnamita"},
    {"Thai", "Thailändisch", "Tailandês"},
    {"%1 was converted from DWG. Kinds of objects that the converter does not know may be "
     "missing. The drawing is saved as DXF; the DWG file stays as it is.",
     "%1 wurde aus DWG konvertiert. Arten von Objekten, die der Konverter nicht kennt, können "
     "fehlen. Die Zeichnung wird als DXF gespeichert; die DWG-Datei bleibt, wie sie ist.",
     "%1 foi convertido de DWG. Tipos de objetos que o conversor não conhece podem faltar. O "
     "desenho é salvo como DXF; o arquivo DWG fica como está."},

    // Unsaved work
    {"Unsaved work", "Nicht gespeicherte Arbeit", "Trabalho não salvo"},
    {"The program ended before this work was saved. Opened work is not saved until you save "
     "it; the drawings on disk are as they were.",
     "Das Programm endete, bevor diese Arbeit gespeichert war. Geöffnete Arbeit ist erst "
     "gespeichert, wenn Sie sie speichern; die Zeichnungen auf der Platte sind, wie sie waren.",
     "O programa terminou antes que este trabalho fosse salvo. O trabalho aberto só fica salvo "
     "quando você o salvar; os desenhos no disco estão como estavam."},
    {"Reading the unsaved work…", "Nicht gespeicherte Arbeit wird gelesen…",
     "Lendo o trabalho não salvo…"},
    {"Folder", "Ordner", "Pasta"},
    {"State", "Zustand", "Estado"},
    {"can be opened", "kann geöffnet werden", "pode ser aberto"},
    {"can be opened; the drawing on disk has changed since",
     "kann geöffnet werden; die Zeichnung auf der Platte hat sich seither geändert",
     "pode ser aberto; o desenho no disco mudou desde então"},
    {"cannot be read: %1", "kann nicht gelesen werden: %1", "não pode ser lido: %1"},
    {"&Open", "&Öffnen", "&Abrir"},
    {"&Discard…", "&Verwerfen…", "&Descartar…"},
    {"&Later", "&Später", "&Mais tarde"},
    {"The unsaved work on %1 drawings will be lost. Discard it?",
     "Die nicht gespeicherte Arbeit an %1 Zeichnungen geht verloren. Verwerfen?",
     "O trabalho não salvo em %1 desenhos será perdido. Descartar?"},

    // Buttons of the toolkit
    {"OK", "OK", "OK"},
    {"Save", "Speichern", "Salvar"},
    {"Discard", "Verwerfen", "Descartar"},
    {"Cancel", "Abbrechen", "Cancelar"},
    {"Close", "Schließen", "Fechar"},
    {"&Yes", "&Ja", "&Sim"},
    {"&No", "&Nein", "&Não"},
    {"Open", "Öffnen", "Abrir"},
};

}  // namespace

std::span<const TextRow> AllTexts() { return kTexts; }

}  // namespace desktop
