// The form of the user's settings.
#pragma once

#include <QDialog>

#include "host/Settings.h"

class QComboBox;
class QLineEdit;
class QListWidget;
class QSpinBox;

namespace desktop {

class MainWindow;
class WrappedLabel;

// Nothing is stored before OK, and nothing at all while a field holds what cannot be used: the form
// then says so and stays.
class SettingsDialog : public QDialog {
  public:
    explicit SettingsDialog(host::Settings& settings, QWidget* parent = nullptr);

    void accept() override;

  private:
    QWidget* InterfaceBox();
    QWidget* DictionaryBox();
    QWidget* FilesBox();
    QWidget* RecentBox();
    void BrowseDictionary();
    void BrowseFolder();
    int CodePage() const;  // 0 when the field holds no number
    QString Complaint() const;
    void Store();

    host::Settings& settings;  // not owned
    QComboBox* language;
    QComboBox* codePage;
    QLineEdit* databaseUrl;
    QLineEdit* converter;
    QSpinBox* seconds;
    QLineEdit* networkFolder;
    QListWidget* recent;
    WrappedLabel* complaint;
};

void AddSettingsEntry(MainWindow& window);  // to the menu and the command line

}  // namespace desktop
