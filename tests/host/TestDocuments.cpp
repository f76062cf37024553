// Documents: the order of events, the project's language, pages, undo.
#include <QFile>

#include "host/Host.h"
#include "platform/drawing/DbText.h"
#include "platform/drawing/StaticRxObject.h"
#include "tests/host/Support.h"

namespace {

std::vector<std::string> Names(const std::vector<host::Page>& pages) {
    std::vector<std::string> names;
    for (const host::Page& page : pages) names.push_back(OdString(page.name).narrowText());
    return names;
}

class Recorder : public OdStaticRxObject<CMxDocumentManagerReactor> {
  public:
    explicit Recorder(host::DocumentManager& documents) : documents(documents) {
        documents.AddReactor(this);
        documents.AddReactor(this);  // a second time changes nothing
    }
    ~Recorder() override { documents.RemoveReactor(this); }
    std::string Take() { return std::exchange(events, {}); }

    void DocumentCreateStarted(CMxDocument* d) override { Note("start", d); }
    void DocumentCreated(CMxDocument* d) override { Note("created", d); }
    void DocumentAdded(CMxDocument* d) override {
        Note("added", d);
        if (fails) throw std::runtime_error("reactor failed");
    }
    void DocumentToBeActivated(CMxDocument* d) override { Note("activate", d); }
    void DocumentBecameCurrent(CMxDocument* d) override { Note("current", d); }
    void DocumentActivated(CMxDocument* d) override { Note("activated", d); }
    void DocumentToBeDeactivated(CMxDocument* d) override { Note("deactivate", d); }
    void DocumentToBeDestroyed(CMxDocument* d) override { Note("destroy", d); }
    void DocumentRemoved(CMxDocument* d) override { Note("removed", d); }
    void DocumentDestroyed(CMxDocument*) override { events += "destroyed "; }
    void DocumentCreateCanceled(CMxDocument* d) override { Note("cancelled", d); }

    bool fails = false;

  private:
    void Note(const char* event, CMxDocument* document) {
        events += std::string(event) + ":" + document->GetFileName().narrowText() + " ";
    }
    host::DocumentManager& documents;
    std::string events;
};

TEST(DocumentManager, TellsEventsInTheOrderOfAHost) {
    host::DocumentManager documents;
    Recorder recorder(documents);
    host::Document& a = documents.Open(Parsed(SmallDrawing()), "a");
    EXPECT_EQ(recorder.Take(), "start:a created:a added:a activate:a current:a activated:a ");
    documents.Open(Parsed(SmallDrawing()), "b");
    EXPECT_EQ(recorder.Take(),
              "start:b created:b added:b deactivate:a activate:b current:b activated:b ");
    EXPECT_EQ(documents.GetDocumentCount(), 2);
    EXPECT_EQ(documents.GetDocument(0), &a);
    EXPECT_EQ(documents.GetDocument(2), nullptr);
    EXPECT_EQ(documents.GetDocument(-1), nullptr);
    documents.Close(*documents.Active());
    EXPECT_EQ(recorder.Take(),
              "deactivate:b destroy:b removed:b destroyed activate:a current:a activated:a ");
    documents.CloseAll();
    EXPECT_EQ(recorder.Take(), "deactivate:a destroy:a removed:a destroyed ");
    EXPECT_EQ(documents.GetActiveDocument(), nullptr);
}

TEST(DocumentManager, DrawingThatCannotBeReadIsCancelled) {
    host::DocumentManager documents;
    Recorder recorder(documents);
    EXPECT_THROW(documents.Open("/nowhere/at/all.dxf"), OdError);
    EXPECT_EQ(recorder.Take(), "start:/nowhere/at/all.dxf cancelled:/nowhere/at/all.dxf ");
    EXPECT_EQ(documents.GetDocumentCount(), 0);
}

class HostTest : public testing::Test {
  protected:
    HostTest() : host(Options()) {}
    host::HostOptions Options() {
        host::HostOptions options;
        options.settingsFile = folder.File("settings.ini");
        options.logFile = folder.File("log/host.log");
        options.databaseUrl = folder.Database();
        options.onMissingDatabase = host::OnMissing::Create;
        options.commandLine = [this](std::u16string_view text) { printed += text; };
        options.choosePages = [this](host::Document&, const std::vector<host::Page>& pages) {
            offered = Names(pages);
            return chosen;
        };
        return options;
    }
    QString DrawingFile(const std::string& bytes) {
        const QString file = folder.File("drawing.dxf");
        WriteFile(file, bytes);
        return file;
    }
    // What another opening of the saved file finds.
    int32_t LanguageAfterReopening(host::Document& document, const QString& file) {
        document.Save(file.toStdString());
        host.Documents().Close(document);
        return host.ProjectLanguage(host.Documents().Open(file.toStdString()));
    }

