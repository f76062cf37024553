// Message catalogues: which texts a file gives, and how they are kept.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>

#include "platform/win32/Paths.h"
#include "tests/support/ScriptedServices.h"
#include "translator/cad/CICad.h"
#include "translator/messages/CCMsg.h"
#include "translator/messages/Catalogue.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using tq::CCMsg;

const char16_t* const kNotFound = u"File not found.";

// A file that is gone when the test is over.
class File {
  public:
    File(std::filesystem::path path, const std::string& content) : path(std::move(path)) {
        std::filesystem::create_directories(this->path.parent_path());
        std::ofstream(this->path, std::ios::binary) << content;
    }
    ~File() { std::filesystem::remove(path); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    const std::filesystem::path path;
};

// Where catalogues are looked for: beside this very program. Tests use modules whose catalogues are
// not installed, each another one, since what has been loaded stays in the process.
std::filesystem::path Program() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "program";
}

std::string Section(const std::string& code, const std::string& text) {
    return "<s valor='" + code + "'><c><e indice='1' valor='" + text + "'/></c></s>";
}

struct Load {
    const char* name;
    std::string content;
    const char* code;
    std::optional<std::u16string> text;  // of "1"; nothing when the load fails
};

void PrintTo(const Load& load, std::ostream* out) { *out << load.name; }

class LoadCatalogue : public testing::TestWithParam<Load> {};

TEST_P(LoadCatalogue, GivesTheTextsOfOneSection) {
    ScriptedServices services;
    File file(std::filesystem::temp_directory_path() /
                  ("catalogue-\xE9-" + std::to_string(getpid()) + ".config"),
              GetParam().content);
    TQString path = u" " + TQString(WindowsPath(file.path.string())) + u" ";  // blanks are cut off
    auto messages = tq::LoadCatalogue(path, GetParam().code);
    std::optional<std::u16string> text;
    if (messages) text = messages->at(u"1");
    EXPECT_EQ(text, GetParam().text);
    EXPECT_THAT(services.log, ElementsAre("Loading " + OdString(path).narrowText()));
}

const std::string kEnglish = Section("en", "wire");
const std::string kBoth = "<r>" + kEnglish + Section("de", "Ader") + "</r>";

