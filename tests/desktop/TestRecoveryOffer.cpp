// What the program offers of work that an earlier one left.
#include <gmock/gmock.h>

#include <QDirIterator>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QThreadPool>
#include <QTreeWidget>

#include "apps/desktop/RecoveryDialog.h"
#include "apps/desktop/RecoveryKeeper.h"
#include "tests/desktop/Program.h"
#include "tests/recovery/Work.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class RecoveryOffer : public testing::Test {
  protected:
    desktop::RecoveryOptions Options() {
        return {program.File("recovery"), std::chrono::minutes(1), [this] { return now; }};
    }
    // A program that ended with unsaved work on both drawings.
    void Crash() {
        host::DocumentManager documents;
        desktop::Recovery recovery(Options());
        Say(documents.Open(first.toStdString()).Drawing(), "one");
        Say(documents.Open(second.toStdString()).Drawing(), "two");
        now += std::chrono::minutes(1);
        recovery.Tick(documents.Documents());
    }
    QStringList Copies() const {
        QStringList copies;
        QDirIterator walk(program.File("recovery"), {"*.dxf"}, QDir::Files,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) copies << walk.next();
        copies.sort();
        return copies;
    }
    static QTreeWidget& List(QWidget& dialog) { return *dialog.findChild<QTreeWidget*>("works"); }
    // By the keyboard, as a click on the box does it.
    static void Untick(QWidget& dialog, int row) {
        List(dialog).setFocus();
        List(dialog).setCurrentItem(List(dialog).topLevelItem(row));
        QTest::keyClick(&List(dialog), Qt::Key_Space);
        EXPECT_EQ(List(dialog).topLevelItem(row)->checkState(0), Qt::Unchecked);
    }
    void OfferTo(Usuario& user) {
        user.Durante([this] { keeper.emplace(program.desktop, Options()).Offer(program.window); });
    }

    Program program;
    QString first = program.Example("block_pages.dxf");
    const QString second = program.Example("control_panel.dxf");
    std::chrono::steady_clock::time_point now{};
    std::optional<desktop::RecoveryKeeper> keeper;
};

TEST_F(RecoveryOffer, NothingLeftAsksNothing) {
    Usuario nobody;
    OfferTo(nobody);
    EXPECT_EQ(program.desktop.Active(), nullptr);
}

TEST_F(RecoveryOffer, OpensTheChosenWorkUnsavedAndKeepsTheRest) {
    Crash();
    Usuario user;
    user.EntaoNoQt([this](QWidget& dialog) {
        ASSERT_EQ(List(dialog).topLevelItemCount(), 2);
        EXPECT_EQ(List(dialog).topLevelItem(0)->text(0), "block_pages.dxf");
        EXPECT_EQ(List(dialog).topLevelItem(0)->text(2), "can be opened");
        Untick(dialog, 1);
        ClickNamed("open")(dialog);
    });
    OfferTo(user);
    ASSERT_EQ(program.desktop.Host().Documents().GetDocumentCount(), 1);
    EXPECT_EQ(program.Active().FileName(), first.toStdString());
    EXPECT_THAT(Said(program.Active().Drawing()), ElementsAre("one"));
    EXPECT_THAT(program.window.windowTitle().toStdString(), HasSubstr("block_pages.dxf"));
    EXPECT_TRUE(program.window.isWindowModified());
    EXPECT_THAT(Said(*OdDbDatabase::readFile(first.toStdString())),
                testing::Not(ElementsAre("one")))
        << "nothing is saved before the user saves";

    program.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(Said(*OdDbDatabase::readFile(first.toStdString())), ElementsAre("one"));
    EXPECT_FALSE(program.window.isWindowModified());
    EXPECT_EQ(Copies().size(), 1) << "what was not chosen";
}

TEST_F(RecoveryOffer, WorkIsCopiedByTheClockAndForgottenWhenSavedOrClosed) {
    Usuario nobody;
    OfferTo(nobody);
    for (const bool save : {true, false}) {
        ASSERT_TRUE(program.window.GetFiles().Open(first));
        Say(program.Active().Drawing(), save ? "saved" : "lost");
        now += std::chrono::minutes(1);
        keeper->Tick();
        keeper->WaitForDisk();
        EXPECT_EQ(Copies().size(), 1);
        if (save)
            program.desktop.Save(program.Active(), first.toStdString(), false);
        else
            program.desktop.Close(program.Active());
        EXPECT_EQ(Copies(), QStringList());
    }
}

TEST_F(RecoveryOffer, LargeWorkIsReadBehindABarThatCanBeCancelled) {
    first = program.LargeDrawing();
    Crash();
    Usuario hasty;
    hasty.EntaoNoQt([](QWidget& bar) {
        ASSERT_TRUE(qobject_cast<QProgressDialog*>(&bar));
        QTest::keyClick(&bar, Qt::Key_Escape);
    });
    OfferTo(hasty);
    EXPECT_EQ(program.desktop.Active(), nullptr);
    EXPECT_EQ(Copies().size(), 2) << "what was not read is there for the next start";

    // The thread that nobody waits for still has the folder.
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    int bars = 0;
    Usuario patient;
    const Usuario::AtoQt openAll = [&](QWidget& window) {
        const bool bar = qobject_cast<QProgressDialog*>(&window);
        bars += bar;
        if (bar) return void(patient.EntaoNoQt(openAll));
        ClickNamed("open")(window);
    };
    patient.EntaoNoQt(openAll);
    OfferTo(patient);
    EXPECT_GT(bars, 0);
    ASSERT_EQ(program.desktop.Host().Documents().GetDocumentCount(), 2);
    const auto& large = program.desktop.Host().Documents().Documents().front();
    EXPECT_THAT(Said(large->Drawing()), ElementsAre("one"));
}

TEST_F(RecoveryOffer, DiscardAsksAndLaterKeeps) {
    Crash();
    Usuario later;
    later.EntaoNoQt([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    OfferTo(later);
    EXPECT_EQ(Copies().size(), 2);
    EXPECT_EQ(program.desktop.Active(), nullptr);

    QFile damaged(Copies().first());
    ASSERT_TRUE(damaged.resize(1000));
    Usuario user;
    user.EntaoNoQt([](QWidget& dialog) {
            EXPECT_THAT(List(dialog).topLevelItem(0)->text(2).toStdString(),
                        HasSubstr("cannot be read"));
            EXPECT_EQ(List(dialog).topLevelItem(0)->checkState(0), Qt::Unchecked);
            ClickNamed("discard")(dialog);
            EXPECT_EQ(List(dialog).topLevelItemCount(), 2) << "not without a yes";
            ClickNamed("discard")(dialog);
            EXPECT_EQ(List(dialog).topLevelItemCount(), 1);
            EXPECT_FALSE(dialog.findChild<QPushButton*>("open")->isEnabled());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        })
        .EntaoNoQt(ClickBox(QMessageBox::Cancel))
        .EntaoNoQt(ClickBox(QMessageBox::Discard));
    OfferTo(user);
    EXPECT_EQ(Copies().size(), 1);
}

}  // namespace
