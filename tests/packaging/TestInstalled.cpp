// The Debian package, installed by dpkg into a root of its own. Shared with the system are the
// libraries that the package depends on, their plugins, fonts and the kernel; the programs, their
// libraries, the module and the catalogues must come from the root alone.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QMimeDatabase>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QSvgRenderer>
#include <QTemporaryDir>

namespace {

struct Ended {
    int status = -1;  // -1: not started, or ended by a signal
    QString out, err;
};

class Installed : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        work = new QTemporaryDir;
        const Ended made = Run(KV_SOURCE_DIR "/packaging/debian.sh", {KV_BINARY_DIR, work->path()});
        ASSERT_EQ(made.status, 0) << made.err.toStdString();
        package = made.out.trimmed();
        const QDir root(work->filePath("root"));
        for (const char* folder : {"info", "updates", "triggers"})
            ASSERT_TRUE(root.mkpath(QString("var/lib/dpkg/") + folder));
        QFile status(root.filePath("var/lib/dpkg/status"));
        ASSERT_TRUE(status.open(QIODevice::WriteOnly));
        // Nothing it depends on is in this root: the system's serves.
        const Ended installed = Run("dpkg", {"--root=" + root.path(), "--force-depends",
                                             "--force-not-root", "--log=/dev/null", "-i", package});
        ASSERT_EQ(installed.status, 0) << installed.err.toStdString();
    }
    static void TearDownTestSuite() { delete work; }

    static QString Root(const QString& path) { return work->filePath("root/usr/" + path); }

    // As a user of the root who never used the programs before.
    static QProcessEnvironment Environment() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            environment.insert(name, work->path());
        for (const char* name : {"LD_LIBRARY_PATH", "KELVARA_DATABASE"}) environment.remove(name);
        environment.insert("LC_ALL", "C.UTF-8");
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        return environment;
    }

    static Ended Run(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.setProcessEnvironment(Environment());
        process.setWorkingDirectory(work->path());
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(120000)) << program.toStdString();
        const bool exited = process.exitStatus() == QProcess::NormalExit;
        return {exited ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    // The files below a folder, relative to it, sorted.
    static QStringList Files(const QString& folder) {
        QStringList files;
        QDirIterator walk(folder, QDir::Files | QDir::System | QDir::Hidden,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) files << QDir(folder).relativeFilePath(walk.next());
        files.sort();
        return files;
    }

    static QTemporaryDir* work;
    static QString package;
};

QTemporaryDir* Installed::work = nullptr;
QString Installed::package;

TEST_F(Installed, PackageHoldsWhatAnInstallationHolds) {
    qputenv("DESTDIR", work->filePath("staged").toUtf8());
    const Ended installed = Run("cmake", {"--install", KV_BINARY_DIR, "--prefix", "/opt/k"});
    qunsetenv("DESTDIR");
    ASSERT_EQ(installed.status, 0) << installed.err.toStdString();
    QStringList staged = Files(work->filePath("staged/opt/k"));
    staged.replaceInStrings(QRegularExpression("(\\.1|/changelog)$"), "\\1.gz");
    staged.sort();
    EXPECT_EQ(Files(Root("")), staged);
    EXPECT_TRUE(staged.contains("lib/kelvara/program/TQTradutor.config"));
    // Scripts would run in the root, where there is nothing to run them.
    const Ended control = Run("dpkg-deb", {"-e", package, work->filePath("control")});
    ASSERT_EQ(control.status, 0) << control.err.toStdString();
    EXPECT_EQ(Files(work->filePath("control")), QStringList({"control", "md5sums"}));
}

