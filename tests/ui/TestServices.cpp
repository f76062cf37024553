// The host's services on the screen, answered with real keys and clicks.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "apps/ui/ColorGrid.h"
#include "apps/ui/ColorPicker.h"
#include "apps/ui/MainWindow.h"
#include "apps/ui/MessageBoxes.h"
#include "apps/ui/PageChooser.h"
#include "platform/drawing/CmColor.h"
#include "platform/kernel/MxLispEngine.h"

namespace {

using Kind = CMxMessageBoxService::Kind;

// Runs once the modal window is there.
void WhenModal(std::function<void(QWidget&)> work) {
    QTimer::singleShot(0, qApp, [work] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (modal)
            work(*modal);
        else
            WhenModal(work);
    });
}

void PressIn(Qt::Key key) {
    WhenModal([key](QWidget& modal) { QTest::keyClick(&modal, key); });
}

TEST(MessageBoxes, AnswerTheButtonThatIsPressed) {
    const struct {
        int buttons, byDefault;
        Qt::Key key;
        int answer;
    } cases[] = {
        {kButtonOk, 0, Qt::Key_Return, kButtonOk},
        {kButtonOk, 0, Qt::Key_Escape, kButtonOk},
        {kButtonYes + kButtonNo, 0, Qt::Key_Escape, kButtonNo},
        {kButtonYes + kButtonNo, kButtonNo, Qt::Key_Return, kButtonNo},
        {kButtonYes + kButtonNo + kButtonCancel, kButtonYes, Qt::Key_Return, kButtonYes},
        {kButtonYes + kButtonNo + kButtonCancel, kButtonYes, Qt::Key_Escape, kButtonCancel},
    };
    for (const auto& one : cases) {
        PressIn(one.key);
        EXPECT_EQ(ui::MessageBoxes().Show(Kind::Question, nullptr, u"Title", u"Text", one.buttons,
                                          one.byDefault),
                  one.answer)
            << one.buttons << " with key " << one.key;
    }
}

TEST(MessageBoxes, ShowTextAsItIsAboveTheDialogInFront) {
    QWidget main;
    QDialog front(&main);
    int answer = 0;
    QTimer::singleShot(0, &front, [&] {
        QTimer::singleShot(0, &front, [&] {
            auto& box = dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
            EXPECT_EQ(box.parentWidget(), &front);
            EXPECT_EQ(box.windowTitle(), "Título");
            EXPECT_EQ(box.text(), "<b>a & b</b>");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
        });
        answer = ui::MessageBoxes().Show(Kind::Information, &main, u"Título", u"<b>a & b</b>",
                                         kButtonYes + kButtonNo, 0);
        front.accept();
    });
    front.exec();
    EXPECT_EQ(answer, kButtonYes);
}

using Names = ui::PageNames;

std::optional<Names> Choose(const Names& ticked, std::function<void(QDialog&)> work) {
    const std::vector<host::Page> pages{
        {u"P1", u"Cover"}, {u"P2", u"Supply"}, {u"P10", u"Motors"}, {u"Q", u""}};
    WhenModal([work](QWidget& modal) { work(dynamic_cast<QDialog&>(modal)); });
    return ui::ChoosePages(nullptr, pages, ticked);
}

void Click(QDialog& dialog, const char* button) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
}

TEST(PageChooser, GivesWhatIsTickedInTheOrderOfThePages) {
    const auto accept = [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); };
    EXPECT_EQ(Choose({u"P10", u"P1", u"gone"}, accept), (Names{u"P1", u"P10"}));
    EXPECT_EQ(Choose({}, accept), Names());
    EXPECT_EQ(Choose({u"P1"}, [](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); }),
              std::nullopt);
    EXPECT_EQ(Choose({},
                     [](QDialog& dialog) {
                         auto* list = dialog.findChild<QTreeWidget*>();
                         list->setFocus();
                         QTest::keyClick(list, Qt::Key_End);
                         QTest::keyClick(list, Qt::Key_Space);
                         QTest::keyClick(&dialog, Qt::Key_Return);
                     }),
              Names{u"Q"});
}

