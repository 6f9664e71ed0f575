#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

#include "apoio/executa.h"
#include "apoio/pasta.h"
#include "detect/correlacao.h"
#include "detect/maximos.h"
#include "detect/ordenacao.h"
#include "entradas_do_detector.h"
#include "kernels/grupos.h"
#include "kernels/lekernels.h"
#include "pim/converte.h"
#include "pim/imagem.h"

namespace {

std::vector<MAXLOCAL> detectados(const std::string& nome) {
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, nome);
  return v;
}

// What a run over a.pgm and k.cfg must say and write, put together from the steps.
struct ESPERADO_DE_CORRELA {
  std::string saida;
  std::string arquivo;

  explicit ESPERADO_DE_CORRELA(double minCorr) {
    cv::Mat_<unsigned char> cinza;
    cv::Mat_<float> imagem;
    pim::le(cinza, "a.pgm");
    pim::converte(cinza, imagem, 1.0 / 255, 0.0);
    PIRAMIDE piramide;
    constroiPiramide(piramide, imagem, 4);
    std::vector<MASCARA> kernels;
    leKernels("k.cfg", kernels);
    saida = "Lendo a.pgm e construindo piramide...\nLendo k.cfg e construindo kernels...\n";
    saida += "Numero de kernels=" + std::to_string(kernels.size()) + "\n";
    saida += "Calculando correlacoes em piramide e achando maximos locais...\n";
    std::vector<MAXLOCAL> todos;
    for (const auto& [primeiro, ultimo] : kernels::grupos(kernels)) {
      saida += cv::format("Aplicando filtro #%d-#%d\r", primeiro, ultimo);
      MELHORCORREL correl;
      MELHORKERNEL qual;
      correlaGrupo(piramide, kernels, primeiro, ultimo, correl, qual);
      findMaxLocal(correl, qual, kernels, todos, minCorr);
    }
    saida += "\nOrdenando os " + std::to_string(todos.size());
    saida += " maximos locais em ordem decrescente de correlacao...\n";
    if (!todos.empty()) elimina(todos);
  }

  void elimina(std::vector<MAXLOCAL>& todos) {
    ordena(todos, 0, static_cast<int>(todos.size()) - 1);
    std::vector<MAXLOCAL> ficam;
    eliminaProximo(todos, ficam, 2);
    saida += "Eliminando os maximos locais muito proximos...\n";
    saida += "Imprimindo os " + std::to_string(ficam.size()) + " maximos locais\n";
    impMaxLocais(ficam, "esperado.ho1");
    arquivo = leTudo("esperado.ho1");
  }
};

const std::string usoCorrela =
    "Correla imagem.pgm kernel.cfg imagem.ho1 [minCorr] [maxDist]\n"
    "  maxLocal com correlacao<minCorr e' eliminado\n"
    "  um maxLocal com distancia<=maxDist de outro maxLocal e' eliminado\n"
    "  Default: minCorr=0.001 maxDist=2\n";

// The process must abort in the assertion of an empty sort, having said all that comes before.
void confereAborto(const EXECUCAO& e) {
  EXPECT_EQ(e.sinal, SIGABRT);
  EXPECT_EQ(e.erro,
            "Vorplex: vorplex:558: void ordena(std::vector<MAXLOCAL>&, int, int): "
            "Assertion `l<=r' failed.\n");
  EXPECT_FALSE(existe("a.ho1"));
}

}  // namespace

TEST(ComandoCorrela, TresArgumentosUsamMinCorrPadrao) {
  const PASTA pasta;
  preparaEntradas();
  const EXECUCAO e = executa({"correla", "a.pgm", "k.cfg", "a.ho1"});
  EXPECT_EQ(e.estado, 0);
  EXPECT_EQ(e.erro, "");
  const ESPERADO_DE_CORRELA esperado(0.001);
  EXPECT_EQ(miolo(e), esperado.saida);
  EXPECT_EQ(leTudo("a.ho1"), esperado.arquivo);
}

TEST(ComandoCorrela, QuartoArgumentoEhMinCorrEDistanciaContinua2) {
  const PASTA pasta;
  preparaEntradas();
  const EXECUCAO e = executa({"correla", "a.pgm", "k.cfg", "a.ho1", "0.25"});
  EXPECT_EQ(e.estado, 0);
  const ESPERADO_DE_CORRELA esperado(0.25);
  EXPECT_EQ(miolo(e), esperado.saida);
  EXPECT_EQ(leTudo("a.ho1"), esperado.arquivo);
  const std::vector<MAXLOCAL> v = detectados("a.ho1");
  ASSERT_FALSE(v.empty());
  for (const MAXLOCAL& m : v) EXPECT_GE(m.correl, 0.25F);
}

