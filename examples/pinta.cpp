#include <algorithm>
#include <cmath>
#include <cstddef>

#include "examples/cenario.h"
#include "examples/sorteio.h"

// Light is worked out in plain arithmetic and kept in whole 1/256 grey levels from the lens on, so
// that no rounding depends on the machine.

namespace {

constexpr float chao = 0.78F;  // share of the light that the ground sends back
constexpr float branco = 255.0F * 256.0F;

// Smooth noise: random values on a grid of `passo` pixels, interpolated between.
struct TEXTURA {
  int passo;
  float amplitude;
  std::uint64_t semente;

  float no(int l, int c) const {
    const std::uint64_t lugar =
        (static_cast<std::uint64_t>(static_cast<unsigned>(l)) << 32U) | static_cast<unsigned>(c);
    const std::uint64_t bits = SORTEIO::mistura(semente + SORTEIO::mistura(lugar + 1));
    return amplitude * static_cast<float>(2 * SORTEIO::fracao(bits) - 1);
  }

  float peso(int x) const {
    const float t = static_cast<float>(x % passo) / static_cast<float>(passo);
    return t * t * (3 - 2 * t);
  }

  // Adds row `l` of the noise to `linha`.
  void soma(int l, std::vector<float>& linha) const {
    const int n = static_cast<int>(linha.size());
    const float wl = peso(l);
    float antes = 0;
    float depois = 0;
    for (int c = 0; c < n; ++c) {
      if (c % passo == 0) {
        const int j = c / passo;
        antes = c == 0 ? no(l / passo, 0) * (1 - wl) + no(l / passo + 1, 0) * wl : depois;
        depois = no(l / passo, j + 1) * (1 - wl) + no(l / passo + 1, j + 1) * wl;
      }
      const float wc = peso(c);
      linha[static_cast<std::size_t>(c)] += antes * (1 - wc) + depois * wc;
    }
  }
};

// Lays one grain over what is there. It is lit from the upper left, and paler toward its rim.
void pintaGrao(cv::Mat_<float>& brilho, const GRAO& g, float tom) {
  const FIGURA f(g);
  const FIGURA alcance(crescido(g, 1));  // beyond it no pixel can be touched
  const cv::Rect r = f.caixa() & cv::Rect({0, 0}, brilho.size());
  const double raio = diametro(g) / 2;
  for (int l = r.y; l < r.y + r.height; ++l) {
    for (int c = r.x; c < r.x + r.width; ++c) {
      if (!alcance.dentro(l, c)) continue;
      const auto parte = static_cast<float>(f.cobertura(l, c));
      const double nivel = std::min(f.nivel(l, c), 1.0);
      const double lado = ((g.linha - l) + (g.coluna - c)) / raio;
      const auto relevo = static_cast<float>(0.05 * nivel * nivel + 0.025 * lado);
      brilho(l, c) += parte * (tom + relevo - brilho(l, c));
    }
  }
}

// The light at a place: falls off with the square of the distance from the centre, and to the
// lower right.
float luz(float l, float c) {
  return 1.0F - 0.11F * (l * l + c * c) - 0.07F * c - 0.05F * l;
}

cv::Mat_<ushort> ilumina(const CENARIO& cenario, const cv::Mat_<float>& brilho) {
  const TEXTURA fina = {2, 0.028F, cenario.semente ^ 0xF1AU};
  const TEXTURA media = {7, 0.025F, cenario.semente ^ 0x3ED1AU};
  const TEXTURA larga = {90, 0.04F, cenario.semente ^ 0x1A46AU};
  cv::Mat_<ushort> foto(brilho.size());
  std::vector<float> linha(static_cast<std::size_t>(brilho.cols));
  for (int l = 0; l < brilho.rows; ++l) {
    std::fill(linha.begin(), linha.end(), 0.0F);
    for (const TEXTURA& t : {fina, media, larga}) t.soma(l, linha);
    const float y = 2 * static_cast<float>(l) / static_cast<float>(brilho.rows) - 1;
    for (int c = 0; c < brilho.cols; ++c) {
      const float x = 2 * static_cast<float>(c) / static_cast<float>(brilho.cols) - 1;
      const float claro = brilho(l, c) * (1 + 2 * linha[static_cast<std::size_t>(c)]) * luz(y, x);
      foto(l, c) = static_cast<ushort>(std::clamp(claro, 0.0F, 1.0F) * branco);
    }
  }
  return foto;
}

// The binomial filter 1 4 6 4 1 along both axes, the border pixels repeated.
cv::Mat_<ushort> desfoca(const cv::Mat_<ushort>& foto) {
  cv::Mat_<ushort> saida(foto.size());
  std::vector<unsigned> coluna(static_cast<unsigned>(foto.cols) + 4U);
  for (int l = 0; l < foto.rows; ++l) {
    const auto linha = [&](int d) { return foto[std::clamp(l + d, 0, foto.rows - 1)]; };
    const ushort* a = linha(-2);
    const ushort* b = linha(-1);
    const ushort* m = linha(0);
    const ushort* d = linha(1);
    const ushort* e = linha(2);
    for (int c = -2; c < foto.cols + 2; ++c) {
      const int x = std::clamp(c, 0, foto.cols - 1);
      coluna[static_cast<unsigned>(c + 2)] =
          static_cast<unsigned>(a[x] + 4 * b[x] + 6 * m[x] + 4 * d[x] + e[x]);
    }
    for (int c = 0; c < foto.cols; ++c) {
      const unsigned* p = &coluna[static_cast<std::size_t>(c)];
      saida(l, c) = static_cast<ushort>((p[0] + 4 * p[1] + 6 * p[2] + 4 * p[3] + p[4] + 128) / 256);
    }
  }
  return saida;
}

// Photon noise grows with the square root of the light; the electronics add their own.
cv::Mat_<unsigned char> revela(const cv::Mat_<ushort>& foto, std::uint64_t semente) {
  SORTEIO s{SORTEIO::mistura(semente ^ 0x5E45A0U)};
  cv::Mat_<unsigned char> saida(foto.size());
  for (int l = 0; l < foto.rows; ++l) {
    for (int c = 0; c < foto.cols; ++c) {
      const double claro = foto(l, c) / 256.0;
      const double desvio = std::sqrt(4 + 0.12 * claro);  // grey levels
      const double cinza = claro + desvio * s.normalRapida() + 0.5;
      saida(l, c) = static_cast<uchar>(std::clamp(cinza, 0.0, 255.0));
    }
  }
  return saida;
}

}  // namespace

cv::Mat_<unsigned char> pinta(const CENARIO& cenario, const std::vector<GRAO>& graos) {
  cv::Mat_<float> brilho(cenario.linhas, cenario.colunas, chao);
  SORTEIO s{SORTEIO::mistura(cenario.semente ^ 0x70A5U)};
  for (const GRAO& g : graos) pintaGrao(brilho, g, static_cast<float>(s.uniforme(0.2, 0.42)));
  return revela(desfoca(ilumina(cenario, brilho)), cenario.semente);
}
