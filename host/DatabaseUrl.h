// Where the dictionary is.
#pragma once

#include <QString>

namespace host {

struct DatabaseUrl {
    QString text;    // as it was given, for messages
    QString driver;  // the name that Qt Sql has for it
    QString file;
};

// "sqlite:FILE". Throws host::Error for every other text; for "postgresql://..." it says that this
// build has no such driver.
DatabaseUrl ParseDatabaseUrl(const QString& url);

}  // namespace host
