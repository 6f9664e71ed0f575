#include "batch/obra/cabecalho.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "pim/arquivo.h"

namespace batch {
namespace {

// What is read of the file: where JPEG and TIFF keep the size varies.
struct LEITOR {
  std::FILE* f;

  bool vai(std::int64_t onde) const { return onde >= 0 && std::fseek(f, onde, SEEK_SET) == 0; }

  std::string le(std::size_t n) const {
    std::string s(n, '\0');
    s.resize(std::fread(s.data(), 1, n, f));
    return s;
  }
};

// An unsigned number of n bytes at `onde`; 0 beyond the end.
std::uint32_t numero(std::string_view s, std::size_t onde, std::size_t n, bool altoPrimeiro) {
  if (s.size() < onde + n) return 0;
  std::uint32_t x = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t k = onde + (altoPrimeiro ? i : n - 1 - i);
    x = (x << 8U) | static_cast<unsigned char>(s[k]);
  }
  return x;
}

cv::Size medido(std::uint32_t cols, std::uint32_t rows) {
  constexpr std::uint32_t maiorLado = 1U << 20U;  // of what can be read at all
  if (cols == 0 || rows == 0 || cols > maiorLado || rows > maiorLado) return {};
  return {static_cast<int>(cols), static_cast<int>(rows)};
}

cv::Size dePnm(std::string_view s) {
  std::array<std::uint32_t, 2> valores{};
  std::size_t pos = 2;
  for (std::uint32_t& v : valores) {
    while (pos < s.size() && (s[pos] < '0' || s[pos] > '9')) {
      pos = s[pos] == '#' ? std::min(s.find('\n', pos), s.size()) : pos + 1;
    }
    for (; pos < s.size() && s[pos] >= '0' && s[pos] <= '9' && v < (1U << 24U); ++pos) {
      v = v * 10 + static_cast<std::uint32_t>(s[pos] - '0');
    }
  }
  return medido(valores[0], valores[1]);
}

// Goes from segment to segment up to the one that begins a frame.
cv::Size deJpeg(const LEITOR& leitor) {
  std::int64_t onde = 2;
  for (int segmentos = 0; segmentos < 1000 && leitor.vai(onde); ++segmentos) {
    const std::string s = leitor.le(9);
    const std::uint32_t marca = numero(s, 1, 1, true);
    const std::uint32_t tamanho = numero(s, 2, 2, true);
    if (s.size() < 4 || s[0] != '\xFF') return {};
    const bool quadro =
        marca >= 0xC0 && marca <= 0xCF && marca != 0xC4 && marca != 0xC8 && marca != 0xCC;
    if (quadro) return medido(numero(s, 7, 2, true), numero(s, 5, 2, true));
    onde += marca == 0xFF ? 1 : 2 + std::int64_t{tamanho};
  }
  return {};
}

// The width and height among the entries of the first directory.
cv::Size deTiff(const LEITOR& leitor, std::string_view inicio) {
  const bool alto = inicio[0] == 'M';
  if (!leitor.vai(numero(inicio, 4, 4, alto))) return {};
  const std::uint32_t entradas = numero(leitor.le(2), 0, 2, alto);
  const std::string s = leitor.le(std::size_t{12} * entradas);
  std::uint32_t cols = 0;
  std::uint32_t rows = 0;
  for (std::size_t i = 0; i + 12 <= s.size(); i += 12) {
    const std::size_t bytes = numero(s, i + 2, 2, alto) == 3 ? 2 : 4;  // a short or a long
    const std::uint32_t valor = numero(s, i + 8, bytes, alto);
    if (numero(s, i, 2, alto) == 256) cols = valor;
    if (numero(s, i, 2, alto) == 257) rows = valor;
  }
  return medido(cols, rows);
}

}  // namespace

cv::Size tamanhoNoCabecalho(const std::string& nome) {
  std::error_code falha;
  if (!std::filesystem::is_regular_file(nome, falha)) return {};
  const pim::ARQUIVO arquivo(std::fopen(nome.c_str(), "rbe"));
  if (!arquivo) return {};
  const LEITOR leitor{arquivo.get()};
  const std::string s = leitor.le(512);
  const std::string_view inicio = s;
  if (inicio.size() < 8) return {};
  if (s[0] == 'P' && s[1] >= '1' && s[1] <= '6') return dePnm(s);
  if (inicio.starts_with("\x89PNG")) return medido(numero(s, 16, 4, true), numero(s, 20, 4, true));
  if (inicio.starts_with("\xFF\xD8\xFF")) return deJpeg(leitor);
  if (inicio.starts_with("BM")) {  // rows are negative when the first is the uppermost
    const auto rows = static_cast<std::int32_t>(numero(s, 22, 4, false));
    return medido(numero(s, 18, 4, false),
                  static_cast<std::uint32_t>(std::abs(std::int64_t{rows})));
  }
  if (inicio.starts_with(std::string_view("II*\0", 4)) ||
      inicio.starts_with(std::string_view("MM\0*", 4))) {
    return deTiff(leitor, inicio);
  }
  return {};
}

}  // namespace batch
