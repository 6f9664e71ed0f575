#include "refine/tracos/tracos.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "refine/foto.h"
#include "refine/tracos/esboco.h"

namespace refine {

namespace {

void confereTracos(const EXAME& e) {
  const TRACOS& t = e.tracos;
  for (std::size_t k = 0; k < quantosTracos; ++k) ASSERT_TRUE(std::isfinite(t[k])) << k;
  EXPECT_TRUE(std::isfinite(e.contraste) && std::isfinite(e.dentro) && std::isfinite(e.fora));
  for (const TRACO k : {bordaVista, bordaVista2, bordaForte, uniforme, escuroPorDentro, separacao,
                        separacao2, nucleoEscuro, anelClaro, maiorFalha, piorQuarto, visivel}) {
    EXPECT_GE(t[k], 0) << k;
    EXPECT_LE(t[k], 1 + 1e-5F) << k;
  }
  EXPECT_LE(std::fabs(t[alinhada]), 1 + 1e-5F);
  EXPECT_LE(std::fabs(t[degrauUniforme]), 1);
  EXPECT_LE(t[bordaForte], t[bordaVista] + 1e-5F);
}

void confereEsbocados(const ESBOCADOS& t) {
  for (std::size_t k = 0; k < quantosEsbocados; ++k) ASSERT_TRUE(std::isfinite(t[k])) << k;
  for (const ESBOCADO k : {eBorda, ePerto, ePerto2, eForte, ePiorQuarto, eEscuro}) {
    EXPECT_GE(t[k], 0) << k;
    EXPECT_LE(t[k], 1 + 1e-5F) << k;
  }
  EXPECT_LE(t[ePerto], t[eBorda] + 1e-5F);
}

void olhaTudo(const cv::Mat_<unsigned char>& foto, const FIGURA& f, ENCOBREM encobrem = {}) {
  const CAMPO campo = preparaCampo(foto);
  BANCADA b;
  for (const ANDAR& andar : campo.andares) {
    const FIGURA g = noAndar(f, andar.nivel);
    if (menorMetade(g) < 0.5) continue;
    confereTracos(examina(andar, g, 0.5, encobrem, b));
    confereTracos(examina(andar, g, -1, encobrem, b));
    amostra(g, 16, b.amostras);
    procuraBordas(andar, b.amostras, {2, 1}, b.bordas);
    confereEsbocados(esboca(andar, g, 0.5, b));
    confereEsbocados(esboca(andar, g, 0, b));
  }
}

}  // namespace

TEST(Tracos, FinitosENosLimites) {
  std::mt19937 g(13);
  std::uniform_real_distribution<double> lugar(-30, 130), tamanho(1, 90), ang(-180, 180);
  cv::Mat_<unsigned char> sorteada(97, 83);
  for (unsigned char& x : sorteada) x = static_cast<unsigned char>(g());
  const FIGURA vizinha{'e', 40, 30, 40, 25, 20};
  for (int k = 0; k < 60; ++k) {
    FIGURA f{"cqre"[k % 4], lugar(g), lugar(g), tamanho(g), tamanho(g), ang(g)};
    if (k % 4 < 2) f.d2 = f.d1;
    olhaTudo(sorteada, f);
    olhaTudo(sorteada, f, {&vizinha, 1});
    for (const int grey : {0, 128, 255}) {
      olhaTudo(cv::Mat_<unsigned char>(40, 50, static_cast<unsigned char>(grey)), f);
    }
  }
}

TEST(Tracos, FotosMinusculas) {
  for (const char forma : {'c', 'q', 'r', 'e'}) {
    for (const double lado : {1.0, 2.0, 3.0, 20.0}) {
      for (const int pixels : {1, 3}) {
        cv::Mat_<unsigned char> foto(pixels, pixels, static_cast<unsigned char>(200));
        foto(pixels / 2, pixels / 2) = 10;
        olhaTudo(foto, {forma, pixels / 2.0 - 0.5, 0, lado, lado, 0});
      }
    }
  }
}

TEST(Tracos, DistinguemOGraoDoChao) {
  std::mt19937 g(14);
  const FIGURA grao{'e', 50.3, 48.8, 34, 22, 30};
  const CAMPO campo = preparaCampo(fotografaFormas({100, 100}, {grao}, {0.8, 0.3, 0.8, 2}, g));
  const ANDAR& andar = campo.andares[0];
  BANCADA b;
  const EXAME sim = examina(andar, grao, 0.8, {}, b);
  EXPECT_GT(sim.tracos[bordaVista], 0.98F);
  EXPECT_GT(sim.tracos[alinhada], 0.95F);
  EXPECT_GT(sim.tracos[separacao], 0.9F);
  EXPECT_EQ(sim.tracos[visivel], 1);
  EXPECT_NEAR(sim.contraste, 0.5, 0.05);
  EXPECT_NEAR(sim.dentro, 0.3, 0.03);
  EXPECT_NEAR(sim.fora, 0.8, 0.03);
  EXPECT_EQ(sim.tracos[ehElipse], 1);
  EXPECT_EQ(sim.tracos[ehRetangulo], 0);
  EXPECT_NEAR(sim.tracos[logPerimetro], std::log(perimetro(grao)), 1e-5);
  EXPECT_NEAR(sim.tracos[logAlongamento], std::log(34.0 / 22), 1e-5);
  const EXAME nao = examina(andar, {'e', 15, 15, 20, 14, 30}, 0.1, {}, b);
  EXPECT_LT(nao.tracos[bordaForte], 0.3F);
  EXPECT_LT(std::fabs(nao.contraste), 0.02);
}

TEST(Tracos, MetadeForaEMetadeEncoberta) {
  std::mt19937 g(15);
  const FIGURA grao{'c', 50, -0.5, 40, 40, 0};
  const FIGURA meio{'c', 50, 50, 40, 40, 0};
  const CAMPO campo = preparaCampo(fotografaFormas({100, 100}, {grao, meio}, {}, g));
  const ANDAR& andar = campo.andares[0];
  BANCADA b;
  EXPECT_NEAR(examina(andar, grao, 0.8, {}, b).tracos[visivel], 0.5, 0.04);
  // A neighbour over the right half.
  const FIGURA tampa{'r', 50, 75, 50, 80, 0};
  const EXAME e = examina(andar, meio, 0.8, {&tampa, 1}, b);
  EXPECT_NEAR(e.tracos[visivel], 0.5, 0.05);
  EXPECT_GT(e.tracos[bordaVista], 0.98F);
}

TEST(Esboco, DistingueOGraoDoChao) {
  std::mt19937 g(16);
  const FIGURA grao{'q', 50.3, 48.8, 24, 24, 30};
  const CAMPO campo = preparaCampo(fotografaFormas({100, 100}, {grao}, {0.8, 0.3, 0.8, 2}, g));
  const ANDAR& andar = campo.andares[0];
  BANCADA b;
  const auto esbocada = [&](const FIGURA& f) {
    amostra(f, 16, b.amostras);
    procuraBordas(andar, b.amostras, {4, 1}, b.bordas);
    return esboca(andar, f, 0.5, b);
  };
  const ESBOCADOS sim = esbocada(grao);
  EXPECT_GT(sim[eBorda], 0.98F);
  EXPECT_GT(sim[ePerto], 0.9F);
  EXPECT_GT(sim[ePiorQuarto], 0.98F);
  EXPECT_NEAR(sim[eLogContraste], std::log(0.5), 0.1);
  EXPECT_NEAR(sim[eLogCorrelacao], std::log(0.5), 1e-6);
  EXPECT_LT(esbocada({'q', 15, 15, 18, 18, 0})[eForte], 0.3F);
}

}  // namespace refine
