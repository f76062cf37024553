// The lines of a translation: grouping and matching.
#include <gtest/gtest.h>

#include <random>
#include <thread>

#include "translator/dialogs/ITabelaExpressoes.h"
#include "translator/engine/ListaTraduziveis.h"

namespace traducaoTQ {
namespace {

using structTermo = IBDIdiomas::structTermo;
using structTraducoes = IBDIdiomas::structTraducoes;

ListaTraduziveis Objetos(const std::vector<TQString>& textos) {
    ListaTraduziveis lista = NovaLista();
    for (const TQString& texto : textos) Acrescentar<ETextoTrad>(lista, texto, u"1F");
    return lista;
}

std::unique_ptr<structTraducoes> Dicionario(std::vector<std::vector<TQString>> linhas) {
    auto traducoes = std::make_unique<structTraducoes>();
    traducoes->languages = {u"Português", u"Deutsch", u"English"};
    for (auto& linha : linhas) traducoes->terms.push_back({1, std::move(linha)});
    return traducoes;
}

struct Tabela : ITabelaExpressoes {
    Tabela() {
        rotuloAutomatica = u"auto";
        rotuloManual = u"manual";
        rotuloImportado = u"importado";
        rotuloNaoTraduzido = u"nada";
    }
    void Atualizar(const char16_t* origem, const char16_t* destino) {
        AtualizarExpressoes(TQString(origem), TQString(destino));
    }
    structExpressao& Linha(size_t i) { return *expressoes->at(i); }
};

TEST(Expressoes, LinesStandInOrderOfFirstAppearanceAndKeepTheOrderOfTheirObjects) {
    const auto objetos = Objetos({u"b", u"a", u"B", u"a", u"b", u"ab"});
    Tabela tabela;
    tabela.AgruparExpressoes(*objetos);
    std::vector<TQString> originais;
    for (const auto& linha : *tabela.expressoes) {
        originais.push_back(linha->original);
        EXPECT_EQ(linha->estado, NaoTraduzido);
        EXPECT_TRUE(linha->rotuloEstado.empty());
    }
    EXPECT_EQ(originais, (std::vector<TQString>{u"b", u"a", u"B", u"ab"}));
    EXPECT_EQ(tabela.Linha(1).objetos, (std::vector<ETraduzivel*>{(*objetos)[1], (*objetos)[3]}));
}

TEST(Expressoes, TextsGoToTheLinesExceptThoseOfBlocksWhereverTheyStand) {
    for (const size_t posicao : {0, 1, 2}) {
        auto objetos = NovaLista();
        for (size_t i = 0; i < 3; ++i) {
            if (i == posicao)
                Acrescentar<EBlocoTextoTrad>(objetos, u"a", u"2F", OdDbObjectId());
            else
                Acrescentar<ETextoTrad>(objetos, u"a", u"1F");
        }
        Tabela tabela;
        tabela.AgruparExpressoes(*objetos, ITabelaExpressoes::Textos::VaoParaAsLinhas);
        ASSERT_EQ(tabela.expressoes->size(), 1u);
        EXPECT_EQ(tabela.Linha(0).original, u"a");
        for (size_t i = 0; i < 3; ++i) {
            const TQString* texto = (*objetos)[i]->GetTexto();
            EXPECT_EQ(texto ? *texto : TQString(u"gone"), i == posicao ? u"a" : u"gone");
        }
    }
}

TEST(Expressoes, AFallenLineKeepsItsTermAndAnEmptyFirstTermHidesLaterOnes) {
    const auto objetos = Objetos({u"Motor", u"Bomba"});
    Tabela tabela;
    tabela.traducoes = Dicionario({{u"Motor", u"Motor (de)", u""},
                                   {u"Motor", u"2", u"2"},
                                   {u"Bomba", u"", u"Pump"},
                                   {u"Bomba", u"Pumpe", u"Pump 2"}});
    tabela.AgruparExpressoes(*objetos);
    tabela.Atualizar(u"Português", u"Deutsch");
    EXPECT_EQ(tabela.Linha(0).traducao, u"Motor (de)");
    EXPECT_EQ(tabela.Linha(0).rotuloEstado, u"auto");
    EXPECT_EQ(tabela.Linha(1).estado, NaoTraduzido);
    EXPECT_EQ(tabela.Linha(1).termo, nullptr);

    tabela.Atualizar(u"Português", u"English");
    EXPECT_EQ(tabela.Linha(0).estado, NaoTraduzido);
    EXPECT_EQ(tabela.Linha(0).traducao, u"");
    EXPECT_EQ(tabela.Linha(0).rotuloEstado, u"nada");
    EXPECT_EQ(tabela.Linha(0).termo, &tabela.traducoes->terms[0]);
    EXPECT_EQ(tabela.Linha(1).traducao, u"Pump");
}

TEST(Expressoes, WithoutTwoKnownLanguagesAndADictionaryOnlyStatesAndLabelsAreRenewed) {
    const auto objetos = Objetos({u"a", u"b", u"c", u"d"});
    struct Caso {
        const char* nome;
        bool comDicionario;
        std::optional<TQString> origem, destino;
    };
    const Caso casos[] = {
        {"no dictionary", false, u"Português", u"Deutsch"},
        {"no source", true, std::nullopt, u"Deutsch"},
        {"no target", true, u"Português", std::nullopt},
        {"unknown source", true, u"Latim", u"Deutsch"},
        {"unknown target", true, u"Português", u"deutsch"},
    };
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.nome);
        Tabela tabela;
        tabela.AtualizarExpressoes(caso.origem, caso.destino);
        EXPECT_EQ(tabela.expressoes, nullptr);

