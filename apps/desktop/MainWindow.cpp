// What the window shows of its documents.
#include "apps/desktop/MainWindow.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>
#include <QUrl>

#include "apps/desktop/BatchDialog.h"
#include "apps/desktop/Guard.h"
#include "apps/desktop/LispWatch.h"
#include "apps/desktop/Texts.h"

namespace desktop {

namespace {

constexpr QSize kFirstSize(1280, 820);
constexpr int kCommandLineHeight = 150;

}  // namespace

MainWindow::MainWindow(Desktop& desktop)
    : desktop(desktop),
      files(desktop, *this),
      tabs(new QTabWidget(this)),
      commandLine(new CommandLine),
      commandDock(new QDockWidget(Say("Command line"), this)),
      language(new LanguageBox(desktop, this)),
      note(new QLabel(this)) {
    setObjectName("mainWindow");
    setAcceptDrops(true);
    desktop.SetWindow(this);
    MakeTabs();
    MakeCommandLine();
    MakeMenu();
    MakeToolBar();
    statusBar()->addWidget(note, 1);
    statusBar()->addPermanentWidget(new QLabel(Say("Project language"), this));
    statusBar()->addPermanentWidget(language);
    files.onLoaded = [this](OdDbDatabasePtr drawing, const QString& path,
                            std::shared_ptr<const painter::DisplayList> list) {
        nextList = std::move(list);
        this->desktop.Open(std::move(drawing), path.toStdString());
    };
    desktop.Add(*this);
    resize(kFirstSize);
    UpdateActions();
    UpdateTitles();
}

MainWindow::~MainWindow() {
    desktop.Remove(*this);
    desktop.SetPrinter({});
    desktop.Watch().onRunning = {};
    desktop.SetWindow(nullptr);
    while (tabs->count() > 0) delete tabs->widget(0);
}

void MainWindow::MakeTabs() {
    tabs->setObjectName("documents");
    tabs->setDocumentMode(true);
    tabs->setTabsClosable(true);
    tabs->setMovable(true);
    setCentralWidget(tabs);
    connect(tabs, &QTabWidget::currentChanged, this, [this](int index) {
        auto* pane = dynamic_cast<DocumentPane*>(tabs->widget(index));
        if (pane && &pane->Document() != desktop.Active()) desktop.Activate(pane->Document());
    });
    connect(tabs, &QTabWidget::tabCloseRequested, this, [this](int index) {
        files.Close(dynamic_cast<DocumentPane&>(*tabs->widget(index)).Document());
    });
}

void MainWindow::MakeCommandLine() {
    commandDock->setObjectName("commandDock");
    commandDock->setWidget(commandLine);
    commandDock->setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    addDockWidget(Qt::BottomDockWidgetArea, commandDock);
    resizeDocks({commandDock}, {kCommandLineHeight}, Qt::Vertical);
    commandLine->words = [this] { return CommandWords(); };
    commandLine->onEntered = [this](const QString& line) { Execute(line); };
    commandLine->onInterrupt = [this] { desktop.Watch().onInterrupt(); };
    desktop.SetPrinter([this](std::u16string_view text) { commandLine->Print(text); });
    desktop.Watch().SetButton(commandLine->StopButton());
    desktop.Watch().onRunning = [this](bool running) { commandLine->SetRunning(running); };
}

DocumentPane* MainWindow::PaneOf(const host::Document* document) const {
    for (int i = 0; i < tabs->count(); ++i) {
        auto* pane = dynamic_cast<DocumentPane*>(tabs->widget(i));
        if (pane && &pane->Document() == document) return pane;
    }
    return nullptr;
}

ui::DrawingView* MainWindow::ActiveView() const {
    DocumentPane* pane = PaneOf(desktop.Active());
    return pane ? &pane->View() : nullptr;
}

void MainWindow::Opened(host::Document& document) {
    auto* pane = new DocumentPane(document, std::exchange(nextList, nullptr));
    pane->onNote = [this](const QString& text) { note->setText(text); };
    tabs->addTab(pane, NameOf(document));
    tabs->setTabToolTip(tabs->indexOf(pane), QString::fromStdString(document.FileName()));
    pane->View().setFocus();
    TellFindings(document);
}

// What is remarkable about the file; that it cannot be edited also where the user looks.
void MainWindow::TellFindings(host::Document& document) {
    const dxf::Store& store = document.Drawing().store();
    for (const dxf::Finding& finding : store.Findings()) {
        QString line = NameOf(document) + ": ";
        if (finding.line > 0) line += QString::number(finding.line) + ": ";
        desktop.Print((line + QString::fromStdString(finding.text) + "\n").toStdU16String());
    }
    if (store.ReadOnly()) note->setText(Say("%1 can be read but not edited").arg(NameOf(document)));
}

void MainWindow::Changed(host::Document&) {
    UpdateActions();
    UpdateTitles();
}

void MainWindow::Saved(host::Document& document) {
    note->setText(Say("%1 saved").arg(NameOf(document)));
    tabs->setTabToolTip(tabs->indexOf(PaneOf(&document)),
                        QString::fromStdString(document.FileName()));
    UpdateTitles();
}

void MainWindow::Closing(host::Document& document) { delete PaneOf(&document); }

void MainWindow::Activated(host::Document* document) {
    if (DocumentPane* pane = PaneOf(document)) tabs->setCurrentWidget(pane);
    UpdateActions();
    UpdateTitles();
}

void MainWindow::UpdateTitles() {
    for (int i = 0; i < tabs->count(); ++i) {
        auto& document = dynamic_cast<DocumentPane&>(*tabs->widget(i)).Document();
        const bool modified = document.Drawing().isModified();
        tabs->setTabText(i, NameOf(document).replace("&", "&&") + (modified ? " *" : ""));
    }
    host::Document* document = desktop.Active();
    setWindowTitle(document ? NameOf(*document) + "[*] – Kelvara Circuit" : "Kelvara Circuit");
    setWindowModified(document && document->Drawing().isModified());
}

void MainWindow::TranslateInBatch() {
    host::Document& document = *desktop.Active();
    if (document.FileName().empty() || document.Drawing().isModified()) {
        const auto answer = QMessageBox::question(
            this, Plain(Say("Translate in &batch…")),
            Say("The batch works on the saved file. Save %1 first?").arg(NameOf(document)),
            QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Save);
        if (answer != QMessageBox::Save || !files.Save(document)) return;
    }
    BatchDialog dialog(this, desktop, document);
    dialog.exec();
    if (!dialog.Result().isEmpty()) files.Open(dialog.Result());
}

void MainWindow::FocusCommandLine() {
    commandDock->show();
    commandLine->Field().setFocus();
}

void MainWindow::ShowLog() { QDesktopServices::openUrl(QUrl::fromLocalFile(desktop.LogFile())); }

void MainWindow::ShowAbout() {
    QMessageBox::about(this, "Kelvara Circuit",
                       "Kelvara Circuit " KELVARA_VERSION "\n\n" +
                           Say("Translates the texts of electrical drawings, and changes "
                               "nothing else."));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!desktop.IsBusy() && files.CloseAll());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) files.Open(url.toLocalFile());
    }
}

}  // namespace desktop
