#include "kernels/lekernels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "apoio/erros.h"
#include "apoio/pasta.h"
#include "le.h"

namespace {

std::vector<double> angulos(const std::string& texto) {
  std::vector<double> lista;
  for (const MASCARA& m : le(texto)) lista.push_back(m.ang);
  return lista;
}

// Checks the error of a file.
void recusa(const std::string& texto, const std::string& mensagem, IMAGENS imagens) {
  EXPECT_EQ(erroDe([&] { le(texto, imagens); }), mensagem) << texto;
}

// Whatever images are wanted.
void recusa(const std::string& texto, const std::string& mensagem) {
  recusa(texto, mensagem, IMAGENS::todas);
  recusa(texto, mensagem, IMAGENS::nenhuma);
}

}  // namespace

TEST(LeKernels, AjustesPadraoDaoATabelaDeSeisEscalas) {
  const std::vector<MASCARA> v = le("circulo 21 eof");
  ASSERT_EQ(v.size(), 6U);
  const double escalas[] = {
      1.0, 0.8705505632961241, 0.757858283255199, 0.6597539553864471, 0.5743491774985174, 0.5};
  for (std::size_t s = 0; s < 6; ++s) {
    EXPECT_EQ(v[s].forma, 'c');
    EXPECT_DOUBLE_EQ(v[s].esc, escalas[s]);
    EXPECT_DOUBLE_EQ(v[s].d1, 21 * escalas[s]);
    EXPECT_EQ(v[s].d2, v[s].d1);
    EXPECT_EQ(v[s].ang, 0);
    EXPECT_EQ(v[s].sPir, s < 5 ? 2 : 0);
    EXPECT_EQ(v[s].escPir, s < 5 ? 4.0 : 0.5);
    EXPECT_EQ(v[s].inic, s == 0 ? 0 : s == 5 ? 2 : 1);
  }
}

TEST(LeKernels, ArquivoMinimoDeExemplo) {
  const std::vector<MASCARA> v =
      le("escoitava 5\nescala 0.5 a 1.0\npiramide 4\npassoang 15\n"
         "circulo 21\nretangulo 30 12\neof\n");
  ASSERT_EQ(v.size(), 6U + 12 * 6);
  EXPECT_EQ(v[6].forma, 'r');
  EXPECT_EQ(v[6].d1, 30);
  EXPECT_EQ(v[6].d2, 12);
  EXPECT_EQ(v.back().ang, 165);
  EXPECT_EQ(v.back().d1, 15);
}

TEST(LeKernels, RetanguloPadraoTem108Kernels) {
  const std::vector<MASCARA> v = le("retangulo 30 12 eof");
  EXPECT_EQ(v.size(), 108U);
  EXPECT_EQ(v.back().ang, 170);
  EXPECT_EQ(le("elipse 30 12 eof").size(), 108U);
}

TEST(LeKernels, QuadradoPadraoTemNoveAngulos) {
  EXPECT_EQ(angulos("escala 1 a 1 quadrado 12 eof"),
            (std::vector<double>{0, 10, 20, 30, 40, 50, 60, 70, 80}));
}

TEST(LeKernels, Passo100DaOAnguloZeroE100ARetangulosEElipses) {
  const std::string passo = "escala 1 a 1 passoang 100 ";
  EXPECT_EQ(angulos(passo + "circulo 12"), std::vector<double>{0});
  EXPECT_EQ(angulos(passo + "quadrado 12"), std::vector<double>{0});
  EXPECT_EQ(angulos(passo + "retangulo 12 9"), (std::vector<double>{0, 100}));
  EXPECT_EQ(angulos(passo + "elipse 12 9"), (std::vector<double>{0, 100}));
}

TEST(LeKernels, Passo200DaSoOAnguloZero) {
  for (const char* forma : {"circulo 12", "quadrado 12", "retangulo 12 9", "elipse 12 9"}) {
    const std::vector<double> angs = angulos(std::string("escala 1 a 1 passoang 200 ") + forma);
    EXPECT_EQ(angs, std::vector<double>{0}) << forma;
  }
}

TEST(LeKernels, MarcaUtf8SoValeNoInicioDoArquivo) {
  EXPECT_EQ(le("\xEF\xBB\xBF escala 1 a 1 circulo 12").size(), 1U);
}

