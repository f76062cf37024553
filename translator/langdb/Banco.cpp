// The road to the product's database.
#include "translator/langdb/Banco.h"

#include "platform/kernel/KVServices.h"

namespace traducaoTQ {

std::shared_ptr<CKVDatabase> BancoDeDados() {
    return GetElectricalServices()->GetDataManager()->GetDatabase();
}

}  // namespace traducaoTQ