TEST(ComandoCorrela, GraosDaFotoSaoAchadosNoLugarEComOTamanho) {
  const PASTA pasta;
  preparaEntradas();
  executa({"correla", "a.pgm", "k.cfg", "a.ho1", "0.4"});
  const std::vector<MAXLOCAL> v = detectados("a.ho1");
  EXPECT_TRUE(achou(v, 'c', 30, 35, 21));
  EXPECT_TRUE(achou(v, 'c', 70, 25, 15));
  EXPECT_TRUE(achou(v, 'q', 45, 85, 18));
  for (std::size_t i = 1; i < v.size(); ++i) EXPECT_GE(v[i - 1].correl, v[i].correl);
}

TEST(ComandoCorrela, CincoArgumentosMostramOUsoEErro) {
  const PASTA pasta;
  preparaEntradas();
  const std::vector<std::vector<std::string>> casos = {
      {"correla"},
      {"correla", "a.pgm"},
      {"correla", "a.pgm", "k.cfg"},
      {"correla", "a.pgm", "k.cfg", "a.ho1", "0.1", "2"},
      {"correla", "a.pgm", "k.cfg", "a.ho1", "0.1", "2", "3"}};
  for (const std::vector<std::string>& args : casos) {
    const EXECUCAO e = executa(args);
    EXPECT_EQ(e.estado, 1) << args.size();
    EXPECT_EQ(e.saida, titulo + usoCorrela) << args.size();
    EXPECT_EQ(e.erro, "Erro: Numero de argumentos invalido\n") << args.size();
  }
  EXPECT_FALSE(existe("a.ho1"));
}

TEST(ComandoCorrela, SemMaximosAbortaSemArquivo) {
  const PASTA pasta;
  preparaEntradas();
  const EXECUCAO e = executa({"correla", "a.pgm", "k.cfg", "a.ho1", "1.5"});
  EXPECT_EQ(e.saida, titulo + ESPERADO_DE_CORRELA(1.5).saida);
  EXPECT_TRUE(
      e.saida.ends_with("\nOrdenando os 0 maximos locais em ordem decrescente de correlacao...\n"));
  confereAborto(e);
}

TEST(ComandoCorrela, ImagemSemInteriorAborta) {
  const PASTA pasta;
  preparaEntradas();
  pim::imp(cv::Mat_<unsigned char>(2, 40, static_cast<unsigned char>(9)), "a.pgm");
  confereAborto(executa({"correla", "a.pgm", "k.cfg", "a.ho1"}));
}

TEST(ComandoCorrela, CorridaDeUmaEscalaNaoFechaGrupo) {
  const PASTA pasta;
  preparaEntradas("escala 1 a 1 circulo 21 quadrado 18");
  const EXECUCAO e = executa({"correla", "a.pgm", "k.cfg", "a.ho1"});
  EXPECT_NE(e.saida.find("Numero de kernels=10\nCalculando correlacoes em piramide e achando "
                         "maximos locais...\n\nOrdenando os 0 maximos"),
            std::string::npos);
  confereAborto(e);
}

TEST(ComandoCorrela, EscalaUnicaEntraNoGrupoSeguinte) {
  const PASTA pasta;
  preparaEntradas("escala 1 a 1 circulo 15 escoitava 2 escala 0.5 a 1 circulo 40");
  const EXECUCAO e = executa({"correla", "a.pgm", "k.cfg", "a.ho1", "0.2"});
  EXPECT_NE(e.saida.find("...\nAplicando filtro #0-#3\r\nOrdenando"), std::string::npos) << e.saida;
  EXPECT_EQ(miolo(e), ESPERADO_DE_CORRELA(0.2).saida);
  EXPECT_TRUE(achou(detectados("a.ho1"), 'c', 70, 25, 15));
}

TEST(ComandoCorrela, KernelsDepoisDoUltimoGrupoNuncaSaoUsados) {
  const PASTA pasta;
  preparaEntradas("escoitava 2 circulo 21");
  executa({"correla", "a.pgm", "k.cfg", "sem.ho1"});
  grava("k.cfg", "escoitava 2 circulo 21 escala 1 a 1 quadrado 18");
  const EXECUCAO e = executa({"correla", "a.pgm", "k.cfg", "com.ho1"});
  EXPECT_NE(e.saida.find("Numero de kernels=12\n"), std::string::npos);
  EXPECT_NE(e.saida.find("...\nAplicando filtro #0-#2\r\nOrdenando"), std::string::npos);
  EXPECT_EQ(leTudo("com.ho1"), leTudo("sem.ho1"));
}

