// The exchange file, byte by byte.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "translator/dialogs/IntercambioCsv.h"

namespace traducaoTQ {
namespace {

using ListaExpressoes = ITabelaExpressoes::ListaExpressoes;

std::string Exportado(const std::vector<std::pair<TQString, TQString>>& linhas,
                      UINT pagina = CP_ACP, size_t perdidos = 0, size_t semVolta = 0) {
    std::ostringstream saida;
    ExportadorCsv exportador(saida, pagina);
    for (const auto& [original, traducao] : linhas) exportador.Escrever(original, traducao);
    EXPECT_EQ(exportador.CaracteresPerdidos(), perdidos);
    EXPECT_EQ(exportador.LinhasSemVolta(), semVolta);
    EXPECT_EQ(exportador.Linhas(), linhas.size());
    return saida.str();
}

struct Lidas {
    explicit Lidas(const std::vector<TQString>& originais) {
        for (const TQString& original : originais) {
            expressoes.push_back(std::make_unique<structExpressao>());
            expressoes.back()->original = original;
        }
    }
    structImportacao Importar(const std::string& bytes, UINT pagina = CP_ACP) {
        std::istringstream entrada(bytes);
        return ImportarCsv(entrada, &expressoes, pagina);
    }
    // The translations, "-" for a line that stayed as it was.
    std::vector<TQString> Traducoes() const {
        std::vector<TQString> traducoes;
        for (const auto& linha : expressoes) {
            EXPECT_EQ(linha->estado == Importado, !linha->traducao.empty());
            traducoes.push_back(linha->traducao.empty() ? TQString(u"-") : linha->traducao);
        }
        return traducoes;
    }
    ListaExpressoes expressoes;
};

TEST(IntercambioCsv, WritesTwoColumnsAndNothingElse) {
    EXPECT_EQ(Exportado({}), "");
    EXPECT_EQ(Exportado({{u"Motor", u"Antrieb"}, {u"Válvula", u""}, {u" ", u"\"x\""}}),
              "Motor;Antrieb\r\nV\xE1lvula;\r\n ;\"x\"\r\n");
    EXPECT_EQ(Exportado({{u"a;b", u"c;d\ne\r\n"}}, CP_ACP, 0, 1), "a;b;c;d\r\ne\r\r\n\r\n");
    EXPECT_EQ(Exportado({{u"a€Щ🔌", u"\xD800"}}, CP_ACP, 3, 1), "a\x80??;?\r\n");
    EXPECT_EQ(Exportado({{u"aЩ🔌", u"\xDC81"}}, CP_UTF8, 1), "aЩ🔌;\xEF\xBF\xBD\r\n");
    EXPECT_EQ(Exportado({{std::u16string(u"a\0b", 3), u"c"}}), "a;c\r\n");
}

struct Caso {
    const char* nome;
    std::string bytes;
    std::vector<TQString> traducoes;  // of "Motor", "a\nb", "Válvula"
    std::vector<size_t> contagem;     // taken, unknown, empty, doubled, the row that is too long
};

class Importacao : public testing::TestWithParam<Caso> {};

TEST_P(Importacao, TakesWhatMatchesAndLeavesTheRest) {
    Lidas lidas({u"Motor", u"a\nb", u"Válvula"});
    const structImportacao r = lidas.Importar(GetParam().bytes);
    EXPECT_TRUE(r.tentada);
    EXPECT_EQ(lidas.Traducoes(), GetParam().traducoes);
    EXPECT_EQ((std::vector<size_t>{r.tomadas, r.desconhecidas, r.vazias, r.repetidas,
                                   r.longa.value_or(0)}),
              GetParam().contagem);
}

std::string Utf16(const std::string& ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) bytes += std::string{c, '\0'};
    return bytes;
}

const std::string kInteiro(999, 'x'), kLongo(1000, 'x');

INSTANTIATE_TEST_SUITE_P(
    IntercambioCsv, Importacao,
    testing::Values(
        Caso{"Empty", "", {u"-", u"-", u"-"}, {0, 0, 0, 0, 0}},
        Caso{"Plain",
             "Motor;Antrieb\r\nV\xE1lvula;Ventil\r\n",
             {u"Antrieb", u"-", u"Ventil"},
             {2, 0, 0, 0, 0}},
        Caso{"LineFeedsAndNoLastEnd",
             "Motor;Antrieb\nV\xE1lvula;Ventil",
             {u"Antrieb", u"-", u"Ventil"},
             {2, 0, 0, 0, 0}},
        Caso{
            "SemicolonsInTheTranslation", "Motor;a;b;\r\n", {u"a;b;", u"-", u"-"}, {1, 0, 0, 0, 0}},
        Caso{"LineBreakInTheOriginal", "a\r\nb;c\r\n", {u"-", u"c", u"-"}, {1, 0, 0, 0, 0}},
        Caso{"LineBreakInTheTranslationCutsIt",
             "Motor;a\r\nb\r\nV\xE1lvula;c\r\n",
             {u"a", u"-", u"-"},
             {1, 1, 0, 0, 0}},
        Caso{"RowWithoutASeparatorRunsIntoTheNext",
             "Motor\r\nMotor;a\r\nV\xE1lvula;c\r\n",
             {u"-", u"-", u"c"},
             {1, 1, 0, 0, 0}},
        Caso{"EmptyAndBlank",
             ";a\r\n ;a\r\nMotor;\r\nMotor; \r\nMotor;  \r\n",
             {u"  ", u"-", u"-"},
             {1, 0, 4, 0, 0}},
        Caso{"TheFirstOfTwoWins", "Motor;a\r\nMotor;b\r\n", {u"a", u"-", u"-"}, {1, 0, 0, 1, 0}},
        Caso{"CaseCounts", "motor;a\r\n", {u"-", u"-", u"-"}, {0, 1, 0, 0, 0}},
        Caso{"LongestField",
             "Motor;" + kInteiro + "\r\nV\xE1lvula;c\r\n",
             {TQString(kInteiro.c_str()), u"-", u"c"},
             {2, 0, 0, 0, 0}},
        Caso{"TooLongTranslation",
             "Motor;a\r\nV\xE1lvula;" + kLongo + "\r\na\nb;c\r\n",
             {u"a", u"-", u"-"},
             {1, 0, 0, 0, 2}},
        Caso{"TooLongOriginal",
             "Motor;a\r\n" + kLongo + ";b\r\nV\xE1lvula;c\r\n",
             {u"a", u"-", u"-"},
             {1, 0, 0, 0, 2}},
        Caso{"MarkBeforeTheFirstField",
             "\xEF\xBB\xBFMotor;a\r\nV\xE1lvula;c\r\n",
             {u"-", u"-", u"c"},
             {1, 1, 0, 0, 0}},
        Caso{"Utf16", Utf16("Motor;a\r\n"), {u"-", u"-", u"-"}, {0, 0, 2, 0, 0}},
        Caso{"OtherSeparator", "Motor,a\r\nMotor\tb\r\n", {u"-", u"-", u"-"}, {0, 0, 1, 0, 0}},
        Caso{"ShiftedColumn", ";Motor;a\r\n", {u"-", u"-", u"-"}, {0, 0, 1, 0, 0}},
        Caso{"QuotedAndFormula",
             "\"Motor\";a\r\nMotor;=1+1\r\n",
             {u"=1+1", u"-", u"-"},
             {1, 1, 0, 0, 0}},
        Caso{"ZeroBytesEndAField",
             std::string("Motor\0x;a\0b\r\n", 13),
             {u"a", u"-", u"-"},
             {1, 0, 0, 0, 0}}),
    [](const auto& info) { return info.param.nome; });

TEST(IntercambioCsv, ASecondImportFillsWhatTheFirstLeft) {
    Lidas lidas({u"Motor", u"Bomba"});
    EXPECT_EQ(lidas.Importar("Motor;a\r\n").tomadas, 1u);
    EXPECT_EQ(lidas.Importar("Motor;b\r\nBomba;c\r\n").repetidas, 1u);
    EXPECT_EQ(lidas.Traducoes(), (std::vector<TQString>{u"a", u"c"}));
}

TEST(IntercambioCsv, InUtf8AMarkIsNoText) {
    Lidas lidas({u"Насос"});
    EXPECT_EQ(lidas.Importar("\xEF\xBB\xBFНасос;ポンプ\r\n", CP_UTF8).tomadas, 1u);
    EXPECT_EQ(lidas.Traducoes(), (std::vector<TQString>{u"ポンプ"}));
}

TEST(IntercambioCsv, AStreamThatIsNotGoodIsNotRead) {
    std::ifstream entrada = AbrirImportacao(u"\\no\\such\\file.csv");
    EXPECT_FALSE(ImportarCsv(entrada, nullptr).tentada);
    std::ofstream saida = AbrirExportacao(u"\\no\\such\\file.csv");
    ExportadorCsv(saida).Escrever(u"Motor", u"a");
    std::istringstream vazia;
    EXPECT_TRUE(ImportarCsv(vazia, nullptr).tentada);
}

// What an export wrote comes back, and bytes that nobody wrote do no harm.
TEST(IntercambioCsv, RandomTextsComeBackAndRandomBytesDoNoHarm) {
    std::mt19937 acaso(7);
    for (int rodada = 0; rodada < 200; ++rodada) {
        std::vector<std::pair<TQString, TQString>> linhas;
        std::vector<TQString> originais, traducoes;
        for (char16_t i = 0; i < 20; ++i) {
            TQString original(std::u16string(1, u'A' + i)), traducao(u"t");
            for (unsigned n = acaso() % 1000; n > 1; --n) original += char16_t(0xA0 + acaso() % 96);
            for (unsigned n = acaso() % 999; n > 1; --n) traducao += char16_t(u' ' + acaso() % 95);
            linhas.emplace_back(original, traducao);
            originais.push_back(original);
            traducoes.push_back(traducao);
        }
        Lidas lidas(originais);
        std::string bytes = Exportado(linhas);
        EXPECT_EQ(lidas.Importar(bytes).tomadas, 20u);
        EXPECT_EQ(lidas.Traducoes(), traducoes);
        for (char& byte : bytes) {
            if (acaso() % 8 == 0) byte = static_cast<char>(acaso());
        }
        Lidas danificadas(originais);
        EXPECT_LE(danificadas.Importar(bytes).tomadas, 20u);
    }
}

}  // namespace
}  // namespace traducaoTQ
