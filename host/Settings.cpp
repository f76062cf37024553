// Keys, defaults and limits of the settings.
#include "host/Settings.h"

#include <QDir>
#include <QStandardPaths>
#include <filesystem>

#include "host/Error.h"

namespace host {

namespace {

constexpr int32_t kLastLanguageIndex = 24;
constexpr int kDefaultCodePage = 1252;
constexpr int kDefaultDwgSeconds = 120;

// A path holds characters that separate groups in an ini file, and bytes that are no text.
QString ProjectKey(const std::string& nativePath) {
    std::error_code none;
    const auto path =
        std::filesystem::weakly_canonical(std::filesystem::absolute(nativePath, none), none);
    const std::string& bytes = path.empty() ? nativePath : path.native();
    return QLatin1String("projects/") +
           QString::fromLatin1(QByteArray::fromStdString(bytes).toPercentEncoding());
}

}  // namespace

Settings::Settings(const QString& fileName) : store(fileName, QSettings::IniFormat) {}

QString Settings::DefaultFileName() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1String("/kelvara/kelvara.ini");
}

int32_t Settings::LanguageIndex() const {
    const int32_t index = store.value("interface/language", 0).toInt();
    return index >= 0 && index <= kLastLanguageIndex ? index : 0;
}

void Settings::SetLanguageIndex(int32_t index) {
    if (index < 0 || index > kLastLanguageIndex) {
        throw Error(
            QStringLiteral("interface language %1: there is no such language; give a number "
                           "from 0 to %2")
                .arg(index)
                .arg(kLastLanguageIndex));
    }
    Set("interface/language", index);
}

int Settings::CodePage() const {
    return store.value("exchange/codePage", kDefaultCodePage).toInt();
}

void Settings::SetCodePage(int number) { Set("exchange/codePage", number); }

QString Settings::NetworkFolder() const { return store.value("project/networkFolder").toString(); }

void Settings::SetNetworkFolder(const QString& folder) { Set("project/networkFolder", folder); }

QStringList Settings::DwgConverter() const { return store.value("dwg/converter").toStringList(); }

void Settings::SetDwgConverter(const QStringList& arguments) { Set("dwg/converter", arguments); }

int Settings::DwgSeconds() const { return store.value("dwg/seconds", kDefaultDwgSeconds).toInt(); }

void Settings::SetDwgSeconds(int seconds) { Set("dwg/seconds", seconds); }

QStringList Settings::RecentFiles() const { return store.value("files/recent").toStringList(); }

void Settings::SetRecentFiles(const QStringList& files) { Set("files/recent", files); }

QString Settings::DatabaseUrl() const {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString standard = QLatin1String("sqlite:") + folder + "/kelvara/dictionary.sqlite";
    return store.value("database/url", standard).toString();
}

void Settings::SetDatabaseUrl(const QString& url) { Set("database/url", url); }

std::optional<int32_t> Settings::ProjectLanguage(const std::string& nativePath) const {
    const QVariant language = store.value(ProjectKey(nativePath));
    return language.isValid() ? std::optional(language.toInt()) : std::nullopt;
}

void Settings::SetProjectLanguage(const std::string& nativePath, int32_t language) {
    Set(ProjectKey(nativePath), language);
}

void Settings::Set(const QString& key, const QVariant& value) {
    store.setValue(key, value);
    store.sync();
    if (store.status() != QSettings::NoError) {
        throw Error(
            QStringLiteral("settings %1: the file cannot be written; check its folder and its "
                           "permissions")
                .arg(store.fileName()));
    }
}

}  // namespace host
