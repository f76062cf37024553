// The standard headers and those of Qt that most files of host and module include.
#pragma once
#include <QString>
#include <QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include "pch_std.h"
