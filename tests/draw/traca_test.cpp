#include "draw/traca.h"

#include <gtest/gtest.h>

#include <random>

#include "apoio/figuras.h"
#include "apoio/pasta.h"
#include "draw/formas.h"
#include "fotos.h"
#include "pim/imagem.h"

namespace {

// A folder with a photograph "a.ppm" and a list "a.ho1" that has two touching detections.
struct TracaNaPasta : testing::Test {
  PASTA pasta;
  FOTO foto;
  std::vector<MAXLOCAL> v = {{0.9F, 'c', 14, 15, 16, 16, 0}, {0.8F, 'r', 25, 30, 20, 8, 30}};

  TracaNaPasta() {
    std::mt19937 sorteio(31);
    foto = fotoSorteada(sorteio, 40, 50);
    grava("a.ppm", ppm(foto));
    grava("a.ho1", listaHo(v));
  }

  // What the program draws with these options.
  static FOTO traca(const std::vector<std::string>& opcoes) {
    std::vector<std::string> args = {"traca", "a.ppm", "a.ho1", "b.ppm"};
    args.insert(args.end(), opcoes.begin(), opcoes.end());
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    Traca(static_cast<int>(argv.size()), argv.data());
    FOTO lida;
    pim::le(lida, "b.ppm");
    return lida;
  }

  FOTO fino() const { return tracaFormas(foto, v, false, vermelho); }
  FOTO bold() const { return tracaFormas(foto, v, true, vermelho); }
};

TEST_F(TracaNaPasta, SemOpcoesSoContornosFinosVermelhos) {
  EXPECT_FALSE(iguais(fino(), bold()));
  EXPECT_TRUE(iguais(traca({}), fino()));
}

TEST_F(TracaNaPasta, TodasAsOpcoesSobrepoemContornoIndiceECentro) {
  const FOTO esperada = tracaCentros(tracaIndices(bold(), v), v, true);
  const FOTO obtida = traca({"C", "i", "P"});
  EXPECT_TRUE(iguais(obtida, esperada));
  for (int l = 13; l <= 15; ++l) {
    for (int c = 14; c <= 16; ++c) EXPECT_EQ(obtida(l, c), pim::VEC3B(0, 255, 0));
  }
}

TEST_F(TracaNaPasta, AOrdemDasOpcoesNaoMudaADasCamadas) {
  EXPECT_TRUE(iguais(traca({"P", "i", "C"}), traca({"C", "i", "P"})));
}

TEST_F(TracaNaPasta, CentroFinoSobreOIndice) {
  EXPECT_TRUE(iguais(traca({"i", "p"}), tracaCentros(tracaIndices(fino(), v), v, false)));
}

TEST_F(TracaNaPasta, SoAPrimeiraLetraDaOpcaoConta) {
  EXPECT_TRUE(iguais(traca({"contorno"}), fino()));
  EXPECT_TRUE(iguais(traca({"indice"}), tracaIndices(fino(), v)));
  EXPECT_TRUE(iguais(traca({"Ci"}), bold()));
  EXPECT_TRUE(iguais(traca({"ponto"}), tracaCentros(fino(), v, false)));
}

TEST_F(TracaNaPasta, OpcaoDesconhecidaOuVaziaEhIgnorada) {
  EXPECT_TRUE(iguais(traca({"x", "", "I", "-", "0"}), fino()));
}

TEST_F(TracaNaPasta, AUltimaOpcaoVale) {
  EXPECT_TRUE(iguais(traca({"C", "c"}), fino()));
  EXPECT_TRUE(iguais(traca({"c", "C"}), bold()));
  EXPECT_TRUE(iguais(traca({"P", "p"}), tracaCentros(fino(), v, false)));
  EXPECT_TRUE(iguais(traca({"p", "P"}), tracaCentros(fino(), v, true)));
}

TEST_F(TracaNaPasta, ListaSemRegistrosDaAImagemDeEntrada) {
  grava("a.ho1", listaHo({}));
  EXPECT_TRUE(iguais(traca({"C", "i", "P"}), foto));
}

TEST_F(TracaNaPasta, DesenhaTodosOsRegistrosSemFiltrar) {
  v = {{-0.5F, 'c', 20, 20, 16, 16, 0}, {-0.9F, 'c', 20, 21, 16, 16, 0}};
  grava("a.ho1", listaHo(v));
  EXPECT_TRUE(iguais(traca({}), fino()));
  v.pop_back();
  EXPECT_FALSE(iguais(traca({}), fino()));
}

}  // namespace
