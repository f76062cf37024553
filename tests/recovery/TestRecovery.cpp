// Copies of unsaved work: when they are written, what is offered of them, and when they go.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include "apps/desktop/recovery/Recovery.h"
#include "host/DocumentManager.h"
#include "platform/drawing/OdError.h"
#include "tests/recovery/Work.h"

namespace {

using desktop::LeftWork;
using desktop::Recovery;
using testing::ElementsAre;
using testing::HasSubstr;

class RecoveryTest : public testing::Test {
  protected:
    void SetUp() override {
        for (const std::string& name : {First(), Second()}) QFile::copy(kExample, name.c_str());
    }

    std::string Path(const char* name) const { return folder.filePath(name).toStdString(); }
    std::string First() const { return Path("first.dxf"); }
    std::string Second() const { return Path("second \xFF\xE9.dxf"); }  // a name in no code page

    desktop::RecoveryOptions Options() {
        return {folder.filePath("recovery"), std::chrono::minutes(1), [this] { return now; },
                [this](const QString& line) { log.push_back(line.toStdString()); }};
    }
    // A program of its own: the old one ends as one that crashes does, with nothing forgotten.
    void Restart() {
        documents.CloseAll();
        recovery.reset();
        recovery = std::make_unique<Recovery>(Options());
    }
    void Tick(std::chrono::seconds later = std::chrono::minutes(1)) {
        now += later;
        recovery->Tick(documents.Documents());
        recovery->WaitForDisk();
    }
    QStringList Copies() const {
        QStringList copies;
        QDirIterator walk(folder.filePath("recovery"), {"*.dxf"}, QDir::Files,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) copies << walk.next();
        copies.sort();
        return copies;
    }
    void Overwrite(const std::string& path, const QByteArray& bytes) {
        QFile file(QString::fromStdString(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    // Work on both drawings, and the crash.
    void LeaveWork() {
        Say(documents.Open(First()).Drawing(), "one");
        Say(documents.Open(Second()).Drawing(), "two");
        Tick();
        Restart();
    }

    QTemporaryDir folder;
    std::chrono::steady_clock::time_point now{};
    std::vector<std::string> log;
    host::DocumentManager documents;
    std::unique_ptr<Recovery> recovery = std::make_unique<Recovery>(Options());
};

TEST_F(RecoveryTest, OffersTheUnsavedWorkOfEveryDocument) {
    LeaveWork();
    const std::vector<LeftWork> left = recovery->Left();
    ASSERT_EQ(left.size(), 2u);
    EXPECT_EQ(left[0].fileName, First());
    EXPECT_THAT(Said(*left[0].drawing), ElementsAre("one"));
    EXPECT_EQ(left[1].fileName, Second());
    EXPECT_THAT(Said(*left[1].drawing), ElementsAre("two"));
    EXPECT_FALSE(left[0].changedOnDisk);
    EXPECT_TRUE(left[0].drawing->isModified());
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(RecoveryTest, CopiesInIntervalsAndOnlyWhatChanged) {
    host::Document& document = documents.Open(First());
    documents.Open(Second());
    Say(document.Drawing(), "early");
    Tick(std::chrono::seconds(59));
    EXPECT_EQ(Copies(), QStringList());
    Tick(std::chrono::seconds(1));
    const QStringList copies = Copies();
    EXPECT_EQ(copies.size(), 1);
    Tick();
    EXPECT_EQ(Copies(), copies) << "the same is not written again";
    Say(document.Drawing(), "late");
    Tick();
    EXPECT_EQ(Copies().size(), 1);
    EXPECT_NE(Copies(), copies);
    EXPECT_TRUE(document.Drawing().isModified()) << "a copy is no save";

    document.Undo();
    document.Undo();
    Tick();
    EXPECT_EQ(Copies(), QStringList()) << "nothing is unsaved any more";
    document.Redo();
    Tick();
    EXPECT_EQ(Copies().size(), 1);
}

TEST_F(RecoveryTest, SavedOrClosedWorkIsNotOffered) {
    host::Document& saved = documents.Open(First());
    host::Document& closed = documents.Open(Second());
    Say(saved.Drawing(), "one");
    Say(closed.Drawing(), "two");
    Tick();
    EXPECT_EQ(Copies().size(), 2);
    saved.Save(First());
    recovery->Forget(saved);
    recovery->Forget(closed);
    documents.Close(closed);
    EXPECT_EQ(Copies(), QStringList());
    Restart();
    EXPECT_TRUE(recovery->Left().empty());
    recovery.reset();
    EXPECT_THAT(QDir(folder.filePath("recovery")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                ElementsAre());
}

// Saved, but killed before the copy was removed.
TEST_F(RecoveryTest, CopyThatSaysWhatTheDrawingSaysIsNoWork) {
    host::Document& document = documents.Open(First());
    Say(document.Drawing(), "saved");
    Tick();
    document.Save(First());
    Restart();
    EXPECT_TRUE(recovery->Left().empty());
    EXPECT_EQ(Copies(), QStringList());
}

TEST_F(RecoveryTest, WorkUnderAnotherNameIsOfferedUnderThatName) {
    host::Document& document = documents.Open(First());
    Say(document.Drawing(), "first");
    Tick();
    document.Save(Path("third.dxf"));
    Say(document.Drawing(), "third");
    Tick();
    Restart();
    const std::vector<LeftWork> left = recovery->Left();
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].fileName, Path("third.dxf"));
    EXPECT_FALSE(left[0].changedOnDisk);
}

TEST_F(RecoveryTest, AdoptedWorkSurvivesTheNextCrashAndIsSavedAsUsual) {
    LeaveWork();
    for (const LeftWork& work : recovery->Left()) {
        recovery->Adopt(work, documents.Open(work.drawing, work.fileName));
        EXPECT_TRUE(documents.Active()->Drawing().isModified());
    }
    EXPECT_EQ(Copies().size(), 2);
    Restart();  // before any interval is over

    std::vector<LeftWork> left = recovery->Left();
    ASSERT_EQ(left.size(), 2u);
    host::Document& document = documents.Open(left[0].drawing, left[0].fileName);
    recovery->Adopt(left[0], document);
    recovery->Discard(left[1]);
    left.clear();
    EXPECT_EQ(Copies().size(), 1);
    document.Save(First());
    EXPECT_FALSE(document.Drawing().isModified());
    Tick();
    EXPECT_EQ(Copies(), QStringList());
    EXPECT_THAT(Said(*OdDbDatabase::readFile(First())), ElementsAre("one"));
    Restart();
    EXPECT_TRUE(recovery->Left().empty());
}

TEST_F(RecoveryTest, DrawingThatChangedSinceIsSaidAndNotOverwrittenUnasked) {
    LeaveWork();
    Overwrite(First(), "somebody else's\n");
    const std::vector<LeftWork> left = recovery->Left();
    ASSERT_EQ(left.size(), 2u);
    EXPECT_TRUE(left[0].changedOnDisk);
    host::Document& document = documents.Open(left[0].drawing, left[0].fileName);
    recovery->Adopt(left[0], document);
    EXPECT_THROW(document.Save(First()), OdError);
    document.Save(First(), true);
    EXPECT_THAT(Said(*OdDbDatabase::readFile(First())), ElementsAre("one"));
}

TEST_F(RecoveryTest, JudgesByWhatCanBeReadAndNotByDates) {
    Say(documents.Open(First()).Drawing(), "one");
    Tick();
    const QString good = Copies().first();
    // As after a power cut: the later copy is newer and damaged.
    QString later = good;
    later.replace("-1.dxf", "-2.dxf");
    Overwrite(later.toStdString(), "  0\nSECTION\n  2\nENT");
    QFile dated(good);
    ASSERT_TRUE(dated.open(QIODevice::ReadWrite));
    dated.setFileTime(QDateTime(QDate(1990, 1, 1), QTime(0, 0)), QFile::FileModificationTime);
    dated.close();
    Restart();
    {
        const std::vector<LeftWork> left = recovery->Left();
        ASSERT_EQ(left.size(), 1u);
        EXPECT_THAT(Said(*left[0].drawing), ElementsAre("one"));
    }
    Overwrite(good.toStdString(), "also cut");
    const std::vector<LeftWork> left = recovery->Left();
    ASSERT_EQ(left.size(), 1u);
    EXPECT_TRUE(left[0].drawing.isNull());
    EXPECT_NE(left[0].problem, u"");
    EXPECT_EQ(left[0].fileName, First());
    recovery->Discard(left[0]);
    EXPECT_EQ(Copies(), QStringList());
}

TEST_F(RecoveryTest, RunningProgramsKeepTheirWork) {
    Say(documents.Open(First()).Drawing(), "one");
    Tick();
    Recovery other(Options());
    EXPECT_TRUE(other.Left().empty());
    documents.CloseAll();
    recovery.reset();
    {
        const std::vector<LeftWork> left = other.Left();
        EXPECT_EQ(left.size(), 1u);
        Recovery third(Options());
        EXPECT_TRUE(third.Left().empty()) << "one program at a time offers it";
    }
    EXPECT_EQ(Recovery(Options()).Left().size(), 1u) << "what was neither adopted nor discarded";
}

TEST_F(RecoveryTest, CopiesWithinACommandTakeWhatStands) {
    OdDbDatabase& drawing = documents.Open(First()).Drawing();
    drawing.startUndoRecord(u"command");
    Say(drawing, "half");
    Tick();
    Say(drawing, "whole");
    drawing.endUndoRecord();
    drawing.undo();
    EXPECT_FALSE(drawing.isModified());
    Restart();
    const std::vector<LeftWork> left = recovery->Left();
    ASSERT_EQ(left.size(), 1u);
    EXPECT_THAT(Said(*left[0].drawing), ElementsAre("half"));
}

TEST_F(RecoveryTest, FolderThatCannotBeUsedIsLoggedAndTheWorkGoesOn) {
    recovery.reset();
    ASSERT_TRUE(QDir(folder.filePath("recovery")).removeRecursively());
    Overwrite(Path("recovery"), "a file in its place");
    recovery = std::make_unique<Recovery>(Options());
    EXPECT_THAT(log, ElementsAre(HasSubstr("recovery folder")));
    Say(documents.Open(First()).Drawing(), "one");
    Tick();
    EXPECT_TRUE(recovery->Left().empty());
    EXPECT_EQ(log.size(), 2u);
}

TEST_F(RecoveryTest, CopyThatCannotBeWrittenIsTriedAgain) {
    Say(documents.Open(First()).Drawing(), "one");
    const QString session = folder.filePath("recovery/1");
    ASSERT_TRUE(QDir(session).removeRecursively());
    Tick();
    EXPECT_THAT(log, ElementsAre(HasSubstr("no file can be written in the folder")));
    ASSERT_TRUE(QDir().mkpath(session));
    Tick();
    EXPECT_EQ(Copies().size(), 1);
    EXPECT_EQ(log.size(), 1u);
}

}  // namespace