TEST(PageChooser, AllAndNoneConcernTheRowsThatTheFilterShows) {
    const struct {
        const char *filter, *button;
        Names ticked, expected;
    } cases[] = {
        {"", "all", {}, {u"P1", u"P2", u"P10", u"Q"}}, {"", "none", {u"P1"}, {}},
        {"p1", "all", {u"Q"}, {u"P1", u"P10", u"Q"}},  {"MOTOR", "all", {}, {u"P10"}},
        {"p", "none", {u"P2", u"Q"}, {u"Q"}},          {"nothing", "all", {u"P2"}, {u"P2"}},
    };
    for (const auto& one : cases) {
        const auto chosen = Choose(one.ticked, [&](QDialog& dialog) {
            QTest::keyClicks(dialog.findChild<QLineEdit*>("filter"), one.filter);
            Click(dialog, one.button);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        EXPECT_EQ(chosen, one.expected) << one.filter << " " << one.button;
    }
}

struct Picked {
    int status;
    int chosen = -1;
};

Picked Pick(int index, std::function<void(QDialog&, ui::ColorGrid&)> work) {
    WhenModal([work](QWidget& modal) {
        auto& dialog = dynamic_cast<QDialog&>(modal);
        for (QObject* child : dialog.children())
            if (auto* grid = dynamic_cast<ui::ColorGrid*>(child)) work(dialog, *grid);
    });
    Picked picked{};
    picked.status = ui::ColorPicker().PickColor(nullptr, index, &picked.chosen);
    return picked;
}

TEST(ColorPicker, GivesTheChosenNumberOrNothing) {
    Picked picked = Pick(7, [](QDialog& dialog, ui::ColorGrid& grid) {
        EXPECT_EQ(grid.Index(), 7);
        QTest::mouseClick(&grid, Qt::LeftButton, {}, grid.FieldOf(143).center());
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(picked.status, kLispNormal);
    EXPECT_EQ(picked.chosen, 143);
    picked = Pick(7, [](QDialog& dialog, ui::ColorGrid& grid) {
        QTest::mouseClick(&grid, Qt::LeftButton, {}, grid.FieldOf(1).center());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(picked.status, kLispCancelled);
    EXPECT_EQ(picked.chosen, -1);
}

TEST(ColorPicker, IsUsableWithoutAMouse) {
    const Picked picked = Pick(256, [](QDialog& dialog, ui::ColorGrid& grid) {
        QTest::keyClick(&grid, Qt::Key_Right);  // the last one already
        EXPECT_EQ(grid.Index(), 256);
        QTest::keyClick(&grid, Qt::Key_Left);
        EXPECT_EQ(grid.Index(), 255);
        auto* number = dialog.findChild<QSpinBox*>();
        number->selectAll();
        QTest::keyClicks(number, "90");
        EXPECT_EQ(grid.Index(), 90);
        QTest::keyClick(&grid, Qt::Key_Up);
        EXPECT_EQ(grid.Index(), 92);  // the darker shade of that hue stands above
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(picked.chosen, 92);
}

TEST(ColorGrid, HasAFieldForEveryNumberAndNoTwoInOnePlace) {
    ui::ColorGrid grid(nullptr);
    for (int index = 0; index <= OdCmColor::kByLayer; ++index)
        EXPECT_EQ(grid.IndexAt(grid.FieldOf(index).center()), index);
}

TEST(MainWindow, ForgetsAWidgetThatIsGone) {
    auto widget = std::make_unique<QWidget>();
    ui::MainWindow window(widget.get());
    EXPECT_EQ(window.GetMainWidget(), widget.get());
    widget.reset();
    EXPECT_EQ(window.GetMainWidget(), nullptr);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argumentCount, arguments);
    QApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
