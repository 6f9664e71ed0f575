#include "draw/extrai.h"

#include <gtest/gtest.h>

#include <random>

#include "apoio/erros.h"
#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "draw/amostra.h"
#include "fotos.h"
#include "pim/imagem.h"

namespace {

// A folder with a photograph "foto.ppm" and a list "foto.ho2" of five detections.
struct ExtraiNaPasta : testing::Test {
  PASTA pasta;
  FOTO foto;
  std::vector<MAXLOCAL> v;

  ExtraiNaPasta() {
    std::mt19937 sorteio(41);
    foto = fotoSorteada(sorteio, 40, 50);
    for (int k = 0; k < 5; ++k) {
      v.push_back({0.9F, "cqrec"[k], 8 * k, 9 * k, 9.0 + k, 7.0, 20.0 * k});
    }
    grava("foto.ppm", ppm(foto));
    grava("foto.ho2", listaHo(v));
  }

  static void chama(void (*programa)(int, char**), std::vector<std::string> args) {
    args.insert(args.begin(), {"extrai", "foto.ppm"});
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    testing::internal::CaptureStdout();
    const std::string lancado =
        erroDe([&] { programa(static_cast<int>(argv.size()), argv.data()); });
    testing::internal::GetCapturedStdout();
    if (!lancado.empty()) pim::erro(lancado);
  }

  static FOTO lida(const std::string& nome) {
    FOTO img;
    pim::le(img, nome);
    return img;
  }

  static std::vector<std::string> pngs() {
    std::vector<std::string> nomes;
    for (const auto& f : std::filesystem::directory_iterator(".")) {
      if (f.path().extension() == ".png") nomes.push_back(f.path().filename().string());
    }
    std::sort(nomes.begin(), nomes.end());
    return nomes;
  }

  using NOMES = std::vector<std::string>;
};

TEST_F(ExtraiNaPasta, SemIndicesEscreveUmaAmostraPorDeteccao) {
  chama(ExtraiAm, {"1.5"});
  EXPECT_EQ(pngs(), (NOMES{"foto0000.png", "foto0001.png", "foto0002.png", "foto0003.png",
                           "foto0004.png"}));
  for (std::size_t k = 0; k < v.size(); ++k) {
    EXPECT_TRUE(iguais(lida(cv::format("foto%04zu.png", k)), extraiAm(v[k], foto, 1.5))) << k;
  }
}

TEST_F(ExtraiNaPasta, ComIndicesEscreveSoEles) {
  chama(ExtraiAm, {"1", "3", "1", "3"});
  EXPECT_EQ(pngs(), (NOMES{"foto0001.png", "foto0003.png"}));
  EXPECT_TRUE(iguais(lida("foto0003.png"), extraiAm(v[3], foto, 1)));
}

TEST_F(ExtraiNaPasta, AClasseEhOElementoDaImagemPorLinhas) {
  grava("foto.mat", "P2\n3 2\n255\n9 8 7\n255 5 4\n");
  chama(ExtraiCla, {"1"});
  EXPECT_EQ(pngs(),
            (NOMES{"05-0004.png", "07-0002.png", "08-0001.png", "09-0000.png", "255-0003.png"}));
  EXPECT_TRUE(iguais(lida("255-0003.png"), extraiAm(v[3], foto, 1)));
}

TEST_F(ExtraiNaPasta, ClassesNumaColunaOuNumaLinhaSaoAsMesmas) {
  grava("foto.mat", "P2\n1 5\n255\n1 2 3 4 5\n");
  chama(ExtraiCla, {"1", "4", "0"});
  EXPECT_EQ(pngs(), (NOMES{"01-0000.png", "05-0004.png"}));
  grava("foto.mat", "P2\n5 1\n255\n1 2 3 4 5\n");
  chama(ExtraiCla, {"1", "2"});
  EXPECT_EQ(pngs(), (NOMES{"01-0000.png", "03-0002.png", "05-0004.png"}));
}

TEST_F(ExtraiNaPasta, IndiceGrandeOcupaMaisAlgarismos) {
  v.assign(10001, {0.9F, 'c', 5, 5, 1, 1, 0});
  grava("foto.ho2", listaHo(v));
  chama(ExtraiAm, {"1", "10000"});
  EXPECT_EQ(pngs(), (NOMES{"foto10000.png"}));
}

TEST_F(ExtraiNaPasta, IndiceForaDaListaEhErroQueODiz) {
  for (const std::string indice : {"5", "-1", "2147483647", "-2147483648"}) {
    EXPECT_EQ(erroDe([&] {
                chama(ExtraiAm, {"1", indice});
              }),
              "Erro: Indice fora da lista " + indice);
  }
}

TEST_F(ExtraiNaPasta, IndiceForaDaImagemDeClassesEhErroQueODiz) {
  grava("foto.mat", "P2\n2 2\n255\n1 2 3 4\n");
  EXPECT_EQ(erroDe([&] { chama(ExtraiCla, {"1"}); }), "Erro: Indice fora da imagem de classes 4");
}

TEST_F(ExtraiNaPasta, AsAmostrasAntesDoErroFicam) {
  EXPECT_EQ(erroDe([&] { chama(ExtraiAm, {"1", "2", "9"}); }), "Erro: Indice fora da lista 9");
  EXPECT_EQ(pngs(), (NOMES{"foto0002.png"}));
  EXPECT_EQ(erroDe([&] { chama(ExtraiAm, {"1", "0", "dois"}); }), "Erro: Numero invalido dois");
  EXPECT_EQ(pngs(), (NOMES{"foto0000.png", "foto0002.png"}));
}

}  // namespace