        tabela.AgruparExpressoes(*objetos);
        if (caso.comDicionario) tabela.traducoes = Dicionario({{u"a", u"x", u"y"}});
        const uint32_t estados[] = {0, Automatica, Manual, Importado};
        for (size_t i = 0; i < 4; ++i) {
            tabela.Linha(i).estado = estados[i];
            tabela.Linha(i).traducao = u"t";
        }
        tabela.AtualizarExpressoes(caso.origem, caso.destino);
        const char16_t* rotulos[] = {u"nada", u"auto", u"manual", u"importado"};
        for (size_t i = 0; i < 4; ++i) EXPECT_EQ(tabela.Linha(i).rotuloEstado, rotulos[i]);
        EXPECT_EQ(tabela.Linha(0).estado, NaoTraduzido);
        EXPECT_EQ(tabela.Linha(0).traducao, u"");
        EXPECT_EQ(tabela.Linha(1).traducao, u"t");
    }
}

// The rules as loops over loops, to hold the indexed operations to them.
struct Modelo {
    struct Linha {
        uint32_t estado;
        TQString original, traducao;
        std::vector<ETraduzivel*> objetos;
        structTermo* termo;
    };
    std::vector<Linha> linhas;

    void Agrupar(const std::vector<ETraduzivel*>& objetos) {
        linhas.clear();
        for (ETraduzivel* objeto : objetos) {
            size_t i = 0;
            while (i < linhas.size() && linhas[i].original != *objeto->GetTexto()) ++i;
            if (i == linhas.size()) linhas.push_back({1, *objeto->GetTexto(), u"", {}, nullptr});
            linhas[i].objetos.push_back(objeto);
        }
    }
    void Atualizar(structTraducoes& traducoes, size_t origem, size_t destino) {
        for (Linha& linha : linhas) {
            if (linha.estado == 4 || linha.estado == 8) continue;
            linha.traducao = u"";
            linha.estado = 1;
            for (structTermo& termo : traducoes.terms) {
                if (termo.translations[origem] != linha.original) continue;
                if (!termo.translations[destino].empty()) {
                    linha.traducao = termo.translations[destino];
                    linha.estado = 2;
                    linha.termo = &termo;
                }
                break;
            }
        }
    }
};

