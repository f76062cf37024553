// The program killed at random moments while it works and saves.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <map>
#include <random>

#include "apps/desktop/recovery/Recovery.h"
#include "host/Dictionary.h"
#include "tests/recovery/Work.h"

namespace {

constexpr int kSteps = 7;

// The last number that the program told for each word.
std::map<std::string, int> Told(const QByteArray& output) {
    std::map<std::string, int> told;
    for (const QByteArray& line : output.split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() == 2) told[words[0].toStdString()] = words[1].toInt();
    }
    return told;
}

// The one number that all texts say.
int NumberIn(OdDbDatabase& drawing) {
    const std::set<std::string> said = Said(drawing);
    EXPECT_EQ(said.size(), 1u) << "half of one step and half of another";
    return std::stoi(*said.begin());
}

class Killed : public testing::TestWithParam<unsigned> {
  protected:
    void SetUp() override {
        host::Dictionary(Database(), host::OnMissing::Create)
            .AddLanguages({"Português", "Deutsch"});
        const OdDbDatabasePtr drawing = OdDbDatabase::readFile(kExample);
        Say(*drawing, "0");
        drawing->writeFile(Drawing());
    }

    std::string Drawing() const { return folder.filePath("drawing.dxf").toStdString(); }
    QString Database() const { return "sqlite:" + folder.filePath("d.sqlite"); }

    // What the program told until its end; killed says whether that came by the signal.
    std::map<std::string, int> Work(const QString& variable, const QString& value, bool& killed) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(variable, value);
        // A sanitizer wants to be the first library.
        environment.insert("ASAN_OPTIONS",
                           environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0");
        environment.insert("LD_PRELOAD", KV_BINARY_DIR "/lib/die_at.so");
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(KV_BINARY_DIR "/bin/desktop_worker",
                      {folder.path(), QString::number(kSteps)});
        EXPECT_TRUE(process.waitForFinished(60000));
        killed = process.exitStatus() == QProcess::CrashExit;
        EXPECT_EQ(process.exitCode(), killed ? SIGKILL : 0)
            << process.readAllStandardError().toStdString();
        return Told(process.readAllStandardOutput());
    }

    // How many calls a run that nobody ends makes.
    int Calls() {
        bool killed = false;
        const QString file = folder.filePath("calls");
        Work("DIE_COUNT", file, killed);
        QFile count(file);
        EXPECT_TRUE(count.open(QIODevice::ReadOnly));
        return count.readAll().toInt();
    }

    // The number that the work says which the next program offers, -1 when it offers none.
    int Offered() {
        const std::vector<desktop::LeftWork> left =
            desktop::Recovery({.folder = folder.filePath("recovery")}).Left();
        EXPECT_LE(left.size(), 1u);
        for (const desktop::LeftWork& work : left) EXPECT_EQ(work.problem, u"");
        return left.empty() || left[0].drawing.isNull() ? -1 : NumberIn(*left[0].drawing);
    }

    // Every term is whole; how many there are.
    int Terms() {
        QProcess sqlite;
        sqlite.start("sqlite3", {folder.filePath("d.sqlite"), "PRAGMA integrity_check"});
        EXPECT_TRUE(sqlite.waitForFinished(60000));
        EXPECT_EQ(sqlite.readAllStandardOutput(), "ok\n");
        const host::Terms terms = host::Dictionary(Database()).ReadTerms();
        for (const auto& term : terms.terms) {
            const QString number = term.texts[0].chopped(2);
            EXPECT_EQ(term.texts, QStringList({number + "um", number + "eins"}));
        }
        return int(terms.terms.size());
    }

    QTemporaryDir folder;
};

TEST_P(Killed, NoDrawingAndNoDictionaryIsDamagedAndTheWorkIsOffered) {
    constexpr int kKills = 25;
    std::mt19937 random(GetParam());
    const int calls = Calls();
    ASSERT_GT(calls, 20 * kSteps);
    int kills = 0, offers = 0, terms = Terms();
    int saved = NumberIn(*OdDbDatabase::readFile(Drawing())), left = saved;
    for (int run = 0; kills < kKills; ++run) {
        ASSERT_LT(run, 2 * kKills);
        const int moment = std::uniform_int_distribution(1, calls)(random);
        SCOPED_TRACE("killed at call " + std::to_string(moment));
        bool killed = false;
        const auto told = Work("DIE_AT", QString::number(moment), killed);
        kills += killed;

        const auto number = [&](const char* word, int otherwise) {
            return told.contains(word) ? told.at(word) : otherwise;
        };
        const int inDrawing = NumberIn(*OdDbDatabase::readFile(Drawing()));
        const int offered = Offered();
        const int begun = number("begun", left);
        EXPECT_EQ(begun, left) << "not what the run before left";
        const int copied = number("copied", begun), reached = number("working", begun);
        left = std::max(inDrawing, offered);
        EXPECT_GE(left, copied);
        EXPECT_LE(left, reached);
        EXPECT_GE(inDrawing, number("saved", saved));
        saved = inDrawing;
        offers += offered > inDrawing;

        // Each step wrote one term before it told of its copy; the last may be there or not.
        const int now = Terms();
        EXPECT_GE(now, terms + copied - begun);
        EXPECT_LE(now, terms + reached - begun);
        terms = now;
    }
    EXPECT_GT(offers, kKills / 4) << "the moments hardly ever met unsaved work";
}

INSTANTIATE_TEST_SUITE_P(Seeds, Killed, testing::Values(1, 2, 3, 4));

}  // namespace
