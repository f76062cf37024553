// CCEntryPoint: start and stop of the module, and the reactor that follows documents and commands.
#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <string>

#include "platform/drawing/EdCommandStack.h"
#include "platform/drawing/RxModule.h"
#include "platform/drawing/StaticRxObject.h"
#include "platform/kernel/MxDocumentManager.h"

class CMxDocument;

// The base of a module object, with hooks for its commands and for documents. What fails in initApp
// and uninitApp is logged and thrown on; the host decides what follows. Main thread only.
class CCEntryPoint : public OdStaticRxObject<OdRxModule> {
  public:
    CCEntryPoint();

    void initApp() override;
    void uninitApp() override;

    virtual void registarComandos() = 0;
    virtual void removerComandos() {}
    virtual void documentoActivado(CMxDocument*) {}
    virtual void documentoAberto(CMxDocument*) {}  // also the documents open at initApp
    virtual void documentoFechado(CMxDocument*) {}
    // The second announcement of a document that came after initApp: its first command has ended.
    virtual void primeiroComandoTerminado(CMxDocument*) {}

    class EntryPointReactor : public CMxDocumentManagerReactor, public OdEdCommandStackReactor {
      public:
        void DocumentAdded(CMxDocument* document) override;
        void DocumentRemoved(CMxDocument* document) override;
        void DocumentActivated(CMxDocument* document) override;
        void commandEnded(const OdString& command, OdEdCommandContext* context) override;

        CCEntryPoint* owner = nullptr;
        // Documents that have come and not yet finished a command. A document that closes before
        // stays in it, so an entry may point at none that is alive.
        std::list<CMxDocument*> documentos;
    };

  protected:
    void registar(CMxDocument* document);  // leaves registos with the document
    void retirar(CMxDocument* document);

    OdStaticRxObject<EntryPointReactor> reactor;
    std::map<std::u16string, int64_t> registos;  // names and values that every document is given

  private:
    template <class Visit>
    static void paraCadaDocumento(CMxDocumentManager& documents, Visit visit);
};