// What every Debian package has: who may do what with it, what has changed, files of root's that
// all may read and of which only programs can be run.
TEST_F(Installed, PackageIsInOrder) {
    QFile copyright(Root("share/doc/kelvara/copyright"));
    ASSERT_TRUE(copyright.open(QIODevice::ReadOnly));
    const QByteArray terms = copyright.readAll();
    for (const char* field : {"Format: https://www.debian.org/", "\nFiles: *\nCopyright: ",
                              "\nLicense: all-rights-reserved\n All rights reserved"})
        EXPECT_TRUE(terms.contains(field)) << field;
    const QString changes = Root("share/doc/kelvara/changelog.gz");
    const Ended change = Run("dpkg-parsechangelog", {"-l", changes, "-S", "Version"});
    const Ended version = Run("dpkg-deb", {"-f", package, "Version"});
    EXPECT_EQ(change.out.toStdString(), version.out.toStdString()) << change.err.toStdString();
    static const QRegularExpression allowed(
        "^(drwxr-xr-x|lrwxrwxrwx|-rw-r--r--|-rwxr-xr-x(?=.*/lib/kelvara/kelvara[\\w-]*$)) "
        "root/root ");
    const Ended contents = Run("dpkg-deb", {"-c", package});
    for (const QString& line : contents.out.trimmed().split('\n'))
        EXPECT_TRUE(allowed.match(line).hasMatch()) << line.toStdString();
}

TEST_F(Installed, NothingComesFromTheBuildFolder) {
    int own = 0;
    for (const QString& name : QDir(Root("lib/kelvara")).entryList(QDir::Files)) {
        const Ended linked = Run("ldd", {Root("lib/kelvara/" + name)});
        ASSERT_EQ(linked.status, 0) << linked.err.toStdString();
        EXPECT_FALSE(linked.out.contains("not found")) << linked.out.toStdString();
        for (const QString& line : linked.out.split('\n')) {
            if (!line.contains("libkv_")) continue;
            EXPECT_TRUE(line.contains("=> " + Root("lib/kelvara/libkv_"))) << line.toStdString();
            ++own;
        }
    }
    EXPECT_GT(own, 10);
}

TEST_F(Installed, ProgramsTranslateAndPaint) {
    const QString examples = Root("share/doc/kelvara/examples/");
    const QStringList database{"--database", "sqlite:d.sqlite"};
    for (const QStringList& arguments :
         {QStringList{"db", "init", "--languages", examples + "languages.txt"},
          QStringList{"db", "import", examples + "dictionary.csv"}}) {
        const Ended ended = Run(Root("bin/kelvara"), database + arguments);
        ASSERT_EQ(ended.status, 0) << ended.err.toStdString();
    }
    const Ended translated =
        Run(Root("bin/kelvara"),
            database + QStringList{"translate", examples + "control_panel.dxf", "--from",
                                   "Português", "--to", "Deutsch", "-o", "german.dxf"});
    EXPECT_EQ(translated.status, 0) << translated.err.toStdString();
    EXPECT_TRUE(translated.out.contains("strings changed, 0 other values changed"))
        << translated.out.toStdString();

    const Ended painted = Run(Root("bin/kelvara-render"),
                              {"german.dxf", "--page", "PAG02", "-o", "page.png", "--size", "400"});
    EXPECT_EQ(painted.status, 0) << painted.err.toStdString();
    const QImage page(work->filePath("page.png"));
    ASSERT_EQ(page.width(), 400);
    int marks = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x) marks += page.pixelColor(x, y) != Qt::white;
    EXPECT_GT(marks, 1000);
}

// The log goes to stderr, so that a line of it tells when the dialog is there.
TEST_F(Installed, DesktopStartsItsModuleAndFindsTheCatalogues) {
    const QString drawing = Root("share/doc/kelvara/examples/block_pages.dxf");
    const Ended quit = Run(Root("bin/kelvara-desktop"), {drawing, "--run", "QUIT"});
    EXPECT_EQ(quit.status, 0) << quit.err.toStdString();

    QProcess process;
    process.setProcessEnvironment(Environment());
    process.setReadChannel(QProcess::StandardError);
    process.start(Root("bin/kelvara-desktop"),
                  {drawing, "--log", "/dev/stderr", "--run", "KVTRANSLATEPROJ"});
    QByteArray log;
    while (!log.contains("TQTradutor.config") && process.waitForReadyRead(60000))
        log += process.readAll();
    EXPECT_TRUE(log.replace('\\', '/').replace("//", "/").contains(
        "Loading " + Root("lib/kelvara/program/TQTradutor.config").toUtf8()))
        << log.toStdString();
    QFile maps(QStringLiteral("/proc/%1/maps").arg(process.processId()));
    ASSERT_TRUE(maps.open(QIODevice::ReadOnly));
    const QByteArray mapped = maps.readAll();
    EXPECT_TRUE(mapped.contains(Root("lib/kelvara/TQTradutor.so").toUtf8()));
    EXPECT_FALSE(mapped.contains(KV_BINARY_DIR "/lib"));
    process.kill();
    EXPECT_TRUE(process.waitForFinished());
}

