// Real drawings: copies are the same byte for byte, and the texts are those that an independent
// reader finds.
#include <QDir>
#include <QFileInfo>
#include <set>
#include <sstream>

#include "tests/cli/CliRun.h"

namespace {

class RealDrawings : public CliTest {
  protected:
    // Tells of every line in which the two differ; a key that the reader does not have is "-".
    void ExpectSameTexts(const QString& drawing, const QStringList& options);

    int compared = 0;
};

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::string WithoutKey(const std::string& line) {
    const size_t key = line.find('\t'), text = line.find('\t', key + 1);
    return line.substr(0, key) + "\t-" + line.substr(text);
}

bool Agree(const std::string& ours, const std::string& theirs) {
    return ours == theirs ||
           (theirs.find("\t-\t") != std::string::npos && WithoutKey(ours) == theirs);
}

// Some drawings are too broken for it.
bool IsReadByEzdxf(const QString& drawing) {
    return QProcess::execute("/usr/bin/python3",
                             {"-c",
                              "import ezdxf, sys\ntry: ezdxf.readfile(sys.argv[1])\n"
                              "except Exception: sys.exit(1)",
                              drawing}) == 0;
}

void RealDrawings::ExpectSameTexts(const QString& drawing, const QStringList& options) {
    if (!IsReadByEzdxf(drawing)) return;
    QProcess reader;
    reader.start("/usr/bin/python3",
                 QStringList{KV_SOURCE_DIR "/tests/tools/extract_texts.py", drawing} + options);
    ASSERT_TRUE(reader.waitForFinished(300000));
    ASSERT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
    const CliResult result = Run(QStringList{"texts", drawing} + options);
    ASSERT_EQ(result.status, 0) << result.err;
    const auto ours = LinesOf(result.out);
    const auto theirs = LinesOf(reader.readAllStandardOutput().toStdString());
    ASSERT_EQ(ours.size(), theirs.size());
    for (size_t i = 0; i < ours.size(); ++i) {
        ASSERT_TRUE(Agree(ours[i], theirs[i])) << ours[i] << "\n" << theirs[i];
    }
    ++compared;
}

TEST_F(RealDrawings, AreCopiedByteForByte) {
    int refused = 0;
    for (const QString& drawing : Drawings()) {
        SCOPED_TRACE(drawing.toStdString());
        const CliResult result = Run({"copy", drawing, "copy.dxf"});
        if (result.status == 0) {
            EXPECT_TRUE(Read("copy.dxf") == ReadFile(drawing.toStdString()));
        } else {
            EXPECT_TRUE(IsOneErrorLine(result.err)) << result.err;
            ++refused;
        }
    }
    EXPECT_LE(refused, 3);
}

// A text as "texts" writes it, quoted for a table, with more behind it.
std::string Quoted(const std::string& written, const char* more) {
    std::string text = "\"";
    for (size_t i = 0; i < written.size(); ++i) {
        if (written[i] == '"') text += '"';
        const char escaped = written[i] == '\\' ? written[++i] : '\0';
        text += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped == 't' ? '\t' : written[i];
    }
    return text + more + "\"";
}

// Whatever their format, version and line ends are; the fixtures have one of each.
TEST_F(RealDrawings, AreTranslatedWithACertificate) {
    QStringList drawings = Drawings();
    const QDir fixtures(KV_SOURCE_DIR "/tests/fixtures");
    const QStringList names = fixtures.entryList({"*.dxf"});
    for (const QString& name : names) drawings << fixtures.filePath(name);
    std::set<std::string> terms;
    for (const QString& drawing : drawings) {
        for (const std::string& line : LinesOf(Run({"texts", drawing}).out)) {
            const std::string text = line.substr(line.find('\t', line.find('\t') + 1) + 1);
            terms.insert(Quoted(text, "") + ",," + Quoted(text, "\nx") + "\n");
        }
    }
    std::string table = "Português,English,Deutsch\n";
    for (const std::string& term : terms) table += term;
    MakeDictionary(table);
    int certified = 0;
    for (const QString& drawing : drawings) {
        const CliResult result = Run({"--database", "sqlite:d.sqlite", "translate", drawing, "--to",
                                      "Deutsch", "-o", "out.dxf"});
        EXPECT_EQ(result.err.find("certificate"), std::string::npos) << result.err;
        certified += result.out.find("certificate   0 ") == std::string::npos &&
                     result.out.find(" 0 other values changed") != std::string::npos;
    }
    EXPECT_GE(certified, names.size());
}

class TextsOfRealDrawings : public RealDrawings, public testing::WithParamInterface<QStringList> {};

TEST_P(TextsOfRealDrawings, AreThoseOfAnIndependentReader) {
    for (const QString& drawing : Drawings()) {
        SCOPED_TRACE(drawing.toStdString());
        ExpectSameTexts(drawing, GetParam());
    }
    EXPECT_GE(compared, 4);
    RecordProperty("compared", compared);
}

INSTANTIATE_TEST_SUITE_P(Cli, TextsOfRealDrawings,
                         testing::Values(QStringList{}, QStringList{"--layer-0"}));

}  // namespace
