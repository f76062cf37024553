// Pages of the examples against stored pictures, and kelvara-render as a program.
//
// KV_BLESS=1 in the environment stores what is painted now as the pictures to come.
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "tests/painter/Support.h"

namespace {

constexpr QSize kSize(420, 300);

QImage PageOf(const std::u16string& page) {
    painter::BuildOptions options;
    options.pages = {{page}};
    return Rendered(ListOfFile(Example("control_panel.dxf"), options), kSize);
}

// The mean difference in grey of squares of 6 pixels, and the largest one: fonts of other versions
// move a letter by a pixel, a symbol that is missing shows.
struct Difference {
    double mean = 0, largest = 0;
};

Difference Between(const QImage& a, const QImage& b) {
    const QSize squares(kSize.width() / 6, kSize.height() / 6);
    const auto coarse = [&](const QImage& image) {
        return image.scaled(squares, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage first = coarse(a), second = coarse(b);
    Difference difference;
    for (int y = 0; y < squares.height(); ++y) {
        for (int x = 0; x < squares.width(); ++x) {
            const double apart = std::abs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y)));
            difference.mean += apart / (squares.width() * squares.height());
            difference.largest = std::max(difference.largest, apart);
        }
    }
    return difference;
}

TEST(Pictures, ArePaintedAsStored) {
    for (const char16_t* page : {u"PAG01", u"PAG02", u"PAG04", u"PAG07"}) {
        const QString name = QString::fromUtf16(page);
        const QString stored = KV_SOURCE_DIR "/tests/painter/pictures/" + name + ".png";
        const QImage painted = PageOf(page);
        if (qEnvironmentVariableIsSet("KV_BLESS")) {
            ASSERT_TRUE(painted.save(stored)) << stored.toStdString();
        }
        const QImage expected(stored);
        ASSERT_EQ(expected.size(), kSize) << stored.toStdString();
        const Difference difference = Between(painted, expected);
        EXPECT_LT(difference.mean, 1) << stored.toStdString();
        EXPECT_LT(difference.largest, 60) << stored.toStdString();
    }
}

TEST(Pictures, OfAnotherPageDiffer) {
    const Difference difference = Between(PageOf(u"PAG01"), PageOf(u"PAG02"));
    EXPECT_GT(difference.mean, 2);
    EXPECT_GT(difference.largest, 80);
}

TEST(Pictures, ForegroundFollowsTheBackground) {
    const painter::DisplayList list = ListOf(Drawing("0 LINE\n8 0\n10 0\n20 5\n11 100\n21 5\n"));
    painter::PaintOptions dark;
    dark.background = Qt::black;
    EXPECT_EQ(qGray(Rendered(list, {100, 20}, dark).pixel(50, 0)), 0);
    int brightest = 0, darkest = 255;
    for (int y = 0; y < 20; ++y) {
        brightest = std::max(brightest, qGray(Rendered(list, {100, 20}, dark).pixel(50, y)));
        darkest = std::min(darkest, qGray(Rendered(list, {100, 20}).pixel(50, y)));
    }
    EXPECT_GT(brightest, 100);
    EXPECT_LT(darkest, 155);
}

struct Result {
    int status;
    QByteArray out, err;
};

Result RunRender(const QStringList& arguments) {
    QProcess process;
    process.start(KV_BINARY_DIR "/bin/kelvara-render", arguments);
    EXPECT_TRUE(process.waitForFinished(120000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

TEST(Render, WritesAllFormats) {
    const QTemporaryDir folder;
    const QString drawing = Example("control_panel.dxf");
    const std::pair<const char*, const char*> formats[] = {
        {"png", "\x89PNG"}, {"svg", "<?xml"}, {"pdf", "%PDF"}};
    for (const auto& [ending, mark] : formats) {
        const QString path = folder.filePath(QString("page.") + ending);
        const Result result =
            RunRender({drawing, "--page", "PAG02", "--size", "300x200", "-o", path});
        EXPECT_EQ(result.status, 0) << result.err.toStdString();
        EXPECT_EQ(result.err, "");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(file.readAll().startsWith(mark));
    }
    EXPECT_EQ(QImage(folder.filePath("page.png")).size(), QSize(300, 200));
    EXPECT_TRUE(RunRender({drawing, "--size", "50", "-o", "-"}).out.startsWith("\x89PNG"));
    const Result sheets =
        RunRender({drawing, "--page", "PAG01,PAG02", "--sheets", "--format", "pdf", "-o", "-"});
    EXPECT_EQ(sheets.out.count("/Type /Page\n"), 2);
}

TEST(Render, FailsWithOneLineAndLeavesTheOutput) {
    const QTemporaryDir folder;
    const QString output = folder.filePath("old.png"), drawing = Example("control_panel.dxf");
    QFile old(output);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    const std::pair<QStringList, int> cases[] = {
        {{"none.dxf", "-o", output}, 1},
        {{Example("README.md"), "-o", output}, 1},
        {{drawing, "--page", "NONE", "-o", output}, 1},
        {{drawing, "-o", folder.filePath("none/x.png")}, 1},
        {{drawing, "-o", folder.filePath("x.bmp")}, 2},
        {{drawing, "-o", output, "--size", "0x5"}, 2},
        {{drawing, "-o", output, "--background", "nocolour"}, 2},
        {{drawing, "-o", output, "--sheets", "--page", "PAG01"}, 2},
        {{drawing}, 2},
    };
    for (const auto& [arguments, status] : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const Result result = RunRender(arguments);
        EXPECT_EQ(result.status, status);
        EXPECT_TRUE(result.err.startsWith("kelvara-render: ")) << result.err.toStdString();
        EXPECT_EQ(result.err.count('\n'), 1);
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(QFileInfo(output).size(), 3);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

}  // namespace
