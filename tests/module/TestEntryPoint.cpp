// Start, stop and reactions of an entry point, seen through its hooks.
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/drawing/OdError.h"
#include "platform/kernel/MxCommandContext.h"
#include "tests/support/ScriptedServices.h"
#include "translator/module/CCEntryPoint.h"

namespace {

using Lines = std::vector<std::string>;

// Writes its hooks among the calls of the services, with the number of the document.
class RecordingEntryPoint : public CCEntryPoint {
  public:
    explicit RecordingEntryPoint(ScriptedServices& services) : services(services) {}

    void registarComandos() override {
        Record("registarComandos");
        if (onRegister) onRegister();
        for (const auto& [name, value] : names) registos[name] = value;
    }
    void removerComandos() override { Record("removerComandos"); }
    void documentoActivado(CMxDocument* document) override { Record("activado", document); }
    void documentoAberto(CMxDocument* document) override { Record("aberto", document); }
    void documentoFechado(CMxDocument* document) override {
        Record("fechado", document);
        if (onClose) onClose();
    }
    void primeiroComandoTerminado(CMxDocument* document) override { Record("primeiro", document); }

    void* sysData() override { return nullptr; }
    void deleteModule() override {}
    OdString moduleName() const override { return {}; }

    const std::list<CMxDocument*>& Waiting() const { return reactor.documentos; }
    void Add(CMxDocument* document) { reactor.DocumentAdded(document); }

    std::function<void()> onRegister, onClose;
    std::map<std::u16string, int64_t> names;

  private:
    void Record(std::string hook, CMxDocument* document = nullptr) {
        for (std::size_t i = 0; i < services.documents.size(); ++i)
            if (services.documents[i].get() == document) hook += " " + std::to_string(i);
        services.calls.push_back(hook);
    }

    ScriptedServices& services;
};

class EntryPoint : public ::testing::Test {
  protected:
    // What has been called since the last time.
    Lines Calls() { return std::exchange(services.calls, {}); }

    void CommandEnded(OdEdCommandContext* context) {
        odedRegCmds()->fireCommandEnded(u"LINE", context);
    }
    void CommandEndedIn(CMxDocument* document) {
        OdStaticRxObject<CMxCommandContext> context(document);
        CommandEnded(&context);
    }
    CMxDocumentManagerReactor& Reactor() { return *services.reactors.at(0); }

    void TearDown() override { module.uninitApp(); }

    ScriptedServices services;
    RecordingEntryPoint module{services};
};

}  // namespace

TEST_F(EntryPoint, StartsAndStopsInOrder) {
    services.AddDocument();
    ScriptedDocument& second = services.AddDocument();
    module.initApp();
    EXPECT_EQ(Calls(), (Lines{"registarComandos", "AddReactor", "aberto 0", "aberto 1"}));

    // Documents that were open at the start are not announced a second time.
    CommandEndedIn(&second);
    EXPECT_EQ(Calls(), Lines{});

    // The commands are no longer followed when the documents are taken leave of.
    Reactor().DocumentAdded(&second);
    module.onClose = [&] { CommandEndedIn(&second); };
    Calls();
    module.uninitApp();
    EXPECT_EQ(Calls(), (Lines{"fechado 0", "fechado 1", "RemoveReactor", "removerComandos"}));
    EXPECT_TRUE(services.reactors.empty());
}

TEST_F(EntryPoint, ADocumentOpenedDuringTheStartIsSeenToo) {
    services.AddDocument();
    module.onRegister = [this] { services.AddDocument(); };
    module.initApp();
    EXPECT_EQ(Calls(), (Lines{"registarComandos", "AddReactor", "aberto 0", "aberto 1"}));
}

TEST_F(EntryPoint, WithoutDocumentsToFollowTheCommandsStand) {
    ScriptedDocument& document = services.AddDocument();
    services.hasDocumentManager = false;
    module.initApp();
    EXPECT_EQ(Calls(), Lines{"registarComandos"});
    module.uninitApp();
    EXPECT_EQ(Calls(), Lines{"removerComandos"});

    InstallMxSystemServices(nullptr);
    module.initApp();
    EXPECT_EQ(Calls(), Lines{"registarComandos"});
    module.Add(&document);
    CommandEndedIn(&document);
    EXPECT_EQ(Calls(), (Lines{"aberto 0", "primeiro 0"}));
    module.Add(&document);
    module.uninitApp();
    CommandEndedIn(&document);
    EXPECT_EQ(Calls(), (Lines{"aberto 0", "removerComandos"}));
}