INSTANTIATE_TEST_SUITE_P(
    Files, LoadCatalogue,
    testing::Values(
        Load{"Wanted", kBoth, "de", u"Ader"}, Load{"NoSuchLanguage", kBoth, "pl", u"wire"},
        Load{"OtherCase", kBoth, "DE", u"wire"},
        Load{"FirstOfTwo", "<r>" + Section("de", "a") + Section("de", "b") + "</r>", "de", u"a"},
        Load{"EmptySection", "<r><s valor='de'/>" + kEnglish + "</r>", "de", u"wire"},
        Load{"EmptyContainer", "<r><s valor='de'><c/></s>" + kEnglish + "</r>", "de", {}},
        Load{"CommentFirst",
             "<r><s valor='de'><!--x--><c><e indice='1' valor='a'/></c></s>" + kEnglish + "</r>",
             "de",
             {}},
        Load{"SecondContainer",
             "<r><s valor='de'><c><e indice='1' valor='a'/></c><c><e indice='1' valor='b'/></c>"
             "</s></r>",
             "de", u"a"},
        Load{"LaterEntryWins",
             "<r><s valor='en'><c><e indice='1' valor='a'/><e indice='1' valor='b'/></c></s></r>",
             "en", u"b"},
        Load{"Products",
             "<r>" + Section("en", "[PRODUCTNAME] [productname] [PRODUCTNAME] [SHORTPRODUCTNAME]") +
                 "</r>",
             "en", u"Kelvara Circuit [productname] Kelvara Circuit KV"},
        Load{"NoValor", "<r><s valor='en'><c><e indice='1'/></c></s></r>", "en", u""},
        Load{"Utf8", "<r>" + Section("en", "\xC3\xA7\xF0\x9F\x94\x8C&#10;x") + "</r>", "en",
             u"ç🔌\nx"},
        Load{"NoEnglish", "<r>" + Section("de", "Ader") + "</r>", "pl", {}},
        Load{"NoChildren", "<r/>", "en", {}}, Load{"NotWellFormed", kBoth + "<r>", "de", {}},
        Load{"Empty", "", "en", {}}, Load{"NoXml", "1;wire", "en", {}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(CCMsg, LoadsOnceAndKeepsTheLanguage) {
    ScriptedServices services;
    services.languageIndex = 1;
    {
        File file(Program() / "TQCabos.config", kBoth);
        EXPECT_EQ(CCMsg().getMensagem(u"tqCabos", u"1"), u"Ader");
    }
    services.languageIndex = 0;
    EXPECT_EQ(CCMsg().getMensagem(u"TQCABOS", u"1"), u"Ader");
    EXPECT_EQ(CCMsg().getMensagem(u"TQCABOS", u"01"), u"");
    std::string directory = QString(tq::CICad().GetExecutableDir()).toStdString();
    EXPECT_THAT(directory, EndsWith("\\bin\\"));
    EXPECT_THAT(services.log, ElementsAre("Loading " + directory + "\\program\\TQCabos.config"));
}

TEST(CCMsg, NumbersAreKeysInUpperCase) {
    ScriptedServices services;
    File file(Program() / "TQUtil.config",
              "<r><s valor='en'><c><e indice='A' valor='upper'/><e indice='b' valor='lower'/>"
              "</c></s></r>");
    EXPECT_EQ(CCMsg().getMensagem(u"TQUTIL", u"a"), u"upper");
    EXPECT_EQ(CCMsg().getMensagem(u"TQUTIL", u"b"), u"");
}

TEST(CCMsg, TriesAgainAfterAFailure) {
    ScriptedServices services;
    for (int i = 0; i < 2; ++i) EXPECT_EQ(CCMsg().getMensagem(u"TQROTAS", u"1"), kNotFound);
    EXPECT_EQ(services.log.size(), 2u);
    File file(Program() / "TQRotas.config", kBoth);
    EXPECT_EQ(CCMsg().getMensagem(u"TQROTAS", u"1"), u"wire");
    EXPECT_EQ(services.log.size(), 3u);
}

TEST(CCMsg, KnowsNoOtherModules) {
    ScriptedServices services;
    EXPECT_EQ(CCMsg().getMensagem(u"", u"1"), kNotFound);
    EXPECT_EQ(CCMsg().getMensagem(u"TQCONECTORES", u"1"), kNotFound);
    EXPECT_THAT(services.log, ElementsAre("Loading ", "Loading "));
    EXPECT_THAT(services.loggedTo, ElementsAre(nullptr, nullptr));  // no document is active
    EXPECT_THAT(QString(tq::GetCataloguePath(u"TQCONECTOR")).toStdString(),
                EndsWith("\\\\program\\TQConectores.config"));
}

TEST(CCMsg, LogsAnExceptionAndLetsItPass) {
    class Failing : public ScriptedServices {
        CMxHostAppServices* GetHostAppServices() override { throw std::runtime_error("no host"); }
    };
    Failing services;
    EXPECT_THROW(CCMsg().getMensagem(u"TQPLOT", u"1"), std::runtime_error);
    EXPECT_THAT(services.log, ElementsAre("tq::CCMsg::getMensagem : no host"));
}

TEST(CCMsg, WorksWithoutServices) {
    ASSERT_EQ(GetMxSystemServices(), nullptr);
    File file(Program() / "TQListas.config", kBoth);
    EXPECT_EQ(CCMsg().getMensagem(u"TQLISTAS", u"1"), u"wire");
}

TEST(LanguageCode, IsTheOneOfTheFiles) {
    ScriptedServices services;
    const char* const codes[] = {"en", "de", "en", "tr", "hu", "pl", "jp", "fr", "cn",
                                 "zh", "it", "es", "el", "ko", "vi", "ca", "th", "nl",
                                 "ru", "pt", "cs", "bg", "sk", "sv", "no"};
    for (int index = 0; index < 25; ++index) {
        services.languageIndex = index;
        EXPECT_EQ(tq::LanguageCode(), codes[index]) << index;
    }
}

TEST(CICad, FetchesTextsOfItsTwoCatalogues) {
    ScriptedServices services;
    for (TQString text : {tq::CICad().GetMensagem(4), tq::CICad().GetMensagemINC(6)}) {
        EXPECT_FALSE(text.IsEmpty());
        EXPECT_NE(text, kNotFound);
    }
    EXPECT_EQ(tq::CICad().GetMensagem(-1), u"");
    EXPECT_THAT(services.log,
                ElementsAre(EndsWith("\\TQTradutor.config"), EndsWith("\\TQINC.config")));
}

}  // namespace