TEST(LeKernels, Passo45DaDoisAngulosAoQuadradoEQuatroAoRetangulo) {
  EXPECT_EQ(angulos("escala 1 a 1 passoang 45 quadrado 12"), (std::vector<double>{0, 45}));
  EXPECT_EQ(angulos("escala 1 a 1 passoang 45 retangulo 12 9"),
            (std::vector<double>{0, 45, 90, 135}));
  EXPECT_EQ(angulos("escala 1 a 1 passoang 45 elipse 12 9"), (std::vector<double>{0, 45, 90, 135}));
}

TEST(LeKernels, AnguloEhSomaRepetidaDoPasso) {
  const std::vector<double> angs = angulos("escala 1 a 1 passoang 0.7 quadrado 12");
  double soma = 0;
  for (const double ang : angs) {
    EXPECT_EQ(ang, soma);
    soma += 0.7;
  }
  EXPECT_GE(soma, 90);
}

TEST(LeKernels, UmaEscalaSoDaUmKernelPorAnguloComInicZero) {
  const std::vector<MASCARA> v = le("escala 1 a 1 passoang 45 piramide 4.1 quadrado 12");
  ASSERT_EQ(v.size(), 2U);
  for (const MASCARA& m : v) {
    EXPECT_EQ(m.esc, 1);
    EXPECT_EQ(m.inic, 0);
    EXPECT_EQ(m.sPir, 2);
    EXPECT_EQ(m.escPir, 4.1);
  }
}

TEST(LeKernels, EscOitavaUmDaDuasEscalas) {
  const std::vector<MASCARA> v = le("escoitava 1 circulo 21");
  ASSERT_EQ(v.size(), 2U);
  EXPECT_EQ(v[0].esc, 1.0);
  EXPECT_EQ(v[0].sPir, 2);
  EXPECT_EQ(v[0].inic, 0);
  EXPECT_EQ(v[1].esc, 0.5);
  EXPECT_EQ(v[1].sPir, 0);
  EXPECT_EQ(v[1].escPir, 0.5);
  EXPECT_EQ(v[1].inic, 2);
}

TEST(LeKernels, LogaritmoUmFioAbaixoDoInteiroContaComoEle) {
  const std::vector<MASCARA> v = le("escala 1 a 1 piramide 3.9999999 circulo 21");
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].sPir, 2);
  EXPECT_EQ(le("escala 1 a 1 piramide 3.9999 circulo 21")[0].sPir, 1);
}

TEST(LeKernels, PiramideAbaixoDaEscalaDaNivelNegativo) {
  const std::vector<MASCARA> v = le("escmin 6 escmax 6 circulo 5");
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].sPir, -1);
}

TEST(LeKernels, PalavrasValemEmQualquerCaixa) {
  const std::vector<MASCARA> v = le("ESCALA 1 A 1 CIRCULO 15 Eof");
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].forma, 'c');
  EXPECT_EQ(v[0].d1, 15);
}

TEST(LeKernels, SinonimosSaoAceitos) {
  const std::vector<MASCARA> v = le("escmin 1 escmax 2 escpir 8 escoitava 1 elipse 9 7");
  EXPECT_EQ(v.size(), 18U * 2);
  EXPECT_EQ(v[0].escPir, 8);
}

TEST(LeKernels, ComentarioEhPulado) {
  const std::vector<MASCARA> v = le("// circulo 99\nescala 1 //circulo 98\na 1 circulo //5\n15");
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].d1, 15);
}

TEST(LeKernels, NadaDepoisDeEofEhLido) {
  EXPECT_EQ(le("escala 1 a 1 circulo 15 eof nada disto circulo 3").size(), 1U);
}

TEST(LeKernels, ArquivoVazioNaoDaKernels) {
  EXPECT_TRUE(le("").empty());
  EXPECT_TRUE(le("escoitava 3 // so isto").empty());
}

TEST(LeKernels, AcrescentaAoConjuntoSemApagar) {
  const PASTA pasta;
  grava("kernel.cfg", "escala 1 a 1 circulo 15");
  std::vector<MASCARA> v(2);
  v[1].forma = 'x';
  leKernels("kernel.cfg", v);
  ASSERT_EQ(v.size(), 3U);
  EXPECT_EQ(v[1].forma, 'x');
  EXPECT_EQ(v[2].forma, 'c');
}

TEST(LeKernels, AjusteValeSoParaAsFormasSeguintes) {
  const std::vector<MASCARA> v = le("circulo 15 escala 1 a 1 circulo 11 escala 0.5 a 1");
  EXPECT_EQ(v.size(), 7U);
}

