// The same files in give the same bytes out: on every compiler, build, vector instruction set and
// processor. The sums of the detector are exact, so that their order does not matter, multiply-adds
// are never contracted, and the vector code does what the plain code does to the last bit.
//
// What is left to the C library is sin and cos (outlines; edges are compared with a tolerance of
// 1e-9, which the last digit does not reach), pow of 2 (sizes; it is exact where it must be, at
// whole octaves) and printf. The image library's pyramid is exact on the first reduction, and
// rounded to 2^-24 on the others.
//
// What the programs must give is stored in listas/, images as PNG. When results change on purpose,
// a run with VORPLEX_REGRAVA set stores them anew, and the difference is seen in the history.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

#include "apoio/figuras.h"
#include "apoio/guardado.h"
#include "apoio/pasta.h"
#include "confere.h"
#include "detect/piramide.h"
#include "kernels/lekernels.h"
#include "mat_de_classes.h"
#include "motor/caminho.h"
#include "pim/imagem.h"
#include "tiff_float.h"

namespace {

using CINZA = cv::Mat_<unsigned char>;

// A shape around (l, c) whose first axis points along 4/5 of the columns and 3/5 of the rows, with
// whole numbers only: the scene must not depend on what it tests.
struct FIGURA {
  char forma;
  int l, c;
  int meio1, meio2;

  bool contem(int y, int x) const {
    const int dl = y - l;
    const int dc = x - c;
    const int u = 4 * dc + 3 * dl;
    const int v = 4 * dl - 3 * dc;
    const int m = meio1;
    const int n = meio2;
    if (forma == 'c') return dl * dl + dc * dc <= m * m;
    if (forma == 'e') return u * u * n * n + v * v * m * m <= 25 * m * m * n * n;
    return std::abs(u) <= 5 * m && std::abs(v) <= 5 * n;
  }
};

// Dark grains of every shape and several sizes on a ground that is lit from one side, with noise.
CINZA cena() {
  const std::vector<FIGURA> figuras = {
      {'c', 30, 30, 12, 12},  {'c', 120, 35, 7, 7},   {'q', 40, 85, 11, 11}, {'q', 125, 80, 8, 8},
      {'r', 60, 150, 17, 7},  {'r', 130, 140, 13, 6}, {'e', 90, 60, 16, 8},  {'e', 25, 130, 13, 7},
      {'c', 95, 185, 10, 10}, {'c', 148, 188, 11, 11}};
  CINZA img(160, 200);
  std::uint32_t sorteio = 1;
  for (int y = 0; y < img.rows; ++y) {
    for (int x = 0; x < img.cols; ++x) {
      sorteio = sorteio * 1664525U + 1013904223U;
      int tom = 180 + x / 8 + static_cast<int>(sorteio >> 28U);
      for (const FIGURA& f : figuras) tom -= f.contem(y, x) ? 90 : 0;
      img(y, x) = static_cast<unsigned char>(std::max(tom, 0));
    }
  }
  return img;
}

void gravaCena() {
  grava("a.pgm", pgm(cena()));
  grava("k.cfg",
        "passoang 18.434948822922 escoitava 4 escala 0.4 a 1 piramide 3\n"
        "circulo 26 quadrado 23 retangulo 36 15 elipse 34 17\n");
}

std::string guardado(const std::string& nome) {
  return VORPLEX_LISTAS "/" + nome;
}

bool regrava() {
  return std::getenv("VORPLEX_REGRAVA") != nullptr;
}

void confereTexto(const std::string& obtido, const std::string& nome) {
  if (regrava()) grava(guardado(nome), obtido);
  ASSERT_TRUE(existe(guardado(nome))) << guardado(nome);
  const std::string diferenca = diferencaDeLinhas(obtido, leTudo(guardado(nome)));
  EXPECT_TRUE(diferenca.empty()) << nome << ": " << diferenca;
}

void confereArquivo(const std::string& nome) {
  ASSERT_NE(leTudo(nome), "") << nome;
  confereTexto(leTudo(nome), nome);
}

// How a PNG is compressed is its library's affair: its pixels are compared. A PGM or PPM is
// compared to the byte.
void confereImagem(const std::string& nome) {
  ASSERT_TRUE(existe(nome)) << nome;
  cv::Mat_<pim::VEC3B> obtida;
  pim::le(obtida, nome);
  const std::string png = guardado(std::filesystem::path(nome).stem().string() + ".png");
  if (regrava()) pim::imp(obtida, png);
  ASSERT_TRUE(existe(png)) << png;
  cv::Mat_<pim::VEC3B> esperada;
  pim::le(esperada, png);
  const std::string diferenca = diferencaDePixels(obtida, esperada);
  EXPECT_TRUE(diferenca.empty()) << nome << ": " << diferenca;
  if (nome.ends_with(".png")) return;
  CINZA cinza;
  pim::le(cinza, png);
  const std::string bytes = nome.ends_with(".pgm") ? pgm(cinza) : ppm(esperada);
  EXPECT_TRUE(leTudo(nome) == bytes) << nome << ": other bytes than those of the same pixels";
}

void confereCorrelacoes(const std::string& nome) {
  if (regrava()) grava(guardado(nome), leTudo(nome));
  const cv::Mat_<float> obtida = leTiffFloat(nome);
  ASSERT_FALSE(obtida.empty()) << nome;
  const std::string diferenca = diferencaDePixels(obtida, leTiffFloat(guardado(nome)));
  EXPECT_TRUE(diferenca.empty()) << nome << ": " << diferenca;
}

// Runs the nine sub-programs on the scene, each with the environment given, and compares every file
// and what they print with what is stored.
struct CORRIDA {
  std::vector<std::string> entorno;

