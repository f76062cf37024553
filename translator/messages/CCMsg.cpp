// The cache of the catalogues and the look-up in them.
#include "translator/messages/CCMsg.h"

#include "translator/cad/Guarded.h"
#include "translator/messages/Catalogue.h"

namespace tq {

namespace {

using CatalogueCache = std::map<TQString, std::unique_ptr<const MessageMap>>;

// Only what loaded is kept, and kept to the end: a catalogue stays in the language of its load.
CatalogueCache& Cache() {
    static CatalogueCache cache;
    return cache;
}

// The catalogue of a module, loaded if need be; null when that fails.
const MessageMap* CatalogueOf(const TQString& module) {
    auto found = Cache().find(module);
    if (found != Cache().end() && found->second) return found->second.get();
    TQString path = GetCataloguePath(module);
    std::unique_ptr<const MessageMap> messages = LoadCatalogue(path, LanguageCode());
    if (!messages) return nullptr;
    return (Cache()[module] = std::move(messages)).get();
}

}  // namespace

TQString CCMsg::getMensagem(TQString module, TQString number) {
    return Guarded(u"tq::CCMsg::getMensagem", [&]() -> TQString {
        module.MakeUpper();
        number.MakeUpper();
        const MessageMap* messages = CatalogueOf(module);
        if (!messages) return u"File not found.";
        auto message = messages->find(number);
        return message != messages->end() ? message->second : TQString();
    });
}

}  // namespace tq
