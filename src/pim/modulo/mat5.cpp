#include "pim/modulo/mat5.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace pim {
namespace {

constexpr std::size_t cabecalho = 128;     // bytes; version and byte order are the last four
constexpr std::size_t etiqueta = 8;        // type and size of an element, 32 bits each
constexpr std::size_t maiorComeco = 4096;  // of an array: more than what stands before its numbers
constexpr std::uint32_t tipoMatriz = 14;
constexpr std::uint32_t tipoComprimido = 15;

using BYTES = std::vector<unsigned char>;

std::uint32_t numero(const unsigned char* p, bool little) {
  std::uint32_t n = 0;
  for (int k = 0; k < 4; ++k) n = n << 8U | p[little ? 3 - k : k];
  return n;
}

// An array without its own tag.
struct MATRIZMAT {
  BYTES comeco;  // its first bytes
  std::uint64_t tamanho;
};

// The elements inside an array, one after the other.
struct LEITOR {
  const MATRIZMAT& matriz;
  bool little;
  std::uint64_t posicao = 0;

  std::uint32_t tipo = 0;  // of the element read last
  std::uint64_t tamanho = 0;
  std::uint64_t dados = 0;  // where its data begin

  // Goes to the next element; false when it doesn't lie inside the array.
  bool proximo() {
    if (posicao + etiqueta > matriz.comeco.size()) return false;
    const std::uint32_t primeiro = em(posicao);
    const bool curto = primeiro >> 16U != 0;  // up to four bytes of data inside the tag
    tipo = primeiro & 0xFFFFU;
    tamanho = curto ? primeiro >> 16U : em(posicao + 4);
    dados = posicao + (curto ? 4 : etiqueta);
    posicao += etiqueta + (curto ? 0 : (tamanho + 7) / 8 * 8);
    return dados + tamanho <= matriz.tamanho && (!curto || tamanho <= 4);
  }

  // The 32 bits at `p`, which lie inside the first bytes.
  std::uint32_t em(std::uint64_t p) const { return numero(matriz.comeco.data() + p, little); }
  bool temDados(std::uint64_t n) const { return tamanho >= n && dados + n <= matriz.comeco.size(); }
};

// Of a numeric type; 0 for any other.
std::uint64_t bytesPorNumero(std::uint32_t tipo) {
  constexpr std::array<std::uint64_t, 14> tamanhos = {0, 1, 1, 2, 2, 4, 4, 4, 0, 8, 0, 0, 8, 8};
  return tipo < tamanhos.size() ? tamanhos[tipo] : 0;
}

bool matrizInteira(const MATRIZMAT& matriz, bool little) {
  constexpr std::uint32_t primeiraNumerica = 6;
  constexpr std::uint32_t ultimaNumerica = 15;
  constexpr std::uint32_t complexa = 0x800;
  LEITOR leitor{matriz, little};
  if (!leitor.proximo() || !leitor.temDados(8)) return false;
  const std::uint32_t classe = leitor.em(leitor.dados) & 0xFFU;
  const bool real = (leitor.em(leitor.dados) & complexa) == 0;
  if (classe > ultimaNumerica) return true;  // without dimensions
  if (!leitor.proximo() || !leitor.temDados(8)) return false;
  if (classe < primeiraNumerica || !real || leitor.tamanho != 8) return true;
  const std::uint64_t numeros =
      std::uint64_t{leitor.em(leitor.dados)} * leitor.em(leitor.dados + 4);
  if (numeros == 0) return true;
  if (!leitor.proximo() || !leitor.proximo()) return false;  // the name, then the numbers
  const std::uint64_t bytes = bytesPorNumero(leitor.tipo);
  return bytes != 0 && leitor.tamanho / bytes >= numeros;
}

struct FIMINFLA {
  void operator()(z_stream* z) const { inflateEnd(z); }
};

// The array that the next `n` bytes expand to; nothing when they don't expand to just that.
std::optional<MATRIZMAT> infla(std::istream& arquivo, std::uint64_t n, bool little) {
  z_stream z{};
  if (inflateInit(&z) != Z_OK) return std::nullopt;
  const std::unique_ptr<z_stream, FIMINFLA> fim(&z);
  std::array<unsigned char, 16384> entra{};
  std::array<unsigned char, 16384> sai{};
  BYTES comeco;
  std::uint64_t total = 0;
  for (int estado = Z_OK; estado != Z_STREAM_END;) {
    if (z.avail_in == 0) {
      const std::uint64_t parte = std::min<std::uint64_t>(n, entra.size());
      const bool lida = !!arquivo.read(reinterpret_cast<char*>(entra.data()),
                                       static_cast<std::streamsize>(parte));
      if (parte == 0 || !lida) return std::nullopt;
      n -= parte;
      z.next_in = entra.data();
      z.avail_in = static_cast<uInt>(parte);
    }
    z.next_out = sai.data();
    z.avail_out = static_cast<uInt>(sai.size());
    estado = inflate(&z, Z_NO_FLUSH);
    if (estado != Z_OK && estado != Z_STREAM_END) return std::nullopt;
    const std::size_t feitos = sai.size() - z.avail_out;
    const std::size_t guardados = std::min(feitos, maiorComeco + etiqueta - comeco.size());
    comeco.insert(comeco.end(), sai.data(), sai.data() + guardados);
    total += feitos;
    if (comeco.size() < etiqueta) continue;
    constexpr std::uint64_t sobra = 7;  // it may be filled up to a multiple of eight
    const std::uint64_t prometido = etiqueta + std::uint64_t{numero(&comeco[4], little)};
    if (total > prometido + sobra) return std::nullopt;
  }
  if (comeco.size() < etiqueta || numero(comeco.data(), little) != tipoMatriz) return std::nullopt;
  const std::uint64_t tamanho = numero(&comeco[4], little);
  if (total < etiqueta + tamanho) return std::nullopt;
  comeco.erase(comeco.begin(), comeco.begin() + etiqueta);
  return MATRIZMAT{comeco, tamanho};
}

// The file as a row of elements.
struct ARQUIVOMAT {
  std::ifstream& arquivo;
  std::uint64_t total;
  bool little;

