// Reading the address of a dictionary.
#include "host/DatabaseUrl.h"

#include "host/Error.h"

namespace host {

DatabaseUrl ParseDatabaseUrl(const QString& url) {
    const QLatin1String sqlite("sqlite:");
    if (url.startsWith(sqlite) && url.size() > sqlite.size()) {
        return {url, QStringLiteral("QSQLITE"), url.mid(sqlite.size())};
    }
    if (url.startsWith(QLatin1String("postgresql://"))) {
        throw Error(QStringLiteral("database %1: PostgreSQL is not available in this build; use "
                                   "sqlite:FILE")
                        .arg(url));
    }
    throw Error(
        QStringLiteral("database %1: this is no address of a database; use sqlite:FILE").arg(url));
}

}  // namespace host
