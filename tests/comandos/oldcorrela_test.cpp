#include <gtest/gtest.h>

#include <csignal>

#include "apoio/executa.h"
#include "apoio/pasta.h"
#include "detect/correlacao.h"
#include "detect/maximos.h"
#include "detect/ordenacao.h"
#include "entradas_do_detector.h"
#include "kernels/lekernels.h"
#include "pim/converte.h"
#include "pim/imagem.h"
#include "tiff_float.h"

namespace {

using FLOAT = cv::Mat_<float>;

// What a run over a.pgm and k.cfg must find, put together from the steps.
struct ESPERADO_DE_OLDCORRELA {
  std::size_t nKernels = 0;
  FLOAT nivelZero;
  std::vector<MAXLOCAL> maximos;

  explicit ESPERADO_DE_OLDCORRELA(double minCorr) {
    cv::Mat_<unsigned char> cinza;
    FLOAT imagem;
    pim::le(cinza, "a.pgm");
    pim::converte(cinza, imagem, 1.0 / 255, 0.0);
    PIRAMIDE piramide;
    constroiPiramide(piramide, imagem, 0);
    std::vector<MASCARA> kernels;
    leKernels("k.cfg", kernels);
    nKernels = kernels.size();
    MELHORCORREL correl;
    MELHORKERNEL qual;
    correlaGrupo(piramide, kernels, 0, static_cast<int>(nKernels) - 1, correl, qual);
    nivelZero = correl[0];
    findMaxLocal(correl, qual, kernels, maximos, minCorr);
    if (!maximos.empty()) ordena(maximos, 0, static_cast<int>(maximos.size()) - 1);
  }

  std::string ateOrdenar() const {
    return "Lendo imagem.pgm e construindo piramide...\n"
           "Lendo kernel.cfg e construindo kernels...\n"
           "Numero de kernels=" +
           std::to_string(nKernels) +
           "\nCalculando correlacoes em piramide...\n"
           "Procurando maximos locais em cada andar da piramide...\n"
           "Numero de maximos locais original=" +
           std::to_string(maximos.size()) +
           "\nOrdenando os maximos locais em ordem decrescente de correlacao...\n";
  }

  std::string arquivo() const {
    impMaxLocais(maximos, "esperado.ho1");
    return leTudo("esperado.ho1");
  }
};

void confereImagem(const FLOAT& esperada) {
  const FLOAT img = leTiffFloat("oldcorrela.img");
  ASSERT_EQ(img.size(), esperada.size());
  EXPECT_EQ(cv::countNonZero(img != esperada), 0);
}

}  // namespace

TEST(ComandoOldCorrela, TresArgumentosUsamMinCorrPadrao) {
  const PASTA pasta;
  preparaEntradas();
  const EXECUCAO e = executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1"});
  EXPECT_EQ(e.estado, 0);
  EXPECT_EQ(e.erro, "");
  const ESPERADO_DE_OLDCORRELA esperado(0.001);
  EXPECT_EQ(miolo(e), esperado.ateOrdenar() + "Imprimindo os maximos locais\n");
  EXPECT_EQ(leTudo("a.ho1"), esperado.arquivo());
  confereImagem(esperado.nivelZero);
}

TEST(ComandoOldCorrela, QuartoArgumentoEhMinCorr) {
  const PASTA pasta;
  preparaEntradas();
  executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1", "0.3"});
  const ESPERADO_DE_OLDCORRELA esperado(0.3);
  EXPECT_LT(esperado.maximos.size(), ESPERADO_DE_OLDCORRELA(0.001).maximos.size());
  EXPECT_EQ(leTudo("a.ho1"), esperado.arquivo());
  confereImagem(esperado.nivelZero);
}

TEST(ComandoOldCorrela, NenhumMaximoEhEliminadoNemOsRepetidos) {
  const PASTA pasta;
  preparaEntradas();
  const EXECUCAO e = executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1"});
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, "a.ho1");
  EXPECT_NE(e.saida.find("original=" + std::to_string(v.size()) + "\n"), std::string::npos);
  EXPECT_TRUE(achou(v, 'c', 30, 35, 21));
  std::vector<MAXLOCAL> semRepetidos;
  eliminaProximo(v, semRepetidos, 2);
  EXPECT_LT(semRepetidos.size(), v.size());
}

TEST(ComandoOldCorrela, PiramideNaoTemLimiteDeNiveis) {
  const PASTA pasta;
  // A disc of 21 reaches down to level 5 with this pyramid; four levels would stop at 168.
  preparaEntradas("escala 1 a 1 piramide 32 circulo 21");
  cv::Mat_<unsigned char> foto(700, 700, static_cast<unsigned char>(200));
  for (int l = 0; l < foto.rows; ++l) {
    for (int c = 0; c < foto.cols; ++c) {
      if ((l - 350) * (l - 350) + (c - 350) * (c - 350) <= 168 * 168) foto(l, c) = 60;
    }
  }
  pim::imp(foto, "a.pgm");
  executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1", "0.3"});
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, "a.ho1");
  ASSERT_FALSE(v.empty());
  EXPECT_EQ(v[0].d1, 21.0 * 16);
}

