// The desktop program at work on a drawing and a dictionary, without a user, for a test that kills
// it. It says on standard output what it is about to do and what is done.
//
// Arguments: the folder with drawing.dxf and d.sqlite, and how many steps to work.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstdio>

#include "apps/desktop/MainWindow.h"
#include "apps/desktop/RecoveryKeeper.h"
#include "platform/kernel/KVQuery.h"
#include "tests/recovery/Work.h"

namespace {

void Tell(const char* what, int number) {
    std::printf("%s %d\n", what, number);
    std::fflush(stdout);
}

// Says yes to every question: to open what was left, to save, to overwrite.
void Answer() {
    QWidget* const modal = QApplication::activeModalWidget();
    if (!modal) return;
    if (auto* open = modal->findChild<QPushButton*>("open")) return open->click();
    auto* box = qobject_cast<QMessageBox*>(modal);
    for (const auto button : {QMessageBox::Save, QMessageBox::Yes, QMessageBox::Ok}) {
        if (box && box->button(button)) return box->button(button)->click();
    }
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
        : folder(folder),
          desktop({folder + "/kelvara.ini", folder + "/log.txt", "sqlite:" + folder + "/d.sqlite",
                   KV_BINARY_DIR "/lib/TQTradutor.so"}),
          problem(desktop.LoadModule()),
          window(desktop),
          keeper(desktop, {folder + "/recovery", std::chrono::minutes(1), [this] { return now; }}) {
        QObject::connect(&user, &QTimer::timeout, Answer);
        user.start(0);
        window.show();
        desktop.Host().Commands().AddCommand(makeUndoableFunctionCommand(
            u"STEP", [this](CMxCommandContext*) { Change(); }, CKVCommand::onRequest));
    }

    // Goes on with what was left, if there is something.
    void Begin() {
        keeper.Offer(window);
        if (!desktop.Active()) window.GetFiles().Open(folder + "/drawing.dxf");
        number = std::stoi(*Said(desktop.Active()->Drawing()).begin());
        Tell("begun", number);
    }

    void Step() {
        Tell("working", ++number);
        window.Execute("STEP");
        now += std::chrono::minutes(1);
        keeper.Tick();
        keeper.WaitForDisk();
        Tell("copied", number);
        if (number % 3) return;
        window.Execute("SAVE");
        Tell("saved", number);
    }

    bool End() { return window.close(); }

  private:
    void Change() {
        Say(desktop.Active()->Drawing(), std::to_string(number));
        GetElectricalServices()->GetDataManager()->GetDatabase()->ExecuteAsync(
            std::make_shared<NewTerm>(number));
    }

    QString folder;
    std::chrono::steady_clock::time_point now{};
    desktop::Desktop desktop;
    QString problem;
    desktop::MainWindow window;
    desktop::RecoveryKeeper keeper;
    QTimer user;
    int number = 0;
};

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Worker worker(QString::fromLocal8Bit(argv[1]));
    worker.Begin();
    for (int steps = std::atoi(argv[2]); steps > 0; --steps) worker.Step();
    return worker.End() ? 0 : 1;
}
