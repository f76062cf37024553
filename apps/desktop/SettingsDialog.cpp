// Fields of the form, what they may hold, and storing them.
#include "apps/desktop/SettingsDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "apps/desktop/DatabaseCheck.h"
#include "apps/desktop/MainWindow.h"
#include "apps/desktop/SettingsChoices.h"
#include "apps/desktop/Texts.h"
#include "apps/desktop/WrappedLabel.h"
#include "host/DatabaseUrl.h"
#include "host/Error.h"
#include "platform/win32/CodePages.h"

namespace desktop {

namespace {

QLabel* Note(const QString& text) {
    auto* note = new WrappedLabel(text);
    note->setForegroundRole(QPalette::PlaceholderText);
    return note;
}

QWidget* WithButton(QWidget* field, QPushButton* button) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    layout->addWidget(button);
    return row;
}

QPushButton* BrowseButton(const char* name) {
    auto* button = new QPushButton(Say("Browse…"));
    button->setObjectName(name);
    return button;
}

// Arguments of a program as one line that QProcess::splitCommand takes apart again.
QString JoinedCommand(const QStringList& arguments) {
    QStringList quoted;
    for (QString argument : arguments) {
        const bool plain = !argument.isEmpty() && !argument.contains(u' ');
        argument.replace(u'"', QLatin1String("\"\"\""));
        quoted << (plain ? argument : u'"' + argument + u'"');
    }
    return quoted.join(u' ');
}

}  // namespace

SettingsDialog::SettingsDialog(host::Settings& settings, QWidget* parent)
    : QDialog(parent),
      settings(settings),
      language(new QComboBox),
      codePage(new QComboBox),
      databaseUrl(new QLineEdit(settings.DatabaseUrl())),
      converter(new QLineEdit(JoinedCommand(settings.DwgConverter()))),
      seconds(new QSpinBox),
      networkFolder(new QLineEdit(settings.NetworkFolder())),
      recent(new QListWidget),
      complaint(new WrappedLabel) {
    setWindowTitle(Say("Settings"));
    language->setObjectName("language");
    codePage->setObjectName("codePage");
    databaseUrl->setObjectName("databaseUrl");
    converter->setObjectName("converter");
    seconds->setObjectName("seconds");
    networkFolder->setObjectName("networkFolder");
    recent->setObjectName("recent");
    complaint->setObjectName("complaint");
    complaint->hide();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SettingsDialog::reject);
    auto* layout = new QVBoxLayout(this);
    for (QWidget* box : {InterfaceBox(), DictionaryBox(), FilesBox(), RecentBox()})
        layout->addWidget(box);
    layout->addWidget(complaint);
    layout->addWidget(buttons);
    setMinimumWidth(560);
}

QWidget* SettingsDialog::InterfaceBox() {
    for (const InterfaceLanguage& row : InterfaceLanguages())
        language->addItem(QString::fromUtf8(row.name));
    language->setCurrentIndex(settings.LanguageIndex());
    auto* box = new QGroupBox(Say("Interface"));
    auto* form = new QFormLayout(box);
    form->addRow(Say("&Language:"), language);
    form->addRow(Note(Say("A new interface language shows after a restart.")));
    return box;
}

QWidget* SettingsDialog::DictionaryBox() {
    auto* box = new QGroupBox(Say("Dictionary"));
    auto* form = new QFormLayout(box);
    QPushButton* browse = BrowseButton("browseDictionary");
    connect(browse, &QPushButton::clicked, this, &SettingsDialog::BrowseDictionary);
    auto* row = WithButton(databaseUrl, browse);
    auto* label = new QLabel(Say("&Address:"));
    label->setBuddy(databaseUrl);
    form->addRow(label, row);
    form->addRow(
        Note(Say("sqlite:FILE, or postgresql://USER@SERVER/NAME for a team. Another "
                 "dictionary is used after a restart.")));
    form->addRow(new DatabaseCheck([this] { return databaseUrl->text().trimmed(); }));
    return box;
}