TEST_F(EntryPoint, ADocumentIsAnnouncedAgainAtTheEndOfItsFirstCommand) {
    ScriptedDocument& first = services.AddDocument();
    ScriptedDocument& second = services.AddDocument();
    module.initApp();
    Calls();
    for (ScriptedDocument* document : {&first, &second, &first}) Reactor().DocumentAdded(document);
    Reactor().DocumentActivated(&second);
    EXPECT_EQ(Calls(), (Lines{"aberto 0", "aberto 1", "aberto 0", "activado 1"}));
    EXPECT_EQ(module.Waiting(), (std::list<CMxDocument*>{&first, &second, &first}));

    CommandEndedIn(&first);
    CommandEndedIn(&first);
    EXPECT_EQ(Calls(), Lines{"primeiro 0"});
    EXPECT_EQ(module.Waiting(), std::list<CMxDocument*>{&second});

    // Only the end of a command takes a document out, not its closing.
    Reactor().DocumentRemoved(&second);
    EXPECT_EQ(Calls(), Lines{"fechado 1"});
    EXPECT_EQ(module.Waiting(), std::list<CMxDocument*>{&second});
}

TEST_F(EntryPoint, OtherEventsOfCommandsChangeNothing) {
    ScriptedDocument& document = services.AddDocument();
    module.initApp();
    Reactor().DocumentAdded(&document);
    Calls();
    OdStaticRxObject<OdEdCommandContext> foreign;
    OdStaticRxObject<CMxCommandContext> without(nullptr), with(&document);
    CommandEnded(nullptr);
    CommandEnded(&foreign);
    CommandEnded(&without);
    odedRegCmds()->fireCommandWillStart(u"LINE", &with);
    odedRegCmds()->fireCommandFailed(u"LINE", &with);
    odedRegCmds()->fireCommandCancelled(u"LINE", &with);
    EXPECT_EQ(Calls(), Lines{});
    EXPECT_EQ(module.Waiting().size(), 1u);
}

TEST_F(EntryPoint, RegistrationsReachEveryDocumentAndAreTakenBack) {
    using Registered = std::map<OdString, int64_t>;
    ScriptedDocument& open = services.AddDocument();
    module.names = {{u"b", 2}, {u"a", int64_t{1} << 40}};
    module.initApp();
    ScriptedDocument& added = services.AddDocument();
    Reactor().DocumentAdded(&added);
    const Registered all{{u"a", int64_t{1} << 40}, {u"b", 2}};
    EXPECT_EQ(open.registered, all);
    EXPECT_EQ(added.registered, all);
    Reactor().DocumentRemoved(&added);
    EXPECT_EQ(added.registered, Registered{});
    module.uninitApp();
    EXPECT_EQ(open.registered, Registered{});

    // A new start begins with none.
    module.names.clear();
    module.initApp();
    EXPECT_EQ(open.registered, Registered{});
}

TEST_F(EntryPoint, AFailureIsLoggedAndGoesOnAsItIs) {
    ScriptedDocument& document = services.AddDocument();
    module.onRegister = [] { throw OdError_InvalidIndex(); };
    EXPECT_THROW(module.initApp(), OdError_InvalidIndex);
    module.onRegister = [] { throw std::out_of_range("no place"); };
    EXPECT_THROW(module.initApp(), std::out_of_range);
    const Lines started{
        "CCEntryPoint::initApp : " + OdError_InvalidIndex().description().narrowText(),
        "CCEntryPoint::initApp : no place"};
    EXPECT_EQ(services.log, started);
    // Nothing behind the failure has been done.
    EXPECT_EQ(Calls(), (Lines{"registarComandos", "registarComandos"}));
    module.onRegister = {};
    module.initApp();
    Reactor().DocumentAdded(&document);

    services.log.clear();
    module.onClose = [] { throw OdError(u"busy"); };
    EXPECT_THROW(module.uninitApp(), OdError);
    EXPECT_EQ(services.log, Lines{"CCEntryPoint::uninitApp : busy"});
    EXPECT_EQ(services.reactors.size(), 1u);
    module.onClose = {};
}