TEST(ComandoCorrela, CadaGrupoMostraSuaLinha) {
  const PASTA pasta;
  preparaEntradas();
  const EXECUCAO e = executa({"correla", "a.pgm", "k.cfg", "a.ho1"});
  EXPECT_NE(e.saida.find("Aplicando filtro #0-#2\rAplicando filtro #3-#5\r"
                         "Aplicando filtro #6-#8\r\nOrdenando"),
            std::string::npos)
      << e.saida;
}

TEST(ComandoCorrela, NomesComEspacosEPontosSaoMostradosInteiros) {
  const PASTA pasta;
  preparaEntradas();
  std::filesystem::create_directory("dir.d");
  std::filesystem::rename("a.pgm", "dir.d/uma foto.v2.pgm");
  const EXECUCAO e = executa({"CORRELA", "dir.d/uma foto.v2.pgm", "k.cfg", "dir.d/saida"});
  EXPECT_EQ(e.estado, 0);
  EXPECT_TRUE(miolo(e).starts_with("Lendo dir.d/uma foto.v2.pgm e construindo piramide...\n"));
  EXPECT_FALSE(detectados("dir.d/saida").empty());
}

TEST(ComandoCorrela, MinCorrQueNaoEhNumeroEhErro) {
  const PASTA pasta;
  preparaEntradas();
  const EXECUCAO e = executa({"correla", "a.pgm", "k.cfg", "a.ho1", "0,5"});
  EXPECT_EQ(e.estado, 1);
  EXPECT_EQ(e.saida, titulo);
  EXPECT_EQ(e.erro, "Erro: Numero invalido 0,5\n");
}

TEST(ComandoCorrela, EntradasESaidaRuinsSaoErrosComONome) {
  const PASTA pasta;
  preparaEntradas();
  grava("ruim.cfg", "escoitava 2 circulo 21 estrela 5");
  grava("ruim.pgm", "isto nao eh imagem");
  const std::string lendo = titulo + "Lendo a.pgm e construindo piramide...\n";
  EXECUCAO e = executa({"correla", "falta.pgm", "k.cfg", "a.ho1"});
  EXPECT_EQ(e.saida, titulo + "Lendo falta.pgm e construindo piramide...\n");
  EXPECT_EQ(e.erro, "Erro abertura arquivo falta.pgm\n");
  e = executa({"correla", "ruim.pgm", "k.cfg", "a.ho1"});
  EXPECT_EQ(e.estado, 1);
  EXPECT_TRUE(e.erro.starts_with("Erro leitura imagem ruim.pgm")) << e.erro;
  e = executa({"correla", "a.pgm", "falta.cfg", "a.ho1"});
  EXPECT_EQ(e.saida, lendo + "Lendo falta.cfg e construindo kernels...\n");
  EXPECT_EQ(e.erro, "Erro abertura arquivo falta.cfg\n");
  e = executa({"correla", "a.pgm", "ruim.cfg", "a.ho1"});
  EXPECT_EQ(e.erro, "Erro: Palavra desconhecida estrela\n");
  e = executa({"correla", "a.pgm", "k.cfg", "falta/a.ho1"});
  EXPECT_EQ(e.erro, "Erro abertura arquivo falta/a.ho1\n");
  EXPECT_EQ(e.estado, 1);
  EXPECT_EQ(e.saida.find("Tempo gasto"), std::string::npos);
}

TEST(ComandoCorrela, ImagensDosKernelsNaoFicamNaMemoria) {
  const PASTA pasta;
  preparaEntradas();
  // 120 kernels, whose images would take 270 MB.
  grava("muitos.cfg", "passoang 9 retangulo 500 300");
  const EXECUCAO e = executa({"correla", "a.pgm", "muitos.cfg", "a.ho1", "-2"});
  EXPECT_NE(e.saida.find("Numero de kernels=120\n"), std::string::npos) << e.saida;
  EXPECT_NE(e.saida.find("Aplicando filtro #114-#119\r"), std::string::npos);
#ifndef VORPLEX_SANITIZE
  EXPECT_LT(e.memoria, 200000000);
#endif
}

TEST(ComandoCorrela, RegistroAnteriorEhTrocado) {
  const PASTA pasta;
  preparaEntradas();
  grava("a.ho1", std::string(100000, '9'));
  executa({"correla", "a.pgm", "k.cfg", "a.ho1"});
  EXPECT_EQ(leTudo("a.ho1"), ESPERADO_DE_CORRELA(0.001).arquivo);
}
