// The same files in give the same bytes out: on every compiler, build, vector instruction set and
// processor. The sums of the detector are exact, so that their order does not matter, multiply-adds
// are never contracted, and the vector code does what the plain code does to the last bit.
//
// What is left to the C library is sin and cos (outlines; edges are compared with a tolerance of
// 1e-9, which the last digit does not reach), pow of 2 (sizes; it is exact where it must be, at
// whole octaves) and printf. The image library's pyramid is exact on the first reduction, and
// rounded to 2^-24 on the others.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>

#include "apoio/figuras.h"
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

// FNV-1a of 64 bits, in hexadecimal.
std::string resumo(const std::string& bytes) {
  std::uint64_t h = 0xcbf29ce484222325U;
  for (const char b : bytes) h = (h ^ static_cast<unsigned char>(b)) * 0x100000001b3U;
  return cv::format("%016llx", static_cast<unsigned long long>(h));
}

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

// The pixels of an image in whatever format, by way of a run that draws nothing on it: how a PNG is
// compressed is its library's affair.
std::string pixels(const std::string& nome) {
  grava("nada.ho1", listaHo({}));
  EXPECT_EQ(executa({"traca", nome, "nada.ho1", "pixels.ppm"}).estado, 0);
  return leTudo("pixels.ppm");
}

std::string pixelsDoTiff(const std::string& nome) {
  const cv::Mat_<float> img = leTiffFloat(nome);
  return {reinterpret_cast<const char*>(img.data), img.total() * sizeof(float)};
}

using RESUMOS = std::map<std::string, std::string>;

// Runs all nine sub-programs on the scene, each with the environment given, and sums up every file
// and what they print.
struct CORRIDA {
  std::vector<std::string> entorno;
  RESUMOS resumos;

  void roda(const std::string& nome, const std::vector<std::string>& args) {
    const EXECUCAO e = executa(args, entorno);
    ASSERT_EQ(e.estado, 0) << nome << ": " << e.erro;
    resumos[nome + " (saida)"] = resumo(miolo(e));
  }
  void guarda(const std::string& nome, const std::string& bytes) {
    EXPECT_FALSE(bytes.empty()) << nome;
    resumos[nome] = resumo(bytes);
  }

  void detecta() {
    roda("kernel", {"kernel", "k.cfg", "kernel.pgm"});
    guarda("kernel.pgm", leTudo("kernel.pgm"));
    roda("correla", {"correla", "a.pgm", "k.cfg", "a.ho1", "0.05"});
    guarda("a.ho1", leTudo("a.ho1"));
    roda("oldcorrela", {"oldcorrela", "a.pgm", "k.cfg", "velho.ho1", "0.05"});
    guarda("velho.ho1", leTudo("velho.ho1"));
    guarda("oldcorrela.img", pixelsDoTiff("oldcorrela.img"));
    roda("filtra", {"filtra", "a.pgm", "a.ho1", "a.ho2", "default", "0.15", "0.2"});
    guarda("a.ho2", leTudo("a.ho2"));
    roda("filtra com imagem", {"filtra", "a.pgm", "a.ho1", "filtra.ppm", "default", "0.15", "0.2"});
    guarda("filtra.ppm", leTudo("filtra.ppm"));
  }

  void mostra() {
    roda("traca", {"traca", "a.pgm", "a.ho2", "traca.ppm", "C", "i", "P"});
    guarda("traca.ppm", leTudo("traca.ppm"));
    roda("traca em PNG", {"traca", "a.pgm", "a.ho1", "traca.png", "p"});
    guarda("traca.png", pixels("traca.png"));
    roda("extraiam", {"extraiam", "a.pgm", "1.5"});
    guarda("a0000.png", pixels("a0000.png"));
    guarda("a0004.png", pixels("a0004.png"));
    grava("a.mat", matDeClasses(1, 64, std::string(64, '\7')));
    roda("extraicla", {"extraicla", "a.pgm", "1.25", "1", "3"});
    guarda("07-0001.png", pixels("07-0001.png"));
    guarda("07-0003.png", pixels("07-0003.png"));
    roda("relat", {"relat", "a.ho2", "a.rel"});
    guarda("a.rel", leTudo("a.rel"));
    roda("contaform", {"contaform"});
  }
};

// What the optimised build of g++ gave. When results change on purpose, the failures tell the lines
// to write here.
const RESUMOS resumosEsperados = {
    {"07-0001.png", "8034d2f8c0fb541c"},
    {"07-0003.png", "b886f63f7d827dae"},
    {"a.ho1", "401ca8cb095aadb6"},
    {"a.ho2", "60ed43862bbf9545"},
    {"a.rel", "f33afa88a81eabca"},
    {"a0000.png", "fcc45c34560a56dc"},
    {"a0004.png", "42bb3e79e16c00a4"},
    {"contaform (saida)", "0af2b17adde02d1a"},
    {"correla (saida)", "b6d1743edca6145e"},
    {"extraiam (saida)", "ef0449059860ea31"},
    {"extraicla (saida)", "81781ffbc0d5fc72"},
    {"filtra (saida)", "b43cde368e75a1c8"},
    {"filtra com imagem (saida)", "967d59d972b2c627"},
    {"filtra.ppm", "a2f145d17a90e946"},
    {"kernel (saida)", "339230562dd2a9e7"},
    {"kernel.pgm", "fc62d674b17a1a9c"},
    {"oldcorrela (saida)", "3808d175ae0c187d"},
    {"oldcorrela.img", "16c26b83564d106f"},
    {"relat (saida)", "29c7afa2414a27e2"},
    {"traca (saida)", "cbf29ce484222325"},
    {"traca em PNG (saida)", "cbf29ce484222325"},
    {"traca.png", "21b84a59c17ae70d"},
    {"traca.ppm", "bcf1a234d07cc4cf"},
    {"velho.ho1", "b0e13bba210172b1"},
};

void confereResumos(const RESUMOS& obtidos) {
  for (const auto& [nome, valor] : obtidos) {
    const auto esperado = resumosEsperados.find(nome);
    EXPECT_TRUE(esperado != resumosEsperados.end() && esperado->second == valor)
        << "    {\"" << nome << "\", \"" << valor << "\"},";
  }
}

}  // namespace

TEST(Determinismo, OsNoveSubprogramasDaoOsMesmosBytesEmQualquerCompilacao) {
  const PASTA pasta;
  gravaCena();
  CORRIDA corrida;
  corrida.detecta();
  corrida.mostra();
  confereResumos(corrida.resumos);
  EXPECT_EQ(corrida.resumos.size(), resumosEsperados.size());
}

TEST(Determinismo, OsBytesNaoDependemDasInstrucoesQueABibliotecaDeImagensUsa) {
  const PASTA pasta;
  gravaCena();
  CORRIDA corrida{{"OPENCV_CPU_DISABLE=SSSE3,SSE4.1,SSE4.2,AVX,FP16,AVX2,FMA3,AVX512-SKX"}, {}};
  corrida.detecta();
  ASSERT_FALSE(corrida.resumos.empty());
  confereResumos(corrida.resumos);
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
