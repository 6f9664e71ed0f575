#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <opencv2/core.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "apoio/pasta.h"
#include "detect/maxlocal.h"
#include "pim/imagem.h"

namespace {

namespace fs = std::filesystem;

struct CORRIDA {
  int estado = -1;
  std::string saida, erro;
};

// Runs a program of the build; `antes` stands before it, in the shell.
CORRIDA roda(const std::string& argumentos, const std::string& programa = VORPLEX_MAPA,
             const std::string& antes = "") {
  const std::string linha =
      antes + " LC_ALL=C '" + programa + "' " + argumentos + " </dev/null >saida.txt 2>erro.txt";
  const int s = std::system(linha.c_str());
  return {WIFEXITED(s) ? WEXITSTATUS(s) : -1, leTudo("saida.txt"), leTudo("erro.txt")};
}

const std::string cascalho = VORPLEX_TEXTURA "/cascalho.png";

std::size_t linhas(const std::string& texto) {
  return static_cast<std::size_t>(std::count(texto.begin(), texto.end(), '\n'));
}

struct REDONDO {
  double l = 0, c = 0, d = 0;
};

// The grains of a table with these three columns after a line of names.
std::vector<REDONDO> leRedondos(const std::string& texto) {
  std::istringstream f(texto.substr(texto.find('\n')));
  std::vector<REDONDO> v;
  for (REDONDO r; f >> r.l >> r.c >> r.d;) v.push_back(r);
  return v;
}

// Those of a list of vorplex-mapa.
std::vector<REDONDO> leLista(const std::string& nome) {
  std::vector<MAXLOCAL> lista;
  leMaxLocais(lista, nome);
  std::vector<REDONDO> v;
  for (const MAXLOCAL& m : lista) {
    v.push_back({static_cast<double>(m.li), static_cast<double>(m.ci),
                 std::sqrt(static_cast<double>(m.d1) * static_cast<double>(m.d2))});
  }
  return v;
}

// Whether one of them stands nearly there and is nearly as large.
bool tem(const std::vector<REDONDO>& v, const REDONDO& r) {
  return std::any_of(v.begin(), v.end(), [&r](const REDONDO& x) {
    return std::hypot(x.l - r.l, x.c - r.c) < 0.25 * r.d && std::fabs(x.d - r.d) < 0.25 * r.d;
  });
}

TEST(VorplexMapa, AchaOsGraosDeUmaCenaRendida) {
  const PASTA pasta;
  const std::vector<REDONDO> certos = leRedondos(leTudo(VORPLEX_TEXTURA "/cascalho.txt"));
  ASSERT_GT(certos.size(), 15U);
  for (const char* rede : {"cenas", "fotos"}) {
    const CORRIDA c = roda("'" + cascalho + "' g.ho2 -j 1 --rede " + rede);
    ASSERT_EQ(c.estado, 0) << c.erro;
    EXPECT_EQ(c.erro, "");
    const std::vector<REDONDO> feitos = leLista("g.ho2");
    const auto bons = std::count_if(certos.begin(), certos.end(),
                                    [&](const REDONDO& r) { return tem(feitos, r); });
    EXPECT_GE(static_cast<double>(bons), 0.6 * static_cast<double>(certos.size())) << rede;
    EXPECT_LE(static_cast<double>(feitos.size()), 2.5 * static_cast<double>(certos.size()));
  }
}

TEST(VorplexMapa, RotulosSaoUmPngDe16Bits) {
  const PASTA pasta;
  ASSERT_EQ(roda("'" + cascalho + "' g_labels.png").estado, 0);
  const std::string png = leTudo("g_labels.png");
  ASSERT_GT(png.size(), 26U);
  EXPECT_EQ(png[24], 16);  // bits of a sample, and grey
  EXPECT_EQ(png[25], 0);
}

TEST(VorplexMapa, TodosOsFiosDaoOsMesmosBytes) {
  const PASTA pasta;
  for (const char* saida : {"g.csv", "g.ho2", "g_labels.png", "g_mapa.png", "g.png"}) {
    ASSERT_EQ(roda("'" + cascalho + "' " + saida + " -j 1").estado, 0) << leTudo("erro.txt");
    const std::string um = leTudo(saida);
    ASSERT_EQ(roda("'" + cascalho + "' " + saida + " -j 3").estado, 0);
    EXPECT_TRUE(um == leTudo(saida)) << saida;
    EXPECT_FALSE(um.empty());
  }
}

TEST(VorplexMapa, SemOModuloOErroDizQualFalta) {
  const PASTA pasta;
  fs::create_directory("so");
  const fs::path bin = fs::path(VORPLEX_MAPA).parent_path();
  fs::copy(VORPLEX_MAPA, "so/vorplex-mapa");
  fs::copy(bin / "pimcodecs.so", "so/pimcodecs.so");
  fs::copy(bin / "cenas.pesos", "so/cenas.pesos");
  const CORRIDA c = roda("'" + cascalho + "' g.csv --rede cenas", "so/vorplex-mapa");
  EXPECT_EQ(c.estado, 1);
  EXPECT_NE(c.erro.find("Erro: Modulo do mapa: "), std::string::npos) << c.erro;
  EXPECT_NE(c.erro.find("pimmapa.so"), std::string::npos) << c.erro;
  EXPECT_FALSE(existe("g.csv"));
}

TEST(VorplexMapa, ErrosDeUso) {
  const PASTA pasta;
  const auto estado = [](const std::string& a) { return roda(a).estado; };
  EXPECT_EQ(estado(""), 2);
  EXPECT_EQ(estado("foto.png"), 2);
  EXPECT_EQ(estado("foto.png s.csv sobra"), 2);
  EXPECT_EQ(estado("foto.png s.xyz"), 2);
  EXPECT_EQ(estado("foto.png s.csv --tamanhos 9-3"), 2);
  EXPECT_EQ(estado("foto.png s.csv --sensibilidade 2"), 2);
  EXPECT_EQ(estado("foto.png s.csv -j 0"), 2);
  EXPECT_EQ(estado("'" + cascalho + "' '" + cascalho + "'"), 2);
  EXPECT_EQ(estado("nao-ha.png s.csv"), 1);
  EXPECT_EQ(estado("'" + cascalho + "' nao/ha/s.csv"), 1);
  EXPECT_EQ(estado("'" + cascalho + "' s.csv --rede '" + cascalho + "'"), 1);
  EXPECT_EQ(estado("'" + cascalho + "' s.csv --rede nao-ha.pesos"), 1);
  EXPECT_FALSE(existe("s.csv"));
  EXPECT_EQ(estado("--ajuda"), 0);
  EXPECT_EQ(estado("--cartao"), 0);
  EXPECT_NE(leTudo("saida.txt").find("Licence: "), std::string::npos);
}

TEST(VorplexMapa, FotografiaLisaOuMinusculaNaoTemGraos) {
  const PASTA pasta;
  for (const cv::Size s : {cv::Size(1, 1), cv::Size(3, 50), cv::Size(64, 64)}) {
    pim::imp(cv::Mat_<unsigned char>(s, 120), "lisa.pgm");
    ASSERT_EQ(roda("lisa.pgm g.csv").estado, 0) << leTudo("erro.txt");
    EXPECT_EQ(linhas(leTudo("g.csv")), 1U);
  }
}

}  // namespace
