// Running commands: what the reactors see, what failures become, what undo takes back.
#include <QFile>

#include "host/Host.h"
#include "platform/drawing/DbText.h"
#include "platform/drawing/StaticRxObject.h"
#include "platform/kernel/MxCommandContext.h"
#include "tests/host/Support.h"

namespace {

class Watcher : public OdStaticRxObject<OdEdCommandStackReactor> {
  public:
    Watcher() { odedRegCmds()->addReactor(this); }
    ~Watcher() override { odedRegCmds()->removeReactor(this); }

    void commandAdded(const OdString& n) override { Note("added", n); }
    void commandWillBeRemoved(const OdString& n) override { Note("removed", n); }
    void commandWillStart(const OdString& n, OdEdCommandContext* c) override {
        Note("start", n, c);
    }
    void commandEnded(const OdString& n, OdEdCommandContext* c) override {
        Note("ended", n, c);
        if (failAtEnd) throw std::runtime_error("reactor failed");
    }
    void commandFailed(const OdString& n, OdEdCommandContext* c) override { Note("failed", n, c); }
    void unknownCommand(const OdString& n, OdEdCommandContext* c) override {
        Note("unknown", n, c);
    }

    std::string Take() { return std::exchange(events, {}); }
    std::vector<CMxDocument*> documents;
    bool failAtEnd = false;

  private:
    void Note(const char* event, const OdString& name, OdEdCommandContext* context = nullptr) {
        events += event + (":" + name.narrowText()) + " ";
        OdSmartPtr<CMxCommandContext> held = CMxCommandContext::cast(context);
        if (!held.isNull()) documents.push_back(held->GetDocument());
    }
    std::string events;
};

class Boxes : public CMxMessageBoxService {
  public:
    int Show(Kind, QWidget*, const OdString& title, const CMxString& text, int buttons,
             int) override {
        shown.push_back(title.narrowText() + "|" + text.ansi_str());
        return buttons;
    }
    std::vector<std::string> shown;
};

class CommandTest : public testing::Test {
  protected:
    CommandTest() : host(Options()) {}
    host::HostOptions Options() {
        host::HostOptions options;
        options.settingsFile = folder.File("settings.ini");
        options.logFile = folder.File("host.log");
        options.databaseUrl = folder.Database();
        options.onMissingDatabase = host::OnMissing::Create;
        options.applicationName = u"Title";
        options.messageBoxes = &boxes;
        options.explain = [this](const std::exception_ptr&) { return explanation; };
        options.commandLine = [this](std::u16string_view text) { printed += text; };
        return options;
    }
    void Add(const char16_t* name, std::function<void()> work, bool undoable = true) {
        const auto make = undoable ? makeUndoableFunctionCommand : makeNotUndoableFunctionCommand;
        GetElectricalServices()->GetCommandManager()->AddCommand(make(
            name, [work](CMxCommandContext*) { work(); }, CKVCommand::onRequest));
    }
    OdDbTextPtr Text(OdDb::OpenMode mode) {
        OdDbDatabase* drawing = ACTIVE_DOCUMENT()->GetDwgDatabase();
        return drawing->getOdDbObjectId(OdDbHandle(0xA1)).openObject(mode);
    }
    void SetText(const char16_t* text) { Text(OdDb::kForWrite)->setTextString(text); }

    Folder folder;
    Boxes boxes;
    Watcher watcher;
    std::u16string explanation, printed;
    host::Host host;
};

TEST_F(CommandTest, TableKeepsTheOrderAndFindsNamesInAnyCase) {
    Add(
        u"SECOND", [] {}, false);
    Add(u"FIRST", [] {});
    ASSERT_NE(host.Commands().Find(u"first"), nullptr);
    EXPECT_TRUE(host.Commands().Find(u"first")->IsUndoable());
    EXPECT_FALSE(host.Commands().Find(u"Second")->IsUndoable());
    EXPECT_EQ(host.Commands().Find(u"FIRST")->GetRunTime(), 2);
    EXPECT_TRUE(host.Commands().Commands()[0]->GetName() == u"SECOND");
    Add(u"SECOND", [] {});
    EXPECT_EQ(host.Commands().Commands().size(), 2u);
    GetElectricalServices()->GetCommandManager()->RemoveCommand(u"SECOND");
    GetElectricalServices()->GetCommandManager()->RemoveCommand(u"NEVER");
    EXPECT_EQ(host.Commands().Find(u"SECOND"), nullptr);
    EXPECT_EQ(watcher.Take(),
              "added:SECOND added:FIRST removed:SECOND added:SECOND removed:SECOND ");
}

TEST_F(CommandTest, ReactorsGetTheDocument) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    Add(u"WORK", [] {});
    watcher.Take();
    EXPECT_TRUE(host.Runner().Run(u"work").done);
    EXPECT_EQ(watcher.Take(), "start:WORK ended:WORK ");
    EXPECT_EQ(watcher.documents, (std::vector<CMxDocument*>{&document, &document}));
}

TEST_F(CommandTest, CommandWithoutADocumentRuns) {
    bool ran = false;
    Add(u"WORK", [&] { ran = true; });
    EXPECT_TRUE(host.Runner().Run(u"WORK").done);
    EXPECT_TRUE(ran);
    EXPECT_EQ(watcher.documents, (std::vector<CMxDocument*>{nullptr, nullptr}));
}

TEST_F(CommandTest, AnExplanationIsShownAndTheFailureItselfLogged) {
    Add(u"WORK", [] { throw std::runtime_error("reason"); });
    for (const char16_t* text : {u"", u"what helps"}) {
        explanation = text;
        EXPECT_EQ(host.Runner().Run(u"WORK").failure, u"reason");
    }
    EXPECT_EQ(boxes.shown, (std::vector<std::string>{"Title|WORK : reason", "Title|what helps"}));
    EXPECT_EQ(QString::fromStdString(ReadFile(folder.File("host.log"))).count("WORK : reason"), 2);
}

