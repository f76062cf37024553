// Writing and reading of the exchange file, byte by byte as the text streams of Windows do it.
#include "translator/dialogs/IntercambioCsv.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/text/Conversion.h"
#include "platform/win32/Paths.h"

namespace traducaoTQ {

namespace {

constexpr char kSeparador = ';';

std::string Estreito(UINT pagina, std::u16string_view texto) {
    const int unidades = static_cast<int>(texto.size());
    const int bytes =
        WideCharToMultiByte(pagina, 0, texto.data(), unidades, nullptr, 0, nullptr, nullptr);
    std::string estreito(static_cast<size_t>(bytes), '\0');
    WideCharToMultiByte(pagina, 0, texto.data(), unidades, estreito.data(), bytes, nullptr,
                        nullptr);
    return estreito;
}

TQString Largo(UINT pagina, std::string_view texto) {
    const int bytes = static_cast<int>(texto.size());
    const int unidades =
        MultiByteToWideChar(pagina, MB_PRECOMPOSED, texto.data(), bytes, nullptr, 0);
    std::u16string largo(static_cast<size_t>(unidades), u'\0');
    MultiByteToWideChar(pagina, MB_PRECOMPOSED, texto.data(), bytes, largo.data(), unidades);
    return largo;
}

size_t QuantosNaoCabem(UINT pagina, std::u16string_view texto) {
    size_t quantos = 0;
    for (size_t i = 0; i < texto.size();) {
        const size_t inicio = i;
        const char32_t codigo = text::NextCodePoint(texto, i);
        if (codigo < 0x80) continue;
        if (pagina == CP_UTF8) {  // takes all but an unpaired surrogate, which comes as it stands
            quantos += codigo >= 0xD800 && codigo < 0xE000;
            continue;
        }
        BOOL trocado = 0;
        WideCharToMultiByte(pagina, 0, &texto[inicio], static_cast<int>(i - inicio), nullptr, 0,
                            nullptr, &trocado);
        quantos += trocado ? 1 : 0;
    }
    return quantos;
}

// What a text stream hands out: CR LF arrives as a line feed.
std::string SemCr(std::istream& entrada) {
    std::ostringstream bytes;
    bytes << entrada.rdbuf();
    std::string texto = std::move(bytes).str();
    size_t fim = 0;
    for (size_t i = 0; i < texto.size(); ++i) {
        const bool linha = texto[i] == '\r' && i + 1 < texto.size() && texto[i + 1] == '\n';
        if (!linha) texto[fim++] = texto[i];
    }
    texto.resize(fim);
    return texto;
}

// In the code page a mark would be text of the first field; in UTF-8 spreadsheets write it always.
std::string SemMarca(std::string texto, UINT pagina) {
    constexpr std::string_view kMarca = "\xEF\xBB\xBF";
    if (pagina == CP_UTF8 && texto.starts_with(kMarca)) texto.erase(0, kMarca.size());
    return texto;
}

// A field of a row: a buffer that is zero-terminated, as the whole road is made for.
class Campo {
  public:
    void Ler(std::istream& entrada, char delimitador) {
        entrada.getline(bytes.data(), bytes.size(), delimitador);
        const auto lidos = static_cast<size_t>(entrada.gcount());
        algum = lidos > 0;
        longo = entrada.fail() && lidos == kMaxBytesCampo;
    }
    std::string_view Texto() const { return bytes.data(); }
    bool Algum() const { return algum; }
    bool Longo() const { return longo; }

  private:
    std::array<char, kMaxBytesCampo + 1> bytes{};
    bool algum = false, longo = false;
};

class Importador {
  public:
    Importador(ITabelaExpressoes::ListaExpressoes* expressoes, UINT pagina) : pagina(pagina) {
        if (!expressoes) return;
        linhas.reserve(expressoes->size());
        for (const auto& linha : *expressoes) linhas.emplace(linha->original, linha.get());
    }

    structImportacao Ler(std::istream& entrada) {
        for (size_t linha = 1; entrada.good(); ++linha) {
            Campo original, traducao;
            original.Ler(entrada, kSeparador);
            traducao.Ler(entrada, '\n');
            if (original.Longo() || traducao.Longo()) {
                resultado.longa = linha;
            } else if (original.Algum()) {  // else: the end was met before a row
                Tomar(Largo(pagina, original.Texto()), Largo(pagina, traducao.Texto()));
            }
        }
        return resultado;
    }

  private:
    void Tomar(const TQString& original, const TQString& traducao) {
        if (NadaDiz(original) || NadaDiz(traducao)) {
            ++resultado.vazias;
            return;
        }
        const auto achada = linhas.find(original);
        if (achada == linhas.end()) {
            ++resultado.desconhecidas;
        } else if (!(achada->second->estado & NaoTraduzido)) {
            ++resultado.repetidas;
        } else {
            achada->second->traducao = traducao;
            achada->second->estado = Importado;
            ++resultado.tomadas;
        }
    }

    UINT pagina;
    std::unordered_map<std::u16string_view, structExpressao*>
        linhas;  // by original, which is unique
    structImportacao resultado;
};

}  // namespace

std::ofstream AbrirExportacao(const TQString& caminho) {
    return std::ofstream(NativePath(caminho), std::ios::binary | std::ios::trunc);
}

std::ifstream AbrirImportacao(const TQString& caminho) {
    return std::ifstream(NativePath(caminho), std::ios::binary);
}

ExportadorCsv::ExportadorCsv(std::ostream& saida, UINT pagina) : saida(saida), pagina(pagina) {}

void ExportadorCsv::Escrever(const TQString& original, const TQString& traducao) {
    const size_t perdidosAntes = perdidos;
    const size_t bytesOriginal = EscreverCampo(original);
    const bool muda = perdidos > perdidosAntes || original.find(kSeparador) != TQString::npos;
    saida << kSeparador;
    const size_t bytesTraducao = EscreverCampo(traducao);
    saida << "\r\n" << std::flush;
    ++linhas;
    semVolta += muda || traducao.find(u'\n') != TQString::npos ||
                std::max(bytesOriginal, bytesTraducao) > kMaxBytesCampo;
}

size_t ExportadorCsv::EscreverCampo(const TQString& texto) {
    const std::u16string_view ateZero = texto.c_str();
    if (ateZero.empty()) return 0;
    const std::string bytes = Estreito(pagina, ateZero);
    for (const char byte : bytes) {
        if (byte == '\n') saida << '\r';
        saida << byte;
    }
    perdidos += QuantosNaoCabem(pagina, ateZero);
    return bytes.size();
}

structImportacao ImportarCsv(std::istream& entrada, ITabelaExpressoes::ListaExpressoes* expressoes,
                             UINT pagina) {
    Importador importador(expressoes, pagina);
    const bool tentada = entrada.good();
    if (!tentada) return {};
    std::istringstream texto(SemMarca(SemCr(entrada), pagina));
    structImportacao resultado = importador.Ler(texto);
    resultado.tentada = true;
    return resultado;
}

}  // namespace traducaoTQ