// The words of a help text that are commands or options.
QStringList Offered(const QString& help) {
    QStringList names;
    static const QRegularExpression option("^  (-\\w,)?(--[\\w-]+)"), command("^  (\\w[\\w-]*)  ");
    bool commands = false;
    for (const QString& line : help.split('\n')) {
        commands = commands || line == "Subcommands:";
        const auto found = (commands ? command : option).match(line);
        if (found.hasMatch()) names << found.captured(commands ? 1 : 2);
    }
    return names;
}

TEST_F(Installed, ManualPagesNameEverythingThatIsOffered) {
    for (const QString& program : QDir(Root("bin")).entryList(QDir::Files | QDir::System)) {
        const QString page = Root("share/man/man1/" + program + ".1.gz");
        const Ended text =
            Run("sh", {"-c", "gzip -dc \"$1\" | groff -man -Tutf8 -Kutf8 -ww -P-cbou", "sh", page});
        EXPECT_EQ(text.status, 0);
        EXPECT_EQ(text.err.toStdString(), "") << program.toStdString();
        const QStringList offered = Offered(Run(Root("bin/" + program), {"--help"}).out);
        EXPECT_GE(offered.size(), 2) << program.toStdString();
        for (const QString& name : offered) {
            const QRegularExpression whole("(?<![\\w-])" + name + "(?![\\w-])");
            EXPECT_TRUE(text.out.contains(whole))
                << program.toStdString() << " " << name.toStdString();
        }
    }
}

TEST_F(Installed, DesktopKnowsDrawingsAndTheirProgram) {
    const Ended updated = Run("update-mime-database", {Root("share/mime")});
    ASSERT_EQ(updated.status, 0) << updated.err.toStdString();
    qputenv("XDG_DATA_DIRS", Root("share").toUtf8());
    qputenv("XDG_DATA_HOME", work->filePath("none").toUtf8());
    const QMimeDatabase types;
    int drawings = 0;
    QDirIterator walk(KV_SOURCE_DIR "/tests/fixtures", {"*.dxf"}, QDir::Files);
    while (walk.hasNext()) {
        QFile file(walk.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(types.mimeTypeForData(file.readAll()).name(), "image/vnd.dxf")
            << file.fileName().toStdString();
        ++drawings;
    }
    EXPECT_GE(drawings, 7);
    for (const char* other : {"0\n1\n2\n", "SECTION", "999\n", "1;2;3\n0;SECTION\n"})
        EXPECT_NE(types.mimeTypeForData(QByteArray(other)).name(), "image/vnd.dxf") << other;

    QSettings entry(Root("share/applications/kelvara.desktop"), QSettings::IniFormat);
    entry.beginGroup("Desktop Entry");
    EXPECT_EQ(entry.value("MimeType").toString(), "image/vnd.dxf");
    const QString program = entry.value("Exec").toString().section(u' ', 0, 0);
    EXPECT_TRUE(QFileInfo(Root("bin/" + program)).isExecutable()) << program.toStdString();
    QSvgRenderer icon(
        Root("share/icons/hicolor/scalable/apps/" + entry.value("Icon").toString() + ".svg"));
    EXPECT_TRUE(icon.isValid());
}

}  // namespace
