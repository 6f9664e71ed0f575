#include "export/roi.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <opencv2/core.hpp>
#include <string_view>

#include "export/zip.h"
#include "measure/contorno.h"
#include "pim/erro.h"

namespace exporta {
namespace {

using BYTES = std::vector<unsigned char>;

// Layout of a .roi file, big-endian: a header of 64 bytes, for polygons 16-bit coordinates relative
// to the bounds and then 32-bit floats (all x, then all y), then a second header of 64 bytes and
// the name in 16-bit characters.
constexpr std::size_t cabecalho = 64;
constexpr unsigned versao = 227;
constexpr unsigned subPixel = 128;  // of the options
enum class TIPO : unsigned char { poligono = 0, retangulo = 1, oval = 2 };

void poe16(BYTES& b, std::size_t onde, unsigned x) {
  b[onde] = static_cast<unsigned char>((x >> 8U) & 255U);
  b[onde + 1] = static_cast<unsigned char>(x & 255U);
}

void poe32(BYTES& b, std::size_t onde, std::uint32_t x) {
  poe16(b, onde, x >> 16U);
  poe16(b, onde + 2, x & 65535U);
}

void poeReal(BYTES& b, std::size_t onde, double x) {
  poe32(b, onde, std::bit_cast<std::uint32_t>(static_cast<float>(x)));
}

// A whole-pixel place as ImageJ reads it back: 16 bits, of which those below -5000 are above 32767.
int inteiro(double x) {
  return static_cast<int>(std::clamp(std::floor(x), -5000.0, 60535.0));
}

void poeInteiro(BYTES& b, std::size_t onde, int x) {
  poe16(b, onde, static_cast<unsigned>(x) & 65535U);
}

struct CAIXA {
  double x;
  double y;
  double largura;
  double altura;
};

CAIXA caixa(const refine::FIGURA& f) {
  const measure::PONTO meia = measure::meiaCaixa(f);
  return {f.c + 0.5 - meia.x, f.l + 0.5 - meia.y, 2 * meia.x, 2 * meia.y};
}

bool inteira(double x) {
  return x == std::floor(x);
}

// ImageJ measures and fills ovals and rectangles by their bounds in whole pixels.
bool exataEmPixels(const refine::FIGURA& f, const CAIXA& c) {
  return measure::aprumada(f) && inteira(c.x) && inteira(c.y) && inteira(c.largura) &&
         inteira(c.altura);
}

void poeCabecalho(BYTES& b, TIPO tipo, const CAIXA& c) {
  constexpr std::string_view magico = "Iout";
  std::copy(magico.begin(), magico.end(), b.begin());
  poe16(b, 4, versao);
  b[6] = static_cast<unsigned char>(tipo);
  poeInteiro(b, 8, inteiro(c.y));
  poeInteiro(b, 10, inteiro(c.x));
  poeInteiro(b, 12, inteiro(std::ceil(c.y + c.altura)));
  poeInteiro(b, 14, inteiro(std::ceil(c.x + c.largura)));
  poe16(b, 50, subPixel);
}

void poeCaixa(BYTES& b, const CAIXA& c) {
  poeReal(b, 18, c.x);
  poeReal(b, 22, c.y);
  poeReal(b, 26, c.largura);
  poeReal(b, 30, c.altura);
}

void poePoligono(BYTES& b, const std::vector<measure::PONTO>& v, const CAIXA& c) {
  const std::size_t n = v.size();
  poe16(b, 16, static_cast<unsigned>(n));
  b.resize(cabecalho + 12 * n);
  const std::size_t reais = cabecalho + 4 * n;
  for (std::size_t i = 0; i < n; ++i) {
    const double x = v[i].x + 0.5;
    const double y = v[i].y + 0.5;
    poeInteiro(b, cabecalho + 2 * i, inteiro(x) - inteiro(c.x));
    poeInteiro(b, cabecalho + 2 * (n + i), inteiro(y) - inteiro(c.y));
    poeReal(b, reais + 4 * i, x);
    poeReal(b, reais + 4 * (n + i), y);
  }
}

void poeNome(BYTES& b, const std::string& nome) {
  const std::size_t segundo = b.size();
  poe32(b, 60, static_cast<std::uint32_t>(segundo));
  b.resize(segundo + cabecalho + 2 * nome.size());
  poe32(b, segundo + 16, static_cast<std::uint32_t>(segundo + cabecalho));
  poe32(b, segundo + 20, static_cast<std::uint32_t>(nome.size()));
  for (std::size_t i = 0; i < nome.size(); ++i) {
    poe16(b, segundo + cabecalho + 2 * i, static_cast<unsigned char>(nome[i]));
  }
}

}  // namespace

std::vector<unsigned char> roiDoGrao(const measure::GRAO& g, const std::string& nome) {
  const refine::FIGURA& f = g.figura;
  const CAIXA c = caixa(f);
  const bool redonda = f.forma == 'c' || f.forma == 'e';
  BYTES b(cabecalho);
  if (exataEmPixels(f, c)) {
    poeCabecalho(b, redonda ? TIPO::oval : TIPO::retangulo, c);
    poeCaixa(b, c);
  } else {
    poeCabecalho(b, TIPO::poligono, c);
    poePoligono(b, measure::contorno(f, measure::desvioUsual), c);
  }
  poeNome(b, nome);
  return b;
}

std::string nomeDoRoi(const measure::GRAO& g) {
  return cv::format("%04zu", g.indice);
}

void impRois(const measure::FOTOGRAFIA& foto, const std::string& nome) {
  if (foto.graos.empty()) {
    const bool saiu = std::remove(nome.c_str()) == 0 || errno == ENOENT;
    if (!saiu) pim::erro("Erro gravacao arquivo ", nome);
    return;
  }
  std::vector<ENTRADA> entradas;
  entradas.reserve(foto.graos.size());
  for (const measure::GRAO& g : foto.graos) {
    const std::string indice = nomeDoRoi(g);
    entradas.push_back({indice + ".roi", roiDoGrao(g, indice)});
  }
  impZip(entradas, nome);
}

}  // namespace exporta
