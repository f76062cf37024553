// The tables of the dictionary and how a database gets them.
#pragma once

#include <QString>
#include <QStringList>

#include "host/SqlConnection.h"

namespace host {

inline constexpr int kTermLength = 250;  // declared length of every language column, in characters

// Creates the tables in an empty database if that is allowed, upgrades those of an earlier version.
// Throws host::Error, and has changed nothing then.
void BringToPresentSchema(SqlConnection& connection, const QString& url, OnMissing onMissing);

// The column of BDTRANSLATOR that holds a language.
QString LanguageColumn(int languageKey);
void AddLanguageColumn(SqlConnection& connection, int languageKey);  // nothing if it is there

// Declared length of a column, from its declared type; 0 when there is no column or no length.
// Throws host::Error.
int DeclaredColumnSize(SqlConnection& connection, const QString& table, const QString& column);
bool HasColumn(SqlConnection& connection, const QString& table, const QString& column);

}  // namespace host
