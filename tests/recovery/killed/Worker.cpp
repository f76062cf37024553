// A program that works on a drawing and a dictionary and saves both, for a test that kills it. It
// says on standard output what it is about to do and what is done.
//
// Arguments: the folder with drawing.dxf and d.sqlite, and how many steps to work.
#include <QCoreApplication>
#include <cstdio>

#include "apps/desktop/recovery/Recovery.h"
#include "host/Host.h"
#include "platform/kernel/KVQuery.h"
#include "tests/recovery/Work.h"

namespace {

void Tell(const char* what, int number) {
    std::printf("%s %d\n", what, number);
    std::fflush(stdout);
}

class NewTerm : public CKVQuery {
  public:
    explicit NewTerm(int number) : number(number) {}
    bool IsReadOnly() const override { return false; }
    std::string GetCacheKey() const override { return {}; }
    bool IsDatabaseQuery() const override { return true; }
    QSqlQuery Prepare(QSqlDatabase database) const override {
        QSqlQuery query(database);
        query.prepare("INSERT INTO BDTRANSLATOR (LANGUAGE1, LANGUAGE2) VALUES (?, ?)");
        for (const char* language : {"um", "eins"})
            query.addBindValue(QString::number(number) + language);
        return query;
    }

  private:
    int number;
};

class Worker {
  public:
    explicit Worker(const QString& folder)
        : drawing(folder.toStdString() + "/drawing.dxf"),
          host(HostOptions(folder)),
          recovery({folder + "/recovery", std::chrono::minutes(1), [this] { return now; },
                    [this](const QString& line) { host.GetLog().Write(line); }}) {}

    // Goes on with what was left, if there is something.
    void Begin() {
        for (const desktop::LeftWork& work : recovery.Left()) {
            if (document || work.drawing.isNull()) continue;
            document = &host.Documents().Open(work.drawing, work.fileName);
            recovery.Adopt(work, *document);
        }
        if (!document) document = &host.Documents().Open(drawing);
        number = std::stoi(*Said(document->Drawing()).begin());
        host.Commands().AddCommand(makeUndoableFunctionCommand(
            u"STEP", [this](CMxCommandContext*) { Change(); }, CKVCommand::onRequest));
        Tell("begun", number);
    }

    void Step() {
        Tell("working", ++number);
        host.Runner().Run(u"STEP");
        now += std::chrono::minutes(1);
        recovery.Tick(host.Documents().Documents());
        recovery.WaitForDisk();
        Tell("copied", number);
        if (number % 3) return;
        document->Save(drawing, true);
        Tell("saved", number);
        recovery.Forget(*document);
    }

    void End() {
        document->Save(drawing, true);
        recovery.Forget(*document);
    }

  private:
    void Change() {
        Say(document->Drawing(), std::to_string(number));
        GetElectricalServices()->GetDataManager()->GetDatabase()->ExecuteAsync(
            std::make_shared<NewTerm>(number));
    }

    static host::HostOptions HostOptions(const QString& folder) {
        host::HostOptions options;
        options.settingsFile = folder + "/kelvara.ini";
        options.logFile = folder + "/log.txt";
        options.databaseUrl = "sqlite:" + folder + "/d.sqlite";
        return options;
    }

    std::string drawing;
    std::chrono::steady_clock::time_point now{};
    host::Host host;
    desktop::Recovery recovery;
    host::Document* document = nullptr;
    int number = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    Worker worker(QString::fromLocal8Bit(argv[1]));
    worker.Begin();
    for (int steps = std::atoi(argv[2]); steps > 0; --steps) worker.Step();
    worker.End();
    return 0;
}