  void roda(const std::string& nome, const std::vector<std::string>& args) const {
    const EXECUCAO e = executa(args, entorno);
    ASSERT_EQ(e.estado, 0) << nome << ": " << e.erro;
    confereTexto(miolo(e), nome + ".saida");
  }

  void detecta() const {
    roda("kernel", {"kernel", "k.cfg", "kernel.pgm"});
    confereImagem("kernel.pgm");
    roda("correla", {"correla", "a.pgm", "k.cfg", "a.ho1", "0.05"});
    confereArquivo("a.ho1");
    roda("oldcorrela", {"oldcorrela", "a.pgm", "k.cfg", "velho.ho1", "0.05"});
    confereArquivo("velho.ho1");
    confereCorrelacoes("oldcorrela.img");
    roda("filtra", {"filtra", "a.pgm", "a.ho1", "a.ho2", "default", "0.15", "0.2"});
    confereArquivo("a.ho2");
    roda("filtra_com_imagem", {"filtra", "a.pgm", "a.ho1", "filtra.ppm", "default", "0.15", "0.2"});
    confereImagem("filtra.ppm");
  }

  void mostra() const {
    roda("traca", {"traca", "a.pgm", "a.ho2", "traca.ppm", "C", "i", "P"});
    confereImagem("traca.ppm");
    roda("traca_pontos", {"traca", "a.pgm", "a.ho1", "traca_pontos.png", "p"});
    confereImagem("traca_pontos.png");
    roda("extraiam", {"extraiam", "a.pgm", "1.5"});
    confereImagem("a0000.png");
    confereImagem("a0004.png");
    grava("a.mat", matDeClasses(1, 64, std::string(64, '\7')));
    roda("extraicla", {"extraicla", "a.pgm", "1.25", "1", "3"});
    confereImagem("07-0001.png");
    confereImagem("07-0003.png");
    roda("relat", {"relat", "a.ho2", "a.rel"});
    confereArquivo("a.rel");
    roda("contaform", {"contaform"});
  }
};

}  // namespace

TEST(Determinismo, OsNoveSubprogramasDaoOsMesmosBytesEmQualquerCompilacao) {
  const PASTA pasta;
  gravaCena();
  const CORRIDA corrida;
  corrida.detecta();
  corrida.mostra();
  if (regrava()) GTEST_SKIP() << "stored anew: nothing was compared";
}

TEST(Determinismo, OsBytesNaoDependemDasInstrucoesQueABibliotecaDeImagensUsa) {
  if (regrava()) GTEST_SKIP() << "the other test stores the results";
  const PASTA pasta;
  gravaCena();
  const CORRIDA corrida{{"OPENCV_CPU_DISABLE=SSSE3,SSE4.1,SSE4.2,AVX,FP16,AVX2,FMA3,AVX512-SKX"}};
  corrida.detecta();
}

TEST(Determinismo, AsCorrelacoesSaoAsMesmasEmCadaConjuntoDeInstrucoesDesteProcessador) {
  const PASTA pasta;
  gravaCena();
  cv::Mat_<unsigned char> cinza;
  pim::le(cinza, "a.pgm");
  PIRAMIDE piramide;
  constroiPiramide(piramide, detect::emReais(cinza), 4);
  std::vector<MASCARA> kernels;
  leKernels("k.cfg", kernels);
  const auto grupo = motor::preparaGrupo(kernels, 0, static_cast<int>(kernels.size()) - 1);
  for (std::size_t L = 0; L < piramide.size(); ++L) {
    const auto nivel = motor::preparaNivel(piramide[L]);
    cv::Mat_<float> esperada;
    cv::Mat_<int> qualEsperado;
    for (const motor::AVALIADOR& a : motor::avaliadores()) {
      cv::Mat_<float> melhor;
      cv::Mat_<int> qual;
      motor::correlaCom(a, *nivel, static_cast<int>(L), *grupo, melhor, qual);
      if (esperada.empty()) {
        esperada = melhor;
        qualEsperado = qual;
      }
      EXPECT_TRUE(std::equal(melhor.begin(), melhor.end(), esperada.begin())) << a.nome;
      EXPECT_TRUE(std::equal(qual.begin(), qual.end(), qualEsperado.begin())) << a.nome;
    }
  }
}