TEST(LeKernels, FaixaInvertidaPorOrdemEhAceitaESemKernels) {
  EXPECT_TRUE(le("escmax 2 escmin 3 circulo 15").empty());
  EXPECT_EQ(le("escmax 2 escmin 3 circulo 15 escmin 2 circulo 15").size(), 1U);
}

TEST(LeKernels, EscMinPoucoAcimaDeEscMaxAindaDaUmaEscala) {
  const std::vector<MASCARA> v = le("escmin 1.01 circulo 15");  // 1 + 5 log2(1 / 1.01) = 0.93
  ASSERT_EQ(v.size(), 1U);
  EXPECT_EQ(v[0].esc, 1.0);
}

TEST(LeKernels, ChecagemUsaOAjusteDoMomento) {
  // A pyramid of 0.3 would be refused against the default largest scale.
  EXPECT_EQ(le("escmin 0.1 escmax 0.2 piramide 0.3 circulo 60").size(), 6U);
}

TEST(LeKernels, PassoNaoNumericoDaSoOAnguloZero) {
  EXPECT_EQ(angulos("escala 1 a 1 passoang nan quadrado 12"), std::vector<double>{0});
  EXPECT_EQ(angulos("escala 1 a 1 passoang inf quadrado 12"), std::vector<double>{0});
}

TEST(LeKernels, PassoZeroSoImportaAFormaQueGira) {
  EXPECT_EQ(le("passoang 0 circulo 21").size(), 6U);
}

TEST(LeKernels, EscMinEEscMaxZeroNaoDaoKernels) {
  EXPECT_TRUE(le("escala 0 a 0 circulo 21").empty());
}

TEST(LeKernels, KernelsGrandesDoMesmoTamanhoContamUmaSoImagem) {
  // Each alone takes 13 MB, the 180 more than is allowed; they are drawn into the same image. With
  // the sanitizers drawing takes long, and fewer show that it is shared.
#ifdef VORPLEX_SANITIZE
  constexpr std::size_t quantos = 15;
#else
  constexpr std::size_t quantos = 180;
#endif
  const auto passo = std::to_string(90.0 / quantos);
  const std::vector<MASCARA> v = le("escala 1 a 1 passoang " + passo + " quadrado 800");
  ASSERT_EQ(v.size(), quantos);
  EXPECT_EQ(v.front().kernel.data, v.back().kernel.data);
  EXPECT_EQ(v.front().kernel.rows, 1601);
}

TEST(LeKernels, ArquivoQueNaoAbreEhErro) {
  std::vector<MASCARA> v;
  EXPECT_EQ(erroDe([&] { leKernels("nao-existe.cfg", v); }),
            "Erro abertura arquivo nao-existe.cfg");
}

TEST(LeKernels, PalavraDesconhecidaEhMostradaEmMinusculas) {
  recusa("escala 1 a 1 HEXAGONO 15", "Erro: Palavra desconhecida hexagono");
}

TEST(LeKernels, PalavraDesconhecidaEhMostradaInteiraEComoEla) {
  recusa(std::string(5000, 'X'), "Erro: Palavra desconhecida " + std::string(5000, 'x'));
  recusa(
      "a\x1B"
      "Bc",
      "Erro: Palavra desconhecida a\x1B"
      "bc");
  recusa(
      "circulo 21 \xEF\xBB\xBF"
      "eof",
      "Erro: Palavra desconhecida \xEF\xBB\xBF"
      "eof");
}

TEST(LeKernels, NumeroOndeSeEsperaPalavraEhPalavraDesconhecida) {
  recusa("circulo 21 22", "Erro: Palavra desconhecida 22");
  recusa("retangulo 21 22 23 eof", "Erro: Palavra desconhecida 23");
}

TEST(LeKernels, EscOitavaMenorQueUmEhRecusada) {
  recusa("escoitava 0", "Erro: deve ter 1<=escOitava");
  recusa("escoitava -4 circulo 3", "Erro: deve ter 1<=escOitava");
}

TEST(LeKernels, EscMinNegativaOuNaoNumericaEhRecusada) {
  recusa("escala -0.1 a 1", "Erro: deve ter 0<=escMin");
  recusa("escmin nan", "Erro: deve ter 0<=escMin");
}

TEST(LeKernels, EscMaxAbaixoDeEscMinEhRecusada) {
  recusa("a 0.4", "Erro: deve ter escMin<=escMax");
  recusa("escmax nan", "Erro: deve ter escMin<=escMax");
}

