#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <tuple>

#include "apoio/pasta.h"
#include "detect/maximos.h"
#include "detect/ordenacao.h"
#include "examples/cenario.h"
#include "kernels/grupos.h"
#include "kernels/lekernels.h"
#include "pim/converte.h"
#include "referencia/correlacao.h"
#include "referencia/proximos.h"

namespace {

constexpr double minCorr = 0.02;
constexpr float perto = 1e-6F;  // what a correlation may differ by

PIRAMIDE cena() {
  CENARIO cenario;
  cenario.linhas = 300;
  cenario.colunas = 400;
  cenario.graos = 30;
  cv::Mat_<float> imagem;
  pim::converte(pinta(cenario, povoa(cenario)), imagem, 1 / 255.0, 0.0);
  PIRAMIDE piramide;
  constroiPiramide(piramide, imagem, 4);
  return piramide;
}

std::vector<MASCARA> banco() {
  const PASTA pasta;
  grava("kernel.cfg", "passoang 30 circulo 24 quadrado 22 retangulo 30 14 elipse 32 20");
  std::vector<MASCARA> kernels;
  leKernels("kernel.cfg", kernels);
  return kernels;
}

// The detector from correlation to the list before near duplicates go, best first.
template <class CORRELA>
std::vector<MAXLOCAL> maximos(const PIRAMIDE& piramide, const std::vector<MASCARA>& kernels,
                              CORRELA correla) {
  std::vector<MAXLOCAL> v;
  MELHORCORREL melhor;
  MELHORKERNEL qual;
  for (const auto& [primeiro, ultimo] : kernels::grupos(kernels)) {
    correla(piramide, kernels, primeiro, ultimo, melhor, qual);
    findMaxLocal(melhor, qual, kernels, v, minCorr);
  }
  referencia::ordena(v, 0, static_cast<int>(v.size()) - 1);
  return v;
}

using CHAVE = std::tuple<char, int, int, double, double, double>;

std::map<CHAVE, float> porChave(const std::vector<MAXLOCAL>& v) {
  std::map<CHAVE, float> m;
  for (const MAXLOCAL& x : v) m[{x.forma, x.li, x.ci, x.d1, x.d2, x.ang}] = x.correl;
  return m;
}

// Whether a record may be in one list only: it, or something of its letter near it in the other
// list, was decided by less than a correlation may differ.
bool porUmTriz(const CHAVE& chave, float correl, const std::map<CHAVE, float>& outra) {
  if (std::abs(static_cast<double>(correl) - minCorr) < static_cast<double>(perto)) return true;
  return std::any_of(outra.begin(), outra.end(), [&](const auto& x) {
    const bool vizinho = std::get<0>(x.first) == std::get<0>(chave) &&
                         std::abs(std::get<1>(x.first) - std::get<1>(chave)) <= 8 &&
                         std::abs(std::get<2>(x.first) - std::get<2>(chave)) <= 8;
    return vizinho && std::abs(x.second - correl) < perto;
  });
}

// Compares two lists of detections record by record; returns how many are in one only.
int compara(const std::vector<MAXLOCAL>& a, const std::vector<MAXLOCAL>& b) {
  const auto deA = porChave(a);
  const auto deB = porChave(b);
  int soEmUma = 0;
  for (const auto& [lista, outra] : {std::pair{deA, deB}, std::pair{deB, deA}}) {
    for (const auto& [chave, correl] : lista) {
      const auto par = outra.find(chave);
      if (par != outra.end()) {
        EXPECT_NEAR(correl, par->second, perto);
      } else {
        ++soEmUma;
        EXPECT_TRUE(porUmTriz(chave, correl, outra))
            << std::get<0>(chave) << ' ' << std::get<1>(chave) << ' ' << std::get<2>(chave);
      }
    }
  }
  return soEmUma;
}

}  // namespace

TEST(Detector, RapidoESimplesAchamOsMesmosMaximosNaCena) {
  const PIRAMIDE piramide = cena();
  const std::vector<MASCARA> kernels = banco();
  const auto rapidos = maximos(
      piramide, kernels, [](const PIRAMIDE& p, auto&&... resto) { correlaGrupo(p, resto...); });
  const auto simples = maximos(piramide, kernels, referencia::correlaGrupo);
  ASSERT_GT(simples.size(), 1000U);
  EXPECT_LE(compara(rapidos, simples), static_cast<int>(simples.size() / 100));

  std::vector<MAXLOCAL> mantidosRapidos;
  std::vector<MAXLOCAL> mantidosSimples;
  eliminaProximo(rapidos, mantidosRapidos, 2);
  referencia::eliminaProximo(simples, mantidosSimples, 2);
  EXPECT_LE(compara(mantidosRapidos, mantidosSimples),
            static_cast<int>(mantidosSimples.size() / 100));
}