TEST(ComandoOldCorrela, ConjuntoInteiroEhUmGrupoSo) {
  const PASTA pasta;
  preparaEntradas("escala 1 a 1 circulo 21 circulo 15");  // no run of it is closed
  const EXECUCAO e = executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1", "0.3"});
  EXPECT_EQ(e.estado, 0);
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, "a.ho1");
  EXPECT_TRUE(achou(v, 'c', 30, 35, 21));
  EXPECT_TRUE(achou(v, 'c', 70, 25, 15));
}

TEST(ComandoOldCorrela, ImagemFicaNaPastaCorrenteMesmoComSaidaEmOutra) {
  const PASTA pasta;
  preparaEntradas();
  std::filesystem::create_directory("outra");
  grava("oldcorrela.img", "antigo");
  EXPECT_EQ(executa({"oldcorrela", "a.pgm", "k.cfg", "outra/a.ho1"}).estado, 0);
  EXPECT_TRUE(existe("outra/a.ho1"));
  EXPECT_FALSE(existe("outra/oldcorrela.img"));
  confereImagem(ESPERADO_DE_OLDCORRELA(0.001).nivelZero);
}

TEST(ComandoOldCorrela, SemMaximosAbortaDepoisDaImagemESemLista) {
  const PASTA pasta;
  preparaEntradas();
  const EXECUCAO e = executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1", "1.5"});
  EXPECT_EQ(e.sinal, SIGABRT);
  const ESPERADO_DE_OLDCORRELA esperado(1.5);
  EXPECT_EQ(e.saida, titulo + esperado.ateOrdenar());
  EXPECT_NE(e.erro.find("Vorplex: vorplex:558: void ordena(std::vector<MAXLOCAL>&, int, int): "
                        "Assertion `l<=r' failed.\n"),
            std::string::npos)
      << e.erro;
  EXPECT_FALSE(existe("a.ho1"));
  confereImagem(esperado.nivelZero);
}

TEST(ComandoOldCorrela, SemKernelsAImagemEhTodaMenosUm) {
  const PASTA pasta;
  preparaEntradas("eof");
  const EXECUCAO e = executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1"});
  EXPECT_EQ(e.sinal, SIGABRT);
  confereImagem(FLOAT(90, 120, -1.0F));
}

TEST(ComandoOldCorrela, NumeroErradoDeArgumentosMostraOUso) {
  const PASTA pasta;
  preparaEntradas();
  const std::vector<std::vector<std::string>> casos = {
      {"oldcorrela"},
      {"oldcorrela", "a.pgm", "k.cfg"},
      {"oldcorrela", "a.pgm", "k.cfg", "a.ho1", "0.1", "2"}};
  for (const std::vector<std::string>& args : casos) {
    const EXECUCAO e = executa(args);
    EXPECT_EQ(e.estado, 1);
    EXPECT_EQ(e.saida, titulo +
                           "OldCorrela imagem.pgm kernel.cfg imagem.ho1 [minCorr]\n"
                           "  minCorr: default=0.001\n");
    EXPECT_EQ(e.erro, "Erro: Numero de argumentos invalido\n");
  }
  EXPECT_FALSE(existe("oldcorrela.img"));
}

TEST(ComandoOldCorrela, EntradasESaidasRuinsSaoErrosComONome) {
  const PASTA pasta;
  preparaEntradas();
  EXECUCAO e = executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1", "muito"});
  EXPECT_EQ(e.saida, titulo);
  EXPECT_EQ(e.erro, "Erro: Numero invalido muito\n");
  e = executa({"oldcorrela", "falta.pgm", "k.cfg", "a.ho1"});
  EXPECT_EQ(e.erro, "Erro abertura arquivo falta.pgm\n");
  EXPECT_EQ(e.saida, titulo + "Lendo imagem.pgm e construindo piramide...\n");
  e = executa({"oldcorrela", "a.pgm", "falta.cfg", "a.ho1"});
  EXPECT_EQ(e.erro, "Erro abertura arquivo falta.cfg\n");
  e = executa({"oldcorrela", "a.pgm", "k.cfg", "falta/a.ho1"});
  EXPECT_EQ(e.erro, "Erro abertura arquivo falta/a.ho1\n");
  EXPECT_TRUE(e.saida.ends_with("Imprimindo os maximos locais\n"));
  std::filesystem::remove("oldcorrela.img");
  std::filesystem::create_directory("oldcorrela.img");
  e = executa({"oldcorrela", "a.pgm", "k.cfg", "a.ho1"});
  EXPECT_EQ(e.estado, 1);
  EXPECT_EQ(e.erro, "Erro abertura arquivo oldcorrela.img\n");
}
