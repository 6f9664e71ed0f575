#include "kernels/molde.h"

#include <cstddef>
#include <vector>

#include "kernels/normaliza.h"
#include "pim/converte.h"
#include "pim/desenho.h"
#include "pim/erro.h"

namespace kernels {
namespace {

constexpr int maiorTabela = 4;  // diameter of the largest disc that is drawn from a table

int classe(const MOLDE& m) {
  return m.forma == 'c' ? pim::arredonda(m.d1) : maiorTabela + 1;
}

// The stretches of a filled shape with these half-extents in an image of 2 `meio` + 1 pixels a
// side.
std::vector<pim::TRECHO> trechos(const MOLDE& m, int meio, int meio1, int meio2) {
  switch (m.forma) {
    case 'c':
      return pim::trechosCirculo(meio, meio1);
    case 'q':
      return pim::trechosRotRetang(meio, meio1, meio1, m.ang);
    case 'r':
      return pim::trechosRotRetang(meio, meio1, meio2, m.ang);
    default:
      return pim::trechosElipse(meio, meio1, meio2, m.ang);
  }
}

bool vazio(const pim::TRECHO& t) {
  return t.de > t.ate;
}

// Whether ring and core both have pixels in a kernel that comes from no table.
bool temAnelENucleo(const MOLDE& m) {
  const double lado = ladoDoKernel(m.forma, m.d1, m.d2);
  if (lado < 1) return false;
  const int meio = pim::trunca(lado) / 2;
  const auto tudo = trechos(m, meio, meioAnel(m.d1), meioAnel(m.d2));
  const auto nucleo = trechos(m, meio, meioNucleo(m.d1), meioNucleo(m.d2));
  bool temAnel = false;
  bool temNucleo = false;
  for (std::size_t l = 0; l < tudo.size(); ++l) {
    const bool coberta =
        !vazio(nucleo[l]) && nucleo[l].de <= tudo[l].de && tudo[l].ate <= nucleo[l].ate;
    temAnel = temAnel || !(vazio(tudo[l]) || coberta);
    temNucleo = temNucleo || !vazio(nucleo[l]);
  }
  return temAnel && temNucleo;
}

}  // namespace

void desenhaKernel(cv::Mat_<float>& K, const MOLDE& m) {
  switch (m.forma) {
    case 'c':
      return kernelCirculo(K, m.d1);
    case 'q':
      return kernelQuadrado(K, m.d1, m.ang);
    case 'r':
      return kernelRetangulo(K, m.d1, m.d2, m.ang);
    default:
      return kernelElipse(K, m.d1, m.d2, m.ang);
  }
}

void exigeKernel(const MOLDE& m) {
  exigeLadoDoKernel(m.forma, m.d1, m.d2);
  const bool desenhavel = classe(m) > maiorTabela ? temAnelENucleo(m) : classe(m) > 0;
  if (!desenhavel) recusaKernel();
}

int ladoDaImagem(const MOLDE& m) {
  if (tomaImagemNova(m)) return 2 * classe(m) + 1;
  return pim::trunca(ladoDoKernel(m.forma, m.d1, m.d2));
}

bool tomaImagemNova(const MOLDE& m) {
  return classe(m) >= 1 && classe(m) <= maiorTabela;
}

}  // namespace kernels
