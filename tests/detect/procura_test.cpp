#include "detect/procura.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>
#include <utility>
#include <vector>

#include "apoio/detector.h"
#include "detect/correlacao.h"
#include "detect/maximos.h"
#include "detect/ordenacao.h"
#include "kernels/normaliza.h"
#include "pim/converte.h"

namespace {

using detect::ANDAMENTO;
using detect::ETAPA;
using CINZA = cv::Mat_<unsigned char>;

MASCARA circulo(double d, int inic) {
  MASCARA m;
  m.forma = 'c';
  m.d1 = m.d2 = d;
  m.sPir = 3;
  m.inic = inic;
  kernelCirculo(m.kernel, d);
  return m;
}

// Two groups: kernels 0 and 1, and 2 to 4.
std::vector<MASCARA> conjunto() {
  return {circulo(12, 0), circulo(9, 2), circulo(20, 0), circulo(17, 1), circulo(14, 2)};
}

CINZA graos() {
  std::mt19937 g(41);
  CINZA img(150, 330);
  for (unsigned char& p : img) p = static_cast<unsigned char>(190 + g() % 40);
  for (int i = 0; i < 40; ++i) {
    const cv::Point centro(static_cast<int>(g() % 330), static_cast<int>(g() % 150));
    const int raio = 4 + static_cast<int>(g() % 8);
    for (int l = 0; l < img.rows; ++l) {
      for (int c = 0; c < img.cols; ++c) {
        if (std::hypot(l - centro.y, c - centro.x) <= raio) img(l, c) /= 4;
      }
    }
  }
  return img;
}

cv::Mat_<float> reais(const CINZA& img) {
  cv::Mat_<float> f;
  pim::converte(img, f, 1.0 / 255, 0.0);
  return f;
}

// The search put together from its steps, the groups given.
std::vector<MAXLOCAL> passoAPasso(const CINZA& img, const std::vector<MASCARA>& v,
                                  const std::vector<std::pair<int, int>>& grupos, double minCorr) {
  PIRAMIDE piramide;
  constroiPiramide(piramide, reais(img), 4);
  std::vector<MAXLOCAL> todos;
  MELHORCORREL correl;
  MELHORKERNEL qual;
  for (const auto& [primeiro, ultimo] : grupos) {
    correlaGrupo(piramide, v, primeiro, ultimo, correl, qual);
    findMaxLocal(correl, qual, v, todos, minCorr);
  }
  ordena(todos, 0, static_cast<int>(todos.size()) - 1);
  std::vector<MAXLOCAL> mantidos;
  eliminaProximo(todos, mantidos, 2);
  return mantidos;
}

// What a search is told, but for the calls in between.
struct DIARIO {
  std::vector<ANDAMENTO> etapas;
  int trechos = 0;

  detect::AVISO anota() {
    return [this](const ANDAMENTO& a) {
      if (a.etapa == ETAPA::trecho) {
        ++trechos;
      } else {
        etapas.push_back(a);
      }
      return true;
    };
  }
};

}  // namespace

TEST(Procura, EhOQueOsPassosDaoUmAUm) {
  const auto esperados = passoAPasso(graos(), conjunto(), {{0, 1}, {2, 4}}, 0.05);
  ASSERT_GT(esperados.size(), 50U);
  EXPECT_EQ(primeiraDiferenca(detect::procura(graos(), conjunto(), 0.05), esperados), -1);
}

TEST(Procura, ReaisDaoOMesmoQueOsBytesDeQueVem) {
  const auto dosBytes = detect::procura(graos(), conjunto(), 0.05);
  EXPECT_EQ(primeiraDiferenca(detect::procura(reais(graos()), conjunto(), 0.05), dosBytes), -1);
}

TEST(Procura, UltimosKernelsDeInic0E1NaoSaoUsados) {
  std::vector<MASCARA> v = conjunto();
  const auto esperados = passoAPasso(graos(), v, {{0, 1}, {2, 4}}, 0.05);
  v.push_back(circulo(30, 0));
  v.push_back(circulo(25, 1));
  EXPECT_EQ(primeiraDiferenca(detect::procura(graos(), v, 0.05), esperados), -1);
}

