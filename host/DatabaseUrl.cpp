// Reading the address of a dictionary.
#include "host/DatabaseUrl.h"

#include <QUrl>
#include <QUrlQuery>

#include "host/Error.h"

namespace host {

namespace {

bool IsPassword(const QString& option) { return option.contains(QLatin1String("password")); }

QString WithoutPasswords(QUrl url) {
    QUrlQuery shown;
    for (const auto& [option, value] : QUrlQuery(url).queryItems(QUrl::FullyEncoded)) {
        if (!IsPassword(option)) shown.addQueryItem(option, value);
    }
    url.setQuery(shown.isEmpty() ? QString() : shown.query(QUrl::FullyEncoded));
    return url.toString(QUrl::RemovePassword);
}

QString Quoted(QString value) {
    value.replace(u'\\', QLatin1String("\\\\")).replace(u'\'', QLatin1String("\\'"));
    return u'\'' + value + u'\'';
}

DatabaseUrl ParsePostgres(const QUrl& url) {
    DatabaseUrl result;
    result.text = WithoutPasswords(url);
    result.kind = DatabaseUrl::Kind::Postgres;
    result.host = url.host(QUrl::FullyDecoded);
    result.port = url.port();
    result.user = url.userName(QUrl::FullyDecoded);
    result.password = url.password(QUrl::FullyDecoded);
    result.database = url.path(QUrl::FullyDecoded).mid(1);
    for (const auto& [option, value] : QUrlQuery(url).queryItems(QUrl::FullyDecoded)) {
        result.options += option + u'=' + Quoted(value) + u' ';
    }
    if (result.database.isEmpty()) {
        throw Error(QStringLiteral("database %1: the address names no database; use "
                                   "postgresql://USER@HOST/NAME")
                        .arg(result.text));
    }
    return result;
}

}  // namespace

DatabaseUrl ParseDatabaseUrl(const QString& url) {
    const QLatin1String sqlite("sqlite:");
    if (url.startsWith(sqlite) && url.size() > sqlite.size()) {
        DatabaseUrl result;
        result.text = url;
        result.file = url.mid(sqlite.size());
        return result;
    }
    const QUrl server(url, QUrl::StrictMode);
    if (server.isValid() && server.scheme() == QLatin1String("postgresql")) {
        return ParsePostgres(server);
    }
    // What cannot be read may hold a password anywhere, so that such an address is not repeated.
    const bool meant = url.startsWith(QLatin1String("postgresql:"));
    throw Error(QStringLiteral("database %1: this is no address of a database; use sqlite:FILE or "
                               "postgresql://USER@HOST/NAME")
                    .arg(meant ? QStringLiteral("postgresql:...") : url));
}

}  // namespace host
