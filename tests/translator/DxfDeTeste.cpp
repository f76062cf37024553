// Small drawings for tests, written as text.
#include "tests/translator/DxfDeTeste.h"

namespace dxfDeTeste {

namespace {

std::string Tabela(const std::string& nome, const std::string& handle, const std::string& linhas) {
    return Grupos("0 TABLE|2 " + nome + "|5 " + handle + "|330 0|100 AcDbSymbolTable") + linhas +
           Grupos("0 ENDTAB");
}

std::string RegistroDeTabela(const std::string& tipo, const std::string& classe,
                             const std::string& handle, const std::string& tabela,
                             const std::string& nome) {
    return Grupos("0 " + tipo + "|5 " + handle + "|330 " + tabela +
                  "|100 AcDbSymbolTableRecord|100 " + classe + "|2 " + nome + "|70 0");
}

std::string Secao(const std::string& nome, const std::string& corpo) {
    return Grupos("0 SECTION|2 " + nome) + corpo + Grupos("0 ENDSEC");
}

std::string Entidade(const std::string& tipo, const std::string& handle, const std::string& camada,
                     const std::string& classe) {
    return Grupos("0 " + tipo + "|5 " + handle + "|330 1F|100 AcDbEntity|8 " + camada + "|100 " +
                  classe);
}

std::string CorpoDeBloco(const Bloco& bloco) {
    const std::string cabeca = "|330 " + bloco.handle + "|100 AcDbEntity|8 0|100 AcDbBlock";
    return Grupos("0 BLOCK|5 " + bloco.handle + "B" + cabeca + "Begin|2 " + bloco.nome) +
           bloco.entidades + Grupos("0 ENDBLK|5 " + bloco.handle + "E" + cabeca + "End");
}

}  // namespace

std::string Grupos(std::string_view texto) {
    std::string linhas;
    while (!texto.empty()) {
        const std::string_view grupo = texto.substr(0, texto.find('|'));
        texto.remove_prefix(std::min(grupo.size() + 1, texto.size()));
        const size_t blank = grupo.find(' ');
        const std::string_view codigo = grupo.substr(0, blank);
        linhas.append(codigo.size() < 3 ? 3 - codigo.size() : 0, ' ').append(codigo).append("\n");
        linhas.append(grupo.substr(blank + 1)).append("\n");
    }
    return linhas;
}

std::string Texto(const std::string& handle, const std::string& camada, const std::string& texto) {
    return Entidade("TEXT", handle, camada, "AcDbText") + Grupos("1 " + texto + "|100 AcDbText");
}

std::string MTexto(const std::string& handle, const std::string& camada, const std::string& texto) {
    return Entidade("MTEXT", handle, camada, "AcDbMText") + Grupos("1 " + texto + "|7 STANDARD");
}

std::string Linha(const std::string& handle, const std::string& camada) {
    return Entidade("LINE", handle, camada, "AcDbLine") + Grupos("10 0.0|20 0.0|11 1.0|21 0.0");
}

std::string Fio(const std::string& handle, const std::string& camada,
                const std::vector<std::string>& textos) {
    std::string fio = Entidade("LWPOLYLINE", handle, camada, "AcDbPolyline") +
                      Grupos("90 1|70 0|10 0.0|20 0.0|1001 VRN_TQ_WIRE|1070 7|1070 8");
    for (const std::string& texto : textos) fio += Grupos("1000 " + texto);
    return fio;
}

std::string Insercao(const std::string& handle, const std::string& camada, const std::string& bloco,
                     const std::vector<std::string>& atributos) {
    std::string insercao = Entidade("INSERT", handle, camada, "AcDbBlockReference");
    if (!atributos.empty()) insercao += Grupos("66 1");
    insercao += Grupos("2 " + bloco + "|10 0.0|20 0.0");
    for (const std::string& atributo : atributos) insercao += atributo;
    if (!atributos.empty()) insercao += Grupos("0 SEQEND|5 " + handle + "E|330 " + handle + "|8 0");
    return insercao;
}

std::string Atributo(const std::string& handle, const std::string& tag, const std::string& texto) {
    return Grupos("0 ATTRIB|5 " + handle + "|100 AcDbEntity|8 0|100 AcDbText|1 " + texto +
                  "|100 AcDbAttribute|2 " + tag + "|70 0");
}

std::string DefAtributo(const std::string& handle, const std::string& tag,
                        const std::string& prompt, const std::string& texto) {
    return Grupos("0 ATTDEF|5 " + handle + "|100 AcDbEntity|8 0|100 AcDbText|1 " + texto +
                  "|100 AcDbAttributeDefinition|3 " + prompt + "|2 " + tag + "|70 0");
}

std::string Virtual(const std::string& handle, const std::vector<std::string>& textos) {
    std::string objeto =
        Grupos("0 XRECORD|5 " + handle + "|330 D1|100 AcDbXrecord|280 1|1001 VRN_TQ_ATT_VIRTUAL");
    for (const std::string& texto : textos) objeto += Grupos("1000 " + texto);
    return objeto;
}

std::string Desenho::Dxf() const {
    std::string linhasDeCamadas, linhasDeBlocos, corpos;
    for (size_t i = 0; i < camadas.size(); ++i) {
        linhasDeCamadas += RegistroDeTabela("LAYER", "AcDbLayerTableRecord",
                                            "F" + std::to_string(i), "2", camadas[i]);
    }
    std::vector<Bloco> todos = {{"*Model_Space", "1F", ""}, {"*Paper_Space", "1E", ""}};
    todos.insert(todos.end(), blocos.begin(), blocos.end());
    for (const Bloco& bloco : todos) {
        linhasDeBlocos +=
            RegistroDeTabela("BLOCK_RECORD", "AcDbBlockTableRecord", bloco.handle, "1", bloco.nome);
        corpos += CorpoDeBloco(bloco);
    }
    std::string aplicacoes;
    int numero = 0;
    for (const char* nome : {"ACAD", "VRN_TQ_WIRE", "VRN_TQ_ATT_VIRTUAL", "OUTRA"}) {
        aplicacoes += RegistroDeTabela("APPID", "AcDbRegAppTableRecord",
                                       "FA" + std::to_string(numero++), "9", nome);
    }
    const std::string raiz = Grupos("0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1");
    return Secao("HEADER", Grupos("9 $ACADVER|1 AC1024|9 $HANDSEED|5 FFFF")) +
           Secao("TABLES", Tabela("LAYER", "2", linhasDeCamadas) +
                               Tabela("APPID", "9", aplicacoes) +
                               Tabela("BLOCK_RECORD", "1", linhasDeBlocos)) +
           Secao("BLOCKS", corpos) + Secao("ENTITIES", entidades) +
           Secao("OBJECTS", raiz + Grupos(entradasDaRaiz) + objetos) + Grupos("0 EOF");
}

}  // namespace dxfDeTeste