TEST_F(CommandTest, ProgramsRunCommandsAndEndWithOneThatFails) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    Add(u"TEXT", [&] { SetText(u"Um"); });
    Add(u"WORK", [] { throw std::runtime_error("reason"); });
    const auto evaluate = [&](const char16_t* source) {
        printed.clear();
        document.Lisp().EvaluateLisp(source, nullptr);
        return printed;
    };
    EXPECT_EQ(evaluate(u"(command \"text\") (princ 1)"), u"1");
    EXPECT_TRUE(document.Drawing().undoName() == u"TEXT");
    EXPECT_EQ(evaluate(u"(command \"TEXT\" \"WORK\") (princ 1)"), u"; WORK : reason\n");
    EXPECT_EQ(evaluate(u"(command \"NONE\")"), u"; NONE : unknown command NONE\n");
    EXPECT_EQ(evaluate(u"(command 5)"), u"; command: not the name of a command: 5\n");
}

TEST_F(CommandTest, UndoOfACommandGivesTheSameBytes) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    Add(u"ONE", [&] {
        SetText(u"Um");
        host.SetProjectLanguage(document, 2);
    });
    Add(u"TWO", [&] { SetText(u"Dois"); });
    Add(u"LOOK", [] {});
    host.Runner().Run(u"ONE");
    const std::string afterOne = document.Drawing().toBytes();
    host.Runner().Run(u"TWO");
    host.Runner().Run(u"LOOK");  // changes nothing and leaves nothing to undo
    EXPECT_TRUE(document.Undo() == u"TWO");
    EXPECT_EQ(document.Drawing().toBytes(), afterOne);
    EXPECT_TRUE(document.Undo() == u"ONE");
    EXPECT_EQ(document.Drawing().toBytes(), SmallDrawing());
    EXPECT_TRUE(document.Undo().isEmpty());
    EXPECT_TRUE(document.Redo() == u"ONE");
    EXPECT_EQ(document.Drawing().toBytes(), afterOne);
    EXPECT_EQ(host.ProjectLanguage(document), 2);
}

TEST_F(CommandTest, FailureIsToldOnceAndRollsNothingBack) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    Add(u"FAIL", [&] {
        SetText(u"Meio");
        throw OdError(u"the object is gone");
    });
    watcher.Take();
    const host::CommandOutcome outcome = host.Runner().Run(u"FAIL");
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.failure, u"the object is gone");
    EXPECT_EQ(watcher.Take(), "start:FAIL failed:FAIL ");
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"Title|FAIL : the object is gone"});
    EXPECT_NE(ReadFile(folder.File("host.log")).find("[a.dxf] FAIL : the object is gone\n"),
              std::string::npos);
    EXPECT_TRUE(Text(OdDb::kForRead)->textString() == u"Meio");
    EXPECT_TRUE(document.Undo() == u"FAIL");
    EXPECT_EQ(document.Drawing().toBytes(), SmallDrawing());
}

TEST_F(CommandTest, AFailureIsToldAheadOfOneAtTheEndOfItsUndoRecord) {
    host::Document& document = host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    Add(u"BOTH", [&] {
        document.Drawing().endUndoRecord();
        throw OdError(u"the object is gone");
    });
    EXPECT_EQ(host.Runner().Run(u"BOTH").failure, u"the object is gone");
    const std::string log = ReadFile(folder.File("host.log"));
    EXPECT_NE(log.find("BOTH : no undo record has been started"), std::string::npos) << log;
}

TEST_F(CommandTest, EveryKindOfExceptionStopsAtTheRunner) {
    Add(u"STD", [] { throw std::bad_alloc(); });
    Add(u"INT", [] { throw 7; });
    EXPECT_EQ(host.Runner().Run(u"STD").failure, u"std::bad_alloc");
    EXPECT_EQ(host.Runner().Run(u"INT").failure, u"unknown exception");
    watcher.failAtEnd = true;
    Add(u"GOOD", [] {});
    EXPECT_TRUE(host.Runner().Run(u"GOOD").done);
    EXPECT_EQ(boxes.shown.back(), "Title|GOOD : reactor failed");
}

TEST_F(CommandTest, UnknownCommandIsTold) {
    EXPECT_FALSE(host.Runner().Run(u"NOTHING").done);
    EXPECT_EQ(watcher.Take(), "unknown:NOTHING ");
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"Title|unknown command NOTHING"});
}

TEST_F(CommandTest, CommandMayCloseItsDocumentAndRemoveItself) {
    host.Documents().Open(Parsed(SmallDrawing()), "a.dxf");
    Add(u"CLOSE", [&] {
        SetText(u"x");
        host.Documents().CloseAll();
        host.Commands().RemoveCommand(u"CLOSE");
    });
    EXPECT_TRUE(host.Runner().Run(u"CLOSE").done);
    EXPECT_EQ(watcher.documents.back(), nullptr);
}

TEST_F(CommandTest, WritesOfACommandAreInTheFileWhenItHasEnded) {
    Add(u"WRITE", [] {
        const auto database = GetElectricalServices()->GetDataManager()->GetDatabase();
        database->ExecuteAsync(Query("INSERT INTO BDGROUP VALUES ('a', 1)"));
    });
    host.Runner().Run(u"WRITE");
    host::SqlConnection other(host::ParseDatabaseUrl(folder.Database()), host::OnMissing::Refuse);
    QSqlQuery rows = other.Run("SELECT count(*) FROM BDGROUP");
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.value(0).toInt(), 1);
}

}  // namespace