    Folder folder;
    std::u16string printed;
    std::vector<std::string> offered;
    std::optional<std::vector<std::u16string>> chosen;
    host::Host host;
};

TEST_F(HostTest, InstallsItsServicesAndTakesThemAway) {
    EXPECT_NE(GetMxSystemServices(), nullptr);
    EXPECT_EQ(ACTIVE_DOCUMENT(), nullptr);
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    EXPECT_EQ(ACTIVE_DOCUMENT(), &document);
    EXPECT_EQ(ErrorOf([&] { host::Host second(Options()); }),
              "host: there is one already in this program");
    EXPECT_NE(GetElectricalServices(), nullptr);
}

TEST_F(HostTest, AReactorThatFailsIsLoggedAndTheOthersAreTold) {
    Recorder failing(host.Documents()), other(host.Documents());
    failing.fails = true;
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a");
    EXPECT_EQ(ACTIVE_DOCUMENT(), &document);
    EXPECT_EQ(other.Take(), "start:a created:a added:a activate:a current:a activated:a ");
    const std::string log = ReadFile(folder.File("log/host.log"));
    EXPECT_NE(log.find("DocumentManager : reactor failed"), std::string::npos) << log;
}

TEST_F(HostTest, LogHasOneLineForOneText) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    electricalLog(u"two\nlines", &document);
    electricalLog(u"none", nullptr);
    const std::string log = ReadFile(folder.File("log/host.log"));
    EXPECT_NE(log.find(" [a.dxf] two\\nlines\n"), std::string::npos) << log;
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2);
}

TEST_F(HostTest, ProjectLanguageTravelsInTheDrawing) {
    for (const char* version : {"AC1015", "AC1032"}) {
        const QString file = DrawingFile(SmallDrawing(version));
        host::Document& document = host.Documents().Open(file.toStdString());
        EXPECT_EQ(host.ProjectLanguage(document), -1);
        host.SetProjectLanguage(document, 2);
        host.SetProjectLanguage(document, 3);
        EXPECT_EQ(host.ProjectLanguage(document), 3);
        EXPECT_EQ(LanguageAfterReopening(document, file), 3);
        host.Documents().CloseAll();
    }
}

TEST_F(HostTest, ProjectLanguageOfAnOldDrawingStandsInTheSettings) {
    const QString file = DrawingFile(SmallDrawingR12());
    host::Document& document = host.Documents().Open(file.toStdString());
    EXPECT_EQ(host.ProjectLanguage(document), -1);
    host.SetProjectLanguage(document, 3);
    EXPECT_EQ(LanguageAfterReopening(document, file), 3);
    EXPECT_EQ(ReadFile(file), SmallDrawingR12());
    EXPECT_EQ(host.ProjectLanguage(host.Documents().Open(Parsed(SmallDrawingR12()), "b.dxf")), -1);
    host::Document& unnamed = host.Documents().Open(Parsed(SmallDrawingR12()), "");
    EXPECT_THROW(host.SetProjectLanguage(unnamed, 3), OdError);
}

TEST_F(HostTest, PreparingAnApplicationChangesNothing) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    auto project = GetElectricalServices()->GetProjectManager()->GetProject(&document);
    EXPECT_FALSE(project->PrepareApplication(u"VRN_TQ_ATT_VIRTUAL"));
    EXPECT_EQ(document.Drawing().toBytes(), SmallDrawing());
    EXPECT_EQ(GetElectricalServices()->GetProjectManager()->GetProject(nullptr), nullptr);
}

TEST_F(HostTest, PagesAreLayersWithTheirDescriptions) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    EXPECT_EQ(Names(document.Pages().Pages()), std::vector<std::string>{"PAG01"});
    EXPECT_EQ(document.Pages().Pages()[0].description, u"Comando do motor");
}

TEST(Pages, ThePartsOfAPageComeWithIt) {
    const auto whole = [](std::vector<host::Page> pages) {
        std::u16string names;
        for (const host::Page& page : host::WholePages(pages)) names += page.name + u" ";
        return names;
    };
    EXPECT_EQ(whole({{u"A$DE", u""}, {u"A", u""}, {u"A$SELO", u""}, {u"A$FORMATO", u""}}), u"A ");
    EXPECT_EQ(whole({{u"A$SELO", u""}, {u"B", u""}, {u"B$selo", u""}, {u"B$X", u""}}),
              u"A$SELO B B$selo B$X ");
}

TEST_F(HostTest, LispAsksForPagesAndReadsThemAgain) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    CMxLispEngine* lisp = document.GetLispEngine();
    CMxValueNode* chain = nullptr;
    const auto choose = u"(progn (setq p (tq_seleciona_paginas)) (princ))";
    EXPECT_EQ(lisp->EvaluateLisp(choose, &chain), kLispNormal);
    EXPECT_EQ(offered, std::vector<std::string>{"PAG01"});
    EXPECT_NE(lisp->GetLispVariable(u"p", &chain), kLispNormal);  // cancelled is nil

    chosen = {u"PAG01", u"Página 2"};
    lisp->EvaluateLisp(choose, &chain);
    ASSERT_EQ(lisp->GetLispVariable(u"p", &chain), kLispNormal);
    EXPECT_EQ(chain->type, kLispString);
    EXPECT_EQ(std::u16string(chain->next->value.string), u"Página 2");
    EXPECT_EQ(chain->next->next, nullptr);
    lisp->ReleaseValueChain(chain);

    lisp->EvaluateLisp(u"(progn (atualizarpaginas)  (princ))", nullptr);
    EXPECT_TRUE(document.Screen().TakeMark());
    EXPECT_FALSE(document.Screen().TakeMark());
    EXPECT_EQ(printed, u"");
}

TEST_F(HostTest, NetworkFolderReachesTheInterpreters) {
    CMxValueNode* chain = nullptr;
    host::Document& before = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    EXPECT_NE(before.GetLispEngine()->GetLispVariable(u"*DIRETORIO_REDE*", &chain), kLispNormal);
    host.GetSettings().SetNetworkFolder("/srv/projetos");
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "b.dxf");
    ASSERT_EQ(document.GetLispEngine()->GetLispVariable(u"*diretorio_rede*", &chain), kLispNormal);
    EXPECT_EQ(std::u16string(chain->value.string), u"/srv/projetos");
}

}  // namespace