void ExpectEqual(Tabela& tabela, const Modelo& modelo) {
    ASSERT_EQ(tabela.expressoes->size(), modelo.linhas.size());
    for (size_t i = 0; i < modelo.linhas.size(); ++i) {
        const structExpressao& linha = tabela.Linha(i);
        const Modelo::Linha& esperada = modelo.linhas[i];
        EXPECT_EQ(linha.original, esperada.original);
        EXPECT_EQ(linha.objetos, esperada.objetos);
        EXPECT_EQ(linha.estado, esperada.estado);
        EXPECT_EQ(linha.traducao, esperada.traducao);
        EXPECT_EQ(linha.termo, esperada.termo);
    }
}

void FazerAoMesmoTempo(const std::function<void()>& um, const std::function<void()>& outro) {
    std::thread segunda(outro);
    um();
    segunda.join();
}

TEST(Expressoes, ManyTextsFindTheirLinesAndTerms) {
    constexpr size_t kTextos = 20000, kTermos = 15000;
    const auto texto = [](const char16_t* prefixo, size_t i) {
        return TQString(prefixo) + TQString(static_cast<int>(i), 0);
    };
    std::vector<TQString> textos;
    for (size_t i = 0; i < 2 * kTextos; ++i) textos.push_back(texto(u"t", i % kTextos));
    std::vector<std::vector<TQString>> termos;
    for (size_t i = 0; i < kTermos; ++i) termos.push_back({texto(u"t", i), texto(u"d", i), u""});
    const auto objetos = Objetos(textos);
    Tabela tabela;
    tabela.fazerAmbos = FazerAoMesmoTempo;
    tabela.traducoes = Dicionario(termos);
    tabela.AgruparExpressoes(*objetos);
    tabela.AtualizarExpressoes(tabela.traducoes->languages[0], tabela.traducoes->languages[1]);
    ASSERT_EQ(tabela.expressoes->size(), kTextos);
    for (size_t i = 0; i < kTextos; ++i) {
        ASSERT_EQ(tabela.Linha(i).original, textos[i]);
        ASSERT_EQ(tabela.Linha(i).objetos.size(), 2u);
        ASSERT_EQ(tabela.Linha(i).traducao, i < kTermos ? texto(u"d", i) : TQString());
    }
}

TEST(Expressoes, RandomTablesAgreeWithTheQuadraticRules) {
    std::mt19937 acaso(20240607);
    // Few letters, so that texts repeat, differ in case alone, and meet in several terms.
    const auto texto = [&](size_t menor) {
        TQString novo;
        for (size_t n = menor + acaso() % 3; n > 0; --n) novo += u"aAbç"[acaso() % 4];
        return novo;
    };
    for (int rodada = 0; rodada < 300; ++rodada) {
        std::vector<TQString> textos(acaso() % 40);
        for (TQString& novo : textos) novo = texto(1);
        const auto objetos = Objetos(textos);
        std::vector<std::vector<TQString>> linhas(acaso() % 30);
        for (auto& linha : linhas) linha = {texto(0), texto(0), texto(0)};

        Tabela tabela;
        tabela.traducoes = Dicionario(linhas);
        if (rodada % 2) tabela.fazerAmbos = FazerAoMesmoTempo;
        Modelo modelo;
        tabela.AgruparExpressoes(*objetos);
        modelo.Agrupar(*objetos);
        for (int vez = 0; vez < 4; ++vez) {
            for (size_t i = 0; i < modelo.linhas.size(); ++i) {
                if (acaso() % 5) continue;
                tabela.Linha(i).estado = modelo.linhas[i].estado = 1u << (acaso() % 4);
                tabela.Linha(i).traducao = modelo.linhas[i].traducao = texto(0);
            }
            const size_t origem = acaso() % 3, destino = acaso() % 3;
            const auto& nomes = tabela.traducoes->languages;
            tabela.AtualizarExpressoes(nomes[origem], nomes[destino]);
            modelo.Atualizar(*tabela.traducoes, origem, destino);
            ASSERT_NO_FATAL_FAILURE(ExpectEqual(tabela, modelo)) << "round " << rodada;
        }
    }
}

}  // namespace
}  // namespace traducaoTQ
