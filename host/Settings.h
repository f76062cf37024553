// The settings of the host: a small store of keys and values in an ini file of the user.
#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <string>

namespace host {

// Setters write through to the file and throw host::Error when it cannot be written.
class Settings {
  public:
    explicit Settings(const QString& fileName);
    static QString DefaultFileName();  // in the user's folder for configuration

    int32_t LanguageIndex() const;         // of the interface, 0 to 24; 0 (English) until it is set
    void SetLanguageIndex(int32_t index);  // throws host::Error for a number out of range

    int CodePage() const;  // of the exchange files; 1252 until it is set
    void SetCodePage(int number);

    QString NetworkFolder() const;  // "*DIRETORIO_REDE*" of the interpreters
    void SetNetworkFolder(const QString& folder);

    QStringList DwgConverter() const;  // program and arguments, {in} and {out} among them
    void SetDwgConverter(const QStringList& arguments);
    int DwgSeconds() const;  // that it may take; 120 until it is set
    void SetDwgSeconds(int seconds);

    QStringList RecentFiles() const;  // native paths, the latest first
    void SetRecentFiles(const QStringList& files);

    // As ParseDatabaseUrl takes it: the one that is set, else a file in the user's folder for data.
    QString DatabaseUrl() const;
    void SetDatabaseUrl(const QString& url);

    // The language of a project whose drawing is too old to hold one, by the drawing's file.
    std::optional<int32_t> ProjectLanguage(const std::string& nativePath) const;
    void SetProjectLanguage(const std::string& nativePath, int32_t language);

  private:
    void Set(const QString& key, const QVariant& value);

    QSettings store;
};

}  // namespace host