TEST(Procura, KernelsSemImagensDaoOMesmo) {
  std::vector<MASCARA> v = conjunto();
  for (MASCARA& m : v) {
    m.kernel.release();
    m.molde = {m.forma, m.d1, m.d2, m.ang};
  }
  const auto esperados = detect::procura(graos(), conjunto(), 0.05);
  EXPECT_EQ(primeiraDiferenca(detect::procura(graos(), v, 0.05), esperados), -1);
  // On values that only the general filter takes.
  cv::Mat_<float> estranha = reais(graos());
  estranha(70, 70) = std::numeric_limits<float>::infinity();
  const auto daEstranha = detect::procura(estranha, conjunto(), 0.05);
  ASSERT_FALSE(daEstranha.empty());
  EXPECT_EQ(primeiraDiferenca(detect::procura(estranha, v, 0.05), daEstranha), -1);
}

TEST(Procura, NadaAchadoDaListaVazia) {
  EXPECT_TRUE(detect::procura(graos(), conjunto(), 1.5).empty());
  EXPECT_TRUE(detect::procura(graos(), {circulo(9, 0), circulo(8, 1)}, -1).empty());
  EXPECT_TRUE(detect::procura(graos(), {}, -1).empty());
  EXPECT_TRUE(detect::procura(CINZA(), conjunto(), -1).empty());
  EXPECT_TRUE(detect::procura(cv::Mat_<float>(), conjunto(), -1).empty());
}

// Pixels around the part are none of its own, whichever way it is correlated.
TEST(Procura, ParteDeUmaImagemEhProcuradaComoSeFosseInteira) {
  const cv::Mat_<float> img = reais(graos());
  const cv::Mat_<float> parte = img(cv::Rect(40, 30, 120, 90));
  std::vector<MASCARA> v = conjunto();
  for (const bool geral : {false, true}) {
    if (geral) v[0].kernel(0, 0) += 0.25F;  // no longer of three values
    const auto esperados = detect::procura(parte.clone(), v, 0.05);
    ASSERT_FALSE(esperados.empty());
    EXPECT_EQ(primeiraDiferenca(detect::procura(parte, v, 0.05), esperados), -1) << geral;
  }
}

TEST(Procura, AvisaCadaEtapaEmOrdem) {
  DIARIO diario;
  const auto v = detect::procura(graos(), conjunto(), 0.05, diario.anota());
  ASSERT_EQ(diario.etapas.size(), 4U);
  const ANDAMENTO& segundo = diario.etapas[1];
  EXPECT_EQ(diario.etapas[0].etapa, ETAPA::grupo);
  EXPECT_EQ(diario.etapas[0].nMaximos, 0U);
  EXPECT_EQ(segundo.etapa, ETAPA::grupo);
  EXPECT_EQ(segundo.grupo, 1U);
  EXPECT_EQ(segundo.nGrupos, 2U);
  EXPECT_EQ(segundo.primeiro, 2);
  EXPECT_EQ(segundo.ultimo, 4);
  EXPECT_EQ(diario.etapas[2].etapa, ETAPA::ordenacao);
  EXPECT_EQ(diario.etapas[2].grupo, 2U);
  EXPECT_GT(diario.etapas[2].nMaximos, v.size());
  EXPECT_EQ(diario.etapas[3].etapa, ETAPA::eliminacao);
  // At least at each block of 256 columns and 64 rows of both groups.
  EXPECT_GE(diario.trechos, 2 * 2 * 3);
}

TEST(Procura, SemMaximosAUltimaEtapaEhAOrdenacaoDe0) {
  DIARIO diario;
  detect::procura(graos(), conjunto(), 1.5, diario.anota());
  ASSERT_EQ(diario.etapas.size(), 3U);
  EXPECT_EQ(diario.etapas[2].etapa, ETAPA::ordenacao);
  EXPECT_EQ(diario.etapas[2].nMaximos, 0U);
}

// Ended at each of its calls in turn.
TEST(Procura, AvisoFalsoInterrompeOndeQuerQueVenha) {
  int chamadas = 0;
  const auto conta = [&](const ANDAMENTO&) { return ++chamadas > 0; };
  detect::procura(graos(), conjunto(), 0.05, conta);
  const int todas = chamadas;
  ASSERT_GT(todas, 10);
  for (int ate = 1; ate <= todas; ++ate) {
    chamadas = 0;
    const auto para = [&](const ANDAMENTO&) { return ++chamadas < ate; };
    EXPECT_THROW(detect::procura(graos(), conjunto(), 0.05, para), detect::INTERROMPIDA);
    EXPECT_EQ(chamadas, ate);
  }
}

TEST(Procura, OQueOAvisoLancaChegaAQuemChamou) {
  const auto lanca = [](const ANDAMENTO& a) -> bool {
    if (a.etapa == ETAPA::trecho) throw std::runtime_error("basta");
    return true;
  };
  EXPECT_THROW(detect::procura(graos(), conjunto(), 0.05, lanca), std::runtime_error);
}
