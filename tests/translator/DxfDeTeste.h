// Small drawings for tests, written as text. Groups are given as "0 TEXT|5 A1|1 Motor": code,
// blank, value; a form feed inside a value is written ^L, as in every drawing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dxfDeTeste {

std::string Grupos(std::string_view texto);

// Entities of the model space, by handle and layer.
std::string Texto(const std::string& handle, const std::string& camada, const std::string& texto);
std::string MTexto(const std::string& handle, const std::string& camada, const std::string& texto);
std::string Linha(const std::string& handle, const std::string& camada);
// A lightweight polyline with two integers ahead of the strings in the xdata of its application.
std::string Fio(const std::string& handle, const std::string& camada,
                const std::vector<std::string>& textos);
// A block reference with its attributes.
std::string Insercao(const std::string& handle, const std::string& camada, const std::string& bloco,
                     const std::vector<std::string>& atributos = {});
std::string Atributo(const std::string& handle, const std::string& tag, const std::string& texto);
std::string DefAtributo(const std::string& handle, const std::string& tag,
                        const std::string& prompt, const std::string& texto);

// An object of a dictionary with strings in the xdata of the virtual attributes.
std::string Virtual(const std::string& handle, const std::vector<std::string>& textos);

struct Bloco {
    std::string nome;
    std::string handle;  // of the block record; BLOCK and ENDBLK get it with B and E behind
    std::string entidades;
};

struct Desenho {
    std::vector<std::string> camadas = {"0", "P", "Q"};
    std::vector<Bloco> blocos;
    std::string entidades;
    std::string entradasDaRaiz;  // groups of the root dictionary: "3 KEY|350 D1"
    std::string objetos;

    std::string Dxf() const;  // R2010, ASCII
};

}  // namespace dxfDeTeste