QWidget* SettingsDialog::FilesBox() {
    codePage->setEditable(true);
    codePage->setInsertPolicy(QComboBox::NoInsert);
    for (const ExchangePage& page : ExchangePages())
        codePage->addItem(QStringLiteral("%1  %2").arg(page.number).arg(Say(page.name)));
    const QString number = QString::number(settings.CodePage());
    const int known = codePage->findText(number + u' ', Qt::MatchStartsWith);
    if (known >= 0)
        codePage->setCurrentIndex(known);
    else
        codePage->setEditText(number);

    auto* box = new QGroupBox(Say("Files"));
    auto* form = new QFormLayout(box);
    form->addRow(Say("&Code page of the exchange file:"), codePage);
    converter->setPlaceholderText(Say("PROGRAM {in} {out}"));
    form->addRow(Say("Con&verter for DWG:"), converter);
    seconds->setRange(1, 3600);
    seconds->setValue(settings.DwgSeconds());
    form->addRow(Say("&Seconds that it may take:"), seconds);
    form->addRow(
        Note(Say("A program that reads the DWG file {in} and writes the DXF file {out}. "
                 "Empty: DWG files are not opened.")));
    QPushButton* browse = BrowseButton("browseFolder");
    connect(browse, &QPushButton::clicked, this, &SettingsDialog::BrowseFolder);
    auto* label = new QLabel(Say("&Network folder:"));
    label->setBuddy(networkFolder);
    form->addRow(label, WithButton(networkFolder, browse));
    return box;
}

QWidget* SettingsDialog::RecentBox() {
    recent->addItems(settings.RecentFiles());
    recent->setMaximumHeight(6 * fontMetrics().lineSpacing());
    recent->setTextElideMode(Qt::ElideMiddle);
    recent->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto* remove = new QPushButton(Say("&Remove"));
    auto* clear = new QPushButton(Say("C&lear"));
    remove->setObjectName("removeRecent");
    clear->setObjectName("clearRecent");
    connect(remove, &QPushButton::clicked, this, [this] { qDeleteAll(recent->selectedItems()); });
    connect(clear, &QPushButton::clicked, recent, &QListWidget::clear);
    auto* box = new QGroupBox(Say("Recent files"));
    auto* layout = new QHBoxLayout(box);
    layout->addWidget(recent, 1);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(remove);
    buttons->addWidget(clear);
    buttons->addStretch();
    layout->addLayout(buttons);
    return box;
}

void SettingsDialog::BrowseDictionary() {
    const QString file =
        QFileDialog::getSaveFileName(this, Say("Dictionary"), QString(),
                                     Say("Dictionaries (*.sqlite)") + ";;" + Say("All files (*)"),
                                     nullptr, QFileDialog::DontConfirmOverwrite);
    if (!file.isEmpty()) databaseUrl->setText("sqlite:" + file);
}

void SettingsDialog::BrowseFolder() {
    const QString folder =
        QFileDialog::getExistingDirectory(this, Say("Network folder"), networkFolder->text());
    if (!folder.isEmpty()) networkFolder->setText(folder);
}

int SettingsDialog::CodePage() const {
    return codePage->currentText().trimmed().section(u' ', 0, 0).toInt();
}

// Why the form cannot be stored as it is; empty when it can.
QString SettingsDialog::Complaint() const {
    try {
        host::ParseDatabaseUrl(databaseUrl->text().trimmed());
    } catch (const host::Error& error) {
        return QString::fromUtf8(error.what());
    }
    const QStringList command = QProcess::splitCommand(converter->text());
    if (!command.isEmpty() && !(command.contains("{in}") && command.contains("{out}")))
        return Say("The converter needs {in} and {out} among its arguments.");
    try {
        if (CodePage() == 0) throw std::invalid_argument("0");
        const auto before = GetACP();
        SetAnsiCodePage(CodePage());
        SetAnsiCodePage(before);
    } catch (const std::invalid_argument&) {
        return Say("The exchange file needs a code page of single bytes, such as 1252.");
    }
    return {};
}

void SettingsDialog::accept() {
    QString reason = Complaint();
    if (reason.isEmpty()) {
        try {
            Store();
            return QDialog::accept();
        } catch (const host::Error& error) {
            reason = QString::fromUtf8(error.what());
        }
    }
    complaint->Show(reason);
}

void SettingsDialog::Store() {
    settings.SetLanguageIndex(language->currentIndex());
    settings.SetDatabaseUrl(databaseUrl->text().trimmed());
    settings.SetCodePage(CodePage());
    SetAnsiCodePage(CodePage());  // from the next exchange file on
    settings.SetDwgConverter(QProcess::splitCommand(converter->text()));
    settings.SetDwgSeconds(seconds->value());
    settings.SetNetworkFolder(networkFolder->text());
    QStringList files;
    for (int row = 0; row < recent->count(); ++row) files << recent->item(row)->text();
    settings.SetRecentFiles(files);
}

void AddSettingsEntry(MainWindow& window) {
    window.AddEntry("&Edit", "SETTINGS", "Se&ttings…",
                    [&window] { SettingsDialog(window.GetDesktop().Settings(), &window).exec(); });
}

}  // namespace desktop
