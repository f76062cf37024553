// The program of the desktop tests.
#include "tests/desktop/Program.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QTest>
#include <QTreeWidget>

#include "apps/desktop/Texts.h"

namespace {

std::string OutputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(-1)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().toStdString();
}

desktop::DesktopOptions OptionsIn(const QTemporaryDir& folder, const char* module) {
    desktop::DesktopOptions options;
    options.settingsFile = folder.filePath("settings.ini");
    options.logFile = folder.filePath("log.txt");
    options.databaseUrl = "sqlite:" + folder.filePath("dictionary.db");
    if (module) options.module = QString(KV_BINARY_DIR "/lib/") + module;
    return options;
}

QString Start(desktop::Desktop& desktop, int language) {
    desktop.Settings().SetLanguageIndex(language);
    desktop::InstallTexts(language);
    return desktop.LoadModule();
}

}  // namespace

Program::Program(const char* module, int language)
    : desktop(OptionsIn(folder, module)), problem(Start(desktop, language)), window(desktop) {
    const QString examples = KV_SOURCE_DIR "/examples/";
    Kelvara({"db", "init", "--languages", examples + "languages.txt"});
    Kelvara({"db", "import", examples + "dictionary.csv"});
    window.show();
    Activate();
}

// What a test leaves unsaved is not asked about.
Program::~Program() {
    while (desktop.Active()) desktop.Close(*desktop.Active());
}

QString Program::Example(const char* name) {
    const QString copy = File(name);
    EXPECT_TRUE(QFile::copy(QString(KV_SOURCE_DIR "/examples/") + name, copy));
    return copy;
}

// Lines, and a text.
QString Program::LargeDrawing() const {
    QFile file(File("large.dxf"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    QByteArray entities = "0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\nP\n40\n2\n1\nmotor\n";
    for (int i = 0; i < 120000; ++i) {
        const QByteArray x = QByteArray::number(i % 400), y = QByteArray::number(i / 400);
        entities += "0\nLINE\n8\nP\n10\n" + x + "\n20\n" + y + "\n11\n" + y + "\n21\n" + x + "\n";
    }
    file.write(entities + "0\nENDSEC\n0\nEOF\n");
    return file.fileName();
}

QByteArray Program::Read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

// The platform that shows nothing gives the focus back to nobody when a dialog ends.
void Program::Activate() {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

void Program::Press(int key, Qt::KeyboardModifiers modifiers) {
    Activate();
    QTest::keyClick(&window, Qt::Key(key), modifiers);
}

void Program::Enter(const QString& line) {
    QWidget& field = window.GetCommandLine().Field();
    field.setFocus();
    QTest::keyClicks(&field, line);
    if (QWidget* popup = QApplication::activePopupWidget()) popup->hide();
    QTest::keyClick(&field, Qt::Key_Return);
    QCoreApplication::processEvents();
}

void Program::ClickPage(const char* name) {
    QTreeWidget& list = Pane().PageList();
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = list.topLevelItem(i);
        if (row->text(0) != name) continue;
        list.scrollToItem(row);
        const QPoint place = list.visualItemRect(row).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(10, place.y()));
        EXPECT_TRUE(row->isSelected());
        return;
    }
    ADD_FAILURE() << "no page " << name;
}

std::string Program::Kelvara(QStringList arguments) {
    arguments << "--database"
              << "sqlite:" + File("dictionary.db");
    return OutputOf(KV_BINARY_DIR "/bin/kelvara", arguments);
}

std::string Program::Python(const QString& tool, QStringList arguments) {
    arguments.prepend(KV_SOURCE_DIR "/tests/tools/" + tool);
    return OutputOf("/usr/bin/python3", arguments);
}

Usuario::AtoQt ClickBox(int button) {
    return [button](QWidget& window) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        ASSERT_TRUE(box) << window.windowTitle().toStdString();
        QAbstractButton* const wanted = box->button(QMessageBox::StandardButton(button));
        ASSERT_TRUE(wanted) << box->text().toStdString();
        QTest::mouseClick(wanted, Qt::LeftButton);
    };
}

Usuario::AtoQt ClickNamed(const char* objectName) {
    return [objectName](QWidget& window) {
        auto* button = window.findChild<QAbstractButton*>(objectName);
        ASSERT_TRUE(button) << objectName << " in " << window.windowTitle().toStdString();
        QTest::mouseClick(button, Qt::LeftButton);
    };
}

Usuario::AtoQt ChooseFile(const QString& path) {
    return [path](QWidget& window) { EscolherArquivo(window, path); };
}

QString TextOfBox(QWidget& box) {
    auto* message = qobject_cast<QMessageBox*>(&box);
    return message ? message->text() : "no box: " + box.windowTitle();
}