  bool le(std::uint64_t posicao, BYTES& bytes) const {
    arquivo.seekg(static_cast<std::streamoff>(posicao));
    return !!arquivo.read(reinterpret_cast<char*>(bytes.data()),
                          static_cast<std::streamsize>(bytes.size()));
  }

  // Whether the element whose tag is `lida` and whose data begin at `dados` is whole.
  bool elementoInteiro(const BYTES& lida, std::uint64_t dados) const {
    const std::uint32_t tipo = numero(lida.data(), little);
    const std::uint64_t tamanho = numero(&lida[4], little);
    if (dados + tamanho > total) return false;
    if (tipo == tipoMatriz) {
      MATRIZMAT matriz{BYTES(std::min<std::uint64_t>(tamanho, maiorComeco)), tamanho};
      return le(dados, matriz.comeco) && matrizInteira(matriz, little);
    }
    if (tipo != tipoComprimido) return true;
    arquivo.seekg(static_cast<std::streamoff>(dados));
    const auto matriz = infla(arquivo, tamanho, little);
    return matriz && matrizInteira(*matriz, little);
  }
};

}  // namespace

bool mat5Inteiro(const std::string& nome) {
  std::ifstream arquivo(nome, std::ios::binary | std::ios::ate);
  const auto total = static_cast<std::uint64_t>(std::max<std::streamoff>(arquivo.tellg(), 0));
  ARQUIVOMAT mat{arquivo, total, true};
  BYTES marca(4);
  if (total < cabecalho || !mat.le(cabecalho - 4, marca)) return true;
  const std::string_view texto(reinterpret_cast<const char*>(marca.data()), marca.size());
  mat.little = texto == std::string_view("\0\1IM", 4);
  if (!mat.little && texto != std::string_view("\1\0MI", 4)) return true;

  BYTES lida(etiqueta);
  std::uint64_t posicao = cabecalho;
  while (posicao < total) {
    const bool inteiro = mat.le(posicao, lida) && mat.elementoInteiro(lida, posicao + etiqueta);
    if (!inteiro) return false;
    posicao += etiqueta + numero(&lida[4], mat.little);
  }
  return true;
}

}  // namespace pim