TEST(LeKernels, PiramideAbaixoDeEscMaxEhRecusada) {
  recusa("piramide 0.5", "Erro: deve ter escMax<=escPir");
  recusa("escpir nan", "Erro: deve ter escMax<=escPir");
}

TEST(LeKernels, NumeroInvalidoMostraTextoArquivoELinha) {
  recusa("escala 1 a 1\ncirculo vinte", "Erro: Numero invalido vinte (kernel.cfg, linha 2)");
  recusa("escoitava 2.5", "Erro: Numero invalido 2.5 (kernel.cfg, linha 1)");
}

TEST(LeKernels, NumeroQueFaltaNoFimEhErro) {
  recusa("elipse 30", "Erro: Falta numero no fim do texto (kernel.cfg, linha 1)");
}

TEST(LeKernels, EscMinZeroTerminaComOErroDaFormaPequenaDemais) {
  recusa("escala 0 a 1 circulo 21", "Erro: IMG_::constructor _mat nulo");
  recusa("escala 0 a 1 quadrado 21", "Erro: NegPosUm divisao zero");
}

TEST(LeKernels, AnguloQueNaoAvancaEhErroComAForma) {
  recusa("passoang 0 quadrado 21", "Erro: passoAng nao avanca em q 21 21 (kernel.cfg, linha 1)");
  recusa("passoang -10 retangulo 30 12",
         "Erro: passoAng nao avanca em r 30 12 (kernel.cfg, linha 1)");
}

TEST(LeKernels, FormaPequenaDemaisDaOMesmoErroComESemImagens) {
  for (const char* pequena : {"circulo 0.4", "circulo -3", "quadrado 1", "retangulo 12 -5",
                              "retangulo 1.2 1.1", "elipse 0 12", "elipse 1.3 0.9"}) {
    recusa(std::string("escala 1 a 1 ") + pequena, "Erro: NegPosUm divisao zero");
  }
  // The disc that rounds to nothing is drawn over the one before it, which is still there.
  recusa("escala 1 a 1 circulo 9 circulo 0.4", "Erro: IMG_::constructor _mat nulo");
  recusa("escala 1 a 1 circulo 9 quadrado 1", "Erro: NegPosUm divisao zero");
}

TEST(LeKernels, KernelsDemaisEhErroComAForma) {
  recusa("passoang 1e-20 elipse 30 12", "Erro: Kernels demais em e 30 12 (kernel.cfg, linha 1)");
  recusa("passoang 0.0001 elipse 30 12", "Erro: Kernels demais em e 30 12 (kernel.cfg, linha 1)");
  recusa("escoitava 1000000000 circulo 21",
         "Erro: Kernels demais em c 21 21 (kernel.cfg, linha 1)");
  recusa("escoitava 1000000000 escmin 0 circulo 21",
         "Erro: Kernels demais em c 21 21 (kernel.cfg, linha 1)");
  // 2^18 and one more.
  recusa("escoitava 262144 circulo 9", "Erro: Kernels demais em c 9 9 (kernel.cfg, linha 1)");
}

TEST(LeKernels, PixelsDemaisEhErroComAForma) {
  recusa("escala 1 a 1 circulo 9\npassoang 0.5 quadrado 4000",
         "Erro: Pixels de kernels demais em q 4000 4000 (kernel.cfg, linha 2)");
}

TEST(LeKernels, MemoriaDemaisSoEhErroQuandoAsImagensSaoGuardadas) {
  recusa("passoang 1.5 quadrado 800",
         "Erro: Memoria de kernels demais em q 800 800 (kernel.cfg, linha 1)", IMAGENS::todas);
  recusa("passoang 1 retangulo 500 300",
         "Erro: Memoria de kernels demais em r 500 300 (kernel.cfg, linha 1)", IMAGENS::todas);
  EXPECT_EQ(le("passoang 1.5 quadrado 800", IMAGENS::nenhuma).size(), 360U);
  EXPECT_EQ(le("passoang 1 retangulo 500 300", IMAGENS::nenhuma).size(), 1080U);
}

TEST(LeKernels, MuitosKernelsPequenosCabem) {
  EXPECT_EQ(le("passoang 0.006 retangulo 20 10", IMAGENS::nenhuma).size(), 180000U);
  EXPECT_EQ(le("escoitava 262143 circulo 9", IMAGENS::nenhuma).size(), 262144U);
}
