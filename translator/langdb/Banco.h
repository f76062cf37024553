// The road to the product's database, and the base of the store's queries.
#pragma once

#include <memory>

#include "platform/kernel/KVDatabase.h"
#include "platform/kernel/KVQuery.h"

namespace traducaoTQ {

// The database, held for one call only.
std::shared_ptr<CKVDatabase> BancoDeDados();

// What all queries of the store have in common.
class ConsultaBD : public CKVQuery {
  public:
    bool IsDatabaseQuery() const override { return true; }
};

class ConsultaLeitura : public ConsultaBD {
  public:
    bool IsReadOnly() const override { return true; }
};

class ConsultaEscrita : public ConsultaBD {
  public:
    bool IsReadOnly() const override { return false; }
    std::string GetCacheKey() const override { return {}; }
};

}  // namespace traducaoTQ
